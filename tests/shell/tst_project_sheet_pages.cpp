/// @file
/// The double click in the project tree, which brings up a page, and what a run makes of it; the box of the version.
#include "shell/ProjectSheetBench.h"

namespace {

const QString ProjectRuns = QStringLiteral("Current project is running! ");
const QString ProjectRunsChinese = QStringLiteral("工程运行期间不允许切换! ");

} // namespace

class ProjectSheetPagesTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void a_left_click_selects();
    void a_double_click_brings_up_the_page_data();
    void a_double_click_brings_up_the_page();
    void a_page_that_comes_up_is_laid_out();
    void a_double_click_on_a_page_in_sight_changes_nothing();
    void a_double_click_finds_the_project_after_others_have_gone();
    void a_double_click_writes_the_tag_back();
    void a_double_click_brings_back_a_minimised_window();
    void a_double_click_without_a_project_does_nothing_data();
    void a_double_click_without_a_project_does_nothing();
    void a_double_click_in_the_empty_part_follows_the_selected_node();
    void a_double_click_leaves_nodes_open();
    void a_run_keeps_its_project_in_front_data();
    void a_run_keeps_its_project_in_front();
    void shift_and_a_click_show_the_version_data();
    void shift_and_a_click_show_the_version();
};

void ProjectSheetPagesTest::a_left_click_selects()
{
    const ProjectSheetBench bench(2);
    const BoxAnswers noBox;
    for (const int node : {5, 1, 6, 9}) {
        ClickNode(node);
        QCOMPARE(ProjectSheet->SelectedIndex(), node);
        QCOMPARE(ProjectTree->selectedItems(), QList{ProjectSheet->NodeAt(node)});
    }
    QCOMPARE(ActiveSlot(), 1);
    QCOMPARE(ShownPage(FormOfSlot(1)), 2);
}

void ProjectSheetPagesTest::a_double_click_brings_up_the_page_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("page");
    QTest::newRow("first project") << 2 << 0 << 1;
    QTest::newRow("its reference curve") << 3 << 0 << 1;
    QTest::newRow("its data") << 4 << 0 << 2;
    QTest::newRow("its measure curve") << 5 << 0 << 3;
    QTest::newRow("second project") << 6 << 1 << 1;
    QTest::newRow("second measure curve") << 9 << 1 << 3;
    QTest::newRow("active project") << 10 << 2 << 1;
    QTest::newRow("active reference curve") << 11 << 2 << 1;
    QTest::newRow("active measure curve") << 13 << 2 << 3;
}

void ProjectSheetPagesTest::a_double_click_brings_up_the_page()
{
    QFETCH(const int, node);
    QFETCH(const int, slot);
    QFETCH(const int, page);
    const ProjectSheetBench bench(3);
    const BoxAnswers noBox;
    QCOMPARE(ActiveSlot(), 2);
    DoubleClickNode(node);
    QCOMPARE(ActiveSlot(), slot);
    QCOMPARE(FormOfSlot(slot).TabStrip->SelectedTab(), page);
    QCOMPARE(ShownPage(FormOfSlot(slot)), page);
    for (const int other : {0, 1, 2}) {
        if (other != slot)
            QCOMPARE(ShownPage(FormOfSlot(other)), 2);
    }
}

void ProjectSheetPagesTest::a_page_that_comes_up_is_laid_out()
{
    const ProjectSheetBench bench(1);
    DoubleClickNode(5);
    const SensorProjFrm &form = FormOfSlot(0);
    QCOMPARE(form.MeasWavePic->width(), form.TabStrip->width());
    QCOMPARE(form.PicTime_Value_Background->width(), form.MeasWavePic->width() - 83);
}

void ProjectSheetPagesTest::a_double_click_on_a_page_in_sight_changes_nothing()
{
    const ProjectSheetBench bench(1);
    const BoxAnswers noBox;
    DoubleClickNode(4);
    QCOMPARE(FormOfSlot(0).TabStrip->SelectedTab(), 2);
    QCOMPARE(ShownPage(FormOfSlot(0)), 2);
}

void ProjectSheetPagesTest::a_double_click_finds_the_project_after_others_have_gone()
{
    ProjectSheetBench bench(3);
    bench.CloseProject(1);
    bench.NewProjectByMenu(); // slot 1 again, behind the other two
    DoubleClickNode(6);
    QCOMPARE(ActiveSlot(), 2);
    DoubleClickNode(13);
    QCOMPARE(ActiveSlot(), 1);
    QCOMPARE(ShownPage(FormOfSlot(1)), 3);
    DoubleClickNode(5);
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(ShownPage(FormOfSlot(0)), 3);
}

void ProjectSheetPagesTest::a_double_click_writes_the_tag_back()
{
    const ProjectSheetBench bench(2);
    const BoxAnswers noBox;
    SensorProjFrm &form = FormOfSlot(0);
    form.Tag = QStringLiteral("7");
    DoubleClickNode(5);
    QCOMPARE(form.Tag, QStringLiteral("0"));
    QCOMPARE(ActiveProjectForm(), &form);
    QCOMPARE(ShownPage(form), 3);
}

void ProjectSheetPagesTest::a_double_click_brings_back_a_minimised_window()
{
    const ProjectSheetBench bench(2);
    SensorProjFrm &form = FormOfSlot(0);
    FormOfSlot(1).showNormal(); // else the area hands the maximised state on
    bench.frame.Children->setActiveSubWindow(&form);
    form.showMinimized();
    bench.frame.Children->setActiveSubWindow(&FormOfSlot(1));
    QVERIFY(form.isMinimized());
    DoubleClickNode(5);
    QVERIFY(!form.isMinimized());
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(ShownPage(form), 3);
    QCOMPARE(form.MeasWavePic->width(), form.TabStrip->width());
}

