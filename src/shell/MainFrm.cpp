#include "shell/MainFrm.h"

#include "controls/MenuDesign.h"
#include "platform/Measures.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>

/// The resources lie in a static library, whose initialisers the linker leaves out unless they are named.
static void LoadIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace {

constexpr int IndicatorSize = 16; // pixels
constexpr QSize DesignedSize(1280, 900);
constexpr QSize WindowFrame(16, 48); ///< room for borders and title bar, whose size is known only when they are there

using MenuItem = MenuItemOf<MainFrm>;

using M = MainFrm;

constexpr MenuItem fileItems[] = {
    {&M::mnuFileNew, "mnuFileNew", "&New Project", "Ctrl+N"},
    {&M::mnuFileOpen, "mnuFileOpen", "&Open Project...", "Ctrl+O"},
    {&M::mnuFileBar0, "mnuFileBar0", nullptr},
    {&M::mnuFileSave, "mnuFileSave", "&Save Project", "Ctrl+S"},
    {&M::mnuFileSaveAs, "mnuFileSaveAs", "&Save Project As..."},
    {&M::mnuFileSaveAllProject, "mnuFileSaveAllProject", "Sav&e All"},
    {&M::mnuFileCloseAllProjects, "mnuFileCloseAllProjects", "&Close All "},
    {&M::mnuFileBar1, "mnuFileBar1", nullptr, "", false},
    {&M::mnuFilePrint, "mnuFilePrint", "&Print", "Ctrl+P", false},
    {&M::mnuFilePrintPreview, "mnuFilePrintPreview", "Print Pre&view", "", false},
    {&M::mnuFilePageSetup, "mnuFilePageSetup", "Print Set&up...", "", false},
    {&M::mnuFileBar3, "mnuFileBar3", nullptr},
    {&M::mnuFileExit, "mnuFileExit", "E&xit"},
};

constexpr MenuItem editItems[] = {
    {&M::mnuEditUndo, "mnuEditUndo", "&Undo", "Ctrl+Z"}, {&M::mnuEditRedo, "mnuEditRedo", "&Redo", "Ctrl+Y"},
    {&M::mnuEditBar0, "mnuEditBar0", nullptr},           {&M::mnuEditCut, "mnuEditCut", "Cu&t", "Ctrl+X"},
    {&M::mnuEditCopy, "mnuEditCopy", "&Copy", "Ctrl+C"}, {&M::mnuEditPaste, "mnuEditPaste", "&Paste", "Ctrl+V"},
    {&M::mnuEditBar1, "mnuEditBar1", nullptr},           {&M::mnuEditDelete, "mnuEditDelete", "&Delete"},
};

constexpr MenuItem viewItems[] = {
    {&M::mnuViewToolbar, "mnuViewToolbar", "&Toolbar", "", true, true},
    {&M::mnuViewStatusBar, "mnuViewStatusBar", "Status &Bar", "", true, true},
    {&M::mnuViewBar0, "mnuViewBar0", nullptr},
    {&M::mnuViewProjectWindow, "mnuViewProjectWindow", "&Project Window", "", true, true},
    {&M::mnuViewBar1, "mnuViewBar1", nullptr, "", false},
    {&M::mnuViewGrid, "mnuViewGrid", "&Grid", "", false},
    {&M::mnuViewZoomIn, "mnuViewZoomIn", "Zoom &In", "", false},
    {&M::mnuViewZoomOut, "mnuViewZoomOut", "Zoom &Out", "", false},
    {&M::mnuViewBar2, "mnuViewBar2", nullptr, "", false},
    {&M::mnuViewZoomNot, "mnuViewZoomNot", "Zoom &Not", "", false},
};

constexpr MenuItem settingsItems[] = {
    {&M::mnuSettingsSensorOption, "mnuSettingsSensorOption", "Sensor &Option..."},
    {&M::mnuSettingsArithmeticSetting, "mnuSettingsArithmeticSetting", "Arithmetic &Setting...", "", false},
    {&M::mnuSettingsUserDefine, "mnuSettingsUserDefine", "&User Define...", "", false},
    {&M::mnuSettingsIO, "mnuSettingsIO", "&I/O Settings...", "", false},
    {&M::mnuSettingsCommand, "mnuSettingsCommand", "&Command Collection...", "", false},
};

constexpr MenuItem toolsItems[] = {
    {&M::mnuToolsConnect, "mnuToolsConnect", "&Connect to Multimeter"},
    {&M::mnuToolsDisconnect, "mnuToolsDisconnect", "&Disconnect"},
    {&M::mnuToolsBar0, "mnuToolsBar0", nullptr},
    {&M::mnuToolsSensorOption, "mnuToolsSensorOption", "Sensor &Option..."},
    {&M::mnuToolsRun, "mnuToolsRun", "&Run", "", false},
    {&M::mnuToolsStop, "mnuToolsStop", "&Stop", "", false},
    {&M::mnuToolsDisableSensor, "mnuToolsDisableSensor", "&Disable Sensor", "", false},
    {&M::mnuToolsBar1, "mnuToolsBar1", nullptr},
    {&M::mnuToolsEnableSensor, "mnuToolsEnableSensor", "&Load Project to Instrument"},
};

constexpr MenuItem windowItems[] = {
    {&M::mnuWindowCascade, "mnuWindowCascade", "&Cascade"},
    {&M::mnuWindowTileHorizontal, "mnuWindowTileHorizontal", "Tile &Horizontal"},
    {&M::mnuWindowTileVertical, "mnuWindowTileVertical", "Tile &Vertical"},
    {&M::mnuWindowArrangeIcons, "mnuWindowArrangeIcons", "&Arrange Icons", "", false},
};

constexpr MenuItem helpItems[] = {
    {&M::mnuHelpContents, "mnuHelpContents", "Contents..."},
    {&M::mnuHelpBar0, "mnuHelpBar0", nullptr},
    {&M::mnuHelpAbout, "mnuHelpAbout", "&About... "},
    {&M::mnuHelpBar1, "mnuHelpBar1", nullptr, "", false},
};

constexpr MenuItem languageItems[] = {
    {&M::mnuHelpLang_Chinese, "mnuHelpLang_Chinese", "&Chinese"},
    {&M::mnuHelpLang_English, "mnuHelpLang_English", "&English"},
};

constexpr MenuItem popupItems[] = {
    {&M::mnuPopEditDataAdd, "mnuPopEditDataAdd", "Add"},
    {&M::mnuPopEditDataChange, "mnuPopEditDataChange", "Change"},
    {&M::mnuPopEditDataDelete, "mnuPopEditDataDelete", "Delete"},
    {&M::mnuPopEditDataDeleteAll, "mnuPopEditDataDeleteAll", "Delete All"},
    {&M::mnuPopEditDataApply, "mnuPopEditDataApply", "Apply"},
    {&M::mnuPopEditDataExport, "mnuPopEditDataExport", "Export", "", false},
};

struct ToolBarItem {
    const char *Key; ///< nullptr for a separator
    const char *ToolTip;
    const char *Picture;
};

constexpr ToolBarItem toolBarItems[] = {
    {"New", "New", "new"},
    {"Open", "Open", "open"},
    {"Save", "Save", "save"},
    {nullptr, nullptr, nullptr},
    {"Connect", "Connect", "connect"},
    {"DisConnect", "DisConnect", "disconnect"},
    {nullptr, nullptr, nullptr},
    {"Options", "Sensor property", "options"},
    {nullptr, nullptr, nullptr},
    {"TileHorizontal", "Tile Horizontal", "tile-horizontal"},
    {"TileVertical", "Tile Vertical", "tile-vertical"},
    {"CasadeWindows", "Casade windows", "cascade"},
    {nullptr, nullptr, nullptr},
    {"Help", "Help", "help"},
};

QMenu *NewMenu(MainFrm &frame, const char *name, const char *caption, bool shown)
{
    QMenu *menu = frame.menuBar()->addMenu(QString::fromUtf8(caption));
    menu->setObjectName(QString::fromLatin1(name));
    menu->menuAction()->setVisible(shown);
    return menu;
}

QLabel *NewIndicator(QWidget *parent, const char *name, const QColor &colour, const char *toolTip)
{
    QPixmap picture(IndicatorSize, IndicatorSize);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour.darker(180), 1));
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(1.5, 1.5, IndicatorSize - 3.0, IndicatorSize - 3.0));
    painter.end();

    auto *indicator = new QLabel(parent);
    indicator->setObjectName(QString::fromLatin1(name));
    indicator->setPixmap(picture);
    indicator->resize(IndicatorSize, IndicatorSize);
    indicator->setToolTip(QString::fromLatin1(toolTip));
    return indicator;
}

