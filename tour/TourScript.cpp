#include "tour/TourScript.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int PollInterval = 25; // ms
constexpr int StepLimit = 30000; // ms that a condition may take
constexpr int SettlePause = 150; // ms after an act: the screen draws, a person looks

QWidgetList ShownWindows()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget *window) { return !window->isVisible() || !window->windowHandle(); });
    return windows;
}

/// Every window that is shown has come up on the screen.
bool AllOnScreen()
{
    const QWidgetList windows = ShownWindows();
    return std::all_of(windows.begin(), windows.end(),
                       [](const QWidget *window) { return window->windowHandle()->isExposed(); });
}

} // namespace

void TourScript::Add(const QString &name, Condition ready, Act act)
{
    m_steps.push_back({name, std::move(ready), std::move(act)});
}

void TourScript::AddPicture(const QString &name, Condition ready)
{
    Add(
        name, [ready = std::move(ready)] { return ready() && AllOnScreen(); }, [this, name] { TakePicture(name); });
}

void TourScript::Start()
{
    QTimer::singleShot(0, qApp, [this] { Poll(0, 0); });
}

void TourScript::Poll(std::size_t index, int waited)
{
    if (index >= m_steps.size()) {
        QGuiApplication::exit(0);
        return;
    }
    const Step &step = m_steps[index];
    if (!step.Ready()) {
        if (waited >= StepLimit) {
            std::fprintf(stderr, "tour: waited in vain for \"%s\"\n", qPrintable(step.Name));
            TakePicture(QStringLiteral("failed"));
            std::_Exit(1); // a modal dialogue may be open: no event loop would end
        }
        QTimer::singleShot(PollInterval, qApp, [=, this] { Poll(index, waited + PollInterval); });
        return;
    }
    // Ahead of the act: one that opens a dialogue does not return before the dialogue is closed.
    QTimer::singleShot(SettlePause, qApp, [=, this] { Poll(index + 1, 0); });
    step.Run();
}

void TourScript::TakePicture(const QString &name)
{
    // A window that has just come up would be caught empty.
    for (QWidget *window : ShownWindows())
        window->repaint();
    ++m_pictures;
    const QString file =
        QStringLiteral("%1/%2-%3.png").arg(m_folder).arg(m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    if (!QGuiApplication::primaryScreen()->grabWindow(0).save(file)) {
        std::fprintf(stderr, "tour: cannot write %s\n", qPrintable(file));
        std::_Exit(1);
    }
}
