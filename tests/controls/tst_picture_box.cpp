/// @file
/// The picture box: an image that stays, and its drawing context.
#include "controls/PictureBox.h"

#include <QPainter>
#include <QSet>
#include <QTest>

namespace {

const ColourRef Red = Rgb(255, 0, 0);
const ColourRef Navy = Rgb(0, 0, 128);

bool IsFilledWith(const QImage &image, ColourRef colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != ColourFromRef(colour))
                return false;
        }
    }
    return true;
}

int PixelsOf(const QImage &image, ColourRef colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == ColourFromRef(colour);
    }
    return count;
}

} // namespace

class PictureBoxTest : public QObject {
    Q_OBJECT

private slots:
    void the_image_has_the_size_of_the_widget();
    void a_hidden_box_has_its_new_size_at_once();
    void a_box_without_area_keeps_one_pixel();
    void a_new_size_clears_to_the_back_colour();
    void showing_does_not_clear();
    void clear_fills_with_the_back_colour();
    void a_line_sets_both_of_its_ends();
    void a_line_of_width_two_is_two_pixels_wide();
    void a_dot_sets_one_pixel_and_none_outside();
    void text_is_drawn_in_the_fore_colour();
    void the_context_draws_on_the_image();
    void the_context_outlives_a_new_size();
    void the_context_ends_with_the_box();
    void the_widget_shows_the_image();
    void a_picture_pixel_is_four_sharp_pixels_on_a_double_screen();
};

void PictureBoxTest::the_image_has_the_size_of_the_widget()
{
    PictureBox box;
    box.resize(60, 25);
    box.show();
    QCOMPARE(box.Image().size(), QSize(60, 25));
    QCOMPARE(box.Image().format(), QImage::Format_RGB32);
    QCOMPARE(box.ScaleWidth(), 60);
    QCOMPARE(box.ScaleHeight(), 25);
}

void PictureBoxTest::a_hidden_box_has_its_new_size_at_once()
{
    QWidget page;
    PictureBox box(&page);
    box.setGeometry(40, 10, 120, 50);
    QCOMPARE(box.Image().size(), QSize(120, 50));
    box.setGeometry(40, 10, 180, 75);
    QVERIFY(SetPixel(box.Context(), 179, 74, Red));
    QVERIFY(!SetPixel(box.Context(), 180, 74, Red));
}

void PictureBoxTest::a_box_without_area_keeps_one_pixel()
{
    PictureBox box;
    box.resize(0, 0);
    QCOMPARE(box.Image().size(), QSize(1, 1));
}

void PictureBoxTest::a_new_size_clears_to_the_back_colour()
{
    PictureBox box;
    box.resize(10, 10);
    box.Clear();
    QVERIFY(IsFilledWith(box.Image(), 0));
    box.BackColour = Navy;
    box.Dot(3, 3);
    box.resize(12, 10);
    QVERIFY(IsFilledWith(box.Image(), Navy));
}

void PictureBoxTest::showing_does_not_clear()
{
    PictureBox box;
    box.resize(200, 40);
    box.ForeColour = Red;
    box.Dot(3, 4);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    box.Refresh();
    QCOMPARE(box.Image().size(), QSize(200, 40));
    QCOMPARE(box.Image().pixelColor(3, 4), QColor(Qt::red));
}

void PictureBoxTest::clear_fills_with_the_back_colour()
{
    PictureBox box;
    box.resize(10, 10);
    box.BackColour = Rgb(1, 2, 3);
    box.Clear();
    QCOMPARE(box.Image().pixelColor(9, 9), QColor(1, 2, 3));
    QVERIFY(IsFilledWith(box.Image(), 0x030201));
}

