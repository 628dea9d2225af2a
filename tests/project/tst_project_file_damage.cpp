/// @file
/// Files that are no project files, or no longer: shifted, cut off, made by hand, damaged at any byte. Each field that
/// can be read is read, all others keep what an earlier project has left, and nothing outside the slot is touched.
#include "project/ProjectFileBench.h"
#include "support/FileBytes.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr int Slot = 4;

/// DistinctLines with another text on one line.
QByteArray FileWith(int line, const QByteArray &text)
{
    QByteArrayList lines = DistinctLines(" 0 ");
    lines[line - 1] = text;
    return FileOf(lines);
}

} // namespace

class TestProjectFileDamage : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ResetProjectTable();
        PutOldContents(Slot);
    }
    void cleanup() { QVERIFY(SurroundingsAreOld(Slot)); }

    void lineEndsAndEncodingsOfOtherSystemsAreRead_data();
    void lineEndsAndEncodingsOfOtherSystemsAreRead();
    void aFieldThatCannotBeReadStaysAsItWas_data();
    void aFieldThatCannotBeReadStaysAsItWas();
    void onlyTheWordTrueMakesABuiltInSensor_data();
    void onlyTheWordTrueMakesABuiltInSensor();
    void anEmptyUnitIsAnEmptyLine();
    void quotesEncloseAComma();
    void aCommaInTheNameShiftsEveryLaterField();
    void aCommaInAUnitShiftsEveryLaterField();
    void aMissingFileLeavesAllButTheMarksOfRows_data();
    void aMissingFileLeavesAllButTheMarksOfRows();
    void aFileThatIsCutOffAnywhereIsReadAsFarAsItGoes();
    void aByteDamagedAnywhereHarmsNothingElse();
    void noiseHarmsNothing();
};

void TestProjectFileDamage::lineEndsAndEncodingsOfOtherSystemsAreRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");
    const QByteArrayList lines = LinesWithRows(" 2 ", 2);
    const auto named = [&lines](const char *name) {
        QByteArrayList changed = lines;
        changed[0] = name;
        return FileOf(changed);
    };
    const QString name = QStringLiteral("Name_1");
    QTest::newRow("CR LF") << FileOf(lines) << name;
    QTest::newRow("LF") << lines.join('\n') + '\n' << name;
    QTest::newRow("CR") << lines.join('\r') + '\r' << name;
    QTest::newRow("no last line end") << lines.join("\r\n") << name;
    QTest::newRow("lines behind the last row") << FileOf(lines) + "more\r\n\r\n 1 \r\n" << name;
    QTest::newRow("blanks ahead") << "  " + lines.join("\r\n   ") << name;
    QTest::newRow("byte order mark") << "\xEF\xBB\xBF" + FileOf(lines) << name;
    QTest::newRow("UTF-8") << named("\xE6\xB8\xA9\xE5\xBA\xA6") << QStringLiteral("温度");
    QTest::newRow("GB18030") << named("\xCE\xC2\xB6\xC8") << QStringLiteral("温度");
}

void TestProjectFileDamage::lineEndsAndEncodingsOfOtherSystemsAreRead()
{
    QFETCH(QByteArray, bytes);
    SensorProject expected = DistinctProject();
    QFETCH(QString, name);
    expected.SensorName = name;
    QCOMPARE(ReadingError(Slot, bytes), 0);
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(expected));
    QCOMPARE(UsedRows(Slot), 2);
    QCOMPARE(ReferenceTable[Slot][2].Output, -2.5);
}

void TestProjectFileDamage::aFieldThatCannotBeReadStaysAsItWas_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("error");
    const auto row = [](int line, const QByteArray &text, int error) {
        QTest::addRow("line %d: %s", line, text.constData()) << line << text << error;
    };
    for (const int line : {2, 3, 6, 7, 9, 28, 29, 30, 45, 46, 47, 48, 49}) {
        row(line, "True", 13);
        row(line, "", 13);
        row(line, " 1e400 ", 6);
    }
    row(2, "2147483648", 6);
    row(2, "-2147483649", 6);
    row(2, "2147483647.5", 6);
    for (const int line : {3, 6, 9, 28, 29, 30, 45, 46, 48}) {
        row(line, "300", 6);
        row(line, "256", 6);
        row(line, "255.5", 6);
        row(line, "-1", 6);
    }
    for (const int line : {7, 47}) {
        row(line, "1E+39", 6);
        row(line, "-3.5E+38", 6);
    }
    row(49, "32768", 6);
    row(49, "-32769", 6);
    row(49, "3,0", 0); // two values: the first is read, what follows shifts
}

