/// @file
/// The commands of the reference list, reached as a user reaches them: pop-up menu, double click, undo and redo.
#include "curve/EditDataFrm.h"
#include "curve/ReferenceListBench.h"
#include "curve/ReferenceListModule.h"
#include "support/ErrorOf.h"

#include <QHeaderView>
#include <QSignalSpy>

namespace {

const QString NotNeeded = QStringLiteral("Temperature sensor task does not need a reference points!");

/// A frame with its pop-up menu connected and one project in slot 0.
class EditFixture : public ReferenceListBench {
public:
    EditFixture() : project(AddPageProject(0)) { ConnectReferencePopup(); }

    /// A project window with the page as it lies when it is chosen.
    SensorProjFrm &AddPageProject(int slot)
    {
        SensorProjFrm &form = AddListProject(slot);
        form.EditDataPic->setGeometry(0, 0, 900, 600);
        form.EditDataPic->raise();
        form.EditDataView->setGeometry(0, 26, 900, 500);
        return form;
    }

    /// Rows 1 to count of slot 0: inputs 1, 2 ..., outputs ten times that, row 1 a segment.
    void PutRows(int count)
    {
        for (int row = 1; row <= count; ++row)
            PutRow(0, row, row, 10.0 * row, row == 1);
        RefreshReferenceLists();
    }

    ReportList &List() const { return *project.EditDataView; }

    /// Opens the pop-up menu by a press of the right button on a line, or below all lines for 0.
    bool OpenPopup(int line = 0)
    {
        ReportList &list = List();
        const QPoint place = line > 0 ? list.visualItemRect(list.topLevelItem(line - 1)).center()
                                      : QPoint(20, list.viewport()->height() - 5);
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, place);
        return frame.mnuPopEditData->isVisible();
    }

    void Choose(QAction *command)
    {
        QMenu &menu = *frame.mnuPopEditData;
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(command).center());
    }

    SensorProjFrm &project;
};

QStringList Inputs(const ReportList &list)
{
    QStringList inputs;
    for (int line = 1; line <= list.LineCount(); ++line)
        inputs.append(list.LineText(line, 2));
    return inputs;
}

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

class ReferenceEditTest : public QObject {
    Q_OBJECT

private slots:
    void the_popup_enables_its_commands_by_the_number_of_rows_data();
    void the_popup_enables_its_commands_by_the_number_of_rows();
    void the_popup_opens_at_the_pointer_by_the_right_button_only();
    void the_export_command_stays_hidden();
    void a_built_in_sensor_has_no_popup_data();
    void a_built_in_sensor_has_no_popup();
    void a_built_in_sensor_is_not_edited();
    void the_popup_opens_the_dialogue();
    void a_double_click_decides_by_the_height_of_the_pointer();
    void a_double_click_in_an_empty_list_adds();
    void a_double_click_takes_the_place_of_the_last_press();
    void a_double_click_below_a_full_list_is_not_guarded();
    void changing_an_empty_list_does_nothing();

    void selected_rows_are_deleted_after_a_question_data();
    void selected_rows_are_deleted_after_a_question();
    void cancel_keeps_the_selected_rows();
    void deleting_in_an_empty_list_asks_nothing();
    void all_rows_are_deleted_after_a_question_data();
    void all_rows_are_deleted_after_a_question();
    void cancel_keeps_all_rows();

    void undo_and_redo_exchange_the_table_with_its_backup();
    void undo_is_one_level_deep();
    void a_new_edit_ends_redo();
    void undo_after_delete_all_brings_all_rows_back_in_order();
    void undo_works_on_the_active_project();
    void the_commands_work_on_the_active_project();
    void edits_keep_the_applied_curve();
    void undo_of_a_slot_that_is_none_is_out_of_range();
};

void ReferenceEditTest::the_popup_enables_its_commands_by_the_number_of_rows_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("add");
    QTest::addColumn<bool>("others");
    QTest::newRow("none") << 0 << true << false;
    QTest::newRow("one") << 1 << true << true;
    QTest::newRow("499") << 499 << true << true;
    QTest::newRow("full") << 500 << false << true;
}

void ReferenceEditTest::the_popup_enables_its_commands_by_the_number_of_rows()
{
    QFETCH(int, rows);
    EditFixture fixture;
    fixture.PutRows(rows);
    const MainFrm &frame = fixture.frame;
    frame.mnuPopEditDataExport->setVisible(true); // the toolkit takes a hidden command for a disabled one
    QVERIFY(fixture.OpenPopup());
    QTEST(frame.mnuPopEditDataAdd->isEnabled(), "add");
    QTEST(frame.mnuPopEditDataChange->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataDelete->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataDeleteAll->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataApply->isEnabled(), "others");
    QTEST(frame.mnuPopEditDataExport->isEnabled(), "others");
}

