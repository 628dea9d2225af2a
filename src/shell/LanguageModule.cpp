#include "shell/LanguageModule.h"

#include "curve/EditDataFrm.h"
#include "display/SensorProjFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "link/LinkState.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"

namespace {

QString CaptionOf(const CaptionRow &row, std::int32_t language)
{
    return QString::fromUtf8(language == LanguageChinese ? row.Chinese : row.English);
}

/// Gives a control its caption, each kind in its own way.
void SetCaption(QObject *control, const QString &caption)
{
    if (auto *button = qobject_cast<LumoButton *>(control)) {
        button->SetCaption(caption);
    } else if (auto *menu = qobject_cast<QMenu *>(control)) {
        menu->setTitle(caption);
    } else if (auto *item = qobject_cast<QAction *>(control)) {
        item->setText(caption);
    } else if (auto *label = qobject_cast<QLabel *>(control)) {
        label->setText(caption);
    } else if (auto *push = qobject_cast<QAbstractButton *>(control)) {
        push->setText(caption);
    } else if (auto *box = qobject_cast<QLineEdit *>(control)) {
        box->setText(caption);
    }
}

void ApplyTable(const QObject &window, std::span<const CaptionRow> table, std::int32_t language)
{
    for (const CaptionRow &row : table)
        SetCaption(window.findChild<QObject *>(QString::fromLatin1(row.Control)), CaptionOf(row, language));
}

void ApplyToolTips(std::int32_t language)
{
    for (const CaptionRow &row : ToolBarToolTips())
        MainForm->ToolBarButton(QString::fromLatin1(row.Control))->setToolTip(CaptionOf(row, language));
}

/// While the panel is hidden the root keeps its last text.
void ApplyToProjectSheet(std::int32_t language)
{
    if (!ProjectPanelVisible || ProjectSheet == nullptr)
        return;
    const QString caption = CaptionOf(ProjectSheetCaption, language);
    ProjectSheet->setWindowTitle(caption);
    MainForm->TabDock->SetPanelTitle(ProjectSheetPanel, caption);
    ProjectRootText = CaptionOf(ProjectRootCaption, language);
    if (RootNode != nullptr)
        RootNode->setText(0, ProjectRootText);
}

void ApplyToTabs(int slot, const SensorProjFrm &form, std::int32_t language)
{
    for (int tab = 1; tab <= ProjectChildCount; ++tab) {
        const QString caption = CaptionOf(TabCaptions[tab - 1], language);
        form.TabStrip->SetCaption(tab, caption);
        const int index = ProjectSlots[slot].NodeIndex + tab;
        // There is no node while the panel is hidden.
        if (QTreeWidgetItem *node = ProjectSheet != nullptr ? ProjectSheet->NodeAt(index) : nullptr)
            node->setText(0, caption);
    }
}

void ApplyToGrid(int slot, const SensorProjFrm &form, std::int32_t language)
{
    const QString unit = CaptionOf(GridUnitTitle, language);
    form.EditDataView->SetColumnTitles({CaptionOf(GridColumnTitles[0], language), unit + SensorProjects[slot].InputUnit,
                                        unit + SensorProjects[slot].OutputUnit,
                                        CaptionOf(GridColumnTitles[1], language),
                                        CaptionOf(GridColumnTitles[2], language)});
}

void ApplyToProjects(std::int32_t language)
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        const SensorProjFrm *form = ProjectForm[slot];
        if (!ProjectOccupied[slot] || form == nullptr)
            continue;
        ApplyToTabs(slot, *form, language);
        ApplyToGrid(slot, *form, language);
        ApplyTable(*form, ProjectButtonCaptions(), language);
    }
}

} // namespace

void LoadLanguage(std::int32_t language)
{
    ApplyToolTips(language);
    ApplyTable(*MainForm, FrameCaptions(), language);
    ApplyToProjectSheet(language);
    if (DeviceChoiceForm != nullptr)
        ApplyTable(*DeviceChoiceForm, DeviceChoiceCaptions(), language);
    ApplyToProjects(language);
}

void LoadEditDataLanguage(EditDataFrm &form)
{
    ApplyTable(form, EditDataCaptions(), CurrentLanguage);
}

void LoadSensorPropertyLanguage(SensorPropertyFrm &form)
{
    form.setWindowTitle(CaptionOf(SensorPropertyTitle, CurrentLanguage));
    ApplyTable(form, SensorPropertyCaptions(), CurrentLanguage);
}
