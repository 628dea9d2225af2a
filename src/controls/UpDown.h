/// @file
/// A pair of buttons that steps a number up and down.
#pragma once

#include <QWidget>

class QToolButton;

/// Keeps a position within its range for Changed; what stepping means is the receiver's matter.
class UpDown : public QWidget {
    Q_OBJECT

public:
    explicit UpDown(QWidget *parent = nullptr);

    void SetRange(int minimum, int maximum);
    int Minimum() const { return m_minimum; }
    int Maximum() const { return m_maximum; }

signals:
    void UpClick();
    void DownClick();
    /// After either, whichever button it was.
    void Changed();

private:
    QToolButton *m_up;
    QToolButton *m_down;
    int m_minimum = 0;
    int m_maximum = 10;
};
