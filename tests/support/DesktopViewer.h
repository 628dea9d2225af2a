/// @file
/// A desktop of the test's own, whose viewer for help files writes down what it is given to show.
#pragma once

#include <QDir>
#include <QFile>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

/// Points this process, and the programs it starts, to a desktop that knows one viewer for help files, or none:
/// neither the machine's own programs nor a browser are ever asked.
class DesktopViewer {
public:
    /// How the viewer is registered: by the type of help files, by that type's older name, or not at all.
    enum class Kind { Known, KnownByOldName, Unknown };

    explicit DesktopViewer(Kind kind = Kind::Known)
    {
        QVERIFY(QDir().mkpath(m_scratch.filePath(QStringLiteral("data/applications"))));
        qputenv("XDG_CURRENT_DESKTOP", "X-Generic");
        qputenv("XDG_DATA_HOME", m_scratch.filePath(QStringLiteral("data")).toLocal8Bit());
        qputenv("XDG_DATA_DIRS", m_scratch.filePath(QStringLiteral("none")).toLocal8Bit());
        qputenv("XDG_CONFIG_DIRS", m_scratch.filePath(QStringLiteral("none")).toLocal8Bit());
        qputenv("BROWSER", "false");
        // The desktop's tools ask for a viewer only where there is a screen; this viewer needs none.
        if (!qEnvironmentVariableIsSet("DISPLAY"))
            qputenv("DISPLAY", ":none");
        if (kind == Kind::Known)
            Register("application/vnd.ms-htmlhelp");
        if (kind == Kind::KnownByOldName) {
            Register("application/x-chm");
            // A bare desktop takes the two names for two types, a whole one hands the file on. This stands in for it.
            qputenv("BROWSER", ViewerPath().toLocal8Bit());
        }
    }

    /// The files that the viewer was started with, in order.
    QStringList Opened() const
    {
        QFile record(RecordPath());
        if (!record.open(QIODevice::ReadOnly))
            return {};
        return QString::fromLocal8Bit(record.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    /// A file that the desktop takes for a help file, in a folder whose name is no plain one.
    QString MakeHelpFile(const QString &name) const
    {
        const QString folder = m_scratch.filePath(QStringLiteral("Bücher 帮助 %20"));
        QDir().mkpath(folder);
        WriteHelpFile(folder + QLatin1Char('/') + name);
        return folder + QLatin1Char('/') + name;
    }

    /// Writes what the desktop takes for a help file.
    static void WriteHelpFile(const QString &path)
    {
        Write(path, QByteArray("ITSF\x03\0\0\0\x60\0\0\0\x01\0\0\0", 16));
    }

private:
    QString RecordPath() const { return m_scratch.filePath(QStringLiteral("opened")); }
    QString ViewerPath() const { return m_scratch.filePath(QStringLiteral("viewer")); }

    static void Write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
        QCOMPARE(file.write(content), content.size());
    }

    void Register(const QByteArray &type) const
    {
        const QString program = ViewerPath();
        const QString applications = m_scratch.filePath(QStringLiteral("data/applications/"));
        Write(program, "#!/bin/sh\necho \"$1\" >>" + RecordPath().toLocal8Bit() + "\n");
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        Write(applications + QStringLiteral("viewer.desktop"),
              "[Desktop Entry]\nType=Application\nName=Viewer\nMimeType=" + type + ";\nExec=" + program.toLocal8Bit() +
                  " %f\n");
        Write(applications + QStringLiteral("mimeapps.list"), "[Default Applications]\n" + type + "=viewer.desktop\n");
    }

    QTemporaryDir m_scratch;
};
