/// @file
/// A user's hands on an X display: real clicks and keys, sent by xdotool.
#pragma once

#include <QPoint>
#include <QString>

#include <optional>

class QWidget;

namespace XHands {

/// Clicks a point of the screen. @param button 1 left, 3 right
void Click(QPoint screen, int button = 1, int times = 1);
/// Clicks the middle of a widget of this process.
void Click(const QWidget &widget, int button = 1, int times = 1);
/// Types text, key by key, into what has the focus.
void Type(const QString &text);
/// Presses a key or a chord by its X name: "Return", "ctrl+n", "alt+t".
void Key(const QString &key);

/// The top left corner of the inside of a window on the screen, of whatever process, by the beginning of its title.
/// Moves the pointer there. @return nothing when there is none
std::optional<QPoint> FindWindow(const QString &title);

} // namespace XHands
