/// @file
/// Lines and text, pixel by pixel. Expected lines are found by geometry, point by point: a pixel belongs to a line when
/// it is the one nearest to it in its column (in a mostly vertical line: its row).

#include "platform/PixelDrawing.h"

#include <QElapsedTimer>
#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QtTest>

#include <algorithm>
#include <limits>

namespace {

__extension__ using Wide = __int128;

constexpr ColourRef Yellow = 0x00FFFF;
constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();

struct Ends {
    std::int64_t X1, Y1, X2, Y2;
};

QImage Black(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::black);
    return image;
}

bool IsSet(const QImage &image, int x, int y)
{
    return image.pixel(x, y) != qRgb(0, 0, 0);
}

Wide Length(std::int64_t from, std::int64_t to)
{
    return to < from ? Wide(from) - to : Wide(to) - from;
}

bool IsBetween(std::int64_t value, std::int64_t from, std::int64_t to, LineEnd end)
{
    if (end == LineEnd::Left && value == to)
        return false;
    return value >= std::min(from, to) && value <= std::max(from, to);
}

/// Whether a pixel is the line's own, the second pixel of width 2 not counted.
bool IsNearest(const Ends &line, LineEnd end, std::int64_t x, std::int64_t y)
{
    if (Length(line.Y1, line.Y2) > Length(line.X1, line.X2))
        return IsNearest({line.Y1, line.X1, line.Y2, line.X2}, end, y, x);
    if (!IsBetween(x, line.X1, line.X2, end))
        return false;
    const Wide dx = Wide(line.X2) - line.X1;
    const Wide dy = Wide(line.Y2) - line.Y1;
    if (dx == 0)
        return y == line.Y1;
    const Wide turn = (dx < 0 ? -1 : 1) * (dy < 0 ? -1 : 1);
    // Twice the distance of the line from the pixel, times dx; positive when the line is further from the start.
    const Wide twice = 2 * (dy * (x - line.X1) - dx * (y - line.Y1)) * turn;
    return twice >= -Length(line.X1, line.X2) && twice < Length(line.X1, line.X2);
}

bool Belongs(const Ends &line, int width, LineEnd end, std::int64_t x, std::int64_t y)
{
    if (IsNearest(line, end, x, y))
        return true;
    const bool steep = Length(line.Y1, line.Y2) > Length(line.X1, line.X2);
    return width == 2 && IsNearest(line, end, steep ? x + 1 : x, steep ? y : y + 1);
}

/// The first pixel that differs from the geometry, empty when none does.
QString FirstFault(const QImage &image, const Ends &line, int width, LineEnd end)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (IsSet(image, x, y) != Belongs(line, width, end, x, y))
                return QStringLiteral("(%1, %2) to (%3, %4), width %5, at (%6, %7)")
                    .arg(line.X1)
                    .arg(line.Y1)
                    .arg(line.X2)
                    .arg(line.Y2)
                    .arg(width)
                    .arg(x)
                    .arg(y);
        }
    }
    return {};
}

void Draw(QImage &image, const Ends &line, int width, LineEnd end)
{
    DrawPixelLine(image, static_cast<std::int32_t>(line.X1), static_cast<std::int32_t>(line.Y1),
                  static_cast<std::int32_t>(line.X2), static_cast<std::int32_t>(line.Y2), Yellow, width, end);
}

/// The smallest rectangle that holds every pixel set.
QRect Ink(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (IsSet(image, x, y))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

QImage TextPicture(const QString &text, int x, int y, QSize size = QSize(120, 30))
{
    QImage image = Black(size.width(), size.height());
    DrawPictureText(image, x, y, text, Yellow);
    return image;
}

QFont LatinFont()
{
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setPixelSize(9);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferFullHinting);
    return font;
}

} // namespace

