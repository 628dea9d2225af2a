/// @file
/// The built program beside a virtual multimeter, on a screen of its own, used with mouse and keyboard from Connect to
/// End.
///
/// The test knows where a control stands from the same windows, made here without being shown: both processes lay them
/// out alike. What happened it sees on the screen only.

#include "curve/EditDataFrm.h"
#include "display/ProjectViewModule.h"
#include "display/SensorProjFrm.h"
#include "link/LinkState.h"
#include "project/LifecycleModule.h"
#include "project/ProjectTable.h"
#include "project/SensorPropertyFrm.h"
#include "shell/FrameModule.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"
#include "support/VirtualScreen.h"
#include "tour/XHands.h"

#include <QApplication>
#include <QMenuBar>
#include <QScreen>
#include <QTest>

#include <memory>

namespace {

constexpr int WindowLimit = 20000; // ms for a window to appear, with sanitizers on a busy machine
constexpr int SampleLimitMs = 15000;
const QString FrameTitle = QStringLiteral("Ostrakon For KV7000 Series");
const QColor IndicatorGreen(0x2E, 0xC0, 0x4A);
const QColor TraceYellow(255, 255, 0);

QImage ScreenPicture()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage();
}

QColor ScreenColour(QPoint point)
{
    return ScreenPicture().pixelColor(point);
}

/// Lays a window out as if it were on the screen, and keeps it off it.
void LayOut(QWidget &window, QSize size)
{
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.resize(size);
    window.show();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

} // namespace

class tst_e2e_measurement : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void a_user_measures_from_connect_to_end();
    void a_second_instance_ends_silently();
    void the_close_box_ends_the_program();

private:
    void StartProgram(QProcess &process);
    /// Where a control of the frame stands on the screen.
    QPoint OnScreen(const QWidget &control, QPoint inside) const;
    QPoint OnScreen(const QWidget &control) const { return OnScreen(control, control.rect().center()); }
    QPoint ToolButton(const QString &key) const;
    QPoint Tab(int tab) const;
    int TraceLength(const PictureBox &picture) const;
    void DefineSensor();
    void EnterPoints();

    std::unique_ptr<MainFrm> m_frame; ///< the reference, never on the screen
    SensorProjFrm *m_project = nullptr;
    QPoint m_place; ///< of the program's frame on the screen
    QProcess m_program;
};

void tst_e2e_measurement::StartProgram(QProcess &process)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"), QStringLiteral(VIRTUAL_MULTIMETER_FOLDER));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QStringLiteral(OSTRAKON_PROGRAM), QStringList());
    QVERIFY(process.waitForStarted());
}

void tst_e2e_measurement::init()
{
    StartProgram(m_program);
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(FrameTitle), WindowLimit);
    m_place = *XHands::FindWindow(FrameTitle);

    m_frame = std::make_unique<MainFrm>();
    MainForm = m_frame.get();
    LoadFrame();
    LayOut(*m_frame, QSize(1280, 900));
    SensorPropertyFrm dialogue;
    NewProject(dialogue);
    m_project = ProjectForm[0];
    QCoreApplication::processEvents();
}

void tst_e2e_measurement::cleanup()
{
    if (m_program.state() != QProcess::NotRunning) {
        m_program.kill();
        m_program.waitForFinished();
    }
    ClosingAll = true;
    m_frame.reset();
    MainForm = nullptr;
}

QPoint tst_e2e_measurement::OnScreen(const QWidget &control, QPoint inside) const
{
    return m_place + control.mapTo(m_frame.get(), inside);
}

QPoint tst_e2e_measurement::ToolButton(const QString &key) const
{
    return OnScreen(*m_frame->tbToolBar->widgetForAction(m_frame->ToolBarButton(key)));
}

QPoint tst_e2e_measurement::Tab(int tab) const
{
    return OnScreen(*m_project->TabStrip, m_project->TabStrip->TabCentre(tab));
}

