/// @file
/// Finds the captions of a window that have less room than they need, lie out of sight, or lie over each other.
#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

#include <vector>

class QWidget;

/// A caption as the style draws it, in pixels of the window.
struct DrawnCaption {
    const QWidget *Control;
    QString Text;
    QRect Room; ///< what the style leaves for the text
    QRect Line; ///< the line of text in the control's own font
    QRect Ink;  ///< the pixels that its letters can set
};

/// The captions of all controls that the window shows: labels, buttons with a text, options and check boxes, titles of
/// frames, texts of boxes and lists, tabs and column titles.
std::vector<DrawnCaption> CaptionsOf(const QWidget &window);

/// What is wrong, a line each; empty when every caption can be read. Controls of the given names have to lie out of
/// sight as a whole.
QStringList CaptionFaults(const QWidget &window, const QStringList &outOfSight = {});
