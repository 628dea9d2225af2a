/// @file
/// Reference tables that leave by the one button and come back by the other, through both file dialogues.
#include "curve/RandomReferenceRows.h"
#include "curve/ReferenceFileBench.h"

#include <map>
#include <memory>

namespace {

/// What the files reference_extreme_numbers are made of.
ReferenceRows ExtremeTable()
{
    return TableOf({{MostKept, -std::numeric_limits<double>::denorm_min(), true, 0},
                    {-std::numeric_limits<double>::min(), 0.1 + 0.2, false, 1},
                    {1.0 / 3, -999999999999999, true, 1},
                    {1e15, 0.0001, false, 0},
                    {-0.00001, 123456789012345.6, true, 0}});
}

/// The same by 15 digits, as the import sorts it.
ReferenceRows ExtremeTableBack()
{
    return TableOf({{-0.00001, 123456789012346, true, 0},
                    {-2.2250738585072E-308, 0.3, false, 1},
                    {0.333333333333333, -999999999999999, true, 1},
                    {1e15, 0.0001, false, 0},
                    {1.79769313486231E+308, -4.94065645841247E-324, true, 0}});
}

/// Rows of inputs that differ in a file, too, in ascending order.
QList<DataRow> RandomRows(QRandomGenerator &random, qsizetype count, ReferenceDataLayout layout)
{
    std::map<double, DataRow> rows;
    while (std::ssize(rows) < count) {
        const DataRow row = RandomRow(random, layout);
        rows.emplace(Kept(row.Input), row);
    }
    QList<DataRow> list;
    for (const auto &[input, row] : rows)
        list.append(row);
    return list;
}

} // namespace

class ReferenceExportImportTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ReferenceFileBench>();
        QVERIFY(m_bench->FolderIsFit());
    }
    void cleanup() { m_bench.reset(); }

    void a_table_is_carried_to_another_project_data();
    void a_table_is_carried_to_another_project();
    void items_that_fill_their_zones_come_back_data();
    void items_that_fill_their_zones_come_back();
    void extreme_numbers_come_back_by_15_digits_data();
    void extreme_numbers_come_back_by_15_digits();
    void random_tables_come_back_data();
    void random_tables_come_back();
    void an_unused_row_comes_back_used_data();
    void an_unused_row_comes_back_used();
    void another_arithmetic_comes_back_from_csv_only_data();
    void another_arithmetic_comes_back_from_csv_only();
    void a_number_that_rounds_beyond_double_does_not_come_back_data();
    void a_number_that_rounds_beyond_double_does_not_come_back();

private:
    /// Exports the project's table. @return the bytes of the file, which is typed by another extension than it gets
    QByteArray Export(const QString &name, ReferenceDataLayout layout)
    {
        const BoxAnswers none;
        ClickAndAnswer(m_bench->project.ExportLumoBtn, m_bench->Path(name + QStringLiteral(".x")), layout);
        return BytesOf(m_bench->Path(name + (layout == Csv ? QStringLiteral(".CSV") : QStringLiteral(".txt"))));
    }

    /// Empties the table and imports what Export has made.
    void ImportIntoEmptyTable(const QString &name, ReferenceDataLayout layout)
    {
        m_bench->PutTable({});
        m_bench->Import(name + QStringLiteral(".x"), layout);
    }

    std::unique_ptr<ReferenceFileBench> m_bench;
};

void ReferenceExportImportTest::a_table_is_carried_to_another_project_data()
{
    AddLayouts();
}

void ReferenceExportImportTest::a_table_is_carried_to_another_project()
{
    QFETCH(ReferenceDataLayout, layout);
    m_bench->PutTable(ThreeRows());
    const QByteArray bytes = Export(QStringLiteral("data"), layout);
    QVERIFY(bytes.startsWith(layout == Csv ? " 3 ,,,\r\n" : " 3 \r\n"));
    QCOMPARE(bytes.count(','), layout == Csv ? 3 + 3 * 3 : 0);
    QCOMPARE(bytes.count("\r\n"), 4);
    const SensorProjFrm &other = m_bench->AddFileProject(1);
    const BoxAnswers none;
    ClickAndAnswer(other.ImportLumoBtn, m_bench->Path(QStringLiteral("data.x")), layout);
    QCOMPARE(UsedRows(ReferenceTable[1]), UsedRows(ThreeRows()));
    QCOMPARE(other.EditDataView->LineCount(), 3);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(!m_bench->project.UndoLumoBtn->isEnabled());
}

void ReferenceExportImportTest::items_that_fill_their_zones_come_back_data()
{
    AddLayouts();
}

