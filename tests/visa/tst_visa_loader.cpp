/// @file
/// The VISA table: filled from a library that has all of it, or standing for no device at all.

#include "visa/VisaLoader.h"

#include <QtTest>

#include <array>
#include <cstdio>
#include <string>

namespace {

std::optional<VisaTable> LoadOne(const std::string &path)
{
    const std::array<const char *, 1> names = {path.c_str()};
    return LoadVisaFrom(names);
}

std::string IncompletePath(const char *missing)
{
    return std::string(INCOMPLETE_VISA_FOLDER "/without_") + missing + INCOMPLETE_VISA_SUFFIX;
}

bool AllResolved(const VisaTable &table)
{
    return table.viOpenDefaultRM != nullptr && table.viFindRsrc != nullptr && table.viFindNext != nullptr &&
           table.viOpen != nullptr && table.viClose != nullptr && table.viVPrintf != nullptr &&
           table.viVScanf != nullptr && table.viUsbControlOut != nullptr;
}

// A table of a test's own, to see what the two helpers hand over.
ViSession SeenSession = VI_NULL;
std::string SeenText;

ViStatus OSTRAKON_VISA_CALL KeepText(ViSession session, ViConstString format, ViVAList arguments)
{
    std::array<char, 64> text{};
    std::vsnprintf(text.data(), text.size(), format, arguments);
    SeenSession = session;
    SeenText = text.data();
    return VI_ERROR_CONN_LOST;
}

ViStatus OSTRAKON_VISA_CALL FillBuffer(ViSession session, ViConstString format, ViVAList arguments)
{
    SeenSession = session;
    SeenText = format;
    char *buffer = va_arg(arguments, char *);
    buffer[0] = 'x';
    return VI_ERROR_TMO;
}

} // namespace

class tst_visa_loader : public QObject {
    Q_OBJECT

private slots:
    void aMissingLibraryGivesNoTable()
    {
        QVERIFY(!LoadOne("libvisa-that-nobody-has-installed.so.0"));
        QVERIFY(!LoadVisaFrom({}));
    }

    void aFileThatIsNoLibraryIsRefused() { QVERIFY(!LoadOne(__FILE__)); }

