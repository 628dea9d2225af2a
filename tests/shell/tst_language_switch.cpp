/// @file
/// The languages in the loaded frame: the two commands, what is stored, and what New and the toolkit bring along.
#include "controls/Boxes.h"
#include "controls/ToolkitTexts.h"
#include "shell/FrameBench.h"
#include "shell/HelpModule.h"

#include <QDialogButtonBox>

namespace {

QString StoredLanguage()
{
    return Store().value(QStringLiteral("Language/Currentlang")).toString();
}

/// The texts of a dialogue's standard buttons, in no order.
QStringList ButtonTexts(const QWidget *dialog)
{
    QStringList texts;
    for (const QAbstractButton *button : dialog->findChild<QDialogButtonBox *>()->buttons())
        texts.append(button->text());
    texts.sort();
    return texts;
}

QStringList QuestionButtons()
{
    QStringList texts;
    const WhenModal answer(QStringLiteral("MessageBox"), [&](QWidget *box) {
        texts = ButtonTexts(box);
        qobject_cast<QDialog *>(box)->reject();
    });
    AskYesNo(QStringLiteral("?"));
    return texts;
}

QStringList SaveButtons(const MainFrm &frame)
{
    QStringList texts;
    const WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) {
        texts = ButtonTexts(dialog);
        qobject_cast<QDialog *>(dialog)->reject();
    });
    frame.dlgCommonDialog->CancelError = false;
    frame.dlgCommonDialog->ShowSave();
    return texts;
}

} // namespace

class LanguageSwitchTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }
    void cleanup() { SetToolkitTexts(false); }

    void the_frame_starts_in_the_stored_language_data();
    void the_frame_starts_in_the_stored_language();
    void only_the_two_commands_store();
    void a_new_project_has_the_captions_of_the_tables_data();
    void a_new_project_has_the_captions_of_the_tables();
    void standard_buttons_follow_the_commands();
    void the_system_menu_of_a_project_window_follows();
};

void LanguageSwitchTest::the_frame_starts_in_the_stored_language_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("root");
    QTest::addColumn<QString>("treeItem");
    QTest::addColumn<QString>("helpFile");
    QTest::newRow("Chinese") << "0"
                             << "文件"
                             << "工程组"
                             << "新建工程..."
                             << "/Ostrakon Help.chm";
    QTest::newRow("English") << "1"
                             << "&File"
                             << "Project Group"
                             << "&New Project..."
                             << "/Ostrakon Help_EN.chm";
    QTest::newRow("neither") << "2"
                             << "&File"
                             << "Project Group"
                             << "&New Project..."
                             << "/Ostrakon Help_EN.chm";
}

void LanguageSwitchTest::the_frame_starts_in_the_stored_language()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, helpFile);
    {
        QSettings store = Store();
        store.setValue(QStringLiteral("Language/Currentlang"), stored);
    }
    const LoadedFrame loaded;
    QTEST(loaded.frame.mnuFile->title(), "caption");
    QTEST(ProjectSheet->NodeAt(1)->text(0), "root");
    QTEST(ProjectSheet->findChild<QAction *>(QStringLiteral("mnuPop2NewProject"))->text(), "treeItem");
    QCOMPARE(HelpFile, QCoreApplication::applicationDirPath() + helpFile);
    QCOMPARE(StoredLanguage(), stored);
}

void LanguageSwitchTest::only_the_two_commands_store()
{
    LoadedFrame loaded;
    loaded.NewProjectByMenu();
    loaded.frame.mnuViewProjectWindow->trigger();
    loaded.frame.mnuViewProjectWindow->trigger();
    QCOMPARE(Store().allKeys(), QStringList());
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(Store().allKeys(), QStringList{QStringLiteral("Language/Currentlang")});
    QCOMPARE(StoredLanguage(), QStringLiteral("0"));
    loaded.frame.mnuHelpLang_English->trigger();
    QCOMPARE(StoredLanguage(), QStringLiteral("1"));
}

void LanguageSwitchTest::a_new_project_has_the_captions_of_the_tables_data()
{
    QTest::addColumn<bool>("chinese");
    QTest::addColumn<QStringList>("zoom");
    QTest::addColumn<QStringList>("columns");
    QTest::newRow("English") << false
                             << QStringList{"Horizontal Zoomin", "Vertical Zoomin", "Horizontal Zoomout",
                                            "Vertical Zoomout"}
                             << QStringList{"NO.", "Unit: %1", "Unit: %2", "Arithmetic", "Segment dot? "};
    QTest::newRow("Chinese") << true << QStringList{"水平放大", "垂直放大", "水平缩小", "垂直缩小"}
                             << QStringList{"数据序号", "单位： %1", "单位： %2", "算法", "是否分段点? "};
}

void LanguageSwitchTest::a_new_project_has_the_captions_of_the_tables()
{
    QFETCH(const bool, chinese);
    QFETCH(const QStringList, columns);
    LoadedFrame loaded;
    if (chinese)
        loaded.frame.mnuHelpLang_Chinese->trigger();
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    // New itself calls two of them "Zoomin" and two "Zoomout".
    const QStringList zoom{form.ZoominHLumoBtn->Caption(), form.ZoomInVLumoBtn->Caption(),
                           form.ZoomOutHLumoBtn->Caption(), form.ZoomOutVLumoBtn->Caption()};
    QTEST(zoom, "zoom");
    QCOMPARE(SensorProjects[0].InputUnit, QStringLiteral("V"));
    const QString titles = columns.join(u'|').arg(SensorProjects[0].InputUnit, SensorProjects[0].OutputUnit);
    QStringList shown;
    for (int column = 1; column <= 5; ++column)
        shown << form.EditDataView->ColumnTitle(column);
    QCOMPARE(shown.join(u'|'), titles);
}

void LanguageSwitchTest::standard_buttons_follow_the_commands()
{
    const LoadedFrame loaded;
    QCOMPARE(QuestionButtons(), (QStringList{"&No", "&Yes"}));
    QCOMPARE(SaveButtons(loaded.frame), (QStringList{"&Save", "Cancel"}));
    loaded.frame.mnuHelpLang_Chinese->trigger();
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(QuestionButtons(), (QStringList{"否(&N)", "是(&Y)"}));
    QCOMPARE(SaveButtons(loaded.frame), (QStringList{"保存(&S)", "取消"}));
    loaded.frame.mnuHelpLang_English->trigger();
    QCOMPARE(QuestionButtons(), (QStringList{"&No", "&Yes"}));
    QCOMPARE(SaveButtons(loaded.frame), (QStringList{"&Save", "Cancel"}));
}

void LanguageSwitchTest::the_system_menu_of_a_project_window_follows()
{
    LoadedFrame loaded;
    loaded.frame.mnuHelpLang_Chinese->trigger();
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    const QAction *close = form.systemMenu()->actions().constLast();
    QCOMPARE(close->text(), QStringLiteral("关闭(&C)"));
    loaded.frame.mnuHelpLang_English->trigger();
    QTRY_COMPARE(close->text(), QStringLiteral("&Close"));
}

QTEST_MAIN(LanguageSwitchTest)
#include "tst_language_switch.moc"
