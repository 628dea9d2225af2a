/// @file
/// The dialogue that sets the colours of the reference picture.
#pragma once

#include "display/ColorrizeFrm.h"

class RefPicColorrizeFrm : public ColorrizeFrm {
    Q_OBJECT

public:
    explicit RefPicColorrizeFrm(QWidget *parent = nullptr);

    QGroupBox *SegmentFrame, *LineDotFrame, *LeastDotFrame;
    PictureBox *PicSegment, *PicLineDot, *PicLeastDot;
};
