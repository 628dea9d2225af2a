/// @file
/// The list of pictures: by place, by key, and in order.
#include "controls/ImageList.h"
#include "support/ErrorOf.h"

#include <QPixmap>
#include <QTest>

namespace {

/// A picture of one colour.
QIcon Picture(Qt::GlobalColor colour)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

QColor ColourOf(const QIcon &picture)
{
    return picture.pixmap(8).toImage().pixelColor(4, 4);
}

} // namespace

class ImageListTest : public QObject {
    Q_OBJECT

private slots:
    void pictures_are_found_by_place_and_by_key();
    void a_picture_put_in_between_moves_the_others_on();
    void pictures_without_a_key_share_none();
    void a_place_without_a_picture_is_an_error_data();
    void a_place_without_a_picture_is_an_error();
    void a_gap_and_a_key_taken_are_errors();
    void an_unknown_key_is_an_error();
};

void ImageListTest::pictures_are_found_by_place_and_by_key()
{
    ImageList list;
    QCOMPARE(list.Count(), 0);
    list.Add(1, QStringLiteral("First"), Picture(Qt::red));
    list.Add(2, QStringLiteral("Second"), Picture(Qt::blue));
    QCOMPARE(list.Count(), 2);
    QCOMPARE(ColourOf(list.Image(1)), QColor(Qt::red));
    QCOMPARE(ColourOf(list.Image(2)), QColor(Qt::blue));
    QCOMPARE(ColourOf(list.Image(QStringLiteral("First"))), QColor(Qt::red));
    QCOMPARE(ColourOf(list.Image(QStringLiteral("Second"))), QColor(Qt::blue));
}

void ImageListTest::a_picture_put_in_between_moves_the_others_on()
{
    ImageList list;
    list.Add(1, QStringLiteral("First"), Picture(Qt::red));
    list.Add(2, QStringLiteral("Last"), Picture(Qt::blue));
    list.Add(2, QStringLiteral("Middle"), Picture(Qt::green));
    QCOMPARE(ColourOf(list.Image(1)), QColor(Qt::red));
    QCOMPARE(ColourOf(list.Image(2)), QColor(Qt::green));
    QCOMPARE(ColourOf(list.Image(3)), QColor(Qt::blue));
    QCOMPARE(ColourOf(list.Image(QStringLiteral("Last"))), QColor(Qt::blue));
}

void ImageListTest::pictures_without_a_key_share_none()
{
    ImageList list;
    list.Add(1, QString(), Picture(Qt::red));
    list.Add(2, QString(), Picture(Qt::blue));
    QCOMPARE(list.Count(), 2);
    QCOMPARE(ErrorOf([&] { list.Image(QString()); }), 5);
}

void ImageListTest::a_place_without_a_picture_is_an_error_data()
{
    QTest::addColumn<int>("place");
    QTest::newRow("0") << 0;
    QTest::newRow("behind the last") << 2;
    QTest::newRow("-1") << -1;
}

void ImageListTest::a_place_without_a_picture_is_an_error()
{
    QFETCH(const int, place);
    ImageList list;
    list.Add(1, QStringLiteral("Only"), Picture(Qt::red));
    QCOMPARE(ErrorOf([&] { list.Image(place); }), 9);
}

void ImageListTest::a_gap_and_a_key_taken_are_errors()
{
    ImageList list;
    list.Add(1, QStringLiteral("Only"), Picture(Qt::red));
    QCOMPARE(ErrorOf([&] { list.Add(0, QStringLiteral("New"), Picture(Qt::blue)); }), 9);
    QCOMPARE(ErrorOf([&] { list.Add(3, QStringLiteral("New"), Picture(Qt::blue)); }), 9);
    QCOMPARE(ErrorOf([&] { list.Add(2, QStringLiteral("Only"), Picture(Qt::blue)); }), 5);
    QCOMPARE(list.Count(), 1);
}

void ImageListTest::an_unknown_key_is_an_error()
{
    ImageList list;
    list.Add(1, QStringLiteral("Only"), Picture(Qt::red));
    QCOMPARE(ErrorOf([&] { list.Image(QStringLiteral("only")); }), 5);
}

QTEST_MAIN(ImageListTest)
#include "tst_image_list.moc"
