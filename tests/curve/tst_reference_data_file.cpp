/// @file
/// The bytes of reference data files in both layouts, and the path that a chosen one stands for.
#include "curve/ReferenceDataTable.h"
#include "support/CommaLocale.h"
#include "support/ErrorOf.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

/// The one row of a file, without its line end.
QByteArray RowWritten(const DataRow &row, ReferenceDataLayout layout)
{
    const QByteArray bytes = ReferenceDataBytes(TableOf({row}), 1, layout);
    const QByteArray count = layout == Csv ? " 1 ,,,\r\n" : " 1 \r\n";
    if (!bytes.startsWith(count) || !bytes.endsWith("\r\n"))
        return "no row in " + bytes;
    return bytes.sliced(count.size()).chopped(2);
}

} // namespace

class ReferenceDataFileTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid() && !m_folder->path().contains(u'.'));
    }
    void cleanup() { m_folder.reset(); }

    void a_table_is_written_as_by_hand_data();
    void a_table_is_written_as_by_hand();
    void a_locale_with_a_comma_changes_nothing();
    void numbers_are_written_as_in_a_project_file_data();
    void numbers_are_written_as_in_a_project_file();
    void an_arithmetic_of_any_size_is_written();
    void an_unused_row_below_the_last_is_written();
    void rows_stand_in_the_order_of_the_table();
    void a_full_table_is_written_whole();
    void units_and_definition_are_not_in_the_file();
    void a_file_is_emptied_first();

    void a_path_is_cut_at_its_first_point_data();
    void a_path_is_cut_at_its_first_point();
    void a_file_is_found_in_any_case_data();
    void a_file_is_found_in_any_case();
    void a_name_in_another_case_is_looked_for_in_its_folder_only();
    void a_folder_is_no_file_to_read();

private:
    QString Path(const QString &name) const { return m_folder->path() + u'/' + name; }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void ReferenceDataFileTest::a_table_is_written_as_by_hand_data()
{
    QTest::addColumn<int>("rows");
    QTest::newRow("reference_three_rows") << 3;
    QTest::newRow("reference_wide_items") << 4;
}

void ReferenceDataFileTest::a_table_is_written_as_by_hand()
{
    QFETCH(int, rows);
    const ReferenceRows table = rows == 3 ? ThreeRows() : WideItems();
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(ReferenceDataBytes(table, rows, Csv), DataBytes(name + QStringLiteral(".CSV")));
    QCOMPARE(ReferenceDataBytes(table, rows, Text), DataBytes(name + QStringLiteral(".txt")));
}

void ReferenceDataFileTest::a_locale_with_a_comma_changes_nothing()
{
    const CommaLocale locale;
    QVERIFY(locale.IsInForce());
    QCOMPARE(ReferenceDataBytes(WideItems(), 4, Csv), DataBytes(QStringLiteral("reference_wide_items.CSV")));
    QCOMPARE(ReferenceDataBytes(WideItems(), 4, Text), DataBytes(QStringLiteral("reference_wide_items.txt")));
}

void ReferenceDataFileTest::numbers_are_written_as_in_a_project_file_data()
{
    QTest::addColumn<double>("number");
    const auto row = [](const char *text, double number) { QTest::newRow(text) << number; };
    row(" 0 ", 0);
    row(" 1 ", 1);
    row("-1 ", -1);
    row(" 0.1 ", 0.1);
    row("-0.5 ", -0.5);
    row(" 0.333333333333333 ", 1.0 / 3);
    row(" 123456789012345 ", 123456789012345);
    row(" 1.23456789012346E+15 ", 1234567890123456);
    row(" 0.0001 ", 0.0001);
    row("-1E-05 ", -0.00001);
    row(" 1E-09 ", 1e-9);
    row(" 120000000 ", 1.2e8);
    row(" 1E+300 ", 1e300);
}

void ReferenceDataFileTest::numbers_are_written_as_in_a_project_file()
{
    QFETCH(double, number);
    const QByteArray text(QTest::currentDataTag());
    QCOMPARE(RowWritten({number, 5, true, 0}, Csv), text + ", 5 ,True, 0 ");
    QCOMPARE(RowWritten({5, number, false, 1}, Csv), " 5 ," + text + ",False, 1 ");
    QVERIFY(RowWritten({number, 5, true, 0}, Text).startsWith(text + ' '));
}

