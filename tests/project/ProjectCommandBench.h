/// @file
/// The loaded frame with a KV7060 at hand, a folder for project files, and hands for the commands and their dialogues.
#pragma once

#include "project/ProjectFileText.h"
#include "shell/FrameBench.h"
#include "support/FileBytes.h"

#include <QComboBox>
#include <QFileDialog>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

inline constexpr auto Ok = QMessageBox::Ok;
inline constexpr auto Cancel = QMessageBox::Cancel;

using Command = std::function<void()>;

/// A text in both languages.
struct Text {
    const char *English;
    const char *Chinese;

    QString InCurrentLanguage() const
    {
        return QString::fromUtf8(CurrentLanguage == LanguageChinese ? Chinese : English);
    }
};

inline constexpr Text notConnected{"Please connect to the instrument! ", "请和仪器连接! "};
inline constexpr Text limitReached{"You can create only 10 projects as maximum limit! ", "工程数目达到上限! "};

inline constexpr Text sameProjectOnSave{"The same project already opened,save failed! ",
                                        "已经有同名工程被打开,不能保存为此文件名！"};
inline constexpr Text replaceOnSave{"The file has existed, wether replace it? ", "该文件已经存在，是否替换? "};
inline constexpr Text replaceOnSaveAs{"The file has existed, replace it? ", "该文件已经存在，是否替换? "};
inline constexpr Text heldByOther{"The file has been opened by other process, can not be written! ",
                                  "文件已经被其他进程打开，不能写入! "};

inline void AddLanguages()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

/// What a file dialogue showed when it came up.
struct ShownFileDialog {
    QString Title;
    QString Folder; ///< without links
    QStringList Filters;
    QString Filter; ///< the chosen one, as it is shown
    QString Name;
    bool Save = false;
    bool Modal = false;
};

/// Answers file dialogues in the order of the given paths, as long as it lives: chooses the folder first, then types
/// the name. An empty path cancels. A dialogue that does not come fails the test.
class FileDialogAnswers {
public:
    explicit FileDialogAnswers(QStringList paths) : m_paths(std::move(paths)) { WaitForNext(); }

    /// All dialogues so far.
    const QList<ShownFileDialog> &Shown() const { return m_shown; }

private:
    void WaitForNext()
    {
        if (m_shown.size() == m_paths.size())
            return;
        const auto answer = [this](QWidget *widget) { Answer(widget); };
        m_waiting.push_back(std::make_unique<WhenModal>(QStringLiteral("CommonDialog"), answer));
    }

    void Answer(QWidget *widget)
    {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        const auto *types = dialog->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        const auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        const QString path = m_paths[m_shown.size()];
        m_shown.append({dialog->windowTitle(), dialog->directory().canonicalPath(), dialog->nameFilters(),
                        types->currentText(), name->text(), dialog->acceptMode() == QFileDialog::AcceptSave,
                        dialog->isModal()});
        if (path.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
        } else {
            dialog->setDirectory(QFileInfo(path).path());
            TypeFileName(dialog, QFileInfo(path).fileName());
        }
        WaitForNext();
    }

    QStringList m_paths;
    QList<ShownFileDialog> m_shown;
    std::vector<std::unique_ptr<WhenModal>> m_waiting;
};

/// Runs a command and answers its one file dialogue; without a path, cancels it.
inline ShownFileDialog AnswerFileDialog(const Command &command, const QString &path = {})
{
    const FileDialogAnswers answers({path});
    command();
    return answers.Shown().value(0);
}

/// The three ways to a command of the frame, one data row each.
inline void AddEntryPoints()
{
    QTest::addColumn<QString>("entry");
    for (const char *entry : {"menu", "toolbar", "key"})
        QTest::newRow(entry) << QString::fromLatin1(entry);
}

// Every fixture begins with a store and an instrument of its own, ahead of the frame.
struct FreshStart {
    FreshStart() { StartAfresh(); }
};

class ProjectCommandBench : private FreshStart, public LoadedFrame {
public:
    ProjectCommandBench()
    {
        LinkUp = true;
        InstrumentKind = InstrumentKindKV7060;
    }

    /// A path in the test's own folder, whose name holds no point.
    QString Path(const QString &name) const { return folder.filePath(name); }

    /// Runs a command by one of its ways.
    void Run(const QString &entry, QAction *item, const char *toolBarKey)
    {
        if (entry == QStringLiteral("menu")) {
            item->trigger();
        } else if (entry == QStringLiteral("toolbar")) {
            frame.ToolBarButton(QString::fromLatin1(toolBarKey))->trigger();
        } else {
            frame.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&frame));
            const QKeyCombination key = item->shortcut()[0];
            QTest::keyClick(&frame, key.key(), key.keyboardModifiers());
        }
    }

    Command Open()
    {
        return [this] { frame.mnuFileOpen->trigger(); };
    }
    Command Save()
    {
        return [this] { frame.mnuFileSave->trigger(); };
    }
    Command SaveAs()
    {
        return [this] { frame.mnuFileSaveAs->trigger(); };
    }

    /// Opens a file that has been written beforehand.
    void OpenFile(const QString &path)
    {
        const BoxAnswers none;
        AnswerFileDialog(Open(), path);
    }

    /// Opens a project of that name, as a small voltage sensor without rows.
    void OpenNamed(const QString &name)
    {
        const QString path = Path(name + QStringLiteral(".spj"));
        if (!QFile::exists(path))
            QVERIFY(PutBytes(path, ProjectFileText().Bytes()));
        OpenFile(path);
    }

    /// Puts the active project into a file by Save and its dialogue.
    void SaveTo(const QString &path)
    {
        const BoxAnswers none;
        AnswerFileDialog(Save(), path);
    }

    void MakeProjects(int count)
    {
        for (int i = 0; i < count; ++i)
            NewProjectByMenu();
    }

    /// Clicks a tab of the active project.
    void ClickTab(int tab)
    {
        const ::TabStrip &strip = *ActiveProjectForm()->TabStrip;
        QTest::mouseClick(frame.windowHandle(), Qt::LeftButton, {}, strip.mapTo(&frame, strip.TabCentre(tab)));
        QCOMPARE(strip.SelectedTab(), tab);
    }

    void Activate(int slot) { frame.Children->setActiveSubWindow(ProjectForm[slot]); }

    /// The state of a run in a slot's window, with a first tick far away.
    QTimer &StartRun(int slot)
    {
        SensorProjFrm &form = *ProjectForm[slot];
        Activate(slot);
        Measuring = true;
        form.RecordLumoBtn->setEnabled(false);
        form.EndLumoBtn->setEnabled(true);
        form.Timer1->setInterval(54000);
        form.Timer1->start();
        form.Timer2->start(53000);
        return *form.Timer1;
    }

    static QString NodeText(int slot) { return ProjectSheet->NodeAt(ProjectSlots[slot].NodeIndex)->text(0); }

    QTemporaryDir folder;
};