void TestProjectFileDamage::aFieldThatCannotBeReadStaysAsItWas()
{
    QFETCH(int, line);
    QFETCH(QByteArray, text);
    QFETCH(int, error);
    QCOMPARE(ReadingError(Slot, FileWith(line, text)), error);
    // The fields by their line, as texts: the field of this line is the old one, all others are the file's.
    QStringList expected = TextOf(DistinctProject()).split(u'|');
    expected[line - 1] = error == 0 ? QStringLiteral("3") : TextOf(OldProject()).split(u'|')[line - 1];
    QCOMPARE(TextOf(SensorProjects[Slot]).split(u'|'), expected);
    QCOMPARE(ProjectPointCount, 0);
}

void TestProjectFileDamage::onlyTheWordTrueMakesABuiltInSensor_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("builtIn");
    QTest::newRow("True") << QByteArray("True") << true;
    QTest::newRow("True behind blanks") << QByteArray("  True") << true;
    QTest::newRow("True in quotes") << QByteArray("\"True\"") << true;
    for (const char *text : {"False", "", "true", "TRUE", "True ", "True.", "1", "-1", "0", "T", "Tru", "#TRUE#"})
        QTest::addRow("'%s'", text) << QByteArray(text) << false;
}

void TestProjectFileDamage::onlyTheWordTrueMakesABuiltInSensor()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, builtIn);
    SensorProjects[Slot].IsBuiltInSensor = !builtIn;
    QCOMPARE(ReadingError(Slot, FileWith(BuiltInLine, text)), 0);
    QCOMPARE(SensorProjects[Slot].IsBuiltInSensor, builtIn);
}

void TestProjectFileDamage::anEmptyUnitIsAnEmptyLine()
{
    QCOMPARE(ReadingError(Slot, FileWith(5, "")), 0);
    SensorProject expected = DistinctProject();
    expected.OutputUnit.clear();
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(expected));
}

void TestProjectFileDamage::quotesEncloseAComma()
{
    QCOMPARE(ReadingError(Slot, FileWith(1, "\"a,b\"")), 0);
    SensorProject expected = DistinctProject();
    expected.SensorName = QStringLiteral("a,b");
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(expected));
}

void TestProjectFileDamage::aCommaInTheNameShiftsEveryLaterField()
{
    QCOMPARE(ReadingError(Slot, FileWith(1, "a,b")), 62); // at the rows: line 49 is the count now
    SensorProject expected = DistinctProject();
    expected.SensorName = QStringLiteral("a");
    expected.MeasFunction = OldProject().MeasFunction; // met "b"
    expected.IsThermocouple = 2;
    expected.InputUnit = QStringLiteral("3 ");
    expected.OutputUnit = QStringLiteral("mA");
    expected.OutputUnitIsUser = OldProject().OutputUnitIsUser; // met "kPa"
    expected.InputUnitScale = 6;
    expected.IsBuiltInSensor = false;                              // met " 7.5 "
    expected.SensorTypeChars[0] = OldProject().SensorTypeChars[0]; // met "True"
    for (std::uint8_t i = 1; i < 20; ++i)
        expected.SensorTypeChars[i] = 8 + i;
    expected.BuiltInKind = 28;
    for (std::uint8_t i = 0; i < 16; ++i)
        expected.UnitChars[i] = 29 + i;
    expected.TcLetterCode = 45;
    expected.RtdR0 = 46;
    expected.RtdCode = 47;
    expected.ThermistorOhms = 48;
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(expected));
    QCOMPARE(ProjectPointCount, 49);
}

void TestProjectFileDamage::aCommaInAUnitShiftsEveryLaterField()
{
    QCOMPARE(ReadingError(Slot, FileWith(5, "m,s")), 62);
    QCOMPARE(SensorProjects[Slot].InputUnit, QStringLiteral("mA"));
    QCOMPARE(SensorProjects[Slot].OutputUnit, QStringLiteral("m"));
    QCOMPARE(SensorProjects[Slot].OutputUnitIsUser, OldProject().OutputUnitIsUser);
    QCOMPARE(SensorProjects[Slot].InputUnitScale, 6.0F);
    QCOMPARE(SensorProjects[Slot].ThermistorOhms, 48);
    QCOMPARE(ReadingError(Slot, FileWith(4, "m,s")), 62);
    QCOMPARE(SensorProjects[Slot].InputUnit, QStringLiteral("m"));
    QCOMPARE(SensorProjects[Slot].OutputUnit, QStringLiteral("s"));
    QCOMPARE(SensorProjects[Slot].ThermistorOhms, 48);
}

