/// @file
/// The multi-document frame: menus, toolbar, status bar, dock, timers and the controls that the whole program shares.
#pragma once

#include "controls/CommonDialog.h"
#include "controls/ImageList.h"
#include "controls/SerialControl.h"
#include "controls/StatusPanels.h"
#include "controls/TabDock.h"

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QTimer>
#include <QToolBar>

#include <array>

class SensorProjFrm;

class MainFrm : public QMainWindow {
    Q_OBJECT

public:
    MainFrm();

    QMdiArea *Children; ///< holds the project windows
    QToolBar *tbToolBar;
    ImageList *imlToolbarIcons; ///< the toolbar's pictures, by the keys of its buttons
    StatusPanels *sbrStatus;    ///< panels: status, link ("ConnectStatus"), date, time
    ::TabDock *TabDock;
    QLabel *picLED_ON; ///< link indicators, two pictures over the status bar at one place
    QLabel *picLED_OFF;
    CommonDialog *dlgCommonDialog;
    SerialControl *MSComm1;
    QTimer *CheckLinkTimer; ///< 1000 ms, off at start
    QTimer *CommTimer;      ///< 2000 ms, on
    QTimer *TimeOutTimer;   ///< 100 ms, switched on by InitIO
    QTimer *TimerInit;      ///< 1 ms, one shot, off at start

    QMenu *mnuFile, *mnuEdit, *mnuView, *mnuSettings, *mnuTools, *mnuWindow, *mnuHelp, *mnuHelpLanguage,
        *mnuPopEditData;
    QAction *mnuFileNew, *mnuFileOpen, *mnuFileBar0, *mnuFileSave, *mnuFileSaveAs, *mnuFileSaveAllProject,
        *mnuFileCloseAllProjects, *mnuFileBar1, *mnuFilePrint, *mnuFilePrintPreview, *mnuFilePageSetup, *mnuFileBar3,
        *mnuFileExit;
    QAction *mnuEditUndo, *mnuEditRedo, *mnuEditBar0, *mnuEditCut, *mnuEditCopy, *mnuEditPaste, *mnuEditDelete,
        *mnuEditBar1;
    QAction *mnuViewToolbar, *mnuViewStatusBar, *mnuViewBar0, *mnuViewProjectWindow, *mnuViewBar1, *mnuViewGrid,
        *mnuViewZoomIn, *mnuViewZoomOut, *mnuViewBar2, *mnuViewZoomNot;
    QAction *mnuSettingsSensorOption, *mnuSettingsArithmeticSetting, *mnuSettingsUserDefine, *mnuSettingsIO,
        *mnuSettingsCommand;
    QAction *mnuLibrary;
    QAction *mnuToolsConnect, *mnuToolsDisconnect, *mnuToolsBar0, *mnuToolsSensorOption, *mnuToolsRun, *mnuToolsStop,
        *mnuToolsDisableSensor, *mnuToolsBar1, *mnuToolsEnableSensor;
    QAction *mnuWindowCascade, *mnuWindowTileHorizontal, *mnuWindowTileVertical, *mnuWindowArrangeIcons;
    QAction *mnuHelpContents, *mnuHelpBar0, *mnuHelpAbout, *mnuHelpBar1, *mnuHelpLang_Chinese, *mnuHelpLang_English;
    QAction *mnuPopEditDataAdd, *mnuPopEditDataChange, *mnuPopEditDataDelete, *mnuPopEditDataDeleteAll,
        *mnuPopEditDataApply, *mnuPopEditDataExport;

    /// A toolbar button by its key; separators have none. nullptr for an unknown key.
    QAction *ToolBarButton(const QString &key) const;
    /// Inner width of the whole frame in twips, the dock included.
    int InnerWidth() const;
    /// None: the toolkit's own would hide toolbar and panel behind the back of their check marks.
    QMenu *createPopupMenu() override { return nullptr; }
    /// Puts both link indicators at a left edge in twips of the frame, over the status bar.
    void PlaceIndicators(int left);

signals:
    /// A project window has been made and shall be connected.
    void ProjectWindowMade(SensorProjFrm *form);
    void ToolBarButtonClick(const QString &key);
    /// The close box; cancel set to true keeps the frame.
    void CloseAsked(bool &cancel);
    /// The frame closes: the last moment before it goes.
    void Unloaded();
    void Resized();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void MakeMenus();
    void MakePopupMenu();
    void MakeToolBar();
    void MakeStatusBar();
    void MakeTimers();
};
