/// @file
/// Project windows whose reference list and pop-up menu answer a user's mouse, for the tests of their commands.
#pragma once

#include "curve/ReferenceEditModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/Hands.h"

class ReferenceListBench : public BareFrame {
public:
    ReferenceListBench() { ConnectReferencePopup(); }

    /// A project window with the page of its list as it lies when it is chosen.
    SensorProjFrm &AddListProject(int slot)
    {
        SensorProjFrm &form = AddProject(slot);
        form.EditDataPic->setGeometry(0, 0, 900, 600);
        form.EditDataPic->raise();
        form.EditDataView->setGeometry(0, 26, 900, 500);
        form.EditDataView->SetColumnTitles(
            {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")});
        form.UndoLumoBtn->setEnabled(false);
        form.RedoLumoBtn->setEnabled(false);
        ConnectReferenceEdit(form);
        return form;
    }

    /// Opens the pop-up menu by a press of the right button on a line, or at the lower end of the list for 0. On a line
    /// that is not selected the press selects it alone. @return whether the menu has come up
    bool OpenPopup(ReportList &list, int line = 0) const
    {
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, PlaceInList(list, line));
        return frame.mnuPopEditData->isVisible();
    }

    /// Clicks a command of the pop-up menu, which is up.
    void Choose(QAction *command) const
    {
        QMenu &menu = *frame.mnuPopEditData;
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(command).center());
    }

    /// Runs a command of the pop-up menu from the given line of a list.
    void RunFromPopup(ReportList &list, QAction *command, int line = 0) const
    {
        QVERIFY(OpenPopup(list, line));
        QVERIFY(command->isEnabled());
        Choose(command);
    }

    /// The middle of a line, which is scrolled into sight, or a place near the lower end for 0.
    static QPoint PlaceInList(ReportList &list, int line)
    {
        if (line == 0)
            return {20, list.viewport()->height() - 5};
        list.scrollToItem(list.topLevelItem(line - 1));
        return list.visualItemRect(list.topLevelItem(line - 1)).center();
    }

    /// Selects lines by clicks, the further ones with Ctrl held.
    static void ClickLines(ReportList &list, const QList<int> &lines)
    {
        for (const int line : lines)
            QTest::mouseClick(list.viewport(), Qt::LeftButton,
                              line == lines.first() ? Qt::NoModifier : Qt::ControlModifier, PlaceInList(list, line));
    }
};

inline QList<int> SelectedLines(const ReportList &list)
{
    QList<int> lines;
    for (int line = 1; line <= list.LineCount(); ++line) {
        if (list.LineSelected(line))
            lines.append(line);
    }
    return lines;
}

/// What the lines of a list show in one column.
inline QStringList ColumnTexts(const ReportList &list, int column)
{
    QStringList texts;
    for (int line = 1; line <= list.LineCount(); ++line)
        texts.append(list.LineText(line, column));
    return texts;
}

/// The inputs of a table's used rows, in its order.
inline QList<double> UsedInputs(const ReferenceRows &rows)
{
    QList<double> inputs;
    for (const ReferencePoint &point : rows) {
        if (point.Used)
            inputs.append(point.Input);
    }
    return inputs;
}
