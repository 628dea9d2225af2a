#include "display/SensorProjFrm.h"

#include "controls/FormDesign.h"
#include "controls/SystemMenuTexts.h"
#include "platform/Measures.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QMdiArea>
#include <QMouseEvent>
#include <QStyleOptionTitleBar>

#include <algorithm>
#include <utility>

namespace {

constexpr int FrameFontPixels = 11; // the frames are narrow: 75 pixels
constexpr int GridColumns = 5;
constexpr int DesignedWidth = 12495; // twips, frame and title included
constexpr int DesignedHeight = 10285;

/// The caption of a frame stands in its upper edge, so that the first row of controls lies inside.
const QString FrameStyle =
    QStringLiteral("QGroupBox { border: 1px solid palette(mid); border-radius: 2px; margin-top: 6px; }"
                   "QGroupBox::title { subcontrol-origin: margin; left: 6px; padding: 0px 2px; }");

QGroupBox *NewFrame(const char *name, const char *caption, QWidget *parent)
{
    auto *frame = Named<QGroupBox>(name, QString::fromLatin1(caption), parent);
    frame->setStyleSheet(FrameStyle);
    return frame;
}

/// The frames and all controls in them. A control does not take the font of a frame that has a style of its own.
void SetFrameFonts(const QWidget &page)
{
    QFont font = page.font();
    font.setPixelSize(FrameFontPixels);
    for (QGroupBox *frame : page.findChildren<QGroupBox *>()) {
        frame->setFont(font);
        for (QWidget *control : frame->findChildren<QWidget *>())
            control->setFont(font);
    }
}

LumoButton *NewButton(const char *name, const char *picture, QWidget *parent)
{
    auto *button = Named<LumoButton>(name, parent);
    button->SetPicture(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(picture)));
    return button;
}

} // namespace

SensorProjFrm::SensorProjFrm()
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("SensorProjFrm"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/project.svg")));
    new SystemMenuTexts(this);
    Client = Named<QWidget>("Client");
    setWidget(Client);
    Client->setMinimumSize(0, 0);
    TabStrip = Placed(Named<::TabStrip>("TabStrip", 3, Client), 60, -1080, 12315, 10845);
    connect(TabStrip, &::TabStrip::Click, this, &SensorProjFrm::TabChosen);
    MakeReferencePage();
    MakeEditPage();
    MakeMeasurePage();
    SetFrameFonts(*Client);
    TabStrip->SelectTab(2);
    SpecifyCurvePic->hide();
    MeasWavePic->hide();
    MakeTimers();
    CommonDialog1 = Named<CommonDialog>("CommonDialog1", this);
    Client->installEventFilter(this);
    // A window that comes back in its old size has no resize of its own.
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates before, Qt::WindowStates now) {
        if ((before & Qt::WindowMinimized) && !(now & Qt::WindowMinimized))
            emit Resized();
    });
}

SensorProjFrm::~SensorProjFrm()
{
    // The box that has the keyboard loses it as it goes, when there is no window any more to tell about it.
    for (QObject *control : findChildren<QObject *>())
        control->blockSignals(true);
    // A window that goes while it is shown hands its activation on after this.
    if (mdiArea())
        disconnect(mdiArea(), nullptr, this, nullptr);
}

QSize SensorProjFrm::sizeHint() const
{
    return {PixelsFromTwips(DesignedWidth), PixelsFromTwips(DesignedHeight)};
}