/// It enters by the one layout, and leaves by both.
void ReferenceDataFileTest::an_arithmetic_of_any_size_is_written()
{
    QCOMPARE(RowWritten({1, 2, true, -32768}, Csv), " 1 , 2 ,True,-32768 ");
    QCOMPARE(RowWritten({1, 2, true, 7}, Text), " 1             2            True           7 ");
}

void ReferenceDataFileTest::an_unused_row_below_the_last_is_written()
{
    ReferenceRows table = ThreeRows();
    table[2].Used = false;
    QCOMPARE(ReferenceDataBytes(table, 3, Csv), DataBytes(QStringLiteral("reference_three_rows.CSV")));
    QCOMPARE(ReferenceDataBytes(table, 3, Text), DataBytes(QStringLiteral("reference_three_rows.txt")));
}

void ReferenceDataFileTest::rows_stand_in_the_order_of_the_table()
{
    const ReferenceRows table = TableOf({{3, 0, false, 0}, {1, 0, false, 0}, {2, 0, false, 0}});
    QCOMPARE(ReferenceDataBytes(table, 3, Csv), QByteArray(" 3 ,,,\r\n"
                                                           " 3 , 0 ,False, 0 \r\n"
                                                           " 1 , 0 ,False, 0 \r\n"
                                                           " 2 , 0 ,False, 0 \r\n"));
}

void ReferenceDataFileTest::a_full_table_is_written_whole()
{
    ReferenceRows table;
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        table[row].Input = row;
    const QByteArray bytes = ReferenceDataBytes(table, ReferenceRowLimit, Csv);
    QCOMPARE(bytes.count("\r\n"), 501);
    QVERIFY(bytes.startsWith(" 500 ,,,\r\n 1 , 0 ,False, 0 \r\n"));
    QVERIFY(bytes.endsWith("\r\n 500 , 0 ,False, 0 \r\n"));
}

void ReferenceDataFileTest::units_and_definition_are_not_in_the_file()
{
    ReferenceRows table = ThreeRows();
    table[1].InputText = QStringLiteral("mV");
    table[1].OutputText = QStringLiteral("°C");
    QCOMPARE(ReferenceDataBytes(table, 3, Csv), DataBytes(QStringLiteral("reference_three_rows.CSV")));
}

