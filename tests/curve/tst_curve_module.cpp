/// @file
/// Apply: its checks in their order, what each outcome leaves behind, and the placeholder of built-in sensors.
#include "curve/CurveModule.h"
#include "curve/ReferenceEditModule.h"
#include "display/ProjectViewModule.h"
#include "display/ReferencePictureModule.h"
#include "support/Allocations.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <dlfcn.h>

namespace {

/// Makes all allocations of the curve library fail, and no others.
bool IsOfCurveLibrary(const void *caller)
{
    Dl_info library;
    return dladdr(caller, &library) != 0 && std::strstr(library.dli_fname, "lintab") != nullptr &&
           std::strstr(library.dli_fname, ".so") != nullptr;
}

constexpr std::int16_t Line = 0;
constexpr std::int16_t Least = 1;
constexpr ColourRef CurveColour = Rgb(64, 0, 64);   ///< pen of a straight stretch
constexpr ColourRef LeastColour = Rgb(255, 0, 0);   ///< pen of a fitted one
constexpr ColourRef SegmentColour = Rgb(0, 255, 0); ///< dot of a segment point

/// A frame with its pop-up menu and projects in slots 0 and 1, of which 0 is active; their pictures are laid out.
class CurveFixture : public BareFrame {
public:
    CurveFixture() : first(AddDrawnProject(0)), second(AddDrawnProject(1))
    {
        ConnectReferencePopup();
        Activate(first);
    }
    ~CurveFixture()
    {
        for (const int slot : {0, 1})
            ReleaseReferenceBuffer(slot);
        SEN_Free();
        AllocationFails = nullptr;
    }

    void Activate(SensorProjFrm &form) { frame.Children->setActiveSubWindow(&form); }

    SensorProjFrm &first;
    SensorProjFrm &second;

private:
    SensorProjFrm &AddDrawnProject(int slot)
    {
        SensorProjFrm &form = AddProject(slot);
        form.SpecifyCurvePic->resize(700, 600);
        LayoutReferencePage(slot);
        CreateReferenceBuffer(slot);
        return form;
    }
};

/// Two rows of a straight curve: y = 2 x from 1 to 4.
void PutStraight(int slot)
{
    PutRow(slot, 1, 1, 2, true, Line);
    PutRow(slot, 2, 4, 8, false, Line);
}

/// Three rows that differ from those of PutStraight in their number and in each end of both ranges.
void PutOtherRows(int slot)
{
    PutRow(slot, 1, -3, -7, true, Line);
    PutRow(slot, 2, 4, 1, false, Line);
    PutRow(slot, 3, 9, 80, false, Line);
}

QList<int> AppliedSlots()
{
    QList<int> applied;
    for (int slot = 0; slot < SlotCount; ++slot) {
        if (ProjectSlots[slot].CurveApplied)
            applied.append(slot);
    }
    return applied;
}

int PixelsOf(const PictureBox &picture, ColourRef colour)
{
    const QRgb wanted = ColourFromRef(colour).rgb();
    int found = 0;
    for (int y = 0; y < picture.Image().height(); ++y) {
        for (int x = 0; x < picture.Image().width(); ++x)
            found += (picture.Image().pixel(x, y) | 0xFF000000) == wanted ? 1 : 0;
    }
    return found;
}

/// What of a slot stands on the screen and behind it: Apply changes it when it has built a curve.
struct PublishedState {
    explicit PublishedState(int slot)
        : Slot(slot), Curve(ReferenceCurves[slot]), Plot(ProjectForm[slot]->PicRef->Image().copy()),
          Surround(ProjectForm[slot]->PicRefBack->Image().copy())
    {
    }

    void VerifyUnchanged() const
    {
        const ReferenceCurve &now = ReferenceCurves[Slot];
        QCOMPARE(now.Count, Curve.Count);
        QCOMPARE(now.XMin, Curve.XMin);
        QCOMPARE(now.XMax, Curve.XMax);
        QCOMPARE(now.YMin, Curve.YMin);
        QCOMPARE(now.YMax, Curve.YMax);
        QCOMPARE(ProjectForm[Slot]->PicRef->Image(), Plot);
        QCOMPARE(ProjectForm[Slot]->PicRefBack->Image(), Surround);
    }

