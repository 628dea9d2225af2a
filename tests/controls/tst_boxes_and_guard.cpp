/// @file
/// Message boxes, the barrier against untrapped errors, and the test's own answers to boxes.
#include "controls/Boxes.h"
#include "controls/FlatScrollBar.h"
#include "controls/Guard.h"
#include "controls/ListCombo.h"
#include "controls/LumoButton.h"
#include "controls/TextBox.h"
#include "controls/UpDown.h"
#include "platform/RuntimeError.h"
#include "support/BoxAnswer.h"

#include <QAction>
#include <QDialog>
#include <QMainWindow>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <array>
#include <stdexcept>

using ShowRoutine = std::function<void(const QString &)>;
Q_DECLARE_METATYPE(ShowRoutine)
using MakeRoutine = std::function<QWidget *()>;
Q_DECLARE_METATYPE(MakeRoutine)

/// Signals as windows have them.
class Sender : public QObject {
    Q_OBJECT

signals:
    void CloseAsked(int slot, bool &cancel);
    void Pressed(Qt::MouseButton button, QPoint position);
    void Named(const QString &name);
};

namespace {

class ProbedBar : public FlatScrollBar {
public:
    using FlatScrollBar::FlatScrollBar;
    using FlatScrollBar::repeatAction;
};

/// A control below a text box that has the keyboard, in an active window. A press on the control leaves the text.
class BelowAText {
public:
    explicit BelowAText(QWidget *control)
    {
        control->setFixedSize(60, 60);
        auto *column = new QVBoxLayout(&window);
        column->addWidget(text);
        column->addWidget(control);
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            QTest::qFail("the window becomes active", __FILE__, __LINE__);
        text->setFocus();
    }

    /// Presses a place; a box comes up when the text is left. The button of the mouse is released over the box, or held
    /// until it has closed.
    void PressUnderBox(QPoint place, bool held = false)
    {
        const auto warning =
            QObject::connect(text, &TextBox::LostFocus, text, [] { ExclamationBox(QStringLiteral("Error data! ")); });
        const WhenModal answer(QStringLiteral("MessageBox"), [held](QWidget *box) {
            if (!held)
                QTest::mouseRelease(box->windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
            box->close();
        });
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, place);
        QTRY_VERIFY(answer.Came());
        QObject::disconnect(warning);
        if (held)
            QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, place);
    }

    QWidget window;
    TextBox *text = new TextBox;
};

} // namespace

class BoxesAndGuardTest : public QObject {
    Q_OBJECT

private slots:
    void a_notice_has_its_icon_and_ok_data();
    void a_notice_has_its_icon_and_ok();
    void a_box_can_have_a_title_of_its_own();
    void ok_and_cancel_answer_a_question();
    void yes_and_no_answer_a_question();
    void closing_a_question_is_cancel_or_no();
    void return_takes_ok_or_yes();
    void text_is_shown_as_it_stands();
    void a_box_stands_over_the_active_dialogue();
    void while_no_window_is_active_a_box_stands_over_the_frame();
    void a_box_leaves_no_button_sunk_data();
    void a_box_leaves_no_button_sunk();
    void a_box_leaves_no_scroll_bar_running();
    void an_untrapped_error_is_shown_and_the_program_goes_on();
    void another_exception_is_not_caught();
    void a_connection_hands_arguments_on_by_reference();
    void a_routine_may_take_the_first_arguments_only();
    void a_routine_may_take_no_arguments();
    void a_timer_can_be_connected();
    void an_error_in_a_connected_routine_does_not_cross_the_signal();
    void an_unexpected_box_fails_the_test();
    void a_missing_box_fails_the_test();
};

void BoxesAndGuardTest::a_notice_has_its_icon_and_ok_data()
{
    QTest::addColumn<ShowRoutine>("show");
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::newRow("exclamation") << ShowRoutine([](const QString &text) { ExclamationBox(text); })
                                 << QMessageBox::Warning;
    QTest::newRow("information") << ShowRoutine([](const QString &text) { InformationBox(text); })
                                 << QMessageBox::Information;
    QTest::newRow("plain") << ShowRoutine([](const QString &text) { PlainBox(text); }) << QMessageBox::NoIcon;
}

