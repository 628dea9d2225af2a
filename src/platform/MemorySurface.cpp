#include "platform/MemorySurface.h"

#include "platform/PixelDrawing.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

namespace {

constexpr std::int64_t LargestBitmapArea = 64'000'000; ///< pixels
constexpr ColourRef White = Rgb(255, 255, 255);

/// What a new context holds belongs to that context: it can be selected back, nowhere else, and goes with it.
struct Bitmap {
    QImage Image;
    SurfaceHandle Owner = 0; ///< the context whose own bitmap it is, 0 for one that was created
};

struct Pen {
    std::int32_t Width = 1;
    ColourRef Colour = 0;
    SurfaceHandle Owner = 0;
};

struct Context {
    QImage *OwnersImage = nullptr; ///< set for the context of a picture box, which has no bitmap
    SurfaceHandle SelectedBitmap = 0;
    SurfaceHandle SelectedPen = 0;
    SurfaceHandle OwnBitmap = 0;
    SurfaceHandle OwnPen = 0;
    ColourRef BackColour = White;
    std::int32_t PenX = 0;
    std::int32_t PenY = 0;
};

/// Everything that has a handle. Used from the user interface's thread alone.
struct Registry {
    std::map<SurfaceHandle, Context> Contexts;
    std::map<SurfaceHandle, Bitmap> Bitmaps;
    std::map<SurfaceHandle, Pen> Pens;
    SurfaceHandle LastHandle = 0;
};

Registry Surfaces;

template <typename Value>
Value *Find(std::map<SurfaceHandle, Value> &values, SurfaceHandle handle)
{
    const auto found = values.find(handle);
    return found == values.end() ? nullptr : &found->second;
}

/// A handle that nothing has. A deleted one comes back only after all others have been in use.
SurfaceHandle NewHandle()
{
    SurfaceHandle &handle = Surfaces.LastHandle;
    do {
        handle = handle == std::numeric_limits<SurfaceHandle>::max() ? 1 : handle + 1;
    } while (Surfaces.Contexts.contains(handle) || Surfaces.Bitmaps.contains(handle) || Surfaces.Pens.contains(handle));
    return handle;
}

SurfaceHandle NewBitmap(int width, int height, SurfaceHandle owner)
{
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull())
        return 0;
    image.fill(Qt::black);
    const SurfaceHandle handle = NewHandle();
    Surfaces.Bitmaps[handle] = {image, owner};
    return handle;
}

SurfaceHandle NewPen(std::int32_t width, ColourRef colour, SurfaceHandle owner)
{
    const SurfaceHandle handle = NewHandle();
    Surfaces.Pens[handle] = {std::max(width, 1), colour, owner};
    return handle;
}

/// The image that a context draws on, nullptr when there is no such context or it has no pixels.
QImage *ImageOf(SurfaceHandle handle)
{
    const Context *context = Find(Surfaces.Contexts, handle);
    if (!context)
        return nullptr;
    QImage *image = context->OwnersImage ? context->OwnersImage : &Surfaces.Bitmaps.at(context->SelectedBitmap).Image;
    if (image->isNull())
        return nullptr;
    image->convertTo(QImage::Format_RGB32);
    return image;
}

bool IsSelected(SurfaceHandle object)
{
    return std::any_of(Surfaces.Contexts.begin(), Surfaces.Contexts.end(), [object](const auto &entry) {
        return entry.second.SelectedBitmap == object || entry.second.SelectedPen == object;
    });
}

/// The part of a copy, in one direction, that lies inside both surfaces.
struct Span {
    std::int64_t Target = 0;
    std::int64_t Source = 0;
    std::int64_t Length = 0;
};

Span ClippedSpan(std::int64_t target, std::int64_t source, std::int64_t length, int targetSize, int sourceSize)
{
    const std::int64_t skipped = std::max({std::int64_t{0}, -target, -source});
    const std::int64_t end = std::min({length, targetSize - target, sourceSize - source});
    return {target + skipped, source + skipped, std::max(end - skipped, std::int64_t{0})};
}

void CopyPixels(QImage &target, const QImage &source, const Span &columns, const Span &rows)
{
    // The copy keeps a picture that is moved within itself from being read after it was written.
    const QImage part = source.copy(static_cast<int>(columns.Source), static_cast<int>(rows.Source),
                                    static_cast<int>(columns.Length), static_cast<int>(rows.Length));
    for (int row = 0; row < part.height(); ++row) {
        const auto *from = reinterpret_cast<const QRgb *>(part.constScanLine(row));
        auto *to = reinterpret_cast<QRgb *>(target.scanLine(static_cast<int>(rows.Target) + row));
        std::copy_n(from, part.width(), to + columns.Target);
    }
}

} // namespace

SurfaceHandle ContextOfImage(QImage *image)
{
    if (!image)
        return 0;
    const SurfaceHandle handle = NewHandle();
    Context context;
    context.OwnersImage = image;
    Surfaces.Contexts[handle] = context; // takes the handle before the pen asks for one
    const SurfaceHandle pen = NewPen(1, 0, handle);
    Surfaces.Contexts[handle].OwnPen = Surfaces.Contexts[handle].SelectedPen = pen;
    return handle;
}

void ReleaseImageContext(SurfaceHandle handle)
{
    const Context *context = Find(Surfaces.Contexts, handle);
    if (!context || !context->OwnersImage)
        return;
    Surfaces.Pens.erase(context->OwnPen);
    Surfaces.Contexts.erase(handle);
}

