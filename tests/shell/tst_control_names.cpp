/// @file
/// Every window carries its controls under their given names and of the right kind; menus and toolbar stand as
/// designed.
#include "curve/EditDataFrm.h"
#include "display/SensorProjFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "project/SensorPropertyFrm.h"
#include "shell/MainFrm.h"
#include "shell/ProjectSheetFrm.h"
#include "support/BareFrame.h"

#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <map>
#include <memory>

namespace {

/// Makes a window by its class name.
std::unique_ptr<QWidget> WindowOf(const QString &name)
{
    static const std::map<QString, std::function<std::unique_ptr<QWidget>()>> makers{
        {QStringLiteral("MainFrm"), [] { return std::make_unique<MainFrm>(); }},
        {QStringLiteral("ProjectSheetFrm"), [] { return std::make_unique<ProjectSheetFrm>(); }},
        {QStringLiteral("SensorProjFrm"), [] { return std::make_unique<SensorProjFrm>(); }},
        {QStringLiteral("EditDataFrm"), [] { return std::make_unique<EditDataFrm>(); }},
        {QStringLiteral("SensorPropertyFrm"), [] { return std::make_unique<SensorPropertyFrm>(); }},
        {QStringLiteral("DeviceChoiceFrm"), [] { return std::make_unique<DeviceChoiceFrm>(); }},
    };
    return makers.at(name)();
}

/// Window, kind, and the names of that kind in it.
struct Controls {
    const char *Window;
    const char *Kind;
    const char *Names;
};

constexpr Controls controls[] = {
    {"MainFrm", "QToolBar", "tbToolBar"},
    {"MainFrm", "StatusPanels", "sbrStatus"},
    {"MainFrm", "TabDock", "TabDock"},
    {"MainFrm", "QLabel", "picLED_ON picLED_OFF"},
    {"MainFrm", "CommonDialog", "dlgCommonDialog"},
    {"MainFrm", "SerialControl", "MSComm1"},
    {"MainFrm", "QTimer", "CheckLinkTimer CommTimer TimeOutTimer TimerInit"},
    {"ProjectSheetFrm", "QTreeWidget", "ProjectSheetTree"},
    {"SensorPropertyFrm", "QLabel",
     "LabName LabType LabInUnit LabelSubType Labela LabelParameter LabOutUnit LabelbThermocouple"},
    {"SensorPropertyFrm", "TextBox", "Txtname TextR0 TxtUnit"},
    {"SensorPropertyFrm", "ListCombo", "Combtype CombInunit CombSubType Comboa CombOutunit"},
    {"SensorPropertyFrm", "QRadioButton", "OptDefault OptUser OptYes OptNo"},
    {"SensorPropertyFrm", "QFrame", "Frame2"},
    {"SensorPropertyFrm", "QPushButton", "ComdEnter ComdCancel"},
    {"EditDataFrm", "QLabel", "NOLal VolLab VUnitLab TemperatureLab TUnitLab SegmentLab MathLab"},
    {"EditDataFrm", "TextBox", "NOTxt VolTxt TemperateTxt"},
    {"EditDataFrm", "FlatScrollBar", "HScroll1"},
    {"EditDataFrm", "UpDown", "UpDown1"},
    {"EditDataFrm", "QRadioButton", "SegmentOpt(0) SegmentOpt(1) MathOpt(0) MathOpt(1)"},
    {"EditDataFrm", "QGroupBox", "Frame1"},
    {"EditDataFrm", "QPushButton", "OkCmd CancelCmd"},
    {"DeviceChoiceFrm", "QLabel", "LabelInfo"},
    {"DeviceChoiceFrm", "ListCombo", "CbDeviceList"},
    {"DeviceChoiceFrm", "QPushButton", "BtOk"},
    {"SensorProjFrm", "TabStrip", "TabStrip"},
    {"SensorProjFrm", "QWidget", "SpecifyCurvePic EditDataPic MeasWavePic Recordpic PicSeprator"},
    {"SensorProjFrm", "QGroupBox",
     "DispRefFrame InfoFrame PictureFrame DispSetFrame Frame1 WavesetFrame ZoomFrame MeasureFrame SampleRateFrame "
     "ReplayFrame DataFrame"},
    {"SensorProjFrm", "QCheckBox", "ChkGridRef ChkGrid ChkLink"},
    {"SensorProjFrm", "QRadioButton", "OptWave1 OptWave2"},
    {"SensorProjFrm", "QLabel", "LabColor2 LabXUnit LabYUnit LabColor Labperiodunit LabValX LabValY LabMeasX LabMeasY"},
    {"SensorProjFrm", "PictureBox",
     "PicRefBack PicRef PicTime_Value_Background PicTime_Value PicTime_Meas_Background PicTime_Meas"},
    {"SensorProjFrm", "LumoButton",
     "ColorRfLumoBtn ExportPicLumoBtn ImportLumoBtn ExportLumoBtn UndoLumoBtn RedoLumoBtn ColorLumoBtn ZoominHLumoBtn "
     "ZoomOutHLumoBtn ZoomInVLumoBtn ZoomOutVLumoBtn RecordLumoBtn EndLumoBtn ReplayLumoBtn PauseLumoBtn StopLumoBtn "
     "LowLumoBtn FastLumoBtn exportCom"},
    {"SensorProjFrm", "ReportList", "EditDataView"},
    {"SensorProjFrm", "TextBox", "TxtSample"},
    {"SensorProjFrm", "FlatScrollBar", "FlatScrollBar1 FlatScrollBar2 HScroll1"},
    {"SensorProjFrm", "QTimer", "Timer1 Timer2"},
    {"SensorProjFrm", "CommonDialog", "CommonDialog1"},
};

/// An item of the menu table: caption nullptr for a separator.
struct Item {
    const char *Name;
    const char *Caption;
    const char *Key;
    bool Shown;
};

constexpr Item items[] = {
    {"mnuFileNew", "&New Project", "Ctrl+N", true},
    {"mnuFileOpen", "&Open Project...", "Ctrl+O", true},
    {"mnuFileBar0", nullptr, "", true},
    {"mnuFileSave", "&Save Project", "Ctrl+S", true},
    {"mnuFileSaveAs", "&Save Project As...", "", true},
    {"mnuFileSaveAllProject", "Sav&e All", "", true},
    {"mnuFileCloseAllProjects", "&Close All ", "", true},
    {"mnuFileBar1", nullptr, "", false},
    {"mnuFilePrint", "&Print", "Ctrl+P", false},
    {"mnuFilePrintPreview", "Print Pre&view", "", false},
    {"mnuFilePageSetup", "Print Set&up...", "", false},
    {"mnuFileBar3", nullptr, "", true},
    {"mnuFileExit", "E&xit", "", true},
    {"mnuEditUndo", "&Undo", "Ctrl+Z", true},
    {"mnuEditRedo", "&Redo", "Ctrl+Y", true},
    {"mnuEditCut", "Cu&t", "Ctrl+X", true},
    {"mnuEditCopy", "&Copy", "Ctrl+C", true},
    {"mnuEditPaste", "&Paste", "Ctrl+V", true},
    {"mnuEditDelete", "&Delete", "", true},
    {"mnuEditBar0", nullptr, "", true},
    {"mnuEditBar1", nullptr, "", true},
    {"mnuViewToolbar", "&Toolbar", "", true},
    {"mnuViewStatusBar", "Status &Bar", "", true},
    {"mnuViewBar0", nullptr, "", true},
    {"mnuViewProjectWindow", "&Project Window", "", true},
    {"mnuViewBar1", nullptr, "", false},
    {"mnuViewBar2", nullptr, "", false},
    {"mnuViewGrid", "&Grid", "", false},
    {"mnuViewZoomIn", "Zoom &In", "", false},
    {"mnuViewZoomOut", "Zoom &Out", "", false},
    {"mnuViewZoomNot", "Zoom &Not", "", false},
    {"mnuSettingsSensorOption", "Sensor &Option...", "", true},
    {"mnuSettingsArithmeticSetting", "Arithmetic &Setting...", "", false},
    {"mnuSettingsUserDefine", "&User Define...", "", false},
    {"mnuSettingsIO", "&I/O Settings...", "", false},
    {"mnuSettingsCommand", "&Command Collection...", "", false},
    {"mnuLibrary", "&Library", "", false},
    {"mnuToolsConnect", "&Connect to Multimeter", "", true},
    {"mnuToolsDisconnect", "&Disconnect", "", true},
    {"mnuToolsBar0", nullptr, "", true},
    {"mnuToolsSensorOption", "Sensor &Option...", "", true},
    {"mnuToolsRun", "&Run", "", false},
    {"mnuToolsStop", "&Stop", "", false},
    {"mnuToolsDisableSensor", "&Disable Sensor", "", false},
    {"mnuToolsBar1", nullptr, "", true},
    {"mnuToolsEnableSensor", "&Load Project to Instrument", "", true},
    {"mnuWindowCascade", "&Cascade", "", true},
    {"mnuWindowTileHorizontal", "Tile &Horizontal", "", true},
    {"mnuWindowTileVertical", "Tile &Vertical", "", true},
    {"mnuWindowArrangeIcons", "&Arrange Icons", "", false},
    {"mnuHelpContents", "Contents...", "", true},
    {"mnuHelpBar0", nullptr, "", true},
    {"mnuHelpAbout", "&About... ", "", true},
    {"mnuHelpBar1", nullptr, "", false},
    {"mnuHelpLang_Chinese", "&Chinese", "", true},
    {"mnuHelpLang_English", "&English", "", true},
    {"mnuPopEditDataAdd", "Add", "", true},
    {"mnuPopEditDataChange", "Change", "", true},
    {"mnuPopEditDataDelete", "Delete", "", true},
    {"mnuPopEditDataDeleteAll", "Delete All", "", true},
    {"mnuPopEditDataApply", "Apply", "", true},
    {"mnuPopEditDataExport", "Export", "", false},
};

/// A menu and its entries in order, submenus by their own names.
struct Menu {
    const char *Name;
    const char *Entries;
};

constexpr Menu menus[] = {
    {"mnuFile", "mnuFileNew mnuFileOpen mnuFileBar0 mnuFileSave mnuFileSaveAs mnuFileSaveAllProject "
                "mnuFileCloseAllProjects mnuFileBar1 mnuFilePrint mnuFilePrintPreview mnuFilePageSetup mnuFileBar3 "
                "mnuFileExit"},
    {"mnuEdit", "mnuEditUndo mnuEditRedo mnuEditCut mnuEditCopy mnuEditPaste mnuEditDelete"},
    {"mnuView", "mnuViewToolbar mnuViewStatusBar mnuViewBar0 mnuViewProjectWindow mnuViewGrid mnuViewZoomIn "
                "mnuViewZoomOut mnuViewZoomNot"},
    {"mnuSettings", "mnuSettingsSensorOption mnuSettingsArithmeticSetting mnuSettingsUserDefine mnuSettingsIO "
                    "mnuSettingsCommand"},
    {"mnuTools", "mnuToolsConnect mnuToolsDisconnect mnuToolsBar0 mnuToolsSensorOption mnuToolsRun mnuToolsStop "
                 "mnuToolsDisableSensor mnuToolsBar1 mnuToolsEnableSensor"},
    {"mnuWindow", "mnuWindowCascade mnuWindowTileHorizontal mnuWindowTileVertical mnuWindowArrangeIcons"},
    {"mnuHelp", "mnuHelpContents mnuHelpBar0 mnuHelpAbout mnuHelpBar1 mnuHelpLanguage"},
    {"mnuHelpLanguage", "mnuHelpLang_Chinese mnuHelpLang_English"},
    {"mnuPopEditData", "mnuPopEditDataAdd mnuPopEditDataChange mnuPopEditDataDelete mnuPopEditDataDeleteAll "
                       "mnuPopEditDataApply mnuPopEditDataExport"},
};

/// Hidden separators whose place within their menu is free.
const QStringList freeSeparators{QStringLiteral("mnuEditBar0"), QStringLiteral("mnuEditBar1"),
                                 QStringLiteral("mnuViewBar1"), QStringLiteral("mnuViewBar2")};

QStringList EntriesOf(const QWidget &menu)
{
    QStringList names;
    for (const QAction *entry : menu.actions())
        names.append(entry->menu() != nullptr ? entry->menu()->objectName() : entry->objectName());
    return names;
}

} // namespace

