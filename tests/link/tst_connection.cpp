/// @file
/// Connecting, identification, disconnecting and the link watch, over a scripted VISA table.

#include "controls/Guard.h"
#include "link/ConnectionModule.h"
#include "link/DeviceChoiceFrm.h"
#include "link/LinkIndicator.h"
#include "link/USB_FuncBox.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/CommaLocale.h"
#include "support/ErrorOf.h"
#include "support/FakeVisa.h"
#include "visa/VisaLoader.h"

#include <QtTest>

#include <memory>

namespace {

const QByteArray Kv7060 = "ZEMRA Technologies,KV7060,KV70600001,1.00\n";
const QByteArrayList Handshake{"IDNSET ZEMRA", "CMDSET ZEMRA"};
const QByteArrayList HandshakeAndOneTry{"IDNSET ZEMRA", "CMDSET ZEMRA", "*IDN?"};
const QByteArrayList HandshakeAndThreeTries{"IDNSET ZEMRA", "CMDSET ZEMRA", "*IDN?", "*IDN?", "*IDN?"};

constexpr std::int16_t KindBefore = 9; // no kind: shows that it was not touched

/// One row of the table of link states, as the frame shows it.
struct LinkView {
    bool Up;
    QString Panel;
    bool Green;
    bool Red;
    bool Watch;

    bool operator==(const LinkView &) const = default;
};

LinkView View()
{
    return {LinkUp, MainForm->sbrStatus->PanelText(2), MainForm->picLED_ON->isVisible(),
            MainForm->picLED_OFF->isVisible(), MainForm->CheckLinkTimer->isActive()};
}

char *toString(const LinkView &view)
{
    return QTest::toString(QStringLiteral("%1, \"%2\", green %3, red %4, watch %5")
                               .arg(view.Up)
                               .arg(view.Panel)
                               .arg(view.Green)
                               .arg(view.Red)
                               .arg(view.Watch));
}

const LinkView NeverConnected{false, QStringLiteral("Unconnected"), false, true, false};
const LinkView Connected{true, QStringLiteral("Connect"), true, false, true};
const LinkView DownStillWatched{false, QStringLiteral("Unconnected"), false, true, true};
const LinkView Down = NeverConnected;

/// A search that fails and leaves whatever it was handed as it was.
ViStatus OSTRAKON_VISA_CALL FailingFindRsrc(ViSession, ViConstString, ViFindList *, ViUInt32 *, ViChar *)
{
    return VI_ERROR_SYSTEM_ERROR;
}

/// The scripted table with that search.
const VisaTable &FailingSearchVisa()
{
    static const VisaTable table = [] {
        VisaTable failing = FakeVisa::Table();
        failing.viFindRsrc = FailingFindRsrc;
        return failing;
    }();
    return table;
}

} // namespace

class TestConnection : public QObject {
    Q_OBJECT

    std::unique_ptr<BareFrame> m_fixture;

    /// A link that has been put up by a connect; the records start behind it.
    static void Connect()
    {
        FakeVisa::State().Standing["*IDN?"] = Kv7060;
        ConnectInstrument();
        QCOMPARE(View(), Connected);
        FakeVisa::ClearRecords();
    }

    /// A check mark that can be cleared. The designed item has none to set.
    QAction *MarkConnectItem() const
    {
        QAction *item = m_fixture->frame.mnuToolsConnect;
        item->setCheckable(true);
        item->setChecked(true);
        return item;
    }

    /// The question is English for a language that is neither of the two.
    static void AddLanguages()
    {
        QTest::addColumn<std::int32_t>("language");
        QTest::addColumn<bool>("english");
        QTest::newRow("English") << LanguageEnglish << true;
        QTest::newRow("Chinese") << LanguageChinese << false;
        QTest::newRow("neither") << std::int32_t{7} << true;
    }

    static void CheckStopQuestion(const ShownBox &box, bool english)
    {
        QCOMPARE(box.Text, english ? QStringLiteral("Measuring is running, the action will stop measuring")
                                   : QStringLiteral("测量正在运行，此行动会关闭测量"));
        QCOMPARE(box.Title, english ? QStringLiteral("Warning") : QStringLiteral("警告"));
        QCOMPARE(box.Buttons, QMessageBox::StandardButtons(QMessageBox::Ok | QMessageBox::Cancel));
    }

private slots:
    void init()
    {
        FakeVisa::Reset();
        Visa = &FakeVisa::Table();
        m_fixture = std::make_unique<BareFrame>();
        MakeDeviceChoice();
        QCOMPARE(View(), NeverConnected);
        QCOMPARE(m_fixture->frame.CheckLinkTimer->interval(), 1000);
    }

