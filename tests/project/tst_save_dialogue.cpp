/// @file
/// What Save and Save As ask ahead of writing: the dialogue, the name check, and the question about an old file.
#include "project/ProjectCommandBench.h"

#include <memory>

class TestSaveDialogue : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_bench.reset(); }

    void savingAsksForAFile_data() { AddCommands(); }
    void savingAsksForAFile();
    void savingStartsInItsFolder_data() { AddCommands(); }
    void savingStartsInItsFolder();
    void cancelEndsTheCommand_data() { AddCommands(); }
    void cancelEndsTheCommand();
    void nameOfAProjectIsRefused_data();
    void nameOfAProjectIsRefused();
    void emptyNameMatchesAFreeSlot_data() { AddCommands(); }
    void emptyNameMatchesAFreeSlot();
    void nameIsCheckedForAnOldFileOnly_data() { AddCommands(); }
    void nameIsCheckedForAnOldFileOnly();
    void oldFileIsReplacedOnOk_data() { AddCommands(); }
    void oldFileIsReplacedOnOk();
    void oldFileStaysOnCancel_data() { AddCommands(); }
    void oldFileStaysOnCancel();

private:
    static void AddCommands();

    /// The command of the data row.
    bool As() const { return *static_cast<bool *>(QTest::qData("as", QMetaType::Bool)); }
    Command Run() const { return As() ? m_bench->SaveAs() : m_bench->Save(); }
    QString Title() const;
    QString Question() const { return (As() ? replaceOnSaveAs : replaceOnSave).InCurrentLanguage(); }

    /// Chooses a file, and answers the one box that comes then.
    ShownBox ChooseAndAnswer(const QString &path, QMessageBox::StandardButton button) const;

    QString FileName() const { return m_bench->frame.dlgCommonDialog->FileName; }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestSaveDialogue::AddCommands()
{
    QTest::addColumn<bool>("as");
    QTest::addColumn<int>("language");
    for (const bool as : {false, true}) {
        QTest::addRow("%s, English", as ? "Save As" : "Save") << as << 1;
        QTest::addRow("%s, Chinese", as ? "Save As" : "Save") << as << 0;
    }
}

/// A new project, and the language of the data row.
void TestSaveDialogue::init()
{
    m_bench = std::make_unique<ProjectCommandBench>();
    QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    m_bench->NewProjectByMenu();
    QFETCH(int, language);
    CurrentLanguage = language;
}

QString TestSaveDialogue::Title() const
{
    constexpr Text save{"Save project as...", "保存为..."};
    constexpr Text saveAs{"Save project As...", "另存为..."};
    return (As() ? saveAs : save).InCurrentLanguage();
}

ShownBox TestSaveDialogue::ChooseAndAnswer(const QString &path, QMessageBox::StandardButton button) const
{
    BoxAnswers answers({button});
    AnswerFileDialog(Run(), path);
    return answers.Shown().value(0);
}

/// Whatever the dialogue was used for before.
void TestSaveDialogue::savingAsksForAFile()
{
    CommonDialog &dialog = *m_bench->frame.dlgCommonDialog;
    dialog.FileName = m_bench->Path(QStringLiteral("before.CSV"));
    dialog.Filter = QStringLiteral("CSV file(.CSV)|*.CSV|Text file(.txt)(T)|*.txt");
    dialog.FilterIndex = 2;
    dialog.CancelError = false;
    const ShownFileDialog shown = AnswerFileDialog(Run());
    QCOMPARE(shown.Title, Title());
    QVERIFY(shown.Save);
    QVERIFY(shown.Modal);
    QCOMPARE(shown.Filters, QStringList{QStringLiteral("Project file(.spj)(*.spj)")});
    QCOMPARE(shown.Filter, QStringLiteral("Project file(.spj)"));
    QCOMPARE(shown.Name, QString());
    QVERIFY(dialog.CancelError);
}

/// The program does not make that folder; where it is missing, the dialogue comes up all the same.
void TestSaveDialogue::savingStartsInItsFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    QVERIFY(!program.exists(QStringLiteral("Temp")));
    QVERIFY(!AnswerFileDialog(Run()).Folder.isEmpty());
    QVERIFY(!program.exists(QStringLiteral("Temp")));
    QVERIFY(program.mkdir(QStringLiteral("Temp")));
    const auto gone = qScopeGuard([&program] { program.rmdir(QStringLiteral("Temp")); });
    m_bench->frame.dlgCommonDialog->InitDir = m_bench->folder.path();
    QCOMPARE(AnswerFileDialog(Run()).Folder, program.canonicalPath() + QStringLiteral("/Temp"));
}