void ReferenceEditTest::the_popup_opens_at_the_pointer_by_the_right_button_only()
{
    EditFixture fixture;
    fixture.PutRows(3);
    QWidget *viewport = fixture.List().viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, QPoint(30, 40));
    QVERIFY(!fixture.frame.mnuPopEditData->isVisible());
    QTest::mouseClick(viewport, Qt::RightButton, {}, QPoint(30, 40));
    QVERIFY(fixture.frame.mnuPopEditData->isVisible());
    QCOMPARE(fixture.frame.mnuPopEditData->pos(), viewport->mapToGlobal(QPoint(30, 40)));
}

void ReferenceEditTest::the_export_command_stays_hidden()
{
    EditFixture fixture;
    fixture.PutRows(3);
    QVERIFY(fixture.OpenPopup());
    QVERIFY(!fixture.frame.mnuPopEditDataExport->isVisible());
}

void ReferenceEditTest::a_built_in_sensor_has_no_popup_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << NotNeeded;
    QTest::newRow("Chinese") << 0 << QStringLiteral("温度传感器任务无需设置参考点! ");
}

void ReferenceEditTest::a_built_in_sensor_has_no_popup()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    SensorProjects[0].IsBuiltInSensor = true;
    BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(!fixture.OpenPopup());
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown().first().Title, QStringLiteral("Ostrakon"));
}

void ReferenceEditTest::a_built_in_sensor_is_not_edited()
{
    EditFixture fixture;
    fixture.PutRows(2);
    SensorProjects[0].IsBuiltInSensor = true;
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataAdd_Click();
    QCOMPARE(answers.Texts(), QStringList{NotNeeded});
    mnuPopEditDataChange_Click();
    QCOMPARE(answers.Shown().size(), 1);
}

void ReferenceEditTest::the_popup_opens_the_dialogue()
{
    EditFixture fixture;
    fixture.PutRows(3);
    {
        TitleOfDialogue dialogue;
        QVERIFY(fixture.OpenPopup(2));
        fixture.Choose(fixture.frame.mnuPopEditDataAdd);
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
        QCOMPARE(EditRowNumber, 4);
    }
    {
        TitleOfDialogue dialogue;
        QVERIFY(fixture.OpenPopup(2));
        fixture.Choose(fixture.frame.mnuPopEditDataChange);
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Modify Data"));
        QCOMPARE(EditRowNumber, 2); // the right press has chosen the line
    }
}

void ReferenceEditTest::a_double_click_decides_by_the_height_of_the_pointer()
{
    EditFixture fixture;
    fixture.PutRows(3);
    ReportList &list = fixture.List();
    // The header counts as one line, however high it is.
    const int limit = list.LineHeight() * 4;
    {
        TitleOfDialogue dialogue;
        DoubleClickAt(list, limit);
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Modify Data"));
    }
    {
        TitleOfDialogue dialogue;
        DoubleClickAt(list, limit + 1);
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
    }
    {
        TitleOfDialogue dialogue;
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.topLevelItem(1)).center());
        QCOMPARE(dialogue.Title, QStringLiteral("EditData - Modify Data"));
        QCOMPARE(EditRowNumber, 2);
    }
}

void ReferenceEditTest::a_double_click_in_an_empty_list_adds()
{
    EditFixture fixture;
    TitleOfDialogue dialogue;
    DoubleClickAt(fixture.List(), fixture.List().header()->height() + 1);
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
    QCOMPARE(EditRowNumber, 1);
}

void ReferenceEditTest::a_double_click_takes_the_place_of_the_last_press()
{
    EditFixture fixture;
    fixture.PutRows(3);
    ReportList &list = fixture.List();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, list.viewport()->height() - 5));
    TitleOfDialogue dialogue;
    // A double click without a press of its own, as the control reports it.
    emit list.DoubleClick();
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
}

void ReferenceEditTest::a_double_click_below_a_full_list_is_not_guarded()
{
    EditFixture fixture;
    fixture.PutRows(500);
    ReportList &list = fixture.List();
    list.resize(list.width(), list.LineHeight() * 503);
    TitleOfDialogue dialogue;
    DoubleClickAt(list, list.LineHeight() * 501 + 1);
    QCOMPARE(dialogue.Title, QStringLiteral("EditData - Add Data"));
    QCOMPARE(EditRowNumber, 501);
    QCOMPARE(LastUsedRow(0), 500);
}