    void cleanup() { m_fixture.reset(); }

    // Connecting.

    void connectShakesHandsAsksAndShowsTheLink()
    {
        const BoxAnswers noBox;
        FakeVisa::State().Standing["*IDN?"] = Kv7060;
        ConnectInstrument();
        QCOMPARE(View(), Connected);
        QVERIFY(UsbInitOk);
        QCOMPARE(InstrumentKind, InstrumentKindKV7060);
        QCOMPARE(FakeVisa::Lines(), HandshakeAndOneTry);
        QCOMPARE(FakeVisa::ReadCount(), 1);
        QVERIFY(FakeVisa::State().Closed.isEmpty());
        QVERIFY(FakeVisa::State().Transfers.isEmpty());
    }

    void connectSetsNoCheckMark()
    {
        m_fixture->frame.mnuToolsConnect->setCheckable(true);
        Connect();
        QVERIFY(!m_fixture->frame.mnuToolsConnect->isChecked());
    }

    void aReplyDecidesWhichInstrumentItIs_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<std::int16_t>("kind"); // KindBefore for a refused one
        const auto row = [](const char *name, const char *reply, std::int16_t kind) {
            QTest::newRow(name) << QByteArray(reply) << kind;
        };
        row("KV7050", "ZEMRA Technologies,KV7050,SN1,1.00\n", 1);
        row("KV7060", "ZEMRA Technologies,KV7060,SN1,1.00\n", 2);
        row("another of the series", "ZEMRA Technologies,KV7070,SN1,1.00\n", 0);
        row("nearly a known one", "ZEMRA Technologies,KV7051,SN1,1.00\n", 0);
        row("small letters, 7050", "zemra technologies,kv7050,sn1,1.00\n", 1);
        row("small letters, 7060", "zemra technologies,kv7060,sn1,1.00\n", 2);
        row("mixed letters", "zEmRa TECHnologies,Kv7060\n", 2);
        row("longer model", "ZEMRA Technologies,KV7060A,SN1\n", 2);
        row("no further field", "ZEMRA Technologies,KV7050", 1);
        row("carriage return too", "ZEMRA Technologies,KV7050\r\n", 1);
        row("shorter model", "ZEMRA Technologies,KV705,0\n", 0);
        row("the prefix alone", "ZEMRA Technologies,KV7", 0);
        row("the prefix and a line feed", "ZEMRA Technologies,KV7\n", 0);
        row("the prefix but one letter", "ZEMRA Technologies,KV", KindBefore);
        row("another series", "ZEMRA Technologies,KV8060,SN1,1.00\n", KindBefore);
        row("another maker", "Somebody Else,KV7060,SN1,1.00\n", KindBefore);
        row("blank ahead", " ZEMRA Technologies,KV7060,SN1\n", KindBefore);
        row("blank behind the comma", "ZEMRA Technologies, KV7060,SN1\n", KindBefore);
        row("model alone", "KV7060\n", KindBefore);
        row("comma alone", ",\n", KindBefore);
        row("line feed alone", "\n", KindBefore);
        row("empty", "", KindBefore);
    }

    void aReplyDecidesWhichInstrumentItIs()
    {
        const BoxAnswers noBox;
        QFETCH(QByteArray, reply);
        QFETCH(std::int16_t, kind);
        InstrumentKind = KindBefore;
        FakeVisa::State().Standing["*IDN?"] = reply;
        ConnectInstrument();
        QCOMPARE(InstrumentKind, kind);
        QCOMPARE(View(), kind == KindBefore ? NeverConnected : Connected);
        QCOMPARE(FakeVisa::Lines(), kind == KindBefore ? HandshakeAndThreeTries : HandshakeAndOneTry);
    }

    void aReplyDecidesTheSameInACommaLocale_data() { aReplyDecidesWhichInstrumentItIs_data(); }

    void aReplyDecidesTheSameInACommaLocale()
    {
        const CommaLocale german;
        QVERIFY(german.IsInForce());
        aReplyDecidesWhichInstrumentItIs();
    }

    void aSilentInstrumentIsAskedThreeTimes()
    {
        const BoxAnswers noBox;
        ConnectInstrument();
        QCOMPARE(FakeVisa::Lines(), HandshakeAndThreeTries);
        QCOMPARE(FakeVisa::ReadCount(), 3);
        QCOMPARE(View(), NeverConnected);
        QVERIFY(UsbInitOk);
        QVERIFY(FakeVisa::State().OpenSessions.contains(VisaSession)); // stays open
        QVERIFY(FakeVisa::State().Closed.isEmpty());
    }

    /// A busy machine may take longer.
    void aPauseFollowsEachTry()
    {
        const BoxAnswers noBox;
        QElapsedTimer clock;
        QList<qint64> reads;
        FakeVisa::State().OnRead = [&] { reads.append(clock.elapsed()); };
        clock.start();
        ConnectInstrument();
        QVERIFY(clock.elapsed() >= 150);
        QCOMPARE(reads.size(), 3);
        QVERIFY(reads[1] - reads[0] >= 50);
        QVERIFY(reads[2] - reads[1] >= 50);
    }

    void aLateOrWrongReplyIsForgiven_data()
    {
        QTest::addColumn<QList<QByteArray>>("replies");
        QTest::addColumn<int>("tries");
        QTest::addColumn<bool>("accepted");
        const QByteArray silence;
        const QByteArray wrong = "Somebody Else,KV7060\n";
        QTest::newRow("first") << QList<QByteArray>{Kv7060} << 1 << true;
        QTest::newRow("second, silence before") << QList<QByteArray>{silence, Kv7060} << 2 << true;
        QTest::newRow("third, silence before") << QList<QByteArray>{silence, silence, Kv7060} << 3 << true;
        QTest::newRow("third, wrong ones before") << QList<QByteArray>{wrong, wrong, Kv7060} << 3 << true;
        QTest::newRow("fourth is too late") << QList<QByteArray>{wrong, silence, wrong, Kv7060} << 3 << false;
    }

    void aLateOrWrongReplyIsForgiven()
    {
        const BoxAnswers noBox;
        QFETCH(QList<QByteArray>, replies);
        QFETCH(int, tries);
        QFETCH(bool, accepted);
        FakeVisa::State().Replies = replies;
        ConnectInstrument();
        QCOMPARE(FakeVisa::Lines(), Handshake + QByteArrayList(tries, "*IDN?"));
        QCOMPARE(View(), accepted ? Connected : NeverConnected);
    }

    void aReplyOf255CharactersPasses()
    {
        FakeVisa::State().Standing["*IDN?"] = Kv7060.chopped(1).leftJustified(255, 'x');
        ConnectInstrument();
        QCOMPARE(View(), Connected);
        QCOMPARE(InstrumentKind, InstrumentKindKV7060);
    }

    void aReplyThatIsTooLongEndsTheConnect_data()
    {
        QTest::addColumn<int>("length");
        for (const int length : {256, 300, 10000})
            QTest::addRow("%d", length) << length;
    }

    void aReplyThatIsTooLongEndsTheConnect()
    {
        const BoxAnswers noBox;
        QFETCH(int, length);
        InstrumentKind = KindBefore;
        FakeVisa::State().Standing["*IDN?"] = Kv7060.chopped(1).leftJustified(length, 'x');
        ConnectInstrument();
        QCOMPARE(View(), NeverConnected);
        QCOMPARE(FakeVisa::Lines(), HandshakeAndOneTry);
        QCOMPARE(InstrumentKind, KindBefore);
    }

    void theHandshakeGoesOverUsbWhateverTheTransport_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("asks");
        QTest::newRow("USB") << 0 << true;
        QTest::newRow("GPIB") << 1 << false;
        QTest::newRow("RS232") << 2 << false;
        QTest::newRow("any other") << 3 << true;
    }

    void theHandshakeGoesOverUsbWhateverTheTransport()
    {
        const BoxAnswers noBox;
        QFETCH(int, type);
        QFETCH(bool, asks);
        IOType = static_cast<std::uint8_t>(type);
        FakeVisa::State().Standing["*IDN?"] = Kv7060;
        ConnectInstrument();
        QCOMPARE(FakeVisa::Lines(), asks ? HandshakeAndOneTry : Handshake);
        QCOMPARE(FakeVisa::ReadCount(), asks ? 1 : 0);
        QCOMPARE(View(), asks ? Connected : NeverConnected);
    }

    void aFailedFirstHandshakeIsToldOnce()
    {
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::Unplug();
        ConnectInstrument();
        QCOMPARE(box.Texts(), QStringList{QStringLiteral("Unable to connect to USB device! ")});
        QCOMPARE(box.Shown()[0].Title, QStringLiteral("USB Send Message"));
        QCOMPARE(FakeVisa::State().Refused, QByteArrayList{"IDNSET ZEMRA\n"});
        QVERIFY(FakeVisa::Lines().isEmpty());
        QCOMPARE(FakeVisa::ReadCount(), 3);
        QCOMPARE(View(), NeverConnected);
    }

    void aFailedSecondHandshakeIsToldOnce()
    {
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().FailWritesFrom = 2;
        ConnectInstrument();
        QCOMPARE(FakeVisa::Lines(), QByteArrayList{"IDNSET ZEMRA"});
        QCOMPARE(FakeVisa::State().Refused, QByteArrayList{"CMDSET ZEMRA\n"});
        QCOMPARE(FakeVisa::ReadCount(), 3);
        QCOMPARE(View(), NeverConnected);
    }

    void aFailedQuestionIsToldOnceAndOnlyReadFromThen()
    {
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().FailWritesFrom = 3;
        ConnectInstrument();
        QCOMPARE(FakeVisa::Lines(), Handshake);
        QCOMPARE(FakeVisa::State().Refused, QByteArrayList{"*IDN?\n"});
        QCOMPARE(FakeVisa::ReadCount(), 3);
        QCOMPARE(View(), NeverConnected);
    }

    void aFailedOpeningShowsUpAtTheFirstWrite()
    {
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().OpenStatus = VI_ERROR_RSRC_NFOUND;
        FakeVisa::State().Standing["*IDN?"] = Kv7060;
        ConnectInstrument();
        QCOMPARE(box.Texts(), QStringList{QStringLiteral("Unable to connect to USB device! ")});
        QVERIFY(FakeVisa::Lines().isEmpty());
        QCOMPARE(View(), NeverConnected);
    }

    void aFailedOpeningDoesNotFallBackOnALostLink()
    {
        Connect();
        LinkLost();
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().OpenStatus = VI_ERROR_RSRC_NFOUND;
        ConnectInstrument();
        QVERIFY(FakeVisa::Lines().isEmpty());
        QCOMPARE(View(), DownStillWatched);
    }

    void withoutADeviceNobodyIsAsked()
    {
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().Resources.clear();
        ConnectInstrument();
        QCOMPARE(box.Shown()[0].Title, QStringLiteral("USB Init"));
        QVERIFY(!UsbInitOk);
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QCOMPARE(FakeVisa::ReadCount(), 0);
        QCOMPARE(View(), NeverConnected);
    }

    void withoutALibraryOrASearchOneBoxSaysSo_data()
    {
        QTest::addColumn<const VisaTable *>("table");
        QTest::addColumn<std::int32_t>("language");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        const auto rows = [](const char *name, const VisaTable *table) {
            QTest::addRow("%s, English", name) << table << LanguageEnglish << QStringLiteral("USB Init")
                                               << QStringLiteral("Unable to connect to USB device！ ");
            QTest::addRow("%s, Chinese", name)
                << table << LanguageChinese << QStringLiteral("USB初始化") << QStringLiteral("无法连接USB设备！ ");
        };
        rows("no library", &AbsentVisa());
        rows("failing search", &FailingSearchVisa());
    }

    void withoutALibraryOrASearchOneBoxSaysSo()
    {
        QFETCH(const VisaTable *, table);
        QFETCH(std::int32_t, language);
        Visa = table;
        CurrentLanguage = language;
        InstrumentKind = KindBefore;
        BoxAnswers box({QMessageBox::Ok});
        ConnectInstrument();
        QCOMPARE(box.Shown().size(), 1);
        QTEST(box.Shown()[0].Title, "title");
        QTEST(box.Shown()[0].Text, "text");
        QCOMPARE(box.Shown()[0].Icon, QMessageBox::Warning);
        QCOMPARE(box.Shown()[0].Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(!UsbInitOk);
        QCOMPARE(View(), NeverConnected);
        QCOMPARE(InstrumentKind, KindBefore);
        QCOMPARE(DeviceChoiceForm->CbDeviceList->ListCount(), 0);
        QVERIFY(FakeVisa::State().Openings.isEmpty());
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QCOMPARE(FakeVisa::ReadCount(), 0);
        // Nor does the watch say anything more.
        CheckLinkTick();
        DisconnectInstrument();
        QCOMPARE(box.Shown().size(), 1);
    }

    /// The session of a lost link stays open and may still hold a reply.
    void withoutADeviceAnOldSessionDoesNotBringTheLinkUp()
    {
        Connect();
        LinkLost();
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().Resources.clear();
        FakeVisa::State().Replies = {Kv7060};
        ConnectInstrument();
        QCOMPARE(FakeVisa::ReadCount(), 0);
        QCOMPARE(View(), DownStillWatched);
    }

    void aFailedFirstIdentificationKeepsThePanelText()
    {
        m_fixture->frame.sbrStatus->SetPanelText(2, QStringLiteral("text of the last state"));
        ConnectInstrument();
        QCOMPARE(View(), (LinkView{false, QStringLiteral("text of the last state"), false, true, false}));
    }

    /// A run whose sensor could not be stopped stays marked as active while its link is lost.
    void connectWhileARunIsMarkedActiveLeavesTheWatchOff()
    {
        const BoxAnswers noBox;
        Measuring = true;
        FakeVisa::State().Standing["*IDN?"] = Kv7060;
        ConnectInstrument();
        QCOMPARE(View(), (LinkView{true, QStringLiteral("Connect"), true, false, false}));
        QVERIFY(Measuring);
    }

    // Connecting while connected.

    void connectWhileConnectedClosesAndConnectsAnew()
    {
        const BoxAnswers noBox;
        Connect();
        QAction *item = MarkConnectItem();
        const std::uint32_t session = VisaSession;
        QList<LinkView> atWrite;
        FakeVisa::State().OnWrite = [&atWrite](const QByteArray &) { atWrite.append(View()); };
        FakeVisa::State().Standing["*IDN?"] = "ZEMRA Technologies,KV7050,SN1\n";
        ConnectInstrument();
        QCOMPARE(FakeVisa::State().Closed, QList<ViObject>{session});
        QCOMPARE(FakeVisa::State().ManagersOpened, 2);
        QVERIFY(VisaSession != session);
        QCOMPARE(FakeVisa::Lines(), HandshakeAndOneTry);
        QCOMPARE(atWrite.constFirst(), (LinkView{true, QStringLiteral("Unconnected"), false, true, true}));
        QVERIFY(!item->isChecked());
        QCOMPARE(View(), Connected);
        QCOMPARE(InstrumentKind, InstrumentKindKV7050);
    }

    void aReconnectThatFailsLeavesTheLinkDown()
    {
        const BoxAnswers noBox;
        Connect();
        FakeVisa::State().Silent = true;
        ConnectInstrument();
        QCOMPARE(View(), DownStillWatched);
        QCOMPARE(InstrumentKind, InstrumentKindKV7060); // kept
        CheckLinkTick();
        QCOMPARE(View(), Down);
    }

    void aReconnectWithoutADeviceLeavesTheLinkDown()
    {
        Connect();
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().Resources.clear();
        ConnectInstrument();
        QCOMPARE(FakeVisa::State().Closed.size(), 1);
        QCOMPARE(View(), DownStillWatched);
    }

    void aFailingCloseIsIgnored()
    {
        const BoxAnswers noBox;
        Connect();
        FakeVisa::State().CloseStatus = VI_ERROR_INV_OBJECT;
        ConnectInstrument();
        QCOMPARE(View(), Connected);
        DisconnectInstrument();
        QCOMPARE(View(), DownStillWatched);
    }

    void connectDuringARunAsksFirst_data() { AddLanguages(); }

    void connectDuringARunAsksFirst()
    {
        QFETCH(std::int32_t, language);
        QFETCH(bool, english);
        SensorProjFrm &form = m_fixture->AddProject(4);
        Connect();
        CurrentLanguage = language;
        Measuring = true;
        int ends = 0;
        connect(&form, &SensorProjFrm::EndRunAsked, &form, [&ends] {
            ++ends;
            QVERIFY(Measuring);
            QVERIFY(LinkUp);
            QVERIFY(FakeVisa::State().Closed.isEmpty());
        });
        BoxAnswers box({QMessageBox::Ok});
        ConnectInstrument();
        QCOMPARE(box.Shown().size(), 1);
        CheckStopQuestion(box.Shown()[0], english);
        QCOMPARE(ends, 1);
        QVERIFY(!Measuring);
        QCOMPARE(FakeVisa::State().Closed.size(), 1);
        QCOMPARE(FakeVisa::Lines(), HandshakeAndOneTry);
        QCOMPARE(View(), Connected);
    }

    void cancelLeavesEverythingAsItWas_data()
    {
        QTest::addColumn<bool>("disconnect");
        QTest::newRow("connect") << false;
        QTest::newRow("disconnect") << true;
    }

    void cancelLeavesEverythingAsItWas()
    {
        QFETCH(bool, disconnect);
        const QSignalSpy ends(&m_fixture->AddProject(0), &SensorProjFrm::EndRunAsked);
        Connect();
        const QAction *item = MarkConnectItem();
        Measuring = true;
        const std::uint32_t session = VisaSession;
        BoxAnswers box({QMessageBox::Cancel});
        disconnect ? DisconnectInstrument() : ConnectInstrument();
        QCOMPARE(View(), Connected);
        QVERIFY(Measuring);
        QVERIFY(item->isChecked());
        QCOMPARE(ends.size(), 0);
        QCOMPARE(VisaSession, session);
        QVERIFY(FakeVisa::State().Closed.isEmpty());
        QCOMPARE(FakeVisa::State().ManagersOpened, 1);
        QCOMPARE(FakeVisa::WriteCount(), 0);
    }

    void aRunTimeErrorOnTheWayEndsWithTheLinkDown()
    {
        Connect();
        Measuring = true; // and no project window whose run could be ended
        BoxAnswers box({QMessageBox::Ok});
        ConnectInstrument();
        QCOMPARE(View(), (LinkView{false, QStringLiteral("Connect"), false, true, true}));
        QVERIFY(FakeVisa::State().Closed.isEmpty());
        QVERIFY(Measuring);
    }

    void aHandshakeThatFailsDuringAMarkedRunEndsTheRun()
    {
        SensorProjFrm &form = m_fixture->AddProject(0);
        const QSignalSpy ends(&form, &SensorProjFrm::EndRunAsked);
        Measuring = true;
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        ConnectInstrument();
        QCOMPARE(box.Texts(),
                 QStringList{QStringLiteral("Unable to connect to USB device, Measurement has been stopped! ")});
        QCOMPARE(ends.size(), 1);
        QVERIFY(!Measuring);
        QCOMPARE(View(), NeverConnected);
    }

    // Disconnecting.

    void disconnectClosesTheSession()
    {
        const BoxAnswers noBox;
        Connect();
        const QAction *item = MarkConnectItem();
        DisconnectInstrument();
        QCOMPARE(FakeVisa::State().Closed, QList<ViObject>{VisaSession});
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QVERIFY(!item->isChecked());
        QCOMPARE(View(), DownStillWatched);
        QCOMPARE(InstrumentKind, InstrumentKindKV7060); // kept
        CheckLinkTick();
        QCOMPARE(View(), Down);
    }

    void disconnectWithTheLinkDownDoesNothing()
    {
        const BoxAnswers noBox;
        Measuring = true;
        const QAction *item = MarkConnectItem();
        m_fixture->frame.sbrStatus->SetPanelText(2, QStringLiteral("as it was"));
        DisconnectInstrument();
        QVERIFY(Measuring);
        QVERIFY(item->isChecked());
        QVERIFY(FakeVisa::State().Closed.isEmpty());
        QCOMPARE(View(), (LinkView{false, QStringLiteral("as it was"), false, true, false}));
    }

    void disconnectDuringARunAsksFirst_data() { AddLanguages(); }

    void disconnectDuringARunAsksFirst()
    {
        QFETCH(std::int32_t, language);
        QFETCH(bool, english);
        const QSignalSpy behind(&m_fixture->AddProject(1), &SensorProjFrm::EndRunAsked);
        const QSignalSpy active(&m_fixture->AddProject(2), &SensorProjFrm::EndRunAsked);
        Connect();
        CurrentLanguage = language;
        Measuring = true;
        BoxAnswers box({QMessageBox::Ok});
        DisconnectInstrument();
        CheckStopQuestion(box.Shown().constFirst(), english);
        QCOMPARE(active.size(), 1);
        QCOMPARE(behind.size(), 0);
        QVERIFY(!Measuring);
        QCOMPARE(FakeVisa::State().Closed.size(), 1);
        QCOMPARE(View(), DownStillWatched);
    }

    void disconnectPassesARunTimeErrorOn()
    {
        Connect();
        Measuring = true;
        BoxAnswers box({QMessageBox::Ok});
        QCOMPARE(ErrorOf(DisconnectInstrument), 91);
        QCOMPARE(View(), Connected);
    }

    // The link watch.

    void aTickProbesOnlyAnIdleLink_data()
    {
        QTest::addColumn<bool>("up");
        QTest::addColumn<bool>("measuring");
        QTest::addColumn<bool>("probes");
        QTest::newRow("connected, idle") << true << false << true;
        QTest::newRow("connected, measuring") << true << true << false;
        QTest::newRow("down, idle") << false << false << false;
        QTest::newRow("down, measuring") << false << true << false;
    }

    void aTickProbesOnlyAnIdleLink()
    {
        const BoxAnswers noBox;
        QFETCH(bool, up);
        QFETCH(bool, measuring);
        QFETCH(bool, probes);
        Connect();
        if (!up)
            LinkLost();
        Measuring = measuring;
        CheckLinkTick();
        QCOMPARE(FakeVisa::Lines(), probes ? QByteArrayList{"IDNSET ZEMRA"} : QByteArrayList());
        QCOMPARE(FakeVisa::ReadCount(), 0);
        QCOMPARE(MainForm->CheckLinkTimer->isActive(), probes);
        QCOMPARE(LinkUp, up);
    }

    void theProbeDoesNotFollowTheTransport()
    {
        Connect();
        IOType = IOTypeGpib;
        CheckLinkTick();
        QCOMPARE(FakeVisa::Lines(), QByteArrayList{"IDNSET ZEMRA"});
    }

    void anUnpluggedInstrumentIsToldOnceAndTheWatchStops()
    {
        Connect();
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        CheckLinkTick();
        QCOMPARE(box.Texts(), QStringList{QStringLiteral("Unable to connect to USB device! ")});
        QCOMPARE(View(), DownStillWatched);
        CheckLinkTick();
        QCOMPARE(View(), Down);
        QCOMPARE(box.Shown().size(), 1);
    }

    void theTimerItselfStopsTheWatch()
    {
        QTimer *timer = m_fixture->frame.CheckLinkTimer;
        ConnectGuarded(timer, &QTimer::timeout, &m_fixture->frame, [] { CheckLinkTick(); });
        Connect();
        timer->setInterval(5);
        QTRY_VERIFY(FakeVisa::Lines().size() >= 3);
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::Unplug();
        QTRY_VERIFY(!timer->isActive());
        QCOMPARE(box.Shown().size(), 1);
        QCOMPARE(View(), Down);
    }

    void aLinkThatWasLostCanBePutUpAgain()
    {
        Connect();
        const std::uint32_t lost = VisaSession;
        LinkLost();
        CheckLinkTick();
        ConnectInstrument();
        QCOMPARE(View(), Connected);
        QVERIFY(VisaSession != lost);
        QVERIFY(FakeVisa::State().Closed.isEmpty()); // the session of the lost link stays open
    }

    // The loss of the link.

    void aLostLinkIsShown()
    {
        const BoxAnswers noBox;
        Connect();
        const QAction *item = MarkConnectItem();
        Measuring = true;
        LinkLost();
        QCOMPARE(View(), DownStillWatched);
        QVERIFY(!item->isChecked());
        QVERIFY(Measuring); // not its matter
        QVERIFY(FakeVisa::State().Closed.isEmpty());
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QCOMPARE(InstrumentKind, InstrumentKindKV7060); // kept
    }

    void aLinkThatIsDownCannotBeLost()
    {
        const QAction *item = MarkConnectItem();
        m_fixture->frame.sbrStatus->SetPanelText(2, QStringLiteral("as it was"));
        m_fixture->frame.picLED_ON->show();
        m_fixture->frame.picLED_OFF->hide();
        LinkLost();
        QCOMPARE(View(), (LinkView{false, QStringLiteral("as it was"), true, false, false}));
        QVERIFY(item->isChecked());
    }
};

QTEST_MAIN(TestConnection)
#include "tst_connection.moc"
