/// @file
/// The virtual VISA library through the program's table: found, opened, written to, read from, and failing as it is
/// told.

#include "simulator/VirtualMultimeterControl.h"
#include "simulator/VirtualVisa.h"
#include "visa/VisaLoader.h"

#include <QtTest>

#include <array>
#include <string>

namespace {

constexpr ViStatus StallStatus = static_cast<ViStatus>(0xBFFF003EU); // VI_ERROR_IO

VisaTable Table;

struct Found {
    ViStatus Status = VI_SUCCESS;
    ViUInt32 Count = 0;
    QStringList Names;
};

Found FindAll(ViSession manager, const char *expression)
{
    Found found;
    ViFindList list = VI_NULL;
    std::array<char, VisaDescriptionSize> name{};
    found.Status = Table.viFindRsrc(manager, expression, &list, &found.Count, name.data());
    if (found.Status < 0)
        return found;
    do {
        found.Names << QString::fromLatin1(name.data());
    } while (Table.viFindNext(list, name.data()) >= 0);
    return found;
}

std::string ReadText(ViSession session)
{
    std::array<char, 257> buffer{};
    return VisaScanf(Table, session, "%256t", buffer.data()) < 0 ? "(none)" : std::string(buffer.data());
}

std::string Query(ViSession session, const char *line)
{
    VisaPrintf(Table, session, line);
    return ReadText(session);
}

} // namespace

class tst_virtual_visa : public QObject {
    Q_OBJECT

    ViSession Manager = VI_NULL;
    ViSession Session = VI_NULL;

    ViSession Open(int instrument = 0)
    {
        ViSession session = VI_NULL;
        Table.viOpen(Manager, kv7000_control_resource_name(instrument), 0, 0, &session);
        return session;
    }

private slots:
    void initTestCase()
    {
        const std::array<const char *, 1> names = {VIRTUAL_VISA_PATH};
        const std::optional<VisaTable> loaded = LoadVisaFrom(names);
        QVERIFY(loaded);
        Table = *loaded;
    }

    void init()
    {
        kv7000_control_reset();
        QCOMPARE(Table.viOpenDefaultRM(&Manager), VI_SUCCESS);
        Session = Open();
        QVERIFY(Session != VI_NULL);
    }

    void cleanup() { kv7000_control_reset(); }

    void oneInstrumentIsFound()
    {
        for (const char *expression : {"USB?*INSTR", "?*INSTR", "?*"}) {
            const Found found = FindAll(Manager, expression);
            QCOMPARE(found.Status, VI_SUCCESS);
            QCOMPARE(found.Count, 1U);
            QCOMPARE(found.Names, QStringList{QStringLiteral("USB0::0xFFFE::0x7060::KV70600001::INSTR")});
        }
    }

    void resourceNamesFitFiftyCharactersAndHoldKV()
    {
        for (const int instrument : {0, 1}) {
            const std::string name = kv7000_control_resource_name(instrument);
            QVERIFY(name.size() < 50);
            QVERIFY(name.find("KV") != std::string::npos);
        }
    }

    void anEmptyBusHasNothing()
    {
        kv7000_control_set_instrument_count(0);
        ViUInt32 count = 9;
        ViFindList list = 9;
        std::array<char, VisaDescriptionSize> name = {'a', '\0'};
        QCOMPARE(Table.viFindRsrc(Manager, "USB?*INSTR", &list, &count, name.data()), VI_ERROR_RSRC_NFOUND);
        QCOMPARE(count, 0U);
        QCOMPARE(list, VI_NULL);
        QCOMPARE(name.data(), "a");
    }

    void otherInterfacesAreNotFound()
    {
        QCOMPARE(FindAll(Manager, "GPIB?*INSTR").Status, VI_ERROR_RSRC_NFOUND);
        QVERIFY(FindAll(Manager, "USB[0-9]?*").Status < 0);
        QCOMPARE(FindAll(Manager + 1000, "?*").Status, VI_ERROR_INV_OBJECT);
    }

