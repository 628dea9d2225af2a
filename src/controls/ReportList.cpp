#include "controls/ReportList.h"

#include "platform/RuntimeError.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QStyledItemDelegate>

namespace {

/// Makes a line as high as the number of the pixel row, counted from 0, in which the header ends.
class LineDelegate : public QStyledItemDelegate {
public:
    explicit LineDelegate(QTreeView *list) : QStyledItemDelegate(list), m_header(list->header()) {}

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), m_header->geometry().bottom()};
    }

private:
    QHeaderView *m_header;
};

int CheckedColumn(const QTreeWidget &list, int column)
{
    if (column < 1 || column > list.columnCount())
        throw RuntimeError(ErrorNumber::OutOfRange);
    return column - 1;
}

QTreeWidgetItem &CheckedLine(const QTreeWidget &list, int line)
{
    if (line < 1 || line > list.topLevelItemCount())
        throw RuntimeError(ErrorNumber::OutOfRange);
    return *list.topLevelItem(line - 1);
}

} // namespace

ReportList::ReportList(QWidget *parent) : QTreeWidget(parent)
{
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSortingEnabled(false);
    setItemDelegate(new LineDelegate(this));
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
}

void ReportList::SetColumnTitles(const QStringList &titles)
{
    setColumnCount(static_cast<int>(titles.size()));
    setHeaderLabels(titles);
}

QString ReportList::ColumnTitle(int column) const
{
    return headerItem()->text(CheckedColumn(*this, column));
}

void ReportList::SetColumnWidth(int column, int pixels)
{
    setColumnWidth(CheckedColumn(*this, column), pixels);
}

void ReportList::ClearLines()
{
    clear();
}

void ReportList::AddLine(const QStringList &texts)
{
    AddLines({texts});
}

void ReportList::AddLines(const std::vector<QStringList> &lines)
{
    QList<QTreeWidgetItem *> items;
    items.reserve(static_cast<qsizetype>(lines.size()));
    for (const QStringList &texts : lines)
        items.append(new QTreeWidgetItem(texts)); // owned by the list from the next step on
    addTopLevelItems(items);
}

QString ReportList::LineText(int line, int column) const
{
    return CheckedLine(*this, line).text(CheckedColumn(*this, column));
}

void ReportList::SetLineText(int line, int column, const QString &text)
{
    CheckedLine(*this, line).setText(CheckedColumn(*this, column), text);
}

bool ReportList::LineSelected(int line) const
{
    return CheckedLine(*this, line).isSelected();
}

void ReportList::SelectLine(int line, bool selected)
{
    auto &item = CheckedLine(*this, line);
    item.setSelected(selected);
    if (selected)
        setCurrentItem(&item, 0, QItemSelectionModel::NoUpdate);
}

int ReportList::CurrentLine() const
{
    return indexOfTopLevelItem(currentItem()) + 1;
}

int ReportList::LineHeight() const
{
    return LineCount() > 0 ? rowHeight(indexFromItem(topLevelItem(0))) : 0;
}

void ReportList::updateGeometries()
{
    const int before = header()->geometry().bottom();
    QTreeWidget::updateGeometries();
    if (header()->geometry().bottom() != before)
        scheduleDelayedItemsLayout(); // the lines follow the header
}

void ReportList::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = viewport()->mapTo(this, event->position().toPoint());
    QTreeWidget::mousePressEvent(event);
    emit MouseDown(event->button(), position);
}

void ReportList::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint position = viewport()->mapTo(this, event->position().toPoint());
    QTreeWidget::mouseDoubleClickEvent(event);
    emit MouseDown(event->button(), position);
    if (event->button() == Qt::LeftButton)
        emit DoubleClick();
}
