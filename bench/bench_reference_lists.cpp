/// @file
/// One edit of one reference row while ten projects with 500 rows each are open: the OK of the dialogue until it
/// returns, and until the user sees the list again. Beside them, the sort alone where it has most to do.
#include "curve/EditDataFrm.h"
#include "curve/ReferenceEditModule.h"
#include "curve/ReferenceListModule.h"
#include "shell/ManyProjects.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int EditRepetitions = 101; ///< of one edit each; their median counts
constexpr double FrameTime = 16;     ///< milliseconds that an edit may take: one frame of a screen
constexpr int ActiveProject = SlotCount - 1;
constexpr int EditedRow = 250;
constexpr double InputStep = 0.234567;
const std::string EditName = "one_edit";

/// Tells when a widget was painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget &widget) { widget.installEventFilter(this); }

    bool Painted = false;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        Painted = Painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

const ReportList &EditedList()
{
    return *ProjectForm[ActiveProject]->EditDataView;
}

void ProcessUntilPainted(const PaintWatch &watch)
{
    while (!watch.Painted)
        QCoreApplication::processEvents();
}

/// Ten projects of 500 rows, the last of them active, with one row chosen in its list, on screen as a user has it.
void FillProjects()
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        for (int row = 1; row <= ReferenceRowLimit; ++row) {
            PutRow(slot, row, InputStep * row, 100 * std::sqrt(row), row % 100 == 1, 1);
            ReferenceTable[slot][row].InputText = SensorProjects[slot].InputUnit;
            ReferenceTable[slot][row].OutputText = SensorProjects[slot].OutputUnit;
        }
    }
    RefreshReferenceLists();
    ProjectForm[ActiveProject]->EditDataView->SelectLine(EditedRow, true);
    ProcessUntilPainted(PaintWatch(*EditedList().viewport()));
}

/// Opens the dialogue for the chosen row, types an input that moves the row past its neighbours, and presses OK.
void EditChosenRow(const std::function<void(const EditDataFrm &)> &pressOk)
{
    static bool upwards = false;
    upwards = !upwards;
    const WhenModal edit(QStringLiteral("EditDataFrm"), [&](QWidget *dialogue) {
        const auto &form = *qobject_cast<EditDataFrm *>(dialogue);
        form.VolTxt->setText(QString::number(InputStep * (EditedRow + (upwards ? 1.5 : -1.5))));
        pressOk(form);
    });
    mnuPopEditDataChange_Click();
    if (EditedList().CurrentLine() != EditedRow + (upwards ? 1 : -1) || EditedList().LineCount() != ReferenceRowLimit)
        std::abort(); // what was measured is no edit
}

/// From the press on OK until its routine has returned: backup, copy, sort, refresh of the ten lists.
void EditOnly(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        PaintWatch list(*EditedList().viewport());
        EditChosenRow([&](const EditDataFrm &form) {
            state.ResumeTiming();
            form.OkCmd->click();
            state.PauseTiming();
        });
        ProcessUntilPainted(list);
        state.ResumeTiming();
    }
}

/// From the press on OK until the dialogue is gone and the list painted.
void EditUntilPainted(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        PaintWatch list(*EditedList().viewport());
        EditChosenRow([&](const EditDataFrm &form) {
            list.Painted = false;
            state.ResumeTiming();
            form.OkCmd->click();
        });
        ProcessUntilPainted(list);
    }
}

void SortReversed(benchmark::State &state)
{
    ReferenceRows &table = ReferenceTable[ActiveProject];
    for (auto _ : state) {
        state.PauseTiming();
        std::reverse(table.begin() + 1, table.end());
        state.ResumeTiming();
        SortReferenceTable(ActiveProject);
    }
}

void Register()
{
    const auto add = [](const std::string &name, auto routine) {
        benchmark::RegisterBenchmark(name.c_str(), routine)
            ->Iterations(1)
            ->Repetitions(EditRepetitions)
            ->Unit(benchmark::kMillisecond)
            ->ComputeStatistics("min",
                                [](const std::vector<double> &times) { return *std::ranges::min_element(times); })
            ->ComputeStatistics("max",
                                [](const std::vector<double> &times) { return *std::ranges::max_element(times); })
            ->ReportAggregatesOnly();
    };
    add(EditName, EditOnly);
    add(EditName + "_until_painted", EditUntilPainted);
    add("sort_reversed_500", SortReversed);
}

/// Prints, behind the table of times, what one edit takes of a frame.
class FrameTimeReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.aggregate_name == "median" && run.run_name.function_name == EditName)
                m_edit = run.GetAdjustedCPUTime();
        }
    }

    /// @return false when the edit takes more than a frame, or was not measured
    bool PrintVerdict() const
    {
        std::printf("%s takes %.2f ms; aim: at most %g ms\n", EditName.c_str(), m_edit, FrameTime);
        return m_edit > 0 && m_edit <= FrameTime;
    }

private:
    double m_edit = 0; ///< milliseconds, 0 when not measured
};

} // namespace

int main(int argumentCount, char **arguments)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settings; // the user's own stay as they are
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    benchmark::Initialize(&argumentCount, arguments);
    const QApplication application(argumentCount, arguments);
    StartAfresh();
    const ManyProjects projects(SlotCount);
    FillProjects();
    Register();
    FrameTimeReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.PrintVerdict() ? 0 : 1;
}