    int Slot;
    ReferenceCurve Curve;
    QImage Plot;
    QImage Surround;
};

/// What Apply must not touch when it is refused by a check: the points and the library's curve too.
struct CurveState : PublishedState {
    explicit CurveState(int slot) : PublishedState(slot), Passed(ReferenceRowsPassed), Held(SEN_Meas_Z(2.0)) {}

    void VerifyUnchanged() const
    {
        PublishedState::VerifyUnchanged();
        const std::vector<CurvePoint> &now = ReferenceCurves[Slot].Points;
        QVERIFY(std::equal(
            now.begin(), now.end(), Curve.Points.begin(), Curve.Points.end(),
            [](const CurvePoint &one, const CurvePoint &other) { return one.X == other.X && one.Y == other.Y; }));
        QCOMPARE(ReferenceRowsPassed, Passed);
        QCOMPARE(SEN_Meas_Z(2.0), Held);
    }

    std::int32_t Passed;
    double Held;
};

} // namespace

class CurveModuleTest : public QObject {
    Q_OBJECT

private slots:
    void refusals_are_told_in_both_languages_data();
    void refusals_are_told_in_both_languages();
    void a_refusal_by_a_check_changes_nothing_data();
    void a_refusal_by_a_check_changes_nothing();
    void the_checks_come_in_their_order();
    void row_0_counts_among_the_used_rows();
    void apply_without_a_project_has_no_object();

    void two_straight_rows_apply();
    void apply_publishes_points_flags_and_ranges();
    void falling_outputs_apply();
    void a_full_table_applies();
    void apply_draws_the_curve_and_its_dots();
    void apply_is_in_the_popup_menu();
    void one_project_at_most_is_applied();
    void the_status_text_follows_the_applied_project();
    void editing_keeps_curve_and_status();
    void a_later_apply_takes_the_edited_rows();

    void five_points_of_least_squares_apply();
    void four_points_of_least_squares_are_refused();
    void the_least_squares_limit_is_per_stretch();
    void the_arithmetic_inside_a_stretch_decides_nothing();
    void a_failed_build_keeps_the_flags_of_others_and_the_old_drawing();
    void a_build_without_memory_takes_the_flag_off();
    void equal_outputs_leave_no_project_applied_and_the_new_axes();
    void an_overshooting_fit_widens_the_axes_only();

    void the_placeholder_leaves_element_0_and_writes_one_beyond();
    void the_placeholder_builds_nothing_and_draws_what_is_held();
    void the_placeholder_without_room_is_out_of_range();
    void the_placeholder_can_be_refused_as_not_meaningful();
    void a_single_point_is_not_applied();
    void no_point_at_all_is_out_of_range();
};

void CurveModuleTest::refusals_are_told_in_both_languages_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *condition, const char *english, const char *chinese) {
        QTest::addRow("%s, English", condition) << QString::fromLatin1(condition) << 1 << QString::fromUtf8(english);
        QTest::addRow("%s, Chinese", condition) << QString::fromLatin1(condition) << 0 << QString::fromUtf8(chinese);
    };
    row("running", "Currently the software only allows one measurement, please close running measurement! ",
        "目前软件只允许一个测量工作，请关闭当前的测量工作! ");
    row("no segment", "The first point must be a segment point! ", "第一个点必须是分段点! ");
    row("one row", "At least 2 points are required! ", "点数要大于2! ");
    row("no memory", "Out of memory! ", "内存不够! ");
    row("four least", "The number of least squares dot must be more than 5! ", "最小二乘法至少需要5个参考点! ");
    row("equal outputs", "Simulation data is not meaningful, non-implementation of this software application! ",
        "数据没有仿真意义，软件不执行此次应用! ");
}

