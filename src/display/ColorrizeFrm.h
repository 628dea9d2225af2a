/// @file
/// What the three colour dialogues have in common: frames with a swatch each, the first three of them, three buttons
/// and the colour chooser.
#pragma once

#include "controls/ColourDialog.h"
#include "controls/PictureBox.h"

#include <QDialog>
#include <QGroupBox>
#include <QPushButton>

/// The back colour of a swatch is the colour.
class ColorrizeFrm : public QDialog {
    Q_OBJECT

public:
    QGroupBox *GridFrame, *AbscissaFrame, *OrdinateFrame;
    PictureBox *PicGrid, *PicAbscissa, *PicOrdinate;
    QPushButton *ComOK, *ComCancel, *ComApply;
    ColourDialog *DialogColor; ///< starts from the colour that it is given; a cancel is an error

protected:
    /// @param rows how many rows of two frames there are
    ColorrizeFrm(const char *name, int rows, QWidget *parent);

    /// A frame in its place; both count from 0.
    QGroupBox *NewFrame(const char *name, const char *caption, int row, int column);
    /// The swatch inside a frame.
    static PictureBox *NewSwatch(const char *name, QGroupBox *frame);
};
