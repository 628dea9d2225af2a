/// @file
/// The project file as it is written and read back: names, lines, one file made by hand for each type of sensor, and
/// random projects. Numbers are the same under a German locale, where the decimal point is a comma.
#include "project/ProjectFileBench.h"
#include "support/CommaLocale.h"
#include "support/ErrorOf.h"
#include "support/FileBytes.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <bit>
#include <cmath>
#include <memory>

namespace {

constexpr int Slot = 4;

ReferencePoint Row(double input, double output, bool segment = false, std::int16_t arithmetic = 0, bool used = true)
{
    return {used, input, QStringLiteral("not in the file"), output, QStringLiteral("nor this"), segment, arithmetic};
}

using Rows = QList<ReferencePoint>; // from row 1

SensorProject PlainSensor(const char *name, std::int32_t function, const char *input, const char *output, float scale)
{
    SensorProject project;
    project.SensorName = QString::fromUtf8(name);
    project.MeasFunction = function;
    project.InputUnit = QString::fromUtf8(input);
    project.OutputUnit = QString::fromUtf8(output);
    project.InputUnitScale = scale;
    return project;
}

SensorProject BuiltInSensor(const char *name, std::int32_t function, const char *unit, std::uint8_t kind)
{
    SensorProject project = PlainSensor(name, function, unit, unit, 1);
    project.IsBuiltInSensor = true;
    std::copy_n(name, qstrlen(name), project.SensorTypeChars.begin());
    project.UnitChars[0] = static_cast<std::uint8_t>(unit[0]);
    project.BuiltInKind = kind;
    return project;
}

SensorProject Strain()
{
    SensorProject project = PlainSensor("Strain", 4, "kohm", "xy", 0.001F);
    project.OutputUnitIsUser = 1;
    return project;
}

SensorProject Thermocouple()
{
    SensorProject project = BuiltInSensor("TypeK", 0, "C", 0);
    project.TcLetterCode = 3;
    return project;
}

SensorProject TwoWireRtd()
{
    SensorProject project = BuiltInSensor("Pt100_2", 4, "F", 1);
    project.RtdR0 = 100;
    return project;
}

SensorProject FourWireRtd()
{
    SensorProject project = BuiltInSensor("Pt1000_4", 5, "K", 1);
    project.OutputUnitIsUser = 1;
    project.RtdR0 = 1000.25F;
    project.RtdCode = 3;
    return project;
}

SensorProject Thermistor()
{
    SensorProject project = BuiltInSensor("ABCDEFGHIJKLMNOPQRST", 4, "C", 2);
    project.ThermistorOhms = 10000;
    return project;
}

const Rows StrainRows{Row(1, 10),
                      Row(2, 20, true, 1),
                      Row(0, 0, false, 0, false),
                      Row(4.25, -1e-7, true, 1, false),
                      Row(0, 0, false, 0, false),
                      Row(0, 0, false, 0, false),
                      Row(7, 1e20)};

/// Random contents of projects, the same in each run.
class RandomProjects {
public:
    void Fill(int slot)
    {
        SensorProject &project = SensorProjects[slot];
        project.SensorName = Text();
        project.MeasFunction = static_cast<std::int32_t>(m_random.generate());
        project.IsThermocouple = Byte();
        project.InputUnit = Text();
        project.OutputUnit = Text();
        project.OutputUnitIsUser = Byte();
        project.InputUnitScale = Single();
        project.IsBuiltInSensor = Coin();
        std::ranges::generate(project.SensorTypeChars, [this] { return Byte(); });
        std::ranges::generate(project.UnitChars, [this] { return Byte(); });
        project.BuiltInKind = Byte();
        project.RtdCode = Byte();
        project.ThermistorOhms = Integer16();
        project.RtdR0 = Single();
        project.TcLetterCode = Byte();
        const int rows = m_random.bounded(100) == 0 ? 500 : m_random.bounded(12);
        for (int row = 1; row <= 500; ++row) {
            ReferenceTable[slot][row] =
                row <= rows ? Row(Double(), Double(), Coin(), Integer16(), Coin()) : ReferencePoint{};
        }
    }

private:
    bool Coin() { return m_random.bounded(2) == 1; }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(m_random.bounded(256)); }
    std::int16_t Integer16() { return static_cast<std::int16_t>(m_random.bounded(-32768, 32768)); }

    float Single()
    {
        for (;;) {
            const float value = std::bit_cast<float>(m_random.generate());
            if (std::isfinite(value))
                return value;
        }
    }

    double Double()
    {
        const double value = m_random.generateDouble() * 2 - 1;
        switch (m_random.bounded(4)) {
        case 0:
            return std::round(value * 1000);
        case 1:
            return value * std::pow(10.0, m_random.bounded(-300, 300));
        default:
            return value * 100;
        }
    }