void CurveModuleTest::refusals_are_told_in_both_languages()
{
    QFETCH(QString, condition);
    QFETCH(int, language);
    QFETCH(QString, text);
    CurveFixture fixture;
    CurrentLanguage = language;
    PutStraight(0);
    if (condition == QLatin1StringView("running"))
        Measuring = true;
    else if (condition == QLatin1StringView("no segment"))
        ReferenceTable[0][1].Segment = false;
    else if (condition == QLatin1StringView("one row"))
        ReferenceTable[0][2].Used = false;
    else if (condition == QLatin1StringView("no memory"))
        AllocationFails = IsOfCurveLibrary;
    else if (condition == QLatin1StringView("four least"))
        ReferenceTable[0][1].Arithmetic = Least;
    else
        ReferenceTable[0][2].Output = ReferenceTable[0][1].Output;
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataApply();
    QCOMPARE(answers.Texts(), QStringList{text});
    QCOMPARE(answers.Shown().first().Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown().first().Title, QStringLiteral("Ostrakon"));
    QCOMPARE(answers.Shown().first().Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(AppliedSlots(), QList<int>());
}

void CurveModuleTest::a_refusal_by_a_check_changes_nothing_data()
{
    QTest::addColumn<int>("check");
    QTest::newRow("measurement of the same project") << 0;
    QTest::newRow("measurement of another project") << 1;
    QTest::newRow("row 1 no segment point") << 2;
    QTest::newRow("one row") << 3;
    QTest::newRow("no row") << 4;
}

void CurveModuleTest::a_refusal_by_a_check_changes_nothing()
{
    QFETCH(int, check);
    CurveFixture fixture;
    PutStraight(0);
    PutStraight(1);
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    const int slot = check == 1 ? 1 : 0;
    fixture.Activate(slot == 1 ? fixture.second : fixture.first);
    PutOtherRows(slot); // what a build would take over
    Measuring = check <= 1;
    if (check == 2)
        ReferenceTable[0][1].Segment = false;
    if (check >= 3)
        ReferenceTable[0][2].Used = ReferenceTable[0][3].Used = false;
    if (check == 4)
        ReferenceTable[0][1] = {};
    const CurveState before(slot);
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataApply();
    before.VerifyUnchanged();
    QCOMPARE(AppliedSlots(), QList<int>{0});
}

void CurveModuleTest::the_checks_come_in_their_order()
{
    CurveFixture fixture;
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
    Measuring = true;
    mnuPopEditDataApply();
    Measuring = false;
    mnuPopEditDataApply(); // an empty table is refused for its first row, not for its count
    PutRow(0, 1, 1, 1, true);
    mnuPopEditDataApply();
    QCOMPARE(answers.Texts(),
             (QStringList{QStringLiteral("Currently the software only allows one measurement, please close running "
                                         "measurement! "),
                          QStringLiteral("The first point must be a segment point! "),
                          QStringLiteral("At least 2 points are required! ")}));
}

void CurveModuleTest::row_0_counts_among_the_used_rows()
{
    CurveFixture fixture;
    PutRow(0, 0, 0, 0);
    PutRow(0, 1, 1, 1, true);
    // Two rows for the count, one point for the curve: built, then silently not applied.
    const BoxAnswers noBox;
    mnuPopEditDataApply();
    QCOMPARE(ReferenceRowsPassed, 1);
    QCOMPARE(AppliedSlots(), QList<int>());
}

void CurveModuleTest::apply_without_a_project_has_no_object()
{
    BareFrame bare;
    QCOMPARE(ErrorOf([] { mnuPopEditDataApply(); }), ErrorNumber::NoObject);
}

void CurveModuleTest::two_straight_rows_apply()
{
    CurveFixture fixture;
    PutStraight(0);
    const BoxAnswers noBox;
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QCOMPARE(ReferenceRowsPassed, 2);
    QCOMPARE(SEN_Meas_Z(1.5), 3.0);
}

void CurveModuleTest::apply_publishes_points_flags_and_ranges()
{
    CurveFixture fixture;
    PutRow(0, 1, -2, 7, true, Line);
    PutRow(0, 2, 0, -3, false, Least);
    PutRow(0, 3, 1, 9.5, true, Line);
    PutRow(0, 4, 6, 4, false, 0x0100); // the low byte counts
    mnuPopEditDataApply();
    const ReferenceCurve &curve = ReferenceCurves[0];
    QCOMPARE(curve.Count, 4);
    QCOMPARE(curve.Points.size(), std::size_t{4});
    QCOMPARE(curve.Flags.size(), std::size_t{4});
    const double xs[] = {-2, 0, 1, 6};
    const double ys[] = {7, -3, 9.5, 4};
    const int arithmetics[] = {0, 1, 0, 0};
    const int segments[] = {1, 0, 1, 0};
    for (std::size_t i = 0; i < 4; ++i) {
        QCOMPARE(curve.Points[i].X, xs[i]);
        QCOMPARE(curve.Points[i].Y, ys[i]);
        QCOMPARE(int{curve.Flags[i].Arithmetic}, arithmetics[i]);
        QCOMPARE(int{curve.Flags[i].IsSegment}, segments[i]);
    }
    QCOMPARE(curve.XMin, -2.0);
    QCOMPARE(curve.XMax, 6.0);
    QCOMPARE(curve.YMin, -3.0);
    QCOMPARE(curve.YMax, 9.5);
}

void CurveModuleTest::falling_outputs_apply()
{
    CurveFixture fixture;
    PutRow(0, 1, 1, 30, true);
    PutRow(0, 2, 2, 20);
    PutRow(0, 3, 3, 5);
    const BoxAnswers noBox;
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QCOMPARE(ReferenceCurves[0].YMax, 30.0);
    QCOMPARE(ReferenceCurves[0].YMin, 5.0);
    QCOMPARE(SEN_Meas_Z(2.5), 12.5);
}

void CurveModuleTest::a_full_table_applies()
{
    CurveFixture fixture;
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        PutRow(0, row, row, row * 0.5, row == 1);
    const BoxAnswers noBox;
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QCOMPARE(ReferenceRowsPassed, 500);
    QCOMPARE(ReferenceCurves[0].Points.back().X, 500.0);
    QCOMPARE(SEN_Meas_Z(250.5), 125.25);
}

void CurveModuleTest::apply_draws_the_curve_and_its_dots()
{
    CurveFixture fixture;
    PutStraight(0);
    QCOMPARE(PixelsOf(*fixture.first.PicRef, CurveColour), 0);
    mnuPopEditDataApply();
    // A line from the lower left to the upper right: about one pixel a column.
    const int side = fixture.first.PicRef->ScaleWidth();
    const int drawn = PixelsOf(*fixture.first.PicRef, CurveColour);
    QVERIFY2(drawn > side / 2 && drawn < 2 * side, qPrintable(QString::number(drawn)));
    QCOMPARE(PixelsOf(*fixture.first.PicRef, SegmentColour), 9);
    QCOMPARE(PixelsOf(*fixture.second.PicRef, CurveColour), 0);
}

void CurveModuleTest::apply_is_in_the_popup_menu()
{
    CurveFixture fixture;
    PutStraight(0);
    fixture.frame.mnuPopEditDataApply->trigger();
    QCOMPARE(AppliedSlots(), QList<int>{0});
}

void CurveModuleTest::one_project_at_most_is_applied()
{
    CurveFixture fixture;
    PutStraight(0);
    PutStraight(1);
    ReferenceTable[1][2].Output = 80;
    ProjectSlots[9].CurveApplied = true; // no slot keeps its flag, whether it is open or not
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    fixture.Activate(fixture.second);
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{1});
    QCOMPARE(SEN_Meas_Z(4), 80.0);
}

