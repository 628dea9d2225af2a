/// @file
/// What the reference list answers to the mouse: pop-up menu and double click.
#include "curve/EditDataFrm.h"
#include "curve/ReferenceEditBench.h"

#include <QHeaderView>

namespace {

const QString NotNeeded = QStringLiteral("Temperature sensor task does not need a reference points!");

/// Double-clicks a height of the list, in pixels of the list with its header.
void DoubleClickAt(ReportList &list, int height)
{
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.viewport()->mapFrom(&list, QPoint(20, height)));
}

/// What the dialogue was opened for, by its title; it is cancelled.
class TitleOfDialogue {
public:
    QString Title;

private:
    WhenModal m_dialogue{QStringLiteral("EditDataFrm"), [this](QWidget *window) {
                             Title = window->windowTitle();
                             qobject_cast<QDialog *>(window)->reject();
                         }};
};

} // namespace

class ReferencePopupTest : public QObject {
    Q_OBJECT

private slots:
    void the_popup_enables_its_commands_by_the_number_of_rows_data();
    void the_popup_enables_its_commands_by_the_number_of_rows();
    void a_table_with_gaps_is_full_by_its_last_row();
    void adding_to_a_table_with_gaps_begins_behind_its_last_row();
    void the_popup_opens_at_the_pointer_by_the_right_button_only();
    void the_export_command_stays_hidden();
    void a_built_in_sensor_has_no_popup_data();
    void a_built_in_sensor_has_no_popup();
    void a_built_in_sensor_is_not_edited_data();
    void a_built_in_sensor_is_not_edited();
    void the_popup_opens_the_dialogue();
    void a_double_click_decides_by_the_height_of_the_pointer_data();
    void a_double_click_decides_by_the_height_of_the_pointer();
    void a_double_click_in_an_empty_list_adds();
    void a_double_click_takes_the_place_of_the_last_press();
    void each_window_keeps_the_place_of_its_own_last_press();
    void changing_an_empty_list_does_nothing();
};

void ReferencePopupTest::the_popup_enables_its_commands_by_the_number_of_rows_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("add");
    QTest::addColumn<bool>("others");
    QTest::newRow("none") << 0 << true << false;
    QTest::newRow("one") << 1 << true << true;
    QTest::newRow("499") << 499 << true << true;
    QTest::newRow("full") << 500 << false << true;
}

void ReferencePopupTest::the_popup_enables_its_commands_by_the_number_of_rows()
{
    QFETCH(int, rows);
    ReferenceEditBench bench;
    bench.PutRows(rows);
    const MainFrm &frame = bench.frame;
    frame.mnuPopEditDataExport->setVisible(true); // the toolkit takes a hidden command for a disabled one
    QVERIFY(bench.OpenPopup(bench.List()));
    QTEST(frame.mnuPopEditDataAdd->isEnabled(), "add");
    QTEST(frame.mnuPopEditDataChange->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataDelete->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataDeleteAll->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataApply->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataExport->isEnabled(), "others");
}

void ReferencePopupTest::a_table_with_gaps_is_full_by_its_last_row()
{
    ReferenceEditBench bench;
    for (const int row : {1, 7, 500}) // as a file can bring them in
        PutRow(0, row, row, row);
    RefreshReferenceLists();
    QCOMPARE(bench.List().LineCount(), 3);
    QVERIFY(bench.OpenPopup(bench.List()));
    QVERIFY(!bench.frame.mnuPopEditDataAdd->isEnabled());
    QVERIFY(bench.frame.mnuPopEditDataChange->isEnabled());
}

void ReferencePopupTest::adding_to_a_table_with_gaps_begins_behind_its_last_row()
{
    ReferenceEditBench bench;
    for (const int row : {1, 7, 400})
        PutRow(0, row, row, row);
    RefreshReferenceLists();
    TitleOfDialogue dialogue;
    bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataAdd);
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
    QCOMPARE(ReferenceRowCount, 400);
    QCOMPARE(EditRowNumber, 401);
}

void ReferencePopupTest::the_popup_opens_at_the_pointer_by_the_right_button_only()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    QWidget *viewport = bench.List().viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(30, 40));
    QVERIFY(!bench.frame.mnuPopEditData->isVisible());
    QTest::mouseClick(viewport, Qt::RightButton, {}, QPoint(30, 40));
    QVERIFY(bench.frame.mnuPopEditData->isVisible());
    QCOMPARE(bench.frame.mnuPopEditData->pos(), viewport->mapToGlobal(QPoint(30, 40)));
}

void ReferencePopupTest::the_export_command_stays_hidden()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    QVERIFY(bench.OpenPopup(bench.List()));
    QVERIFY(!bench.frame.mnuPopEditDataExport->isVisible());
}

void ReferencePopupTest::a_built_in_sensor_has_no_popup_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << NotNeeded;
    QTest::newRow("Chinese") << 0 << QStringLiteral("温度传感器任务无需设置参考点! ");
}

void ReferencePopupTest::a_built_in_sensor_has_no_popup()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    ReferenceEditBench bench;
    CurrentLanguage = language;
    SensorProjects[0].IsBuiltInSensor = true;
    BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(!bench.OpenPopup(bench.List()));
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown().first().Title, QStringLiteral("Ostrakon"));
}

