/// @file
/// A list in report mode: lines of texts in titled columns, several of which can be selected.
#pragma once

#include <QStringList>
#include <QTreeWidget>

#include <vector>

/// Lines and columns count from 1. The header, with the frame above it, is as high as a line: the last pixel row of
/// line n is n + 1 line heights below the first pixel row of an unscrolled list.
class ReportList : public QTreeWidget {
    Q_OBJECT

public:
    explicit ReportList(QWidget *parent = nullptr);

    void SetColumnTitles(const QStringList &titles);
    QString ColumnTitle(int column) const;
    void SetColumnWidth(int column, int pixels);

    void ClearLines();
    void AddLine(const QStringList &texts);
    /// Adds many lines at once, much quicker than one by one.
    void AddLines(const std::vector<QStringList> &lines);
    int LineCount() const { return topLevelItemCount(); }
    QString LineText(int line, int column) const;
    void SetLineText(int line, int column, const QString &text);

    bool LineSelected(int line) const;
    /// A line that is selected also becomes the current one; the others keep their state.
    void SelectLine(int line, bool selected);
    /// The line with the focus, 0 for none.
    int CurrentLine() const;
    /// Height of the first line in pixels, 0 for an empty list.
    int LineHeight() const;

signals:
    /// Any press in the list, in pixels of the list (its header included).
    void MouseDown(Qt::MouseButton button, QPoint position);
    void DoubleClick();

protected:
    void updateGeometries() override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
};
