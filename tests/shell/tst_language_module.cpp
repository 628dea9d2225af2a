/// @file
/// When the captions are set, in which order, and what is left alone.
#include "shell/LanguageBench.h"

#include <QTest>

#include <functional>

namespace {

constexpr int FreeSlot = 4;

/// What has been given a caption, in the order in which it was seen to change. What tells nobody of its change is asked
/// each time another one changes.
class ChangeLog : public QObject {
public:
    explicit ChangeLog(LanguageBench &windows) : m_windows(windows), m_helpFile(HelpFile)
    {
        MainFrm &frame = windows.bare.frame;
        const auto watchItem = [this](QAction *item, const char *name) {
            connect(item, &QAction::changed, this, [this, name] { Note(name); });
        };
        watchItem(frame.ToolBarButton(QStringLiteral("New")), "first tool tip");
        watchItem(frame.ToolBarButton(QStringLiteral("Help")), "last tool tip");
        watchItem(frame.mnuFile->menuAction(), "first menu");
        watchItem(frame.mnuHelpLang_English, "last menu item");
        watchItem(frame.mnuPopEditDataAdd, "grid menu");
        connect(ProjectSheet, &QWidget::windowTitleChanged, this, [this] { Note("panel"); });
        connect(ProjectTree, &QTreeWidget::itemChanged, this,
                [this](const QTreeWidgetItem *node) { Note(node == RootNode ? "root" : "page"); });
        watchItem(ProjectSheet->findChild<QAction *>(QStringLiteral("mnuNewProject")), "first tree menu");
        watchItem(ProjectSheet->findChild<QAction *>(QStringLiteral("mnuPop2NewProject")), "second tree menu");
        LanguageBench::Project(0).RecordLumoBtn->installEventFilter(this);
        LanguageBench::Project(1).RecordLumoBtn->installEventFilter(this);
    }

    QStringList Names;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::ToolTipChange)
            Note("image button");
        return QObject::eventFilter(watched, event);
    }

private:
    void Note(const char *name)
    {
        if (HelpFile != m_helpFile)
            Append("help file");
        if (m_windows.device.BtOk->text() != QStringLiteral("OK"))
            Append("device dialogue");
        Append(name);
    }

    /// Once each time it comes, and what is only asked for once in all.
    void Append(const char *name)
    {
        const QString text = QString::fromLatin1(name);
        const bool asked = text == QStringLiteral("help file") || text == QStringLiteral("device dialogue");
        if (asked ? !Names.contains(text) : Names.isEmpty() || Names.last() != text)
            Names.append(text);
    }

    LanguageBench &m_windows;
    QString m_helpFile;
};

} // namespace

class LanguageModuleTest : public QObject {
    Q_OBJECT

private slots:
    void captions_are_set_in_order();
    void the_help_file_lies_beside_the_program();
    void captions_replace_those_of_the_design();
    void a_hidden_panel_keeps_its_texts_until_it_is_shown_again();
    void the_rest_switches_while_the_panel_is_hidden();
    void a_language_that_is_neither_is_english_data();
    void a_language_that_is_neither_is_english();
    void a_free_slot_is_left_alone();
    void a_dialogue_keeps_its_language_until_it_opens_anew_data();
    void a_dialogue_keeps_its_language_until_it_opens_anew();
    void the_device_choice_switches_at_once();
    void without_panel_and_dialogue_nothing_fails();
};

void LanguageModuleTest::captions_are_set_in_order()
{
    LanguageBench windows;
    windows.Apply(LanguageEnglish);
    const ChangeLog log(windows);
    LoadLanguage(LanguageChinese);
    const QStringList steps{"first tool tip",  "last tool tip",    "first menu",     "last menu item",
                            "help file",       "grid menu",        "panel",          "root",
                            "first tree menu", "second tree menu", "device dialogue"};
    const QStringList project{"page", "image button"};
    QCOMPARE(log.Names, steps + project + project);
}

void LanguageModuleTest::the_help_file_lies_beside_the_program()
{
    LanguageBench windows;
    windows.Apply(LanguageEnglish);
    QCOMPARE(HelpFile, QCoreApplication::applicationDirPath() + QStringLiteral("/Ostrakon Help_EN.chm"));
    windows.Apply(LanguageChinese);
    QCOMPARE(HelpFile, QCoreApplication::applicationDirPath() + QStringLiteral("/Ostrakon Help.chm"));
}

