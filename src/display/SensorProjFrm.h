/// @file
/// The window of one project: a tab strip over three pages with the reference picture, the reference table and the time
/// curves.
#pragma once

#include "controls/CommonDialog.h"
#include "controls/FlatScrollBar.h"
#include "controls/LumoButton.h"
#include "controls/PictureBox.h"
#include "controls/ReportList.h"
#include "controls/TabStrip.h"
#include "controls/TextBox.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QTimer>

#include <optional>

/// Owns its controls and its two timers and nothing else. It finds its project by the slot number in Tag.
class SensorProjFrm : public QMdiSubWindow {
    Q_OBJECT

public:
    SensorProjFrm();
    ~SensorProjFrm() override;

    /// The designed size: the window's normal one until the user gives it another.
    QSize sizeHint() const override;

    QString Tag;     ///< slot number as text; empty until the window has a project
    QWidget *Client; ///< holds all controls; its size is the window's content

    ::TabStrip *TabStrip; ///< tabs 1 to 3: reference curve, edit data, measure curve

    QWidget *SpecifyCurvePic; ///< page 1
    QGroupBox *DispRefFrame;
    QCheckBox *ChkGridRef;
    LumoButton *ColorRfLumoBtn;
    QLabel *LabColor2;
    QGroupBox *InfoFrame;
    QLabel *LabXUnit, *LabYUnit;
    QGroupBox *PictureFrame;
    LumoButton *ExportPicLumoBtn;
    PictureBox *PicRefBack; ///< surround of the plot, carries the axis numbers
    PictureBox *PicRef;     ///< the plot

    QWidget *EditDataPic; ///< page 2
    LumoButton *ImportLumoBtn, *ExportLumoBtn, *UndoLumoBtn, *RedoLumoBtn;
    QFrame *PicSeprator;
    ReportList *EditDataView; ///< the reference table, five columns

    QWidget *MeasWavePic; ///< page 3
    QGroupBox *DispSetFrame;
    QGroupBox *Frame1;
    QRadioButton *OptWave1, *OptWave2; ///< whether the display commands act on the values or on the readings
    QGroupBox *WavesetFrame;
    QCheckBox *ChkGrid, *ChkLink;
    LumoButton *ColorLumoBtn;
    QLabel *LabColor;
    QGroupBox *ZoomFrame;
    LumoButton *ZoominHLumoBtn, *ZoomOutHLumoBtn, *ZoomInVLumoBtn, *ZoomOutVLumoBtn;
    QGroupBox *MeasureFrame;
    QGroupBox *SampleRateFrame;
    TextBox *TxtSample; ///< sample period in seconds
    QLabel *Labperiodunit;
    LumoButton *RecordLumoBtn, *EndLumoBtn;
    QGroupBox *ReplayFrame;
    LumoButton *ReplayLumoBtn, *PauseLumoBtn, *StopLumoBtn, *LowLumoBtn, *FastLumoBtn;
    QGroupBox *DataFrame;
    LumoButton *exportCom;
    PictureBox *PicTime_Value_Background, *PicTime_Value; ///< surround and time curve of the values
    FlatScrollBar *FlatScrollBar1;
    QLabel *LabValX, *LabValY;
    PictureBox *PicTime_Meas_Background, *PicTime_Meas; ///< the same of the readings
    FlatScrollBar *FlatScrollBar2;
    QLabel *LabMeasX, *LabMeasY;
    QWidget *Recordpic; ///< carries HScroll1
    FlatScrollBar *HScroll1;

    QTimer *Timer1; ///< sampling tick
    QTimer *Timer2; ///< replay tick
    CommonDialog *CommonDialog1;

    /// Asks for the end of the run, whatever the state of EndLumoBtn.
    void EndLumoBtn_MouseClick() { emit EndRunAsked(); }

signals:
    void EndRunAsked();
    /// The window shall close, by whatever path; cancel set to true keeps it.
    void CloseAsked(bool &cancel);
    /// The content has a new size, or is back from the minimised state.
    void Resized();
    /// A tab was clicked, from 1.
    void TabChosen(int tab);
    /// The window is no longer the frame's active child: another one is.
    void Deactivated();

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void MakeReferencePage();
    void MakeEditPage();
    void MakeMeasurePage();
    void MakeDisplaySettings();
    void MakeRunControls();
    void MakeTimePictures();
    void MakeTimers();
    void FollowActivation(const QMdiSubWindow *now);
    bool OnTitle(QPoint point) const;
    bool m_active = false;
    std::optional<QPoint> m_grip; ///< where the mouse holds the title bar of the minimised window
};