void SensorProjFrm::MakeReferencePage()
{
    SpecifyCurvePic = Placed(Named<QWidget>("SpecifyCurvePic", Client), 120, 5040, 5295, 4335);
    DispRefFrame = Placed(NewFrame("DispRefFrame", "Display", SpecifyCurvePic), 60, 45, 1125, 915);
    ChkGridRef = Placed(Named<QCheckBox>("ChkGridRef", QStringLiteral("   Grid"), DispRefFrame), 120, 240, 945, 240);
    ColorRfLumoBtn = Placed(NewButton("ColorRfLumoBtn", "colour", DispRefFrame), 120, 540, 240, 240);
    LabColor2 = Placed(Named<QLabel>("LabColor2", QStringLiteral("Color"), DispRefFrame), 480, 540, 600, 240);
    InfoFrame = Placed(NewFrame("InfoFrame", "Info", SpecifyCurvePic), 60, 1005, 1125, 915);
    LabXUnit = Placed(Named<QLabel>("LabXUnit", QStringLiteral("X:"), InfoFrame), 120, 240, 885, 255);
    LabYUnit = Placed(Named<QLabel>("LabYUnit", QStringLiteral("Y:"), InfoFrame), 120, 540, 885, 255);
    PictureFrame = Placed(NewFrame("PictureFrame", "Picture", SpecifyCurvePic), 60, 1965, 1125, 600);
    ExportPicLumoBtn = Placed(NewButton("ExportPicLumoBtn", "export-picture", PictureFrame), 120, 240, 885, 270);
    PicRefBack = Placed(Named<PictureBox>("PicRefBack", SpecifyCurvePic), 1800, 360, 3195, 2895);
    PicRef = Placed(Named<PictureBox>("PicRef", PicRefBack), 600, 480, 2055, 1935);
    PicRef->BackColour = Rgb(255, 255, 255);
}

void SensorProjFrm::MakeEditPage()
{
    EditDataPic = Placed(Named<QWidget>("EditDataPic", Client), 120, 180, 6195, 4035);
    ImportLumoBtn = Placed(NewButton("ImportLumoBtn", "import", EditDataPic), 45, 60, 270, 270);
    ExportLumoBtn = Placed(NewButton("ExportLumoBtn", "export", EditDataPic), 420, 60, 270, 270);
    PicSeprator = Placed(Named<QFrame>("PicSeprator", EditDataPic), 795, 0, 90, 390);
    PicSeprator->setFrameShape(QFrame::VLine);
    PicSeprator->setFrameShadow(QFrame::Sunken);
    UndoLumoBtn = Placed(NewButton("UndoLumoBtn", "undo", EditDataPic), 990, 60, 270, 270);
    RedoLumoBtn = Placed(NewButton("RedoLumoBtn", "redo", EditDataPic), 1365, 60, 270, 270);
    EditDataView = Placed(Named<ReportList>("EditDataView", EditDataPic), 120, 600, 5655, 3135);
    EditDataView->SetColumnTitles(QStringList(GridColumns, QString()));
}

void SensorProjFrm::MakeMeasurePage()
{
    MeasWavePic = Placed(Named<QWidget>("MeasWavePic", Client), 6840, 120, 5295, 8895);
    MakeDisplaySettings();
    MakeRunControls();
    MakeTimePictures();
}

void SensorProjFrm::MakeDisplaySettings()
{
    DispSetFrame = Placed(NewFrame("DispSetFrame", "Display", MeasWavePic), 60, 15, 1125, 3270);
    Frame1 = Placed(NewFrame("Frame1", "Wave", DispSetFrame), 60, 240, 1005, 855);
    OptWave1 = Placed(Named<QRadioButton>("OptWave1", QStringLiteral("Wave1"), Frame1), 60, 240, 855, 195);
    OptWave2 = Placed(Named<QRadioButton>("OptWave2", QStringLiteral("Wave2"), Frame1), 60, 540, 855, 195);
    WavesetFrame = Placed(NewFrame("WavesetFrame", "", DispSetFrame), 60, 1080, 1005, 1200);
    ChkGrid = Placed(Named<QCheckBox>("ChkGrid", QStringLiteral("   Grid"), WavesetFrame), 60, 240, 885, 240);
    ChkLink = Placed(Named<QCheckBox>("ChkLink", QStringLiteral("   Link"), WavesetFrame), 60, 540, 885, 240);
    ColorLumoBtn = Placed(NewButton("ColorLumoBtn", "colour", WavesetFrame), 60, 840, 240, 240);
    LabColor = Placed(Named<QLabel>("LabColor", QStringLiteral("Color"), WavesetFrame), 375, 840, 570, 240);
    ZoomFrame = Placed(NewFrame("ZoomFrame", "Zoom", DispSetFrame), 60, 2280, 1005, 885);
    ZoominHLumoBtn = Placed(NewButton("ZoominHLumoBtn", "zoom-in-horizontal", ZoomFrame), 60, 240, 240, 240);
    ZoomOutHLumoBtn = Placed(NewButton("ZoomOutHLumoBtn", "zoom-out-horizontal", ZoomFrame), 705, 240, 240, 240);
    ZoomInVLumoBtn = Placed(NewButton("ZoomInVLumoBtn", "zoom-in-vertical", ZoomFrame), 60, 540, 240, 240);
    ZoomOutVLumoBtn = Placed(NewButton("ZoomOutVLumoBtn", "zoom-out-vertical", ZoomFrame), 705, 540, 240, 240);
}

