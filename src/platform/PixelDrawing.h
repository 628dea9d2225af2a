/// @file
/// Lines and text on an image, pixel by pixel and without antialiasing.
#pragma once

#include "platform/Measures.h"

#include <QImage>
#include <QString>

#include <cstdint>

inline constexpr int PictureTextCharacterWidth = 5; ///< pixels, of a character of the axis text
inline constexpr int PictureTextLineHeight = 9;     ///< pixels

/// Whether a line sets its last pixel.
enum class LineEnd { Included, Left };

/// Draws a line of pen width 1 or 2. Along its longer side every step sets one pixel, the other coordinate rounds to
/// the nearest, a half away from the start. Width 2 also sets the pixel to the left of each (in a mostly vertical line)
/// or above it. Pixels outside the image are left out, whatever the size of the coordinates.
void DrawPixelLine(QImage &image, std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, ColourRef colour,
                   int width, LineEnd end);

/// Sets one pixel. @return false outside the image
bool SetImagePixel(QImage &image, std::int32_t x, std::int32_t y, ColourRef colour);

/// Pixels that DrawPictureText moves on for a text: 5 a character, 10 for one that only the Chinese font has.
int PictureTextWidth(const QString &text);

/// Draws axis text: DejaVu Sans Mono of 9 pixels, Noto Sans CJK for Chinese, no antialiasing, its base line 8 pixels
/// below y.
void DrawPictureText(QImage &image, std::int32_t x, std::int32_t y, const QString &text, ColourRef colour);
