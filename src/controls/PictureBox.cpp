#include "controls/PictureBox.h"

#include "platform/PixelDrawing.h"

#include <QPainter>

PictureBox::PictureBox(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_context = ContextOfImage(&m_image);
    FitImage();
}

PictureBox::~PictureBox()
{
    ReleaseImageContext(m_context);
}

// A hidden widget gets its resize event only when it is shown, but is drawn on before: every access looks at the size.
void PictureBox::FitImage() const
{
    const QSize needed = size().expandedTo(QSize(1, 1));
    if (m_image.size() == needed)
        return;
    m_image = QImage(needed, QImage::Format_RGB32);
    m_image.fill(ColourFromRef(BackColour));
}

SurfaceHandle PictureBox::Context() const
{
    FitImage();
    return m_context;
}

const QImage &PictureBox::Image() const
{
    FitImage();
    return m_image;
}

void PictureBox::Clear()
{
    FitImage();
    m_image.fill(ColourFromRef(BackColour));
}

void PictureBox::Line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2)
{
    FitImage();
    DrawPixelLine(m_image, x1, y1, x2, y2, ForeColour, DrawWidth, LineEnd::Included);
}

void PictureBox::Dot(std::int32_t x, std::int32_t y)
{
    FitImage();
    SetImagePixel(m_image, x, y, ForeColour);
}

void PictureBox::Text(std::int32_t x, std::int32_t y, const QString &text)
{
    FitImage();
    DrawPictureText(m_image, x, y, text, ForeColour);
}

void PictureBox::paintEvent(QPaintEvent *)
{
    FitImage();
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawImage(m_image.rect(), m_image);
}

void PictureBox::resizeEvent(QResizeEvent *)
{
    FitImage();
}
