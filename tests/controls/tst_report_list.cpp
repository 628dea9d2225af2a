/// @file
/// The list in report mode: lines, selection, and where the mouse was.
#include "controls/ReportList.h"
#include "support/ErrorOf.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

namespace {

const QStringList Titles{QStringLiteral("Number"), QStringLiteral("Input"), QStringLiteral("Output")};

void Fill(ReportList &list, int lines)
{
    list.SetColumnTitles(Titles);
    std::vector<QStringList> texts;
    for (int line = 1; line <= lines; ++line)
        texts.push_back({QString::number(line), QString::number(line * 10), QString::number(line * 100)});
    list.AddLines(texts);
}

struct Press {
    Qt::MouseButton Button;
    QPoint Position;
};

} // namespace

class ReportListTest : public QObject {
    Q_OBJECT

private slots:
    void columns_have_titles_and_widths();
    void new_titles_keep_lines_and_widths();
    void lines_are_added_and_cleared();
    void adding_selects_nothing();
    void lines_are_selected_one_by_one();
    void a_line_that_is_selected_becomes_the_current_one();
    void a_line_or_column_that_is_not_there_is_out_of_range();
    void the_current_line_is_the_one_clicked();
    void several_lines_are_selected_with_shift_and_control();
    void a_press_tells_its_place_in_the_list();
    void a_right_press_is_reported();
    void a_double_click_is_reported_on_a_line_and_below_the_last();
    void the_line_height_is_that_of_the_first_line();
    void the_lines_end_where_they_would_with_the_header_as_a_line_data();
    void the_lines_end_where_they_would_with_the_header_as_a_line();
    void lines_cannot_be_edited_or_sorted_by_the_user();
};

void ReportListTest::columns_have_titles_and_widths()
{
    ReportList list;
    list.SetColumnTitles(Titles);
    list.SetColumnWidth(1, 70);
    list.SetColumnWidth(3, 41);
    QCOMPARE(list.columnCount(), 3);
    QCOMPARE(list.ColumnTitle(2), QStringLiteral("Input"));
    QCOMPARE(list.columnWidth(0), 70);
    list.resize(600, 200);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QCOMPARE(list.columnWidth(2), 41);
    QVERIFY(!list.header()->isHidden());
    QCOMPARE(list.header()->sectionResizeMode(1), QHeaderView::Interactive);
}

void ReportListTest::new_titles_keep_lines_and_widths()
{
    ReportList list;
    Fill(list, 2);
    list.SetColumnWidth(2, 55);
    list.SetColumnTitles({QStringLiteral("序号"), QStringLiteral("输入"), QStringLiteral("输出")});
    QCOMPARE(list.ColumnTitle(1), QStringLiteral("序号"));
    QCOMPARE(list.LineText(2, 3), QStringLiteral("200"));
    QCOMPARE(list.columnWidth(1), 55);
}

void ReportListTest::lines_are_added_and_cleared()
{
    ReportList list;
    Fill(list, 500);
    list.AddLine({QStringLiteral("last"), QStringLiteral("x")});
    QCOMPARE(list.LineCount(), 501);
    QCOMPARE(list.LineText(1, 1), QStringLiteral("1"));
    QCOMPARE(list.LineText(500, 2), QStringLiteral("5000"));
    QCOMPARE(list.LineText(501, 1), QStringLiteral("last"));
    QCOMPARE(list.LineText(501, 3), QString());
    list.ClearLines();
    QCOMPARE(list.LineCount(), 0);
    QCOMPARE(list.CurrentLine(), 0);
    QCOMPARE(list.ColumnTitle(1), QStringLiteral("Number"));
}

void ReportListTest::adding_selects_nothing()
{
    ReportList list;
    list.show();
    Fill(list, 3);
    QCOMPARE(list.CurrentLine(), 0);
    for (int line = 1; line <= 3; ++line)
        QVERIFY(!list.LineSelected(line));
}

void ReportListTest::lines_are_selected_one_by_one()
{
    ReportList list;
    Fill(list, 3);
    list.SelectLine(1, true);
    list.SelectLine(3, true);
    QVERIFY(list.LineSelected(1));
    QVERIFY(!list.LineSelected(2));
    QVERIFY(list.LineSelected(3));
    list.SelectLine(1, false);
    QVERIFY(!list.LineSelected(1));
    QVERIFY(list.LineSelected(3));
}

void ReportListTest::a_line_that_is_selected_becomes_the_current_one()
{
    ReportList list;
    Fill(list, 4);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    list.SelectLine(2, true);
    QCOMPARE(list.CurrentLine(), 2);
    list.SelectLine(4, true);
    QCOMPARE(list.CurrentLine(), 4);
    QVERIFY(list.LineSelected(2) && list.LineSelected(4));
    list.SelectLine(2, false);
    QCOMPARE(list.CurrentLine(), 4);
    QVERIFY(!list.LineSelected(1) && !list.LineSelected(2) && !list.LineSelected(3) && list.LineSelected(4));
}

void ReportListTest::a_line_or_column_that_is_not_there_is_out_of_range()
{
    ReportList list;
    Fill(list, 2);
    QCOMPARE(ErrorOf([&] { list.LineText(0, 1); }), 9);
    QCOMPARE(ErrorOf([&] { list.LineText(3, 1); }), 9);
    QCOMPARE(ErrorOf([&] { list.LineText(1, 4); }), 9);
    QCOMPARE(ErrorOf([&] { list.ColumnTitle(0); }), 9);
    QCOMPARE(ErrorOf([&] { list.SelectLine(3, true); }), 9);
    QCOMPARE(ErrorOf([&] { list.LineText(2, 3); }), 0);
}