void LanguageModuleTest::captions_replace_those_of_the_design()
{
    LanguageBench windows;
    const MainFrm &frame = windows.bare.frame;
    QCOMPARE(frame.mnuFileNew->text(), QStringLiteral("&New Project"));
    QCOMPARE(frame.mnuToolsEnableSensor->text(), QStringLiteral("&Load Project to Instrument"));
    QCOMPARE(frame.mnuPopEditDataChange->text(), QStringLiteral("Change"));
    QCOMPARE(windows.sendProject.LabLenTitle->text(), QStringLiteral("Data length"));
    QCOMPARE(windows.wave2Colours.DotFrame->title(), QStringLiteral("Dot Color"));
    windows.Apply(LanguageEnglish);
    QCOMPARE(frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
    QCOMPARE(frame.mnuToolsEnableSensor->text(), QStringLiteral("&Send Project to Instrument..."));
    QCOMPARE(frame.mnuPopEditDataChange->text(), QStringLiteral("Modify..."));
    QCOMPARE(windows.sendProject.LabLenTitle->text(), QStringLiteral("Data Length"));
    QCOMPARE(windows.wave2Colours.DotFrame->title(), QStringLiteral("Measure Dot Color"));
}

void LanguageModuleTest::a_hidden_panel_keeps_its_texts_until_it_is_shown_again()
{
    LanguageBench windows;
    windows.Apply(LanguageEnglish);
    const auto *treeItem = ProjectSheet->findChild<QAction *>(QStringLiteral("mnuCloseProject"));
    QVERIFY(treeItem != nullptr);
    HideProjectPanel();
    QVERIFY(!ProjectPanelVisible);
    windows.Apply(LanguageChinese);
    QCOMPARE(ProjectRootText, QStringLiteral("Project Group"));
    QCOMPARE(ProjectSheet->windowTitle(), QStringLiteral("Project"));
    QCOMPARE(treeItem->text(), QStringLiteral("&Close Project"));
    ProjectPanelVisible = true;
    ShowProjectPanel();
    QCOMPARE(ProjectSheet->NodeAt(1)->text(0), QStringLiteral("Project Group"));
    LoadLanguage(CurrentLanguage);
    QCOMPARE(ProjectRootText, QStringLiteral("工程组"));
    QCOMPARE(ProjectSheet->NodeAt(1)->text(0), QStringLiteral("工程组"));
    QCOMPARE(ProjectSheet->windowTitle(), QStringLiteral("工程"));
    QCOMPARE(treeItem->text(), QStringLiteral("关闭工程"));
}

void LanguageModuleTest::the_rest_switches_while_the_panel_is_hidden()
{
    LanguageBench windows;
    windows.Apply(LanguageEnglish);
    HideProjectPanel();
    windows.Apply(LanguageChinese);
    QCOMPARE(windows.bare.frame.mnuFile->title(), QStringLiteral("文件"));
    QCOMPARE(windows.bare.frame.mnuPopEditDataAdd->text(), QStringLiteral("添加..."));
    QCOMPARE(windows.device.BtOk->text(), QStringLiteral("确定"));
    for (int number = 0; number < 2; ++number) {
        QCOMPARE(LanguageBench::Project(number).TabStrip->Caption(1), QStringLiteral("传感器参考曲线"));
        QCOMPARE(LanguageBench::Project(number).RecordLumoBtn->Caption(), QStringLiteral("开始测量"));
    }
}

void LanguageModuleTest::a_language_that_is_neither_is_english_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("2") << 2;
    QTest::newRow("-1") << -1;
}

