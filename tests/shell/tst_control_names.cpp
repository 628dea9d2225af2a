/// @file
/// Every window carries its controls under their given names and of the right kind.
#include "curve/EditDataFrm.h"
#include "display/RefPicColorrizeFrm.h"
#include "display/SensorProjFrm.h"
#include "display/Wave1picColorrizeFrm.h"
#include "display/Wave2picColorrizeFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "measure/SendProjFrm.h"
#include "project/SensorPropertyFrm.h"
#include "shell/AboutFrm.h"
#include "shell/MainFrm.h"
#include "shell/ProjectSheetFrm.h"
#include "support/BareFrame.h"

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
        {QStringLiteral("RefPicColorrizeFrm"), [] { return std::make_unique<RefPicColorrizeFrm>(); }},
        {QStringLiteral("Wave1picColorrizeFrm"), [] { return std::make_unique<Wave1picColorrizeFrm>(); }},
        {QStringLiteral("Wave2picColorrizeFrm"), [] { return std::make_unique<Wave2picColorrizeFrm>(); }},
        {QStringLiteral("SendProjFrm"), [] { return std::make_unique<SendProjFrm>(); }},
        {QStringLiteral("AboutFrm"), [] { return std::make_unique<AboutFrm>(); }},
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
    {"MainFrm", "ImageList", "imlToolbarIcons"},
    {"MainFrm", "StatusPanels", "sbrStatus"},
    {"MainFrm", "TabDock", "TabDock"},
    {"MainFrm", "QLabel", "picLED_ON picLED_OFF"},
    {"MainFrm", "CommonDialog", "dlgCommonDialog"},
    {"MainFrm", "SerialControl", "MSComm1"},
    {"MainFrm", "QTimer", "CheckLinkTimer CommTimer TimeOutTimer TimerInit"},
    {"ProjectSheetFrm", "QTreeWidget", "ProjectSheetTree"},
    {"ProjectSheetFrm", "QMenu", "pop_mnu1 pop_mnu2"},
    {"ProjectSheetFrm", "ImageList", "imlTree"},
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
    {"RefPicColorrizeFrm", "QGroupBox",
     "GridFrame AbscissaFrame OrdinateFrame SegmentFrame LineDotFrame LeastDotFrame"},
    {"RefPicColorrizeFrm", "PictureBox", "PicGrid PicAbscissa PicOrdinate PicSegment PicLineDot PicLeastDot"},
    {"RefPicColorrizeFrm", "QPushButton", "ComOK ComCancel ComApply"},
    {"RefPicColorrizeFrm", "ColourDialog", "DialogColor"},
    {"Wave1picColorrizeFrm", "QGroupBox", "GridFrame AbscissaFrame OrdinateFrame DotFrame"},
    {"Wave1picColorrizeFrm", "PictureBox", "PicGrid PicAbscissa PicOrdinate PicSegment"},
    {"Wave1picColorrizeFrm", "QPushButton", "ComOK ComCancel ComApply"},
    {"Wave1picColorrizeFrm", "ColourDialog", "DialogColor"},
    {"Wave2picColorrizeFrm", "QGroupBox", "GridFrame AbscissaFrame OrdinateFrame DotFrame"},
    {"Wave2picColorrizeFrm", "PictureBox", "PicGrid PicAbscissa PicOrdinate PicSegment"},
    {"Wave2picColorrizeFrm", "QPushButton", "ComOK ComCancel ComApply"},
    {"Wave2picColorrizeFrm", "ColourDialog", "DialogColor"},
    {"SendProjFrm", "QGroupBox", "InforFrame"},
    {"SendProjFrm", "QLabel", "LabNameTitle LabTypeTitle LabUnitTitle LabLenTitle LabName LabType LabUnit LabLength"},
    {"SendProjFrm", "QPushButton", "ComSend ComCancel"},
    {"AboutFrm", "QPushButton", "ComOK"},
};

} // namespace

class ControlNamesTest : public QObject {
    Q_OBJECT

private slots:
    void every_control_has_its_name_and_kind_data();
    void every_control_has_its_name_and_kind();
    void every_page_button_is_found_by_member_too();
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

void ControlNamesTest::dialogues_have_no_automatic_default_button()
{
    for (const char *name : {"EditDataFrm", "SensorPropertyFrm", "DeviceChoiceFrm", "RefPicColorrizeFrm",
                             "Wave1picColorrizeFrm", "Wave2picColorrizeFrm", "SendProjFrm", "AboutFrm"}) {
        const std::unique_ptr<QWidget> form = WindowOf(QString(name));
        const QList<QPushButton *> buttons = form->findChildren<QPushButton *>();
        QVERIFY(!buttons.isEmpty());
        for (const QPushButton *button : buttons)
            QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
    }
}

QTEST_MAIN(ControlNamesTest)
#include "tst_control_names.moc"