class ControlNamesTest : public QObject {
    Q_OBJECT

private slots:
    void every_control_has_its_name_and_kind_data();
    void every_control_has_its_name_and_kind();
    void every_page_button_is_found_by_member_too();
    void menus_have_caption_and_sight_data();
    void menus_have_caption_and_sight();
    void the_menu_bar_stands_in_order();
    void the_items_of_a_menu_stand_in_order_data();
    void the_items_of_a_menu_stand_in_order();
    void every_item_stands_in_one_menu();
    void items_have_caption_key_and_sight_data();
    void items_have_caption_key_and_sight();
    void keys_of_what_is_out_of_sight_are_dead_data();
    void keys_of_what_is_out_of_sight_are_dead();
    void the_key_of_new_works();
    void view_items_start_with_a_check_mark();
    void toolbar_buttons_stand_in_order_with_key_and_tool_tip();
    void a_toolbar_button_tells_its_key();
    void the_frame_starts_as_designed();
    void dialogues_have_no_automatic_default_button();
};

void ControlNamesTest::every_control_has_its_name_and_kind_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QString>("name");
    for (const Controls &row : controls) {
        for (const QString &name : QString::fromLatin1(row.Names).split(u' '))
            QTest::addRow("%s %s", row.Window, qPrintable(name)) << row.Window << QByteArray(row.Kind) << name;
    }
}