/// A name that an earlier dialogue left behind is not taken for this one's.
void TestSaveDialogue::cancelEndsTheCommand()
{
    const QString left = m_bench->Path(QStringLiteral("left.spj"));
    m_bench->frame.dlgCommonDialog->FileName = left;
    const BoxAnswers none;
    AnswerFileDialog(Run());
    QVERIFY(!QFile::exists(left));
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QVERIFY(!ProjectSlots[0].HasFile);
    QCOMPARE(ProjectForm[0]->windowTitle(), QStringLiteral("Project-1"));
    // And the dialogue comes again.
    AnswerFileDialog(Run(), m_bench->Path(QStringLiteral("then.spj")));
    QVERIFY(QFile::exists(m_bench->Path(QStringLiteral("then.spj"))));
}

void TestSaveDialogue::nameOfAProjectIsRefused_data()
{
    QTest::addColumn<bool>("as");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("file");
    for (const bool as : {false, true}) {
        const auto row = [as](const char *whose, const char *file) {
            for (const int language : {1, 0})
                QTest::addRow("%s, %s, %s", as ? "Save As" : "Save", whose, language == 0 ? "Chinese" : "English")
                    << as << language << QString::fromLatin1(file);
        };
        row("own", "Project-1.spj");
        row("another's", "other.spj");
        row("behind another extension", "other.b.txt");
        row("without a point", "other");
        row("of a slot that is not taken", "unused.spj");
    }
}

void TestSaveDialogue::nameOfAProjectIsRefused()
{
    QFETCH(QString, file);
    m_bench->OpenNamed(QStringLiteral("other"));
    m_bench->Activate(0);
    ProjectSlots[9].ProjectName = QStringLiteral("unused");
    QVERIFY(QDir(m_bench->folder.path()).mkpath(QStringLiteral("sub")));
    const QString path = m_bench->Path(QStringLiteral("sub/") + file);
    QVERIFY(PutBytes(path, "old"));
    const ShownBox box = ChooseAndAnswer(path, Ok);
    QCOMPARE(box.Text, sameProjectOnSave.InCurrentLanguage());
    QCOMPARE(box.Icon, QMessageBox::Warning);
    QCOMPARE(box.Title, QStringLiteral("Ostrakon"));
    QCOMPARE(box.Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(BytesOf(path), QByteArray("old"));
    QCOMPARE(FileName(), QString());
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QVERIFY(!ProjectSlots[0].HasFile);
}

/// Other than for Open, where it never does.
void TestSaveDialogue::emptyNameMatchesAFreeSlot()
{
    m_bench->OpenNamed(QStringLiteral("other")); // the toolkit's dialogue refuses a hidden file that is alone
    m_bench->Activate(0);
    const QString path = m_bench->Path(QStringLiteral(".spj"));
    QVERIFY(PutBytes(path, "old"));
    QCOMPARE(ChooseAndAnswer(path, Ok).Text, sameProjectOnSave.InCurrentLanguage());
    QCOMPARE(BytesOf(path), QByteArray("old"));
}

/// So two projects of one name can come about here too.
void TestSaveDialogue::nameIsCheckedForAnOldFileOnly()
{
    m_bench->OpenNamed(QStringLiteral("other"));
    m_bench->Activate(0);
    QVERIFY(QDir(m_bench->folder.path()).mkpath(QStringLiteral("sub")));
    const QString path = m_bench->Path(QStringLiteral("sub/other.spj"));
    const BoxAnswers none;
    AnswerFileDialog(Run(), path);
    QVERIFY(BytesOf(path).startsWith("Load\r\n"));
    QCOMPARE(ProjectSlots[0].ProjectName, As() ? QStringLiteral("Project-1") : QStringLiteral("other"));
    QCOMPARE(ProjectSlots[1].ProjectName, QStringLiteral("other"));
}

void TestSaveDialogue::oldFileIsReplacedOnOk()
{
    const QString path = m_bench->Path(QStringLiteral("scale.spj"));
    QVERIFY(PutBytes(path, QByteArray("a much longer old file\r\n").repeated(100)));
    const ShownBox box = ChooseAndAnswer(path, Ok);
    QCOMPARE(box.Text, Question());
    QCOMPARE(box.Icon, QMessageBox::Warning);
    QCOMPARE(box.Title, QStringLiteral("Ostrakon"));
    QCOMPARE(box.Buttons, QMessageBox::Ok | QMessageBox::Cancel);
    QVERIFY(BytesOf(path).startsWith("Load\r\n"));
    QCOMPARE(BytesOf(path).count("\r\n"), 50);
    QCOMPARE(FileName(), path);
}

void TestSaveDialogue::oldFileStaysOnCancel()
{
    const QString path = m_bench->Path(QStringLiteral("scale.spj"));
    QVERIFY(PutBytes(path, "old"));
    QCOMPARE(ChooseAndAnswer(path, Cancel).Text, Question());
    QCOMPARE(BytesOf(path), QByteArray("old"));
    QCOMPARE(FileName(), QString());
    QCOMPARE(ProjectSlots[0].FilePath, QString());
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QVERIFY(!ProjectSlots[0].HasFile);
    // And the dialogue comes again.
    QCOMPARE(AnswerFileDialog(Run()).Title, Title());
}

QTEST_MAIN(TestSaveDialogue)
#include "tst_save_dialogue.moc"
