/// @file
/// The scroll bar: what it tells of the user's moves, of drags and of the program.
#include "controls/BesideAText.h"
#include "controls/FlatScrollBar.h"

#include <QStyleOptionSlider>
#include <QTest>

namespace {

/// A bar that tells where its parts are.
class ProbedBar : public FlatScrollBar {
public:
    using FlatScrollBar::FlatScrollBar;

    QRect Part(QStyle::SubControl part) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_ScrollBar, &option, part, this);
    }
};

void ShowBar(FlatScrollBar &bar, int width, int height)
{
    bar.resize(width, height);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
}

/// The positions that a bar tells of.
struct Told {
    explicit Told(FlatScrollBar &bar)
    {
        QObject::connect(&bar, &FlatScrollBar::Moved, &bar, [this, &bar] { Moved.append(bar.value()); });
        QObject::connect(&bar, &FlatScrollBar::Changed, &bar, [this, &bar] { Changed.append(bar.value()); });
    }

    QList<int> Moved;
    QList<int> Changed;
};

} // namespace

class ScrollBarTest : public QObject {
    Q_OBJECT

private slots:
    void the_scroll_bar_is_silent_for_the_program();
    void the_scroll_bar_cuts_to_its_range();
    void the_dragged_thumb_tells_each_move_and_the_end_as_one_change();
    void a_drag_back_to_where_it_began_changes_nothing();
    void a_bar_that_is_let_go_ends_its_drag();
    void the_middle_button_drags_from_the_pointer_on();
    void what_the_program_sets_is_where_the_next_change_begins();
    void a_press_beside_the_thumb_moves_by_the_large_change();
    void a_click_on_the_scroll_bar_takes_the_focus_data();
    void a_click_on_the_scroll_bar_takes_the_focus();
};

void ScrollBarTest::the_scroll_bar_is_silent_for_the_program()
{
    FlatScrollBar bar(Qt::Vertical);
    const Told told(bar);
    bar.SetUp(0, 100, 1, 10, 40);
    QCOMPARE(bar.minimum(), 0);
    QCOMPARE(bar.maximum(), 100);
    QCOMPARE(bar.singleStep(), 1);
    QCOMPARE(bar.pageStep(), 10);
    QCOMPARE(bar.value(), 40);
    bar.SetValue(60);
    bar.SetRange(0, 50);
    QCOMPARE(bar.value(), 50);
    QCOMPARE(told.Moved, QList<int>());
    QCOMPARE(told.Changed, QList<int>());
    QCOMPARE(bar.orientation(), Qt::Vertical);
}

void ScrollBarTest::the_scroll_bar_cuts_to_its_range()
{
    FlatScrollBar bar(Qt::Horizontal);
    bar.SetUp(-5, 7, 1, 2, 99);
    QCOMPARE(bar.value(), 7);
    bar.SetValue(-6);
    QCOMPARE(bar.value(), -5);
}

void ScrollBarTest::the_dragged_thumb_tells_each_move_and_the_end_as_one_change()
{
    ProbedBar bar(Qt::Vertical);
    bar.SetUp(0, 1000, 1, 100, 0);
    ShowBar(bar, 15, 300);
    Told told(bar);
    const QPoint thumb = bar.Part(QStyle::SC_ScrollBarSlider).center();
    QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, thumb);
    QCOMPARE(told.Moved, QList<int>());
    QTest::mouseMove(&bar, thumb + QPoint(0, 40));
    QCOMPARE(told.Moved.size(), 1);
    QTest::mouseMove(&bar, thumb + QPoint(0, 90));
    QCOMPARE(told.Moved.size(), 2);
    QVERIFY(0 < told.Moved[0] && told.Moved[0] < told.Moved[1]);
    QCOMPARE(told.Changed, QList<int>());
    QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, thumb + QPoint(0, 90));
    QCOMPARE(told.Moved.size(), 2);
    QCOMPARE(told.Changed, QList<int>{told.Moved[1]});
}

void ScrollBarTest::a_drag_back_to_where_it_began_changes_nothing()
{
    ProbedBar bar(Qt::Horizontal);
    bar.SetUp(0, 1000, 1, 100, 0);
    ShowBar(bar, 300, 24);
    Told told(bar);
    const QPoint thumb = bar.Part(QStyle::SC_ScrollBarSlider).center();
    QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, thumb);
    QTest::mouseMove(&bar, thumb + QPoint(60, 0));
    QTest::mouseMove(&bar, thumb);
    QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, thumb);
    QCOMPARE(told.Moved.size(), 2);
    QCOMPARE(told.Moved[1], 0);
    QCOMPARE(told.Changed, QList<int>());
}

