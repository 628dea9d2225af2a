#include "tour/XHands.h"

#include <QProcess>
#include <QRegularExpression>
#include <QWidget>

namespace {

constexpr int KeyPause = 12; // ms between two keys, so that none is lost

void Xdotool(const QStringList &arguments)
{
    QProcess::execute(QStringLiteral("xdotool"), arguments);
}

/// What xdotool prints, without the last line end; empty when it fails.
QString XdotoolOutput(const QStringList &arguments)
{
    QProcess xdotool;
    xdotool.start(QStringLiteral("xdotool"), arguments);
    if (!xdotool.waitForFinished() || xdotool.exitCode() != 0)
        return {};
    return QString::fromLocal8Bit(xdotool.readAllStandardOutput()).trimmed();
}

} // namespace

void XHands::Click(QPoint screen, int button, int times)
{
    Xdotool({QStringLiteral("mousemove"), QString::number(screen.x()), QString::number(screen.y()),
             QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(times), QStringLiteral("--delay"),
             QStringLiteral("60"), QString::number(button)});
}

void XHands::Click(const QWidget &widget, int button, int times)
{
    Click(widget.mapToGlobal(widget.rect().center()), button, times);
}

void XHands::Type(const QString &text)
{
    Xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QString::number(KeyPause), QStringLiteral("--"), text});
}

void XHands::Key(const QString &key)
{
    Xdotool({QStringLiteral("key"), QStringLiteral("--delay"), QString::number(KeyPause), key});
}

std::optional<QPoint> XHands::FindWindow(const QString &title)
{
    const QString pattern = QLatin1Char('^') + QRegularExpression::escape(title);
    const QString windows =
        XdotoolOutput({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), pattern});
    if (windows.isEmpty())
        return std::nullopt;
    // The pointer tells the place truly; getwindowgeometry counts the frame of the window manager twice.
    const QString location = XdotoolOutput(
        {QStringLiteral("mousemove"), QStringLiteral("--window"), windows.section(QLatin1Char('\n'), -1),
         QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("getmouselocation"), QStringLiteral("--shell")});
    static const QRegularExpression place(QStringLiteral("X=(-?\\d+)\\nY=(-?\\d+)"));
    const QRegularExpressionMatch match = place.match(location);
    if (!match.hasMatch())
        return std::nullopt;
    return QPoint(match.captured(1).toInt(), match.captured(2).toInt());
}