SurfaceHandle CreateCompatibleDC(SurfaceHandle like)
{
    if (!Find(Surfaces.Contexts, like))
        return 0;
    const SurfaceHandle handle = NewHandle();
    Context &context = Surfaces.Contexts[handle];
    context.OwnBitmap = context.SelectedBitmap = NewBitmap(1, 1, handle);
    context.OwnPen = context.SelectedPen = NewPen(1, 0, handle);
    return handle;
}

SurfaceHandle CreateCompatibleBitmap(SurfaceHandle context, std::int32_t width, std::int32_t height)
{
    if (!Find(Surfaces.Contexts, context) || width < 1 || height < 1 ||
        std::int64_t{width} * height > LargestBitmapArea)
        return 0;
    return NewBitmap(width, height, 0);
}

SurfaceHandle CreatePen(std::int32_t width, ColourRef colour)
{
    return NewPen(width, colour, 0);
}

SurfaceHandle SelectObject(SurfaceHandle handle, SurfaceHandle object)
{
    Context *context = Find(Surfaces.Contexts, handle);
    if (!context)
        return 0;
    if (const Pen *pen = Find(Surfaces.Pens, object)) {
        if (pen->Owner != 0 && pen->Owner != handle)
            return 0;
        return std::exchange(context->SelectedPen, object);
    }
    const Bitmap *bitmap = Find(Surfaces.Bitmaps, object);
    if (!bitmap || context->OwnersImage || (bitmap->Owner != 0 && bitmap->Owner != handle))
        return 0;
    // A bitmap is in one context at a time.
    if (context->SelectedBitmap != object && IsSelected(object))
        return 0;
    return std::exchange(context->SelectedBitmap, object);
}

bool DeleteObject(SurfaceHandle object)
{
    if (IsSelected(object))
        return false;
    if (const Pen *pen = Find(Surfaces.Pens, object))
        return pen->Owner == 0 && Surfaces.Pens.erase(object) == 1;
    const Bitmap *bitmap = Find(Surfaces.Bitmaps, object);
    return bitmap && bitmap->Owner == 0 && Surfaces.Bitmaps.erase(object) == 1;
}

bool DeleteDC(SurfaceHandle handle)
{
    const Context *context = Find(Surfaces.Contexts, handle);
    if (!context || context->OwnersImage)
        return false;
    Surfaces.Bitmaps.erase(context->OwnBitmap);
    Surfaces.Pens.erase(context->OwnPen);
    Surfaces.Contexts.erase(handle);
    return true;
}

ColourRef SetBkColor(SurfaceHandle handle, ColourRef colour)
{
    Context *context = Find(Surfaces.Contexts, handle);
    return context ? std::exchange(context->BackColour, colour) : 0;
}

bool BitBlt(SurfaceHandle target, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
            SurfaceHandle source, std::int32_t sourceX, std::int32_t sourceY)
{
    QImage *to = ImageOf(target);
    const QImage *from = ImageOf(source);
    if (!to || !from)
        return false;
    const Span columns = ClippedSpan(x, sourceX, width, to->width(), from->width());
    const Span rows = ClippedSpan(y, sourceY, height, to->height(), from->height());
    if (columns.Length > 0 && rows.Length > 0)
        CopyPixels(*to, *from, columns, rows);
    return true;
}

bool MoveToEx(SurfaceHandle handle, std::int32_t x, std::int32_t y)
{
    Context *context = Find(Surfaces.Contexts, handle);
    if (!context)
        return false;
    context->PenX = x;
    context->PenY = y;
    return true;
}

bool LineTo(SurfaceHandle handle, std::int32_t x, std::int32_t y)
{
    QImage *image = ImageOf(handle);
    if (!image)
        return false;
    const Context &context = Surfaces.Contexts.at(handle);
    const Pen &pen = Surfaces.Pens.at(context.SelectedPen);
    DrawPixelLine(*image, context.PenX, context.PenY, x, y, pen.Colour, pen.Width, LineEnd::Left);
    return MoveToEx(handle, x, y);
}

bool SetPixel(SurfaceHandle handle, std::int32_t x, std::int32_t y, ColourRef colour)
{
    QImage *image = ImageOf(handle);
    return image && SetImagePixel(*image, x, y, colour);
}

bool TextOutA(SurfaceHandle handle, std::int32_t x, std::int32_t y, const QString &text, ColourRef colour)
{
    QImage *image = ImageOf(handle);
    if (!image)
        return false;
    const Context &context = Surfaces.Contexts.at(handle);
    if (!context.OwnersImage) {
        const Span columns = ClippedSpan(x, 0, PictureTextWidth(text), image->width(), std::numeric_limits<int>::max());
        const Span rows = ClippedSpan(y, 0, PictureTextLineHeight, image->height(), std::numeric_limits<int>::max());
        for (std::int64_t row = 0; row < rows.Length; ++row) {
            for (std::int64_t column = 0; column < columns.Length; ++column) {
                SetImagePixel(*image, static_cast<int>(columns.Target + column), static_cast<int>(rows.Target + row),
                              context.BackColour);
            }
        }
    }
    DrawPictureText(*image, x, y, text, colour);
    return true;
}

int LiveSurfaceObjects()
{
    const auto contexts = std::count_if(Surfaces.Contexts.begin(), Surfaces.Contexts.end(),
                                        [](const auto &entry) { return !entry.second.OwnersImage; });
    const auto created = [](const auto &entry) { return entry.second.Owner == 0; };
    return static_cast<int>(contexts + std::count_if(Surfaces.Bitmaps.begin(), Surfaces.Bitmaps.end(), created) +
                            std::count_if(Surfaces.Pens.begin(), Surfaces.Pens.end(), created));
}