void BoxesAndGuardTest::a_notice_has_its_icon_and_ok()
{
    QFETCH(const ShowRoutine, show);
    QFETCH(const QMessageBox::Icon, icon);
    BoxAnswers answers({QMessageBox::Ok});
    show(QStringLiteral("Error data! "));
    QCOMPARE(answers.Shown().size(), 1);
    const ShownBox box = answers.Shown().first();
    QCOMPARE(box.Title, QStringLiteral("Ostrakon"));
    QCOMPARE(box.Text, QStringLiteral("Error data! "));
    QCOMPARE(box.Icon, icon);
    QCOMPARE(box.Buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void BoxesAndGuardTest::a_box_can_have_a_title_of_its_own()
{
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Cancel});
    InformationBox(QStringLiteral("text"), QStringLiteral("提示"));
    AskOkCancel(QStringLiteral("text"), QStringLiteral("Warning"));
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("提示"));
    QCOMPARE(answers.Shown()[1].Title, QStringLiteral("Warning"));
}

void BoxesAndGuardTest::ok_and_cancel_answer_a_question()
{
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Cancel});
    QVERIFY(AskOkCancel(QStringLiteral("first")));
    QVERIFY(!AskOkCancel(QStringLiteral("second")));
    QCOMPARE(answers.Texts(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown()[0].Buttons, QMessageBox::Ok | QMessageBox::Cancel);
}

void BoxesAndGuardTest::yes_and_no_answer_a_question()
{
    BoxAnswers answers({QMessageBox::Yes, QMessageBox::No});
    QVERIFY(AskYesNo(QStringLiteral("first")));
    QVERIFY(!AskYesNo(QStringLiteral("second")));
    QCOMPARE(answers.Shown()[1].Icon, QMessageBox::Question);
    QCOMPARE(answers.Shown()[1].Buttons, QMessageBox::Yes | QMessageBox::No);
}

void BoxesAndGuardTest::closing_a_question_is_cancel_or_no()
{
    {
        WhenModal close(QStringLiteral("MessageBox"), [](QWidget *box) { box->close(); });
        QVERIFY(!AskOkCancel(QStringLiteral("text")));
    }
    {
        WhenModal escape(QStringLiteral("MessageBox"), [](QWidget *box) { QTest::keyClick(box, Qt::Key_Escape); });
        QVERIFY(!AskYesNo(QStringLiteral("text")));
    }
    WhenModal close(QStringLiteral("MessageBox"), [](QWidget *box) { box->close(); });
    ExclamationBox(QStringLiteral("text"));
    QVERIFY(close.Came());
}

void BoxesAndGuardTest::return_takes_ok_or_yes()
{
    {
        WhenModal answer(QStringLiteral("MessageBox"), [](QWidget *box) { QTest::keyClick(box, Qt::Key_Return); });
        QVERIFY(AskOkCancel(QStringLiteral("text")));
    }
    WhenModal answer(QStringLiteral("MessageBox"), [](QWidget *box) { QTest::keyClick(box, Qt::Key_Return); });
    QVERIFY(AskYesNo(QStringLiteral("text")));
}

void BoxesAndGuardTest::text_is_shown_as_it_stands()
{
    Qt::TextFormat format = Qt::AutoText;
    QString text;
    WhenModal answer(QStringLiteral("MessageBox"), [&](QWidget *widget) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        format = box->textFormat();
        text = box->text();
        box->close();
    });
    PlainBox(QStringLiteral("<b>a</b> & b"));
    QCOMPARE(format, Qt::PlainText);
    QCOMPARE(text, QStringLiteral("<b>a</b> & b"));
}

