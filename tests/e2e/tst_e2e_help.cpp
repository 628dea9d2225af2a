/// @file
/// The built program on a screen of its own: the key F1 takes its help file to the desktop's viewer.

#include "platform/SettingsStore.h"
#include "support/DesktopViewer.h"
#include "support/VirtualScreen.h"
#include "tour/XHands.h"

#include <QApplication>
#include <QTest>

namespace {

constexpr int WindowLimit = 20000; // ms for a window to appear, with sanitizers on a busy machine

} // namespace

class tst_e2e_help : public QObject {
    Q_OBJECT

private slots:
    void cleanup();
    void the_key_opens_the_file_of_the_language_data();
    void the_key_opens_the_file_of_the_language();

private:
    QProcess m_program;
};

void tst_e2e_help::cleanup()
{
    m_program.kill();
    m_program.waitForFinished();
}

void tst_e2e_help::the_key_opens_the_file_of_the_language_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("about");
    QTest::addColumn<QString>("name");
    QTest::newRow("English") << QStringLiteral("1") << QStringLiteral("About Ostrakon")
                             << QStringLiteral("Ostrakon Help_EN.chm");
    QTest::newRow("Chinese") << QStringLiteral("0") << QStringLiteral("关于 Ostrakon")
                             << QStringLiteral("Ostrakon Help.chm");
}

void tst_e2e_help::the_key_opens_the_file_of_the_language()
{
    QFETCH(const QString, language);
    QFETCH(const QString, about);
    QFETCH(const QString, name);
    const DesktopViewer desktop;
    WriteSetting(QStringLiteral("Ostrakon"), QStringLiteral("Language"), QStringLiteral("Currentlang"), language);
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    m_program.start(QStringLiteral(OSTRAKON_PROGRAM), QStringList());
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(QStringLiteral("Ostrakon For KV7000 Series")), WindowLimit);

    const QString path = QStringLiteral(PROGRAM_FOLDER "/") + name;
    XHands::Key(QStringLiteral("F1"));
    QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), QStringList{path}, WindowLimit);

    // Alt and the arrows reach the last menu in both languages: Help, About, a message box.
    XHands::Key(QStringLiteral("alt"));
    XHands::Key(QStringLiteral("Left"));
    for (int entry = 0; entry < 2; ++entry)
        XHands::Key(QStringLiteral("Down"));
    XHands::Key(QStringLiteral("Return"));
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(about), WindowLimit);
    XHands::Key(QStringLiteral("F1"));
    QTRY_COMPARE_WITH_TIMEOUT(desktop.Opened(), (QStringList{path, path}), WindowLimit);
}

int main(int argc, char **argv)
{
    const VirtualScreen screen;
    const QApplication application(argc, argv);
    tst_e2e_help test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_e2e_help.moc"
