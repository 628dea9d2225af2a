/// @file
/// A widget's own back colour, which it inherits from nobody.
#pragma once

#include <QPalette>
#include <QWidget>

inline void SetWindowColour(QWidget &widget, const QColor &colour)
{
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, colour);
    widget.setPalette(palette);
}
