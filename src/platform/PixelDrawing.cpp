#include "platform/PixelDrawing.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPoint>

#include <algorithm>
#include <utility>

namespace {

constexpr int BaseLineBelowTop = 8;  ///< pixels
constexpr int PictureFontPixels = 9; ///< size of the axis text's fonts

QRgb PixelFromRef(ColourRef colour)
{
    return qRgb(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

/// Makes an image of another format one of 32 bits a pixel. @return false when it holds no pixel
bool MakeDrawable(QImage &image)
{
    image.convertTo(QImage::Format_RGB32);
    return !image.isNull();
}

/// A line seen along its longer side: that is the major coordinate, the other one the minor.
struct Stepping {
    std::int64_t Major = 0; ///< where it starts
    std::int64_t Minor = 0;
    std::int64_t MajorStep = 1; ///< 1 or -1
    std::int64_t MinorStep = 1;
    std::uint64_t Run = 0;  ///< length along the major coordinate
    std::uint64_t Rise = 0; ///< length along the minor one, at most Run

    /// Twice a 32-bit length still fits, so does this product: (2^32 - 1)^2 + 2^31 is below 2^64.
    std::uint64_t Numerator(std::uint64_t step) const { return step * Rise + Run / 2; }

    /// The minor coordinate after some steps. A half rounds away from the start.
    std::int64_t MinorAt(std::uint64_t step) const
    {
        return Run == 0 ? Minor : Minor + MinorStep * static_cast<std::int64_t>(Numerator(step) / Run);
    }
};

Stepping SteppingAlong(std::int64_t majorFrom, std::int64_t majorTo, std::int64_t minorFrom, std::int64_t minorTo)
{
    Stepping line;
    line.Major = majorFrom;
    line.Minor = minorFrom;
    line.MajorStep = majorTo < majorFrom ? -1 : 1;
    line.MinorStep = minorTo < minorFrom ? -1 : 1;
    line.Run = static_cast<std::uint64_t>((majorTo - majorFrom) * line.MajorStep);
    line.Rise = static_cast<std::uint64_t>((minorTo - minorFrom) * line.MinorStep);
    return line;
}

/// Steps first to last - 1.
struct StepRange {
    std::uint64_t First = 0;
    std::uint64_t Last = 0;
};

/// The first step of a range for which a condition holds that stays true once it is.
template <typename Condition>
std::uint64_t FirstStep(StepRange range, Condition holds)
{
    while (range.First < range.Last) {
        const std::uint64_t middle = range.First + (range.Last - range.First) / 2;
        if (holds(middle)) {
            range.Last = middle;
        } else {
            range.First = middle + 1;
        }
    }
    return range.First;
}

/// The steps whose major coordinate is 0 to majorLast and whose minor one is 0 to minorLast.
StepRange ClippedSteps(const Stepping &line, std::uint64_t steps, std::int64_t majorLast, std::int64_t minorLast)
{
    StepRange range{0, steps};
    const auto majorAt = [&line](std::uint64_t step) {
        return line.Major + line.MajorStep * static_cast<std::int64_t>(step);
    };
    const bool right = line.MajorStep > 0;
    const bool down = line.MinorStep > 0;
    range.First = FirstStep(range, [&](auto step) { return right ? majorAt(step) >= 0 : majorAt(step) <= majorLast; });
    range.Last = FirstStep(range, [&](auto step) { return right ? majorAt(step) > majorLast : majorAt(step) < 0; });
    range.First =
        FirstStep(range, [&](auto step) { return down ? line.MinorAt(step) >= 0 : line.MinorAt(step) <= minorLast; });
    range.Last =
        FirstStep(range, [&](auto step) { return down ? line.MinorAt(step) > minorLast : line.MinorAt(step) < 0; });
    return range;
}

QFont PictureFont(const QString &family)
{
    QFont font(family);
    font.setPixelSize(PictureFontPixels);
    // Without merging the metrics tell what the font itself holds, and not what another could stand in with.
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::NoAntialias | QFont::NoFontMerging));
    font.setHintingPreference(QFont::PreferFullHinting);
    font.setKerning(false);
    return font;
}

/// The two fonts of the axis text, and how far a character moves on.
class PictureFonts {
public:
    const QFont &FontOf(char32_t character) const { return HasLatin(character) ? m_latin : m_chinese; }
    int AdvanceOf(char32_t character) const
    {
        return HasLatin(character) ? PictureTextCharacterWidth : 2 * PictureTextCharacterWidth;
    }

private:
    bool HasLatin(char32_t character) const { return character < 0x80 || m_latinMetrics.inFontUcs4(character); }