void ReferenceEditTest::changing_an_empty_list_does_nothing()
{
    EditFixture fixture;
    const BoxAnswers noBox;
    EditRowNumber = 77;
    mnuPopEditDataChange_Click();
    QCOMPARE(EditRowNumber, 77);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void ReferenceEditTest::selected_rows_are_deleted_after_a_question_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("Warning")
                             << QStringLiteral("This action will delete data selected");
    QTest::newRow("Chinese") << 0 << QStringLiteral("警告") << QStringLiteral("此动作将删除选中的数据");
}

void ReferenceEditTest::selected_rows_are_deleted_after_a_question()
{
    QFETCH(int, language);
    QFETCH(QString, title);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    fixture.PutRows(5);
    fixture.project.RedoLumoBtn->setEnabled(true);
    fixture.List().SelectLine(2, true);
    fixture.List().SelectLine(4, true);
    BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(fixture.OpenPopup(4)); // a right press on a selected line keeps the selection
    fixture.Choose(fixture.frame.mnuPopEditDataDelete);
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Title, title);
    QCOMPARE(answers.Shown().first().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 3, 5}));
    QVERIFY(ReferenceTable[0][3].Used); // the rows below have moved up
    QCOMPARE(Inputs(fixture.List()),
             (QStringList{QStringLiteral("1.0"), QStringLiteral("3.0"), QStringLiteral("5.0")}));
    QCOMPARE(UsedInputs(ReferenceBackup[0]), (QList<double>{1, 2, 3, 4, 5}));
    QVERIFY(fixture.project.UndoLumoBtn->isEnabled());
    QVERIFY(!fixture.project.RedoLumoBtn->isEnabled());
}

void ReferenceEditTest::cancel_keeps_the_selected_rows()
{
    EditFixture fixture;
    fixture.PutRows(3);
    fixture.List().SelectLine(2, true);
    BoxAnswers answers({QMessageBox::Cancel});
    mnuPopEditDataDelete_Click();
    QCOMPARE(answers.Left(), 0);
    QCOMPARE(LastUsedRow(0), 3);
    QCOMPARE(UsedInputs(ReferenceBackup[0]), QList<double>());
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
}

void ReferenceEditTest::deleting_in_an_empty_list_asks_nothing()
{
    EditFixture fixture;
    const BoxAnswers noBox;
    mnuPopEditDataDelete_Click();
    QVERIFY(noBox.Shown().isEmpty());
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
}

void ReferenceEditTest::all_rows_are_deleted_after_a_question_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << 1 << QStringLiteral("Warning")
                             << QStringLiteral("This action will delete all of the data");
    QTest::newRow("Chinese") << 0 << QStringLiteral("警告") << QStringLiteral("此动作将删除所有数据");
}

void ReferenceEditTest::all_rows_are_deleted_after_a_question()
{
    QFETCH(int, language);
    QFETCH(QString, title);
    QFETCH(QString, text);
    EditFixture fixture;
    CurrentLanguage = language;
    fixture.PutRows(500);
    fixture.project.RedoLumoBtn->setEnabled(true);
    BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(fixture.OpenPopup(1));
    fixture.Choose(fixture.frame.mnuPopEditDataDeleteAll);
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Title, title);
    QCOMPARE(answers.Shown().first().Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QCOMPARE(LastUsedRow(0), 0);
    QCOMPARE(ReferenceTable[0][500].Input, 500.0); // only the use is taken off
    QCOMPARE(fixture.List().LineCount(), 0);
    QCOMPARE(UsedInputs(ReferenceBackup[0]).size(), 500);
    QVERIFY(fixture.project.UndoLumoBtn->isEnabled());
    QVERIFY(!fixture.project.RedoLumoBtn->isEnabled());
}

void ReferenceEditTest::cancel_keeps_all_rows()
{
    EditFixture fixture;
    fixture.PutRows(3);
    BoxAnswers answers({QMessageBox::Cancel});
    mnuPopEditDataDeleteAll_Click();
    QCOMPARE(answers.Left(), 0);
    QCOMPARE(LastUsedRow(0), 3);
    QCOMPARE(fixture.List().LineCount(), 3);
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
}

