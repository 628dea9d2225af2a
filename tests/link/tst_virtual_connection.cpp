/// @file
/// The link modules over the virtual multimeters, through a VISA library that is loaded at run time.

#include "link/CommunicateFunBox.h"
#include "link/ConnectionModule.h"
#include "link/DeviceChoiceFrm.h"
#include "link/USB_FuncBox.h"
#include "simulator/VirtualMultimeterControl.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "visa/VisaLoader.h"

#include <QtTest>

#include <array>
#include <memory>

namespace {

VisaTable Library;

QStringList Lines(int instrument = 0)
{
    QStringList lines;
    for (int index = 0; index < kv7000_control_line_count(instrument); ++index)
        lines.append(QString::fromLatin1(kv7000_control_line(instrument, index)));
    return lines;
}

QString LinkText()
{
    return MainForm->sbrStatus->PanelText(2);
}

} // namespace

class TestVirtualConnection : public QObject {
    Q_OBJECT

    std::unique_ptr<BareFrame> m_fixture;

private slots:
    void initTestCase()
    {
        const std::array<const char *, 1> names = {VIRTUAL_VISA_PATH};
        const std::optional<VisaTable> loaded = LoadVisaFrom(names);
        QVERIFY(loaded);
        Library = *loaded;
        Visa = &Library;
    }

    void init()
    {
        kv7000_control_reset();
        m_fixture = std::make_unique<BareFrame>();
        MakeDeviceChoice();
    }

    void cleanup() { m_fixture.reset(); }

    void connectAndDisconnect()
    {
        const BoxAnswers noBox;
        ConnectInstrument();
        QVERIFY(LinkUp);
        QCOMPARE(LinkText(), QStringLiteral("Connect"));
        QVERIFY(m_fixture->frame.CheckLinkTimer->isActive());
        QCOMPARE(InstrumentKind, InstrumentKindKV7060);
        QCOMPARE(VisaResourceName, QStringLiteral("USB0::0xFFFE::0x7060::KV70600001::INSTR"));
        QCOMPARE(Lines(), (QStringList{QStringLiteral("IDNSET ZEMRA"), QStringLiteral("CMDSET ZEMRA"),
                                       QStringLiteral("*IDN?")}));
        QCOMPARE(kv7000_control_open_sessions(), 1);
        DisconnectInstrument();
        QVERIFY(!LinkUp);
        QCOMPARE(LinkText(), QStringLiteral("Unconnected"));
        QCOMPARE(kv7000_control_open_sessions(), 0);
    }

    void modelsAreTold_data()
    {
        QTest::addColumn<QByteArray>("maker");
        QTest::addColumn<QByteArray>("model");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<std::int16_t>("kind");
        const QByteArray maker = "ZEMRA Technologies";
        QTest::newRow("KV7050") << maker << QByteArray("KV7050") << true << InstrumentKindKV7050;
        QTest::newRow("KV7060") << maker << QByteArray("KV7060") << true << InstrumentKindKV7060;
        QTest::newRow("another of the series") << maker << QByteArray("KV7065") << true << InstrumentKindOther;
        QTest::newRow("small letters") << maker.toLower() << QByteArray("kv7050") << true << InstrumentKindKV7050;
        QTest::newRow("another series") << maker << QByteArray("KV8060") << false << std::int16_t{9};
        QTest::newRow("another maker") << QByteArray("Somebody Else") << QByteArray("KV7060") << false
                                       << std::int16_t{9};
    }

    void modelsAreTold()
    {
        const BoxAnswers noBox;
        QFETCH(QByteArray, maker);
        QFETCH(QByteArray, model);
        QFETCH(bool, accepted);
        InstrumentKind = 9;
        kv7000_control_set_maker(0, maker.constData());
        kv7000_control_set_model(0, model.constData());
        ConnectInstrument();
        QCOMPARE(LinkUp, accepted);
        QTEST(InstrumentKind, "kind");
        QCOMPARE(Lines().count(QStringLiteral("*IDN?")), accepted ? 1 : 3);
    }

    void aSilentInstrumentStaysUnconnected()
    {
        const BoxAnswers noBox;
        kv7000_control_set_silent_replies(0, -1);
        ConnectInstrument();
        QVERIFY(!LinkUp);
        QCOMPARE(Lines().count(QStringLiteral("*IDN?")), 3);
        QCOMPARE(kv7000_control_open_sessions(), 1); // stays open
    }

    /// Three times the wait for the reply and the pause behind it.
    void aSilenceThatTakesItsTimeStaysUnconnected()
    {
        const BoxAnswers noBox;
        kv7000_control_set_silent_replies(0, -1);
        kv7000_control_set_read_wait(100);
        QElapsedTimer clock;
        clock.start();
        ConnectInstrument();
        QVERIFY(clock.elapsed() >= 3 * (100 + 50));
        QVERIFY(!LinkUp);
        QCOMPARE(Lines().count(QStringLiteral("*IDN?")), 3);
        QCOMPARE(LinkText(), QStringLiteral("Unconnected"));
        QVERIFY(m_fixture->frame.picLED_OFF->isVisible());
        QVERIFY(!m_fixture->frame.CheckLinkTimer->isActive());
    }

    void twoSwallowedRepliesAreForgiven()
    {
        const BoxAnswers noBox;
        kv7000_control_set_silent_replies(0, 2);
        ConnectInstrument();
        QVERIFY(LinkUp);
        QCOMPARE(Lines().count(QStringLiteral("*IDN?")), 3);
    }