void CurveModuleTest::the_status_text_follows_the_applied_project()
{
    CurveFixture fixture;
    PutStraight(0);
    PutStraight(1);
    for (const SensorProjFrm *form : {&fixture.first, &fixture.second})
        form->TabStrip->SelectTab(1);
    mnuPopEditDataApply();
    ResizeProjectView(fixture.first);
    QCOMPARE(fixture.frame.sbrStatus->PanelText(1), QStringLiteral("The data has been apllied"));
    fixture.Activate(fixture.second);
    mnuPopEditDataApply();
    ResizeProjectView(fixture.first);
    QCOMPARE(fixture.frame.sbrStatus->PanelText(1), QStringLiteral("The data has not been apllied"));
    QCOMPARE(PixelsOf(*fixture.first.PicRef, CurveColour), 0);
}

void CurveModuleTest::editing_keeps_curve_and_status()
{
    CurveFixture fixture;
    PutStraight(0);
    fixture.first.TabStrip->SelectTab(1);
    mnuPopEditDataApply();
    PutRow(0, 2, 4, 100);
    ResizeProjectView(fixture.first);
    QCOMPARE(fixture.frame.sbrStatus->PanelText(1), QStringLiteral("The data has been apllied"));
    QCOMPARE(SEN_Meas_Z(4), 8.0);
}