QTimer *NewTimer(QObject *parent, const char *name, int interval, bool on)
{
    auto *timer = new QTimer(parent);
    timer->setObjectName(QString::fromLatin1(name));
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(interval);
    if (on)
        timer->start();
    return timer;
}

} // namespace

MainFrm::MainFrm()
{
    LoadIcons();
    setObjectName(QStringLiteral("MainFrm"));
    setWindowTitle(QStringLiteral("Ostrakon For KV7000 Series"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/project.svg")));
    resize(DesignedSize.boundedTo(screen()->availableGeometry().size() - WindowFrame));
    Children = new QMdiArea(this);
    Children->setObjectName(QStringLiteral("Children"));
    setCentralWidget(Children);
    TabDock = new ::TabDock(this);
    TabDock->setObjectName(QStringLiteral("TabDock"));
    dlgCommonDialog = new CommonDialog(this);
    dlgCommonDialog->setObjectName(QStringLiteral("dlgCommonDialog"));
    MSComm1 = new SerialControl(this);
    MSComm1->setObjectName(QStringLiteral("MSComm1"));
    MakeMenus();
    MakePopupMenu();
    MakeToolBar();
    MakeStatusBar();
    MakeTimers();
}

void MainFrm::MakeMenus()
{
    mnuFile = NewMenu(*this, "mnuFile", "&File", true);
    FillMenu(*this, mnuFile, fileItems);
    mnuEdit = NewMenu(*this, "mnuEdit", "&Edit", false);
    FillMenu(*this, mnuEdit, editItems);
    mnuView = NewMenu(*this, "mnuView", "&View", true);
    FillMenu(*this, mnuView, viewItems);
    mnuSettings = NewMenu(*this, "mnuSettings", "&Settings", false);
    FillMenu(*this, mnuSettings, settingsItems);
    mnuLibrary = menuBar()->addAction(QStringLiteral("&Library"));
    mnuLibrary->setObjectName(QStringLiteral("mnuLibrary"));
    mnuLibrary->setVisible(false);
    mnuTools = NewMenu(*this, "mnuTools", "&Tools", true);
    FillMenu(*this, mnuTools, toolsItems);
    mnuWindow = NewMenu(*this, "mnuWindow", "&Window", true);
    FillMenu(*this, mnuWindow, windowItems);
    mnuHelp = NewMenu(*this, "mnuHelp", "&Help", true);
    FillMenu(*this, mnuHelp, helpItems);
    mnuHelpLanguage = mnuHelp->addMenu(QStringLiteral("&Language"));
    mnuHelpLanguage->setObjectName(QStringLiteral("mnuHelpLanguage"));
    FillMenu(*this, mnuHelpLanguage, languageItems);
    mnuHelpLang_Chinese->setCheckable(true);
    mnuHelpLang_English->setCheckable(true);
}

void MainFrm::MakePopupMenu()
{
    mnuPopEditData = new QMenu(QStringLiteral("EditDataPopMenu"), this);
    mnuPopEditData->setObjectName(QStringLiteral("mnuPopEditData"));
    FillMenu(*this, mnuPopEditData, popupItems);
}

void MainFrm::MakeToolBar()
{
    tbToolBar = addToolBar(QStringLiteral("tbToolBar"));
    tbToolBar->setObjectName(QStringLiteral("tbToolBar"));
    tbToolBar->setMovable(false);
    tbToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    tbToolBar->setIconSize(QSize(24, 24));
    imlToolbarIcons = new ImageList(this);
    imlToolbarIcons->setObjectName(QStringLiteral("imlToolbarIcons"));
    for (const ToolBarItem &item : toolBarItems) {
        if (!item.Key) {
            tbToolBar->addSeparator();
            continue;
        }
        const QString key = QString::fromLatin1(item.Key);
        imlToolbarIcons->Add(imlToolbarIcons->Count() + 1, key,
                             QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(item.Picture))));
        QAction *button = tbToolBar->addAction(imlToolbarIcons->Image(key), QString());
        button->setObjectName(key);
        button->setToolTip(QString::fromLatin1(item.ToolTip));
        connect(button, &QAction::triggered, this, [this, key] { emit ToolBarButtonClick(key); });
    }
}