void PictureBoxTest::a_line_sets_both_of_its_ends()
{
    PictureBox box;
    box.resize(20, 20);
    box.Clear();
    box.ForeColour = Red;
    box.Line(2, 5, 10, 5);
    QCOMPARE(PixelsOf(box.Image(), Red), 9);
    QCOMPARE(box.Image().pixelColor(2, 5), QColor(Qt::red));
    QCOMPARE(box.Image().pixelColor(10, 5), QColor(Qt::red));
}

void PictureBoxTest::a_line_of_width_two_is_two_pixels_wide()
{
    PictureBox box;
    box.resize(20, 20);
    box.Clear();
    box.ForeColour = Red;
    box.DrawWidth = 2;
    box.Line(2, 5, 10, 5);
    QCOMPARE(PixelsOf(box.Image(), Red), 18);
    QCOMPARE(box.Image().pixelColor(6, 4), QColor(Qt::red));
}

void PictureBoxTest::a_dot_sets_one_pixel_and_none_outside()
{
    PictureBox box;
    box.resize(20, 20);
    box.Clear();
    box.ForeColour = Red;
    box.Dot(19, 0);
    box.Dot(20, 0);
    box.Dot(-1, 5);
    QCOMPARE(PixelsOf(box.Image(), Red), 1);
    QCOMPARE(box.Image().pixelColor(19, 0), QColor(Qt::red));
}

void PictureBoxTest::text_is_drawn_in_the_fore_colour()
{
    PictureBox box;
    box.resize(40, 20);
    box.Clear();
    box.ForeColour = Red;
    box.Text(10, 5, QStringLiteral("8"));
    const int drawn = PixelsOf(box.Image(), Red);
    QVERIFY(drawn > 4);
    QCOMPARE(drawn + PixelsOf(box.Image(), 0), 40 * 20); // no shades in between
    for (int y = 0; y < 20; ++y)
        QCOMPARE(box.Image().pixelColor(9, y), QColor(Qt::black)); // nothing left of the place given
}

void PictureBoxTest::the_context_draws_on_the_image()
{
    PictureBox box;
    box.resize(20, 20);
    box.Clear();
    QVERIFY(box.Context() != 0);
    QVERIFY(SetPixel(box.Context(), 7, 8, Red));
    QCOMPARE(box.Image().pixelColor(7, 8), QColor(Qt::red));
}

void PictureBoxTest::the_context_outlives_a_new_size()
{
    PictureBox box;
    box.resize(20, 20);
    const SurfaceHandle context = box.Context();
    box.show();
    box.resize(50, 30);
    QCOMPARE(box.Context(), context);
    QVERIFY(SetPixel(context, 49, 29, Red));
    QCOMPARE(box.Image().pixelColor(49, 29), QColor(Qt::red));
}

void PictureBoxTest::the_context_ends_with_the_box()
{
    SurfaceHandle context = 0;
    {
        PictureBox box;
        context = box.Context();
        QVERIFY(SetPixel(context, 0, 0, Red));
    }
    QVERIFY(!SetPixel(context, 0, 0, Red));
}

void PictureBoxTest::the_widget_shows_the_image()
{
    PictureBox box;
    box.resize(30, 20);
    box.BackColour = Navy;
    box.Clear();
    box.ForeColour = Red;
    box.Line(0, 0, 29, 19);
    const QImage shown = box.grab().toImage().convertToFormat(QImage::Format_RGB32);
    QCOMPARE(shown, box.Image());
}

void PictureBoxTest::a_picture_pixel_is_four_sharp_pixels_on_a_double_screen()
{
    PictureBox box;
    box.resize(30, 20);
    box.BackColour = Navy;
    box.Clear();
    box.ForeColour = Red;
    box.Line(0, 0, 29, 19);
    QImage screen(60, 40, QImage::Format_RGB32);
    screen.setDevicePixelRatio(2);
    box.render(&screen);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x)
            QCOMPARE(screen.pixelColor(x, y), box.Image().pixelColor(x / 2, y / 2));
    }
}

QTEST_MAIN(PictureBoxTest)
#include "tst_picture_box.moc"
