/// @file
/// Up-down control, tab strip and image button.
#include "controls/BesideAText.h"
#include "controls/Boxes.h"
#include "controls/LumoButton.h"
#include "controls/TabStrip.h"
#include "controls/UpDown.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"

#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

namespace {

QToolButton *StepButton(UpDown &control, const char *name)
{
    return control.findChild<QToolButton *>(QString::fromLatin1(name));
}

QList<int> Numbers(const QSignalSpy &spy)
{
    QList<int> numbers;
    for (const QList<QVariant> &arguments : spy)
        numbers.append(arguments.first().toInt());
    return numbers;
}

void SetCaptions(TabStrip &strip, const QStringList &captions)
{
    for (int tab = 1; tab <= captions.size(); ++tab)
        strip.SetCaption(tab, captions[tab - 1]);
}

const QStringList English{QStringLiteral("Reference Curve"), QStringLiteral("Edit Data"),
                          QStringLiteral("Measure Curve")};
const QStringList Chinese{QStringLiteral("传感器参考曲线"), QStringLiteral("传感器数据编辑"),
                          QStringLiteral("传感器测量曲线")};

} // namespace

class BarsTest : public QObject {
    Q_OBJECT

private slots:
    void up_down_reports_the_change_and_then_the_step();
    void up_down_keeps_its_range();
    void up_down_repeats_while_it_is_held();
    void a_box_ends_the_repetition();
    void a_click_on_up_down_takes_the_focus_data();
    void a_click_on_up_down_takes_the_focus();
    void a_tab_click_selects_and_reports();
    void the_selected_tab_can_be_clicked_again();
    void only_the_left_button_chooses_a_tab();
    void keys_change_the_tab_with_a_click();
    void selecting_by_program_is_silent();
    void a_tab_that_is_not_there_is_out_of_range();
    void tabs_lie_along_the_lower_edge();
    void captions_are_shown_whole_data();
    void captions_are_shown_whole();
    void the_button_is_pressed_by_mouse_and_keys_data();
    void the_button_is_pressed_by_mouse_and_keys();
    void a_disabled_button_says_nothing();
    void the_caption_is_tool_tip_and_accessible_name();
    void the_picture_follows_the_size_of_the_button();
    void the_button_is_reached_by_tab();
};

void BarsTest::up_down_reports_the_change_and_then_the_step()
{
    UpDown control;
    control.resize(20, 30);
    control.show();
    QStringList order;
    connect(&control, &UpDown::UpClick, &control, [&] { order.append(QStringLiteral("up")); });
    connect(&control, &UpDown::DownClick, &control, [&] { order.append(QStringLiteral("down")); });
    connect(&control, &UpDown::Changed, &control, [&] { order.append(QStringLiteral("changed")); });
    QTest::mouseClick(StepButton(control, "Up"), Qt::LeftButton);
    QTest::mouseClick(StepButton(control, "Down"), Qt::LeftButton);
    QCOMPARE(order.join(u' '), QStringLiteral("changed up changed down"));
    QVERIFY(StepButton(control, "Up")->geometry().bottom() < StepButton(control, "Down")->geometry().top());
    QVERIFY(StepButton(control, "Up")->height() > 10);
    control.setEnabled(false);
    QTest::mouseClick(StepButton(control, "Up"), Qt::LeftButton);
    QCOMPARE(order.size(), 4);
}

void BarsTest::up_down_keeps_its_range()
{
    UpDown control;
    control.SetRange(3, 500);
    QCOMPARE(control.Minimum(), 3);
    QCOMPARE(control.Maximum(), 500);
}

void BarsTest::up_down_repeats_while_it_is_held()
{
    UpDown control;
    control.resize(40, 60);
    control.show();
    QVERIFY(QTest::qWaitForWindowExposed(&control));
    QSignalSpy up(&control, &UpDown::UpClick);
    QTest::mousePress(control.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 15));
    QTRY_VERIFY(up.count() >= 3);
    QTest::mouseRelease(control.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 15));
    QVERIFY(!StepButton(control, "Up")->isDown());
}

void BarsTest::a_box_ends_the_repetition()
{
    UpDown control;
    control.resize(40, 60);
    control.show();
    QVERIFY(QTest::qWaitForWindowExposed(&control));
    QSignalSpy down(&control, &UpDown::DownClick);
    connect(&control, &UpDown::DownClick, &control, [] { ExclamationBox(QStringLiteral("Error data! ")); });
    // The box gets the release of the mouse, as it is in front then.
    WhenModal answer(QStringLiteral("MessageBox"), [](QWidget *box) {
        QTest::mouseRelease(box->windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
        box->close();
    });
    QTest::mousePress(control.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 45));
    QTRY_VERIFY(answer.Came());
    QTRY_VERIFY(!StepButton(control, "Down")->isDown());
    QCOMPARE(down.count(), 1);
}

