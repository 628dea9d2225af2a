/// @file
/// A screen of its own for an end-to-end test: an X server and a window manager, started by the test and ended by it.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

/// Lives ahead of the application object: the toolkit connects to DISPLAY when that is made.
class VirtualScreen {
public:
    /// Starts the servers and points this process and its children to them, with a home of their own.
    VirtualScreen()
    {
        qputenv("XDG_RUNTIME_DIR", Folder("runtime"));
        qputenv("HOME", Folder("home"));
        qputenv("XDG_CONFIG_HOME", Folder("home"));
        m_server.start(QStringLiteral("Xvfb"),
                       {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                        QStringLiteral("0"), QStringLiteral("1400x1000x24"), QStringLiteral("-nolisten"),
                        QStringLiteral("tcp")});
        if (!m_server.waitForStarted() || !m_server.waitForReadyRead())
            qFatal("Xvfb does not start");
        qputenv("DISPLAY", ":" + m_server.readAllStandardOutput().trimmed());
        qputenv("QT_QPA_PLATFORM", "xcb");
        // It says when it manages the screen: a window that is mapped earlier gets no focus.
        m_windowManager.start(QStringLiteral("openbox"), {QStringLiteral("--startup"), QStringLiteral("echo managed")});
        if (!m_windowManager.waitForStarted() || !m_windowManager.waitForReadyRead())
            qFatal("openbox does not start");
    }

    ~VirtualScreen()
    {
        for (QProcess *server : {&m_windowManager, &m_server}) {
            server->terminate();
            if (!server->waitForFinished(5000))
                server->kill();
        }
    }

    VirtualScreen(const VirtualScreen &) = delete;
    VirtualScreen &operator=(const VirtualScreen &) = delete;

private:
    QByteArray Folder(const char *name)
    {
        const QString path = m_scratch.filePath(QString::fromLatin1(name));
        QDir().mkpath(path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path.toLocal8Bit();
    }

    QTemporaryDir m_scratch;
    QProcess m_server;
    QProcess m_windowManager;
};
