#include "controls/StatusPanels.h"

#include "platform/RuntimeError.h"

#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QTimerEvent>

namespace {

constexpr int ClockInterval = 1000; ///< milliseconds

QLabel *CheckedPanel(const std::vector<QLabel *> &panels, int panel)
{
    if (panel < 1 || panel > static_cast<int>(panels.size()))
        throw RuntimeError(ErrorNumber::OutOfRange);
    return panels[static_cast<std::size_t>(panel - 1)];
}

void ShowIfNew(QLabel *label, const QString &text)
{
    if (label != nullptr && label->text() != text)
        label->setText(text);
}

} // namespace

StatusPanels::StatusPanels(QWidget *parent) : QStatusBar(parent) {}

void StatusPanels::AddPanel(const QString &key, const QString &text, int stretch)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(key);
    label->setTextFormat(Qt::PlainText);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    // A share of the width does not move with its text.
    if (stretch > 0)
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    // Permanent, for a passing message would hide the others.
    addPermanentWidget(label, stretch);
    m_panels.push_back(label);
    if (!key.isEmpty())
        m_keys[key] = static_cast<int>(m_panels.size());
}

void StatusPanels::AddSpace(int width)
{
    auto *space = new QWidget(this);
    space->setFixedWidth(width);
    addPermanentWidget(space);
}

void StatusPanels::AddDatePanel()
{
    AddPanel(QString(), QString(), 0);
    m_date = m_panels.back();
    StartClock();
}

void StatusPanels::AddTimePanel()
{
    AddPanel(QString(), QString(), 0);
    m_time = m_panels.back();
    StartClock();
}

void StatusPanels::SetPanelText(int panel, const QString &text)
{
    CheckedPanel(m_panels, panel)->setText(text);
}

QString StatusPanels::PanelText(int panel) const
{
    return CheckedPanel(m_panels, panel)->text();
}

int StatusPanels::PanelOfKey(const QString &key) const
{
    const auto found = m_keys.find(key);
    if (found == m_keys.end())
        throw RuntimeError(ErrorNumber::InvalidCall);
    return found->second;
}

void StatusPanels::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_clock.timerId()) {
        ShowClock();
    } else {
        QStatusBar::timerEvent(event);
    }
}

void StatusPanels::StartClock()
{
    ShowClock();
    if (!m_clock.isActive())
        m_clock.start(ClockInterval, this);
}

void StatusPanels::ShowClock()
{
    const QDateTime now = QDateTime::currentDateTime();
    ShowIfNew(m_date, QLocale::c().toString(now, QStringLiteral("yyyy-MM-dd")));
    ShowIfNew(m_time, QLocale::c().toString(now, QStringLiteral("hh:mm")));
}