void BoxesAndGuardTest::a_box_stands_over_the_active_dialogue()
{
    QDialog dialog;
    dialog.setObjectName(QStringLiteral("Under"));
    QWidget *parent = nullptr;
    WhenModal up(QStringLiteral("Under"), [&](QWidget *under) {
        WhenModal answer(QStringLiteral("MessageBox"), [&](QWidget *box) {
            parent = box->parentWidget();
            box->close();
        });
        PlainBox(QStringLiteral("text"));
        under->close();
    });
    dialog.exec();
    QCOMPARE(parent, &dialog);
}

void BoxesAndGuardTest::while_no_window_is_active_a_box_stands_over_the_frame()
{
    const std::array<QMainWindow, 5> hidden; // the toolkit lists windows in no order
    QMainWindow frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    // So it is when a dialogue has closed and the window manager has not yet gone back to the frame.
    QApplication::setActiveWindow(nullptr);
    QWidget *parent = nullptr;
    const WhenModal answer(QStringLiteral("MessageBox"), [&](QWidget *box) {
        parent = box->parentWidget();
        box->close();
    });
    PlainBox(QStringLiteral("text"));
    QCOMPARE(parent, &frame);
}

void BoxesAndGuardTest::a_box_leaves_no_button_sunk_data()
{
    QTest::addColumn<MakeRoutine>("make");
    QTest::addColumn<bool>("held");
    for (const bool held : {false, true}) {
        const char *end = held ? "released behind the box" : "released over the box";
        QTest::addRow("push button %s", end) << MakeRoutine([]() -> QWidget * { return new QPushButton; }) << held;
        QTest::addRow("image button %s", end) << MakeRoutine([]() -> QWidget * { return new LumoButton; }) << held;
        QTest::addRow("half of up and down %s", end) << MakeRoutine([]() -> QWidget * { return new UpDown; }) << held;
    }
}

void BoxesAndGuardTest::a_box_leaves_no_button_sunk()
{
    QFETCH(const MakeRoutine, make);
    QFETCH(const bool, held);
    QWidget *control = make();
    BelowAText below(control);
    auto *button = qobject_cast<QAbstractButton *>(control);
    if (button == nullptr)
        button = control->findChild<QAbstractButton *>(QStringLiteral("Up"));
    const QPoint place = button->mapTo(&below.window, button->rect().center());
    const QSignalSpy pressed(button, &QAbstractButton::pressed);
    const QSignalSpy clicked(button, &QAbstractButton::clicked);
    below.PressUnderBox(place, held);
    QTRY_COMPARE(pressed.count(), 1);
    QTRY_VERIFY(!button->isDown());
    QCOMPARE(clicked.count(), 0);
    QTest::mouseClick(below.window.windowHandle(), Qt::LeftButton, {}, place);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(!button->isDown());
}

void BoxesAndGuardTest::a_box_leaves_no_scroll_bar_running()
{
    auto *bar = new ProbedBar(Qt::Horizontal);
    bar->SetUp(1, 500, 1, 10, 1);
    BelowAText below(bar);
    const QPoint arrow = bar->mapTo(&below.window, QPoint(bar->width() - 5, bar->height() / 2));
    below.PressUnderBox(arrow);
    QTRY_COMPARE(bar->value(), 2);
    QTRY_COMPARE(bar->repeatAction(), QScrollBar::SliderNoAction);
    QTest::mouseClick(below.window.windowHandle(), Qt::LeftButton, {}, arrow);
    QCOMPARE(bar->value(), 3);
}

void BoxesAndGuardTest::an_untrapped_error_is_shown_and_the_program_goes_on()
{
    BoxAnswers answers({QMessageBox::Ok});
    bool after = false;
    RunGuarded([&] {
        throw RuntimeError(ErrorNumber::DivisionByZero);
        after = true;
    });
    QVERIFY(!after);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown()[0].Text, ErrorDescription(11));
    QVERIFY(!answers.Shown()[0].Text.isEmpty());
    RunGuarded([&] { after = true; });
    QVERIFY(after);
}

void BoxesAndGuardTest::another_exception_is_not_caught()
{
    BoxAnswers none;
    QVERIFY_THROWS_EXCEPTION(std::logic_error, RunGuarded([] { throw std::logic_error("defect"); }));
}