void ReferencePopupTest::a_built_in_sensor_is_not_edited_data()
{
    a_built_in_sensor_has_no_popup_data();
}

void ReferencePopupTest::a_built_in_sensor_is_not_edited()
{
    QFETCH(const int, language);
    QFETCH(const QString, text);
    ReferenceEditBench bench;
    CurrentLanguage = language;
    bench.PutRows(2);
    SensorProjects[0].IsBuiltInSensor = true;
    EditRowNumber = 77;
    {
        const BoxAnswers noBox;
        DoubleClickAt(bench.List(), 2 * bench.List().LineHeight());
    }
    const BoxAnswers answers({QMessageBox::Ok});
    DoubleClickAt(bench.List(), 5 * bench.List().LineHeight());
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Icon, QMessageBox::Warning);
    QCOMPARE(EditRowNumber, 77);
}

void ReferencePopupTest::the_popup_opens_the_dialogue()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    {
        TitleOfDialogue dialogue;
        bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataAdd, 2);
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
        QCOMPARE(EditRowNumber, 4);
    }
    {
        TitleOfDialogue dialogue;
        bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataChange, 2);
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Modify Data"));
        QCOMPARE(EditRowNumber, 2); // the right press has chosen the line
    }
}

void ReferencePopupTest::a_double_click_decides_by_the_height_of_the_pointer_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("add");
    QTest::newRow("English") << 1
                             << QStringList{QStringLiteral("NO."), QStringLiteral("Unit: mV"),
                                            QStringLiteral("Unit: C"), QStringLiteral("Arithmetic"),
                                            QStringLiteral("Segment dot? ")}
                             << QStringLiteral("EditData - Modify Data") << QStringLiteral("EditData - Add Data");
    QTest::newRow("Chinese") << 0
                             << QStringList{QStringLiteral("数据序号"), QStringLiteral("单位： mV"),
                                            QStringLiteral("单位： C"), QStringLiteral("算法"),
                                            QStringLiteral("是否分段点? ")}
                             << QStringLiteral("数据编辑－修改数据") << QStringLiteral("数据编辑－添加数据");
}

void ReferencePopupTest::a_double_click_decides_by_the_height_of_the_pointer()
{
    QFETCH(const int, language);
    QFETCH(const QStringList, titles);
    ReferenceEditBench bench;
    CurrentLanguage = language;
    ReportList &list = bench.List();
    list.SetColumnTitles(titles);
    bench.PutRows(3);
    QTRY_COMPARE(list.header()->height(), list.header()->sizeHint().height());
    // The header counts as one line, and the last line ends just there.
    const int limit = list.LineHeight() * 4;
    QCOMPARE(list.viewport()->mapTo(&list, list.visualItemRect(list.topLevelItem(2)).bottomLeft()).y(), limit);
    {
        TitleOfDialogue dialogue;
        DoubleClickAt(list, limit);
        QTEST(dialogue.Title, "change");
        QCOMPARE(EditRowNumber, 3);
    }
    {
        TitleOfDialogue dialogue;
        DoubleClickAt(list, limit + 1);
        QTEST(dialogue.Title, "add");
    }
    {
        TitleOfDialogue dialogue;
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.topLevelItem(1)).center());
        QTEST(dialogue.Title, "change");
        QCOMPARE(EditRowNumber, 2);
    }
}

void ReferencePopupTest::a_double_click_in_an_empty_list_adds()
{
    ReferenceEditBench bench;
    TitleOfDialogue dialogue;
    DoubleClickAt(bench.List(), bench.List().header()->height() + 1);
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
    QCOMPARE(EditRowNumber, 1);
}

void ReferencePopupTest::a_double_click_takes_the_place_of_the_last_press()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    ReportList &list = bench.List();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, list.viewport()->height() - 5));
    TitleOfDialogue dialogue;
    // A double click without a press of its own, as the control reports it.
    emit list.DoubleClick();
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
}

void ReferencePopupTest::each_window_keeps_the_place_of_its_own_last_press()
{
    ReferenceEditBench bench;
    bench.PutRows(3);
    const SensorProjFrm &second = bench.AddListProject(1);
    PutRow(1, 1, 5, 5);
    RefreshReferenceLists();
    ReportList &first = bench.List();
    QTest::mouseClick(first.viewport(), Qt::LeftButton, {}, ReferenceEditBench::PlaceInList(first, 0));
    QTest::mouseClick(second.EditDataView->viewport(), Qt::LeftButton, {},
                      ReferenceEditBench::PlaceInList(*second.EditDataView, 1));
    bench.frame.Children->setActiveSubWindow(&bench.project);
    TitleOfDialogue dialogue;
    emit first.DoubleClick();
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
}

void ReferencePopupTest::changing_an_empty_list_does_nothing()
{
    ReferenceEditBench bench;
    const BoxAnswers noBox;
    EditRowNumber = 77;
    mnuPopEditDataChange_Click();
    QCOMPARE(EditRowNumber, 77);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

QTEST_MAIN(ReferencePopupTest)
#include "tst_reference_popup.moc"
