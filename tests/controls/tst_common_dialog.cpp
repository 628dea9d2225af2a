/// @file
/// The common file dialogue: its settings, the path that it hands over, and its cancel.
#include "controls/CommonDialog.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

namespace {

void Touch(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

} // namespace

class CommonDialogTest : public QObject {
    Q_OBJECT

private slots:
    void the_dialogue_is_set_up_as_its_members_say();
    void a_typed_name_gets_no_extension();
    void a_missing_file_can_be_named_for_opening();
    void an_existing_file_is_not_asked_about();
    void steps_to_folders_leave_no_points_in_the_path_data();
    void steps_to_folders_leave_no_points_in_the_path();
    void a_cancel_empties_the_name();
    void a_cancel_is_an_error_on_demand();
    void a_missing_folder_is_left_aside();
    void the_chosen_filter_is_told();
    void settings_stay_from_one_use_to_the_next();
};

void CommonDialogTest::the_dialogue_is_set_up_as_its_members_say()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.DialogTitle = QStringLiteral("打开工程");
    common.Filter = QStringLiteral("Project file(.spj)|*.spj");
    common.InitDir = folder.path();
    common.FileName.clear();
    QString title;
    QString directory;
    QStringList filters;
    QStringList shown;
    WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *widget) {
        auto *dialog = qobject_cast<QFileDialog *>(widget);
        title = dialog->windowTitle();
        directory = dialog->directory().canonicalPath();
        filters = dialog->nameFilters();
        auto *types = dialog->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
        for (int index = 0; index < types->count(); ++index)
            shown.append(types->itemText(index));
        dialog->reject();
    });
    common.ShowOpen();
    QCOMPARE(title, QStringLiteral("打开工程"));
    QCOMPARE(directory, QFileInfo(folder.path()).canonicalFilePath());
    QCOMPARE(filters, QStringList{QStringLiteral("Project file(.spj)(*.spj)")});
    QCOMPARE(shown, QStringList{QStringLiteral("Project file(.spj)")});
}

void CommonDialogTest::a_typed_name_gets_no_extension()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.Filter = QStringLiteral("CSV file(.CSV)|*.CSV|Text file(.txt)(T)|*.txt");
    common.InitDir = folder.path();
    WhenModal answer(QStringLiteral("CommonDialog"),
                     [](QWidget *dialog) { TypeFileName(dialog, QStringLiteral("run1")); });
    common.ShowSave();
    QCOMPARE(common.FileName, folder.filePath(QStringLiteral("run1")));
    QCOMPARE(common.FilterIndex, 1);
}

void CommonDialogTest::a_missing_file_can_be_named_for_opening()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.Filter = QStringLiteral("Project file(.spj)|*.spj");
    common.InitDir = folder.path();
    BoxAnswers noBox;
    WhenModal answer(QStringLiteral("CommonDialog"),
                     [](QWidget *dialog) { TypeFileName(dialog, QStringLiteral("missing.spj")); });
    common.ShowOpen();
    QCOMPARE(common.FileName, folder.filePath(QStringLiteral("missing.spj")));
}

void CommonDialogTest::an_existing_file_is_not_asked_about()
{
    QTemporaryDir folder;
    Touch(folder.filePath(QStringLiteral("old.CSV")));
    CommonDialog common;
    common.Filter = QStringLiteral("CSV file(.CSV)|*.CSV");
    common.InitDir = folder.path();
    BoxAnswers noBox;
    WhenModal answer(QStringLiteral("CommonDialog"),
                     [](QWidget *dialog) { TypeFileName(dialog, QStringLiteral("old.CSV")); });
    common.ShowSave();
    QCOMPARE(common.FileName, folder.filePath(QStringLiteral("old.CSV")));
}

void CommonDialogTest::steps_to_folders_leave_no_points_in_the_path_data()
{
    QTest::addColumn<bool>("save");
    QTest::addColumn<QString>("path"); // below the folder of the dialogue's folder
    const auto row = [](const char *typed, const char *path) {
        QTest::addRow("%s to save", typed) << true << QString::fromLatin1(path);
        QTest::addRow("%s to open", typed) << false << QString::fromLatin1(path);
    };
    row("../new.CSV", "new.CSV");
    row("./new.CSV", "inner/new.CSV");
    row("../inner/../new.CSV", "new.CSV");
    row("..//new.CSV", "new.CSV");
    row("../none/new.CSV", "none/new.CSV");
    row("../a.b/new.CSV", "a.b/new.CSV"); // points of names stay
    row("new..CSV", "inner/new..CSV");
    row(".new", "inner/.new");
}

