/// @file
/// The thumb of the scroll bar in the dialogue of reference rows: the rows on its way are passed over.
#include "curve/EditDataBench.h"

#include <QStyleOptionSlider>

namespace {

/// Drags the thumb of a bar, in as many moves as there are positions.
class ThumbDrag {
public:
    explicit ThumbDrag(FlatScrollBar *bar) : m_bar(bar)
    {
        QStyleOptionSlider option;
        option.initFrom(bar);
        option.orientation = bar->orientation();
        option.minimum = bar->minimum();
        option.maximum = bar->maximum();
        option.sliderPosition = bar->sliderPosition();
        option.sliderValue = bar->value();
        option.pageStep = bar->pageStep();
        const auto part = [&](QStyle::SubControl control) {
            return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, control, bar);
        };
        const QRect thumb = part(QStyle::SC_ScrollBarSlider);
        m_way = part(QStyle::SC_ScrollBarGroove).width() - thumb.width();
        m_start = m_place = thumb.center();
        m_position = bar->value();
        QTest::mousePress(bar, Qt::LeftButton, {}, m_place);
    }

    /// Moves the pointer to where the thumb stands at a position.
    void To(int position)
    {
        const double each = static_cast<double>(m_way) / (m_bar->maximum() - m_bar->minimum());
        m_place.setX(m_start.x() + qRound((position - m_position) * each));
        QTest::mouseMove(m_bar, m_place);
    }

    void Release() { QTest::mouseRelease(m_bar, Qt::LeftButton, {}, m_place); }

private:
    FlatScrollBar *m_bar;
    QPoint m_start;
    QPoint m_place;
    int m_position = 0; ///< where the drag begins
    int m_way = 0;      ///< pixels from the first position to the last
};

} // namespace

class EditDataScrollingTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void a_drag_loads_the_row_where_it_ends_and_no_other();
    void rows_that_a_drag_passes_keep_their_decimals();
    void a_drag_back_to_its_row_leaves_what_is_typed();
};

void EditDataScrollingTest::a_drag_loads_the_row_where_it_ends_and_no_other()
{
    EditDataBench bench;
    bench.PutFullTable();
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QStringLiteral("77"));
        QStringList loaded;
        QObject::connect(form.NOTxt, &TextBox::Change, &form, [&] { loaded.append(form.NOTxt->text()); });
        ThumbDrag drag(form.HScroll1);
        for (const int row : {100, 200, 300}) {
            drag.To(row);
            QVERIFY(form.HScroll1->value() > 1);
            QCOMPARE(form.NOTxt->text(), QStringLiteral("1"));
            QCOMPARE(form.TemperateTxt->text(), QStringLiteral("77.0"));
            QCOMPARE(form.WorkingTable[1].Output, 2.0);
        }
        drag.Release();
        const int row = form.HScroll1->value();
        QVERIFY(row > 200);
        QCOMPARE(loaded, QStringList{QString::number(row)});
        QCOMPARE(form.VolTxt->text(), QStringLiteral("%1.0").arg(row));
        QCOMPARE(form.WorkingTable[1].Output, 77.0);
    });
}

void EditDataScrollingTest::rows_that_a_drag_passes_keep_their_decimals()
{
    EditDataBench bench;
    const double third = 1.0 / 3;
    for (int row = 1; row <= ReferenceRowLimit; ++row)
        PutRow(0, row, row + third, row + third);
    RefreshReferenceLists();
    int end = 0;
    Changing(bench, 1, [&](EditDataFrm &form) {
        ThumbDrag drag(form.HScroll1);
        for (int row = 1; row <= 100; ++row)
            drag.To(row);
        drag.Release();
        end = form.HScroll1->value();
        QVERIFY(end > 10);
        Click(form.OkCmd);
    });
    for (int row = 1; row <= ReferenceRowLimit; ++row) {
        // The rows that were on display have gone through the format.
        const double fraction = row == 1 || row == end ? 0.333333 : third;
        QCOMPARE(ReferenceTable[0][row].Input, row + fraction);
        QCOMPARE(ReferenceTable[0][row].Output, row + fraction);
    }
}

void EditDataScrollingTest::a_drag_back_to_its_row_leaves_what_is_typed()
{
    EditDataBench bench;
    bench.PutFullTable();
    Changing(bench, 1, [](EditDataFrm &form) {
        TypeOver(form.TemperateTxt, QString());
        ThumbDrag drag(form.HScroll1);
        drag.To(100);
        QVERIFY(form.HScroll1->value() > 1);
        drag.To(1);
        drag.Release();
        QCOMPARE(form.HScroll1->value(), 1);
        // Nothing is saved, so that the half-filled row is not dropped yet.
        QCOMPARE(form.VolTxt->text(), QStringLiteral("1.0"));
        QVERIFY(form.WorkingTable[1].Used);
    });
}

QTEST_MAIN(EditDataScrollingTest)
#include "tst_edit_data_scrolling.moc"
