#include "display/ReferencePictureModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "curve/CurveSimulation.h"
#include "curve/ReferenceCurve.h"
#include "display/DispFunctionModule.h"
#include "display/SensorProjFrm.h"
#include "platform/MemorySurface.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "shell/ActiveProject.h"
#include "shell/MainModule.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace {

constexpr int SurroundLeft = 83; ///< pixels that the frames take at the left of the page
constexpr int SurroundMargin = 10;
constexpr int PlotLeft = 30;
constexpr int PlotTop = 10;
constexpr int PlotCells = 50;      ///< ticks along each side of the plot
constexpr int PlotRoomAcross = 30; ///< what the surround keeps for the axis numbers
constexpr int PlotRoomDown = 20;
constexpr ColourRef Red = Rgb(255, 0, 0);

bool FailureOnScreen = false; ///< the box of CloseIllegalProject is up

/// A pen of width 1 in a memory surface, until it goes.
class SelectedPen {
public:
    SelectedPen(SurfaceHandle context, ColourRef colour)
        : m_context(context), m_pen(CreatePen(1, colour)), m_before(SelectObject(context, m_pen))
    {
    }
    ~SelectedPen()
    {
        SelectObject(m_context, m_before);
        DeleteObject(m_pen);
    }
    SelectedPen(const SelectedPen &) = delete;
    SelectedPen &operator=(const SelectedPen &) = delete;

private:
    SurfaceHandle m_context;
    SurfaceHandle m_pen;
    SurfaceHandle m_before;
};

/// The scale of one drawing: from the units of the curve to pixels of the plot.
struct PlotScale {
    int Width = 0; ///< pixels
    int Height = 0;
    double XMin = 0;
    double XScale = 0; ///< pixels a unit
    double YTop = 0;   ///< the value at the upper edge
    double YScale = 0;

    std::int32_t Column(double x) const { return RoundToInt32((x - XMin) * XScale); }
    std::int32_t Row(double y) const { return RoundToInt32((YTop - y) * YScale); }

    void SetRange(double top, double low)
    {
        YTop = top;
        YScale = PixelsPerUnit(Height, top, low);
    }

    /// @throws RuntimeError 11 for an empty range, 6 for one beyond double
    static double PixelsPerUnit(int pixels, double high, double low)
    {
        if (!std::isfinite(high - low))
            throw RuntimeError(ErrorNumber::Overflow);
        return Quotient(pixels, high - low);
    }
};

CurveView ViewOf(const ReferenceCurve &curve)
{
    return {curve.Points, curve.Flags, curve.Count, curve.XMin, curve.XMax};
}

PlotScale ScaleOf(const ReferenceCurve &curve, const PictureBox &plot)
{
    PlotScale scale;
    scale.Width = plot.ScaleWidth();
    scale.Height = plot.ScaleHeight();
    scale.XMin = curve.XMin;
    scale.SetRange(curve.YMax, curve.YMin);
    scale.XScale = PlotScale::PixelsPerUnit(scale.Width, curve.XMax, curve.XMin);
    return scale;
}

void DrawAxisNumbers(const ReferenceCurve &curve, SensorProjFrm &form, double top, double low)
{
    DrawReferenceAxisText(true, *form.PicRef, *form.PicRefBack,
                          {curve.AbscissaColor, curve.OrdinateColor, curve.XMin, curve.XMax, top, low});
}

/// Widens the drawn range to what the simulation found beyond the points.
void WidenRange(const ReferenceCurve &curve, SensorProjFrm &form, const CurveSimulation &simulation, PlotScale &scale)
{
    const auto count = static_cast<std::int32_t>(simulation.Simulated.size());
    const double top = std::max(curve.YMax, MaxCurveOutput(simulation.Simulated, count));
    const double low = std::min(curve.YMin, MinCurveOutput(simulation.Simulated, count));
    if (top > curve.YMax || low < curve.YMin)
        DrawAxisNumbers(curve, form, top, low);
    scale.SetRange(top, low);
}