void MainFrm::MakeStatusBar()
{
    sbrStatus = new StatusPanels(this);
    sbrStatus->setObjectName(QStringLiteral("sbrStatus"));
    setStatusBar(sbrStatus);
    sbrStatus->AddPanel(QStringLiteral("Status"), QStringLiteral("Status"), 4);
    sbrStatus->AddPanel(QStringLiteral("ConnectStatus"), QStringLiteral("Unconnected"), 1);
    sbrStatus->AddDatePanel();
    sbrStatus->AddTimePanel();
    sbrStatus->AddSpace(IndicatorSize + 4); // the indicators' place
    picLED_ON = NewIndicator(sbrStatus, "picLED_ON", QColor(0x2E, 0xC0, 0x4A), "Connection Status-[Connected]");
    picLED_OFF = NewIndicator(sbrStatus, "picLED_OFF", QColor(0xC8, 0x32, 0x32), "Connection Status-[Disconnected]");
    picLED_ON->hide();
}

void MainFrm::MakeTimers()
{
    CheckLinkTimer = NewTimer(this, "CheckLinkTimer", 1000, false);
    CommTimer = NewTimer(this, "CommTimer", 2000, true);
    TimeOutTimer = NewTimer(this, "TimeOutTimer", 100, false);
    TimerInit = NewTimer(this, "TimerInit", 1, false);
}

QAction *MainFrm::ToolBarButton(const QString &key) const
{
    for (QAction *action : tbToolBar->actions()) {
        if (!key.isEmpty() && action->objectName() == key)
            return action;
    }
    return nullptr;
}

int MainFrm::InnerWidth() const
{
    return width() * TwipsPerPixel;
}

void MainFrm::PlaceIndicators(int left)
{
    // They lie on the bar, so that they go out of sight with it.
    const int top = (sbrStatus->height() - IndicatorSize) / 2;
    for (QLabel *indicator : {picLED_ON, picLED_OFF}) {
        indicator->move(PixelsFromTwips(left) - sbrStatus->x(), top);
        indicator->raise();
    }
}

void MainFrm::closeEvent(QCloseEvent *event)
{
    bool cancel = false;
    emit CloseAsked(cancel);
    if (cancel) {
        event->ignore();
        return;
    }
    emit Unloaded();
    event->accept();
}

void MainFrm::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    emit Resized();
}
