#include "display/DispFunctionModule.h"

#include "display/NumberFormatModule.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>

namespace {

constexpr int TextCharacterWidth = 5; ///< pixels that the placing of axis text counts for a character
constexpr int TextLineHeight = 9;     ///< and for a line
constexpr int TextBelowPlot = 2;      ///< pixels between the plot's lower edge and the numbers under it

constexpr int WaveColumns = 12; ///< divisions of a time curve
constexpr int WaveRows = 5;
constexpr int WaveRangeRows = 3; ///< the middle ones, which hold the value range
constexpr int ReferenceDivisions = 10;
constexpr int TicksPerDivision = 5;
constexpr double SpanOfConstantCurve = 0.1; ///< value range of a curve whose range is empty

/// Divisions of a plot, with five ticks each.
struct Graticule {
    int Columns = 0;
    int Rows = 0;
};

constexpr Graticule WaveGraticule{WaveColumns, WaveRows};
constexpr Graticule ReferenceGraticule{ReferenceDivisions, ReferenceDivisions};

std::int32_t Share(int length, int parts)
{
    return RoundToInt32(static_cast<double>(length) / parts);
}

/// Text centred below the plot at a column of the surround.
void DrawAbscissaText(PictureBox &background, int x, int bottom, const QString &text)
{
    const double left = x - static_cast<double>(TextCharacterWidth * text.size()) / 2;
    background.Text(RoundToInt32(left), bottom + TextBelowPlot, text);
}

/// Text at the left edge, its middle at a row of the surround.
void DrawOrdinateText(PictureBox &background, int y, const QString &text)
{
    background.Text(0, RoundToInt32(y - static_cast<double>(TextLineHeight) / 2), text);
}

/// Ticks along all four edges, every fifth of them long.
void DrawTicks(PictureBox &plot, const Graticule &graticule)
{
    const int width = plot.ScaleWidth();
    const int height = plot.ScaleHeight();
    const int columns = graticule.Columns * TicksPerDivision;
    const int rows = graticule.Rows * TicksPerDivision;
    const std::int32_t stepX = Share(width, columns);
    const std::int32_t stepY = Share(height, rows);
    // Required: both lengths follow from the horizontal step, those of the vertical scale too.
    const auto tickLength = [stepX](int tick) { return tick % TicksPerDivision == 0 ? stepX / 2 : stepX / 4; };
    for (int i = 1; i < columns; ++i) {
        const std::int32_t x = i * stepX;
        plot.Line(x, 1, x, tickLength(i) + 1);
        plot.Line(x, height - 2, x, height - 2 - tickLength(i));
    }
    for (int j = 1; j < rows; ++j) {
        const std::int32_t y = j * stepY;
        plot.Line(1, y, tickLength(j) + 1, y);
        plot.Line(width - 2, y, width - 2 - tickLength(j), y);
    }
}

/// One dot on every crossing of columns and rows, the edges left out.
void DrawDots(PictureBox &plot, int columns, int rows)
{
    const std::int32_t stepX = Share(plot.ScaleWidth(), columns);
    const std::int32_t stepY = Share(plot.ScaleHeight(), rows);
    for (int i = 1; i < columns; ++i) {
        for (int j = 1; j < rows; ++j)
            plot.Dot(i * stepX, j * stepY);
    }
}

void DrawDottedGrid(PictureBox &plot, const Graticule &graticule)
{
    DrawDots(plot, graticule.Columns, graticule.Rows * TicksPerDivision);
    DrawDots(plot, graticule.Columns * TicksPerDivision, graticule.Rows);
}

/// A frame of two pixels along all edges: a line of pen width 2 also sets the pixels to its left or above it.
void DrawFrame(PictureBox &plot)
{
    const int right = plot.ScaleWidth() - 1;
    const int bottom = plot.ScaleHeight() - 1;
    plot.DrawWidth = 2;
    plot.Line(1, 0, 1, bottom);
    plot.Line(0, 1, right, 1);
    plot.Line(right, 1, right, bottom);
    plot.Line(1, bottom, right, bottom);
    plot.DrawWidth = 1;
}

/// A pen that is selected into a surface for a while and gone afterwards, whatever happens in between.
class TracePen {
public:
    explicit TracePen(ColourRef colour) : m_pen(CreatePen(1, colour)) {}
    ~TracePen()
    {
        SelectObject(m_surface, m_previous);
        DeleteObject(m_pen);
    }
    TracePen(const TracePen &) = delete;
    TracePen &operator=(const TracePen &) = delete;