void ControlNamesTest::every_control_has_its_name_and_kind()
{
    QFETCH(const QString, window);
    QFETCH(const QByteArray, kind);
    QFETCH(const QString, name);
    const std::unique_ptr<QWidget> form = WindowOf(window);
    QCOMPARE(form->objectName(), window);
    const QList<QObject *> found = form->findChildren<QObject *>(name);
    QCOMPARE(found.size(), 1);
    QVERIFY2(found[0]->inherits(kind.constData()), found[0]->metaObject()->className());
}

void ControlNamesTest::every_page_button_is_found_by_member_too()
{
    const SensorProjFrm form;
    QCOMPARE(form.findChild<LumoButton *>(QStringLiteral("RecordLumoBtn")), form.RecordLumoBtn);
    QCOMPARE(form.findChild<LumoButton *>(QStringLiteral("ZoominHLumoBtn")), form.ZoominHLumoBtn);
    QCOMPARE(form.findChild<QTimer *>(QStringLiteral("Timer2")), form.Timer2);
}

void ControlNamesTest::menus_have_caption_and_sight_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("shown");
    const auto row = [](const char *name, const char *caption, bool shown) {
        QTest::newRow(name) << QString::fromLatin1(caption) << shown;
    };
    row("mnuFile", "&File", true);
    row("mnuEdit", "&Edit", false);
    row("mnuView", "&View", true);
    row("mnuSettings", "&Settings", false);
    row("mnuTools", "&Tools", true);
    row("mnuWindow", "&Window", true);
    row("mnuHelp", "&Help", true);
    row("mnuHelpLanguage", "&Language", true);
    row("mnuPopEditData", "EditDataPopMenu", true);
}

