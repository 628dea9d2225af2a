#include "display/TimeCurveModule.h"

#include "controls/Guard.h"
#include "display/DispFunctionModule.h"
#include "display/SensorProjFrm.h"
#include "display/WaveRecord.h"
#include "shell/ActiveProject.h"

namespace {

constexpr ColourRef SurfaceBackColour = Rgb(0, 0, 0);

void RedrawWave(PictureBox &plot, PictureBox &background, const WaveRecord &record)
{
    plot.Clear();
    DrawWaveAxisText(background, plot, record);
    DrawWaveGrid(plot, record);
    DrawWaveTrace(plot, record);
    plot.Refresh();
}

/// Makes a surface of the picture's size. The bitmap's field keeps the one that the context held before.
void CreateSurface(const PictureBox &plot, SurfaceHandle &memoryDc, SurfaceHandle &memoryBitmap)
{
    memoryBitmap = 0;
    memoryDc = CreateCompatibleDC(plot.Context());
    if (memoryDc != 0)
        memoryBitmap = CreateCompatibleBitmap(plot.Context(), plot.ScaleWidth(), plot.ScaleHeight());
    if (memoryBitmap != 0) {
        memoryBitmap = SelectObject(memoryDc, memoryBitmap);
    } else {
        DeleteDC(memoryDc);
        memoryDc = 0;
    }
    SetBkColor(memoryDc, SurfaceBackColour);
}

void ReleaseSurface(SurfaceHandle &memoryDc, SurfaceHandle &memoryBitmap)
{
    if (memoryBitmap == 0)
        return;
    DeleteObject(SelectObject(memoryDc, memoryBitmap));
    memoryBitmap = 0;
    if (memoryDc != 0)
        DeleteDC(memoryDc);
    memoryDc = 0;
}

/// Takes a check box over into the chosen record and redraws that curve. A third state changes nothing but still
/// redraws.
void ApplyDisplayChoice(const SensorProjFrm &form, const QCheckBox &box, bool WaveRecord::*choice)
{
    const int slot = SlotOf(form);
    const auto apply = [&](WaveRecord &record, void (*redraw)(int)) {
        if (box.checkState() != Qt::PartiallyChecked)
            record.*choice = box.checkState() == Qt::Checked;
        redraw(slot);
    };
    if (form.OptWave1->isChecked())
        apply(ValueWave[slot], RedrawValueWave);
    if (form.OptWave2->isChecked())
        apply(MeasureWave[slot], RedrawMeasureWave);
}

void LoadDisplayChoices(SensorProjFrm &form, const WaveRecord &record)
{
    form.ChkGrid->setChecked(record.Grid);
    form.ChkLink->setChecked(record.Link);
}

} // namespace

void RedrawValueWave(int slot)
{
    if (SensorProjFrm *form = ProjectForm[CheckedSlot(slot)])
        RedrawWave(*form->PicTime_Value, *form->PicTime_Value_Background, ValueWave[slot]);
}

void RedrawMeasureWave(int slot)
{
    if (SensorProjFrm *form = ProjectForm[CheckedSlot(slot)])
        RedrawWave(*form->PicTime_Meas, *form->PicTime_Meas_Background, MeasureWave[slot]);
}

void CreateWaveBuffers(int slot)
{
    const SensorProjFrm &form = FormOfSlot(slot);
    const auto create = [](const PictureBox &plot, WaveRecord &record) {
        CreateSurface(plot, record.MemoryDcB, record.MemoryBitmapB);
        CreateSurface(plot, record.MemoryDcA, record.MemoryBitmapA);
    };
    create(*form.PicTime_Value, ValueWave[slot]);
    create(*form.PicTime_Meas, MeasureWave[slot]);
}

void ReleaseWaveBuffers(int slot)
{
    CheckedSlot(slot);
    for (WaveRecord *record : {&ValueWave[slot], &MeasureWave[slot]}) {
        ReleaseSurface(record->MemoryDcA, record->MemoryBitmapA);
        ReleaseSurface(record->MemoryDcB, record->MemoryBitmapB);
    }
}

void ConnectTimeCurve(SensorProjFrm &form)
{
    // Clicks alone: what the program sets runs no routine.
    ConnectGuarded(form.ChkGrid, &QAbstractButton::clicked, &form,
                   [&form] { ApplyDisplayChoice(form, *form.ChkGrid, &WaveRecord::Grid); });
    ConnectGuarded(form.ChkLink, &QAbstractButton::clicked, &form,
                   [&form] { ApplyDisplayChoice(form, *form.ChkLink, &WaveRecord::Link); });
    ConnectGuarded(form.OptWave1, &QAbstractButton::clicked, &form,
                   [&form] { LoadDisplayChoices(form, ValueWave[SlotOf(form)]); });
    ConnectGuarded(form.OptWave2, &QAbstractButton::clicked, &form,
                   [&form] { LoadDisplayChoices(form, MeasureWave[SlotOf(form)]); });
}