class TestPixelDrawing : public QObject {
    Q_OBJECT

private slots:
    /// Every line with ends on a grid that reaches three pixels beyond an image of 7 by 5 on each side.
    void everyShortLineTakesTheNearestPixels()
    {
        QImage image = Black(7, 5);
        for (int x1 = -3; x1 < 10; ++x1) {
            for (int y1 = -3; y1 < 8; ++y1) {
                for (int x2 = -3; x2 < 10; ++x2) {
                    for (int y2 = -3; y2 < 8; ++y2) {
                        const Ends line{x1, y1, x2, y2};
                        for (const int width : {1, 2}) {
                            for (const LineEnd end : {LineEnd::Included, LineEnd::Left}) {
                                image.fill(Qt::black);
                                Draw(image, line, width, end);
                                const QString fault = FirstFault(image, line, width, end);
                                QVERIFY2(fault.isEmpty(), qPrintable(fault));
                            }
                        }
                    }
                }
            }
        }
    }

    void aHalfRoundsAwayFromTheStart()
    {
        QImage image = Black(3, 2);
        DrawPixelLine(image, 0, 0, 2, 1, Yellow, 1, LineEnd::Included);
        QVERIFY(IsSet(image, 0, 0) && IsSet(image, 1, 1) && IsSet(image, 2, 1) && !IsSet(image, 1, 0));
        image.fill(Qt::black);
        DrawPixelLine(image, 2, 1, 0, 0, Yellow, 1, LineEnd::Included);
        QVERIFY(IsSet(image, 2, 1) && IsSet(image, 1, 0) && IsSet(image, 0, 0) && !IsSet(image, 1, 1));
    }

    void linesFromFarAwayAreClippedAndNotBent_data()
    {
        QTest::addColumn<int>("x1");
        QTest::addColumn<int>("y1");
        QTest::addColumn<int>("x2");
        QTest::addColumn<int>("y2");
        QTest::newRow("diagonal") << Lowest << Lowest << Highest << Highest;
        QTest::newRow("other diagonal") << Lowest << Highest << Highest << Lowest;
        QTest::newRow("along a row") << Lowest << 3 << Highest << 3;
        QTest::newRow("along a row, backwards") << Highest << 3 << Lowest << 3;
        QTest::newRow("along a column") << 4 << Highest << 4 << Lowest;
        QTest::newRow("almost along a row") << Lowest << -1 << Highest << 12;
        QTest::newRow("almost along a column") << -5 << Lowest << 20 << Highest;
        QTest::newRow("into the picture") << 2 << 2 << Highest << 5;
        QTest::newRow("out of the corner") << 0 << 0 << Lowest << Highest;
        QTest::newRow("steep upwards") << 5 << 8 << 1000 << Lowest;
        QTest::newRow("nowhere near") << Highest - 5 << Highest << Highest << Highest - 9;
        QTest::newRow("one step short of the diagonal") << Lowest << Lowest << Highest << Highest - 1;
        QTest::newRow("flat through the picture") << Lowest << -1000000000 << Highest << 1000000009;
    }
    void linesFromFarAwayAreClippedAndNotBent()
    {
        QFETCH(int, x1);
        QFETCH(int, y1);
        QFETCH(int, x2);
        QFETCH(int, y2);
        const Ends line{x1, y1, x2, y2};
        for (const int width : {1, 2}) {
            for (const LineEnd end : {LineEnd::Included, LineEnd::Left}) {
                QImage image = Black(31, 17);
                Draw(image, line, width, end);
                const QString fault = FirstFault(image, line, width, end);
                QVERIFY2(fault.isEmpty(), qPrintable(fault));
            }
        }
    }

    void linesFromFarAwayTakeNoTime()
    {
        QImage image = Black(600, 250);
        QElapsedTimer clock;
        clock.start();
        for (int line = 0; line < 1000; ++line)
            DrawPixelLine(image, Lowest + line, Lowest, Highest, Highest - line, Yellow, 2, LineEnd::Included);
        QVERIFY(clock.elapsed() < 5000); // stepping all the way would take minutes
        QVERIFY(!Ink(image).isEmpty());
    }

