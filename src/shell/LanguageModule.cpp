#include "shell/LanguageModule.h"

#include "controls/ToolkitTexts.h"
#include "curve/EditDataFrm.h"
#include "display/RefPicColorrizeFrm.h"
#include "display/SensorProjFrm.h"
#include "display/Wave1picColorrizeFrm.h"
#include "display/Wave2picColorrizeFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "link/LinkState.h"
#include "measure/SendProjFrm.h"
#include "platform/NumberText.h"
#include "platform/SettingsStore.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/HelpModule.h"
#include "shell/LanguageTables.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"

#include <QCoreApplication>

namespace {

const QString SettingsApplication = QStringLiteral("Ostrakon");
const QString LanguageSection = QStringLiteral("Language");
const QString LanguageKey = QStringLiteral("Currentlang");

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
    } else if (auto *frame = qobject_cast<QGroupBox *>(control)) {
        frame->setTitle(caption);
    } else if (auto *box = qobject_cast<QLineEdit *>(control)) {
        box->setText(caption);
    }
}

void ApplyRow(QWidget &window, const CaptionRow &row, std::int32_t language)
{
    const QString caption = CaptionOf(row, language);
    if (*row.Control == '\0') {
        window.setWindowTitle(caption);
    } else {
        SetCaption(window.findChild<QObject *>(QString::fromLatin1(row.Control)), caption);
    }
}

void ApplyTable(QWidget &window, std::span<const CaptionRow> table, std::int32_t language)
{
    for (const CaptionRow &row : table)
        ApplyRow(window, row, language);
}

void ApplyToolTips(std::int32_t language)
{
    for (const CaptionRow &row : ToolBarToolTips())
        MainForm->ToolBarButton(QString::fromLatin1(row.Control))->setToolTip(CaptionOf(row, language));
}

void ChooseHelpFile(std::int32_t language)
{
    HelpFile = QCoreApplication::applicationDirPath() + CaptionOf(HelpFileName, language);
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
    ApplyTable(*ProjectSheet, TreeMenuCaptions(), language);
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
        SensorProjFrm *form = ProjectForm[slot];
        if (!ProjectOccupied[slot] || form == nullptr)
            continue;
        ApplyToTabs(slot, *form, language);
        ApplyToGrid(slot, *form, language);
        ApplyTable(*form, ProjectButtonCaptions(), language);
    }
}

} // namespace

void ReadLanguage()
{
    const QString text = ReadSetting(SettingsApplication, LanguageSection, LanguageKey, QStringLiteral("1"));
    CurrentLanguage = RoundToInt32(WholeNumber(text));
}

void SwitchLanguage(std::int32_t language)
{
    CurrentLanguage = language;
    MainForm->mnuHelpLang_Chinese->setChecked(language == LanguageChinese);
    MainForm->mnuHelpLang_English->setChecked(language == LanguageEnglish);
    LoadLanguage(language);
    WriteSetting(SettingsApplication, LanguageSection, LanguageKey, QString::number(language));
}

void LoadLanguage(std::int32_t language)
{
    SetToolkitTexts(language == LanguageChinese);
    ApplyToolTips(language);
    ApplyTable(*MainForm, FrameMenuCaptions(), language);
    ChooseHelpFile(language);
    ApplyTable(*MainForm, GridMenuCaptions(), language);
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
    ApplyTable(form, SensorPropertyCaptions(), CurrentLanguage);
}

void LoadRefColourLanguage(RefPicColorrizeFrm &form)
{
    ApplyTable(form, RefColourCaptions(), CurrentLanguage);
}

void LoadWave1ColourLanguage(Wave1picColorrizeFrm &form)
{
    ApplyTable(form, WaveColourCaptions(), CurrentLanguage);
    ApplyRow(form, Wave1DotCaption, CurrentLanguage);
}

void LoadWave2ColourLanguage(Wave2picColorrizeFrm &form)
{
    ApplyTable(form, WaveColourCaptions(), CurrentLanguage);
    ApplyRow(form, Wave2DotCaption, CurrentLanguage);
}

void LoadSendProjectLanguage(SendProjFrm &form)
{
    ApplyTable(form, SendProjectCaptions(), CurrentLanguage);
}
