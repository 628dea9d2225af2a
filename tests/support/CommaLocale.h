/// @file
/// A locale whose decimal sign is a comma, for the time of a test.
#pragma once

#include <QByteArray>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>

#include <clocale>
#include <string_view>

/// The German locale, for the C library and for the toolkit, as long as this lives. Where the system has not generated
/// it, it is made once a process.
class CommaLocale {
public:
    CommaLocale() : m_before(std::setlocale(LC_ALL, nullptr)), m_path(qgetenv("LOCPATH"))
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        if (std::setlocale(LC_ALL, "de_DE.UTF-8"))
            return;
        qputenv("LOCPATH", MadeLocales());
        std::setlocale(LC_ALL, "de_DE.UTF-8");
    }

    ~CommaLocale()
    {
        if (m_path.isNull())
            qunsetenv("LOCPATH");
        else
            qputenv("LOCPATH", m_path);
        std::setlocale(LC_ALL, m_before.constData());
        QLocale::setDefault(m_locale);
    }

    CommaLocale(const CommaLocale &) = delete;
    CommaLocale &operator=(const CommaLocale &) = delete;

    /// Whether numbers really have a comma now; to be verified by each test, since making the locale can fail.
    bool IsInForce() const
    {
        return std::string_view(std::localeconv()->decimal_point) == "," &&
               QLocale().toString(1.5) == QStringLiteral("1,5");
    }

private:
    static QByteArray MadeLocales()
    {
        static const QTemporaryDir folder;
        static const int made = QProcess::execute(
            QStringLiteral("localedef"), {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                                          QStringLiteral("UTF-8"), folder.filePath(QStringLiteral("de_DE.UTF-8"))});
        return made == 0 ? folder.path().toLocal8Bit() : QByteArray();
    }

    QByteArray m_before;
    QByteArray m_path;
    QLocale m_locale;
};