/// @throws RuntimeError 9 for a column that was not simulated
std::int32_t RowOfColumn(const CurveSimulation &simulation, const PlotScale &scale, std::int32_t column)
{
    const std::int64_t i = std::int64_t{column} - simulation.FirstColumn;
    if (i < 0 || i >= static_cast<std::int64_t>(simulation.Simulated.size()))
        throw RuntimeError(ErrorNumber::OutOfRange);
    return scale.Row(simulation.Simulated[static_cast<std::size_t>(i)].Y);
}

void DrawStretches(const ReferenceCurve &curve, const CurveSimulation &simulation, const PlotScale &scale)
{
    const std::vector<CurveStretch> &stretches = simulation.Stretches;
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const std::int32_t first = stretches[i].Column;
        const std::int32_t last = i + 1 < stretches.size() ? stretches[i + 1].Column : simulation.LastColumn;
        const SelectedPen pen(curve.MemoryDC, stretches[i].Arithmetic == 1 ? curve.LeastDotColor : curve.LineDotColor);
        MoveToEx(curve.MemoryDC, first, RowOfColumn(simulation, scale, first));
        for (std::int32_t column = first + 1; column <= last; ++column)
            LineTo(curve.MemoryDC, column, RowOfColumn(simulation, scale, column));
    }
}

/// A dot on the edge moves inwards, so that its nine pixels stay inside.
std::int32_t KeptInside(std::int32_t position, int size)
{
    if (position == 0)
        return 1;
    return position == size ? position - 2 : position;
}

/// @throws RuntimeError 6 when it does not fit
std::int32_t Neighbour(std::int32_t position, int distance)
{
    return RoundToInt32(static_cast<double>(position) + distance);
}

ColourRef DotColour(const ReferenceCurve &curve, const CurveFlag &flag)
{
    if (flag.IsSegment == 1)
        return curve.SegmentDotColor;
    return flag.Arithmetic == 1 ? curve.LeastDotColor : curve.LineDotColor;
}

void DrawDots(const ReferenceCurve &curve, const PlotScale &scale, const PointsInView &inView)
{
    for (std::int32_t i = inView.First; i <= inView.Last; ++i) {
        const std::int32_t x = KeptInside(scale.Column(curve.Points[i].X), scale.Width);
        const std::int32_t y = KeptInside(scale.Row(curve.Points[i].Y), scale.Height);
        const ColourRef colour = DotColour(curve, curve.Flags[i]);
        for (int down = -1; down <= 1; ++down) {
            for (int across = -1; across <= 1; ++across)
                SetPixel(curve.MemoryDC, Neighbour(x, across), Neighbour(y, down), colour);
        }
    }
}

void DrawCurveAndDots(const ReferenceCurve &curve, SensorProjFrm &form, bool drawCurve)
{
    PictureBox &plot = *form.PicRef;
    plot.DrawWidth = 1;
    plot.ForeColour = Red;
    PlotScale scale = ScaleOf(curve, plot);
    const CurveView view = ViewOf(curve);
    if (!AnyPointInView(view))
        return;
    const PointsInView inView = FindPointsInView(view);
    BitBlt(curve.MemoryDC, 0, 0, scale.Width, scale.Height, plot.Context(), 0, 0);
    if (drawCurve) {
        const CurveSimulation simulation = SimulateCurve(view, scale.Width);
        WidenRange(curve, form, simulation, scale);
        DrawStretches(curve, simulation, scale);
    }
    DrawDots(curve, scale, inView);
    BitBlt(plot.Context(), 0, 0, scale.Width, scale.Height, curve.MemoryDC, 0, 0);
    plot.Refresh();
}

/// Tells the user that a project cannot be drawn, and closes the active project without a question.
void CloseIllegalProject()
{
    // The frame can be resized under the box: the drawing fails again then, and must not close a second project.
    if (FailureOnScreen)
        return;
    const QScopedValueRollback<bool> onScreen(FailureOnScreen, true);
    ExclamationBox(Wording(QStringLiteral("You have loaded illegal project file,the current project will be closed! "),
                           QStringLiteral("您载入的是非法工程文件，当前工程即将被关闭! ")));
    SensorProjFrm &form = FormOfSlot(ActiveSlot());
    const QScopedValueRollback<bool> closing(ClosingAll, true);
    form.close();
}

