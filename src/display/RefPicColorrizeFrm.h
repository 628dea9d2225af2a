/// @file
/// The dialogue that sets the colours of the reference picture.
#pragma once

#include "display/ColorrizeFrm.h"

class RefPicColorrizeFrm : public ColorrizeFrm {
    Q_OBJECT

public:
    explicit RefPicColorrizeFrm(QWidget *parent = nullptr);

    QGroupBox *GridFrame, *AbscissaFrame, *OrdinateFrame, *SegmentFrame, *LineDotFrame, *LeastDotFrame;
    PictureBox *PicGrid, *PicAbscissa, *PicOrdinate, *PicSegment, *PicLineDot, *PicLeastDot;
};
