/// @file
/// The import of a reference table: the path that its file dialogue settles, and a cancel.
#include "curve/ReferenceFileBench.h"

#include <memory>

class ReferenceImportDialogueTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ReferenceFileBench>();
        QVERIFY(m_bench->FolderIsFit());
    }
    void cleanup() { m_bench.reset(); }

    void the_filter_decides_the_layout_and_the_name_data();
    void the_filter_decides_the_layout_and_the_name();
    void a_point_in_a_folder_cuts_the_path();
    void the_built_path_stands_before_the_chosen_file();
    void a_cancelled_dialogue_ends_the_import();

private:
    /// Puts the file that was made by hand into the folder.
    void PutFile(const QString &name, ReferenceDataLayout layout = Csv)
    {
        QVERIFY(PutBytes(m_bench->Path(name), ThreeRowsFile(layout)));
    }

    std::unique_ptr<ReferenceFileBench> m_bench;
};

void ReferenceImportDialogueTest::the_filter_decides_the_layout_and_the_name_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<ReferenceDataLayout>("layout");
    QTest::addColumn<bool>("read");
    const auto row = [](const char *chosen, const char *file, ReferenceDataLayout layout, bool read) {
        QTest::addRow("%s, of %s as %s", chosen, file, layout == Csv ? "CSV" : "text")
            << QString::fromUtf8(file) << layout << read;
    };
    row("data.CSV", "data.CSV", Csv, true);
    row("data.txt", "data.txt", Text, true);
    row("data.txt", "data.CSV", Csv, true);
    row("data.CSV", "data.txt", Text, true);
    row("data.dat", "data.CSV", Csv, true);
    row("data.CSV", "data.CSV", Text, false); // there is no data.txt
    row("data.dat", "data.dat", Csv, false);
    row("data", "data", Csv, true); // a path without any point is used as it stands
    row("data", "data", Text, true);
    row("data", "data.CSV", Csv, false);
    row("data.csv", "data.csv", Csv, true); // the case of a name does not matter
    row("data.Txt", "data.Txt", Text, true);
    row("data.TXT", "DATA.txt", Text, true);
    row("温度.CSV", "温度.csv", Csv, true);
}

void ReferenceImportDialogueTest::the_filter_decides_the_layout_and_the_name()
{
    QFETCH(QString, file);
    QFETCH(ReferenceDataLayout, layout);
    QFETCH(bool, read);
    const QString chosen = QString::fromUtf8(QTest::currentDataTag()).section(u',', 0, 0);
    PutFile(file, layout);
    m_bench->Import(chosen, layout); // a file that is not found ends it silently
    QCOMPARE(UsedRows(ReferenceTable[0]), read ? UsedRows(ThreeRows()) : QStringList());
    QCOMPARE(m_bench->project.UndoLumoBtn->isEnabled(), read);
    QCOMPARE(NamesIn(m_bench->Folder()), QStringList{file});
}

void ReferenceImportDialogueTest::a_point_in_a_folder_cuts_the_path()
{
    QVERIFY(QDir().mkdir(m_bench->Path(QStringLiteral("v1.2"))));
    PutFile(QStringLiteral("v1.2/x.CSV"));
    m_bench->Import(QStringLiteral("v1.2/x.CSV"), Csv); // looks for v1.CSV
    QVERIFY(UsedRows(ReferenceTable[0]).isEmpty());
    PutFile(QStringLiteral("v1.CSV"));
    m_bench->Import(QStringLiteral("v1.2/x.CSV"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
}

void ReferenceImportDialogueTest::the_built_path_stands_before_the_chosen_file()
{
    PutFile(QStringLiteral("data.CSV"));
    QVERIFY(PutBytes(m_bench->Path(QStringLiteral("data.csv")), "1,,,\r\n7,8,True,1\r\n"));
    m_bench->Import(QStringLiteral("data.csv"), Csv);
    QCOMPARE(UsedRows(ReferenceTable[0]), UsedRows(ThreeRows()));
}

/// The name of an earlier import is not used again.
void ReferenceImportDialogueTest::a_cancelled_dialogue_ends_the_import()
{
    PutFile(QStringLiteral("data.CSV"));
    m_bench->Import(QStringLiteral("data.CSV"), Csv);
    m_bench->PutTable({});
    m_bench->project.UndoLumoBtn->setEnabled(false);
    const BoxAnswers none;
    ClickAndAnswer(m_bench->project.ImportLumoBtn, {});
    QVERIFY(UsedRows(ReferenceTable[0]).isEmpty());
    QVERIFY(!m_bench->project.UndoLumoBtn->isEnabled());
}

QTEST_MAIN(ReferenceImportDialogueTest)
#include "tst_reference_import_dialogue.moc"
