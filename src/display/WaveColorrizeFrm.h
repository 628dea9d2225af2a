/// @file
/// The design of the two dialogues that set the colours of a time curve.
#pragma once

#include "display/ColorrizeFrm.h"

class WaveColorrizeFrm : public ColorrizeFrm {
    Q_OBJECT

public:
    QGroupBox *DotFrame;
    PictureBox *PicSegment; ///< required name: the swatch of DotFrame, although these curves have no segments

protected:
    WaveColorrizeFrm(const char *name, QWidget *parent);
};
