#include "shell/HelpModule.h"

#include "controls/Guard.h"
#include "platform/RuntimeError.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>

#ifdef Q_OS_WIN
#include <QDesktopServices>
#include <QUrl>
#else
#include <QProcess>
#endif

QString HelpFile;

namespace {

#ifdef Q_OS_WIN

bool OpenWithViewer(const QString &path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

#else

constexpr int QueryTimeLimit = 5000; // milliseconds

/// Whether the desktop knows a program for a type of file.
bool ViewerIsKnown(const QString &type)
{
    QProcess query;
    query.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), type});
    return query.waitForFinished(QueryTimeLimit) && !query.readAllStandardOutput().trimmed().isEmpty();
}

/// The toolkit's openUrl starts the same xdg-open, but says true whatever becomes of it, and nothing on platforms
/// without a desktop. Asked first, since xdg-open hands a file that no program is known for to a web browser. Some
/// viewers are registered by the older of the type's two names only.
bool OpenWithViewer(const QString &path)
{
    const bool known = ViewerIsKnown(QStringLiteral("application/vnd.ms-htmlhelp")) ||
                       ViewerIsKnown(QStringLiteral("application/x-chm"));
    QProcess viewer;
    viewer.setProgram(QStringLiteral("xdg-open"));
    viewer.setArguments({path});
    viewer.setStandardOutputFile(QProcess::nullDevice());
    viewer.setStandardErrorFile(QProcess::nullDevice());
    return known && viewer.startDetached();
}

#endif

/// Sees every key ahead of the window that it is for.
class HelpKeyFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return QObject::eventFilter(receiver, event);
        const auto &key = static_cast<const QKeyEvent &>(*event);
        if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier)
            return QObject::eventFilter(receiver, event);
        if (!key.isAutoRepeat())
            RunGuarded(OpenHelpFile);
        return true;
    }
};

} // namespace

void OpenHelpFile()
{
    const QFileInfo file(HelpFile);
    if (!file.isFile())
        throw RuntimeError(ErrorNumber::FileNotFound);
    if (!OpenWithViewer(file.absoluteFilePath()))
        throw RuntimeError(ErrorNumber::NoViewer);
}

void SendHelpKey()
{
    QWidget *target = QApplication::focusWidget();
    if (target == nullptr)
        target = MainForm;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, Qt::Key_F1, Qt::NoModifier);
        QApplication::sendEvent(target, &key);
    }
}

void ConnectHelpKey()
{
    qApp->installEventFilter(new HelpKeyFilter(MainForm));
}
