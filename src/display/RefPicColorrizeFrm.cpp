#include "display/RefPicColorrizeFrm.h"

RefPicColorrizeFrm::RefPicColorrizeFrm(QWidget *parent) : ColorrizeFrm("RefPicColorrizeFrm", 3, parent)
{
    SegmentFrame = NewFrame("SegmentFrame", "Segment Dot Color", 1, 1);
    PicSegment = NewSwatch("PicSegment", SegmentFrame);
    LineDotFrame = NewFrame("LineDotFrame", "Line Dot Color", 2, 0);
    PicLineDot = NewSwatch("PicLineDot", LineDotFrame);
    LeastDotFrame = NewFrame("LeastDotFrame", "Least Dot Color", 2, 1);
    PicLeastDot = NewSwatch("PicLeastDot", LeastDotFrame);
}
