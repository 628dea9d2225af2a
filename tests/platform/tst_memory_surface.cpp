/// @file
/// Memory drawing surfaces: handles, their life, and what is drawn through them.

#include "platform/MemorySurface.h"
#include "platform/PixelDrawing.h"

#include <QtTest>

#include <limits>

namespace {

constexpr ColourRef Yellow = 0x00FFFF;
constexpr ColourRef Red = 0x0000FF;
constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Highest = std::numeric_limits<std::int32_t>::max();

/// Each pixel a colour of its own.
QImage Patterned(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x + 1, y + 1, 77));
    }
    return image;
}

/// A picture box's image with its context, and a memory context with a bitmap of the same size.
struct Bench {
    explicit Bench(QSize size) : Picture(size, QImage::Format_RGB32)
    {
        Picture.fill(Qt::black);
        Screen = ContextOfImage(&Picture);
        Memory = CreateCompatibleDC(Screen);
        Bitmap = CreateCompatibleBitmap(Screen, size.width(), size.height());
        Previous = SelectObject(Memory, Bitmap);
    }
    ~Bench()
    {
        SelectObject(Memory, Previous);
        DeleteObject(Bitmap);
        DeleteDC(Memory);
        ReleaseImageContext(Screen);
    }
    Bench(const Bench &) = delete;
    Bench &operator=(const Bench &) = delete;

    /// What the memory context holds.
    QImage Held()
    {
        QImage copy(Picture.size(), QImage::Format_RGB32);
        copy.fill(Qt::white);
        const SurfaceHandle context = ContextOfImage(&copy);
        const bool copied = BitBlt(context, 0, 0, copy.width(), copy.height(), Memory, 0, 0);
        ReleaseImageContext(context);
        return copied ? copy : QImage();
    }

    QImage Picture;
    SurfaceHandle Screen = 0;
    SurfaceHandle Memory = 0;
    SurfaceHandle Bitmap = 0;
    SurfaceHandle Previous = 0;
};

} // namespace

class TestMemorySurface : public QObject {
    Q_OBJECT

private:
    int m_alive = 0;

private slots:
    void init() { m_alive = LiveSurfaceObjects(); }

    /// No test leaves anything behind.
    void cleanup() { QCOMPARE(LiveSurfaceObjects(), m_alive); }

    void aBufferIsMadeAndReleasedWithoutRest()
    {
        QImage picture = Patterned(60, 25);
        const SurfaceHandle screen = ContextOfImage(&picture);
        QCOMPARE(LiveSurfaceObjects(), m_alive); // a picture box's context does not count
        const SurfaceHandle memory = CreateCompatibleDC(screen);
        QVERIFY(memory != 0);
        QCOMPARE(LiveSurfaceObjects(), m_alive + 1);
        const SurfaceHandle bitmap = CreateCompatibleBitmap(screen, 60, 25);
        QVERIFY(bitmap != 0);
        QCOMPARE(LiveSurfaceObjects(), m_alive + 2);
        const SurfaceHandle previous = SelectObject(memory, bitmap);
        QVERIFY(previous != 0 && previous != bitmap);
        QCOMPARE(SelectObject(memory, previous), bitmap);
        QVERIFY(DeleteObject(bitmap));
        QVERIFY(DeleteDC(memory));
        ReleaseImageContext(screen);
    }

