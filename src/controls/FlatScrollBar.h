/// @file
/// A scroll bar that tells the user's moves from the program's.
#pragma once

#include <QScrollBar>

/// What the program sets is silent; Moved comes for the user's changes only, those of the dragged thumb included.
class FlatScrollBar : public QScrollBar {
    Q_OBJECT

public:
    explicit FlatScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

    void SetUp(int minimum, int maximum, int smallChange, int largeChange, int value);
    void SetRange(int minimum, int maximum);
    /// Sets the position, cut to the range.
    void SetValue(int value);
    /// Lets go of the bar, as the mouse does.
    void Release();

signals:
    void Moved();

private:
    bool m_silent = false;
};