void BoxesAndGuardTest::a_connection_hands_arguments_on_by_reference()
{
    TextBox box;
    ConnectGuarded(&box, &TextBox::KeyPress, &box, [](int &key) {
        if (key == 'x')
            key = 0;
    });
    QTest::keyClicks(&box, QStringLiteral("axb"));
    QCOMPARE(box.text(), QStringLiteral("ab"));

    Sender sender;
    ConnectGuarded(&sender, &Sender::CloseAsked, &sender, [](int slot, bool &cancel) { cancel = slot == 4; });
    bool cancel = false;
    emit sender.CloseAsked(4, cancel);
    QVERIFY(cancel);
    emit sender.CloseAsked(3, cancel);
    QVERIFY(!cancel);
}

void BoxesAndGuardTest::a_routine_may_take_the_first_arguments_only()
{
    Sender sender;
    Qt::MouseButton seen = Qt::NoButton;
    ConnectGuarded(&sender, &Sender::Pressed, &sender, [&](Qt::MouseButton button) { seen = button; });
    emit sender.Pressed(Qt::RightButton, QPoint(1, 2));
    QCOMPARE(seen, Qt::RightButton);

    QString name;
    ConnectGuarded(&sender, &Sender::Named, &sender, [&](const QString &text) { name = text; });
    emit sender.Named(QStringLiteral("Project1"));
    QCOMPARE(name, QStringLiteral("Project1"));
}

void BoxesAndGuardTest::a_routine_may_take_no_arguments()
{
    int runs = 0;
    QAction action;
    ConnectGuarded(&action, &QAction::triggered, &action, [&runs] { ++runs; });
    action.trigger();
    ListCombo list;
    list.AddItem(QStringLiteral("V"));
    ConnectGuarded(&list, &ListCombo::Click, &list, [&runs] { ++runs; });
    list.SetListIndex(0);
    Sender sender;
    ConnectGuarded(&sender, &Sender::Pressed, &sender, [&runs] { ++runs; });
    emit sender.Pressed(Qt::LeftButton, QPoint());
    QCOMPARE(runs, 3);
}

void BoxesAndGuardTest::a_timer_can_be_connected()
{
    QTimer timer;
    int ticks = 0;
    ConnectGuarded(&timer, &QTimer::timeout, &timer, [&ticks] { ++ticks; });
    timer.start(1);
    QTRY_VERIFY(ticks > 1);
}

void BoxesAndGuardTest::an_error_in_a_connected_routine_does_not_cross_the_signal()
{
    BoxAnswers answers({QMessageBox::Ok});
    QPushButton button;
    ConnectGuarded(&button, &QPushButton::clicked, &button, [] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    button.click();
    QCOMPARE(answers.Texts(), QStringList{ErrorDescription(13)});
}

void BoxesAndGuardTest::an_unexpected_box_fails_the_test()
{
    {
        BoxAnswers none;
        QEXPECT_FAIL("", "The box below has no answer in store.", Continue);
        const bool answer = AskYesNo(QStringLiteral("unexpected"));
        QVERIFY(!answer);
        QCOMPARE(none.Texts(), QStringList{QStringLiteral("unexpected")});
        QCOMPARE(none.Shown()[0].Answer, QMessageBox::NoButton);
    }
    BoxAnswers wrong({QMessageBox::Yes});
    QEXPECT_FAIL("", "The box below has no button Yes.", Continue);
    PlainBox(QStringLiteral("only OK"));
    QCOMPARE(wrong.Left(), 0);
}

void BoxesAndGuardTest::a_missing_box_fails_the_test()
{
    {
        BoxAnswers answers({QMessageBox::Ok});
        QCOMPARE(answers.Left(), 1);
        QEXPECT_FAIL("", "Nobody shows a box.", Continue);
    }
    {
        WhenModal answer(QStringLiteral("Nothing"), [](QWidget *) {});
        QVERIFY(!answer.Came());
        QEXPECT_FAIL("", "Nobody opens a dialogue.", Continue);
    }
}

QTEST_MAIN(BoxesAndGuardTest)
#include "tst_boxes_and_guard.moc"
