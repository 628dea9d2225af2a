#include "curve/ReferenceListModule.h"

#include "curve/ReferenceRows.h"
#include "curve/StringFunction.h"
#include "display/SensorProjFrm.h"
#include "platform/NumberText.h"
#include "shell/MainModule.h"

#include <array>
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

/// A number with its text as last shown.
struct ShownNumber {
    double Number = 0;
    QString Text;
};

struct ShownRow {
    ShownNumber Input, Output;
};

/// By slot and row. An edit changes one row and rebuilds the lists of all projects: what stayed is not formatted anew,
/// which saves a third of the refresh.
std::array<std::array<ShownRow, ReferenceRowLimit + 1>, SlotCount> shownRows;

const QString &TextOf(double number, ShownNumber &shown, QString (*format)(const QString &))
{
    if (shown.Text.isEmpty() || shown.Number != number)
        shown = {number, format(GeneralNumber(number))};
    return shown.Text;
}

QStringList LineOfRow(int slot, int row)
{
    const ReferencePoint &point = ReferenceTable[slot][row];
    ShownRow &shown = shownRows[slot][row];
    return {QString::number(row), TextOf(point.Input, shown.Input, FormatInputValue),
            TextOf(point.Output, shown.Output, FormatOutputValue), ArithmeticText(point), SegmentText(point)};
}

/// Required: each further line takes the selection off line 1, so that a mark of row 1 shows only in a list of one
/// line. The marks belong to no project: they show in the lists of all. Neither is to be repaired.
void SelectMarkedLines(ReportList &list, const std::vector<int> &rowOfLine)
{
    for (std::size_t i = 0; i < rowOfLine.size(); ++i) {
        // The lines from the third on find it off already, and asking the toolkit each time takes a quarter of the
        // refresh. At the last one it is asked: that closes the selection, so that Shift and an arrow add to it.
        if (i == 1 || i + 1 == rowOfLine.size())
            list.SelectLine(1, false);
        if (RowMarks[rowOfLine[i]])
            list.SelectLine(static_cast<int>(i) + 1, true);
    }
}

void FillList(ReportList &list, int slot)
{
    std::vector<QStringList> lines;
    std::vector<int> rowOfLine;
    lines.reserve(ReferenceRowLimit);
    rowOfLine.reserve(ReferenceRowLimit);
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        if (!ReferenceTable[slot][row].Used)
            continue;
        lines.push_back(LineOfRow(slot, row));
        rowOfLine.push_back(row);
    }
    list.AddLines(lines);
    SelectMarkedLines(list, rowOfLine);
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
            FillList(*form->EditDataView, slot);
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
