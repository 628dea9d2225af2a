/// @file
/// What the main frame owns: docking manager, status panels and serial control.
#include "controls/SerialControl.h"
#include "controls/StatusPanels.h"
#include "controls/TabDock.h"
#include "support/ErrorOf.h"

#include <QAbstractButton>
#include <QDateTime>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

const QString Sheet = QStringLiteral("ProjectSheet");

/// A frame as the program has it: child windows in the middle, a tree docked at its left edge.
struct Frame {
    Frame()
    {
        Window.resize(900, 600);
        Window.setCentralWidget(new QMdiArea(&Window));
        Dock.AddPanel(Sheet, Panel);
        Dock.SetLeftPanelWidth(3000);
    }

    QDockWidget *Widget() { return Window.findChild<QDockWidget *>(Sheet); }

    QMainWindow Window;
    TabDock Dock{&Window};
    QTreeWidget *Panel = new QTreeWidget(&Window);
};

/// The far end of a serial line: a pseudo terminal.
class FarEnd {
public:
    FarEnd() : m_handle(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (m_handle >= 0 && grantpt(m_handle) == 0 && unlockpt(m_handle) == 0)
            m_name = QString::fromLocal8Bit(ptsname(m_handle));
    }

    ~FarEnd() { Close(); }
    FarEnd(const FarEnd &) = delete;
    FarEnd &operator=(const FarEnd &) = delete;

    const QString &Name() const { return m_name; }
    QByteArray Read() const
    {
        std::array<char, 64> buffer{};
        const ssize_t count = read(m_handle, buffer.data(), buffer.size());
        return QByteArray(buffer.data(), std::max<ssize_t>(count, 0));
    }
    bool Write(const QByteArray &bytes) const
    {
        return write(m_handle, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size();
    }
    void Close()
    {
        if (m_handle >= 0)
            close(m_handle);
        m_handle = -1;
    }

private:
    int m_handle;
    QString m_name;
};

} // namespace

class FrameControlsTest : public QObject {
    Q_OBJECT

private slots:
    void a_panel_starts_hidden();
    void a_shown_panel_has_the_width_set_data();
    void a_shown_panel_has_the_width_set();
    void a_wider_frame_leaves_the_panel_its_width();
    void the_user_s_width_stays();
    void hiding_by_program_is_silent();
    void the_close_box_closes_the_panel();
    void a_panel_stays_at_the_left_edge();
    void a_panel_has_a_title();
    void an_unknown_panel_is_an_invalid_call();
    void status_panels_keep_their_order_and_keys();
    void an_unknown_status_panel_is_refused();
    void date_and_time_keep_themselves();
    void the_first_status_panel_takes_the_width();
    void a_passing_message_hides_no_panel();
    void a_closed_port_refuses_output();
    void a_serial_line_sends_and_receives();
    void a_broken_line_is_an_error_event();
};

void FrameControlsTest::a_panel_starts_hidden()
{
    Frame frame;
    frame.Window.show();
    QVERIFY(!frame.Dock.PanelVisible(Sheet));
    QVERIFY(!frame.Panel->isVisible());
}

void FrameControlsTest::a_shown_panel_has_the_width_set_data()
{
    QTest::addColumn<bool>("before");
    QTest::newRow("shown before the frame") << true;
    QTest::newRow("shown in the frame") << false;
}

void FrameControlsTest::a_shown_panel_has_the_width_set()
{
    QFETCH(const bool, before);
    Frame frame;
    if (before)
        frame.Dock.ShowPanel(Sheet);
    frame.Window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame.Window));
    frame.Dock.ShowPanel(Sheet);
    QVERIFY(frame.Dock.PanelVisible(Sheet));
    QTRY_COMPARE(frame.Panel->width(), 200);
    QCOMPARE(frame.Widget()->x(), 0);
}

void FrameControlsTest::a_wider_frame_leaves_the_panel_its_width()
{
    Frame frame;
    frame.Dock.ShowPanel(Sheet);
    frame.Window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame.Window));
    QTRY_COMPARE(frame.Panel->width(), 200);
    frame.Window.resize(1400, 800);
    QTRY_VERIFY(frame.Window.centralWidget()->width() > 1100);
    QCOMPARE(frame.Panel->width(), 200);
}

