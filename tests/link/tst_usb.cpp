/// @file
/// The USB transport over a scripted VISA table.

#include "link/ConnectionModule.h"
#include "link/DeviceChoiceFrm.h"
#include "link/LinkIndicator.h"
#include "link/USB_FuncBox.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"
#include "support/FakeVisa.h"

#include <QtTest>

#include <memory>

namespace {

const QByteArray First = "USB0::0xFFFE::0x7060::KV70600001::INSTR";
const QByteArray Second = "USB0::0xFFFE::0x7050::KV70500002::INSTR";
const QByteArray Foreign = "USB0::0xFFFE::0x0001::SN00000001::INSTR";

const std::int32_t LanguageOther = 7; // neither of the two, as a store edited by hand can have it

QString Text(const QByteArray &name)
{
    return QString::fromLatin1(name);
}

} // namespace

class TestUsb : public QObject {
    Q_OBJECT

    std::unique_ptr<BareFrame> m_fixture;

    static ListCombo &Devices() { return *DeviceChoiceForm->CbDeviceList; }

    static QStringList DeviceNames()
    {
        QStringList names;
        for (int index = 0; index < Devices().count(); ++index)
            names.append(Devices().itemText(index));
        return names;
    }

    static QByteArrayList OpenedNames()
    {
        QByteArrayList names;
        for (const FakeVisa::Opening &opening : FakeVisa::State().Openings)
            names.append(opening.Name);
        return names;
    }

    static void PutUpLink()
    {
        VisaSession = FakeVisa::OpenSession();
        LinkUp = true;
        ShowLinkUp();
    }

    QString LinkText() const { return m_fixture->frame.sbrStatus->PanelText(2); }

private slots:
    void init()
    {
        FakeVisa::Reset();
        Visa = &FakeVisa::Table();
        m_fixture = std::make_unique<BareFrame>();
        MakeDeviceChoice();
    }

    void cleanup() { m_fixture.reset(); }

    // Discovery and opening.

    void oneInstrumentIsOpenedWithoutADialogue()
    {
        const BoxAnswers noBox;
        UsbInit();
        const FakeVisa::Script &visa = FakeVisa::State();
        QVERIFY(UsbInitOk);
        QCOMPARE(visa.ManagersOpened, 1);
        QCOMPARE(visa.Expressions, QByteArrayList{"USB?*INSTR"});
        QCOMPARE(visa.FindNexts, 0);
        QCOMPARE(OpenedNames(), QByteArrayList{First});
        QCOMPARE(visa.Openings[0].Manager, VisaDefaultRM);
        QCOMPARE(visa.Openings[0].Mode, ViAccessMode{0});
        QCOMPARE(visa.Openings[0].Timeout, ViUInt32{0});
        QVERIFY(visa.OpenSessions.contains(VisaSession));
        QCOMPARE(VisaResourceName, Text(First));
        QCOMPARE(VisaResourceBuffer[0], Text(First));
        QCOMPARE(DeviceNames(), QStringList{Text(First)});
        QCOMPARE(Devices().ListIndex(), 0);
        QVERIFY(!LinkUp);
        QCOMPARE(FakeVisa::WriteCount(), 0);
    }

    void aForeignDeviceIsPassedOver_data()
    {
        QTest::addColumn<QByteArrayList>("resources");
        QTest::newRow("foreign first") << QByteArrayList{Foreign, First};
        QTest::newRow("foreign last") << QByteArrayList{First, Foreign};
        QTest::newRow("foreign on both sides") << QByteArrayList{Foreign, First, Foreign};
        QTest::newRow("small letters are others") << QByteArrayList{"USB0::1::2::kv70600001::INSTR", First};
        QTest::newRow("letters apart") << QByteArrayList{"USB0::1::2::K-V7060::INSTR", First};
    }