    void whatIsDeletedIsGone()
    {
        QImage picture = Patterned(4, 4);
        const SurfaceHandle screen = ContextOfImage(&picture);
        const SurfaceHandle memory = CreateCompatibleDC(screen);
        const SurfaceHandle pen = CreatePen(1, Red);
        const SurfaceHandle bitmap = CreateCompatibleBitmap(screen, 4, 4);
        QVERIFY(DeleteObject(pen) && !DeleteObject(pen));
        QVERIFY(DeleteObject(bitmap) && !DeleteObject(bitmap));
        QCOMPARE(SelectObject(memory, pen), 0);
        QCOMPARE(SelectObject(memory, bitmap), 0);
        QVERIFY(DeleteDC(memory) && !DeleteDC(memory));
        ReleaseImageContext(screen);
        ReleaseImageContext(screen);
        const QImage before = picture.copy();
        for (const SurfaceHandle none : {0, -1, memory, screen}) {
            QCOMPARE(CreateCompatibleDC(none), 0);
            QCOMPARE(CreateCompatibleBitmap(none, 4, 4), 0);
            QCOMPARE(SelectObject(none, bitmap), 0);
            QCOMPARE(SetBkColor(none, Red), 0);
            QVERIFY(!DeleteObject(none));
            QVERIFY(!DeleteDC(none));
            QVERIFY(!MoveToEx(none, 1, 1));
            QVERIFY(!LineTo(none, 3, 3));
            QVERIFY(!SetPixel(none, 0, 0, Red));
            QVERIFY(!TextOutA(none, 0, 0, QStringLiteral("1"), Red));
            QVERIFY(!BitBlt(none, 0, 0, 4, 4, none, 0, 0));
        }
        QCOMPARE(picture, before);
        QCOMPARE(ContextOfImage(nullptr), 0);
    }

    void aCopyWithoutAMemorySurfaceHasNoEffect()
    {
        Bench bench(QSize(8, 6));
        bench.Picture = Patterned(8, 6);
        QVERIFY(!BitBlt(0, 0, 0, 8, 6, bench.Screen, 0, 0));
        QVERIFY(!BitBlt(bench.Screen, 0, 0, 8, 6, 0, 0, 0));
        QCOMPARE(bench.Picture, Patterned(8, 6));
    }