    /// Without what would end or begin a value: commas, line ends, blanks or quotes ahead.
    QString Text()
    {
        static const QString letters = QStringLiteral("AZaz09_. %;\"'\t温度℃µ\u0001");
        QString text;
        for (int length = m_random.bounded(12); text.size() < length;) {
            const QChar letter = letters[m_random.bounded(letters.size())];
            if (!text.isEmpty() || !QStringLiteral(" \t\"").contains(letter))
                text += letter;
        }
        return text;
    }

    QRandomGenerator m_random{20240229};
};

} // namespace

class TestProjectFile : public QObject {
    Q_OBJECT

private slots:
    void init() { ResetProjectTable(); }

    void theNameIsTheFilesUpToTheFirstPoint_data();
    void theNameIsTheFilesUpToTheFirstPoint();
    void eachTypeOfSensorHasItsFile_data();
    void eachTypeOfSensorHasItsFile();
    void eachTypeOfSensorIsReadFromItsFile_data() { eachTypeOfSensorHasItsFile_data(); }
    void eachTypeOfSensorIsReadFromItsFile();
    void eachFieldHasItsLine();
    void aFileHasFiftyLinesAndFourARow_data();
    void aFileHasFiftyLinesAndFourARow();
    void unusedRowsAmongTheUsedComeBackUnused();
    void rowTextsAreNotInTheFile();
    void aSlotOutsideTheTableIsOutOfRange();
    void randomProjectsComeBack();
};

void TestProjectFile::theNameIsTheFilesUpToTheFirstPoint_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *path, const char *name) {
        QTest::newRow(path) << QString::fromUtf8(path) << QString::fromUtf8(name);
    };
    row("/home/user/Pressure.spj", "Pressure");
    row("Pressure.spj", "Pressure");
    row("a.b.spj", "a");
    row("/x/a..spj", "a");
    row("/x/project", "project");
    row("/v1.2/x/project", "project");
    row("/v1.2/x/project.spj", "project");
    row("../project.spj", "project");
    row("/x/.spj", "");
    row("/x.y/", "");
    row("", "");
    row("/x/温度 传感器.spj", "温度 传感器");
    row("/温.度/压力.一.spj", "压力");
#ifdef Q_OS_WIN
    row("C:\\v1.2\\Pressure.spj", "Pressure");
    row("C:/v1.2\\a/Pressure.spj", "Pressure");
#else
    row("/x/a\\b.spj", "a\\b"); // here a letter like any other
#endif
    const QString longest(251, u'a');
    QTest::newRow("255 bytes") << QString(u'/' + longest + QStringLiteral(".spj")) << longest;
}

void TestProjectFile::theNameIsTheFilesUpToTheFirstPoint()
{
    QFETCH(QString, path);
    QTEST(ProjectNameOfPath(path), "name");
}

void TestProjectFile::eachTypeOfSensorHasItsFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<SensorProject>("project");
    QTest::addColumn<Rows>("rows");
    const auto row = [](const char *name, const char *file, const SensorProject &project, const Rows &rows = {}) {
        QTest::newRow(name) << QString::fromLatin1(file) << project << rows;
    };
    row("DCV", "dcv.spj", PlainSensor("Press_1", 0, "V", "kPa", 1),
        {Row(0, 0, true), Row(1.5, 20), Row(2.5, -0.125, false, 1)});
    row("DCI, no output unit", "dci.spj", PlainSensor("Loop_420", 2, "mA", "", 1000), {Row(4, -40), Row(20, 85)});
    row("2WR, user's unit, rows 1, 2 and 7 used", "2wr.spj", Strain(), StrainRows);
    row("4WR", "4wr.spj", PlainSensor("Wire4", 5, "ohm", "N", 1), {Row(-1.0 / 3, 123456789012345, true)});
    row("Frequency", "frequency.spj", PlainSensor("Flow", 9, "MHz", "m", 1e-6F));
    row("TC on kind 1", "tc_kind_1.spj", PlainSensor("TypeK", 10, "mV", "J", 1000));
    row("TC on kind 2", "tc_kind_2.spj", Thermocouple());
    row("RTD-2WR", "rtd_2wr.spj", TwoWireRtd());
    row("RTD-4WR", "rtd_4wr.spj", FourWireRtd());
    row("THERM, name of 20", "therm.spj", Thermistor());
}

void TestProjectFile::eachTypeOfSensorHasItsFile()
{
    QFETCH(QString, file);
    QFETCH(SensorProject, project);
    QFETCH(Rows, rows);
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    SensorProjects[Slot] = project;
    std::ranges::copy(rows, ReferenceTable[Slot].begin() + 1);
    const QTemporaryDir folder;
    WriteProjectFile(Slot, folder.filePath(file));
    QCOMPARE(BytesOf(folder.filePath(file)), BytesOf(QStringLiteral(OSTRAKON_TEST_DATA "/") + file));
    QCOMPARE(ProjectPointCount, static_cast<std::int32_t>(rows.size()));
}