    void anInstrumentThatIsUnpluggedIsMissed()
    {
        ConnectInstrument();
        QVERIFY(LinkUp);
        CheckLinkTick();
        QVERIFY(LinkUp);
        kv7000_control_set_plugged(0, 0);
        {
            BoxAnswers box({QMessageBox::Ok});
            CheckLinkTick();
            QCOMPARE(box.Texts(), QStringList{QStringLiteral("Unable to connect to USB device! ")});
        }
        QVERIFY(!LinkUp);
        CheckLinkTick();
        QVERIFY(!m_fixture->frame.CheckLinkTimer->isActive());
        {
            BoxAnswers box({QMessageBox::Ok});
            ConnectInstrument();
            QCOMPARE(box.Texts(), QStringList{QStringLiteral("Unable to connect to USB device！ ")});
        }
        QVERIFY(!LinkUp);
        kv7000_control_set_plugged(0, 1);
        ConnectInstrument();
        QVERIFY(LinkUp);
    }

    void unpluggedDuringARunItEndsTheRun()
    {
        const QSignalSpy ends(&m_fixture->AddProject(0), &SensorProjFrm::EndRunAsked);
        ConnectInstrument();
        Measuring = true;
        kv7000_control_set_plugged(0, 0);
        BoxAnswers box({QMessageBox::Ok});
        QCOMPARE(QueryCommand(QStringLiteral(":MEASure:VOLTage:DC?")), QString());
        QCOMPARE(box.Texts(),
                 QStringList{QStringLiteral("Unable to connect to USB device, Measurement has been stopped! ")});
        QCOMPARE(ends.size(), 1);
        QVERIFY(!Measuring);
        QVERIFY(!LinkUp);
    }

    void anInstrumentThatDoesNotOpenFailsAtTheFirstWrite()
    {
        kv7000_control_set_open_status(0, VI_ERROR_SYSTEM_ERROR);
        BoxAnswers box({QMessageBox::Ok});
        ConnectInstrument();
        QCOMPARE(box.Texts(), QStringList{QStringLiteral("Unable to connect to USB device! ")});
        QVERIFY(!LinkUp);
        QVERIFY(Lines().isEmpty());
    }

    void oneOfTwoInstrumentsIsChosen_data()
    {
        QTest::addColumn<int>("chosen");
        QTest::newRow("first") << 0;
        QTest::newRow("second") << 1;
    }

    void oneOfTwoInstrumentsIsChosen()
    {
        QFETCH(int, chosen);
        kv7000_control_set_instrument_count(2);
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [chosen](QWidget *) {
                DeviceChoiceForm->CbDeviceList->SetListIndex(chosen);
                DeviceChoiceForm->BtOk->click();
            });
            ConnectInstrument();
        }
        QVERIFY(LinkUp);
        QCOMPARE(VisaResourceName, QString::fromLatin1(kv7000_control_resource_name(chosen)));
        QCOMPARE(Lines(chosen).size(), 3);
        QVERIFY(Lines(1 - chosen).isEmpty());
    }

    void aForeignDeviceBesideItAsksNothing()
    {
        const BoxAnswers noBox;
        kv7000_control_set_foreign_device(1);
        ConnectInstrument();
        QVERIFY(LinkUp);
        QCOMPARE(VisaResourceName, QString::fromLatin1(kv7000_control_resource_name(0)));
    }

    void aForeignDeviceAloneIsNone()
    {
        kv7000_control_set_foreign_device(1);
        kv7000_control_set_instrument_count(0);
        BoxAnswers box({QMessageBox::Ok});
        ConnectInstrument();
        QCOMPARE(box.Shown().constFirst().Title, QStringLiteral("USB Init"));
        QVERIFY(!LinkUp);
        QCOMPARE(kv7000_control_open_sessions(), 0);
    }

    void connectWhileConnectedOpensOneNewSession()
    {
        const BoxAnswers noBox;
        ConnectInstrument();
        const std::uint32_t session = VisaSession;
        ConnectInstrument();
        QVERIFY(LinkUp);
        QVERIFY(VisaSession != session);
        QCOMPARE(kv7000_control_open_sessions(), 1);
    }

    void aReadingComesThroughTheTextDoor()
    {
        const BoxAnswers noBox;
        ConnectInstrument();
        kv7000_control_set_reading(0, 0.125);
        SendCommand(QStringLiteral(":FUNCtion:FRESistance"));
        QCOMPARE(kv7000_control_function(0), 5);
        QCOMPARE(QueryCommand(QStringLiteral(":MEASure:FRESistance?")), QStringLiteral("+1.250000E-01\n"));
    }

    void aReplyThatIsTooLongHarmsNothing()
    {
        const BoxAnswers noBox;
        const QByteArray model = QByteArray("KV7060").append(20000, 'x');
        kv7000_control_set_model(0, model.constData());
        ConnectInstrument();
        QVERIFY(!LinkUp);
        kv7000_control_set_model(0, "KV7050");
        ConnectInstrument();
        QVERIFY(LinkUp);
        QCOMPARE(InstrumentKind, InstrumentKindKV7050);
    }
};

QTEST_MAIN(TestVirtualConnection)
#include "tst_virtual_connection.moc"
