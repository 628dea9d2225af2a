/// @file
/// The window that a box or a common dialogue comes up over.
#pragma once

#include <QApplication>

/// The modal window if there is one, else the active one; nullptr when the program has none.
inline QWidget *ActiveTop()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    return QApplication::activeWindow();
}