void TestProjectFile::eachTypeOfSensorIsReadFromItsFile()
{
    QFETCH(QString, file);
    QFETCH(SensorProject, project);
    QFETCH(Rows, rows);
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    PutOldContents(Slot);
    QCOMPARE(FileReadingError(Slot, QStringLiteral(OSTRAKON_TEST_DATA "/") + file), 0);
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(project));
    QCOMPARE(ProjectPointCount, static_cast<std::int32_t>(rows.size()));
    for (int row = 1; row <= 500; ++row) {
        ReferencePoint expected = row <= rows.size() ? rows[row - 1] : OldRow();
        expected.Used = row <= rows.size() && expected.Used;
        expected.InputText = expected.OutputText = OldRow().InputText;
        QCOMPARE(TextOf(ReferenceTable[Slot][row]), TextOf(expected));
    }
    QVERIFY(SurroundingsAreOld(Slot));
}

void TestProjectFile::eachFieldHasItsLine()
{
    SensorProjects[Slot] = DistinctProject();
    QCOMPARE(ProjectFileBytes(Slot), FileOf(DistinctLines(" 0 ")));
    PutOldContents(Slot);
    QCOMPARE(ReadingError(Slot, FileOf(DistinctLines(" 0 "))), 0);
    QCOMPARE(TextOf(SensorProjects[Slot]), TextOf(DistinctProject()));
}

void TestProjectFile::aFileHasFiftyLinesAndFourARow_data()
{
    QTest::addColumn<int>("rows");
    for (const int rows : {0, 1, 2, 7, 499, 500})
        QTest::addRow("%d rows", rows) << rows;
}

void TestProjectFile::aFileHasFiftyLinesAndFourARow()
{
    QFETCH(int, rows);
    SensorProjects[Slot] = DistinctProject();
    for (int row = 1; row <= rows; ++row)
        ReferenceTable[Slot][row] = Row(row, -row - 0.5, row % 2 == 0, row % 3 == 0 ? 1 : 0);
    const QByteArray bytes = ProjectFileBytes(Slot);
    QCOMPARE(bytes.count("\r\n"), 50 + 4 * rows);
    QCOMPARE(bytes.count('\n'), 50 + 4 * rows);
    QCOMPARE(bytes, FileOf(LinesWithRows(" " + QByteArray::number(rows) + " ", rows)));
}

void TestProjectFile::unusedRowsAmongTheUsedComeBackUnused()
{
    std::ranges::copy(StrainRows, ReferenceTable[Slot].begin() + 1);
    const QByteArray bytes = ProjectFileBytes(Slot);
    PutOldContents(Slot);
    QCOMPARE(ReadingError(Slot, bytes), 0);
    QList<int> used;
    for (int row = 1; row <= 500; ++row) {
        if (ReferenceTable[Slot][row].Used)
            used.append(row);
    }
    QCOMPARE(used, QList<int>({1, 2, 7}));
    QCOMPARE(ReferenceTable[Slot][4].Input, 4.25);
    QVERIFY(ReferenceTable[Slot][4].Segment);
    QCOMPARE(LastUsedRow(Slot), 7);
}

void TestProjectFile::rowTextsAreNotInTheFile()
{
    ReferenceTable[Slot][1] = Row(1, 2);
    const QByteArray bytes = ProjectFileBytes(Slot);
    QVERIFY(!bytes.contains("not in the file"));
    QVERIFY(!bytes.contains("nor this"));
}

void TestProjectFile::aSlotOutsideTheTableIsOutOfRange()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file.spj"));
    for (const int slot : {-1, 10, 32767}) {
        QCOMPARE(ErrorOf([&] { WriteProjectFile(slot, path); }), 9);
        QCOMPARE(ErrorOf([&] { FileReadingError(slot, path); }), 9);
        QCOMPARE(ErrorOf([&] { ReadingError(slot, "Name"); }), 9);
    }
    QVERIFY(NamesIn(folder.path()).isEmpty());
}

/// Equal in the digits that the file keeps: 15 of a double, 7 of a single.
void TestProjectFile::randomProjectsComeBack()
{
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    RandomProjects projects;
    for (int time = 0; time < 10'000; ++time) {
        projects.Fill(0);
        const QByteArray bytes = ProjectFileBytes(0);
        QCOMPARE(ReadingError(1, bytes), 0);
        QCOMPARE(TextOf(SensorProjects[1]), TextOf(SensorProjects[0]));
        for (int row = 1; row <= LastUsedRow(0); ++row) {
            ReferencePoint expected = ReferenceTable[0][row];
            expected.InputText = expected.OutputText = QString();
            QCOMPARE(TextOf(ReferenceTable[1][row]), TextOf(expected));
        }
        QCOMPARE(LastUsedRow(1), LastUsedRow(0));
        QCOMPARE(ProjectFileBytes(1), bytes);
    }
}

QTEST_GUILESS_MAIN(TestProjectFile)
#include "tst_project_file.moc"