void ReferenceDataFileTest::a_file_is_emptied_first()
{
    const QString path = Path(QStringLiteral("data.CSV"));
    QVERIFY(PutBytes(path, QByteArray(10'000, 'x')));
    WriteReferenceDataFile(path, ThreeRows(), 3, Csv);
    QCOMPARE(BytesOf(path), DataBytes(QStringLiteral("reference_three_rows.CSV")));
    WriteReferenceDataFile(path, ThreeRows(), 3, Text);
    QCOMPARE(BytesOf(path), DataBytes(QStringLiteral("reference_three_rows.txt")));
}

void ReferenceDataFileTest::a_path_is_cut_at_its_first_point_data()
{
    QTest::addColumn<QString>("cut");
    QTest::addColumn<bool>("extended");
    const auto row = [](const char *chosen, const char *cut, bool extended = true) {
        QTest::newRow(chosen) << QString::fromUtf8(cut) << extended;
    };
    row("C:\\v1.2\\x", "C:\\v1");
    row("/home/me/data.CSV", "/home/me/data");
    row("/home/me/data.csv", "/home/me/data");
    row("/home/me/data.txt", "/home/me/data");
    row("/home/me/a.b", "/home/me/a");
    row("/home/me/a.b.c", "/home/me/a");
    row("/home/me/data.", "/home/me/data");
    row("/home/me/.data", "/home/me/");
    row("/home/v1.2/data.CSV", "/home/v1");
    row("/home/.config/data", "/home/");
    row("/home/me/温度.txt", "/home/me/温度");
    row("/home/me/data", "/home/me/data", false);
    row("", "", false);
}

void ReferenceDataFileTest::a_path_is_cut_at_its_first_point()
{
    QFETCH(QString, cut);
    QFETCH(bool, extended);
    const QString chosen = QString::fromUtf8(QTest::currentDataTag());
    QCOMPARE(ReferenceDataPath(chosen, Csv), extended ? cut + QStringLiteral(".CSV") : cut);
    QCOMPARE(ReferenceDataPath(chosen, Text), extended ? cut + QStringLiteral(".txt") : cut);
}

void ReferenceDataFileTest::a_file_is_found_in_any_case_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<QString>("found");
    const auto row = [](const char *name, const QStringList &files, const char *chosen, ReferenceDataLayout layout,
                        const char *found) {
        QTest::newRow(name) << files << QString::fromUtf8(chosen) << layout << QString::fromUtf8(found);
    };
    row("the built path", {"x.CSV"}, "x.CSV", Csv, "x.CSV");
    row("the built path stands first", {"x.CSV", "x.csv"}, "x.csv", Csv, "x.CSV");
    row("lower case", {"x.csv"}, "x.csv", Csv, "x.csv");
    row("lower case by its plain extension", {"x.csv"}, "x.CSV", Csv, "x.csv");
    row("lower case by another extension", {"x.csv"}, "x.dat", Csv, "x.csv");
    row("mixed case", {"X.Csv"}, "x.CSV", Csv, "X.Csv");
    row("upper case text", {"X.TXT"}, "X.TXT", Text, "X.TXT");
    row("the chosen one of several", {"X.csv", "x.csv", "x.Csv"}, "x.csv", Csv, "x.csv");
    row("the first one of several", {"x.csv", "X.csv", "x.Csv"}, "x.dat", Csv, "X.csv");
    row("without a point", {"DATA"}, "data", Csv, "DATA");
    row("hidden", {".CsV"}, ".csv", Csv, ".CsV");
    row("beyond Latin", {"ÄΩ.CSV"}, "äω.csv", Csv, "ÄΩ.CSV");
    row("the filter decides", {"x.csv", "x.txt"}, "x.csv", Text, "x.txt");
    row("none", {"xx.csv", "x.csv.csv", "x"}, "x.csv", Csv, "x.CSV");
    row("empty folder", {}, "x.csv", Csv, "x.CSV");
}

void ReferenceDataFileTest::a_file_is_found_in_any_case()
{
    QFETCH(QStringList, files);
    QFETCH(QString, chosen);
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(QString, found);
    for (const QString &file : files)
        QVERIFY(PutBytes(Path(file), "x"));
    QCOMPARE(NamesIn(m_folder->path()).size(), files.size()); // the file system tells the cases apart
    QCOMPARE(ReferenceDataPathToRead(Path(chosen), layout), Path(found));
}

void ReferenceDataFileTest::a_name_in_another_case_is_looked_for_in_its_folder_only()
{
    QVERIFY(QDir().mkdir(Path(QStringLiteral("sub"))));
    QVERIFY(QDir().mkdir(Path(QStringLiteral("SUB"))));
    QVERIFY(PutBytes(Path(QStringLiteral("SUB/x.csv")), "x"));
    const QString chosen = Path(QStringLiteral("sub/x.csv"));
    QCOMPARE(ReferenceDataPathToRead(chosen, Csv), Path(QStringLiteral("sub/x.CSV")));
    const QString lost = Path(QStringLiteral("none/x.csv"));
    QCOMPARE(ReferenceDataPathToRead(lost, Csv), Path(QStringLiteral("none/x.CSV")));
    // A path that is cut in its folder's name leads to the folder above.
    QVERIFY(QDir().mkdir(Path(QStringLiteral("v1.2"))));
    QVERIFY(PutBytes(Path(QStringLiteral("v1.2/x.csv")), "x"));
    QVERIFY(PutBytes(Path(QStringLiteral("V1.csv")), "x"));
    QCOMPARE(ReferenceDataPathToRead(Path(QStringLiteral("v1.2/x.csv")), Csv), Path(QStringLiteral("V1.csv")));
}

void ReferenceDataFileTest::a_folder_is_no_file_to_read()
{
    QVERIFY(QDir().mkdir(Path(QStringLiteral("x.csv"))));
    QCOMPARE(ReferenceDataPathToRead(Path(QStringLiteral("x.csv")), Csv), Path(QStringLiteral("x.CSV")));
}

QTEST_MAIN(ReferenceDataFileTest)
#include "tst_reference_data_file.moc"