void ControlNamesTest::menus_have_caption_and_sight()
{
    QFETCH(const QString, caption);
    QFETCH(const bool, shown);
    const MainFrm frame;
    const auto *menu = frame.findChild<QMenu *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->title(), caption);
    QCOMPARE(menu->menuAction()->isVisible(), shown);
}

void ControlNamesTest::the_menu_bar_stands_in_order()
{
    const MainFrm frame;
    QCOMPARE(EntriesOf(*frame.menuBar()).join(u' '),
             QStringLiteral("mnuFile mnuEdit mnuView mnuSettings mnuLibrary mnuTools mnuWindow mnuHelp"));
}

void ControlNamesTest::the_items_of_a_menu_stand_in_order_data()
{
    QTest::addColumn<QString>("entries");
    for (const Menu &menu : menus)
        QTest::newRow(menu.Name) << QString::fromLatin1(menu.Entries);
}

void ControlNamesTest::the_items_of_a_menu_stand_in_order()
{
    const MainFrm frame;
    const auto *menu = frame.findChild<QMenu *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(menu != nullptr);
    QStringList entries = EntriesOf(*menu);
    for (const QString &separator : freeSeparators)
        entries.removeAll(separator);
    QTEST(entries.join(u' '), "entries");
}

void ControlNamesTest::every_item_stands_in_one_menu()
{
    const MainFrm frame;
    QStringList entries = EntriesOf(*frame.menuBar());
    for (const Menu &menu : menus)
        entries += EntriesOf(*frame.findChild<QMenu *>(QString::fromLatin1(menu.Name)));
    for (const Item &item : items)
        QVERIFY2(entries.count(QString::fromLatin1(item.Name)) == 1, item.Name);
    const QStringList edit = EntriesOf(*frame.mnuEdit);
    QVERIFY(edit.contains(freeSeparators[0]) && edit.contains(freeSeparators[1]));
    const QStringList view = EntriesOf(*frame.mnuView);
    QVERIFY(view.contains(freeSeparators[2]) && view.contains(freeSeparators[3]));
}

