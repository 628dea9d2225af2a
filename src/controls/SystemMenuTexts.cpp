#include "controls/SystemMenuTexts.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMenu>

namespace {

constexpr const char *sources[] = {"&Restore", "&Move", "&Size", "Mi&nimize", "Ma&ximize", "Stay on &Top", "&Close"};

QString Translated(const char *source)
{
    return QCoreApplication::translate("QMdiSubWindow", source);
}

} // namespace

SystemMenuTexts::SystemMenuTexts(QMdiSubWindow *window) : QObject(window)
{
    for (QAction *action : window->systemMenu()->actions()) {
        for (const char *source : sources) {
            if (action->text() == Translated(source))
                m_items.push_back({action, source});
        }
    }
    window->installEventFilter(this);
}

bool SystemMenuTexts::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        for (const Item &item : m_items)
            item.Action->setText(Translated(item.Source));
    }
    return QObject::eventFilter(watched, event);
}