void FrameControlsTest::the_user_s_width_stays()
{
    Frame frame;
    frame.Window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame.Window));
    frame.Dock.ShowPanel(Sheet);
    QTRY_COMPARE(frame.Panel->width(), 200);
    // The gap between panel and middle is dragged 60 pixels to the right.
    const QPoint gap(201, 300);
    QTest::mouseMove(frame.Window.windowHandle(), gap);
    QTest::mousePress(frame.Window.windowHandle(), Qt::LeftButton, Qt::NoModifier, gap);
    QTest::mouseMove(frame.Window.windowHandle(), gap + QPoint(60, 0));
    QTest::mouseRelease(frame.Window.windowHandle(), Qt::LeftButton, Qt::NoModifier, gap + QPoint(60, 0));
    QTRY_COMPARE(frame.Panel->width(), 260);
    frame.Dock.HidePanel(Sheet);
    frame.Dock.ShowPanel(Sheet);
    QTRY_VERIFY(frame.Panel->isVisible());
    QTRY_COMPARE(frame.Panel->width(), 260);
}

void FrameControlsTest::hiding_by_program_is_silent()
{
    Frame frame;
    frame.Window.show();
    QSignalSpy closed(&frame.Dock, &TabDock::PanelClosed);
    frame.Dock.ShowPanel(Sheet);
    frame.Dock.HidePanel(Sheet);
    QVERIFY(!frame.Dock.PanelVisible(Sheet));
    frame.Window.close();
    QCOMPARE(closed.count(), 0);
}

void FrameControlsTest::the_close_box_closes_the_panel()
{
    Frame frame;
    frame.Window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame.Window));
    frame.Dock.ShowPanel(Sheet);
    QStringList closed;
    bool visible = true;
    connect(&frame.Dock, &TabDock::PanelClosed, &frame.Dock, [&](const QString &name) {
        closed.append(name);
        visible = frame.Dock.PanelVisible(name);
    });
    auto *box = frame.Widget()->findChild<QAbstractButton *>(QStringLiteral("qt_dockwidget_closebutton"));
    QVERIFY(box != nullptr);
    QTRY_VERIFY(box->isVisible());
    QTest::mouseClick(box, Qt::LeftButton);
    QCOMPARE(closed, QStringList{Sheet});
    QVERIFY(!visible);
    QVERIFY(!frame.Dock.PanelVisible(Sheet));
    frame.Dock.ShowPanel(Sheet);
    QVERIFY(frame.Dock.PanelVisible(Sheet));
    QVERIFY(frame.Panel->isVisible());
}

void FrameControlsTest::a_panel_stays_at_the_left_edge()
{
    Frame frame;
    QCOMPARE(frame.Widget()->features(), QDockWidget::DockWidgetFeatures(QDockWidget::DockWidgetClosable));
    QCOMPARE(frame.Widget()->allowedAreas(), Qt::DockWidgetAreas(Qt::LeftDockWidgetArea));
    QCOMPARE(frame.Window.dockWidgetArea(frame.Widget()), Qt::LeftDockWidgetArea);
}

void FrameControlsTest::a_panel_has_a_title()
{
    Frame frame;
    frame.Dock.SetPanelTitle(Sheet, QStringLiteral("工程"));
    QCOMPARE(frame.Widget()->windowTitle(), QStringLiteral("工程"));
}

void FrameControlsTest::an_unknown_panel_is_an_invalid_call()
{
    Frame frame;
    QCOMPARE(ErrorOf([&] { frame.Dock.ShowPanel(QStringLiteral("Sheet")); }), 5);
    QCOMPARE(ErrorOf([&] { frame.Dock.HidePanel(QString()); }), 5);
    QCOMPARE(ErrorOf([&] { frame.Dock.ShowPanel(Sheet); }), 0);
}

void FrameControlsTest::status_panels_keep_their_order_and_keys()
{
    StatusPanels bar;
    bar.AddPanel(QStringLiteral("Status"), QStringLiteral("Status"), 1);
    bar.AddPanel(QStringLiteral("ConnectStatus"), QStringLiteral("Unconnected"), 0);
    bar.AddDatePanel();
    bar.AddTimePanel();
    bar.resize(800, 24);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QCOMPARE(bar.PanelText(1), QStringLiteral("Status"));
    QCOMPARE(bar.PanelText(2), QStringLiteral("Unconnected"));
    QCOMPARE(bar.PanelOfKey(QStringLiteral("Status")), 1);
    QCOMPARE(bar.PanelOfKey(QStringLiteral("ConnectStatus")), 2);
    bar.SetPanelText(2, QStringLiteral("Connected"));
    QCOMPARE(bar.findChild<QLabel *>(QStringLiteral("ConnectStatus"))->text(), QStringLiteral("Connected"));
    const QList<QLabel *> labels = bar.findChildren<QLabel *>();
    QCOMPARE(labels.size(), 4);
    for (qsizetype panel = 1; panel < 4; ++panel)
        QVERIFY(labels[panel - 1]->geometry().right() < labels[panel]->geometry().left());
}