void ReferenceExportImportTest::items_that_fill_their_zones_come_back()
{
    QFETCH(ReferenceDataLayout, layout);
    m_bench->PutTable(WideItems()); // ascending
    const QString file =
        layout == Csv ? QStringLiteral("reference_wide_items.CSV") : QStringLiteral("reference_wide_items.txt");
    QCOMPARE(Export(QStringLiteral("data"), layout), DataBytes(file));
    ImportIntoEmptyTable(QStringLiteral("data"), layout);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(WideItems()));
}

void ReferenceExportImportTest::extreme_numbers_come_back_by_15_digits_data()
{
    AddLayouts();
}

void ReferenceExportImportTest::extreme_numbers_come_back_by_15_digits()
{
    QFETCH(ReferenceDataLayout, layout);
    m_bench->PutTable(ExtremeTable());
    const QString file = layout == Csv ? QStringLiteral("reference_extreme_numbers.CSV")
                                       : QStringLiteral("reference_extreme_numbers.txt");
    QCOMPARE(Export(QStringLiteral("data"), layout), DataBytes(file));
    ImportIntoEmptyTable(QStringLiteral("data"), layout);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ExtremeTableBack()));
}

void ReferenceExportImportTest::random_tables_come_back_data()
{
    AddLayouts();
}

void ReferenceExportImportTest::random_tables_come_back()
{
    QFETCH(ReferenceDataLayout, layout);
    QRandomGenerator random(20240229);
    for (const int count : {1, 2, 3, 50, 499, 500}) {
        ReferenceRows table;
        ReferenceRows expected;
        int number = 0;
        for (const DataRow &row : RandomRows(random, count, layout)) {
            table[++number] = TableOf({row})[1];
            expected[number] = TableOf({KeptRow(row)})[1];
        }
        m_bench->PutTable(table);
        const QString name = QStringLiteral("data %1").arg(count);
        QCOMPARE(Export(name, layout).count("\r\n"), count + 1);
        ImportIntoEmptyTable(name, layout);
        QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(expected));
        QCOMPARE(m_bench->project.EditDataView->LineCount(), count);
    }
}

void ReferenceExportImportTest::an_unused_row_comes_back_used_data()
{
    AddLayouts();
}

void ReferenceExportImportTest::an_unused_row_comes_back_used()
{
    QFETCH(ReferenceDataLayout, layout);
    ReferenceRows table = ThreeRows();
    table[2].Used = false;
    m_bench->PutTable(table);
    QCOMPARE(Export(QStringLiteral("data"), layout).count("\r\n"), 4);
    ImportIntoEmptyTable(QStringLiteral("data"), layout);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
}

void ReferenceExportImportTest::another_arithmetic_comes_back_from_csv_only_data()
{
    QTest::addColumn<int>("arithmetic");
    QTest::newRow("greatest") << 32767;
    QTest::newRow("least") << -32768;
    QTest::newRow("neither") << 2;
}

/// It has come by that layout. The other one writes it, too, and then refuses it.
void ReferenceExportImportTest::another_arithmetic_comes_back_from_csv_only()
{
    QFETCH(int, arithmetic);
    const ReferenceRows table = TableOf({{1, 2, true, static_cast<std::int16_t>(arithmetic)}});
    m_bench->PutTable(table);
    QVERIFY(Export(QStringLiteral("data"), Csv).contains(QByteArray::number(arithmetic) + " \r\n"));
    QVERIFY(Export(QStringLiteral("data"), Text).endsWith(QByteArray::number(arithmetic) + " \r\n"));
    ImportIntoEmptyTable(QStringLiteral("data"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(table));
    BoxAnswers answers({QMessageBox::Ok});
    ClickAndAnswer(m_bench->project.ImportLumoBtn, m_bench->Path(QStringLiteral("data.x")), Text);
    CompareWarning(answers.Shown(), wrongArithmetic);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(table));
}

void ReferenceExportImportTest::a_number_that_rounds_beyond_double_does_not_come_back_data()
{
    AddLayouts();
}

/// 15 digits of the greatest double are more than it is; the import ends silently.
void ReferenceExportImportTest::a_number_that_rounds_beyond_double_does_not_come_back()
{
    QFETCH(ReferenceDataLayout, layout);
    m_bench->PutTable(TableOf({{std::numeric_limits<double>::max(), 1, false, 0}}));
    QVERIFY(Export(QStringLiteral("data"), layout).contains("\r\n 1.79769313486232E+308 "));
    m_bench->PutTable(ThreeRows());
    m_bench->Import(QStringLiteral("data.x"), layout);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
    QVERIFY(!m_bench->project.UndoLumoBtn->isEnabled());
}

QTEST_MAIN(ReferenceExportImportTest)
#include "tst_reference_export_import.moc"