void ReferenceEditTest::undo_and_redo_exchange_the_table_with_its_backup()
{
    EditFixture fixture;
    fixture.PutRows(3);
    fixture.List().SelectLine(1, true);
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataDelete_Click();
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));

    Click(fixture.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
    QVERIFY(ReferenceTable[0][1].Segment);
    QCOMPARE(UsedInputs(ReferenceBackup[0]), (QList<double>{2, 3}));
    QCOMPARE(fixture.List().LineCount(), 3);
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
    QVERIFY(fixture.project.RedoLumoBtn->isEnabled());

    Click(fixture.project.RedoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
    QCOMPARE(fixture.List().LineCount(), 2);
    QVERIFY(fixture.project.UndoLumoBtn->isEnabled());
    QVERIFY(!fixture.project.RedoLumoBtn->isEnabled());
}

void ReferenceEditTest::undo_is_one_level_deep()
{
    EditFixture fixture;
    fixture.PutRows(3);
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    for (int i = 0; i < 2; ++i) {
        fixture.List().clearSelection();
        fixture.List().SelectLine(1, true);
        mnuPopEditDataDelete_Click();
    }
    Click(fixture.project.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
    Click(fixture.project.UndoLumoBtn); // disabled
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{2, 3}));
}

void ReferenceEditTest::a_new_edit_ends_redo()
{
    EditFixture fixture;
    fixture.PutRows(3);
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    fixture.List().SelectLine(1, true);
    mnuPopEditDataDelete_Click();
    UndoReferenceEdit(0);
    fixture.List().clearSelection();
    fixture.List().SelectLine(3, true);
    mnuPopEditDataDelete_Click();
    QVERIFY(!fixture.project.RedoLumoBtn->isEnabled());
    UndoReferenceEdit(0);
    QCOMPARE(UsedInputs(ReferenceTable[0]), (QList<double>{1, 2, 3}));
}

void ReferenceEditTest::undo_after_delete_all_brings_all_rows_back_in_order()
{
    EditFixture fixture;
    fixture.PutRows(500);
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataDeleteAll_Click();
    Click(fixture.project.UndoLumoBtn);
    QCOMPARE(fixture.List().LineCount(), 500);
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        QVERIFY(ReferenceTable[0][row].Used);
        QCOMPARE(ReferenceTable[0][row].Input, static_cast<double>(row));
    }
}

void ReferenceEditTest::undo_works_on_the_active_project()
{
    EditFixture fixture;
    fixture.PutRows(2);
    const SensorProjFrm &second = fixture.AddPageProject(1);
    PutRow(1, 1, 5, 5);
    PutRow(1, 2, 6, 6);
    RefreshReferenceLists();
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataDeleteAll_Click();
    QCOMPARE(LastUsedRow(0), 2);
    QCOMPARE(LastUsedRow(1), 0);
    QVERIFY(second.UndoLumoBtn->isEnabled());
    QVERIFY(!fixture.project.UndoLumoBtn->isEnabled());
    Click(second.UndoLumoBtn);
    QCOMPARE(UsedInputs(ReferenceTable[1]), (QList<double>{5, 6}));
}

void ReferenceEditTest::the_commands_work_on_the_active_project()
{
    EditFixture fixture;
    fixture.PutRows(2);
    const SensorProjFrm &second = fixture.AddPageProject(1);
    PutRow(1, 1, 5, 5);
    PutRow(1, 2, 6, 6);
    RefreshReferenceLists();
    fixture.frame.Children->setActiveSubWindow(&fixture.project);
    BoxAnswers answers({QMessageBox::Ok});
    fixture.List().SelectLine(2, true);
    second.EditDataView->SelectLine(1, true);
    mnuPopEditDataDelete_Click();
    QCOMPARE(UsedInputs(ReferenceTable[0]), QList<double>{1});
    QCOMPARE(UsedInputs(ReferenceTable[1]), (QList<double>{5, 6}));
}

void ReferenceEditTest::edits_keep_the_applied_curve()
{
    EditFixture fixture;
    fixture.PutRows(3);
    QCOMPARE(BuildReferenceCurve(0), std::uint8_t{0});
    ProjectSlots[0].CurveApplied = true;
    QCOMPARE(SEN_Meas_Z(2.5), 25.0);
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    fixture.List().SelectLine(2, true);
    mnuPopEditDataDelete_Click();
    UndoReferenceEdit(0);
    RedoReferenceEdit(0);
    mnuPopEditDataDeleteAll_Click();
    QVERIFY(ProjectSlots[0].CurveApplied);
    QVERIFY(!ProjectSlots[0].Dirty);
    QCOMPARE(SEN_Meas_Z(2.5), 25.0);
    SEN_Free();
}

void ReferenceEditTest::undo_of_a_slot_that_is_none_is_out_of_range()
{
    EditFixture fixture;
    for (const int slot : {-1, 10})
        QCOMPARE(ErrorOf([&] { UndoReferenceEdit(slot); }), ErrorNumber::OutOfRange);
}

QTEST_MAIN(ReferenceEditTest)
#include "tst_reference_edit.moc"
