/// @file
/// Memory drawing surfaces by handle, with the drawing operations that the pictures are made of. A drawing context is
/// either made in memory, where a bitmap is selected into it, or stands for the image of a picture box.
#pragma once

#include "platform/Measures.h"

#include <QImage>
#include <QString>

#include <cstdint>

/// A drawing context, bitmap or pen; 0 is none. Operations on 0 or on a handle already deleted have no effect and
/// return 0.
using SurfaceHandle = std::int32_t;

/// Registers an image that its owner keeps (a picture box) as a drawing context. The owner ends it with
/// ReleaseImageContext before the image goes.
SurfaceHandle ContextOfImage(QImage *image);
void ReleaseImageContext(SurfaceHandle context);

/// A memory context with the 1 by 1 bitmap that every new context holds.
/// @return 0 when the context it shall be compatible with does not exist
SurfaceHandle CreateCompatibleDC(SurfaceHandle context);

/// A bitmap of w by h pixels, black.
/// @return 0 when the context does not exist, when a side is below 1 or the area above 64 Mpixel
SurfaceHandle CreateCompatibleBitmap(SurfaceHandle context, std::int32_t width, std::int32_t height);

/// A solid pen; width in pixels, at least 1.
SurfaceHandle CreatePen(std::int32_t width, ColourRef colour);

/// Puts a bitmap or a pen into a memory context, or a pen into the context of a picture box, and returns the one of its
/// kind that was there before. What a context held when it was made can be selected back into it, and goes with it.
/// @return 0 when the bitmap is in another context, or the object came with another one
SurfaceHandle SelectObject(SurfaceHandle context, SurfaceHandle object);

/// Deletes a bitmap or pen, not one that is selected into a context or came with it.
bool DeleteObject(SurfaceHandle object);
/// Deletes a memory context; what is selected into it stays.
bool DeleteDC(SurfaceHandle context);

/// Sets the colour behind text of a memory context, white at first. Returns the previous one.
ColourRef SetBkColor(SurfaceHandle context, ColourRef colour);

/// Copies w by h pixels (source copy). What lies outside either surface is left out.
bool BitBlt(SurfaceHandle target, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
            SurfaceHandle source, std::int32_t sourceX, std::int32_t sourceY);

/// Moves the pen position without drawing.
bool MoveToEx(SurfaceHandle context, std::int32_t x, std::int32_t y);
/// Draws from the pen position up to, but not including, (x, y), and moves there. Clipped to the surface.
bool LineTo(SurfaceHandle context, std::int32_t x, std::int32_t y);
/// Sets one pixel; false outside the surface.
bool SetPixel(SurfaceHandle context, std::int32_t x, std::int32_t y, ColourRef colour);
/// Draws text with its top left corner at (x, y), see DrawPictureText. A memory context fills the text's cells with the
/// back colour first, a picture box does not.
bool TextOutA(SurfaceHandle context, std::int32_t x, std::int32_t y, const QString &text, ColourRef colour);

/// How many contexts, bitmaps and pens are alive, those of picture boxes not counted. A test compares it before and
/// after.
int LiveSurfaceObjects();