/// How many columns of a picture on the screen hold the curve's colour.
int tst_e2e_measurement::TraceLength(const PictureBox &picture) const
{
    const QImage screen = ScreenPicture();
    const QRect place(OnScreen(picture, QPoint(0, 0)), picture.size());
    int columns = 0;
    for (int x = place.left(); x <= place.right(); ++x) {
        for (int y = place.top(); y <= place.bottom(); ++y) {
            if (screen.pixelColor(x, y) == TraceYellow) {
                ++columns;
                break;
            }
        }
    }
    return columns;
}

void tst_e2e_measurement::DefineSensor()
{
    SensorPropertyFrm reference;
    const QString title = QStringLiteral("Sensor Property");
    XHands::Click(ToolButton(QStringLiteral("New")));
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(title), WindowLimit);
    const QPoint place = *XHands::FindWindow(title);
    XHands::Click(place + reference.Txtname->geometry().center());
    XHands::Type(QStringLiteral("Oven"));
    XHands::Click(place + reference.Combtype->geometry().center());
    XHands::Key(QStringLiteral("Down"));
    XHands::Key(QStringLiteral("Return"));
    XHands::Click(place + reference.CombInunit->geometry().center());
    XHands::Key(QStringLiteral("Down"));
    XHands::Key(QStringLiteral("Return"));
    XHands::Click(place + reference.ComdEnter->geometry().center());
    QTRY_VERIFY_WITH_TIMEOUT(!XHands::FindWindow(title), WindowLimit);
    // A maximised project puts its name into the frame's title.
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(FrameTitle + QStringLiteral(" - [Project-1]")), WindowLimit);
}

void tst_e2e_measurement::EnterPoints()
{
    EditDataFrm reference;
    LoadEditDataLanguage(reference);
    LayOut(reference, reference.sizeHint());
    const auto inDialogue = [&](const QWidget &control, QPoint inside) {
        return XHands::FindWindow(QStringLiteral("EditData - Add Data")).value_or(QPoint()) +
               control.mapTo(&reference, inside);
    };
    const QPoint belowLines(m_project->EditDataView->width() / 2, m_project->EditDataView->height() - 20);
    XHands::Click(OnScreen(*m_project->EditDataView, belowLines), 1, 2);
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(QStringLiteral("EditData - Add Data")), WindowLimit);
    XHands::Click(inDialogue(*reference.VolTxt, reference.VolTxt->rect().center()));
    XHands::Type(QStringLiteral("0"));
    XHands::Click(inDialogue(*reference.TemperateTxt, reference.TemperateTxt->rect().center()));
    XHands::Type(QStringLiteral("0"));
    XHands::Click(inDialogue(*reference.SegmentOpt[0], QPoint(10, 10)));
    XHands::Click(
        inDialogue(*reference.UpDown1, QPoint(reference.UpDown1->width() / 2, reference.UpDown1->height() / 4)));
    XHands::Click(inDialogue(*reference.VolTxt, reference.VolTxt->rect().center()));
    XHands::Type(QStringLiteral("12.209"));
    XHands::Click(inDialogue(*reference.TemperateTxt, reference.TemperateTxt->rect().center()));
    XHands::Type(QStringLiteral("300"));
    XHands::Key(QStringLiteral("Return"));
    QTRY_VERIFY_WITH_TIMEOUT(!XHands::FindWindow(QStringLiteral("EditData - Add Data")), WindowLimit);

    XHands::Click(OnScreen(*m_project->EditDataView, belowLines), 3);
    for (int entry = 0; entry < 5; ++entry) // Add, Modify, Delete, Delete All, Apply
        XHands::Key(QStringLiteral("Down"));
    XHands::Key(QStringLiteral("Return"));
}

