#include "display/WaveColorrizeFrm.h"

WaveColorrizeFrm::WaveColorrizeFrm(const char *name, QWidget *parent) : ColorrizeFrm(name, 2, parent)
{
    GridFrame = NewFrame("GridFrame", "Grid Color", 0, 0);
    PicGrid = NewSwatch("PicGrid", GridFrame);
    AbscissaFrame = NewFrame("AbscissaFrame", "Abscissa Color", 0, 1);
    PicAbscissa = NewSwatch("PicAbscissa", AbscissaFrame);
    OrdinateFrame = NewFrame("OrdinateFrame", "Ordinate Color", 1, 0);
    PicOrdinate = NewSwatch("PicOrdinate", OrdinateFrame);
    DotFrame = NewFrame("DotFrame", "Dot Color", 1, 1);
    PicSegment = NewSwatch("PicSegment", DotFrame);
}
