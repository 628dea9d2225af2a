/// @file
/// The image buttons of a project window: what they say, and that each is reached and pressed by keyboard.
#include "display/ProjectViewBench.h"
#include "shell/LanguageModule.h"

#include <QSignalSpy>

namespace {

/// A button, the tab of its page, and its caption in the two languages; those without one have none in any.
struct ImageButton {
    const char *Name;
    int Tab;
    const char *English;
    const char *Chinese;
};

constexpr ImageButton imageButtons[] = {
    {"ColorRfLumoBtn", 1, "", ""},
    {"ExportPicLumoBtn", 1, "", ""},
    {"ImportLumoBtn", 2, "Import", "导入"},
    {"ExportLumoBtn", 2, "Export", "导出"},
    {"UndoLumoBtn", 2, "Undo", "撤销"},
    {"RedoLumoBtn", 2, "Redo", "恢复"},
    {"ColorLumoBtn", 3, "Color Setting", "颜色设置"},
    {"ZoominHLumoBtn", 3, "Horizontal Zoomin", "水平放大"},
    {"ZoomOutHLumoBtn", 3, "Horizontal Zoomout", "水平缩小"},
    {"ZoomInVLumoBtn", 3, "Vertical Zoomin", "垂直放大"},
    {"ZoomOutVLumoBtn", 3, "Vertical Zoomout", "垂直缩小"},
    {"RecordLumoBtn", 3, "Start", "开始测量"},
    {"EndLumoBtn", 3, "End", "结束测量"},
    {"ReplayLumoBtn", 3, "Replay", "回放"},
    {"PauseLumoBtn", 3, "Pause", "暂停"},
    {"StopLumoBtn", 3, "Stop", "结束"},
    {"LowLumoBtn", 3, "/ 2", "/ 2"},
    {"FastLumoBtn", 3, "× 2", "× 2"},
    {"exportCom", 3, "", ""},
};

constexpr int ControlsOfAPage = 60; ///< more than there are

LumoButton *ButtonOf(const QString &name)
{
    return Form().findChild<LumoButton *>(name);
}

} // namespace

class ProjectViewButtonsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void every_button_of_the_window_is_tried_here();
    void the_caption_is_tool_tip_and_accessible_name_data() { AddButtons(); }
    void the_caption_is_tool_tip_and_accessible_name();
    void each_button_has_a_picture_of_its_size_data() { AddButtons(); }
    void each_button_has_a_picture_of_its_size();
    void each_button_is_reached_by_tab_and_pressed_by_keys_data() { AddButtons(); }
    void each_button_is_reached_by_tab_and_pressed_by_keys();
    void a_disabled_button_is_passed_over_data() { AddButtons(); }
    void a_disabled_button_is_passed_over();

private:
    static void AddButtons();
    /// Shows a button's page, and goes by Tab until the button has the keyboard.
    bool ReachedByTab(int tab, const LumoButton &button);

    std::optional<ProjectViewBench> m_bench;
};

void ProjectViewButtonsTest::AddButtons()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    for (const ImageButton &button : imageButtons)
        QTest::newRow(button.Name) << button.Tab << QString::fromUtf8(button.English)
                                   << QString::fromUtf8(button.Chinese);
}

bool ProjectViewButtonsTest::ReachedByTab(int tab, const LumoButton &button)
{
    Select(tab);
    ResizeProjectView(Form());
    Form().TabStrip->setFocus();
    for (int step = 0; step < ControlsOfAPage && !button.hasFocus(); ++step) {
        if (QApplication::focusWidget() == nullptr)
            return false;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    return button.hasFocus();
}

void ProjectViewButtonsTest::every_button_of_the_window_is_tried_here()
{
    QCOMPARE(Form().findChildren<LumoButton *>().size(), qsizetype{std::size(imageButtons)});
}

void ProjectViewButtonsTest::the_caption_is_tool_tip_and_accessible_name()
{
    QFETCH(const QString, english);
    QFETCH(const QString, chinese);
    const LumoButton *button = ButtonOf(QString::fromLatin1(QTest::currentDataTag()));
    for (const auto &[language, caption] : {std::pair(LanguageChinese, chinese), std::pair(LanguageEnglish, english)}) {
        LoadLanguage(language);
        QCOMPARE(button->Caption(), caption);
        QCOMPARE(button->toolTip(), caption);
        QCOMPARE(button->accessibleName(), caption);
    }
}

void ProjectViewButtonsTest::each_button_has_a_picture_of_its_size()
{
    const LumoButton *button = ButtonOf(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(!button->icon().pixmap(button->iconSize()).isNull());
    QVERIFY(button->rect().contains(QRect(QPoint(0, 0), button->iconSize())));
}

void ProjectViewButtonsTest::each_button_is_reached_by_tab_and_pressed_by_keys()
{
    QFETCH(const int, tab);
    LumoButton *button = ButtonOf(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(QTest::qWaitForWindowActive(MainForm));
    QVERIFY(ReachedByTab(tab, *button));
    const QSignalSpy clicks(button, &LumoButton::MouseClick);
    int clicked = 0;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(button, key);
        QCOMPARE(clicks.count(), ++clicked);
    }
}

void ProjectViewButtonsTest::a_disabled_button_is_passed_over()
{
    QFETCH(const int, tab);
    LumoButton *button = ButtonOf(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(QTest::qWaitForWindowActive(MainForm));
    button->setEnabled(false);
    QVERIFY(!ReachedByTab(tab, *button));
    const QSignalSpy clicks(button, &LumoButton::MouseClick);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return})
        QTest::keyClick(button, key);
    QCOMPARE(clicks.count(), 0);
}

QTEST_MAIN(ProjectViewButtonsTest)
#include "tst_project_view_buttons.moc"
