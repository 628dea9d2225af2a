#include "controls/FlatScrollBar.h"

#include <QMouseEvent>

FlatScrollBar::FlatScrollBar(Qt::Orientation orientation, QWidget *parent) : QScrollBar(orientation, parent)
{
    setTracking(true);
    // A click takes the focus, so that a text box beside it is left, with all that this means.
    setFocusPolicy(Qt::ClickFocus);
    connect(this, &QScrollBar::valueChanged, this, [this] {
        if (m_silent)
            return;
        emit Moved();
        if (!m_pressing && !isSliderDown())
            TellChange();
    });
    connect(this, &QScrollBar::sliderReleased, this, &FlatScrollBar::TellChange);
}

void FlatScrollBar::TellChange()
{
    if (value() == m_told)
        return;
    m_told = value();
    emit Changed();
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
    m_told = value();
}

void FlatScrollBar::SetValue(int value)
{
    m_silent = true;
    setValue(value);
    m_silent = false;
    m_told = this->value();
}

void FlatScrollBar::mousePressEvent(QMouseEvent *event)
{
    // The middle button moves the thumb to the pointer ahead of taking hold of it: that is the first move of a drag.
    m_pressing = true;
    QScrollBar::mousePressEvent(event);
    m_pressing = false;
    if (!isSliderDown())
        TellChange();
}

void FlatScrollBar::Release()
{
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(), QPointF(), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    mouseReleaseEvent(&release);
}
