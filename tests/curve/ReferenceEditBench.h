/// @file
/// One project whose reference list is used through its pop-up menu, by double clicks and by undo and redo.
#pragma once

#include "curve/ReferenceListBench.h"
#include "curve/ReferenceListModule.h"

/// A frame with one project in slot 0.
class ReferenceEditBench : public ReferenceListBench {
public:
    ReferenceEditBench() : project(AddListProject(0)) {}

    /// Rows 1 to count of slot 0: inputs 1, 2 ..., outputs ten times that, row 1 a segment.
    void PutRows(int count)
    {
        for (int row = 1; row <= count; ++row)
            PutRow(0, row, row, 10.0 * row, row == 1);
        RefreshReferenceLists();
    }

    ReportList &List() const { return *project.EditDataView; }

    /// Deletes lines: clicks them, chooses the command from the last one, and answers the question.
    void DeleteLines(const QList<int> &lines, QMessageBox::StandardButton answer = QMessageBox::Ok)
    {
        ClickLines(List(), lines);
        const BoxAnswers answers({answer});
        RunFromPopup(List(), frame.mnuPopEditDataDelete, lines.last());
    }

    void DeleteAll(QMessageBox::StandardButton answer = QMessageBox::Ok)
    {
        const BoxAnswers answers({answer});
        RunFromPopup(List(), frame.mnuPopEditDataDeleteAll);
    }

    SensorProjFrm &project;
};
