/// @file
/// A pair of buttons that steps a number up and down.
#pragma once

#include <QWidget>

class QToolButton;

/// Holds a range for the receiver, whose matter stepping is; it keeps no position.
class UpDown : public QWidget {
    Q_OBJECT

public:
    explicit UpDown(QWidget *parent = nullptr);

    void SetRange(int minimum, int maximum);
    int Minimum() const { return m_minimum; }
    int Maximum() const { return m_maximum; }

signals:
    /// Ahead of either click, whichever button it was.
    void Changed();
    void UpClick();
    void DownClick();

private:
    QToolButton *m_up;
    QToolButton *m_down;
    int m_minimum = 0;
    int m_maximum = 10;
};