void ControlNamesTest::items_have_caption_key_and_sight_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("separator");
    QTest::addColumn<bool>("shown");
    for (const Item &item : items) {
        const bool separator = item.Caption == nullptr;
        QTest::newRow(item.Name) << (separator ? QString() : QString::fromUtf8(item.Caption)) << QString(item.Key)
                                 << separator << item.Shown;
    }
}

void ControlNamesTest::items_have_caption_key_and_sight()
{
    QFETCH(const QString, caption);
    QFETCH(const QString, key);
    QFETCH(const bool, separator);
    QFETCH(const bool, shown);
    const MainFrm frame;
    const auto *item = frame.findChild<QAction *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(item != nullptr);
    QCOMPARE(item->isSeparator(), separator);
    QCOMPARE(item->text(), caption);
    QCOMPARE(item->shortcut().toString(QKeySequence::PortableText), key);
    QCOMPARE(item->isVisible(), shown);
}

void ControlNamesTest::keys_of_what_is_out_of_sight_are_dead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("key");
    QTest::newRow("print") << "mnuFilePrint" << int(Qt::Key_P);
    QTest::newRow("undo") << "mnuEditUndo" << int(Qt::Key_Z);
    QTest::newRow("redo") << "mnuEditRedo" << int(Qt::Key_Y);
    QTest::newRow("cut") << "mnuEditCut" << int(Qt::Key_X);
    QTest::newRow("copy") << "mnuEditCopy" << int(Qt::Key_C);
    QTest::newRow("paste") << "mnuEditPaste" << int(Qt::Key_V);
}

void ControlNamesTest::keys_of_what_is_out_of_sight_are_dead()
{
    QFETCH(const QString, name);
    QFETCH(const int, key);
    MainFrm frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    const QSignalSpy triggered(frame.findChild<QAction *>(name), &QAction::triggered);
    QTest::keyClick(&frame, static_cast<Qt::Key>(key), Qt::ControlModifier);
    QCOMPARE(triggered.count(), 0);
}

