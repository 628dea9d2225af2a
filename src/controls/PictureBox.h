/// @file
/// A picture: a widget that shows an image which stays until it is drawn over.
#pragma once

#include "platform/MemorySurface.h"

#include <QImage>
#include <QWidget>

/// The image has the size of the widget, one picture pixel to one logical pixel, and is cleared to BackColour when the
/// size changes. Coordinates count from the top left pixel. Nothing is shown anew before Refresh or the next paint.
class PictureBox : public QWidget {
    Q_OBJECT

public:
    explicit PictureBox(QWidget *parent = nullptr);
    ~PictureBox() override;

    ColourRef BackColour = 0;   ///< what Clear fills with
    ColourRef ForeColour = 0;   ///< colour of Line, Dot and Text
    std::int32_t DrawWidth = 1; ///< pen width of Line, 1 or 2

    int ScaleWidth() const { return width(); }   ///< pixels
    int ScaleHeight() const { return height(); } ///< pixels

    void Clear();
    /// Sets both end pixels.
    void Line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2);
    void Dot(std::int32_t x, std::int32_t y);
    /// Text with its top left corner at (x, y).
    void Text(std::int32_t x, std::int32_t y, const QString &text);
    void Refresh() { update(); }

    /// The image as a drawing context for the operations of platform/MemorySurface.h.
    SurfaceHandle Context() const;
    const QImage &Image() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void FitImage() const;
    mutable QImage m_image;
    SurfaceHandle m_context = 0;
};