void CurveModuleTest::a_later_apply_takes_the_edited_rows()
{
    CurveFixture fixture;
    PutStraight(0);
    mnuPopEditDataApply();
    PutRow(0, 3, 10, 100);
    mnuPopEditDataApply();
    QCOMPARE(ReferenceCurves[0].Count, 3);
    QCOMPARE(ReferenceCurves[0].XMax, 10.0);
    QCOMPARE(SEN_Meas_Z(10), 100.0);
}

void CurveModuleTest::five_points_of_least_squares_apply()
{
    CurveFixture fixture;
    for (int row = 1; row <= 5; ++row)
        PutRow(0, row, row, 3.0 * row, row == 1, Least);
    const BoxAnswers noBox;
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QVERIFY(std::abs(SEN_Meas_Z(2.5) - 7.5) < 1e-9);
    QVERIFY(PixelsOf(*fixture.first.PicRef, LeastColour) > fixture.first.PicRef->ScaleWidth() / 2);
}

void CurveModuleTest::four_points_of_least_squares_are_refused()
{
    CurveFixture fixture;
    for (int row = 1; row <= 4; ++row)
        PutRow(0, row, row, 3.0 * row, row == 1, Least);
    const PublishedState before(0);
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataApply();
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("The number of least squares dot must be more than 5! ")});
    before.VerifyUnchanged();
    QCOMPARE(AppliedSlots(), QList<int>());
}

void CurveModuleTest::the_least_squares_limit_is_per_stretch()
{
    CurveFixture fixture;
    for (int row = 1; row <= 9; ++row)
        PutRow(0, row, row, 3.0 * row, row == 1 || row == 5, row < 5 ? Least : Line);
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataApply();
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("The number of least squares dot must be more than 5! ")});
    QCOMPARE(AppliedSlots(), QList<int>());
}

void CurveModuleTest::the_arithmetic_inside_a_stretch_decides_nothing()
{
    CurveFixture fixture;
    PutRow(0, 1, 1, 2, true, Line);
    PutRow(0, 2, 2, 9, false, Least);
    PutRow(0, 3, 3, 4, false, Least);
    const BoxAnswers noBox;
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QCOMPARE(SEN_Meas_Z(1.5), 5.5);
}