    void aForeignDeviceIsPassedOver()
    {
        const BoxAnswers noBox;
        QFETCH(QByteArrayList, resources);
        FakeVisa::State().Resources = resources;
        UsbInit();
        QVERIFY(UsbInitOk);
        QCOMPARE(FakeVisa::State().FindNexts, static_cast<int>(resources.size()) - 1);
        QCOMPARE(DeviceNames(), QStringList{Text(First)});
        QCOMPARE(VisaResourceName, Text(First));
        QCOMPARE(OpenedNames(), QByteArrayList{First});
    }

    void theLettersOfTheSeriesMayStandAnywhere()
    {
        FakeVisa::State().Resources = {"USB0::KV::INSTR"};
        UsbInit();
        QCOMPARE(OpenedNames(), QByteArrayList{"USB0::KV::INSTR"});
    }

    void aNameIsKeptToFiftyCharacters()
    {
        const QByteArray fifty = QByteArray("USB0::KV70600001::").leftJustified(50, 'x');
        FakeVisa::State().Resources = {fifty + "::INSTR"};
        UsbInit();
        QCOMPARE(VisaResourceBuffer[0], Text(fifty));
        QCOMPARE(OpenedNames(), QByteArrayList{fifty});
    }

    void theLettersBehindFiftyCharactersAreNotSeen()
    {
        BoxAnswers box({QMessageBox::Ok});
        FakeVisa::State().Resources = {QByteArray("USB0::").leftJustified(49, 'x') + "KV7060::INSTR"};
        UsbInit();
        QVERIFY(!UsbInitOk);
        QCOMPARE(box.Shown().size(), 1);
    }

