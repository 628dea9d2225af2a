/// @file
/// How a window fills a menu as its form is designed: one row an item, with its given name.
#pragma once

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QString>

#include <cstddef>

/// An item of a menu, and the window's member that keeps it.
template <typename Form>
struct MenuItemOf {
    QAction *Form::*Action;
    const char *Name;
    const char *Caption; ///< UTF-8; nullptr for a separator
    const char *Key = "";
    bool Shown = true;
    bool Checked = false; ///< has a check mark, set at start
};

/// Adds the items to the end of a menu.
template <typename Form, std::size_t Count>
void FillMenu(Form &form, QMenu *menu, const MenuItemOf<Form> (&items)[Count])
{
    for (const MenuItemOf<Form> &item : items) {
        QAction *action = item.Caption ? menu->addAction(QString::fromUtf8(item.Caption)) : menu->addSeparator();
        action->setObjectName(QString::fromLatin1(item.Name));
        action->setMenuRole(QAction::NoRole);
        action->setVisible(item.Shown);
        // The keys of hidden items and of the items of hidden menus are dead: the toolkit looks at what is in sight
        // only.
        if (*item.Key)
            action->setShortcut(QKeySequence(QString::fromLatin1(item.Key)));
        if (item.Checked) {
            action->setCheckable(true);
            action->setChecked(true);
        }
        form.*item.Action = action;
    }
}