void CurveModuleTest::a_failed_build_keeps_the_flags_of_others_and_the_old_drawing()
{
    CurveFixture fixture;
    PutStraight(0);
    PutStraight(1);
    mnuPopEditDataApply();
    fixture.Activate(fixture.second);
    ProjectSlots[1].CurveApplied = true; // to see it go
    PutOtherRows(1);
    ReferenceTable[1][1].Arithmetic = Least;
    ReferenceCurves[1].Count = 42;
    ReferenceCurves[1].XMin = 43;
    ReferenceCurves[1].XMax = 44;
    ReferenceCurves[1].YMin = 45;
    ReferenceCurves[1].YMax = 46;
    const PublishedState before(1);
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataApply();
    // The curve of slot 0 is gone from the library, its flag stays.
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QCOMPARE(SEN_Meas_Z(4), 0.0);
    QCOMPARE(ReferenceRowsPassed, 3);
    QCOMPARE(ReferenceCurves[1].Points.size(), std::size_t{3});
    QCOMPARE(ReferenceCurves[1].Points[2].Y, 80.0);
    before.VerifyUnchanged();
}

void CurveModuleTest::a_build_without_memory_takes_the_flag_off()
{
    CurveFixture fixture;
    PutStraight(0);
    mnuPopEditDataApply();
    PutOtherRows(0);
    const PublishedState before(0);
    BoxAnswers answers({QMessageBox::Ok});
    AllocationFails = IsOfCurveLibrary;
    mnuPopEditDataApply();
    AllocationFails = nullptr;
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Out of memory! ")});
    QCOMPARE(AppliedSlots(), QList<int>());
    QCOMPARE(SEN_Meas_Z(4), 0.0);
    QCOMPARE(ReferenceCurves[0].Points[2].Y, 80.0);
    before.VerifyUnchanged();
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QCOMPARE(SEN_Meas_Z(9), 80.0);
}

void CurveModuleTest::equal_outputs_leave_no_project_applied_and_the_new_axes()
{
    CurveFixture fixture;
    PutStraight(0);
    mnuPopEditDataApply();
    const QImage numbers = fixture.first.PicRefBack->Image().copy();
    PutRow(0, 1, 10, 5, true);
    PutRow(0, 2, 90, 5);
    PutStraight(1);
    ProjectSlots[1].CurveApplied = true;
    BoxAnswers answers({QMessageBox::Ok});
    mnuPopEditDataApply();
    QCOMPARE(answers.Texts(),
             QStringList{QStringLiteral("Simulation data is not meaningful, non-implementation of this "
                                        "software application! ")});
    QCOMPARE(AppliedSlots(), QList<int>());
    QCOMPARE(SEN_Meas_Z(50), 5.0); // the library keeps the new curve
    QCOMPARE(ReferenceCurves[0].Count, 2);
    QCOMPARE(ReferenceCurves[0].XMax, 90.0);
    QCOMPARE(ReferenceCurves[0].YMin, 5.0);
    QVERIFY(fixture.first.PicRefBack->Image() != numbers);
    QCOMPARE(PixelsOf(*fixture.first.PicRef, CurveColour), 0);
    QCOMPARE(PixelsOf(*fixture.first.PicRef, SegmentColour), 0);
}

void CurveModuleTest::an_overshooting_fit_widens_the_axes_only()
{
    CurveFixture fixture;
    // A parabola's top between its points: any fit that follows them reaches above them.
    const double xs[] = {0, 1, 2, 4, 5, 6};
    for (int i = 0; i < 6; ++i)
        PutRow(0, i + 1, xs[i], 9 - (xs[i] - 3) * (xs[i] - 3), i == 0, Least);
    mnuPopEditDataApply();
    QCOMPARE(AppliedSlots(), QList<int>{0});
    QVERIFY(SEN_Meas_Z(3) > 8.5);
    QCOMPARE(ReferenceCurves[0].YMax, 8.0);
    const QImage widened = fixture.first.PicRefBack->Image().copy();
    DrawReferenceAxes(0); // with the range of the record
    QVERIFY(fixture.first.PicRefBack->Image() != widened);
}

