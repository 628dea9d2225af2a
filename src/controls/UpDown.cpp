#include "controls/UpDown.h"

#include <QGuiApplication>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QToolButton *MakeButton(Qt::ArrowType arrow, const QString &name, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(name);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    // A click takes the focus, so that a text box beside it is left, with all that this means.
    button->setFocusPolicy(Qt::ClickFocus);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return button;
}

/// A box that came up meanwhile has taken the release of the mouse; the button would step on for ever.
void StopRepeatingWhenReleased(QToolButton *button)
{
    if (!QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        button->setDown(false);
}

} // namespace

UpDown::UpDown(QWidget *parent)
    : QWidget(parent), m_up(MakeButton(Qt::UpArrow, QStringLiteral("Up"), this)),
      m_down(MakeButton(Qt::DownArrow, QStringLiteral("Down"), this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_up);
    column->addWidget(m_down);
    connect(m_up, &QToolButton::clicked, this, [this] {
        emit UpClick();
        emit Changed();
        StopRepeatingWhenReleased(m_up);
    });
    connect(m_down, &QToolButton::clicked, this, [this] {
        emit DownClick();
        emit Changed();
        StopRepeatingWhenReleased(m_down);
    });
}

void UpDown::SetRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
}
