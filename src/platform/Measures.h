/// @file
/// Twips, pixels and colours: the three measures in which forms are laid out and pictures are drawn.
#pragma once

#include <QColor>

#include <cstdint>

inline constexpr int TwipsPerPixel = 15;

/// Pixels of a length in twips, rounded to the nearest pixel (halves away from zero).
constexpr int PixelsFromTwips(int twips)
{
    return (twips >= 0 ? twips + TwipsPerPixel / 2 : twips - TwipsPerPixel / 2) / TwipsPerPixel;
}

/// A colour as 0x00BBGGRR.
using ColourRef = std::int32_t;

/// Red, green and blue, each 0 to 255, as 0x00BBGGRR.
constexpr ColourRef Rgb(int red, int green, int blue)
{
    return static_cast<ColourRef>(red | (green << 8) | (blue << 16));
}

inline QColor ColourFromRef(ColourRef colour)
{
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

inline ColourRef RefFromColour(const QColor &colour)
{
    return Rgb(colour.red(), colour.green(), colour.blue());
}