void ScrollBarTest::a_bar_that_is_let_go_ends_its_drag()
{
    ProbedBar bar(Qt::Horizontal);
    bar.SetUp(0, 1000, 1, 100, 0);
    ShowBar(bar, 300, 24);
    Told told(bar);
    const QPoint thumb = bar.Part(QStyle::SC_ScrollBarSlider).center();
    QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, thumb);
    QTest::mouseMove(&bar, thumb + QPoint(60, 0));
    bar.Release();
    QCOMPARE(told.Changed, told.Moved);
    QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, thumb + QPoint(60, 0));
    QCOMPARE(told.Changed.size(), 1);
}

void ScrollBarTest::the_middle_button_drags_from_the_pointer_on()
{
    ProbedBar bar(Qt::Horizontal);
    bar.SetUp(0, 1000, 1, 100, 0);
    ShowBar(bar, 300, 24);
    Told told(bar);
    const QPoint place = bar.Part(QStyle::SC_ScrollBarAddPage).center();
    QTest::mousePress(&bar, Qt::MiddleButton, Qt::NoModifier, place);
    QCOMPARE(told.Moved.size(), 1);
    QVERIFY(bar.isSliderDown());
    QCOMPARE(told.Changed, QList<int>());
    QTest::mouseRelease(&bar, Qt::MiddleButton, Qt::NoModifier, place);
    QCOMPARE(told.Changed, told.Moved);
}

void ScrollBarTest::what_the_program_sets_is_where_the_next_change_begins()
{
    FlatScrollBar bar(Qt::Horizontal);
    bar.SetUp(0, 1000, 1, 100, 40);
    const Told told(bar);
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    bar.SetValue(40);
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    bar.SetRange(0, 40);
    bar.SetRange(0, 1000);
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(told.Changed, QList<int>({41, 41, 41}));
}

void ScrollBarTest::a_press_beside_the_thumb_moves_by_the_large_change()
{
    ProbedBar bar(Qt::Horizontal);
    bar.SetUp(0, 1000, 1, 100, 500);
    ShowBar(bar, 300, 24);
    const Told told(bar);
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.Part(QStyle::SC_ScrollBarAddPage).center());
    QCOMPARE(bar.value(), 600);
    QCOMPARE(told.Moved, QList<int>{600});
    QCOMPARE(told.Changed, QList<int>{600});
    QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.Part(QStyle::SC_ScrollBarSubLine).center());
    QCOMPARE(bar.value(), 599);
    QCOMPARE(told.Moved, QList<int>({600, 599}));
    QCOMPARE(told.Changed, QList<int>({600, 599}));
}

void ScrollBarTest::a_click_on_the_scroll_bar_takes_the_focus_data()
{
    QTest::addColumn<int>("part");
    QTest::newRow("arrow") << static_cast<int>(QStyle::SC_ScrollBarAddLine);
    QTest::newRow("beside the thumb") << static_cast<int>(QStyle::SC_ScrollBarAddPage);
    QTest::newRow("thumb") << static_cast<int>(QStyle::SC_ScrollBarSlider);
}

void ScrollBarTest::a_click_on_the_scroll_bar_takes_the_focus()
{
    QFETCH(const int, part);
    auto *bar = new ProbedBar(Qt::Horizontal);
    bar->setFixedSize(300, 24);
    bar->SetUp(0, 1000, 1, 100, 0);
    BesideAText beside(bar);
    QVERIFY(beside.HasFocus());
    QStringList order;
    connect(beside.text, &TextBox::LostFocus, bar, [&] { order.append(QStringLiteral("left")); });
    connect(bar, &FlatScrollBar::Moved, bar, [&] { order.append(QStringLiteral("moved")); });
    const auto subControl = static_cast<QStyle::SubControl>(part);
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->Part(subControl).center());
    QVERIFY(bar->hasFocus());
    QCOMPARE(order.value(0), QStringLiteral("left"));
    QCOMPARE(order.value(1), subControl == QStyle::SC_ScrollBarSlider ? QString() : QStringLiteral("moved"));
}

QTEST_MAIN(ScrollBarTest)
#include "tst_bars_scroll.moc"