void BarsTest::a_click_on_up_down_takes_the_focus_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Up") << QStringLiteral("Up");
    QTest::newRow("Down") << QStringLiteral("Down");
}

void BarsTest::a_click_on_up_down_takes_the_focus()
{
    QFETCH(const QString, button);
    auto *control = new UpDown;
    control->setFixedSize(40, 60);
    BesideAText beside(control);
    QVERIFY(beside.HasFocus());
    QStringList order;
    connect(beside.text, &TextBox::LostFocus, control, [&] { order.append(QStringLiteral("left")); });
    connect(control, &UpDown::Changed, control, [&] { order.append(QStringLiteral("changed")); });
    QTest::mouseClick(control->findChild<QToolButton *>(button), Qt::LeftButton);
    QVERIFY(!beside.text->hasFocus());
    QVERIFY(control->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(order.join(u' '), QStringLiteral("left changed")); // the text is left before the step
}

void BarsTest::a_tab_click_selects_and_reports()
{
    TabStrip strip(3);
    SetCaptions(strip, English);
    strip.resize(600, 300);
    strip.show();
    QVERIFY(QTest::qWaitForWindowExposed(&strip));
    QList<int> clicked;
    QList<int> selected;
    connect(&strip, &TabStrip::Click, &strip, [&](int tab) {
        clicked.append(tab);
        selected.append(strip.SelectedTab());
    });
    for (const int tab : {3, 2, 1})
        QTest::mouseClick(strip.windowHandle(), Qt::LeftButton, Qt::NoModifier, strip.TabCentre(tab));
    QCOMPARE(clicked, QList<int>({3, 2, 1}));
    QCOMPARE(selected, clicked);
}

void BarsTest::the_selected_tab_can_be_clicked_again()
{
    TabStrip strip(3);
    SetCaptions(strip, English);
    strip.resize(600, 300);
    strip.show();
    strip.SelectTab(2);
    QSignalSpy click(&strip, &TabStrip::Click);
    QTest::mouseClick(strip.windowHandle(), Qt::LeftButton, Qt::NoModifier, strip.TabCentre(2));
    QTest::mouseClick(strip.windowHandle(), Qt::LeftButton, Qt::NoModifier, strip.TabCentre(2));
    QCOMPARE(Numbers(click), QList<int>({2, 2}));
}

void BarsTest::only_the_left_button_chooses_a_tab()
{
    TabStrip strip(3);
    SetCaptions(strip, English);
    strip.resize(600, 300);
    strip.show();
    QSignalSpy click(&strip, &TabStrip::Click);
    QTest::mouseClick(strip.windowHandle(), Qt::RightButton, Qt::NoModifier, strip.TabCentre(2));
    QTest::mouseClick(strip.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(strip.width() - 2, strip.height() - 2));
    QCOMPARE(click.count(), 0);
    QCOMPARE(strip.SelectedTab(), 1);
}

void BarsTest::keys_change_the_tab_with_a_click()
{
    TabStrip strip(3);
    SetCaptions(strip, English);
    QSignalSpy click(&strip, &TabStrip::Click);
    auto *bar = strip.findChild<QTabBar *>();
    QCOMPARE(bar->focusPolicy(), Qt::StrongFocus);
    QTest::keyClick(bar, Qt::Key_Right);
    QCOMPARE(strip.SelectedTab(), 2);
    QTest::keyClick(bar, Qt::Key_Right);
    QTest::keyClick(bar, Qt::Key_Left);
    QCOMPARE(Numbers(click), QList<int>({2, 3, 2}));
}

void BarsTest::selecting_by_program_is_silent()
{
    TabStrip strip(3);
    QSignalSpy click(&strip, &TabStrip::Click);
    QCOMPARE(strip.SelectedTab(), 1);
    strip.SelectTab(3);
    QCOMPARE(strip.SelectedTab(), 3);
    strip.SetCaption(3, QStringLiteral("Measure Curve"));
    QCOMPARE(strip.Caption(3), QStringLiteral("Measure Curve"));
    QCOMPARE(click.count(), 0);
}

void BarsTest::a_tab_that_is_not_there_is_out_of_range()
{
    TabStrip strip(3);
    for (const int tab : {0, 4})
        QCOMPARE(ErrorOf([&] { strip.SelectTab(tab); }), 9);
    QCOMPARE(strip.SelectedTab(), 1);
}

void BarsTest::tabs_lie_along_the_lower_edge()
{
    TabStrip strip(3);
    SetCaptions(strip, English);
    strip.resize(600, 300); // hidden yet: nothing has told the strip of its size
    const int top = strip.height() - strip.FixedTabHeight();
    QVERIFY(strip.FixedTabHeight() > 10);
    QPoint last;
    for (int tab = 1; tab <= 3; ++tab) {
        const QPoint centre = strip.TabCentre(tab);
        QVERIFY(centre.y() >= top && centre.y() < strip.height());
        QVERIFY(centre.x() > last.x());
        last = centre;
    }
    strip.show();
    auto *bar = strip.findChild<QTabBar *>();
    QCOMPARE(bar->geometry(), QRect(0, top, 600, strip.FixedTabHeight()));
    QCOMPARE(bar->shape(), QTabBar::RoundedSouth);
}

void BarsTest::captions_are_shown_whole_data()
{
    QTest::addColumn<QStringList>("captions");
    QTest::newRow("English") << English;
    QTest::newRow("Chinese") << Chinese;
}

void BarsTest::captions_are_shown_whole()
{
    QFETCH(const QStringList, captions);
    TabStrip strip(3);
    SetCaptions(strip, captions);
    strip.resize(600, 300);
    strip.show();
    QVERIFY(QTest::qWaitForWindowExposed(&strip));
    auto *bar = strip.findChild<QTabBar *>();
    QCOMPARE(bar->elideMode(), Qt::ElideNone);
    for (int tab = 0; tab < 3; ++tab) {
        QCOMPARE(bar->tabText(tab), captions[tab]);
        QVERIFY(bar->tabRect(tab).width() > bar->fontMetrics().horizontalAdvance(captions[tab]));
    }
    QVERIFY(bar->tabRect(2).right() < 600);
}

void BarsTest::the_button_is_pressed_by_mouse_and_keys_data()
{
    QTest::addColumn<std::function<void(QWidget *)>>("press");
    using Routine = std::function<void(QWidget *)>;
    QTest::newRow("mouse") << Routine([](QWidget *button) { QTest::mouseClick(button, Qt::LeftButton); });
    QTest::newRow("Space") << Routine([](QWidget *button) { QTest::keyClick(button, Qt::Key_Space); });
    QTest::newRow("Return") << Routine([](QWidget *button) { QTest::keyClick(button, Qt::Key_Return); });
    QTest::newRow("Enter") << Routine([](QWidget *button) { QTest::keyClick(button, Qt::Key_Enter); });
}

void BarsTest::the_button_is_pressed_by_mouse_and_keys()
{
    QFETCH(const std::function<void(QWidget *)>, press);
    LumoButton button;
    QSignalSpy click(&button, &LumoButton::MouseClick);
    press(&button);
    QCOMPARE(click.count(), 1);
}

void BarsTest::a_disabled_button_says_nothing()
{
    LumoButton button;
    button.setEnabled(false);
    QSignalSpy click(&button, &LumoButton::MouseClick);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    button.click();
    QCOMPARE(click.count(), 0);
}

void BarsTest::the_caption_is_tool_tip_and_accessible_name()
{
    LumoButton button;
    button.SetCaption(QStringLiteral("Export"));
    QCOMPARE(button.Caption(), QStringLiteral("Export"));
    QCOMPARE(button.toolTip(), QStringLiteral("Export"));
    QCOMPARE(button.accessibleName(), QStringLiteral("Export"));
    QCOMPARE(button.text(), QString());
}

void BarsTest::the_picture_follows_the_size_of_the_button()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("picture.png"));
    QImage picture(64, 64, QImage::Format_RGB32);
    picture.fill(Qt::magenta);
    QVERIFY(picture.save(file));

    LumoButton button;
    button.SetPicture(file);
    button.resize(18, 16);
    button.show();
    QCOMPARE(button.iconSize(), QSize(14, 12));
    const QImage shown = button.grab().toImage();
    QCOMPARE(shown.pixelColor(9, 8), QColor(Qt::magenta));
    button.resize(59, 18);
    QCOMPARE(button.iconSize(), QSize(55, 14));
    button.resize(2, 2);
    QCOMPARE(button.iconSize(), QSize(1, 1));
}

void BarsTest::the_button_is_reached_by_tab()
{
    QWidget window;
    QHBoxLayout row(&window);
    LumoButton first;
    LumoButton second;
    row.addWidget(&first);
    row.addWidget(&second);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTRY_VERIFY(first.hasFocus());
    QTest::keyClick(&first, Qt::Key_Tab);
    QVERIFY(second.hasFocus());
}

QTEST_MAIN(BarsTest)
#include "tst_bars.moc"