void SensorProjFrm::MakeRunControls()
{
    MeasureFrame = Placed(NewFrame("MeasureFrame", "Measure", MeasWavePic), 60, 3330, 1125, 1310);
    SampleRateFrame = Placed(NewFrame("SampleRateFrame", "Sample", MeasureFrame), 60, 225, 1005, 660);
    TxtSample = Placed(Named<TextBox>("TxtSample", SampleRateFrame), 60, 255, 600, 330);
    Labperiodunit = Placed(Named<QLabel>("Labperiodunit", QStringLiteral("S"), SampleRateFrame), 735, 255, 210, 330);
    RecordLumoBtn = Placed(NewButton("RecordLumoBtn", "record", MeasureFrame), 120, 960, 240, 240);
    EndLumoBtn = Placed(NewButton("EndLumoBtn", "end", MeasureFrame), 765, 960, 240, 240);
    connect(EndLumoBtn, &LumoButton::MouseClick, this, &SensorProjFrm::EndLumoBtn_MouseClick);

    ReplayFrame = Placed(NewFrame("ReplayFrame", "Replay", MeasWavePic), 60, 4680, 1125, 900);
    ReplayLumoBtn = Placed(NewButton("ReplayLumoBtn", "replay", ReplayFrame), 120, 240, 240, 240);
    PauseLumoBtn = Placed(NewButton("PauseLumoBtn", "pause", ReplayFrame), 420, 240, 240, 240);
    StopLumoBtn = Placed(NewButton("StopLumoBtn", "stop", ReplayFrame), 765, 240, 240, 240);
    LowLumoBtn = Placed(NewButton("LowLumoBtn", "slower", ReplayFrame), 120, 540, 240, 240);
    FastLumoBtn = Placed(NewButton("FastLumoBtn", "faster", ReplayFrame), 765, 540, 240, 240);

    DataFrame = Placed(NewFrame("DataFrame", "Data", MeasWavePic), 60, 5625, 1125, 600);
    exportCom = Placed(NewButton("exportCom", "export", DataFrame), 120, 240, 885, 270);
}

void SensorProjFrm::MakeTimePictures()
{
    PicTime_Value_Background = Named<PictureBox>("PicTime_Value_Background", MeasWavePic);
    PicTime_Value = Named<PictureBox>("PicTime_Value", PicTime_Value_Background);
    FlatScrollBar1 = Named<::FlatScrollBar>("FlatScrollBar1", Qt::Vertical, PicTime_Value_Background);
    LabValX = Named<QLabel>("LabValX", PicTime_Value);
    LabValY = Named<QLabel>("LabValY", PicTime_Value);
    PicTime_Meas_Background = Named<PictureBox>("PicTime_Meas_Background", MeasWavePic);
    PicTime_Meas = Named<PictureBox>("PicTime_Meas", PicTime_Meas_Background);
    FlatScrollBar2 = Named<::FlatScrollBar>("FlatScrollBar2", Qt::Vertical, PicTime_Meas_Background);
    LabMeasX = Named<QLabel>("LabMeasX", PicTime_Meas);
    LabMeasY = Named<QLabel>("LabMeasY", PicTime_Meas);
    for (QLabel *label : {LabValX, LabValY, LabMeasX, LabMeasY})
        label->hide();
    Recordpic = Placed(Named<QWidget>("Recordpic", MeasWavePic), 360, 8040, 4695, 330);
    HScroll1 = Named<::FlatScrollBar>("HScroll1", Qt::Horizontal, Recordpic);
}