    void twoInstrumentsAnswerForThemselves()
    {
        kv7000_control_set_instrument_count(2);
        kv7000_control_set_model(1, "KV7050");
        const Found found = FindAll(Manager, "USB?*INSTR");
        QCOMPARE(found.Count, 2U);
        QCOMPARE(found.Names.size(), 2);
        QVERIFY(found.Names[0] != found.Names[1]);
        const ViSession second = Open(1);
        QVERIFY(second != Session);
        QVERIFY(Query(Session, "*IDN?\n").starts_with("ZEMRA Technologies,KV7060,KV70600001,"));
        QVERIFY(Query(second, "*IDN?\n").starts_with("ZEMRA Technologies,KV7050,KV70600002,"));
        QCOMPARE(kv7000_control_line_count(0), 1);
        QCOMPARE(kv7000_control_line_count(1), 1);
    }

    void aForeignDeviceIsFoundFirstAndKeepsSilent()
    {
        kv7000_control_set_foreign_device(1);
        const Found found = FindAll(Manager, "USB?*INSTR");
        QCOMPARE(found.Count, 2U);
        QVERIFY(!found.Names[0].contains(QLatin1String("KV")));
        QVERIFY(found.Names[1].contains(QLatin1String("KV")));
        ViSession foreign = VI_NULL;
        QCOMPARE(Table.viOpen(Manager, found.Names[0].toLatin1().constData(), 0, 0, &foreign), VI_SUCCESS);
        QCOMPARE(VisaPrintf(Table, foreign, "*IDN?\n"), VI_SUCCESS);
        QCOMPARE(ReadText(foreign), std::string("(none)"));
        QCOMPARE(Table.viUsbControlOut(foreign, 0x40, 0x1B, 0, 0, 0, nullptr), StallStatus);
        QCOMPARE(kv7000_control_line_count(0), 0);
    }

    void openingFailsForUnknownNamesLocksAndBadManagers()
    {
        ViSession session = 5;
        QCOMPARE(Table.viOpen(Manager, "USB0::0xFFFE::0x7060::KV9::INSTR", 0, 0, &session), VI_ERROR_RSRC_NFOUND);
        QCOMPARE(session, VI_NULL);
        const char *name = kv7000_control_resource_name(0);
        QCOMPARE(Table.viOpen(Session, name, 0, 0, &session), VI_ERROR_INV_OBJECT);
        QVERIFY(Table.viOpen(Manager, name, 1, 0, &session) < 0);
        kv7000_control_set_open_status(0, VI_ERROR_SYSTEM_ERROR);
        QCOMPARE(Table.viOpen(Manager, name, 0, 0, &session), VI_ERROR_SYSTEM_ERROR);
        QCOMPARE(session, VI_NULL);
        QCOMPARE(VisaPrintf(Table, session, "IDNSET ZEMRA\n"), VI_ERROR_INV_OBJECT);
    }