void tst_e2e_measurement::a_user_measures_from_connect_to_end()
{
    QVERIFY(ScreenColour(OnScreen(*m_frame->picLED_ON)) != IndicatorGreen);
    XHands::Click(ToolButton(QStringLiteral("Connect")));
    QTRY_COMPARE_WITH_TIMEOUT(ScreenColour(OnScreen(*m_frame->picLED_ON)), IndicatorGreen, WindowLimit);

    DefineSensor();
    if (QTest::currentTestFailed())
        return;
    EnterPoints();
    if (QTest::currentTestFailed())
        return;

    XHands::Click(Tab(3));
    SwitchProjectPage(0, 3);
    m_project->TabStrip->SelectTab(3);
    ResizeProjectView(*m_project);
    // The graticule of the measure page is on the screen, and no curve yet.
    QTRY_COMPARE_WITH_TIMEOUT(ScreenColour(OnScreen(*m_project->PicTime_Value, QPoint(0, 5))), QColor(0, 255, 0),
                              WindowLimit);
    QCOMPARE(TraceLength(*m_project->PicTime_Value), 0);

    XHands::Click(OnScreen(*m_project->RecordLumoBtn));
    QTRY_VERIFY_WITH_TIMEOUT(TraceLength(*m_project->PicTime_Value) > 0, SampleLimitMs);
    const int early = TraceLength(*m_project->PicTime_Value);
    QTRY_VERIFY_WITH_TIMEOUT(TraceLength(*m_project->PicTime_Value) > 2 * early, SampleLimitMs);
    QVERIFY(TraceLength(*m_project->PicTime_Meas) > early);

    // After the end the bar that scrolls the record appears, where there was only the page before.
    const QPoint bar = OnScreen(*m_project->Recordpic);
    const QColor page = ScreenColour(bar);
    XHands::Click(OnScreen(*m_project->EndLumoBtn));
    QTRY_VERIFY_WITH_TIMEOUT(ScreenColour(bar) != page, WindowLimit);
    QVERIFY(TraceLength(*m_project->PicTime_Value) > 0);

    // File, Exit: up from the first entry to the last one. The program ends at once, without a question.
    XHands::Key(QStringLiteral("alt+f"));
    XHands::Key(QStringLiteral("Up"));
    XHands::Key(QStringLiteral("Return"));
    QVERIFY(m_program.waitForFinished(WindowLimit));
    QCOMPARE(m_program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program.exitCode(), 0);
}

void tst_e2e_measurement::a_second_instance_ends_silently()
{
    QProcess second;
    StartProgram(second);
    QVERIFY(second.waitForFinished(WindowLimit));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(m_program.state(), QProcess::Running);
}

void tst_e2e_measurement::the_close_box_ends_the_program()
{
    XHands::Click(ToolButton(QStringLiteral("Connect")));
    QTRY_COMPARE_WITH_TIMEOUT(ScreenColour(OnScreen(*m_frame->picLED_ON)), IndicatorGreen, WindowLimit);
    DefineSensor();
    if (QTest::currentTestFailed())
        return;
    // With a project open the frame asks once; Cancel keeps it.
    XHands::Key(QStringLiteral("alt+F4"));
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(QStringLiteral("Warning")), WindowLimit);
    XHands::Key(QStringLiteral("Escape"));
    QTRY_VERIFY_WITH_TIMEOUT(!XHands::FindWindow(QStringLiteral("Warning")), WindowLimit);
    QCOMPARE(m_program.state(), QProcess::Running);

    XHands::Key(QStringLiteral("alt+F4"));
    QTRY_VERIFY_WITH_TIMEOUT(XHands::FindWindow(QStringLiteral("Warning")), WindowLimit);
    XHands::Key(QStringLiteral("Return"));
    QVERIFY(m_program.waitForFinished(WindowLimit));
    QCOMPARE(m_program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_program.exitCode(), 0);
}

int main(int argc, char **argv)
{
    const VirtualScreen screen;
    QApplication application(argc, argv);
    tst_e2e_measurement test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_e2e_measurement.moc"
