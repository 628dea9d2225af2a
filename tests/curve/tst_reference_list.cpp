/// @file
/// The lists of reference rows: their texts in both languages, and which of their lines are selected.
#include "curve/ReferenceListModule.h"
#include "support/BareFrame.h"

namespace {

SensorProjFrm &AddListProject(BareFrame &bare, int slot)
{
    SensorProjFrm &form = bare.AddProject(slot);
    form.EditDataView->SetColumnTitles(
        {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")});
    return form;
}

QStringList TextsOfLine(const SensorProjFrm &form, int line)
{
    QStringList texts;
    for (int column = 1; column <= 5; ++column)
        texts.append(form.EditDataView->LineText(line, column));
    return texts;
}

QList<int> SelectedLines(const SensorProjFrm &form)
{
    QList<int> lines;
    for (int line = 1; line <= form.EditDataView->LineCount(); ++line) {
        if (form.EditDataView->LineSelected(line))
            lines.append(line);
    }
    return lines;
}

} // namespace

class ReferenceListTest : public QObject {
    Q_OBJECT

private slots:
    void a_line_tells_its_row_in_both_languages_data();
    void a_line_tells_its_row_in_both_languages();
    void numbers_take_the_format_of_the_table_data();
    void numbers_take_the_format_of_the_table();
    void a_row_of_zeros_shows_them();
    void a_refresh_shows_the_numbers_of_now();
    void there_is_one_line_for_each_used_row();
    void lines_of_a_table_with_gaps_go_by_their_rows();
    void marks_in_a_table_with_gaps_go_by_row();
    void a_full_table_has_500_lines();
    void marked_rows_are_selected();
    void a_mark_of_row_1_shows_in_a_list_of_one_line_only();
    void shift_and_an_arrow_add_to_marked_rows_data();
    void shift_and_an_arrow_add_to_marked_rows();
    void the_lists_of_all_open_projects_are_rebuilt();
    void slots_from_the_project_count_on_are_left_alone();
    void the_list_of_a_built_in_sensor_is_emptied();
    void a_slot_without_a_window_is_passed_over();
    void lines_change_their_language_where_they_stand();
};

void ReferenceListTest::a_line_tells_its_row_in_both_languages_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<bool>("segment");
    QTest::addColumn<int>("arithmetic");
    QTest::addColumn<QString>("arithmeticText");
    QTest::addColumn<QString>("segmentText");
    QTest::newRow("English line") << 1 << true << 0 << QStringLiteral("Line") << QStringLiteral("Yes");
    QTest::newRow("English least") << 1 << true << 1 << QStringLiteral("Least") << QStringLiteral("Yes");
    QTest::newRow("English inner line") << 1 << false << 0 << QString() << QStringLiteral("No");
    QTest::newRow("English inner least") << 1 << false << 1 << QString() << QStringLiteral("No");
    QTest::newRow("Chinese line") << 0 << true << 0 << QStringLiteral("线性插值") << QStringLiteral("是");
    QTest::newRow("Chinese least") << 0 << true << 1 << QStringLiteral("曲线拟和") << QStringLiteral("是");
    QTest::newRow("Chinese inner") << 0 << false << 1 << QString() << QStringLiteral("否");
}

void ReferenceListTest::a_line_tells_its_row_in_both_languages()
{
    QFETCH(int, language);
    QFETCH(bool, segment);
    QFETCH(int, arithmetic);
    QFETCH(QString, arithmeticText);
    QFETCH(QString, segmentText);
    BareFrame bare;
    CurrentLanguage = language;
    const SensorProjFrm &form = AddListProject(bare, 0);
    PutRow(0, 1, 1, -2.5, segment, static_cast<std::int16_t>(arithmetic));
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineCount(), 1);
    QCOMPARE(TextsOfLine(form, 1), (QStringList{QStringLiteral("1"), QStringLiteral("1.0"), QStringLiteral("-2.5"),
                                                arithmeticText, segmentText}));
}

void ReferenceListTest::numbers_take_the_format_of_the_table_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    QTest::newRow("six decimals") << 0.1234567 << QStringLiteral("0.123457");
    QTest::newRow("exponent in the general form") << 0.00001 << QStringLiteral("0.00001");
    QTest::newRow("large") << 120000000.0 << QStringLiteral("120000000.0");
    // The general form has 15 digits, so that a sum that misses its value by the last bit shows none of it.
    QTest::newRow("15 digits") << 0.1 + 0.2 << QStringLiteral("0.3");
    QTest::newRow("too small") << -1e-9 << QStringLiteral("0.0");
}

void ReferenceListTest::numbers_take_the_format_of_the_table()
{
    QFETCH(double, number);
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    PutRow(0, 1, number, number);
    RefreshReferenceLists();
    QTEST(form.EditDataView->LineText(1, 2), "text");
    QTEST(form.EditDataView->LineText(1, 3), "text");
}