    void SelectInto(SurfaceHandle surface)
    {
        m_surface = surface;
        m_previous = SelectObject(surface, m_pen);
    }

private:
    SurfaceHandle m_pen;
    SurfaceHandle m_surface = 0;
    SurfaceHandle m_previous = 0;
};

/// The visible part of a record and its way to pixels.
struct TraceView {
    std::int32_t First = 0; ///< samples First to Last are drawn
    std::int32_t Last = 0;
    double Top = 0; ///< value at one fifth of the height
    double TopPixel = 0;
    double YScale = 0; ///< pixels per unit
    float XScale = 0;  ///< pixels per sample, a single

    double Column(const WavePoint &point) const { return (point.X - First) * static_cast<double>(XScale); }
    double Row(const WavePoint &point) const { return (Top - point.Y) * YScale + TopPixel; }
};

TraceView MakeTraceView(const PictureBox &plot, const WaveRecord &record)
{
    const int height = plot.ScaleHeight();
    TraceView view;
    view.First = std::max(record.FirstVisible, std::int32_t{0});
    view.Last = std::min(record.LastIndex, record.LastVisible);
    view.Top = record.YMax;
    view.TopPixel = static_cast<double>(height) / WaveRows;
    const double span = record.YMax - record.YMin;
    view.YScale =
        Quotient(static_cast<double>((height - 1) * WaveRangeRows) / WaveRows, span == 0 ? SpanOfConstantCurve : span);
    const double samples = static_cast<double>(record.LastVisible) - record.FirstVisible;
    view.XScale = static_cast<float>(Quotient(plot.ScaleWidth() - 1, samples));
    return view;
}

const WavePoint &PointAt(const WaveRecord &record, std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= record.Points.size())
        throw RuntimeError(ErrorNumber::OutOfRange);
    return record.Points[static_cast<std::size_t>(index)];
}

/// Joins the samples; an invalid one is a spike to the top edge.
void TraceLines(const WaveRecord &record, const TraceView &view)
{
    const auto rowOf = [&view](const WavePoint &point) {
        return IsOverload(point.Y) ? 0 : RoundToInt32(view.Row(point));
    };
    MoveToEx(record.MemoryDcB, 0, rowOf(PointAt(record, view.First)));
    for (std::int32_t i = view.First + 1; i <= view.Last; ++i) {
        const WavePoint &point = PointAt(record, i);
        LineTo(record.MemoryDcB, RoundToInt32(view.Column(point)), rowOf(point));
    }
}

/// A pixel coordinate, none when it is far outside any surface.
std::optional<std::int32_t> PixelAt(double coordinate)
{
    constexpr double farthest = std::numeric_limits<std::int32_t>::max();
    if (!(std::abs(coordinate) < farthest))
        return std::nullopt;
    return RoundToInt32(coordinate);
}

/// Required: no test for invalid samples. Their pixels fall outside the surface and leave a gap.
void TraceDots(const WaveRecord &record, const TraceView &view)
{
    for (std::int32_t i = view.First; i <= view.Last; ++i) {
        const WavePoint &point = PointAt(record, i);
        const std::optional<std::int32_t> x = PixelAt(view.Column(point));
        const std::optional<std::int32_t> y = PixelAt(view.Row(point));
        if (x && y)
            SetPixel(record.MemoryDcB, *x, *y, record.TraceColour);
    }
}

} // namespace