void CurveModuleTest::the_placeholder_leaves_element_0_and_writes_one_beyond()
{
    CurveFixture fixture;
    SensorProjects[0].IsBuiltInSensor = true;
    ReferenceCurve &curve = ReferenceCurves[0];
    curve.Flags[0] = {1, 1};
    curve.Flags[1] = {1, 0};
    curve.Flags[2] = {1, 1};
    ProjectSlots[0].CurveApplied = true;
    const BoxAnswers noBox;
    ApplyPlaceholderCurve(0);
    QCOMPARE(curve.Count, 2);
    QCOMPARE(curve.Points.size(), std::size_t{500});
    QCOMPARE(curve.Points[0].X, 0.0);
    QCOMPARE(curve.Points[0].Y, 0.0);
    QCOMPARE(int{curve.Flags[0].Arithmetic}, 1);
    QCOMPARE(int{curve.Flags[0].IsSegment}, 1);
    QCOMPARE(curve.Points[1].X, 1.0);
    QCOMPARE(curve.Points[1].Y, 1.0);
    QCOMPARE(int{curve.Flags[1].Arithmetic}, 0);
    QCOMPARE(int{curve.Flags[1].IsSegment}, 1);
    QCOMPARE(curve.Points[2].X, 2.0);
    QCOMPARE(curve.Points[2].Y, 2.0);
    QCOMPARE(int{curve.Flags[2].Arithmetic}, 0);
    QCOMPARE(int{curve.Flags[2].IsSegment}, 0);
    QCOMPARE(curve.XMin, 0.0);
    QCOMPARE(curve.XMax, 1.0);
    QCOMPARE(curve.YMin, 0.0);
    QCOMPARE(curve.YMax, 1.0);
    QVERIFY(ProjectSlots[0].CurveApplied);
}

void CurveModuleTest::the_placeholder_builds_nothing_and_draws_what_is_held()
{
    CurveFixture fixture;
    PutStraight(1);
    fixture.Activate(fixture.second);
    mnuPopEditDataApply();
    fixture.Activate(fixture.first);
    SensorProjects[0].IsBuiltInSensor = true;
    ApplyPlaceholderCurve(0);
    QCOMPARE(ReferenceRowsPassed, 2);
    QCOMPARE(SEN_Meas_Z(4), 8.0);
    QVERIFY(PixelsOf(*fixture.first.PicRef, CurveColour) > 0);
}

void CurveModuleTest::the_placeholder_without_room_is_out_of_range()
{
    CurveFixture fixture;
    for (const std::size_t length : {std::size_t{0}, std::size_t{2}}) {
        ReferenceCurves[0].Points.resize(length);
        QCOMPARE(ErrorOf([] { ApplyPlaceholderCurve(0); }), ErrorNumber::OutOfRange);
    }
}

void CurveModuleTest::the_placeholder_can_be_refused_as_not_meaningful()
{
    CurveFixture fixture;
    ReferenceCurves[0].Points[0] = {0, 1};
    ProjectSlots[0].CurveApplied = true;
    BoxAnswers answers({QMessageBox::Ok});
    ApplyPlaceholderCurve(0);
    QCOMPARE(answers.Texts(),
             QStringList{QStringLiteral("Simulation data is not meaningful, non-implementation of this "
                                        "software application! ")});
    QCOMPARE(AppliedSlots(), QList<int>());
}

void CurveModuleTest::a_single_point_is_not_applied()
{
    CurveFixture fixture;
    PutRow(0, 1, 3, 4, true);
    ProjectSlots[0].CurveApplied = true;
    const BoxAnswers noBox;
    ApplyReferenceCurve(0);
    QCOMPARE(AppliedSlots(), QList<int>());
    QCOMPARE(ReferenceCurves[0].XMin, 3.0);
    QCOMPARE(ReferenceCurves[0].YMax, 4.0);
}

void CurveModuleTest::no_point_at_all_is_out_of_range()
{
    CurveFixture fixture;
    QCOMPARE(ErrorOf([] { ApplyReferenceCurve(0); }), ErrorNumber::OutOfRange);
}

QTEST_MAIN(CurveModuleTest)
#include "tst_curve_module.moc"
