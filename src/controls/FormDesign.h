/// @file
/// How a window makes and places a control as its form is designed: with its given name, in twips.
#pragma once

#include "platform/Measures.h"

#include <QString>

#include <utility>

/// A new control that carries its given name.
template <typename Widget, typename... Arguments>
Widget *Named(const char *name, Arguments &&...arguments)
{
    auto *widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

/// Puts a control to its place in its parent; position and size in twips.
template <typename Widget>
Widget *Placed(Widget *widget, int left, int top, int width, int height)
{
    widget->setGeometry(PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width), PixelsFromTwips(height));
    return widget;
}