void DrawWaveAxisText(PictureBox &background, const PictureBox &plot, const WaveRecord &record)
{
    background.Clear();
    const int bottom = plot.y() + plot.height();
    const double dx = (record.XMax - record.XMin) / WaveColumns;
    const double dy = (record.YMax - record.YMin) / WaveRangeRows;
    const std::int32_t stepX = Share(plot.width(), WaveColumns);
    const std::int32_t stepY = Share(plot.height(), WaveRows);

    background.ForeColour = record.XTextColour;
    const QString picture = std::floor(dx) >= dx ? QStringLiteral("0") : QStringLiteral("0.0##");
    for (int i = 0; i < WaveColumns; ++i)
        DrawAbscissaText(background, plot.x() + stepX * i, bottom, FormatNumber(dx * i + record.XMin, picture));
    DrawAbscissaText(background, plot.x() + stepX * WaveColumns, bottom, record.XUnitText);

    background.ForeColour = record.YTextColour;
    for (int i = 0; i < WaveRows; ++i) {
        const QString number = GeneralNumber(dy * (i - 1) + record.YMin);
        DrawOrdinateText(background, bottom - stepY * i, FormatAxisValue(number));
    }
    DrawOrdinateText(background, bottom - stepY * WaveRows, record.YUnitText);
    background.Refresh();
}

void DrawWaveGrid(PictureBox &plot, const WaveRecord &record)
{
    plot.BackColour = WaveBackColour;
    plot.ForeColour = record.GridColour;
    DrawFrame(plot);
    DrawTicks(plot, WaveGraticule);
    if (record.Grid)
        DrawDottedGrid(plot, WaveGraticule);
}

void DrawWaveTrace(PictureBox &plot, const WaveRecord &record)
{
    TracePen pen(record.TraceColour);
    if (record.YMax == record.YMin && record.FirstVisible == record.LastVisible)
        return;
    if (record.LastIndex <= 0)
        return;
    const TraceView view = MakeTraceView(plot, record);
    const int width = plot.ScaleWidth();
    const int height = plot.ScaleHeight();
    BitBlt(record.MemoryDcB, 0, 0, width, height, plot.Context(), 0, 0);
    if (record.Link) {
        pen.SelectInto(record.MemoryDcB);
        TraceLines(record, view);
    } else {
        TraceDots(record, view);
    }
    BitBlt(plot.Context(), 0, 0, width, height, record.MemoryDcB, 0, 0);
}

void DrawReferenceAxisText(bool enabled, const PictureBox &plot, PictureBox &background, const ReferenceAxes &axes)
{
    if (!enabled)
        return;
    background.Clear();
    const int bottom = plot.y() + plot.height();
    const double dx = (axes.XMax - axes.XMin) / ReferenceDivisions;
    const double dy = (axes.YMax - axes.YMin) / ReferenceDivisions;
    const std::int32_t stepX = Share(plot.width(), ReferenceDivisions);
    const std::int32_t stepY = Share(plot.height(), ReferenceDivisions);

    background.ForeColour = axes.AbscissaColor;
    for (int i = 0; i <= ReferenceDivisions; ++i) {
        const QString number = FormatReadingValue(GeneralNumber(dx * i + axes.XMin));
        DrawAbscissaText(background, plot.x() + stepX * i, bottom, number);
    }
    background.ForeColour = axes.OrdinateColor;
    for (int i = 0; i <= ReferenceDivisions; ++i) {
        const QString number = FormatReadingValue(GeneralNumber(dy * i + axes.YMin));
        DrawOrdinateText(background, bottom - stepY * i, number);
    }
    background.Refresh();
}

void DrawReferenceGrid(bool gridVisible, PictureBox &plot, ColourRef gridColor, ColourRef backColor)
{
    plot.BackColour = backColor;
    plot.ForeColour = gridColor;
    plot.Clear();
    plot.DrawWidth = 1;
    const int right = plot.ScaleWidth() - 1;
    const int bottom = plot.ScaleHeight() - 1;
    plot.Line(0, 0, 0, bottom);
    plot.Line(0, bottom, right, bottom);
    DrawTicks(plot, ReferenceGraticule);
    if (gridVisible)
        DrawDottedGrid(plot, ReferenceGraticule);
    plot.Refresh();
}
