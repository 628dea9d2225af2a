#include "shell/WindowListModule.h"

#include "project/ProjectTable.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QActionGroup>
#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>

namespace {

const QString ListName = QStringLiteral("WindowList");

constexpr int UsableWidth = 200; ///< pixels of a tile, when there is a choice
constexpr int UsableHeight = 150;

using Windows = QList<QMdiSubWindow *>;

QSize AreaSize()
{
    return MainForm->Children->viewport()->size();
}

Windows MinimisedWindows()
{
    Windows windows = MainForm->Children->subWindowList();
    windows.removeIf([](const QMdiSubWindow *window) { return !window->isMinimized(); });
    return windows;
}

/// The windows that take part in an arrangement, at their normal size. The active one stays the active one.
Windows WindowsToArrange(QMdiArea::WindowOrder order)
{
    Windows windows = MainForm->Children->subWindowList(order);
    windows.removeIf([](const QMdiSubWindow *window) { return window->isMinimized(); });
    for (QMdiSubWindow *window : windows) {
        if (window->isMaximized())
            window->showNormal();
    }
    return windows;
}

/// Rows of equal cells, counted from the lower edge up, in which title bars of minimised windows stand.
class IconRows {
public:
    explicit IconRows(const Windows &windows)
    {
        for (const QMdiSubWindow *window : windows)
            m_cell = m_cell.expandedTo(window->size());
        m_inRow = std::max(m_cell.isEmpty() ? 1 : AreaSize().width() / m_cell.width(), 1);
        m_rows = (static_cast<int>(windows.size()) + m_inRow - 1) / m_inRow;
    }

    QPoint Place(int index) const
    {
        return {index % m_inRow * m_cell.width(), AreaSize().height() - (index / m_inRow + 1) * m_cell.height()};
    }

    /// What an arrangement leaves free at the lower edge.
    int Height() const { return m_rows * m_cell.height(); }

private:
    QSize m_cell{0, 0};
    int m_inRow = 1;
    int m_rows = 0;
};

/// The frame's inner area without the room for minimised windows.
QSize RoomToArrange()
{
    const QSize area = AreaSize();
    return {area.width(), std::max(area.height() - IconRows(MinimisedWindows()).Height(), 0)};
}

/// Where one of so many equal parts of a length begins.
int PartStart(int length, int part, int parts)
{
    return length * part / parts;
}

/// Places windows in stripes from left to right, those of a stripe one above the other.
/// @param inStripe how many stand in a stripe at most
void Tile(const Windows &windows, int inStripe, Qt::Orientation stacked)
{
    const int count = static_cast<int>(windows.size());
    const int stripes = (count + inStripe - 1) / inStripe;
    const QSize room = stacked == Qt::Vertical ? RoomToArrange() : RoomToArrange().transposed();
    for (int stripe = 0; stripe < stripes; ++stripe) {
        const int first = PartStart(count, stripe, stripes);
        const int parts = PartStart(count, stripe + 1, stripes) - first;
        const int left = PartStart(room.width(), stripe, stripes);
        const int right = PartStart(room.width(), stripe + 1, stripes);
        for (int part = 0; part < parts; ++part) {
            const int top = PartStart(room.height(), part, parts);
            const int bottom = PartStart(room.height(), part + 1, parts);
            const QRect tile(left, top, right - left, bottom - top);
            windows[first + part]->setGeometry(
                stacked == Qt::Vertical ? tile : QRect(tile.y(), tile.x(), tile.height(), tile.width()));
        }
    }
}

/// A title bar and the frame above it, less where as many windows as there can be would not fit.
int CascadeStep(QSize room)
{
    const QStyle &style = *MainForm->style();
    const int titleBar =
        style.pixelMetric(QStyle::PM_TitleBarHeight) + style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return std::min(titleBar, std::min(room.width(), room.height()) / (2 * SlotCount));
}

/// Brings a window up; a minimised one is restored. A measured project may keep it from coming up.
void BringUp(QMdiSubWindow *window)
{
    QMdiArea &area = *MainForm->Children;
    area.setActiveSubWindow(window);
    if (area.currentSubWindow() == window && window->isMinimized())
        window->showNormal();
}

/// The number in front is the entry's key: 1 to 9, and 0 for the tenth.
QString EntryText(int number, QString title)
{
    title.replace(u'&', QStringLiteral("&&"));
    QString numberText = QString::number(number);
    numberText.insert(numberText.size() - 1, u'&');
    return numberText + u' ' + title;
}

} // namespace

void CascadeProjectWindows()
{
    // From the bottom up, so that each window leaves the title bar of the one below in sight.
    const Windows windows = WindowsToArrange(QMdiArea::StackingOrder);
    const QSize room = RoomToArrange();
    const int step = CascadeStep(room);
    const QSize size = room - QSize(step, step) * (SlotCount - 1);
    for (int place = 0; place < windows.size(); ++place)
        windows[place]->setGeometry(QRect(QPoint(step, step) * place, size));
}

void TileProjectWindowsHorizontally()
{
    const Windows windows = WindowsToArrange(QMdiArea::CreationOrder);
    Tile(windows, std::max(RoomToArrange().height() / UsableHeight, 1), Qt::Vertical);
}

void TileProjectWindowsVertically()
{
    const Windows windows = WindowsToArrange(QMdiArea::CreationOrder);
    Tile(windows, std::max(RoomToArrange().width() / UsableWidth, 1), Qt::Horizontal);
}

void ArrangeProjectIcons()
{
    const Windows windows = MinimisedWindows();
    const IconRows rows(windows);
    for (int index = 0; index < windows.size(); ++index)
        windows[index]->move(rows.Place(index));
}

void ListProjectWindows()
{
    QMenu *menu = MainForm->mnuWindow;
    delete menu->findChild<QActionGroup *>(ListName); // its entries leave the menu with it
    auto *list = new QActionGroup(menu);
    list->setObjectName(ListName);
    list->setExclusive(false); // an exclusive group shows bullets for check marks
    const Windows windows = MainForm->Children->subWindowList();
    if (!windows.isEmpty()) {
        auto *separator = new QAction(list);
        separator->setSeparator(true);
        menu->addAction(separator);
    }
    for (int place = 0; place < windows.size(); ++place) {
        QMdiSubWindow *window = windows[place];
        auto *entry = new QAction(EntryText(place + 1, window->windowTitle()), list);
        entry->setCheckable(true);
        entry->setChecked(window == MainForm->Children->currentSubWindow());
        QObject::connect(entry, &QAction::triggered, window, [window] { BringUp(window); });
        menu->addAction(entry);
    }
}