    QFont m_latin = PictureFont(QStringLiteral("DejaVu Sans Mono"));
    QFont m_chinese = PictureFont(QStringLiteral("Noto Sans CJK SC"));
    QFontMetrics m_latinMetrics = QFontMetrics(m_latin);
};

} // namespace

void DrawPixelLine(QImage &image, std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, ColourRef colour,
                   int width, LineEnd end)
{
    if (!MakeDrawable(image))
        return;
    const auto distance = [](std::int64_t a, std::int64_t b) { return a < b ? b - a : a - b; };
    const bool steep = distance(y1, y2) > distance(x1, x2);
    const Stepping line = steep ? SteppingAlong(y1, y2, x1, x2) : SteppingAlong(x1, x2, y1, y2);
    const std::int64_t majorSize = steep ? image.height() : image.width();
    const std::int64_t minorSize = steep ? image.width() : image.height();
    const bool wide = width > 1;
    // Of a wide line just outside the right or lower edge the second pixel still shows.
    const StepRange range = ClippedSteps(line, line.Run + (end == LineEnd::Included ? 1 : 0), majorSize - 1,
                                         wide ? minorSize : minorSize - 1);

    auto *const pixels = reinterpret_cast<QRgb *>(image.bits());
    const qsizetype perRow = image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    const qsizetype majorPitch = steep ? perRow : 1;
    const qsizetype minorPitch = steep ? 1 : perRow;
    const QRgb value = PixelFromRef(colour);
    for (std::uint64_t step = range.First; step < range.Last; ++step) {
        const std::int64_t minor = line.MinorAt(step);
        const std::int64_t major = line.Major + line.MajorStep * static_cast<std::int64_t>(step);
        const qsizetype pixel = static_cast<qsizetype>(major) * majorPitch + static_cast<qsizetype>(minor) * minorPitch;
        if (minor < minorSize)
            pixels[pixel] = value;
        if (wide && minor > 0)
            pixels[pixel - minorPitch] = value;
    }
}

bool SetImagePixel(QImage &image, std::int32_t x, std::int32_t y, ColourRef colour)
{
    if (!image.valid(x, y) || !MakeDrawable(image))
        return false;
    reinterpret_cast<QRgb *>(image.scanLine(y))[x] = PixelFromRef(colour);
    return true;
}

int PictureTextWidth(const QString &text)
{
    const PictureFonts fonts;
    int width = 0;
    for (const char32_t character : text.toStdU32String())
        width += fonts.AdvanceOf(character);
    return width;
}

void DrawPictureText(QImage &image, std::int32_t x, std::int32_t y, const QString &text, ColourRef colour)
{
    constexpr int room = 2 * PictureFontPixels; // no glyph reaches further from its cell
    if (!MakeDrawable(image) || y < -room || y > image.height() + room)
        return;
    const PictureFonts fonts;
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    painter.setPen(ColourFromRef(colour));
    std::int64_t left = x;
    // Each character is put into its own cell, so that the widths hold whatever the font engine rounds.
    for (const char32_t character : text.toStdU32String()) {
        if (left > image.width() + room)
            break;
        if (left >= -room) {
            painter.setFont(fonts.FontOf(character));
            painter.drawText(QPoint(static_cast<int>(left), y + BaseLineBelowTop), QString::fromUcs4(&character, 1));
        }
        left += fonts.AdvanceOf(character);
    }
}
