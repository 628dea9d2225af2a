/// @file
/// A text box that has the keyboard, beside the control under test.
#pragma once

#include "controls/TextBox.h"

#include <QTest>
#include <QVBoxLayout>

/// A text box with the focus beside a control, in an active window.
class BesideAText {
public:
    explicit BesideAText(QWidget *control)
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(text);
        column->addWidget(control);
        window.show();
        window.activateWindow();
        text->setFocus();
    }

    bool HasFocus() { return QTest::qWaitForWindowActive(&window) && text->hasFocus(); }

    QWidget window;
    TextBox *text = new TextBox;
};