void LanguageModuleTest::a_language_that_is_neither_is_english()
{
    QFETCH(const int, language);
    LanguageBench windows;
    windows.Apply(LanguageChinese);
    windows.Apply(language);
    QCOMPARE(windows.bare.frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
    QCOMPARE(windows.sensorProperty.windowTitle(), QStringLiteral("Sensor Property"));
    QCOMPARE(windows.sendProject.windowTitle(), QStringLiteral("Send Project"));
    QVERIFY(HelpFile.endsWith(QStringLiteral("/Ostrakon Help_EN.chm")));
    // A site that tests for English alone speaks Chinese then.
    QCOMPARE(Wording(QStringLiteral("English"), QStringLiteral("Chinese")), QStringLiteral("English"));
    QCOMPARE(WordingUnlessEnglish(QStringLiteral("English"), QStringLiteral("Chinese")), QStringLiteral("Chinese"));
}

void LanguageModuleTest::a_free_slot_is_left_alone()
{
    LanguageBench windows;
    SensorProjFrm &other = windows.bare.AddProject(FreeSlot);
    other.TabStrip->SetCaption(1, QStringLiteral("before"));
    ProjectOccupied[FreeSlot] = false;
    windows.Apply(LanguageChinese);
    QCOMPARE(other.TabStrip->Caption(1), QStringLiteral("before"));
    QCOMPARE(other.RecordLumoBtn->Caption(), QString());
    QCOMPARE(LanguageBench::Project(1).TabStrip->Caption(1), QStringLiteral("传感器参考曲线"));
}

void LanguageModuleTest::a_dialogue_keeps_its_language_until_it_opens_anew_data()
{
    QTest::addColumn<std::function<QString(const LanguageBench &)>>("caption");
    QTest::addColumn<std::function<void(LanguageBench &)>>("openAnew");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    using Read = std::function<QString(const LanguageBench &)>;
    using Open = std::function<void(LanguageBench &)>;
    QTest::newRow("reference points") << Read([](const LanguageBench &windows) {
        return windows.editData.SegmentLab->text();
    }) << Open([](LanguageBench &windows) { LoadEditDataLanguage(windows.editData); })
                                      << "Segment dot? "
                                      << "分段点? ";
    QTest::newRow("sensor") << Read([](const LanguageBench &windows) {
        return windows.sensorProperty.ComdEnter->text();
    }) << Open([](LanguageBench &windows) { LoadSensorPropertyLanguage(windows.sensorProperty); })
                            << "Done"
                            << "确定";
    QTest::newRow("colours of the reference picture")
        << Read([](const LanguageBench &windows) { return windows.refColours.LeastDotFrame->title(); })
        << Open([](LanguageBench &windows) { LoadRefColourLanguage(windows.refColours); }) << "Least Dot Color"
        << "二乘法点颜色";
    QTest::newRow("colours of the values")
        << Read([](const LanguageBench &windows) { return windows.wave1Colours.DotFrame->title(); })
        << Open([](LanguageBench &windows) { LoadWave1ColourLanguage(windows.wave1Colours); }) << "Dot Color"
        << "点颜色";
    QTest::newRow("colours of the readings")
        << Read([](const LanguageBench &windows) { return windows.wave2Colours.DotFrame->title(); })
        << Open([](LanguageBench &windows) { LoadWave2ColourLanguage(windows.wave2Colours); }) << "Measure Dot Color"
        << "点颜色";
    QTest::newRow("send") << Read([](const LanguageBench &windows) { return windows.sendProject.ComSend->text(); })
                          << Open([](LanguageBench &windows) { LoadSendProjectLanguage(windows.sendProject); })
                          << "Send"
                          << "发送";
}

void LanguageModuleTest::a_dialogue_keeps_its_language_until_it_opens_anew()
{
    QFETCH(const std::function<QString(const LanguageBench &)>, caption);
    QFETCH(const std::function<void(LanguageBench &)>, openAnew);
    LanguageBench windows;
    windows.Apply(LanguageEnglish);
    CurrentLanguage = LanguageChinese;
    LoadLanguage(LanguageChinese);
    QTEST(caption(windows), "english");
    openAnew(windows);
    QTEST(caption(windows), "chinese");
    CurrentLanguage = LanguageEnglish;
    LoadLanguage(LanguageEnglish);
    QTEST(caption(windows), "chinese");
    openAnew(windows);
    QTEST(caption(windows), "english");
}

void LanguageModuleTest::the_device_choice_switches_at_once()
{
    LanguageBench windows;
    windows.Apply(LanguageEnglish);
    LoadLanguage(LanguageChinese);
    QCOMPARE(windows.device.LabelInfo->text(), QStringLiteral("请选择设备。"));
}

void LanguageModuleTest::without_panel_and_dialogue_nothing_fails()
{
    BareFrame bare;
    ResetProjectTreeModule();
    DeviceChoiceForm = nullptr;
    const SensorProjFrm &form = bare.AddProject(0);
    LoadLanguage(LanguageChinese);
    QCOMPARE(form.TabStrip->Caption(3), QStringLiteral("传感器测量曲线"));
    QCOMPARE(ProjectRootText, QString());
    LoadLanguage(LanguageEnglish);
    QCOMPARE(form.TabStrip->Caption(3), QStringLiteral("Measure Curve"));
}

QTEST_MAIN(LanguageModuleTest)
#include "tst_language_module.moc"
