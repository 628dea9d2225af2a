/// @file
/// The window that a box or a common dialogue comes up over.
#pragma once

#include <QApplication>
#include <QMainWindow>

/// The modal window if there is one, else the active one. While none is active, as just behind a dialogue that has
/// closed, the frame; nullptr when the program shows none.
inline QWidget *ActiveTop()
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow *>(window) != nullptr && window->isVisible())
            return window;
    }
    return nullptr;
}