void ReferenceListTest::a_row_of_zeros_shows_them()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 9); // no other test has shown a number there
    ProjectCount = 10;
    PutRow(9, 1, 0, 0);
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineText(1, 2), QStringLiteral("0.0"));
    QCOMPARE(form.EditDataView->LineText(1, 3), QStringLiteral("0.0"));
}

void ReferenceListTest::a_refresh_shows_the_numbers_of_now()
{
    BareFrame bare;
    const SensorProjFrm &first = AddListProject(bare, 0);
    const SensorProjFrm &second = AddListProject(bare, 1);
    const auto numbers = [](const SensorProjFrm &form, int line) { return TextsOfLine(form, line).mid(1, 2); };
    PutRow(0, 1, 1, 10);
    PutRow(0, 2, 2, 20);
    PutRow(1, 1, 1, 30);
    RefreshReferenceLists();
    PutRow(0, 1, 1, 11);
    PutRow(0, 2, 3, 20);
    RefreshReferenceLists();
    QCOMPARE(numbers(first, 1), (QStringList{u"1.0"_qs, u"11.0"_qs}));
    QCOMPARE(numbers(first, 2), (QStringList{u"3.0"_qs, u"20.0"_qs}));
    QCOMPARE(numbers(second, 1), (QStringList{u"1.0"_qs, u"30.0"_qs}));
    // Row 2 moves up and takes its numbers along.
    std::swap(ReferenceTable[0][1], ReferenceTable[0][2]);
    ReferenceTable[0][2].Used = false;
    RefreshReferenceLists();
    QCOMPARE(first.EditDataView->LineCount(), 1);
    QCOMPARE(numbers(first, 1), (QStringList{u"3.0"_qs, u"20.0"_qs}));
}

void ReferenceListTest::there_is_one_line_for_each_used_row()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    PutRow(0, 1, 10, 1);
    PutRow(0, 2, 20, 2);
    ReferenceTable[0][3].Input = 30;
    RefreshReferenceLists();
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineCount(), 2);
    QCOMPARE(form.EditDataView->LineText(2, 2), QStringLiteral("20.0"));
}

void ReferenceListTest::lines_of_a_table_with_gaps_go_by_their_rows()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    CurrentLanguage = LanguageEnglish;
    PutRow(0, 2, 20, 1); // as a file can bring them in
    PutRow(0, 5, 50, 2, true, 1);
    PutRow(0, 500, 5000, 3, true, 0);
    RefreshReferenceLists();
    QCOMPARE(TextsOfLine(form, 1), (QStringList{u"2"_qs, u"20.0"_qs, u"1.0"_qs, QString(), u"No"_qs}));
    QCOMPARE(TextsOfLine(form, 2), (QStringList{u"5"_qs, u"50.0"_qs, u"2.0"_qs, u"Least"_qs, u"Yes"_qs}));
    QCOMPARE(TextsOfLine(form, 3), (QStringList{u"500"_qs, u"5000.0"_qs, u"3.0"_qs, u"Line"_qs, u"Yes"_qs}));

    CurrentLanguage = LanguageChinese;
    TranslateReferenceLists();
    QCOMPARE(TextsOfLine(form, 1), (QStringList{u"2"_qs, u"20.0"_qs, u"1.0"_qs, QString(), u"否"_qs}));
    QCOMPARE(TextsOfLine(form, 2), (QStringList{u"5"_qs, u"50.0"_qs, u"2.0"_qs, u"曲线拟和"_qs, u"是"_qs}));
}

void ReferenceListTest::marks_in_a_table_with_gaps_go_by_row()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    for (const int row : {2, 5, 9, 500})
        PutRow(0, row, row, row);
    RowMarks[3] = true; // of a row that is not used
    RowMarks[5] = true;
    RowMarks[500] = true;
    RefreshReferenceLists();
    QCOMPARE(SelectedLines(form), (QList<int>{2, 4}));
}

void ReferenceListTest::a_full_table_has_500_lines()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        PutRow(0, row, row, row);
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineCount(), 500);
    QCOMPARE(form.EditDataView->LineText(500, 1), QStringLiteral("500"));
}

void ReferenceListTest::marked_rows_are_selected()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    for (int row = 1; row <= 5; ++row)
        PutRow(0, row, row, row);
    RowMarks[2] = true;
    RowMarks[5] = true;
    RefreshReferenceLists();
    QCOMPARE(SelectedLines(form), (QList<int>{2, 5}));
    RowMarks.fill(false);
    RefreshReferenceLists();
    QCOMPARE(SelectedLines(form), QList<int>());
}

void ReferenceListTest::a_mark_of_row_1_shows_in_a_list_of_one_line_only()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    RowMarks[1] = true;
    PutRow(0, 1, 1, 1);
    RefreshReferenceLists();
    QCOMPARE(SelectedLines(form), QList<int>{1});
    PutRow(0, 2, 2, 2);
    RefreshReferenceLists();
    QCOMPARE(SelectedLines(form), QList<int>());
}