    void aPointIsOnePixelWithItsEndAndNoneWithoutIt()
    {
        QImage image = Black(5, 5);
        DrawPixelLine(image, 2, 3, 2, 3, Yellow, 1, LineEnd::Left);
        QVERIFY(Ink(image).isEmpty());
        DrawPixelLine(image, 2, 3, 2, 3, Yellow, 1, LineEnd::Included);
        QCOMPARE(Ink(image), QRect(2, 3, 1, 1));
    }

    void theFrameOfWidthTwoCoversTheOuterTwoPixels()
    {
        constexpr int w = 60;
        constexpr int h = 25;
        QImage image = Black(w, h);
        Draw(image, {1, 0, 1, h - 1}, 2, LineEnd::Included);
        QCOMPARE(Ink(image), QRect(0, 0, 2, h));
        Draw(image, {0, 1, w - 1, 1}, 2, LineEnd::Included);
        Draw(image, {w - 1, 1, w - 1, h - 1}, 2, LineEnd::Included);
        Draw(image, {1, h - 1, w - 1, h - 1}, 2, LineEnd::Included);
        for (int y = 0; y < h; ++y) {
            for (int x = 0; x < w; ++x)
                QCOMPARE(IsSet(image, x, y), x < 2 || x >= w - 2 || y < 2 || y >= h - 2);
        }
    }

