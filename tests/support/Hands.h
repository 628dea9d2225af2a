/// @file
/// What a user's hands do to a control, by real mouse and key events.
#pragma once

#include "controls/TextBox.h"

#include <QAbstractButton>
#include <QTest>

/// Clicks the middle of a control.
inline void Click(QWidget *control)
{
    QTest::mouseClick(control, Qt::LeftButton);
}

/// Clicks a button at its left end: right of its caption an option takes no click.
inline void Click(QAbstractButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}

/// Types over what a box holds, all of it selected; an empty text empties the box. The box need not have the focus.
inline void Retype(TextBox *box, const QString &text)
{
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, text);
}