/// A path that callers cut at its first point would be cut there.
void CommonDialogTest::steps_to_folders_leave_no_points_in_the_path()
{
    QFETCH(bool, save);
    QFETCH(QString, path);
    const QString typed = QString::fromLatin1(QTest::currentDataTag()).section(u' ', 0, 0);
    QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("inner")) && QDir(folder.path()).mkdir(QStringLiteral("a.b")));
    CommonDialog common;
    common.Filter = QStringLiteral("CSV file(.CSV)|*.CSV");
    common.InitDir = folder.filePath(QStringLiteral("inner"));
    const BoxAnswers noBox;
    const WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) { TypeFileName(dialog, typed); });
    if (save)
        common.ShowSave();
    else
        common.ShowOpen();
    QCOMPARE(common.FileName, folder.filePath(path));
}

void CommonDialogTest::a_cancel_empties_the_name()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.InitDir = folder.path();
    common.FileName = folder.filePath(QStringLiteral("before.spj"));
    WhenModal answer(QStringLiteral("CommonDialog"), [](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
    common.ShowSave();
    QCOMPARE(common.FileName, QString());
}

void CommonDialogTest::a_cancel_is_an_error_on_demand()
{
    CommonDialog common;
    common.CancelError = true;
    common.FileName = QStringLiteral("before.spj");
    WhenModal answer(QStringLiteral("CommonDialog"), [](QWidget *dialog) { dialog->close(); });
    QCOMPARE(ErrorOf([&] { common.ShowOpen(); }), 32755);
    QCOMPARE(common.FileName, QString());
}

void CommonDialogTest::a_missing_folder_is_left_aside()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.InitDir = folder.filePath(QStringLiteral("Temp"));
    QString typed = QStringLiteral("unread");
    WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) {
        typed = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text();
        dialog->close();
    });
    common.ShowSave();
    QCOMPARE(typed, QString());
}

void CommonDialogTest::the_chosen_filter_is_told()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.Filter = QStringLiteral("CSV file(.CSV)|*.CSV|Text file(.txt)(T)|*.txt");
    common.InitDir = folder.path();
    {
        WhenModal answer(QStringLiteral("CommonDialog"), [](QWidget *dialog) {
            auto *types = dialog->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"));
            QTest::keyClick(types, Qt::Key_Down);
            TypeFileName(dialog, QStringLiteral("run.txt"));
        });
        common.ShowSave();
    }
    QCOMPARE(common.FilterIndex, 2);
    QString chosen;
    WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) {
        chosen = dialog->findChild<QComboBox *>(QStringLiteral("fileTypeCombo"))->currentText();
        TypeFileName(dialog, QStringLiteral("run.txt"));
    });
    common.ShowSave();
    QCOMPARE(chosen, QStringLiteral("Text file(.txt)(T)"));
    QCOMPARE(common.FilterIndex, 2);
}

void CommonDialogTest::settings_stay_from_one_use_to_the_next()
{
    QTemporaryDir folder;
    CommonDialog common;
    common.DialogTitle = QStringLiteral("Open project");
    common.Filter = QStringLiteral("Project file(.spj)|*.spj");
    common.InitDir = folder.path();
    common.FileName = folder.filePath(QStringLiteral("name.spj"));
    QString offered;
    WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) {
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        offered = edit->text();
        QTest::keyClick(edit, Qt::Key_Return);
    });
    common.ShowSave();
    QCOMPARE(offered, QStringLiteral("name.spj"));
    QCOMPARE(common.FileName, folder.filePath(QStringLiteral("name.spj")));
    QCOMPARE(common.DialogTitle, QStringLiteral("Open project"));
    QCOMPARE(common.InitDir, folder.path());
}

QTEST_MAIN(CommonDialogTest)
#include "tst_common_dialog.moc"