void SensorProjFrm::MakeTimers()
{
    Timer1 = Named<QTimer>("Timer1", this);
    Timer1->setTimerType(Qt::PreciseTimer);
    Timer1->start(500);
    Timer2 = Named<QTimer>("Timer2", this);
    Timer2->setTimerType(Qt::PreciseTimer);
    Timer2->setInterval(1000);
}

void SensorProjFrm::closeEvent(QCloseEvent *event)
{
    bool cancel = false;
    emit CloseAsked(cancel);
    if (cancel) {
        event->ignore();
        return;
    }
    QMdiSubWindow::closeEvent(event);
}

bool SensorProjFrm::event(QEvent *event)
{
    const bool handled = QMdiSubWindow::event(event);
    if (event->type() == QEvent::ParentChange && mdiArea())
        connect(mdiArea(), &QMdiArea::subWindowActivated, this, &SensorProjFrm::FollowActivation, Qt::UniqueConnection);
    return handled;
}

// The area is asked, for it has settled by then: a window that loses its state is still the area's active child, and
// loses it to other programs too.
void SensorProjFrm::FollowActivation(const QMdiSubWindow *now)
{
    if (!now)
        return;
    const bool before = std::exchange(m_active, now == this);
    if (before && !m_active)
        emit Deactivated();
}

void SensorProjFrm::focusInEvent(QFocusEvent *event)
{
    QMdiSubWindow::focusInEvent(event);
    // When the frame comes back from behind a box, the toolkit gives the keyboard to the window itself.
    QWidget *control = Client->focusWidget();
    if (event->reason() == Qt::ActiveWindowFocusReason && control != nullptr)
        control->setFocus(Qt::ActiveWindowFocusReason);
}

void SensorProjFrm::mousePressEvent(QMouseEvent *event)
{
    m_grip.reset();
    if (isMinimized() && event->button() == Qt::LeftButton && OnTitle(event->position().toPoint()))
        m_grip = event->position().toPoint();
    QMdiSubWindow::mousePressEvent(event);
}

// The toolkit moves no minimised window. It stays within the area, where it can be found again.
void SensorProjFrm::mouseMoveEvent(QMouseEvent *event)
{
    QMdiSubWindow::mouseMoveEvent(event);
    if (!m_grip || !isMinimized() || !(event->buttons() & Qt::LeftButton))
        return;
    const QPoint place = mapToParent(event->position().toPoint()) - *m_grip;
    const QSize room = parentWidget()->size() - size();
    move(std::clamp(place.x(), 0, std::max(room.width(), 0)), std::clamp(place.y(), 0, std::max(room.height(), 0)));
}

// Nor does the toolkit restore a minimised window that it does not move.
void SensorProjFrm::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (isMinimized() && event->button() == Qt::LeftButton && OnTitle(event->position().toPoint())) {
        showNormal();
        return;
    }
    QMdiSubWindow::mouseDoubleClickEvent(event);
}

/// Whether a point lies on the title bar, beside its buttons.
bool SensorProjFrm::OnTitle(QPoint point) const
{
    QStyleOptionTitleBar bar;
    bar.initFrom(this);
    bar.titleBarFlags = windowFlags();
    bar.titleBarState = static_cast<int>(windowState());
    bar.subControls = QStyle::SC_All;
    return style()->hitTestComplexControl(QStyle::CC_TitleBar, &bar, point, this) == QStyle::SC_TitleBarLabel;
}

bool SensorProjFrm::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Client && event->type() == QEvent::Resize)
        emit Resized();
    return QMdiSubWindow::eventFilter(watched, event);
}
