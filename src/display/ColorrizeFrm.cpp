#include "display/ColorrizeFrm.h"

#include "controls/FormDesign.h"

namespace {

// Twips.
constexpr int Gap = 150;
constexpr int FrameWidth = 2400;
constexpr int FrameHeight = 900;
constexpr int ButtonWidth = 1350;
constexpr int ButtonHeight = 420;
constexpr int ClientWidth = Gap + 2 * (FrameWidth + Gap);

constexpr int RowTop(int row)
{
    return Gap + row * (FrameHeight + Gap);
}

QPushButton *NewButton(const char *name, const char *caption, QWidget *parent)
{
    auto *button = Named<QPushButton>(name, QString::fromLatin1(caption), parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

ColorrizeFrm::ColorrizeFrm(const char *name, int rows, QWidget *parent) : QDialog(parent)
{
    setObjectName(QString::fromLatin1(name));
    setWindowTitle(QStringLiteral("Color Setting"));
    const int top = RowTop(rows);
    setFixedSize(PixelsFromTwips(ClientWidth), PixelsFromTwips(top + ButtonHeight + Gap));
    const int left = (ClientWidth - 3 * ButtonWidth - 2 * Gap) / 2;
    ComOK = Placed(NewButton("ComOK", "OK", this), left, top, ButtonWidth, ButtonHeight);
    ComCancel =
        Placed(NewButton("ComCancel", "Cancel", this), left + ButtonWidth + Gap, top, ButtonWidth, ButtonHeight);
    ComApply =
        Placed(NewButton("ComApply", "Apply", this), left + 2 * (ButtonWidth + Gap), top, ButtonWidth, ButtonHeight);
    DialogColor = Named<ColourDialog>("DialogColor", this);
    DialogColor->CancelError = true;
    GridFrame = NewFrame("GridFrame", "Grid Color", 0, 0);
    PicGrid = NewSwatch("PicGrid", GridFrame);
    AbscissaFrame = NewFrame("AbscissaFrame", "Abscissa Color", 0, 1);
    PicAbscissa = NewSwatch("PicAbscissa", AbscissaFrame);
    OrdinateFrame = NewFrame("OrdinateFrame", "Ordinate Color", 1, 0);
    PicOrdinate = NewSwatch("PicOrdinate", OrdinateFrame);
}

QGroupBox *ColorrizeFrm::NewFrame(const char *name, const char *caption, int row, int column)
{
    auto *frame = Named<QGroupBox>(name, QString::fromLatin1(caption), this);
    return Placed(frame, Gap + column * (FrameWidth + Gap), RowTop(row), FrameWidth, FrameHeight);
}

PictureBox *ColorrizeFrm::NewSwatch(const char *name, QGroupBox *frame)
{
    return Placed(Named<PictureBox>(name, frame), 150, 390, FrameWidth - 300, FrameHeight - 540);
}
