#include "shell/WindowListModule.h"

#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QActionGroup>
#include <QMdiSubWindow>

namespace {

const QString ListName = QStringLiteral("WindowList");

/// The windows that take part in an arrangement, at their normal size.
QList<QMdiSubWindow *> WindowsToArrange()
{
    QList<QMdiSubWindow *> windows;
    for (QMdiSubWindow *window : MainForm->Children->subWindowList()) {
        if (window->isMinimized())
            continue;
        window->showNormal();
        windows.append(window);
    }
    return windows;
}

} // namespace

void CascadeProjectWindows()
{
    MainForm->Children->cascadeSubWindows();
}

void TileProjectWindowsHorizontally()
{
    const QList<QMdiSubWindow *> windows = WindowsToArrange();
    const QSize area = MainForm->Children->viewport()->size();
    for (int place = 0; place < windows.size(); ++place) {
        const int top = area.height() * place / static_cast<int>(windows.size());
        const int bottom = area.height() * (place + 1) / static_cast<int>(windows.size());
        windows[place]->setGeometry(0, top, area.width(), bottom - top);
    }
}

void TileProjectWindowsVertically()
{
    const QList<QMdiSubWindow *> windows = WindowsToArrange();
    const QSize area = MainForm->Children->viewport()->size();
    for (int place = 0; place < windows.size(); ++place) {
        const int left = area.width() * place / static_cast<int>(windows.size());
        const int right = area.width() * (place + 1) / static_cast<int>(windows.size());
        windows[place]->setGeometry(left, 0, right - left, area.height());
    }
}

void ListProjectWindows()
{
    QMenu *menu = MainForm->mnuWindow;
    delete menu->findChild<QActionGroup *>(ListName); // its entries leave the menu with it
    auto *list = new QActionGroup(menu);
    list->setObjectName(ListName);
    const QList<QMdiSubWindow *> windows = MainForm->Children->subWindowList();
    if (!windows.isEmpty()) {
        auto *separator = new QAction(list);
        separator->setSeparator(true);
        menu->addAction(separator);
    }
    for (int place = 0; place < windows.size(); ++place) {
        QMdiSubWindow *window = windows[place];
        QString title = window->windowTitle();
        title.replace(u'&', QStringLiteral("&&"));
        auto *entry = new QAction(QStringLiteral("&%1 %2").arg(place + 1).arg(title), list);
        entry->setCheckable(true);
        entry->setChecked(window == MainForm->Children->currentSubWindow());
        QObject::connect(entry, &QAction::triggered, window,
                         [window] { MainForm->Children->setActiveSubWindow(window); });
        menu->addAction(entry);
    }
}