    void eachOpenGivesANewSessionAndCloseEndsIt()
    {
        const ViSession other = Open();
        QVERIFY(other != Session);
        QCOMPARE(kv7000_control_open_sessions(), 2);
        QCOMPARE(Table.viClose(Session), VI_SUCCESS);
        QCOMPARE(kv7000_control_open_sessions(), 1);
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_ERROR_INV_OBJECT);
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1B, 0, 0, 0, nullptr), VI_ERROR_INV_OBJECT);
        QCOMPARE(Table.viClose(Session), VI_ERROR_INV_OBJECT);
        QVERIFY(Query(other, "*IDN?\n").starts_with("ZEMRA"));
        QVERIFY(Open() > other);
    }

    void closingTheManagerClosesWhatItOpened()
    {
        QCOMPARE(Table.viClose(Manager), VI_SUCCESS);
        QCOMPARE(kv7000_control_open_sessions(), 0);
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_ERROR_INV_OBJECT);
    }

    void aSecondManagerIsASessionOfItsOwn()
    {
        ViSession second = VI_NULL;
        QCOMPARE(Table.viOpenDefaultRM(&second), VI_SUCCESS);
        QVERIFY(second != Manager);
        QCOMPARE(Table.viClose(second), VI_SUCCESS);
        QVERIFY(Query(Session, "*IDN?\n").starts_with("ZEMRA"));
    }

    void aQueryIsAnsweredWithItsTerminator()
    {
        kv7000_control_set_reading(0, 0.00409623);
        QCOMPARE(VisaPrintf(Table, Session, ":MEASure:VOLTage:DC?\n"), VI_SUCCESS);
        std::array<char, 300> buffer;
        buffer.fill('x');
        QCOMPARE(VisaScanf(Table, Session, "%t", buffer.data()), VI_SUCCESS);
        const std::string expected = "+4.096230E-03\n";
        QCOMPARE(std::string(buffer.data()), expected); // ends at a NUL that the read has set
        QCOMPARE(buffer[expected.size() + 1], 'x');
        QCOMPARE(kv7000_control_function(0), 0);
        QCOMPARE(kv7000_control_line(0, 0), ":MEASure:VOLTage:DC?");
        QVERIFY(kv7000_control_line(0, 1) == nullptr);
    }

    void aReadWithoutAReplyTimesOutAndLeavesTheBuffer()
    {
        std::array<char, 257> buffer = {'o', 'l', 'd', '\0'};
        QCOMPARE(VisaScanf(Table, Session, "%256t", buffer.data()), VI_ERROR_TMO);
        QCOMPARE(VisaPrintf(Table, Session, "IDNSET ZEMRA\n"), VI_SUCCESS);
        QCOMPARE(VisaScanf(Table, Session, "%256t", buffer.data()), VI_ERROR_TMO);
        QCOMPARE(buffer.data(), "old");
    }

    void silenceEndsInABoundedWait()
    {
        kv7000_control_set_silent_replies(0, -1);
        kv7000_control_set_read_wait(1000000);
        QCOMPARE(viSetAttribute(Session, VI_ATTR_TMO_VALUE, 30), VI_SUCCESS);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(Query(Session, "*IDN?\n"), std::string("(none)"));
        QVERIFY(timer.elapsed() >= 30);   // it waited for the session's time-out
        QVERIFY(timer.elapsed() < 20000); // and not for the thousand seconds
        kv7000_control_set_silent_replies(0, 1);
        QCOMPARE(Query(Session, "*IDN?\n"), std::string("(none)"));
        QVERIFY(Query(Session, "*IDN?\n").starts_with("ZEMRA"));
    }

    void theTimeOutIsTwoSecondsUnlessSet()
    {
        ViUInt32 timeout = 0;
        QCOMPARE(viGetAttribute(Session, VI_ATTR_TMO_VALUE, &timeout), VI_SUCCESS);
        QCOMPARE(timeout, 2000U);
        QCOMPARE(viSetAttribute(Session, VI_ATTR_TMO_VALUE, 500), VI_SUCCESS);
        QCOMPARE(viGetAttribute(Session, VI_ATTR_TMO_VALUE, &timeout), VI_SUCCESS);
        QCOMPARE(timeout, 500U);
        QVERIFY(viSetAttribute(Session, 0x3FFF0016, 0) < 0);
        QVERIFY(viGetAttribute(Session, 0x3FFF0016, &timeout) < 0);
        QCOMPARE(viSetAttribute(Manager, VI_ATTR_TMO_VALUE, 1), VI_ERROR_INV_OBJECT);
    }

    void aNewMessageClearsAnUnreadReply()
    {
        kv7000_control_set_reading(0, 1);
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_SUCCESS);
        QCOMPARE(Query(Session, ":MEASure:DIODe?\n"), std::string("+1.000000E+00\n"));
        QCOMPARE(ReadText(Session), std::string("(none)"));
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_SUCCESS);
        QCOMPARE(Query(Session, "IDNSET ZEMRA\n"), std::string("(none)"));
    }

    void aLongReplyStaysInsideTheWidth()
    {
        const std::string reply = std::string(300, '1') + '\n';
        kv7000_control_set_raw_reply(0, reply.data(), static_cast<int>(reply.size()));
        QCOMPARE(VisaPrintf(Table, Session, ":MEASure:VOLTage:DC?\n"), VI_SUCCESS);
        std::array<char, 260> buffer;
        buffer.fill('x');
        QCOMPARE(VisaScanf(Table, Session, "%256t", buffer.data()), VI_SUCCESS);
        QCOMPARE(std::string(buffer.data()), std::string(256, '1'));
        QCOMPARE(buffer[257], 'x');
        QCOMPARE(ReadText(Session), std::string(44, '1') + '\n'); // the rest waits for the next read
        QCOMPARE(ReadText(Session), std::string("(none)"));
    }

    void aReplyOf256CharactersFillsTheWidth()
    {
        const std::string reply(256, '2');
        kv7000_control_set_raw_reply(0, reply.data(), 256);
        QCOMPARE(Query(Session, ":MEASure:VOLTage:DC?\n"), reply);
    }

    void aSizedReadKeepsRoomForTheNul()
    {
        kv7000_control_set_reading(0, 1);
        QCOMPARE(VisaPrintf(Table, Session, ":MEASure:VOLTage:DC?\n"), VI_SUCCESS);
        std::array<char, 8> buffer;
        buffer.fill('x');
        ViUInt32 size = 6;
        QCOMPARE(VisaScanf(Table, Session, "%#t", &size, buffer.data()), VI_SUCCESS);
        QCOMPARE(size, 5U);
        QCOMPARE(buffer.data(), "+1.00");
        QCOMPARE(buffer[6], 'x');
    }

    void formatsOutsideTheSubsetAreRefused()
    {
        QVERIFY(VisaPrintf(Table, Session, "50%\n") < 0);
        QCOMPARE(kv7000_control_line_count(0), 0);
        std::array<char, 8> buffer = {'o', '\0'};
        QVERIFY(VisaScanf(Table, Session, "%s", buffer.data()) < 0);
        QCOMPARE(buffer.data(), "o");
    }

    void writesExpandTheirFormat()
    {
        QCOMPARE(VisaPrintf(Table, Session, "*%s?\n", "IDN"), VI_SUCCESS);
        QCOMPARE(kv7000_control_line(0, 0), "*IDN?");
        QCOMPARE(viPrintf(Session, "%d%%\n", 5), VI_SUCCESS);
        QCOMPARE(kv7000_control_line(0, 1), "5%");
    }

    void severalLinesInOneMessageAreExecutedInOrder()
    {
        kv7000_control_set_reading(0, 2);
        QCOMPARE(Query(Session, ":FUNCtion:DIODe\r\n:MEASure:FREQuency?\nIDNSET ZEMRA"),
                 std::string("+2.000000E+00\n"));
        QCOMPARE(kv7000_control_line_count(0), 3);
        QCOMPARE(kv7000_control_line(0, 0), ":FUNCtion:DIODe");
        QCOMPARE(kv7000_control_line(0, 2), "IDNSET ZEMRA");
    }

    void plainReadAndWriteShareTheReply()
    {
        kv7000_control_set_reading(0, 1);
        const std::string line = "MEAS:VOLT:DC?\n";
        std::array<ViByte, 32> bytes{};
        std::copy(line.begin(), line.end(), bytes.begin());
        ViUInt32 moved = 0;
        QCOMPARE(viWrite(Session, bytes.data(), static_cast<ViUInt32>(line.size()), &moved), VI_SUCCESS);
        QCOMPARE(moved, 14U);
        QCOMPARE(viRead(Session, bytes.data(), 4, &moved), ViStatus{0x3FFF0006}); // VI_SUCCESS_MAX_CNT
        QCOMPARE(moved, 4U);
        QCOMPARE(viRead(Session, bytes.data(), 32, &moved), VI_SUCCESS);
        QCOMPARE(std::string(bytes.begin(), bytes.begin() + moved), std::string("00000E+00\n"));
        QCOMPARE(viRead(Session, bytes.data(), 32, &moved), VI_ERROR_TMO);
        QCOMPARE(moved, 0U);
    }

    void failingWritesDoNotReachTheInstrument()
    {
        kv7000_control_set_write_status(0, VI_ERROR_CONN_LOST);
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_ERROR_CONN_LOST);
        QCOMPARE(ReadText(Session), std::string("(none)"));
        QCOMPARE(kv7000_control_line_count(0), 0);
        QCOMPARE(FindAll(Manager, "USB?*INSTR").Count, 1U);
        kv7000_control_set_write_status(0, 0);
        QVERIFY(Query(Session, "*IDN?\n").starts_with("ZEMRA"));
    }

    void anUnpluggedInstrumentIsGoneUntilItIsOpenedAgain()
    {
        kv7000_control_set_plugged(0, 0);
        std::array<char, 8> buffer{};
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_ERROR_CONN_LOST);
        QCOMPARE(VisaScanf(Table, Session, "%7t", buffer.data()), VI_ERROR_CONN_LOST);
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1B, 0, 0, 0, nullptr), VI_ERROR_CONN_LOST);
        QCOMPARE(FindAll(Manager, "USB?*INSTR").Status, VI_ERROR_RSRC_NFOUND);
        QCOMPARE(Open(), VI_NULL);
        kv7000_control_set_plugged(0, 1);
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_ERROR_CONN_LOST);
        QVERIFY(Query(Open(), "*IDN?\n").starts_with("ZEMRA"));
        QCOMPARE(Table.viClose(Session), VI_SUCCESS);
    }

    void sessionsOfAnInstrumentThatHasLeftStayLost_data()
    {
        QTest::addColumn<int>("instrument");
        QTest::addColumn<int>("count");
        QTest::newRow("the only one") << 0 << 1;
        QTest::newRow("the first of two") << 0 << 2;
        QTest::newRow("the second of two") << 1 << 2;
    }

    void sessionsOfAnInstrumentThatHasLeftStayLost()
    {
        QFETCH(int, instrument);
        QFETCH(int, count);
        kv7000_control_set_instrument_count(count);
        const ViSession old = Open(instrument);
        QCOMPARE(VisaPrintf(Table, old, "*IDN?\n"), VI_SUCCESS); // its reply is left unread
        kv7000_control_set_instrument_count(instrument);
        kv7000_control_set_instrument_count(count);
        std::array<char, 257> buffer{};
        QCOMPARE(VisaPrintf(Table, old, "*IDN?\n"), VI_ERROR_CONN_LOST);
        QCOMPARE(VisaScanf(Table, old, "%256t", buffer.data()), VI_ERROR_CONN_LOST);
        QCOMPARE(Table.viUsbControlOut(old, 0x40, 0x1B, 0, 0, 0, nullptr), VI_ERROR_CONN_LOST);
        const ViSession opened = Open(instrument);
        QCOMPARE(ReadText(opened), std::string("(none)"));
        QVERIFY(Query(opened, "*IDN?\n").starts_with("ZEMRA"));
        QCOMPARE(Table.viClose(old), VI_SUCCESS);
    }

    void sessionsOfAnInstrumentThatStaysGoOn()
    {
        kv7000_control_set_instrument_count(2);
        QCOMPARE(VisaPrintf(Table, Session, "*IDN?\n"), VI_SUCCESS);
        kv7000_control_set_instrument_count(1);
        kv7000_control_set_instrument_count(2);
        QVERIFY(ReadText(Session).starts_with("ZEMRA"));
        QVERIFY(Query(Session, "*IDN?\n").starts_with("ZEMRA"));
    }

    void sessionsOfAForeignDeviceThatHasLeftStayLost()
    {
        kv7000_control_set_foreign_device(1);
        const QByteArray name = FindAll(Manager, "USB?*INSTR").Names[0].toLatin1();
        ViSession old = VI_NULL;
        QCOMPARE(Table.viOpen(Manager, name.constData(), 0, 0, &old), VI_SUCCESS);
        kv7000_control_set_foreign_device(0);
        kv7000_control_set_foreign_device(1);
        QCOMPARE(VisaPrintf(Table, old, "*IDN?\n"), VI_ERROR_CONN_LOST);
        ViSession opened = VI_NULL;
        QCOMPARE(Table.viOpen(Manager, name.constData(), 0, 0, &opened), VI_SUCCESS);
        QCOMPARE(VisaPrintf(Table, opened, "*IDN?\n"), VI_SUCCESS);
    }

    void anotherMakerAnswersUnderItsName()
    {
        kv7000_control_set_maker(0, "Somebody Else");
        kv7000_control_set_model(0, "kv7050");
        QVERIFY(Query(Session, "*IDN?\n").starts_with("Somebody Else,kv7050,"));
    }

    void overloadsAndLivingSignals()
    {
        kv7000_control_set_overload(0, KV7000_OVERLOAD_MINUS_8888);
        QCOMPARE(Query(Session, "MEAS:VOLT:DC?\n"), std::string("-8888\n"));
        kv7000_control_set_overload(0, KV7000_OVERLOAD_MINUS_7777);
        QCOMPARE(Query(Session, "MEAS:VOLT:DC?\n"), std::string("-7777\n"));
        kv7000_control_set_overload(0, KV7000_OVERLOAD_PLUS_9E15);
        QCOMPARE(std::stod(Query(Session, "MEAS:VOLT:DC?\n")), 9e15);
        kv7000_control_set_overload(0, KV7000_OVERLOAD_MINUS_9E15);
        QCOMPARE(std::stod(Query(Session, "MEAS:VOLT:DC?\n")), -9e15);
        kv7000_control_set_living(0);
        const double volts = std::stod(Query(Session, "MEAS:VOLT:DC?\n"));
        QVERIFY(volts > 2.42e-3 && volts < 9.76e-3); // type K between 60 and 240 degrees, NIST Monograph 175
    }

    void theClockCanBeHeldAndSpedUp()
    {
        kv7000_control_hold_clock(0);
        const double cold = std::stod(Query(Session, "MEAS:FRES?\n"));
        kv7000_control_hold_clock(60);
        const double warm = std::stod(Query(Session, "MEAS:FRES?\n"));
        QVERIFY(warm - cold > 60); // 60 to 240 degrees are 123.2 to 190.5 ohms by IEC 60751
        kv7000_control_hold_clock(0);
        kv7000_control_set_clock_speed(10000);
        QTRY_VERIFY(std::stod(Query(Session, "MEAS:FRES?\n")) > cold + 30);
    }

    void controlTransfersAreRecorded()
    {
        std::array<ViByte, 10048> data{};
        data.front() = 0xAB;
        data.back() = 0xCD;
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1C, 0xBEEF, 0x0102, 10048, data.data()), VI_SUCCESS);
        const ViByte zero = 0;
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1F, 1, 2, 0, &zero), VI_SUCCESS);
        QCOMPARE(kv7000_control_vendor_count(0), 2);
        Kv7000VendorRequest record{};
        QCOMPARE(kv7000_control_vendor_request(0, 0, &record), 1);
        QCOMPARE(record.request, 0x1C);
        QCOMPARE(record.value, 0xBEEF);
        QCOMPARE(record.index, 0x0102);
        QCOMPARE(record.length, 10048);
        QCOMPARE(record.status, 0);
        QCOMPARE(record.data[0], 0xAB);
        QCOMPARE(record.data[10047], 0xCD);
        QCOMPARE(kv7000_control_vendor_request(0, 1, &record), 1);
        QCOMPARE(record.length, 0);
        QCOMPARE(kv7000_control_vendor_request(0, 2, &record), 0);
        kv7000_control_clear_records(0);
        QCOMPARE(kv7000_control_vendor_count(0), 0);
    }

    void controlTransfersFailAsTold()
    {
        kv7000_control_set_vendor_status(0, 0x1D, VI_ERROR_TMO);
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1B, 0, 0, 0, nullptr), VI_SUCCESS);
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1D, 0, 0, 0, nullptr), VI_ERROR_TMO);
        kv7000_control_set_vendor_status(0, 0, VI_ERROR_CONN_LOST);
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1B, 0, 0, 0, nullptr), VI_ERROR_CONN_LOST);
        kv7000_control_set_vendor_status(0, 0, 0);
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x1D, 0, 0, 0, nullptr), VI_SUCCESS);
        QCOMPARE(kv7000_control_vendor_count(0), 4);
    }

    void otherControlTransfersAreRefused()
    {
        QCOMPARE(Table.viUsbControlOut(Session, 0x40, 0x20, 0, 0, 0, nullptr), StallStatus);
        QCOMPARE(Table.viUsbControlOut(Session, 0x21, 0x1B, 0, 0, 0, nullptr), StallStatus);
        QVERIFY(Table.viUsbControlOut(Session, 0xC0, 0x1B, 0, 0, 0, nullptr) < 0);
        QVERIFY(Table.viUsbControlOut(Session, 0x40, 0x1B, 0, 0, 4, nullptr) < 0);
        QCOMPARE(Table.viUsbControlOut(Manager, 0x40, 0x1B, 0, 0, 0, nullptr), VI_ERROR_NSUP_OPER);
        QCOMPARE(kv7000_control_vendor_count(0), 0);
    }

    void controlsOfUnknownInstrumentsDoNothing()
    {
        for (const int instrument : {-1, 2}) {
            kv7000_control_set_reading(instrument, 1);
            QVERIFY(kv7000_control_resource_name(instrument) == nullptr);
            QCOMPARE(kv7000_control_line_count(instrument), 0);
            QCOMPARE(kv7000_control_function(instrument), -1);
        }
    }

    void nothingIsExportedButVisaAndTheControls()
    {
        QProcess lister;
        lister.start(QStringLiteral(SYMBOL_LISTER), {QStringLiteral("-D"), QStringLiteral("--defined-only"),
                                                     QStringLiteral("-P"), QStringLiteral(VIRTUAL_VISA_PATH)});
        QVERIFY(lister.waitForFinished());
        const QList<QByteArray> lines = lister.readAllStandardOutput().trimmed().split('\n');
        QStringList visa;
        for (const QByteArray &line : lines) {
            const QByteArray name = line.split(' ').first();
            QVERIFY2(name.startsWith("vi") || name.startsWith("kv7000_control_"), name.constData());
            if (name.startsWith("vi"))
                visa << QString::fromLatin1(name);
        }
        visa.sort();
        const QStringList expected = {
            QStringLiteral("viClose"),        QStringLiteral("viFindNext"),      QStringLiteral("viFindRsrc"),
            QStringLiteral("viGetAttribute"), QStringLiteral("viOpen"),          QStringLiteral("viOpenDefaultRM"),
            QStringLiteral("viPrintf"),       QStringLiteral("viRead"),          QStringLiteral("viScanf"),
            QStringLiteral("viSetAttribute"), QStringLiteral("viUsbControlOut"), QStringLiteral("viVPrintf"),
            QStringLiteral("viVScanf"),       QStringLiteral("viWrite")};
        QCOMPARE(visa, expected);
    }
};

QTEST_GUILESS_MAIN(tst_virtual_visa)
#include "tst_virtual_visa.moc"