void ReferenceListTest::shift_and_an_arrow_add_to_marked_rows_data()
{
    QTest::addColumn<QList<int>>("marked");
    QTest::addColumn<int>("walked"); // lines down, nothing selected on the way
    QTest::addColumn<QList<int>>("selected");
    QTest::newRow("at the mark") << QList<int>{3} << 0 << QList<int>{3, 4};
    QTest::newRow("away from it") << QList<int>{3} << 2 << QList<int>{3, 5, 6};
    QTest::newRow("row 1 stays off") << QList<int>{1, 3} << 0 << QList<int>{3, 4};
}

void ReferenceListTest::shift_and_an_arrow_add_to_marked_rows()
{
    QFETCH(QList<int>, marked);
    QFETCH(int, walked);
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    for (int row = 1; row <= 6; ++row)
        PutRow(0, row, row, row);
    for (const int row : marked)
        RowMarks[row] = true;
    RefreshReferenceLists();
    for (int line = 0; line < walked; ++line)
        QTest::keyClick(form.EditDataView, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(form.EditDataView, Qt::Key_Down, Qt::ShiftModifier);
    QTEST(SelectedLines(form), "selected");
}

void ReferenceListTest::the_lists_of_all_open_projects_are_rebuilt()
{
    BareFrame bare;
    const SensorProjFrm &first = AddListProject(bare, 0);
    const SensorProjFrm &second = AddListProject(bare, 1);
    PutRow(0, 1, 1, 1);
    PutRow(0, 2, 2, 2);
    PutRow(1, 1, 3, 3);
    PutRow(1, 2, 4, 4);
    RowMarks[2] = true;
    RefreshReferenceLists();
    QCOMPARE(first.EditDataView->LineText(1, 2), QStringLiteral("1.0"));
    QCOMPARE(second.EditDataView->LineText(1, 2), QStringLiteral("3.0"));
    // The marks belong to no project.
    QCOMPARE(SelectedLines(first), QList<int>{2});
    QCOMPARE(SelectedLines(second), QList<int>{2});
}

void ReferenceListTest::slots_from_the_project_count_on_are_left_alone()
{
    BareFrame bare;
    const SensorProjFrm &first = AddListProject(bare, 0);
    const SensorProjFrm &third = AddListProject(bare, 2);
    QCOMPARE(ProjectCount, std::int16_t{2});
    PutRow(0, 1, 1, 1);
    PutRow(2, 1, 1, 1);
    RefreshReferenceLists();
    QCOMPARE(first.EditDataView->LineCount(), 1);
    QCOMPARE(third.EditDataView->LineCount(), 0);
}

void ReferenceListTest::the_list_of_a_built_in_sensor_is_emptied()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 0);
    PutRow(0, 1, 1, 1);
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineCount(), 1);
    SensorProjects[0].IsBuiltInSensor = true;
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineCount(), 0);
}

void ReferenceListTest::a_slot_without_a_window_is_passed_over()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 1);
    ProjectCount = 2;
    PutRow(0, 1, 1, 1);
    PutRow(1, 1, 7, 7);
    RefreshReferenceLists();
    QCOMPARE(form.EditDataView->LineText(1, 2), QStringLiteral("7.0"));
}

void ReferenceListTest::lines_change_their_language_where_they_stand()
{
    BareFrame bare;
    const SensorProjFrm &form = AddListProject(bare, 4); // also beyond the count of open projects
    CurrentLanguage = LanguageEnglish;
    ProjectCount = 5;
    PutRow(4, 1, 1, 10, true, 0);
    PutRow(4, 2, 2, 20);
    PutRow(4, 3, 3, 30, true, 1);
    RefreshReferenceLists();
    form.EditDataView->SelectLine(2, true);
    ProjectCount = 1;

    CurrentLanguage = LanguageChinese;
    TranslateReferenceLists();
    QCOMPARE(TextsOfLine(form, 1), (QStringList{u"1"_qs, u"1.0"_qs, u"10.0"_qs, u"线性插值"_qs, u"是"_qs}));
    QCOMPARE(TextsOfLine(form, 2), (QStringList{u"2"_qs, u"2.0"_qs, u"20.0"_qs, QString(), u"否"_qs}));
    QCOMPARE(TextsOfLine(form, 3), (QStringList{u"3"_qs, u"3.0"_qs, u"30.0"_qs, u"曲线拟和"_qs, u"是"_qs}));
    QCOMPARE(SelectedLines(form), QList<int>{2});

    CurrentLanguage = LanguageEnglish;
    TranslateReferenceLists();
    QCOMPARE(TextsOfLine(form, 3), (QStringList{u"3"_qs, u"3.0"_qs, u"30.0"_qs, u"Least"_qs, u"Yes"_qs}));
}

QTEST_MAIN(ReferenceListTest)
#include "tst_reference_list.moc"