    void aBitmapHasASizeWithinReason_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("made");
        QTest::newRow("one pixel") << 1 << 1 << true;
        QTest::newRow("no width") << 0 << 10 << false;
        QTest::newRow("no height") << 10 << 0 << false;
        QTest::newRow("negative") << -10 << -10 << false;
        QTest::newRow("64 million pixels") << 8000 << 8000 << true;
        QTest::newRow("one row more") << 8000 << 8001 << false;
        QTest::newRow("a product beyond 32 bits") << 65536 << 65536 << false;
        QTest::newRow("as large as can be said") << Highest << Highest << false;
    }
    void aBitmapHasASizeWithinReason()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QImage picture = Patterned(4, 4);
        const SurfaceHandle screen = ContextOfImage(&picture);
        const SurfaceHandle bitmap = CreateCompatibleBitmap(screen, width, height);
        QTEST(bitmap != 0, "made");
        QCOMPARE(DeleteObject(bitmap), bitmap != 0);
        ReleaseImageContext(screen);
    }

    void aNewBitmapIsBlack()
    {
        Bench bench(QSize(5, 4));
        QImage black(5, 4, QImage::Format_RGB32);
        black.fill(Qt::black);
        QCOMPARE(bench.Held(), black);
    }

    void aNewMemoryContextHoldsOnePixel()
    {
        Bench bench(QSize(5, 4));
        const SurfaceHandle fresh = CreateCompatibleDC(bench.Screen);
        QVERIFY(SetPixel(fresh, 0, 0, Red));
        QVERIFY(!SetPixel(fresh, 1, 0, Red));
        QVERIFY(!SetPixel(fresh, 0, 1, Red));
        QVERIFY(DeleteDC(fresh));
    }

    void whatIsSelectedIsNotDeleted()
    {
        Bench bench(QSize(4, 4));
        const SurfaceHandle pen = CreatePen(1, Yellow);
        const SurfaceHandle own = SelectObject(bench.Memory, pen);
        QVERIFY(own != 0);
        QVERIFY(!DeleteObject(pen));
        QVERIFY(!DeleteObject(bench.Bitmap));
        QVERIFY(!DeleteObject(own)); // unselected, but the context's own
        QCOMPARE(SelectObject(bench.Memory, own), pen);
        QVERIFY(DeleteObject(pen));
    }

    void selectingGivesThePreviousOneOfItsKind()
    {
        Bench bench(QSize(4, 4));
        const SurfaceHandle first = CreatePen(1, Yellow);
        const SurfaceHandle second = CreatePen(2, Red);
        const SurfaceHandle own = SelectObject(bench.Memory, first);
        QVERIFY(own != bench.Bitmap && own != bench.Previous);
        QCOMPARE(SelectObject(bench.Memory, second), first);
        QCOMPARE(SelectObject(bench.Memory, second), second);
        QCOMPARE(SelectObject(bench.Memory, bench.Bitmap), bench.Bitmap);
        QCOMPARE(SelectObject(bench.Memory, own), second);
        QVERIFY(DeleteObject(first) && DeleteObject(second));
    }

    void aBitmapIsInOneContextAtATime()
    {
        Bench bench(QSize(4, 4));
        const SurfaceHandle other = CreateCompatibleDC(bench.Screen);
        QCOMPARE(SelectObject(other, bench.Bitmap), 0);
        QCOMPARE(SelectObject(other, bench.Previous), 0); // the first context's own
        QCOMPARE(SelectObject(bench.Screen, bench.Bitmap), 0);
        QVERIFY(!SetPixel(other, 3, 3, Red));
        QVERIFY(DeleteDC(other));
    }

    void aDeletedContextLeavesWhatWasSelected()
    {
        QImage picture = Patterned(4, 4);
        const SurfaceHandle screen = ContextOfImage(&picture);
        const SurfaceHandle memory = CreateCompatibleDC(screen);
        const SurfaceHandle bitmap = CreateCompatibleBitmap(screen, 4, 4);
        const SurfaceHandle pen = CreatePen(1, Red);
        SelectObject(memory, bitmap);
        SelectObject(memory, pen);
        QVERIFY(DeleteDC(memory));
        QCOMPARE(LiveSurfaceObjects(), m_alive + 2);
        QVERIFY(DeleteObject(bitmap) && DeleteObject(pen));
        QVERIFY(!DeleteDC(screen)); // a picture box's context is its owner's
        ReleaseImageContext(screen);
    }

    void aCopyGoesThereAndBack()
    {
        Bench bench(QSize(9, 7));
        const QImage picture = Patterned(9, 7);
        bench.Picture = picture;
        QVERIFY(BitBlt(bench.Memory, 0, 0, 9, 7, bench.Screen, 0, 0));
        QCOMPARE(bench.Held(), picture);
        bench.Picture.fill(Qt::white);
        QCOMPARE(bench.Held(), picture);
        QVERIFY(BitBlt(bench.Screen, 0, 0, 9, 7, bench.Memory, 0, 0));
        QCOMPARE(bench.Picture, picture);
    }

    void aCopyIsCutAtBothSurfaces_data()
    {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("sourceX");
        QTest::addColumn<int>("sourceY");
        QTest::newRow("inside") << 2 << 1 << 3 << 2 << 4 << 3;
        QTest::newRow("over the target's start") << -2 << -1 << 5 << 5 << 0 << 0;
        QTest::newRow("over the target's end") << 7 << 5 << 5 << 5 << 0 << 0;
        QTest::newRow("over the source's start") << 3 << 3 << 5 << 4 << -2 << -2;
        QTest::newRow("over the source's end") << 0 << 0 << 9 << 7 << 6 << 5;
        QTest::newRow("over both starts") << -1 << -3 << 8 << 8 << -2 << -1;
        QTest::newRow("no size") << 1 << 1 << 0 << 3 << 0 << 0;
        QTest::newRow("negative size") << 1 << 1 << -3 << -3 << 4 << 4;
        QTest::newRow("far away") << Highest << Highest << Highest << Highest << 0 << 0;
        QTest::newRow("from far away") << 0 << 0 << Highest << Highest << Lowest << Lowest;
        QTest::newRow("larger than all") << Lowest << Lowest << Highest << Highest << Lowest << Lowest;
        QTest::newRow("as large as can be said") << 0 << 0 << Highest << Highest << 0 << 0;
    }
    void aCopyIsCutAtBothSurfaces()
    {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, sourceX);
        QFETCH(int, sourceY);
        Bench bench(QSize(9, 7));
        const QImage source = Patterned(9, 7);
        bench.Picture = source;
        QVERIFY(BitBlt(bench.Memory, x, y, width, height, bench.Screen, sourceX, sourceY));
        QImage expected(9, 7, QImage::Format_RGB32);
        expected.fill(Qt::black);
        for (int toY = 0; toY < 7; ++toY) {
            for (int toX = 0; toX < 9; ++toX) {
                const qint64 column = qint64(toX) - x;
                const qint64 row = qint64(toY) - y;
                const qint64 fromX = column + sourceX;
                const qint64 fromY = row + sourceY;
                if (column >= 0 && column < width && row >= 0 && row < height && fromX >= 0 && fromX < 9 &&
                    fromY >= 0 && fromY < 7)
                    expected.setPixel(toX, toY, source.pixel(int(fromX), int(fromY)));
            }
        }
        QCOMPARE(bench.Held(), expected);
    }

    void aPictureMovesWithinItself()
    {
        Bench bench(QSize(9, 7));
        const QImage before = Patterned(9, 7);
        bench.Picture = before;
        QVERIFY(BitBlt(bench.Screen, 1, 2, 8, 5, bench.Screen, 0, 0));
        for (int y = 0; y < 7; ++y) {
            for (int x = 0; x < 9; ++x)
                QCOMPARE(bench.Picture.pixel(x, y), x >= 1 && y >= 2 ? before.pixel(x - 1, y - 2) : before.pixel(x, y));
        }
    }

    void aLineStopsBeforeItsEndAndTheNextGoesOnFromThere()
    {
        Bench bench(QSize(10, 4));
        const SurfaceHandle pen = CreatePen(1, Yellow);
        const SurfaceHandle own = SelectObject(bench.Memory, pen);
        QVERIFY(MoveToEx(bench.Memory, 1, 1));
        QVERIFY(LineTo(bench.Memory, 5, 1));
        QImage expected(10, 4, QImage::Format_RGB32);
        expected.fill(Qt::black);
        for (int x = 1; x < 5; ++x)
            expected.setPixel(x, 1, qRgb(255, 255, 0));
        QCOMPARE(bench.Held(), expected);
        QVERIFY(LineTo(bench.Memory, 5, 3));
        expected.setPixel(5, 1, qRgb(255, 255, 0));
        expected.setPixel(5, 2, qRgb(255, 255, 0));
        QCOMPARE(bench.Held(), expected);
        QVERIFY(LineTo(bench.Memory, 5, 3));
        QCOMPARE(bench.Held(), expected);
        SelectObject(bench.Memory, own);
        QVERIFY(DeleteObject(pen));
    }

    void aPenHasAWidth_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("rows");
        QTest::newRow("negative") << -3 << 1;
        QTest::newRow("none") << 0 << 1;
        QTest::newRow("one") << 1 << 1;
        QTest::newRow("two") << 2 << 2;
    }
    void aPenHasAWidth()
    {
        QFETCH(int, width);
        QFETCH(int, rows);
        Bench bench(QSize(10, 4));
        const SurfaceHandle pen = CreatePen(width, Red);
        const SurfaceHandle own = SelectObject(bench.Screen, pen);
        QVERIFY(own != 0);
        MoveToEx(bench.Screen, 0, 2);
        LineTo(bench.Screen, 10, 2);
        for (int y = 0; y < 4; ++y)
            QCOMPARE(bench.Picture.pixel(5, y), y <= 2 && y > 2 - rows ? qRgb(255, 0, 0) : qRgb(0, 0, 0));
        QCOMPARE(SelectObject(bench.Screen, own), pen);
        QVERIFY(DeleteObject(pen));
    }

    void aLineFromBeyondTheSurfaceIsCut()
    {
        Bench bench(QSize(6, 6));
        const SurfaceHandle pen = CreatePen(1, Yellow);
        const SurfaceHandle own = SelectObject(bench.Memory, pen);
        MoveToEx(bench.Memory, Lowest, Lowest);
        QVERIFY(LineTo(bench.Memory, Highest, Highest));
        const QImage held = bench.Held();
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < 6; ++x)
                QCOMPARE(held.pixel(x, y), x == y ? qRgb(255, 255, 0) : qRgb(0, 0, 0));
        }
        SelectObject(bench.Memory, own);
        QVERIFY(DeleteObject(pen));
    }

    void onlyPixelsOfTheSurfaceAreSet()
    {
        Bench bench(QSize(6, 5));
        QVERIFY(SetPixel(bench.Memory, 5, 4, Red));
        QVERIFY(!SetPixel(bench.Memory, 6, 4, Red));
        QVERIFY(!SetPixel(bench.Memory, 5, 5, Red));
        QVERIFY(!SetPixel(bench.Memory, -1, 0, Red));
        QVERIFY(!SetPixel(bench.Memory, 0, Lowest, Red));
        const QImage held = bench.Held();
        for (int y = 0; y < 5; ++y) {
            for (int x = 0; x < 6; ++x)
                QCOMPARE(held.pixel(x, y), x == 5 && y == 4 ? qRgb(255, 0, 0) : qRgb(0, 0, 0));
        }
    }

    void anImageMayChangeItsSizeUnderItsContext()
    {
        Bench bench(QSize(3, 3));
        bench.Picture = Patterned(20, 20);
        QVERIFY(SetPixel(bench.Screen, 19, 19, Red));
        bench.Picture = QImage();
        QVERIFY(!SetPixel(bench.Screen, 0, 0, Red));
        QVERIFY(!BitBlt(bench.Memory, 0, 0, 3, 3, bench.Screen, 0, 0));
        bench.Picture = QImage(4, 4, QImage::Format_ARGB32_Premultiplied);
        bench.Picture.fill(Qt::black);
        QVERIFY(SetPixel(bench.Screen, 3, 3, Red));
        QCOMPARE(bench.Picture.pixel(3, 3), qRgb(255, 0, 0));
    }

    void theBackColourComesBack()
    {
        Bench bench(QSize(3, 3));
        QCOMPARE(SetBkColor(bench.Memory, Red), 0xFFFFFF);
        QCOMPARE(SetBkColor(bench.Memory, Yellow), Red);
        QCOMPARE(SetBkColor(bench.Screen, 0), 0xFFFFFF);
    }

    void textStandsOnTheBackColourInMemoryAndFreelyInAPicture()
    {
        Bench bench(QSize(60, 20));
        bench.Picture = Patterned(60, 20);
        QImage expected = bench.Picture.copy();
        DrawPictureText(expected, 4, 3, QStringLiteral("12.5"), Yellow);
        QVERIFY(TextOutA(bench.Screen, 4, 3, QStringLiteral("12.5"), Yellow));
        QCOMPARE(bench.Picture, expected);

        QImage onColour(60, 20, QImage::Format_RGB32);
        onColour.fill(Qt::black);
        for (int y = 3; y < 3 + 9; ++y) {
            for (int x = 4; x < 4 + 4 * 5; ++x)
                onColour.setPixel(x, y, qRgb(255, 0, 0));
        }
        DrawPictureText(onColour, 4, 3, QStringLiteral("12.5"), Yellow);
        SetBkColor(bench.Memory, Red);
        QVERIFY(TextOutA(bench.Memory, 4, 3, QStringLiteral("12.5"), Yellow));
        QCOMPARE(bench.Held(), onColour);
    }

    void textIsCutAtTheEdges()
    {
        Bench bench(QSize(30, 20));
        SetBkColor(bench.Memory, Red);
        QVERIFY(TextOutA(bench.Memory, -7, 16, QStringLiteral("12"), Yellow));
        const QImage held = bench.Held();
        QCOMPARE(held.pixel(0, 16), qRgb(255, 0, 0));
        QCOMPARE(held.pixel(3, 16), qRgb(0, 0, 0));
        QCOMPARE(held.pixel(0, 15), qRgb(0, 0, 0));
        for (const std::int32_t far : {Lowest, Highest}) {
            QVERIFY(TextOutA(bench.Memory, far, 0, QStringLiteral("12"), Yellow));
            QVERIFY(TextOutA(bench.Memory, 0, far, QStringLiteral("12"), Yellow));
        }
        QCOMPARE(bench.Held(), held);
    }

    /// A pen for each redraw, for as long as a measurement may run.
    void manyPensComeAndGo()
    {
        Bench bench(QSize(4, 4));
        for (int redraw = 0; redraw < 10000; ++redraw) {
            const SurfaceHandle pen = CreatePen(1, Yellow);
            const SurfaceHandle before = SelectObject(bench.Memory, pen);
            SelectObject(bench.Memory, before);
            QVERIFY(DeleteObject(pen));
        }
        QCOMPARE(LiveSurfaceObjects(), m_alive + 2);
    }
};

QTEST_MAIN(TestMemorySurface)
#include "tst_memory_surface.moc"