    void theAbsentTableFindsNothing()
    {
        const VisaTable &table = AbsentVisa();
        QVERIFY(AllResolved(table));
        ViSession manager = 7;
        ViSession session = 7;
        ViFindList list = 7;
        ViUInt32 count = 7;
        std::array<char, VisaDescriptionSize> text = {'a', 'b', '\0'};
        QCOMPARE(table.viOpenDefaultRM(&manager), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(table.viFindRsrc(manager, "USB?*INSTR", &list, &count, text.data()), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(table.viFindNext(list, text.data()), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(table.viOpen(manager, "USB0::1::2::KV::INSTR", 0, 0, &session), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(manager, VI_NULL);
        QCOMPARE(list, VI_NULL);
        QCOMPARE(count, 0U);
        QCOMPARE(session, VI_NULL);
        QCOMPARE(VisaPrintf(table, session, "*IDN?\n"), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(VisaScanf(table, session, "%t", text.data()), VI_ERROR_LIBRARY_NFOUND);
        const ViByte zero = 0;
        QCOMPARE(table.viUsbControlOut(session, 0x40, 0x1B, 0, 0, 0, &zero), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(table.viClose(session), VI_ERROR_LIBRARY_NFOUND);
        QCOMPARE(text.data(), "ab");
    }

    void theAbsentTableTakesNullForListAndCount()
    {
        QCOMPARE(AbsentVisa().viFindRsrc(VI_NULL, "USB?*INSTR", nullptr, nullptr, nullptr), VI_ERROR_LIBRARY_NFOUND);
    }

    void aLibraryLoadedByPathFindsItsInstrument()
    {
        const std::optional<VisaTable> table = LoadOne(VIRTUAL_VISA_PATH);
        QVERIFY(table);
        QVERIFY(AllResolved(*table));
        ViSession manager = VI_NULL;
        ViFindList list = VI_NULL;
        ViUInt32 count = 0;
        std::array<char, VisaDescriptionSize> name{};
        QCOMPARE(table->viOpenDefaultRM(&manager), VI_SUCCESS);
        QCOMPARE(table->viFindRsrc(manager, "USB?*INSTR", &list, &count, name.data()), VI_SUCCESS);
        QCOMPARE(count, 1U);
        QVERIFY(std::string(name.data()).find("KV") != std::string::npos);
        QCOMPARE(table->viClose(manager), VI_SUCCESS);
    }

    void aLibraryThatLacksAFunctionIsRefused_data()
    {
        QTest::addColumn<QByteArray>("missing");
        for (const char *name : {"viOpenDefaultRM", "viFindRsrc", "viFindNext", "viOpen", "viClose", "viVPrintf",
                                 "viVScanf", "viUsbControlOut"})
            QTest::newRow(name) << QByteArray(name);
    }

    void aLibraryThatLacksAFunctionIsRefused()
    {
        QFETCH(QByteArray, missing);
        const std::string path = IncompletePath(missing.constData());
        QVERIFY2(QFile::exists(QString::fromStdString(path)), path.c_str());
        QVERIFY(!LoadOne(path));
    }

    void theSameLibraryWithAllFunctionsIsTaken() { QVERIFY(LoadOne(IncompletePath("nothing"))); }

    void theNextNameIsTriedAfterARefusal()
    {
        const std::string incomplete = IncompletePath("viClose");
        const std::array<const char *, 3> names = {"libno-such-visa.so.0", incomplete.c_str(), VIRTUAL_VISA_PATH};
        const std::optional<VisaTable> table = LoadVisaFrom(names);
        QVERIFY(table);
        ViSession manager = VI_NULL;
        QCOMPARE(table->viOpenDefaultRM(&manager), VI_SUCCESS);
        QVERIFY(manager != VI_NULL);
        QCOMPARE(table->viClose(manager), VI_SUCCESS);
    }

    void theSystemsLoaderDecidesAndTheAnswerIsKept()
    {
        QVERIFY(VisaLibraryFound());
        const VisaTable &table = LoadVisa();
        QCOMPARE(&LoadVisa(), &table);
        QVERIFY(&table != &AbsentVisa());
        const std::optional<VisaTable> byPath = LoadOne(VIRTUAL_VISA_PATH);
        QVERIFY(byPath);
        QVERIFY(table.viOpen == byPath->viOpen);
    }

    void formattedOutputPassesARealArgumentList()
    {
        VisaTable table;
        table.viVPrintf = KeepText;
        QCOMPARE(VisaPrintf(table, 31, "%s=%d %.2f", "range", 12, 0.25), VI_ERROR_CONN_LOST);
        QCOMPARE(SeenSession, 31U);
        QCOMPARE(SeenText, std::string("range=12 0.25"));
    }

    void formattedInputPassesTheCallersBuffer()
    {
        VisaTable table;
        table.viVScanf = FillBuffer;
        std::array<char, 4> buffer{};
        QCOMPARE(VisaScanf(table, 32, "%3t", buffer.data()), VI_ERROR_TMO);
        QCOMPARE(SeenSession, 32U);
        QCOMPARE(SeenText, std::string("%3t"));
        QCOMPARE(buffer[0], 'x');
    }

    void statusesAreNegativeNumbersOf32Bits()
    {
        QCOMPARE(sizeof(ViStatus), std::size_t{4});
        QCOMPARE(static_cast<long long>(VI_ERROR_TMO), -1073807339LL); // 0xBFFF0015 as two's complement
        QVERIFY(VI_ERROR_LIBRARY_NFOUND < 0);
    }
};

QTEST_GUILESS_MAIN(tst_visa_loader)
#include "tst_visa_loader.moc"
