/// @file
/// A scroll bar that tells the user's moves from the program's.
#pragma once

#include <QScrollBar>

/// What the program sets is silent. The user's changes come in two ways: each as it happens, or a drag as one.
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
    /// Each step and page, and each move of the dragged thumb.
    void Moved();
    /// Each step and page, and the end of a drag that has led to another position.
    void Changed();

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    void TellChange();
    bool m_silent = false;
    bool m_pressing = false; ///< the toolkit has not said yet whether the press takes hold of the thumb
    int m_told = 0;          ///< the position of the last Changed, or what the program has set since
};
