#include "curve/ReferenceListModule.h"

#include "curve/ReferenceRows.h"
#include "curve/StringFunction.h"
#include "display/SensorProjFrm.h"
#include "platform/NumberText.h"
#include "shell/MainModule.h"

#include <vector>

namespace {

constexpr int RowColumn = 1;
constexpr int ArithmeticColumn = 4;
constexpr int SegmentColumn = 5;

QString ArithmeticText(const ReferencePoint &point)
{
    if (!point.Segment)
        return {};
    // Required: the Chinese name of the fit is written otherwise here than in the dialogue; both stand as they are.
    return point.Arithmetic == 0 ? Wording(QStringLiteral("Line"), QStringLiteral("线性插值"))
                                 : Wording(QStringLiteral("Least"), QStringLiteral("曲线拟和"));
}

QString SegmentText(const ReferencePoint &point)
{
    return point.Segment ? Wording(QStringLiteral("Yes"), QStringLiteral("是"))
                         : Wording(QStringLiteral("No"), QStringLiteral("否"));
}

QStringList LineOfRow(int row, const ReferencePoint &point)
{
    return {QString::number(row), FormatInputValue(GeneralNumber(point.Input)),
            FormatOutputValue(GeneralNumber(point.Output)), ArithmeticText(point), SegmentText(point)};
}

void FillList(ReportList &list, const ReferenceRows &rows)
{
    std::vector<QStringList> lines;
    std::vector<int> rowOfLine;
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        if (!rows[row].Used)
            continue;
        lines.push_back(LineOfRow(row, rows[row]));
        rowOfLine.push_back(row);
    }
    list.AddLines(lines);
    for (std::size_t i = 0; i < rowOfLine.size(); ++i) {
        // Required: each further line takes the selection off line 1, so that a mark of row 1 shows only in a list of
        // one line. The marks belong to no project: they show in the lists of all. Neither is to be repaired.
        list.SelectLine(1, false);
        if (RowMarks[rowOfLine[i]])
            list.SelectLine(static_cast<int>(i) + 1, true);
    }
}

} // namespace

void RefreshReferenceLists()
{
    for (int slot = 0; slot < ProjectCount; ++slot) {
        const SensorProjFrm *form = ProjectForm[CheckedSlot(slot)];
        if (form == nullptr)
            continue;
        form->EditDataView->ClearLines();
        if (!SensorProjects[slot].IsBuiltInSensor)
            FillList(*form->EditDataView, ReferenceTable[slot]);
    }
}

void TranslateReferenceLists()
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        const SensorProjFrm *form = ProjectForm[slot];
        for (int line = 1; form != nullptr && line <= form->EditDataView->LineCount(); ++line) {
            const int row = RoundToInt32(WholeNumber(form->EditDataView->LineText(line, RowColumn)));
            const ReferencePoint &point = ReferenceTable[slot].at(row);
            form->EditDataView->SetLineText(line, ArithmeticColumn, ArithmeticText(point));
            form->EditDataView->SetLineText(line, SegmentColumn, SegmentText(point));
        }
    }
}
