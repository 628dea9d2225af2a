#include "controls/FlatScrollBar.h"

#include <QMouseEvent>

FlatScrollBar::FlatScrollBar(Qt::Orientation orientation, QWidget *parent) : QScrollBar(orientation, parent)
{
    setTracking(true);
    // A click takes the focus, so that a text box beside it is left, with all that this means.
    setFocusPolicy(Qt::ClickFocus);
    connect(this, &QScrollBar::valueChanged, this, [this] {
        if (!m_silent)
            emit Moved();
    });
}

void FlatScrollBar::SetUp(int minimum, int maximum, int smallChange, int largeChange, int value)
{
    SetRange(minimum, maximum);
    setSingleStep(smallChange);
    setPageStep(largeChange);
    SetValue(value);
}

void FlatScrollBar::SetRange(int minimum, int maximum)
{
    m_silent = true;
    setRange(minimum, maximum);
    m_silent = false;
}

void FlatScrollBar::SetValue(int value)
{
    m_silent = true;
    setValue(value);
    m_silent = false;
}

void FlatScrollBar::Release()
{
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(), QPointF(), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    mouseReleaseEvent(&release);
}
