/// @file
/// The I/O settings and the text door to the instrument.

#include "link/CommunicateFunBox.h"
#include "link/USB_FuncBox.h"
#include "platform/SettingsStore.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/CommaLocale.h"
#include "support/ErrorOf.h"
#include "support/FakeVisa.h"

#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>
#include <memory>

namespace {

void Store(const QString &section, const QString &key, const QString &value)
{
    WriteSetting(QStringLiteral("Ostrakon"), section, key, value);
}

void StoreIOType(const QString &value)
{
    Store(QStringLiteral("IOSetting"), QStringLiteral("IOType"), value);
}

/// A session that is open, and a link that stands.
void PutUpLink()
{
    VisaSession = FakeVisa::OpenSession();
    LinkUp = true;
}

/// Files of the product that hold a text.
QStringList FilesHolding(const QString &text)
{
    QStringList files;
    QDirIterator file(QStringLiteral(OSTRAKON_SOURCES), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (file.hasNext()) {
        QFile source(file.next());
        if (source.open(QIODevice::ReadOnly) && QString::fromUtf8(source.readAll()).contains(text))
            files.append(file.fileName());
    }
    files.sort();
    return files;
}

} // namespace

class TestCommunicate : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<BareFrame> m_fixture;

    MainFrm &Frame() const { return m_fixture->frame; }

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder->path());
        FakeVisa::Reset();
        Visa = &FakeVisa::Table();
        m_fixture = std::make_unique<BareFrame>();
    }

    void cleanup()
    {
        m_fixture.reset();
        QVERIFY(m_folder->remove());
    }

    void withoutStoredSettingsTheDefaultsHold()
    {
        IOType = 99;
        LoadIOSettings();
        QCOMPARE(IOType, std::uint8_t{0});
        QCOMPARE(PrimaryAddressText, QStringLiteral("1"));
        QCOMPARE(Rs232Port, QStringLiteral("COM1"));
        QCOMPARE(Rs232BaudRate, std::int32_t{9600});
        QCOMPARE(Rs232ParityDataBits, std::uint8_t{0});
        QCOMPARE(Rs232HandShake, QStringLiteral("None"));
        QCOMPARE(Rs232ReplyText, QString());
    }

    void storedSettingsAreRead()
    {
        StoreIOType(QStringLiteral("2"));
        Store(QStringLiteral("GPIB"), QStringLiteral("PrimaryAddress"), QStringLiteral("twenty two"));
        Store(QStringLiteral("RS232"), QStringLiteral("Port"), QStringLiteral("COM7"));
        Store(QStringLiteral("RS232"), QStringLiteral("BaudRate"), QStringLiteral("115200"));
        Store(QStringLiteral("RS232"), QStringLiteral("ParityDataBits"), QStringLiteral("4"));
        Store(QStringLiteral("RS232"), QStringLiteral("Hand_Shake"), QStringLiteral("XON/XOFF"));
        LoadIOSettings();
        QCOMPARE(IOType, std::uint8_t{2});
        QCOMPARE(PrimaryAddressText, QStringLiteral("twenty two"));
        QCOMPARE(Rs232Port, QStringLiteral("COM7"));
        QCOMPARE(Rs232BaudRate, std::int32_t{115200});
        QCOMPARE(Rs232ParityDataBits, std::uint8_t{4});
        QCOMPARE(Rs232HandShake, QStringLiteral("XON/XOFF"));
    }

    void settingsAreNeverWritten()
    {
        InitIO();
        QVERIFY(QDir(m_folder->path()).isEmpty());
    }

    void aByteSettingIsConverted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("error");
        QTest::addColumn<int>("value");
        const auto row = [](const char *text, int error, int value) {
            QTest::addRow("\"%s\"", text) << QString::fromLatin1(text) << error << value;
        };
        row("0", 0, 0);
        row("1", 0, 1);
        row("255", 0, 255);
        row(" 2 ", 0, 2);
        row("2.0", 0, 2);
        row("1.5", 0, 2); // to even
        row("2.5", 0, 2);
        row("255.4", 0, 255);
        row("-0.4", 0, 0);
        row("1E2", 0, 100);
        row("256", 6, 0);
        row("255.5", 6, 0);
        row("300", 6, 0);
        row("-1", 6, 0);
        row("99999999999", 6, 0);
        row("1E400", 6, 0);
        row("abc", 13, 0);
        row("", 13, 0);
        row("2x", 13, 0);
        row("1,5", 13, 0);
        row("nan", 13, 0);
    }

    void aByteSettingIsConverted()
    {
        QFETCH(QString, text);
        QFETCH(int, error);
        QFETCH(int, value);
        IOType = 77;
        StoreIOType(text);
        QCOMPARE(ErrorOf(LoadIOSettings), error);
        QCOMPARE(int{IOType}, error == 0 ? value : 77);

        StoreIOType(QStringLiteral("0"));
        Rs232ParityDataBits = 77;
        Store(QStringLiteral("RS232"), QStringLiteral("ParityDataBits"), text);
        QCOMPARE(ErrorOf(LoadIOSettings), error);
        QCOMPARE(int{Rs232ParityDataBits}, error == 0 ? value : 77);
    }

    void aByteSettingIsConvertedTheSameInACommaLocale_data() { aByteSettingIsConverted_data(); }

    void aByteSettingIsConvertedTheSameInACommaLocale()
    {
        const CommaLocale german;
        QVERIFY(german.IsInForce());
        aByteSettingIsConverted();
    }

    void theBaudRateIsConverted_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("error");
        QTest::addColumn<std::int32_t>("value");
        QTest::newRow("common") << QStringLiteral("19200") << 0 << std::int32_t{19200};
        QTest::newRow("exponent") << QStringLiteral("9.6E3") << 0 << std::int32_t{9600};
        QTest::newRow("negative") << QStringLiteral("-5") << 0 << std::int32_t{-5};
        QTest::newRow("greatest") << QStringLiteral("2147483647") << 0 << std::numeric_limits<std::int32_t>::max();
        QTest::newRow("least") << QStringLiteral("-2147483648") << 0 << std::numeric_limits<std::int32_t>::min();
        QTest::newRow("too great") << QStringLiteral("2147483648") << 6 << std::int32_t{0};
        QTest::newRow("too small") << QStringLiteral("-2147483649") << 6 << std::int32_t{0};
        QTest::newRow("no number") << QStringLiteral("fast") << 13 << std::int32_t{0};
        QTest::newRow("empty") << QString() << 13 << std::int32_t{0};
    }

    void theBaudRateIsConverted()
    {
        QFETCH(int, error);
        QFETCH(std::int32_t, value);
        QFETCH(QString, text);
        Rs232BaudRate = 77;
        Store(QStringLiteral("RS232"), QStringLiteral("BaudRate"), text);
        QCOMPARE(ErrorOf(LoadIOSettings), error);
        QCOMPARE(Rs232BaudRate, error == 0 ? value : 77);
    }

    void settingsBehindADamagedOneAreNotRead()
    {
        StoreIOType(QStringLiteral("1"));
        Store(QStringLiteral("RS232"), QStringLiteral("Port"), QStringLiteral("COM3"));
        Store(QStringLiteral("RS232"), QStringLiteral("BaudRate"), QStringLiteral("abc"));
        Store(QStringLiteral("RS232"), QStringLiteral("ParityDataBits"), QStringLiteral("3"));
        Rs232HandShake = QStringLiteral("as before");
        Rs232ParityDataBits = 77;
        QCOMPARE(ErrorOf(LoadIOSettings), 13);
        QCOMPARE(IOType, std::uint8_t{1});
        QCOMPARE(PrimaryAddressText, QStringLiteral("1"));
        QCOMPARE(Rs232Port, QStringLiteral("COM3"));
        QCOMPARE(Rs232ParityDataBits, std::uint8_t{77});
        QCOMPARE(Rs232HandShake, QStringLiteral("as before"));
    }

    void initIOStartsFromALinkThatIsDown()
    {
        LinkUp = true;
        UsbInitOk = true;
        Frame().picLED_ON->show();
        Frame().picLED_OFF->hide();
        StoreIOType(QStringLiteral("3"));
        QVERIFY(!Frame().TimeOutTimer->isActive());
        InitIO();
        QVERIFY(!LinkUp);
        QVERIFY(!UsbInitOk);
        QVERIFY(Frame().TimeOutTimer->isActive());
        QCOMPARE(Frame().TimeOutTimer->interval(), 100);
        QVERIFY(!Frame().TimeOutTimer->isSingleShot());
        QVERIFY(Frame().picLED_OFF->isVisible());
        QVERIFY(!Frame().picLED_ON->isVisible());
        QCOMPARE(IOType, std::uint8_t{3});
        QVERIFY(!Frame().CheckLinkTimer->isActive());
    }

    void initIOOpensNoInstrumentAndSaysNothing()
    {
        const BoxAnswers noBox;
        InitIO();
        QCOMPARE(FakeVisa::State().ManagersOpened, 0);
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QCOMPARE(Frame().sbrStatus->PanelText(2), QStringLiteral("Unconnected"));
    }

    void initIOLetsADamagedSettingThrough_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("error");
        QTest::newRow("no number") << QStringLiteral("abc") << 13;
        QTest::newRow("too great") << QStringLiteral("300") << 6;
    }

    /// What stands ahead of the reading has been done then.
    void initIOLetsADamagedSettingThrough()
    {
        QFETCH(QString, text);
        LinkUp = true;
        StoreIOType(text);
        QTEST(ErrorOf(InitIO), "error");
        QVERIFY(!LinkUp);
        QVERIFY(Frame().TimeOutTimer->isActive());
        QVERIFY(Frame().picLED_OFF->isVisible());
    }

    void theTimeOutTimerHasNoEffect()
    {
        const BoxAnswers noBox;
        InitIO();
        PutUpLink();
        QSignalSpy ticks(Frame().TimeOutTimer, &QTimer::timeout);
        Frame().TimeOutTimer->setInterval(1);
        QTRY_VERIFY(ticks.size() >= 20);
        QVERIFY(LinkUp);
        QVERIFY(Frame().TimeOutTimer->isActive());
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QCOMPARE(FakeVisa::ReadCount(), 0);
    }

    void aCommandGoesTheWayOfItsTransport_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("usb");
        QTest::newRow("USB") << 0 << true;
        QTest::newRow("GPIB") << 1 << false;
        QTest::newRow("RS232") << 2 << false;
        QTest::newRow("first of the others") << 3 << true;
        QTest::newRow("some other") << 100 << true;
        QTest::newRow("last of the others") << 255 << true;
    }

    void aCommandGoesTheWayOfItsTransport()
    {
        const BoxAnswers noBox;
        QFETCH(int, type);
        QFETCH(bool, usb);
        IOType = static_cast<std::uint8_t>(type);
        PutUpLink();
        SendCommand(QStringLiteral(":FUNCtion:VOLTage:DC"));
        QCOMPARE(FakeVisa::State().Written, usb ? QByteArrayList{":FUNCtion:VOLTage:DC\n"} : QByteArrayList());
        QCOMPARE(FakeVisa::WriteCount(), usb ? 1 : 0);
        QCOMPARE(FakeVisa::ReadCount(), 0);
        QVERIFY(LinkUp);
    }

    void aQueryGoesTheWayOfItsTransport_data() { aCommandGoesTheWayOfItsTransport_data(); }

    void aQueryGoesTheWayOfItsTransport()
    {
        const BoxAnswers noBox;
        QFETCH(int, type);
        QFETCH(bool, usb);
        IOType = static_cast<std::uint8_t>(type);
        PutUpLink();
        FakeVisa::State().Replies = {"+1.250000E+00\n"};
        const QString reply = QueryCommand(QStringLiteral(":MEASure:VOLTage:DC?"));
        QCOMPARE(reply, usb ? QStringLiteral("+1.250000E+00\n") : QString());
        QCOMPARE(FakeVisa::State().Written, usb ? QByteArrayList{":MEASure:VOLTage:DC?\n"} : QByteArrayList());
        QCOMPARE(FakeVisa::ReadCount(), usb ? 1 : 0);
    }

    void theOtherTransportsReportNoFailure_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("GPIB") << 1;
        QTest::newRow("RS232") << 2;
    }

    void theOtherTransportsReportNoFailure()
    {
        const BoxAnswers noBox;
        QFETCH(int, type);
        IOType = static_cast<std::uint8_t>(type);
        PutUpLink();
        FakeVisa::Unplug();
        SendCommand(QStringLiteral(":FUNCtion:VOLTage:DC"));
        QCOMPARE(QueryCommand(QStringLiteral("*IDN?")), QString());
        QVERIFY(LinkUp);
    }

    void withTheLinkDownACommandIsSilent()
    {
        const BoxAnswers noBox;
        VisaSession = FakeVisa::OpenSession();
        SendCommand(QStringLiteral(":FUNCtion:VOLTage:DC"));
        QCOMPARE(FakeVisa::WriteCount(), 0);
    }

    void aReplyIsReturnedThoughTheWriteFailed()
    {
        BoxAnswers box({QMessageBox::Ok});
        PutUpLink();
        FakeVisa::Unplug();
        FakeVisa::State().Replies = {"left over\n"};
        QCOMPARE(QueryCommand(QStringLiteral("*IDN?")), QStringLiteral("left over\n"));
        QCOMPARE(box.Shown().size(), 1);
    }

    void aReplyThatNeverComesIsNoError()
    {
        const BoxAnswers noBox;
        PutUpLink();
        QCOMPARE(QueryCommand(QStringLiteral("*IDN?")), QString());
        QVERIFY(LinkUp);
    }

    void theReservedTextsStandAsGiven()
    {
        QCOMPARE(ReservedWording::UsbTimeOut, QStringLiteral("Read USB time out! "));
        QCOMPARE(ReservedWording::UsbTimeOutTitle, QStringLiteral("USB Read Message"));
        QCOMPARE(ReservedWording::Rs232TimeOut, QStringLiteral("Read RS232 time out! "));
        QCOMPARE(ReservedWording::Rs232TimeOutTitle, QStringLiteral("RS232 Read Message"));
        QCOMPARE(ReservedWording::RunEnded, QStringLiteral("Communication is failed, Measuring has been ended! "));
        QCOMPARE(ReservedWording::RunEndedChinese, QStringLiteral("通信中断，测量结束! "));
        QCOMPARE(ReservedWording::ParseFinished, QStringLiteral("PARSE FINISHED"));
    }

    void theReservedTextsAreWiredNowhere_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text : {"Read USB time out!", "USB Read Message", "Read RS232 time out!", "RS232 Read Message",
                                 "Communication is failed", "通信中断，测量结束", "PARSE FINISHED", "ReservedWording"})
            QTest::newRow(text) << QString::fromUtf8(text);
    }

    void theReservedTextsAreWiredNowhere()
    {
        QFETCH(QString, text);
        QCOMPARE(FilesHolding(text), QStringList{QStringLiteral("CommunicateFunBox.h")});
    }
};

QTEST_MAIN(TestCommunicate)
#include "tst_communicate.moc"
