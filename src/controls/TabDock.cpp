#include "controls/TabDock.h"

#include "platform/Measures.h"
#include "platform/RuntimeError.h"

#include <QDockWidget>
#include <QEvent>
#include <QMainWindow>

TabDock::TabDock(QMainWindow *frame) : QObject(frame), m_frame(frame)
{
    m_frame->installEventFilter(this);
}

void TabDock::AddPanel(const QString &name, QWidget *panel)
{
    auto *dock = new QDockWidget(m_frame);
    dock->setObjectName(name);
    dock->setFeatures(QDockWidget::DockWidgetClosable);
    dock->setAllowedAreas(Qt::LeftDockWidgetArea);
    dock->setWidget(panel);
    dock->installEventFilter(this);
    m_frame->addDockWidget(Qt::LeftDockWidgetArea, dock);
    dock->hide();
    m_docks[name] = dock;
}

void TabDock::SetLeftPanelWidth(int twips)
{
    m_leftWidth = PixelsFromTwips(twips);
    m_widthPending = true;
    ApplyWidth();
}

void TabDock::ShowPanel(const QString &name)
{
    Dock(name)->show();
    ApplyWidth();
}

void TabDock::HidePanel(const QString &name)
{
    Dock(name)->hide();
}

bool TabDock::PanelVisible(const QString &name) const
{
    return !Dock(name)->isHidden();
}

void TabDock::SetPanelTitle(const QString &name, const QString &title)
{
    Dock(name)->setWindowTitle(title);
}

bool TabDock::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_frame) {
        // The frame has its size only now.
        if (event->type() == QEvent::Show)
            ApplyWidth();
        return QObject::eventFilter(watched, event);
    }
    // The program hides a panel, only its close box closes it.
    if (event->type() == QEvent::Close) {
        auto *dock = static_cast<QDockWidget *>(watched);
        dock->hide();
        emit PanelClosed(dock->objectName());
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

// Once for each width set, so that the user's own width stays.
void TabDock::ApplyWidth()
{
    if (!m_widthPending || !m_frame->isVisible())
        return;
    for (const auto &[name, dock] : m_docks) {
        if (dock->isHidden())
            continue;
        m_frame->resizeDocks({dock}, {m_leftWidth}, Qt::Horizontal);
        m_widthPending = false;
    }
}

QDockWidget *TabDock::Dock(const QString &name) const
{
    const auto found = m_docks.find(name);
    if (found == m_docks.end())
        throw RuntimeError(ErrorNumber::InvalidCall);
    return found->second;
}
