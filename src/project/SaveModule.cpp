#include "project/SaveModule.h"

#include "controls/Boxes.h"
#include "display/SensorProjFrm.h"
#include "platform/RuntimeError.h"
#include "project/ProjectFileModule.h"
#include "project/ProjectTable.h"
#include "shell/ActiveProject.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "shell/ProjectTreeModule.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace {

/// Asks for the file. @throws RuntimeError 32755 when the user cancels
QString AskPath(const QString &title)
{
    CommonDialog &dialog = *MainForm->dlgCommonDialog;
    // The program never makes this folder; without it the dialogue starts elsewhere.
    dialog.InitDir = QCoreApplication::applicationDirPath() + QStringLiteral("/Temp");
    dialog.DialogTitle = title;
    dialog.CancelError = true;
    dialog.FileName.clear();
    dialog.Filter = ProjectFileFilter;
    dialog.FilterIndex = 1;
    dialog.ShowSave();
    return dialog.FileName;
}

/// Required: looks at every slot, taken or not, and at the project that is being saved too.
bool NameTaken(const QString &name)
{
    const bool taken =
        std::ranges::any_of(ProjectSlots, [&name](const ProjectSlot &slot) { return slot.ProjectName == name; });
    if (taken)
        ExclamationBox(Wording(QStringLiteral("The same project already opened,save failed! "),
                               QStringLiteral("已经有同名工程被打开,不能保存为此文件名！")));
    return taken;
}

/// True when a new file may stand at the path. Required: only a file that exists is looked at.
bool MayWrite(const QString &path, const QString &question)
{
    if (!FileExists(path))
        return true;
    if (!NameTaken(ProjectNameOfPath(path)) &&
        AskOkCancel(Wording(question, QStringLiteral("该文件已经存在，是否替换? "))))
        return true;
    MainForm->dlgCommonDialog->FileName.clear();
    return false;
}

/// The project takes its file's name, unless that has no extension: then it keeps its own.
void NameAfterFile(int slot)
{
    ProjectSlot &project = ProjectSlots[slot];
    if (!QFileInfo(project.FilePath).fileName().contains(u'.'))
        return;
    project.ProjectName = ProjectNameOfPath(project.FilePath);
    FormOfSlot(slot).setWindowTitle(project.ProjectName);
    if (ProjectPanelVisible)
        ShowNodeName(slot);
}

/// Required: a path that may be written stays the project's, also when the writing fails: the next Save asks nothing.
/// @return false when the user has given no such path
bool ChooseFile(ProjectSlot &project)
{
    project.FilePath = AskPath(Wording(QStringLiteral("Save project as..."), QStringLiteral("保存为...")));
    if (project.FilePath.isEmpty())
        return false;
    if (MayWrite(project.FilePath, QStringLiteral("The file has existed, wether replace it? ")))
        return true;
    project.FilePath.clear();
    return false;
}

void SaveToFile(int slot)
{
    ProjectSlot &project = ProjectSlots[CheckedSlot(slot)];
    if (project.FilePath.isEmpty() && !ChooseFile(project))
        return;
    WriteProjectFile(slot, project.FilePath);
    NameAfterFile(slot);
    project.HasFile = true;
    project.Dirty = false;
}

/// Required: a copy. The project keeps its file and its name, and Save goes on to the old file.
void CopyToFile()
{
    const int slot = ActiveSlot();
    const QString path = AskPath(Wording(QStringLiteral("Save project As..."), QStringLiteral("另存为...")));
    if (!path.isEmpty() && MayWrite(path, QStringLiteral("The file has existed, replace it? ")))
        WriteProjectFile(slot, path);
}

} // namespace

void SaveProject(int slot)
{
    try {
        SaveToFile(slot);
    } catch (const RuntimeError &error) {
        // Required: every other failure, a full disk among them, ends the command without a word.
        if (error.Number() == ErrorNumber::PermissionDenied)
            ExclamationBox(Wording(QStringLiteral("The file has been opened by other process, can not be written! "),
                                   QStringLiteral("文件已经被其他进程打开，不能写入! ")));
    }
}

void SaveAllProjects()
{
    for (int slot = 0; slot < SlotCount; ++slot) {
        if (ProjectOccupied[slot])
            SaveProject(slot);
    }
}

void SaveProjectCopy()
{
    // Required: a copy that cannot be written is not reported.
    ErrorsSetAside().Run(CopyToFile);
}