void ProjectSheetPagesTest::a_double_click_without_a_project_does_nothing_data()
{
    QTest::addColumn<int>("node");
    QTest::newRow("the root") << 1;
    QTest::newRow("no node selected") << 0;
}

void ProjectSheetPagesTest::a_double_click_without_a_project_does_nothing()
{
    QFETCH(const int, node);
    const ProjectSheetBench bench(2);
    const BoxAnswers noBox;
    for (const bool running : {false, true}) {
        Measuring = running;
        DoubleClickNode(node);
        QCOMPARE(ActiveSlot(), 1);
        QCOMPARE(ShownPage(FormOfSlot(0)), 2);
        QCOMPARE(ShownPage(FormOfSlot(1)), 2);
    }
}

void ProjectSheetPagesTest::a_double_click_in_the_empty_part_follows_the_selected_node()
{
    const ProjectSheetBench bench(2);
    Select(5);
    DoubleClickNode(0);
    QCOMPARE(ProjectSheet->SelectedIndex(), 5);
    QCOMPARE(ActiveSlot(), 0);
    QCOMPARE(ShownPage(FormOfSlot(0)), 3);
}

void ProjectSheetPagesTest::a_double_click_leaves_nodes_open()
{
    const ProjectSheetBench bench(1);
    for (const int node : {1, 2}) {
        DoubleClickNode(node);
        QVERIFY(ProjectSheet->NodeAt(node)->isExpanded());
    }
}

void ProjectSheetPagesTest::a_run_keeps_its_project_in_front_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<int>("language");
    QTest::addColumn<QStringList>("boxes");
    const QStringList none;
    QTest::newRow("the running project") << 6 << LanguageEnglish << none;
    QTest::newRow("its page") << 7 << LanguageEnglish << none;
    QTest::newRow("its last page") << 9 << LanguageEnglish << none;
    QTest::newRow("another project") << 2 << LanguageEnglish << QStringList{ProjectRuns};
    QTest::newRow("another project's page") << 5 << LanguageEnglish << QStringList{ProjectRuns};
    QTest::newRow("a project behind it") << 10 << LanguageEnglish << QStringList{ProjectRuns};
    QTest::newRow("its page, Chinese") << 7 << LanguageChinese << none;
    QTest::newRow("another project, Chinese") << 10 << LanguageChinese << QStringList{ProjectRunsChinese};
}

void ProjectSheetPagesTest::a_run_keeps_its_project_in_front()
{
    QFETCH(const int, node);
    QFETCH(const int, language);
    QFETCH(const QStringList, boxes);
    const ProjectSheetBench bench(3);
    bench.frame.Children->setActiveSubWindow(&FormOfSlot(1));
    CurrentLanguage = language;
    Measuring = true;
    BoxAnswers answers(QList<QMessageBox::StandardButton>(boxes.size(), QMessageBox::Ok));
    DoubleClickNode(node);
    QCOMPARE(answers.Texts(), boxes);
    for (const ShownBox &box : answers.Shown())
        QCOMPARE(box.Icon, QMessageBox::Warning);
    QCOMPARE(ActiveSlot(), 1);
    for (const int slot : {0, 1, 2})
        QCOMPARE(ShownPage(FormOfSlot(slot)), 2);
}

void ProjectSheetPagesTest::shift_and_a_click_show_the_version_data()
{
    QTest::addColumn<int>("node");
    QTest::addColumn<Qt::KeyboardModifiers>("keys");
    QTest::addColumn<int>("language");
    QTest::addColumn<bool>("shown");
    QTest::newRow("on the root") << 1 << Qt::KeyboardModifiers(Qt::ShiftModifier) << LanguageEnglish << true;
    QTest::newRow("on a page") << 4 << Qt::KeyboardModifiers(Qt::ShiftModifier) << LanguageEnglish << true;
    QTest::newRow("in the empty part") << 0 << Qt::KeyboardModifiers(Qt::ShiftModifier) << LanguageEnglish << true;
    QTest::newRow("Chinese") << 1 << Qt::KeyboardModifiers(Qt::ShiftModifier) << LanguageChinese << true;
    QTest::newRow("without a key") << 1 << Qt::KeyboardModifiers() << LanguageEnglish << false;
    QTest::newRow("with control") << 1 << Qt::KeyboardModifiers(Qt::ControlModifier) << LanguageEnglish << false;
}

void ProjectSheetPagesTest::shift_and_a_click_show_the_version()
{
    QFETCH(const int, node);
    QFETCH(const Qt::KeyboardModifiers, keys);
    QFETCH(const int, language);
    QFETCH(const bool, shown);
    const ProjectSheetBench bench(1);
    CurrentLanguage = language;
    BoxAnswers answers(QList<QMessageBox::StandardButton>(shown ? 1 : 0, QMessageBox::Ok));
    QTest::mousePress(ProjectTree->viewport(), Qt::LeftButton, keys, PlaceOf(node));
    QVERIFY(answers.Shown().isEmpty());
    QTest::mouseRelease(ProjectTree->viewport(), Qt::LeftButton, keys, PlaceOf(node));
    QCOMPARE(answers.Shown().size(), shown ? 1 : 0);
    if (!shown)
        return;
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Version"));
    QCOMPARE(answers.Shown()[0].Text, QStringLiteral("Version 00.04.00.00.02"));
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Information);
}

QTEST_MAIN(ProjectSheetPagesTest)
#include "tst_project_sheet_pages.moc"