    void aLineHasItsColourAndNoOther()
    {
        QImage image = Black(20, 20);
        DrawPixelLine(image, 1, 2, 18, 11, 0x563412, 2, LineEnd::Included);
        QCOMPARE(image.pixel(1, 2), qRgb(0x12, 0x34, 0x56));
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x)
                QVERIFY(!IsSet(image, x, y) || image.pixel(x, y) == qRgb(0x12, 0x34, 0x56));
        }
    }

    void aCopyOfTheImageStaysAsItWas()
    {
        QImage image = Black(5, 5);
        const QImage copy = image;
        DrawPixelLine(image, 0, 0, 4, 4, Yellow, 1, LineEnd::Included);
        SetImagePixel(image, 0, 4, Yellow);
        QVERIFY(Ink(copy).isEmpty());
        QCOMPARE(Ink(image), QRect(0, 0, 5, 5));
    }

    void anImageWithoutPixelsIsLeftAlone()
    {
        QImage image;
        DrawPixelLine(image, 0, 0, 4, 4, Yellow, 1, LineEnd::Included);
        DrawPictureText(image, 0, 0, QStringLiteral("1"), Yellow);
        QVERIFY(!SetImagePixel(image, 0, 0, Yellow));
        QVERIFY(image.isNull());
    }

    void onlyPixelsOfTheImageAreSet()
    {
        QImage image = Black(4, 3);
        QVERIFY(SetImagePixel(image, 3, 2, 0x563412));
        QCOMPARE(image.pixel(3, 2), qRgb(0x12, 0x34, 0x56));
        QCOMPARE(Ink(image), QRect(3, 2, 1, 1));
        const QImage before = image.copy();
        const QPoint outside[] = {{4, 0}, {0, 3}, {-1, 0}, {0, -1}, {Lowest, 1}, {1, Highest}};
        for (const QPoint &point : outside)
            QVERIFY(!SetImagePixel(image, point.x(), point.y(), Yellow));
        QCOMPARE(image, before);
    }

    void theFontsAreThere()
    {
        QCOMPARE(QFontInfo(LatinFont()).family(), QStringLiteral("DejaVu Sans Mono"));
        QCOMPARE(QFontInfo(QFont(QStringLiteral("Noto Sans CJK SC"))).family(), QStringLiteral("Noto Sans CJK SC"));
        QCOMPARE(QFontMetrics(LatinFont()).horizontalAdvance(QStringLiteral("0123456789")), 50);
    }

    void aCharacterIsFivePixelsWide()
    {
        QCOMPARE(PictureTextWidth(QString()), 0);
        QCOMPARE(PictureTextWidth(QStringLiteral("0123456789")), 50);
        QCOMPARE(PictureTextWidth(QStringLiteral("KΩ")), 10);
        QCOMPARE(PictureTextWidth(QStringLiteral("℃")), 10);
        QCOMPARE(PictureTextWidth(QStringLiteral("秒S")), 15);
        const QImage eights = TextPicture(QStringLiteral("8888888888"), 10, 5);
        for (int y = 0; y < eights.height(); ++y) {
            for (int x = 10; x < 55; ++x)
                QCOMPARE(eights.pixel(x, y), eights.pixel(x + 5, y));
        }
        QVERIFY(QRect(10, 5, 50, 9).contains(Ink(eights)));
        QVERIFY(Ink(eights).width() > 45);
    }

    void aTextIsTheRowOfItsCharacters()
    {
        const QString text = QStringLiteral("-12.5m中Ω℃7");
        const int cells[] = {5, 5, 5, 5, 5, 5, 10, 5, 10, 5};
        QImage one = Black(120, 30);
        int x = 7;
        for (int at = 0; at < text.size(); ++at) {
            DrawPictureText(one, x, 5, text.mid(at, 1), Yellow);
            x += cells[at];
        }
        QCOMPARE(TextPicture(text, 7, 5), one);
    }

    /// The font's own rasteriser is asked for the shape and the place.
    void digitsAreThoseOfTheFontOnABaseLineEightPixelsBelowTheTop()
    {
        QImage expected = Black(120, 30);
        QPainter painter(&expected);
        painter.setFont(LatinFont());
        painter.setPen(Qt::yellow);
        painter.drawText(10, 5 + 8, QStringLiteral("1"));
        painter.end();
        QCOMPARE(TextPicture(QStringLiteral("1"), 10, 5), expected);
        QCOMPARE(Ink(TextPicture(QStringLiteral("0123456789"), 10, 5)).bottom(), 5 + 8 - 1);
        QVERIFY(Ink(TextPicture(QStringLiteral("0123456789"), 10, 5)).top() >= 5);
    }

    void textIsNotSmoothed()
    {
        const QImage image = TextPicture(QStringLiteral("0123456789 mkM 中文℃Ω"), 3, 5, QSize(160, 30));
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                QVERIFY(!IsSet(image, x, y) || image.pixel(x, y) == qRgb(255, 255, 0));
        }
        QVERIFY(!Ink(image).isEmpty());
    }

    void chineseIsDrawnInTwoCells()
    {
        const QRect ink = Ink(TextPicture(QStringLiteral("中"), 20, 5));
        QVERIFY(QRect(20, 3, 10, 13).contains(ink));
        QVERIFY(ink.width() >= 7 && ink.height() >= 7);
        QVERIFY(TextPicture(QStringLiteral("中"), 20, 5) != TextPicture(QStringLiteral("文"), 20, 5));
    }

    void textIsCutAtTheEdges_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::newRow("left") << -3 << 5;
        QTest::newRow("far left") << -43 << 5;
        QTest::newRow("right") << 51 << 5;
        QTest::newRow("above") << 4 << -5;
        QTest::newRow("below") << 4 << 15;
        QTest::newRow("corner") << -7 << -4;
    }
    void textIsCutAtTheEdges()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        const QString text = QStringLiteral("0123456789中");
        const QImage whole = TextPicture(text, x + 100, y + 50, QSize(300, 120));
        QCOMPARE(TextPicture(text, x, y, QSize(60, 20)), whole.copy(100, 50, 60, 20));
    }

    void textFarAwayLeavesThePictureAlone()
    {
        for (const int x : {Lowest, -1000, 0, 1000, Highest}) {
            for (const int y : {Lowest, -1000, 1000, Highest})
                QVERIFY(Ink(TextPicture(QStringLiteral("123"), x, y)).isEmpty());
        }
        QVERIFY(Ink(TextPicture(QStringLiteral("123"), Lowest, 5)).isEmpty());
        QVERIFY(Ink(TextPicture(QStringLiteral("123"), Highest, 5)).isEmpty());
    }
};

QTEST_MAIN(TestPixelDrawing)
#include "tst_pixel_drawing.moc"
