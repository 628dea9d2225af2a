/// @file
/// The ways out: Close All and the close box, with the questions that they ask and what is left behind.
#include "curve/lintab/Lintab.h"
#include "link/DeviceChoiceFrm.h"
#include "shell/FrameBench.h"

namespace {

/// A line through two points, held by the curve library.
void BuildCurve()
{
    const CurvePoint points[] = {{0, 5}, {1, 5}};
    const CurveFlag flags[] = {{0, 1}, {0, 0}};
    SEN_NewBuild_Z(2, points, flags);
}

} // namespace

class FrameLeaveTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void close_all_asks_once();
    void the_close_box_leaves_silently_without_projects();
    void the_close_box_asks_in_the_language_data();
    void the_close_box_asks_in_the_language();
    void a_cancel_keeps_the_program();
    void ok_closes_all_projects_without_more_questions();
    void a_run_that_the_user_keeps_keeps_the_frame();
    void a_run_that_the_user_ends_lets_the_frame_go();
    void the_frame_frees_the_curve();
};

void FrameLeaveTest::close_all_asks_once()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    BoxAnswers answers({QMessageBox::Cancel, QMessageBox::Ok});
    loaded.frame.mnuFileCloseAllProjects->trigger();
    QCOMPARE(ProjectCount, std::int16_t{2});
    loaded.frame.mnuFileCloseAllProjects->trigger();
    QCOMPARE(ProjectCount, std::int16_t{0});
    QVERIFY(!ClosingAll);
    QVERIFY(loaded.frame.isVisible());
}

void FrameLeaveTest::the_close_box_leaves_silently_without_projects()
{
    LoadedFrame loaded;
    const BoxAnswers noBox;
    QVERIFY(loaded.frame.close());
    QVERIFY(!loaded.frame.isVisible());
    QCOMPARE(DeviceChoiceForm, nullptr);
    QVERIFY(!ClosingAll);
}

void FrameLeaveTest::the_close_box_asks_in_the_language_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("Chinese") << 0 << "当前操作会移除所有工程! "
                             << "警告";
    QTest::newRow("English") << 1 << "The action will remove all projects! "
                             << "Warning";
}

void FrameLeaveTest::the_close_box_asks_in_the_language()
{
    QFETCH(const int, language);
    QFETCH(const QString, text);
    QFETCH(const QString, title);
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    CurrentLanguage = language;
    BoxAnswers answers({QMessageBox::Cancel});
    QVERIFY(!loaded.frame.close());
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown()[0].Title, title);
    QCOMPARE(answers.Shown()[0].Buttons, QMessageBox::StandardButtons(QMessageBox::Ok | QMessageBox::Cancel));
}

void FrameLeaveTest::a_cancel_keeps_the_program()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    const BoxAnswers answers({QMessageBox::Cancel});
    QVERIFY(!loaded.frame.close());
    QVERIFY(loaded.frame.isVisible());
    QCOMPARE(ProjectCount, std::int16_t{1});
    QVERIFY(DeviceChoiceForm != nullptr);
    QVERIFY(!ClosingAll);
}

void FrameLeaveTest::ok_closes_all_projects_without_more_questions()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    const BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(loaded.frame.close());
    QCOMPARE(ProjectCount, std::int16_t{0});
    QCOMPARE(DeviceChoiceForm, nullptr);
    QTRY_COMPARE(loaded.frame.Children->subWindowList().size(), 0);
    QVERIFY(!ClosingAll);
}

void FrameLeaveTest::a_run_that_the_user_keeps_keeps_the_frame()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.NewProjectByMenu();
    Measuring = true;
    ProjectForm[1]->EndLumoBtn->setEnabled(true);
    BoxAnswers answers({QMessageBox::Cancel});
    QVERIFY(!loaded.frame.close());
    QCOMPARE(answers.Texts(),
             QStringList{QStringLiteral("Measuring is running, the action will stop and remove this project! ")});
    QVERIFY(loaded.frame.isVisible());
    QCOMPARE(ProjectCount, std::int16_t{2});
    QVERIFY(Measuring);
    QVERIFY(!ClosingAll);
    // The next connect finds its dialogue, in the language of the program.
    QVERIFY(DeviceChoiceForm != nullptr);
    QCOMPARE(DeviceChoiceForm->BtOk->text(), QStringLiteral("OK"));
}

void FrameLeaveTest::a_run_that_the_user_ends_lets_the_frame_go()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    Measuring = true;
    ProjectForm[0]->EndLumoBtn->setEnabled(true);
    const BoxAnswers answers({QMessageBox::Ok});
    QVERIFY(loaded.frame.close());
    QVERIFY(!Measuring);
    QCOMPARE(ProjectCount, std::int16_t{0});
}

void FrameLeaveTest::the_frame_frees_the_curve()
{
    LoadedFrame loaded;
    BuildCurve();
    QCOMPARE(SEN_Meas_Z(0.5), 5.0);
    QVERIFY(loaded.frame.close());
    QCOMPARE(SEN_Meas_Z(0.5), 0.0); // no curve held
}

QTEST_MAIN(FrameLeaveTest)
#include "tst_frame_leave.moc"