    void twoInstrumentsAskForAChoice_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QByteArray>("opened");
        QTest::newRow("as offered") << -1 << First;
        QTest::newRow("first") << 0 << First;
        QTest::newRow("second") << 1 << Second;
    }

    void twoInstrumentsAskForAChoice()
    {
        QFETCH(int, index);
        QFETCH(QByteArray, opened);
        FakeVisa::State().Resources = {First, Foreign, Second};
        QStringList offered;
        int selected = -2;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [&](QWidget *) {
                offered = DeviceNames();
                selected = Devices().ListIndex();
                if (index >= 0)
                    Devices().SetListIndex(index);
                DeviceChoiceForm->BtOk->click();
            });
            UsbInit();
        }
        QVERIFY(UsbInitOk);
        QCOMPARE(offered, (QStringList{Text(First), Text(Second)}));
        QCOMPARE(selected, 0);
        QCOMPARE(VisaResourceName, Text(opened));
        QCOMPARE(OpenedNames(), QByteArrayList{opened});
    }

    void withoutAChoiceTheLastNameFoundIsOpened_data()
    {
        QTest::addColumn<QByteArrayList>("resources");
        QTest::addColumn<QByteArray>("opened");
        QTest::newRow("two instruments") << QByteArrayList{First, Second} << Second;
        QTest::newRow("a foreign one last") << QByteArrayList{First, Second, Foreign} << Foreign;
        QTest::newRow("blanks around it") << QByteArrayList{First, "  " + Second + " "} << Second;
    }

    /// Whatever stands in the buffer when the dialogue is closed by other means is opened, a foreign device too.
    void withoutAChoiceTheLastNameFoundIsOpened()
    {
        QFETCH(QByteArrayList, resources);
        QFETCH(QByteArray, opened);
        FakeVisa::State().Resources = resources;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [](QWidget *dialog) { dialog->close(); });
            UsbInit();
        }
        QVERIFY(UsbInitOk);
        QCOMPARE(VisaResourceName, Text(opened));
        QCOMPARE(OpenedNames(), QByteArrayList{opened});
    }

    void theListIsFilledAnewEachTime()
    {
        Devices().AddItem(QStringLiteral("from before"));
        UsbInit();
        QCOMPARE(DeviceNames(), QStringList{Text(First)});
        FakeVisa::State().Resources = {Second};
        UsbInit();
        QCOMPARE(DeviceNames(), QStringList{Text(Second)});
    }

    void eachDiscoveryOpensAManagerAndNoneIsClosed()
    {
        UsbInit();
        const std::uint32_t manager = VisaDefaultRM;
        const std::uint32_t session = VisaSession;
        UsbInit();
        QCOMPARE(FakeVisa::State().ManagersOpened, 2);
        QVERIFY(VisaDefaultRM != manager);
        QVERIFY(VisaSession != session);
        QVERIFY(FakeVisa::State().Closed.isEmpty());
    }

    void noInstrumentIsToldInABox_data()
    {
        QTest::addColumn<QByteArrayList>("resources");
        QTest::addColumn<std::int32_t>("language");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        const QString title = QStringLiteral("USB Init");
        const QString text = QStringLiteral("Unable to connect to USB device！ ");
        const QString chineseTitle = QStringLiteral("USB初始化");
        const QString chineseText = QStringLiteral("无法连接USB设备！ ");
        QTest::newRow("nothing, English") << QByteArrayList{} << LanguageEnglish << title << text;
        QTest::newRow("nothing, Chinese") << QByteArrayList{} << LanguageChinese << chineseTitle << chineseText;
        QTest::newRow("nothing, neither") << QByteArrayList{} << LanguageOther << chineseTitle << chineseText;
        QTest::newRow("foreign only") << QByteArrayList{Foreign, Foreign} << LanguageEnglish << title << text;
    }

    void noInstrumentIsToldInABox()
    {
        QFETCH(QByteArrayList, resources);
        QFETCH(std::int32_t, language);
        CurrentLanguage = language;
        UsbInitOk = true;
        FakeVisa::State().Resources = resources;
        BoxAnswers box({QMessageBox::Ok});
        UsbInit();
        QVERIFY(!UsbInitOk);
        QCOMPARE(box.Shown().size(), 1);
        QTEST(box.Shown()[0].Title, "title");
        QTEST(box.Shown()[0].Text, "text");
        QCOMPARE(box.Shown()[0].Icon, QMessageBox::Warning);
        QCOMPARE(box.Shown()[0].Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(DeviceNames(), QStringList());
        QVERIFY(OpenedNames().isEmpty());
    }

    void theMarkInTheBoxIsFullWidth()
    {
        FakeVisa::State().Resources.clear();
        for (const std::int32_t language : {LanguageEnglish, LanguageChinese}) {
            CurrentLanguage = language;
            BoxAnswers box({QMessageBox::Ok});
            UsbInit();
            QVERIFY(box.Texts().constFirst().endsWith(QString(QChar(0xFF01)) + u' '));
        }
    }

    void failedSearchesEndAsNoInstrument_data()
    {
        QTest::addColumn<ViStatus>("managerStatus");
        QTest::addColumn<ViStatus>("findStatus");
        QTest::newRow("no library") << VI_ERROR_LIBRARY_NFOUND << VI_ERROR_LIBRARY_NFOUND;
        QTest::newRow("search") << VI_SUCCESS << VI_ERROR_SYSTEM_ERROR;
    }

    void failedSearchesEndAsNoInstrument()
    {
        QFETCH(ViStatus, managerStatus);
        QFETCH(ViStatus, findStatus);
        FakeVisa::State().OpenManagerStatus = managerStatus;
        FakeVisa::State().FindStatus = findStatus;
        BoxAnswers box({QMessageBox::Ok});
        UsbInit();
        QVERIFY(!UsbInitOk);
    }

    /// A failed search leaves the name before it in the buffer, which then is counted once more.
    void theStatusOfTheNextMatchIsNotTested()
    {
        FakeVisa::State().Resources = {First, Second};
        FakeVisa::State().FindNextStatus = VI_ERROR_SYSTEM_ERROR;
        QStringList offered;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [&offered](QWidget *) {
                offered = DeviceNames();
                DeviceChoiceForm->BtOk->click();
            });
            UsbInit();
        }
        QCOMPARE(offered, (QStringList{Text(First), Text(First)}));
        QCOMPARE(OpenedNames(), QByteArrayList{First});
    }

    void aCountBeyondSixteenBitsIsARuntimeError()
    {
        const BoxAnswers noBox;
        FakeVisa::State().FoundCount = 32768;
        QCOMPARE(ErrorOf(UsbInit), 6);
        QVERIFY(OpenedNames().isEmpty());
    }

    void aFailedOpeningIsNotTestedAndLeavesNoOldSession()
    {
        const BoxAnswers noBox;
        VisaSession = FakeVisa::OpenSession();
        FakeVisa::State().OpenStatus = VI_ERROR_RSRC_NFOUND;
        UsbInit();
        QVERIFY(UsbInitOk);
        QCOMPARE(OpenedNames(), QByteArrayList{First});
        QCOMPARE(VisaSession, std::uint32_t{0});
    }

    // Writing.

    void aLineEndsWithOneLineFeed()
    {
        const BoxAnswers noBox;
        PutUpLink();
        UsbWrite(QStringLiteral("IDNSET ZEMRA"));
        UsbWrite(QString());
        QCOMPARE(FakeVisa::State().Written, (QByteArrayList{"IDNSET ZEMRA\n", "\n"}));
        QCOMPARE(FakeVisa::State().WriteArguments, (QList<int>{0, 0}));
        QVERIFY(LinkUp);
    }

    void theTextIsTheFormatItself()
    {
        PutUpLink();
        UsbWrite(QStringLiteral("A%B%%"));
        QCOMPARE(FakeVisa::State().Written, QByteArrayList{"A%B%%\n"});
    }

    void aPositiveStatusIsASuccess()
    {
        const BoxAnswers noBox;
        PutUpLink();
        FakeVisa::State().WriteSuccess = 1;
        UsbWrite(QStringLiteral("IDNSET ZEMRA"));
        QVERIFY(LinkUp);
    }

    void withTheLinkDownNothingIsWritten()
    {
        const BoxAnswers noBox;
        VisaSession = FakeVisa::OpenSession();
        Measuring = true;
        UsbWrite(QStringLiteral("IDNSET ZEMRA"));
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QVERIFY(Measuring);
    }

    void aFailedWriteWhileIdleIsToldAndLosesTheLink_data()
    {
        QTest::addColumn<std::int32_t>("language");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("English") << LanguageEnglish << QStringLiteral("USB Send Message")
                                 << QStringLiteral("Unable to connect to USB device! ");
        QTest::newRow("Chinese") << LanguageChinese << QStringLiteral("USB消息") << QStringLiteral("USB通信中断! ");
        QTest::newRow("neither") << LanguageOther << QStringLiteral("USB消息") << QStringLiteral("USB通信中断! ");
    }

    void aFailedWriteWhileIdleIsToldAndLosesTheLink()
    {
        QFETCH(std::int32_t, language);
        CurrentLanguage = language;
        const QSignalSpy ends(&m_fixture->AddProject(0), &SensorProjFrm::EndRunAsked);
        PutUpLink();
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        UsbWrite(QStringLiteral("IDNSET ZEMRA"));
        QCOMPARE(box.Shown().size(), 1);
        QTEST(box.Shown()[0].Title, "title");
        QTEST(box.Shown()[0].Text, "text");
        QCOMPARE(box.Shown()[0].Icon, QMessageBox::Warning);
        QCOMPARE(box.Shown()[0].Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(!LinkUp);
        QCOMPARE(LinkText(), QStringLiteral("Unconnected"));
        QVERIFY(m_fixture->frame.picLED_OFF->isVisible());
        QVERIFY(!m_fixture->frame.picLED_ON->isVisible());
        QCOMPARE(ends.size(), 0);
        QVERIFY(FakeVisa::State().Closed.isEmpty());
    }

    void aFailedWriteWhileMeasuringEndsTheRun_data()
    {
        QTest::addColumn<std::int32_t>("language");
        QTest::addColumn<QString>("text");
        QTest::newRow("English") << LanguageEnglish
                                 << QStringLiteral("Unable to connect to USB device, Measurement has been stopped! ");
        QTest::newRow("Chinese") << LanguageChinese << QStringLiteral("通信中断，测量已经结束! ");
        QTest::newRow("neither") << LanguageOther << QStringLiteral("通信中断，测量已经结束! ");
    }

    /// The box, then the end of the run while the link still counts as up, then the loss of the link.
    void aFailedWriteWhileMeasuringEndsTheRun()
    {
        QFETCH(std::int32_t, language);
        CurrentLanguage = language;
        SensorProjFrm &form = m_fixture->AddProject(3);
        PutUpLink();
        Measuring = true;
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        int ends = 0;
        connect(&form, &SensorProjFrm::EndRunAsked, &form, [&] {
            ++ends;
            QCOMPARE(box.Shown().size(), 1);
            QVERIFY(Measuring);
            QVERIFY(LinkUp);
            QCOMPARE(LinkText(), QStringLiteral("Connect"));
        });
        UsbWrite(QStringLiteral(":MEASure:VOLTage:DC?"));
        QCOMPARE(ends, 1);
        QCOMPARE(box.Shown().size(), 1);
        QCOMPARE(box.Shown()[0].Title, QStringLiteral("Ostrakon"));
        QTEST(box.Shown()[0].Text, "text");
        QCOMPARE(box.Shown()[0].Icon, QMessageBox::Warning);
        QVERIFY(!Measuring);
        QVERIFY(!LinkUp);
        QCOMPARE(LinkText(), QStringLiteral("Unconnected"));
    }

    void theActiveWindowIsAskedToEndTheRun()
    {
        const QSignalSpy behind(&m_fixture->AddProject(0), &SensorProjFrm::EndRunAsked);
        const QSignalSpy active(&m_fixture->AddProject(1), &SensorProjFrm::EndRunAsked);
        PutUpLink();
        Measuring = true;
        FakeVisa::FailNextWrite();
        BoxAnswers box({QMessageBox::Ok});
        UsbWrite(QStringLiteral(":MEASure:VOLTage:DC?"));
        QCOMPARE(active.size(), 1);
        QCOMPARE(behind.size(), 0);
    }

    /// A disabled end button must not keep the run going.
    void theRunEndsWhateverTheStateOfItsButton()
    {
        SensorProjFrm &form = m_fixture->AddProject(0);
        form.EndLumoBtn->setEnabled(false);
        const QSignalSpy ends(&form, &SensorProjFrm::EndRunAsked);
        PutUpLink();
        Measuring = true;
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        UsbWrite(QStringLiteral(":MEASure:VOLTage:DC?"));
        QCOMPARE(ends.size(), 1);
    }

    void withoutAWindowTheEndOfTheRunIsARuntimeError()
    {
        PutUpLink();
        Measuring = true;
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        QCOMPARE(ErrorOf([] { UsbWrite(QStringLiteral(":MEASure:VOLTage:DC?")); }), 91);
    }

    void aLostLinkFailsOnlyOnce()
    {
        PutUpLink();
        FakeVisa::Unplug();
        BoxAnswers box({QMessageBox::Ok});
        UsbWrite(QStringLiteral("IDNSET ZEMRA"));
        UsbWrite(QStringLiteral("CMDSET ZEMRA"));
        QCOMPARE(box.Shown().size(), 1);
        QCOMPARE(FakeVisa::State().Refused, QByteArrayList{"IDNSET ZEMRA\n"});
    }

    void aLaterWriteCanFail()
    {
        PutUpLink();
        FakeVisa::State().FailingWrites = {3};
        BoxAnswers box({QMessageBox::Ok});
        for (const char *line : {"one", "two", "three"})
            UsbWrite(QString::fromLatin1(line));
        QCOMPARE(FakeVisa::Lines(), (QByteArrayList{"one", "two"}));
        QCOMPARE(FakeVisa::State().Refused, QByteArrayList{"three\n"});
        QVERIFY(!LinkUp);
    }

    // Reading.

    void aReplyIsTheBufferUpToItsFirstNul_data()
    {
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QString>("text");
        QTest::newRow("without an end mark") << QByteArray("1.5") << QStringLiteral("1.5");
        QTest::newRow("line feed stays") << QByteArray("1.5\n") << QStringLiteral("1.5\n");
        QTest::newRow("both stay") << QByteArray("1.5\r\n") << QStringLiteral("1.5\r\n");
        QTest::newRow("blanks stay") << QByteArray(" 1.5 \n") << QStringLiteral(" 1.5 \n");
        QTest::newRow("empty") << QByteArray("") << QString();
        QTest::newRow("line feed alone") << QByteArray("\n") << QStringLiteral("\n");
        QTest::newRow("NUL inside") << QByteArray("12").append('\0').append("34\n") << QStringLiteral("12");
        QTest::newRow("NUL first") << QByteArray().append('\0').append("12\n") << QString();
        QTest::newRow("NUL early in a long one")
            << QByteArray("12").append('\0').append(400, '3') << QStringLiteral("12");
        QTest::newRow("254") << QByteArray(254, '7') << QString(254, u'7');
        QTest::newRow("255") << QByteArray(255, '7') << QString(255, u'7');
    }

    void aReplyIsTheBufferUpToItsFirstNul()
    {
        QFETCH(QByteArray, reply);
        PutUpLink();
        FakeVisa::State().Replies = {reply};
        QTEST(UsbRead(), "text");
        QCOMPARE(FakeVisa::State().ReadFormats, QByteArrayList{"%t"});
    }

    void aReplyWithoutRoomForItsNulIsARuntimeError_data()
    {
        QTest::addColumn<int>("length");
        for (const int length : {256, 257, 300, 10000, 65535, 65536, 100000})
            QTest::addRow("%d", length) << length;
    }

    void aReplyWithoutRoomForItsNulIsARuntimeError()
    {
        QFETCH(int, length);
        PutUpLink();
        FakeVisa::State().Replies = {QByteArray(length, '7'), "1.5\n"};
        QCOMPARE(ErrorOf([] { UsbRead(); }), 5);
        QCOMPARE(UsbRead(), QStringLiteral("1.5\n"));
    }

    void aFailedReadGivesTheEmptyString()
    {
        const BoxAnswers noBox;
        PutUpLink();
        QCOMPARE(UsbRead(), QString());
        VisaSession = 0;
        QCOMPARE(UsbRead(), QString());
        QVERIFY(LinkUp);
    }

    void nothingOfAnEarlierReplyIsLeft()
    {
        PutUpLink();
        FakeVisa::State().Replies = {"a long first reply\n", "2\n"};
        QCOMPARE(UsbRead(), QStringLiteral("a long first reply\n"));
        QCOMPARE(UsbRead(), QStringLiteral("2\n"));
        QCOMPARE(UsbRead(), QString());
    }

    // Query.

    void aQueryWritesThenReads()
    {
        PutUpLink();
        FakeVisa::State().Standing[":MEASure:VOLTage:DC?"] = "+1.0\n";
        int writesAtRead = 0;
        FakeVisa::State().OnRead = [&writesAtRead] { writesAtRead = FakeVisa::WriteCount(); };
        QCOMPARE(UsbQuery(QStringLiteral(":MEASure:VOLTage:DC?")), QStringLiteral("+1.0\n"));
        QCOMPARE(writesAtRead, 1);
        QCOMPARE(FakeVisa::State().Written, QByteArrayList{":MEASure:VOLTage:DC?\n"});
        QCOMPARE(FakeVisa::ReadCount(), 1);
    }

    void aQueryReadsThoughItsWriteFailed()
    {
        PutUpLink();
        FakeVisa::Unplug();
        FakeVisa::State().Replies = {"left over\n"};
        BoxAnswers box({QMessageBox::Ok});
        QCOMPARE(UsbQuery(QStringLiteral("*IDN?")), QStringLiteral("left over\n"));
        QVERIFY(!LinkUp);
    }

    void aQueryOfALostLinkOnlyReads()
    {
        const BoxAnswers noBox;
        PutUpLink();
        LinkLost();
        FakeVisa::State().Replies = {"left over\n"};
        QCOMPARE(UsbQuery(QStringLiteral("*IDN?")), QStringLiteral("left over\n"));
        QCOMPARE(UsbQuery(QStringLiteral("*IDN?")), QString());
        QCOMPARE(FakeVisa::WriteCount(), 0);
        QCOMPARE(FakeVisa::ReadCount(), 2);
    }

    // Control transfers.

    void aControlTransferGoesOutAsGiven()
    {
        const BoxAnswers noBox;
        PutUpLink();
        const std::array<std::uint8_t, 4> data{1, 0, 255, 7};
        LastUsbStatus = 5;
        QCOMPARE(UsbControlOut(0x40, 0x1D, 0xFFFE, 0x8001, 4, data.data()), std::int32_t{0});
        QCOMPARE(FakeVisa::State().Transfers.size(), 1);
        const FakeVisa::ControlTransfer &transfer = FakeVisa::State().Transfers[0];
        QCOMPARE(transfer.Session, VisaSession);
        QCOMPARE(transfer.RequestType, 0x40);
        QCOMPARE(transfer.Request, 0x1D);
        QCOMPARE(transfer.Value, 0xFFFE);
        QCOMPARE(transfer.Index, 0x8001);
        QCOMPARE(transfer.Length, 4);
        QCOMPARE(transfer.Data, QByteArray("\x01\x00\xFF\x07", 4));
        QCOMPARE(LastUsbStatus, std::int32_t{5});
    }

    void aRequestWithoutDataPassesTheAddressOfAZeroByte()
    {
        PutUpLink();
        UsbControlOut(0x40, 0x1F, 0, 0, 0, nullptr);
        QCOMPARE(FakeVisa::State().Transfers.size(), 1);
        QCOMPARE(FakeVisa::State().Transfers[0].Length, 0);
        QCOMPARE(FakeVisa::State().Transfers[0].FirstByte, 0);
    }

    void theLongestTransferPassesWhole()
    {
        PutUpLink();
        std::vector<std::uint8_t> data(10048);
        for (std::size_t i = 0; i < data.size(); ++i)
            data[i] = static_cast<std::uint8_t>(i * 7);
        UsbControlOut(0x40, 0x1C, 1, 2, 10048, data.data());
        QCOMPARE(FakeVisa::State().Transfers[0].Data,
                 QByteArray(reinterpret_cast<const char *>(data.data()), static_cast<qsizetype>(data.size())));
    }

    /// Only the callers test the status, and it does not depend on the link's state.
    void aFailedTransferIsOnlyReturned()
    {
        const BoxAnswers noBox;
        PutUpLink();
        Measuring = true;
        FakeVisa::State().ControlStatusOf[0x1F] = VI_ERROR_CONN_LOST;
        QCOMPARE(UsbControlOut(0x40, 0x1F, 0, 0, 0, nullptr), VI_ERROR_CONN_LOST);
        QCOMPARE(UsbControlOut(0x40, 0x1B, 0, 0, 0, nullptr), VI_SUCCESS);
        QVERIFY(LinkUp);
        QVERIFY(Measuring);
        LinkUp = false;
        UsbControlOut(0x40, 0x1B, 0, 0, 0, nullptr);
        QCOMPARE(FakeVisa::State().Transfers.size(), 3);
    }
};

QTEST_MAIN(TestUsb)
#include "tst_usb.moc"
