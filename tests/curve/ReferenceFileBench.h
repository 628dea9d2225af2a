/// @file
/// A project with its import and export buttons, a folder for its files, and the hands that answer the file dialogue.
#pragma once

#include "curve/ReferenceDataTable.h"
#include "curve/ReferenceFileModule.h"
#include "curve/ReferenceListBench.h"
#include "curve/ReferenceListModule.h"
#include "support/ChildProcess.h"

#include <QComboBox>
#include <QFileDialog>
#include <QTemporaryDir>

/// A text in both languages.
struct Wordings {
    const char *English;
    const char *Chinese;

    QString InCurrentLanguage() const
    {
        return QString::fromUtf8(CurrentLanguage == LanguageChinese ? Chinese : English);
    }
};

inline constexpr Wordings heldByOther{"The file has been opened by other process, can not be writen! ",
                                      "该文件已经被其他进程打开，不能写入! "};
inline constexpr Wordings noCount{"File format is not correct, the first line is the number of reference points! ",
                                  "文件格式不正确，第一行为参考点数! "};
inline constexpr Wordings wrongSegment{"Description of the segment points is incorrect! ", "分段点表述方式不正确! "};
inline constexpr Wordings wrongArithmetic{"Algorithm type incorrect! ", "算法类型不正确! "};

inline void AddLanguages()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

inline void AddLayouts()
{
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::newRow("CSV") << Csv;
    QTest::newRow("text") << Text;
}

/// What a file dialogue showed when it came up.
struct ShownFileDialog {
    QString Title;
    QString Folder; ///< without links
    QStringList Filters;
    QString Name;
    bool Save = false;
};

/// Clicks a button and answers the one file dialogue that comes: chooses a filter by keys, then types a path. Without
/// a path, cancels.
inline ShownFileDialog ClickAndAnswer(LumoButton *button, const QString &path, ReferenceDataLayout layout = Csv)
{
    ShownFileDialog shown;
    const WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        auto *filters = dialog->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        shown.Title = dialog->windowTitle();
        shown.Folder = dialog->directory().canonicalPath();
        shown.Filters = dialog->nameFilters();
        shown.Name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
        shown.Save = dialog->acceptMode() == QFileDialog::AcceptSave;
        if (path.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        QTest::keyClick(filters, layout == Text ? Qt::Key_End : Qt::Key_Home);
        TypeFileName(dialog, path);
    });
    Click(button);
    return shown;
}

/// A frame with one project in slot 0.
class ReferenceFileBench : public ReferenceListBench {
public:
    ReferenceFileBench() : project(AddFileProject(0)) {}

    SensorProjFrm &AddFileProject(int slot)
    {
        SensorProjFrm &form = AddListProject(slot);
        ConnectReferenceFile(form);
        return form;
    }

    /// A path in the test's own folder, whose name holds no point.
    QString Path(const QString &name) const { return m_folder.path() + u'/' + name; }
    QString Folder() const { return m_folder.path(); }
    bool FolderIsFit() const { return m_folder.isValid() && !m_folder.path().contains(u'.'); }

    void PutTable(const ReferenceRows &table)
    {
        ReferenceTable[0] = table;
        RefreshReferenceLists();
    }

    /// Imports a file that is there; no box may come.
    void Import(const QString &name, ReferenceDataLayout layout)
    {
        const BoxAnswers none;
        ClickAndAnswer(project.ImportLumoBtn, Path(name), layout);
    }

    /// Puts bytes into a file and imports it. @return the boxes that came, each answered with OK
    QList<ShownBox> ImportBytes(const QByteArray &bytes, ReferenceDataLayout layout, int boxes)
    {
        const QString path = Path(layout == Csv ? QStringLiteral("data.CSV") : QStringLiteral("data.txt"));
        if (!PutBytes(path, bytes))
            qFatal("no file");
        BoxAnswers answers(QList<QMessageBox::StandardButton>(boxes, QMessageBox::Ok));
        ClickAndAnswer(project.ImportLumoBtn, path, layout);
        return answers.Shown();
    }

    SensorProjFrm &project;

private:
    QTemporaryDir m_folder;
};

/// Verifies that one exclamation box has come, with a text in the current language.
inline void CompareWarning(const QList<ShownBox> &boxes, const Wordings &text)
{
    QCOMPARE(boxes.size(), 1);
    QCOMPARE(boxes[0].Text, text.InCurrentLanguage());
    QCOMPARE(boxes[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(boxes[0].Icon, QMessageBox::Warning);
    QVERIFY(boxes[0].Buttons == QMessageBox::Ok);
}
