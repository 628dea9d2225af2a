/// @file
/// The reference picture for its tests: a project whose curve is put by hand, and what its picture should look like.
#pragma once

#include "display/PixelCanvas.h"
#include "display/ReferencePictureModule.h"
#include "platform/MemorySurface.h"
#include "platform/PixelDrawing.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <vector>

inline constexpr int Line = 0;
inline constexpr int Least = 1;
inline constexpr ColourRef GridColour = Rgb(0, 0, 255);
inline constexpr ColourRef LineColour = Rgb(64, 0, 64);
inline constexpr ColourRef LeastColour = Rgb(255, 0, 0);
inline constexpr ColourRef SegmentColour = Rgb(0, 255, 0);

/// The picture as the rules tell it, drawn pixel by pixel.
class ExpectedPlot : public PixelCanvas {
public:
    explicit ExpectedPlot(int side) : PixelCanvas(side, side, Rgb(255, 255, 255)) {}

    void Grid(bool visible)
    {
        for (int i = 0; i < Width(); ++i) {
            Set(0, i, GridColour);
            Set(i, Width() - 1, GridColour);
        }
        const int cell = Width() / 50;
        for (int i = 1; i <= 49; ++i) {
            const int length = i % 5 == 0 ? cell / 2 : cell / 4;
            for (int t = 0; t <= length; ++t) {
                Set(i * cell, 1 + t, GridColour);
                Set(i * cell, Width() - 2 - t, GridColour);
                Set(1 + t, i * cell, GridColour);
                Set(Width() - 2 - t, i * cell, GridColour);
            }
        }
        for (int i = 1; visible && i <= 9; ++i) {
            for (int j = 1; j <= 49; ++j) {
                Set(i * 5 * cell, j * cell, GridColour);
                Set(j * cell, i * 5 * cell, GridColour);
            }
        }
    }

    /// The pixels from (column, from) on, without (column + 1, to).
    void Step(int column, int from, int to, ColourRef colour)
    {
        const int length = std::max(std::abs(to - from), 1);
        const int direction = to < from ? -1 : 1;
        for (int k = 0; k < length; ++k) {
            const bool nearerToEnd = length > 1 && 2 * k >= length;
            Set(column + (nearerToEnd ? 1 : 0), from + (length > 1 ? direction * k : 0), colour);
        }
    }

    /// Joins the rows of neighbouring columns from one column to another.
    void Curve(int first, int last, const std::function<int(int)> &rowOf, ColourRef colour)
    {
        for (int column = first; column < last; ++column)
            Step(column, rowOf(column), rowOf(column + 1), colour);
    }

    void Dot(int x, int y, ColourRef colour)
    {
        for (int i = 0; i < 9; ++i)
            Set(x - 1 + i % 3, y - 1 + i / 3, colour);
    }
};

/// A point of a curve, as the reference table has it.
struct Row {
    double X = 0;
    double Y = 0;
    bool Segment = false;
    std::uint8_t Arithmetic = Line;
};

/// Has the library hold the straight line through two points.
inline void HoldLine(double x1, double y1, double x2, double y2)
{
    const CurvePoint points[] = {{x1, y1}, {x2, y2}};
    const CurveFlag flags[] = {{Line, 1}, {Line, 0}};
    SEN_NewBuild_Z(2, points, flags);
}

/// Publishes points as Apply does, without a build.
inline void Publish(int slot, const std::vector<Row> &rows)
{
    ReferenceCurve &curve = ReferenceCurves[slot];
    for (std::size_t i = 0; i < rows.size(); ++i) {
        curve.Points[i] = {rows[i].X, rows[i].Y};
        curve.Flags[i] = {rows[i].Arithmetic, static_cast<std::uint8_t>(rows[i].Segment ? 1 : 0)};
    }
    curve.Count = static_cast<std::int32_t>(rows.size());
    curve.XMin = rows.front().X;
    curve.XMax = rows.back().X;
    curve.YMax = MaxCurveOutput(curve.Points, curve.Count);
    curve.YMin = MinCurveOutput(curve.Points, curve.Count);
}

/// A page that leaves room for a plot of the given side, laid out and with its axes.
inline void PreparePlot(SensorProjFrm &form, int slot, int side)
{
    form.SpecifyCurvePic->resize(83 + 10 + 30 + side, 20 + 20 + side);
    LayoutReferencePage(slot);
    ReleaseReferenceBuffer(slot);
    CreateReferenceBuffer(slot);
    DrawReferenceAxes(slot);
}

/// The surround with eleven numbers along each axis.
inline QImage ExpectedSurround(const PictureBox &surround, const PictureBox &plot, const QStringList &abscissa,
                               const QStringList &ordinate)
{
    QImage image(surround.size(), QImage::Format_RGB32);
    image.fill(surround.palette().color(QPalette::Window));
    const int bottom = plot.y() + plot.height();
    const int step = plot.width() / 10;
    for (int i = 0; i <= 10; ++i) {
        const int x = Nearest(plot.x() + step * i - 2.5 * static_cast<int>(abscissa[i].size()));
        DrawPictureText(image, x, bottom + 2, abscissa[i], Rgb(0, 0, 0));
        DrawPictureText(image, 0, Nearest(bottom - step * i - 4.5), ordinate[i], Rgb(255, 0, 255));
    }
    return image;
}

inline SensorProjFrm &Form()
{
    return *ProjectForm[0];
}

inline const QImage &Plot()
{
    return Form().PicRef->Image();
}

inline void Compare(const ExpectedPlot &expected)
{
    QCOMPARE(Difference(Plot(), expected.Image), QString());
}

/// A frame with one project in slot 0, without any curve; it gives back all surfaces.
class ReferencePictureBench : public BareFrame {
public:
    ReferencePictureBench()
    {
        SEN_Free();
        AddProject(0);
    }
    ~ReferencePictureBench()
    {
        for (int slot = 0; slot < SlotCount; ++slot)
            ReleaseReferenceBuffer(slot);
    }
    Q_DISABLE_COPY_MOVE(ReferencePictureBench)
};
