#include "project/ProjectWindowModule.h"

#include "display/ProjectViewModule.h"
#include "display/SensorProjFrm.h"
#include "display/WaveRecord.h"
#include "project/ProjectTable.h"
#include "shell/ActiveProject.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

namespace {

constexpr int DefaultSampleMilliseconds = 1000;
constexpr int EditDataPage = 2;

struct ButtonCaption {
    LumoButton *SensorProjFrm::*Button;
    const char *English; ///< UTF-8
    const char *Chinese; ///< UTF-8
};

constexpr ButtonCaption newProjectCaptions[] = {
    {&SensorProjFrm::RecordLumoBtn, "Start", "开始测量"}, {&SensorProjFrm::EndLumoBtn, "End", "结束测量"},
    {&SensorProjFrm::ReplayLumoBtn, "Replay", "回放"},    {&SensorProjFrm::PauseLumoBtn, "Pause", "暂停"},
    {&SensorProjFrm::StopLumoBtn, "Stop", "结束"},        {&SensorProjFrm::LowLumoBtn, "/ 2", "/ 2"},
    {&SensorProjFrm::FastLumoBtn, "× 2", "× 2"},          {&SensorProjFrm::ColorLumoBtn, "Color Setting", "颜色设置"},
    {&SensorProjFrm::ZoominHLumoBtn, "Zoomin", "放大"},   {&SensorProjFrm::ZoomInVLumoBtn, "Zoomin", "放大"},
    {&SensorProjFrm::ZoomOutHLumoBtn, "Zoomout", "缩小"}, {&SensorProjFrm::ZoomOutVLumoBtn, "Zoomout", "缩小"},
};

QString CaptionOf(const CaptionRow &row)
{
    return Wording(QString::fromUtf8(row.English), QString::fromUtf8(row.Chinese));
}

QStringList ColumnTitles(int slot)
{
    const SensorProject &project = SensorProjects[slot];
    const QString unit = CaptionOf(GridUnitTitle);
    return {CaptionOf(GridColumnTitles[0]), unit + project.InputUnit, unit + project.OutputUnit,
            CaptionOf(GridColumnTitles[1]), CaptionOf(GridColumnTitles[2])};
}

void ResetRunControls(SensorProjFrm &form)
{
    for (LumoButton *button :
         {form.RecordLumoBtn, form.ReplayLumoBtn, form.exportCom, form.ZoominHLumoBtn, form.ZoomOutHLumoBtn})
        button->setEnabled(true);
    for (LumoButton *button : {form.EndLumoBtn, form.PauseLumoBtn, form.StopLumoBtn, form.LowLumoBtn, form.FastLumoBtn,
                               form.ZoomInVLumoBtn, form.ZoomOutVLumoBtn})
        button->setEnabled(false);
    form.TxtSample->setEnabled(true);
    form.TxtSample->setText(QStringLiteral("1.0"));
}

void HideWaveBars(SensorProjFrm &form)
{
    form.FlatScrollBar1->hide();
    form.FlatScrollBar2->hide();
    form.Recordpic->hide(); // carries the horizontal bar
}

} // namespace

void MakeProjectWindow(int slot)
{
    SensorProjFrm *&form = ProjectForm[slot];
    if (form != nullptr) {
        form->Tag = QString::number(slot);
        return;
    }
    form = new SensorProjFrm;
    form->Tag = QString::number(slot);
    MainForm->Children->addSubWindow(form);
    emit MainForm->ProjectWindowMade(form);
}

void SetGridTitles(int slot)
{
    FormOfSlot(slot).EditDataView->SetColumnTitles(ColumnTitles(slot));
}

void PrepareEditPage(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    SetGridTitles(slot);
    form.UndoLumoBtn->setEnabled(false);
    form.RedoLumoBtn->setEnabled(false);
    form.Timer1->stop();
}

void EnableGrid(int slot)
{
    FormOfSlot(slot).EditDataView->setEnabled(!SensorProjects[slot].IsBuiltInSensor);
}

void SetNewProjectCaptions(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    for (const ButtonCaption &row : newProjectCaptions)
        (form.*row.Button)->SetCaption(Wording(QString::fromUtf8(row.English), QString::fromUtf8(row.Chinese)));
    form.setWindowTitle(ProjectSlots[slot].ProjectName);
}

void ResetWaves(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    ResetWaveRecords(slot, form.Timer1->interval() / 1000.0);
    HideWaveBars(form);
}

void ShowUnits(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    form.LabXUnit->setText(QStringLiteral("X:  ") + SensorProjects[slot].InputUnit);
    form.LabYUnit->setText(QStringLiteral("Y:  ") + SensorProjects[slot].OutputUnit);
}

void ResetWavesAndControls(int slot)
{
    SensorProjFrm &form = FormOfSlot(slot);
    form.Timer1->setInterval(DefaultSampleMilliseconds);
    ResetWaves(slot);
    ResetRunControls(form);
    form.OptWave1->setChecked(true);
    form.ChkGrid->setChecked(true);
    form.ChkLink->setChecked(true);
    ShowUnits(slot);
    form.TabStrip->SelectTab(EditDataPage);
    SwitchProjectPage(slot, EditDataPage);
}