void ToggleGrid(SensorProjFrm &form)
{
    const int slot = SlotOf(form);
    ReferenceCurves[slot].GridVisible = form.ChkGridRef->checkState() != Qt::Unchecked;
    DrawReferencePlotGrid(slot);
    if (LastUsedRow(slot) >= 2 && ProjectSlots[slot].CurveApplied)
        DrawReferenceCurve(slot, true);
}

/// Side of the square plot in pixels.
int PlotSide(const PictureBox &surround)
{
    const int cells =
        std::min(surround.ScaleWidth() - PlotRoomAcross, surround.ScaleHeight() - PlotRoomDown) / PlotCells;
    return PlotCells * std::max(cells, 1);
}

} // namespace

void LayoutReferencePage(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    QWidget &page = *form.SpecifyCurvePic;
    page.setPalette(form.palette());
    page.setAutoFillBackground(true);
    PictureBox &surround = *form.PicRefBack;
    surround.BackColour = RefFromColour(page.palette().color(QPalette::Window));
    surround.setGeometry(SurroundLeft, SurroundMargin, std::max(page.width() - SurroundLeft - SurroundMargin, 0),
                         std::max(page.height() - 2 * SurroundMargin, 0));
    const int side = PlotSide(surround);
    form.PicRef->setGeometry(PlotLeft, PlotTop, side, side);
}

void CreateReferenceBuffer(int slot)
{
    const SensorProjFrm &form = FormOfSlot(slot);
    ReferenceCurve &curve = ReferenceCurves[slot];
    const PictureBox &plot = *form.PicRef;
    curve.MemoryDC = CreateCompatibleDC(plot.Context());
    if (curve.MemoryDC == 0)
        return;
    const SurfaceHandle bitmap = CreateCompatibleBitmap(plot.Context(), plot.ScaleWidth(), plot.ScaleHeight());
    if (bitmap != 0) {
        curve.MemoryBitmap = SelectObject(curve.MemoryDC, bitmap);
    } else {
        DeleteDC(curve.MemoryDC);
        curve.MemoryDC = 0;
    }
    SetBkColor(curve.MemoryDC, RefFromColour(form.SpecifyCurvePic->palette().color(QPalette::Window)));
}

void ReleaseReferenceBuffer(int slot)
{
    ReferenceCurve &curve = ReferenceCurves[CheckedSlot(slot)];
    if (curve.MemoryBitmap == 0)
        return;
    DeleteObject(SelectObject(curve.MemoryDC, curve.MemoryBitmap));
    curve.MemoryBitmap = 0;
    if (curve.MemoryDC == 0)
        return;
    DeleteDC(curve.MemoryDC);
    curve.MemoryDC = 0;
}

void DrawReferenceAxisNumbers(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    const ReferenceCurve &curve = ReferenceCurves[slot];
    DrawAxisNumbers(curve, form, curve.YMax, curve.YMin);
}

void DrawReferencePlotGrid(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    const ReferenceCurve &curve = ReferenceCurves[slot];
    DrawReferenceGrid(curve.GridVisible, *form.PicRef, curve.GridColor, curve.BackColor);
}

void DrawReferenceAxes(int slot)
{
    DrawReferenceAxisNumbers(slot);
    DrawReferencePlotGrid(slot);
}

void DrawReferenceCurve(int slot, bool drawCurve)
{
    SensorProjFrm &form = FormOfSlot(slot);
    try {
        DrawCurveAndDots(ReferenceCurves[slot], form, drawCurve);
    } catch (const RuntimeError &) {
        CloseIllegalProject();
    }
}

void ConnectReferencePicture(SensorProjFrm &form)
{
    ConnectGuarded(form.ChkGridRef, &QCheckBox::clicked, &form, [&form] { ToggleGrid(form); });
}
