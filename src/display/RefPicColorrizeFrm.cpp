#include "display/RefPicColorrizeFrm.h"

RefPicColorrizeFrm::RefPicColorrizeFrm(QWidget *parent) : ColorrizeFrm("RefPicColorrizeFrm", 3, parent)
{
    GridFrame = NewFrame("GridFrame", "Grid Color", 0, 0);
    PicGrid = NewSwatch("PicGrid", GridFrame);
    AbscissaFrame = NewFrame("AbscissaFrame", "Abscissa Color", 0, 1);
    PicAbscissa = NewSwatch("PicAbscissa", AbscissaFrame);
    OrdinateFrame = NewFrame("OrdinateFrame", "Ordinate Color", 1, 0);
    PicOrdinate = NewSwatch("PicOrdinate", OrdinateFrame);
    SegmentFrame = NewFrame("SegmentFrame", "Segment Dot Color", 1, 1);
    PicSegment = NewSwatch("PicSegment", SegmentFrame);
    LineDotFrame = NewFrame("LineDotFrame", "Line Dot Color", 2, 0);
    PicLineDot = NewSwatch("PicLineDot", LineDotFrame);
    LeastDotFrame = NewFrame("LeastDotFrame", "Least Dot Color", 2, 1);
    PicLeastDot = NewSwatch("PicLeastDot", LeastDotFrame);
}
