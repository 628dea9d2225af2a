#include "controls/LumoButton.h"

#include <QIcon>
#include <QKeyEvent>

namespace {

constexpr int FrameWidth = 4; ///< pixels of the button that the picture leaves free, both sides together

} // namespace

LumoButton::LumoButton(QWidget *parent) : QToolButton(parent)
{
    setAutoRaise(false);
    setFocusPolicy(Qt::StrongFocus);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    connect(this, &QToolButton::clicked, this, &LumoButton::MouseClick);
}

void LumoButton::SetCaption(const QString &caption)
{
    m_caption = caption;
    setToolTip(caption);
    setAccessibleName(caption);
}

void LumoButton::SetPicture(const QString &resource)
{
    setIcon(QIcon(resource));
}

void LumoButton::resizeEvent(QResizeEvent *event)
{
    QToolButton::resizeEvent(event);
    setIconSize((size() - QSize(FrameWidth, FrameWidth)).expandedTo(QSize(1, 1)));
}

void LumoButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QToolButton::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        click();
}