void ControlNamesTest::the_key_of_new_works()
{
    MainFrm frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    const QSignalSpy triggered(frame.mnuFileNew, &QAction::triggered);
    QTest::keyClick(&frame, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(triggered.count(), 1);
}

void ControlNamesTest::view_items_start_with_a_check_mark()
{
    const MainFrm frame;
    for (const QAction *item : {frame.mnuViewToolbar, frame.mnuViewStatusBar, frame.mnuViewProjectWindow})
        QVERIFY2(item->isCheckable() && item->isChecked(), qPrintable(item->objectName()));
}

void ControlNamesTest::toolbar_buttons_stand_in_order_with_key_and_tool_tip()
{
    struct Button {
        const char *Key;
        const char *ToolTip;
    };
    constexpr Button separator{"", ""};
    constexpr Button buttons[] = {{"New", "New"},
                                  {"Open", "Open"},
                                  {"Save", "Save"},
                                  separator,
                                  {"Connect", "Connect"},
                                  {"DisConnect", "DisConnect"},
                                  separator,
                                  {"Options", "Sensor property"},
                                  separator,
                                  {"TileHorizontal", "Tile Horizontal"},
                                  {"TileVertical", "Tile Vertical"},
                                  {"CasadeWindows", "Casade windows"},
                                  separator,
                                  {"Help", "Help"}};
    const MainFrm frame;
    const QList<QAction *> actions = frame.tbToolBar->actions();
    QCOMPARE(actions.size(), 14);
    for (qsizetype index = 0; index < actions.size(); ++index) {
        const Button &expected = buttons[index];
        QCOMPARE(actions[index]->objectName(), QString(expected.Key));
        QCOMPARE(actions[index]->isSeparator(), *expected.Key == '\0');
        if (actions[index]->isSeparator())
            continue;
        QCOMPARE(actions[index]->toolTip(), QString(expected.ToolTip));
        QCOMPARE(frame.ToolBarButton(QString(expected.Key)), actions[index]);
        QVERIFY2(!actions[index]->icon().pixmap(24).isNull(), expected.Key);
    }
}

void ControlNamesTest::a_toolbar_button_tells_its_key()
{
    MainFrm frame;
    const QSignalSpy keys(&frame, &MainFrm::ToolBarButtonClick);
    frame.ToolBarButton(QStringLiteral("CasadeWindows"))->trigger();
    QCOMPARE(keys.count(), 1);
    QCOMPARE(keys[0][0].toString(), QStringLiteral("CasadeWindows"));
    QCOMPARE(frame.ToolBarButton(QStringLiteral("Close")), nullptr);
}

void ControlNamesTest::the_frame_starts_as_designed()
{
    const MainFrm frame;
    QCOMPARE(frame.windowTitle(), QStringLiteral("Ostrakon For KV7000 Series"));
    QCOMPARE(frame.sbrStatus->PanelText(1), QStringLiteral("Status"));
    QCOMPARE(frame.sbrStatus->PanelOfKey(QStringLiteral("Status")), 1);
    QCOMPARE(frame.sbrStatus->PanelText(2), QStringLiteral("Unconnected"));
    QCOMPARE(frame.sbrStatus->PanelOfKey(QStringLiteral("ConnectStatus")), 2);
    QVERIFY(!frame.sbrStatus->PanelText(3).isEmpty());
    QVERIFY(!frame.sbrStatus->PanelText(4).isEmpty());
    QCOMPARE(frame.picLED_ON->toolTip(), QStringLiteral("Connection Status-[Connected]"));
    QCOMPARE(frame.picLED_OFF->toolTip(), QStringLiteral("Connection Status-[Disconnected]"));
    QCOMPARE(frame.CheckLinkTimer->interval(), 1000);
    QVERIFY(!frame.CheckLinkTimer->isActive());
    QCOMPARE(frame.CommTimer->interval(), 2000);
    QVERIFY(frame.CommTimer->isActive());
    QCOMPARE(frame.TimeOutTimer->interval(), 100);
    QCOMPARE(frame.TimerInit->interval(), 1);
    QVERIFY(!frame.TimerInit->isActive());
}

void ControlNamesTest::dialogues_have_no_automatic_default_button()
{
    for (const char *name : {"EditDataFrm", "SensorPropertyFrm", "DeviceChoiceFrm"}) {
        const std::unique_ptr<QWidget> form = WindowOf(QString(name));
        const QList<QPushButton *> buttons = form->findChildren<QPushButton *>();
        QVERIFY(!buttons.isEmpty());
        for (const QPushButton *button : buttons)
            QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
    }
}

QTEST_MAIN(ControlNamesTest)
#include "tst_control_names.moc"