void ReportListTest::the_current_line_is_the_one_clicked()
{
    ReportList list;
    Fill(list, 5);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const QPoint third = list.visualItemRect(list.topLevelItem(2)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, third);
    QCOMPARE(list.CurrentLine(), 3);
    QVERIFY(list.LineSelected(3));
    QTest::keyClick(&list, Qt::Key_Down);
    QCOMPARE(list.CurrentLine(), 4);
}

void ReportListTest::several_lines_are_selected_with_shift_and_control()
{
    ReportList list;
    Fill(list, 6);
    list.resize(400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const auto click = [&](int line, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers,
                          list.visualItemRect(list.topLevelItem(line - 1)).center());
    };
    click(1, Qt::NoModifier);
    click(3, Qt::ShiftModifier);
    click(5, Qt::ControlModifier);
    QString selected;
    for (int line = 1; line <= 6; ++line)
        selected += list.LineSelected(line) ? u'x' : u'-';
    QCOMPARE(selected, QStringLiteral("xxx-x-"));
}

void ReportListTest::a_press_tells_its_place_in_the_list()
{
    ReportList list;
    Fill(list, 3);
    list.resize(400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QList<Press> presses;
    connect(&list, &ReportList::MouseDown, &list, [&presses](Qt::MouseButton button, QPoint position) {
        presses.append({button, position});
    });
    // Six pixels below the header, the frame around the list counted.
    const int header = list.header()->mapTo(&list, QPoint(0, list.header()->height())).y();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 6));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 200));
    QCOMPARE(presses.size(), 2);
    QCOMPARE(presses[0].Button, Qt::LeftButton);
    QCOMPARE(presses[0].Position, QPoint(20 + list.frameWidth(), header + 6));
    QCOMPARE(presses[1].Position.y(), header + 200);
}

void ReportListTest::a_right_press_is_reported()
{
    ReportList list;
    Fill(list, 3);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QList<Qt::MouseButton> buttons;
    connect(&list, &ReportList::MouseDown, &list, [&](Qt::MouseButton button, QPoint) { buttons.append(button); });
    QTest::mouseClick(list.viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 6));
    QCOMPARE(buttons, QList<Qt::MouseButton>{Qt::RightButton});
}

void ReportListTest::a_double_click_is_reported_on_a_line_and_below_the_last()
{
    ReportList list;
    Fill(list, 2);
    list.resize(400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy doubleClick(&list, &ReportList::DoubleClick);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 6));
    QCOMPARE(doubleClick.count(), 1);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 200));
    QCOMPARE(doubleClick.count(), 2);
    QTest::mouseDClick(list.viewport(), Qt::RightButton, Qt::NoModifier, QPoint(20, 6));
    QCOMPARE(doubleClick.count(), 2);
    list.ClearLines();
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 6));
    QCOMPARE(doubleClick.count(), 3);
}

void ReportListTest::the_line_height_is_that_of_the_first_line()
{
    ReportList list;
    QCOMPARE(list.LineHeight(), 0);
    Fill(list, 3);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    const int pitch = list.visualItemRect(list.topLevelItem(1)).top() - list.visualItemRect(list.topLevelItem(0)).top();
    QVERIFY(pitch > 0);
    QCOMPARE(list.LineHeight(), pitch);
}

void ReportListTest::the_lines_end_where_they_would_with_the_header_as_a_line_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<int>("letters"); // points of the header's font
    QTest::newRow("English") << Titles << QApplication::font().pointSize();
    QTest::newRow("Chinese") << QStringList{QStringLiteral("数据序号"), QStringLiteral("单位： mV"),
                                            QStringLiteral("是否分段点? ")}
                             << QApplication::font().pointSize();
    QTest::newRow("large letters") << Titles << 20;
}

void ReportListTest::the_lines_end_where_they_would_with_the_header_as_a_line()
{
    QFETCH(const QStringList, titles);
    QFETCH(const int, letters);
    ReportList list;
    Fill(list, 3);
    list.resize(400, 300);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QFont font = list.header()->font();
    font.setPointSize(letters);
    list.header()->setFont(font);
    list.SetColumnTitles(titles);
    const auto lastPixel = [&] {
        const QRect lastLine = list.visualItemRect(list.topLevelItem(list.LineCount() - 1));
        return list.viewport()->mapTo(&list, lastLine.bottomLeft()).y();
    };
    QTRY_COMPARE(list.LineHeight() * 4, lastPixel());
    list.AddLine({QStringLiteral("线性插值")});
    QCOMPARE(list.LineHeight() * 5, lastPixel());
    QVERIFY(list.LineHeight() >= list.fontMetrics().height()); // no text is cut off
}

void ReportListTest::lines_cannot_be_edited_or_sorted_by_the_user()
{
    ReportList list;
    Fill(list, 3);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 6));
    QTest::keyClick(&list, Qt::Key_F2);
    QVERIFY(list.findChild<QWidget *>(QStringLiteral("qt_editing_widget")) == nullptr);
    QVERIFY(!list.isPersistentEditorOpen(list.topLevelItem(0)));
    QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 5));
    QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 5));
    QCOMPARE(list.LineText(1, 1), QStringLiteral("1"));
    QCOMPARE(list.LineText(3, 1), QStringLiteral("3"));
}

QTEST_MAIN(ReportListTest)
#include "tst_report_list.moc"