void FrameControlsTest::an_unknown_status_panel_is_refused()
{
    StatusPanels bar;
    bar.AddDatePanel();
    QCOMPARE(ErrorOf([&] { bar.PanelOfKey(QStringLiteral("Status")); }), 5);
    QCOMPARE(ErrorOf([&] { bar.PanelOfKey(QString()); }), 5);
    QCOMPARE(ErrorOf([&] { bar.SetPanelText(2, QString()); }), 9);
    QCOMPARE(ErrorOf([&] { bar.PanelText(0); }), 9);
}

void FrameControlsTest::date_and_time_keep_themselves()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QStringLiteral("ar_EG"))); // other digits, other order
    StatusPanels bar;
    bar.AddDatePanel();
    bar.AddTimePanel();
    QLocale::setDefault(before);
    const QDateTime now = QDateTime::currentDateTime();
    QTRY_COMPARE(bar.PanelText(1), now.date().toString(Qt::ISODate));
    QVERIFY(QRegularExpression(QStringLiteral("^[0-2][0-9]:[0-5][0-9]$")).match(bar.PanelText(2)).hasMatch());
    const int minutes = bar.PanelText(2).left(2).toInt() * 60 + bar.PanelText(2).mid(3).toInt();
    QVERIFY(qAbs(minutes - (now.time().hour() * 60 + now.time().minute())) <= 1);
    // A second later the clock has been there again.
    bar.SetPanelText(1, QString());
    bar.SetPanelText(2, QString());
    QTRY_COMPARE(bar.PanelText(1), QDate::currentDate().toString(Qt::ISODate));
    QVERIFY(!bar.PanelText(2).isEmpty());
}

void FrameControlsTest::the_first_status_panel_takes_the_width()
{
    StatusPanels bar;
    bar.AddPanel(QStringLiteral("Status"), QStringLiteral("Status"), 1);
    bar.AddPanel(QStringLiteral("ConnectStatus"), QStringLiteral("Unconnected"), 0);
    bar.resize(800, 24);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *status = bar.findChild<QLabel *>(QStringLiteral("Status"));
    const int width = status->width();
    QVERIFY(width > 500);
    bar.SetPanelText(1, QStringLiteral("The data has not been apllied"));
    QCoreApplication::processEvents();
    QCOMPARE(status->width(), width);
    QCOMPARE(status->frameShadow(), QFrame::Sunken);
}

void FrameControlsTest::a_passing_message_hides_no_panel()
{
    StatusPanels bar;
    bar.AddPanel(QStringLiteral("Status"), QStringLiteral("Status"), 1);
    bar.show();
    bar.showMessage(QStringLiteral("hint of a menu"));
    QVERIFY(bar.findChild<QLabel *>(QStringLiteral("Status"))->isVisible());
}

void FrameControlsTest::a_closed_port_refuses_output()
{
    SerialControl control;
    QSignalSpy events(&control, &SerialControl::OnComm);
    QCOMPARE(ErrorOf([&] { control.Output(QStringLiteral("*IDN?\r")); }), 8018);
    QCOMPARE(control.Input(), QString());
    QCOMPARE(events.count(), 0);
    QCOMPARE(control.CommEvent(), 0);
}

void FrameControlsTest::a_serial_line_sends_and_receives()
{
    const FarEnd far;
    QVERIFY(!far.Name().isEmpty());
    SerialControl control;
    QList<int> events;
    connect(&control, &SerialControl::OnComm, &control, [&] { events.append(control.CommEvent()); });
    control.Port().setPortName(far.Name());
    QVERIFY2(control.Port().open(QIODevice::ReadWrite), qPrintable(control.Port().errorString()));
    control.Output(QStringLiteral("VAL?\r"));
    QTRY_COMPARE(events, QList<int>{1});
    QCOMPARE(far.Read(), QByteArray("VAL?\r"));
    events.clear();
    QVERIFY(far.Write("12.5"));
    QTRY_COMPARE(events, QList<int>{2});
    QCOMPARE(control.Input(), QStringLiteral("12.5"));
    QCOMPARE(control.Input(), QString());
}

void FrameControlsTest::a_broken_line_is_an_error_event()
{
    FarEnd far;
    SerialControl control;
    QSignalSpy events(&control, &SerialControl::OnComm);
    control.Port().setPortName(far.Name());
    QVERIFY(control.Port().open(QIODevice::ReadWrite));
    far.Close();
    QTRY_VERIFY(events.count() > 0);
    QVERIFY(control.CommEvent() > 1000);
}

QTEST_MAIN(FrameControlsTest)
#include "tst_frame_controls.moc"
