/// @file
/// What a user's hands do to a control, by real mouse and key events.
#pragma once

#include "controls/TextBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
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

/// Commits a text as an input method does. It may replace some of what the box holds, counted from the cursor.
inline void CommitText(TextBox &box, const QString &text, int replaceFrom = 0, int replaced = 0)
{
    QInputMethodEvent event;
    event.setCommitString(text, replaceFrom, replaced);
    QApplication::sendEvent(&box, &event);
}

/// Drags a text over the left end of a box and drops it there. @return whether the box took the drag
inline bool DropText(TextBox &box, const QString &text)
{
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &enter);
    QDropEvent drop(QPointF(2, 2), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &drop);
    return enter.isAccepted();
}
