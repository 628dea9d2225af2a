#include "display/WaveColorrizeFrm.h"

WaveColorrizeFrm::WaveColorrizeFrm(const char *name, QWidget *parent) : ColorrizeFrm(name, 2, parent)
{
    DotFrame = NewFrame("DotFrame", "Dot Color", 1, 1);
    PicSegment = NewSwatch("PicSegment", DotFrame);
}