void TestProjectFileDamage::aMissingFileLeavesAllButTheMarksOfRows_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("countBefore");
    for (const int count : {0, 3, 2000000000, -1}) {
        QTest::addRow("no file, count %d", count) << QStringLiteral("/proc/self/none.spj") << 53 << count;
        QTest::addRow("no folder, count %d", count) << QStringLiteral("/none/none.spj") << 76 << count;
        QTest::addRow("a folder, count %d", count) << QStringLiteral("/") << 70 << count;
        QTest::addRow("a device, count %d", count) << QStringLiteral("/dev/zero") << 70 << count;
    }
}

void TestProjectFileDamage::aMissingFileLeavesAllButTheMarksOfRows()
{
    QFETCH(QString, path);
    QFETCH(int, countBefore);
    ProjectPointCount = countBefore;
    QTEST(FileReadingError(Slot, path), "error");
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(OldProject()));
    ReferencePoint unused = OldRow();
    unused.Used = false;
    for (int row = 1; row <= 500; ++row)
        QCOMPARE(TextOf(ReferenceTable[Slot][row]), TextOf(unused));
    QCOMPARE(ProjectPointCount, countBefore);
}

void TestProjectFileDamage::aFileThatIsCutOffAnywhereIsReadAsFarAsItGoes()
{
    const QByteArrayList lines = LinesWithRows(" 3 ", 3);
    const QStringList newFields = TextOf(DistinctProject()).split(u'|');
    const QStringList oldFields = TextOf(OldProject()).split(u'|');
    const QByteArray whole = FileOf(lines);
    for (qsizetype length = 0; length < whole.size(); ++length) {
        PutOldContents(Slot);
        ProjectPointCount = 0;
        const QByteArray bytes = whole.first(length);
        ReadingError(Slot, bytes);
        const QStringList fields = TextOf(SensorProjects[Slot]).split(u'|');
        // Lines that end in the file are new, those that do not begin are old.
        const qsizetype ended = bytes.count("\r\n");
        for (qsizetype field = 0; field < fields.size(); ++field) {
            if (field != ended)
                QCOMPARE(fields[field], field < ended ? newFields[field] : oldFields[field]);
        }
        int used = 0;
        for (int row = 1; row <= 3; ++row)
            used += FileOf(lines.first(PointCountLine + 4 * row)).size() - 2 <= length ? 1 : 0;
        QCOMPARE(UsedRows(Slot), used);
    }
}

void TestProjectFileDamage::aByteDamagedAnywhereHarmsNothingElse()
{
    const QByteArray whole = FileOf(LinesWithRows(" 3 ", 3));
    const QByteArray evil("\0\x01 ,\"\r\n-9eT\x80\xE6\xFF", 14);
    for (qsizetype place = 0; place < whole.size(); ++place) {
        for (const char byte : evil) {
            QByteArray bytes = whole;
            bytes[place] = byte;
            ReadingError(Slot, bytes);
            QVERIFY(UsedRows(Slot) <= 500);
        }
        if (place % 16 == 0)
            QVERIFY(SurroundingsAreOld(Slot));
    }
}

void TestProjectFileDamage::noiseHarmsNothing()
{
    QRandomGenerator random(7060);
    static constexpr char letters[] = "0123456789 ,.-+eE\"\r\nTrueFals\0\xE6\xB8\xA9\xCE\xC2";
    for (int time = 0; time < 2000; ++time) {
        QByteArray bytes;
        for (int length = random.bounded(2000); bytes.size() < length;)
            bytes.append(time % 2 == 0 ? static_cast<char>(random.bounded(256))
                                       : letters[random.bounded(int(sizeof letters))]);
        ReadingError(Slot, bytes);
        if (time % 100 == 0)
            QVERIFY(SurroundingsAreOld(Slot));
    }
}

QTEST_GUILESS_MAIN(TestProjectFileDamage)
#include "tst_project_file_damage.moc"
