#include "controls/UpDown.h"

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
        emit Changed();
        emit UpClick();
    });
    connect(m_down, &QToolButton::clicked, this, [this] {
        emit Changed();
        emit DownClick();
    });
}

void UpDown::SetRange(int minimum, int maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
}
