#include "controls/TabStrip.h"

#include "platform/RuntimeError.h"

#include <QMouseEvent>
#include <QTabBar>

namespace {

int CheckedTab(const QTabBar &bar, int tab)
{
    if (tab < 1 || tab > bar.count())
        throw RuntimeError(ErrorNumber::OutOfRange);
    return tab - 1;
}

} // namespace

TabStrip::TabStrip(int tabs, QWidget *parent) : QWidget(parent), m_bar(new QTabBar(this))
{
    m_bar->setShape(QTabBar::RoundedSouth);
    m_bar->setExpanding(false);
    m_bar->setElideMode(Qt::ElideNone);
    m_bar->setFocusPolicy(Qt::StrongFocus);
    for (int tab = 1; tab <= tabs; ++tab)
        m_bar->addTab(QString());
    m_bar->installEventFilter(this);
    connect(m_bar, &QTabBar::currentChanged, this, [this](int index) {
        if (!m_silent)
            emit Click(index + 1);
    });
    Place();
}

void TabStrip::SetCaption(int tab, const QString &caption)
{
    m_bar->setTabText(CheckedTab(*m_bar, tab), caption);
    Place();
}

QString TabStrip::Caption(int tab) const
{
    return m_bar->tabText(CheckedTab(*m_bar, tab));
}

int TabStrip::SelectedTab() const
{
    return m_bar->currentIndex() + 1;
}

void TabStrip::SelectTab(int tab)
{
    const int index = CheckedTab(*m_bar, tab);
    m_silent = true;
    m_bar->setCurrentIndex(index);
    m_silent = false;
}

int TabStrip::FixedTabHeight() const
{
    return m_bar->sizeHint().height();
}

QPoint TabStrip::TabCentre(int tab) const
{
    // A hidden strip has not been told of its size yet.
    Place();
    return m_bar->mapTo(this, m_bar->tabRect(CheckedTab(*m_bar, tab)).center());
}

void TabStrip::resizeEvent(QResizeEvent *)
{
    Place();
}

// The press is taken over whole: the bar tells of it before it selects, and of every button.
bool TabStrip::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
        return QWidget::eventFilter(watched, event);
    const auto *press = static_cast<QMouseEvent *>(event);
    const int index = m_bar->tabAt(press->position().toPoint());
    if (index >= 0 && press->button() == Qt::LeftButton) {
        SelectTab(index + 1);
        emit Click(index + 1);
    }
    return true;
}

void TabStrip::Place() const
{
    const int tabHeight = FixedTabHeight();
    m_bar->setGeometry(0, height() - tabHeight, width(), tabHeight);
}
