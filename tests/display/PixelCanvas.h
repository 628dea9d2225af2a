/// @file
/// What pictures should look like, drawn with code of its own: pixels, frames, ticks, dots and lines by the rules.
#pragma once

#include "platform/Measures.h"

#include <QImage>
#include <QString>

#include <algorithm>
#include <cmath>
#include <cstdlib>

/// Rounds to the nearest integer, ties to even.
inline int Nearest(double value)
{
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return static_cast<int>(below) + (up ? 1 : 0);
}

class PixelCanvas {
public:
    PixelCanvas(int width, int height, ColourRef background) : Image(width, height, QImage::Format_RGB32)
    {
        Image.fill(ColourFromRef(background));
    }
    explicit PixelCanvas(const QImage &image) : Image(image.copy()) {}

    int Width() const { return Image.width(); }
    int Height() const { return Image.height(); }

    void Set(int x, int y, ColourRef colour)
    {
        if (Image.valid(x, y))
            Image.setPixelColor(x, y, ColourFromRef(colour));
    }

    /// All pixels from one corner to the other, both included.
    void Fill(int x1, int y1, int x2, int y2, ColourRef colour)
    {
        for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x) {
            for (int y = std::min(y1, y2); y <= std::max(y1, y2); ++y)
                Set(x, y, colour);
        }
    }

    /// A thin line that stops before its last pixel.
    void LineUpTo(int x1, int y1, int x2, int y2, ColourRef colour)
    {
        const int steps = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
        for (int step = 0; step < steps; ++step)
            Set(Between(x1, x2, step, steps), Between(y1, y2, step, steps), colour);
    }

    /// Ticks on all edges of columns by rows divisions with five ticks each.
    void Ticks(int columns, int rows, ColourRef colour)
    {
        const int w = Width();
        const int h = Height();
        const int sx = Nearest(w / (columns * 5.0));
        const int sy = Nearest(h / (rows * 5.0));
        for (int i = 1; i < columns * 5; ++i) {
            const int t = i % 5 == 0 ? sx / 2 : sx / 4;
            Fill(i * sx, 1, i * sx, 1 + t, colour);
            Fill(i * sx, h - 2, i * sx, h - 2 - t, colour);
        }
        for (int j = 1; j < rows * 5; ++j) {
            const int t = j % 5 == 0 ? sx / 2 : sx / 4;
            Fill(1, j * sy, 1 + t, j * sy, colour);
            Fill(w - 2, j * sy, w - 2 - t, j * sy, colour);
        }
    }

    /// The dotted lines between the divisions, one dot a tick.
    void Dots(int columns, int rows, ColourRef colour)
    {
        for (int i = 1; i < columns; ++i) {
            for (int j = 1; j < rows * 5; ++j)
                Set(i * Nearest(Width() / double(columns)), j * Nearest(Height() / (rows * 5.0)), colour);
        }
        for (int i = 1; i < rows; ++i) {
            for (int j = 1; j < columns * 5; ++j)
                Set(j * Nearest(Width() / (columns * 5.0)), i * Nearest(Height() / double(rows)), colour);
        }
    }

    /// Frame, ticks and, if wanted, the grid of a time curve.
    void WaveGraticule(bool grid, ColourRef colour)
    {
        const int right = Width() - 1;
        const int bottom = Height() - 1;
        Fill(0, 0, 1, bottom, colour);
        Fill(right - 1, 0, right, bottom, colour);
        Fill(0, 0, right, 1, colour);
        Fill(0, bottom - 1, right, bottom, colour);
        Ticks(12, 5, colour);
        if (grid)
            Dots(12, 5, colour);
    }

    QImage Image;

private:
    /// The coordinate after some of all steps; a half goes away from the start.
    static int Between(int from, int to, int step, int steps)
    {
        const double way = std::abs(double(to) - from) * step / steps;
        return from + (to < from ? -1 : 1) * static_cast<int>(std::floor(way + 0.5));
    }
};

/// Where two pictures differ first, empty when they do not.
inline QString Difference(const QImage &actual, const QImage &expected)
{
    if (actual.size() != expected.size())
        return QStringLiteral("size %1 x %2").arg(actual.width()).arg(actual.height());
    for (int y = 0; y < actual.height(); ++y) {
        for (int x = 0; x < actual.width(); ++x) {
            if (actual.pixelColor(x, y) != expected.pixelColor(x, y)) {
                return QStringLiteral("(%1, %2) is %3, not %4")
                    .arg(x)
                    .arg(y)
                    .arg(actual.pixelColor(x, y).name(), expected.pixelColor(x, y).name());
            }
        }
    }
    return {};
}
