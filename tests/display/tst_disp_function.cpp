/// @file
/// Axis text, graticule and trace of the pictures, pixel by pixel.
#include "display/DispFunctionModule.h"

#include "PixelCanvas.h"
#include "platform/MemorySurface.h"
#include "platform/PixelDrawing.h"
#include "support/ErrorOf.h"

#include <QTest>

namespace {

constexpr ColourRef Black = Rgb(0, 0, 0);
constexpr ColourRef Green = Rgb(0, 255, 0);
constexpr ColourRef Yellow = Rgb(255, 255, 0);
constexpr ColourRef Cyan = Rgb(0, 255, 255);
constexpr ColourRef Magenta = Rgb(255, 0, 255);

/// A plot on its surround, as the pages have them.
struct Picture {
    explicit Picture(int width = 240, int height = 100, int left = 40)
    {
        Background.resize(width + 80, height + 30);
        Plot.setParent(&Background);
        Plot.setGeometry(left, 10, width, height);
    }

    PictureBox Background;
    PictureBox Plot;
};

/// The memory surface of a record in the size of a plot.
class Surface {
public:
    Surface(const PictureBox &plot, WaveRecord &record) : m_record(record)
    {
        record.MemoryDcB = CreateCompatibleDC(plot.Context());
        m_bitmap = CreateCompatibleBitmap(plot.Context(), plot.ScaleWidth(), plot.ScaleHeight());
        record.MemoryBitmapB = SelectObject(record.MemoryDcB, m_bitmap);
    }
    ~Surface()
    {
        SelectObject(m_record.MemoryDcB, m_record.MemoryBitmapB);
        DeleteObject(m_bitmap);
        DeleteDC(m_record.MemoryDcB);
    }
    Surface(const Surface &) = delete;
    Surface &operator=(const Surface &) = delete;

private:
    WaveRecord &m_record;
    SurfaceHandle m_bitmap = 0;
};

/// A record whose Y axis is one pixel per unit downwards from 0 at row 20 of a plot 100 pixels high.
WaveRecord PixelRecord(std::initializer_list<double> samples, std::int32_t lastVisible)
{
    WaveRecord record;
    for (const double sample : samples)
        record.Points.push_back({static_cast<double>(record.Points.size()), sample});
    record.Count = static_cast<std::int32_t>(samples.size());
    record.LastIndex = record.Count - 1;
    record.LastVisible = lastVisible;
    record.YMax = 0;
    record.YMin = -59.4; // 99 * 3 / 5
    return record;
}

} // namespace

class TestDispFunction : public QObject {
    Q_OBJECT

private slots:
    void TimeNumbersFollowTheSpan_data()
    {
        QTest::addColumn<double>("xMin");
        QTest::addColumn<double>("xMax");
        QTest::addColumn<QStringList>("texts");
        const auto row = [](const char *name, double xMin, double xMax, const char *texts) {
            QTest::newRow(name) << xMin << xMax << QString::fromLatin1(texts).split(u' ');
        };
        row("60 s", 0, 60, "0 5 10 15 20 25 30 35 40 45 50 55 S");
        row("60 s, moved", 7, 67, "7 12 17 22 27 32 37 42 47 52 57 62 S");
        row("6 s", 0, 6, "0.0 0.5 1.0 1.5 2.0 2.5 3.0 3.5 4.0 4.5 5.0 5.5 S");
        row("2.5 s a sample", 0, 150, "0.0 12.5 25.0 37.5 50.0 62.5 75.0 87.5 100.0 112.5 125.0 137.5 S");
        row("1 s", 0, 1, "0.0 0.083 0.167 0.25 0.333 0.417 0.5 0.583 0.667 0.75 0.833 0.917 S");
        // A division of whole seconds has no decimals, wherever it starts.
        row("from a half", 0.5, 60.5, "1 6 11 16 21 26 31 36 41 46 51 56 S");
    }

    void TimeNumbersFollowTheSpan()
    {
        QFETCH(double, xMin);
        QFETCH(double, xMax);
        QFETCH(QStringList, texts);
        Picture picture(247, 100); // 247 / 12 rounds to 21
        WaveRecord record;
        record.XMin = xMin;
        record.XMax = xMax;
        record.YMax = 2;
        record.YMin = -1;
        record.XUnitText = QStringLiteral("S");
        DrawWaveAxisText(picture.Background, picture.Plot, record);

        PixelCanvas expected(327, 130, Black);
        for (int i = 0; i < texts.size(); ++i) {
            const double left = 40 + 21 * i - 5.0 * static_cast<double>(texts[i].size()) / 2;
            DrawPictureText(expected.Image, Nearest(left), 112, texts[i], record.XTextColour);
        }
        const QStringList values{QStringLiteral("-2.000"), QStringLiteral("-1.000"), QStringLiteral("0.000"),
                                 QStringLiteral("1.000"), QStringLiteral("2.000")};
        const int tops[] = {106, 86, 66, 46, 26}; // 110 - 20 i - 4.5, ties to even
        for (int i = 0; i < 5; ++i)
            DrawPictureText(expected.Image, 0, tops[i], values[i], record.YTextColour);
        QCOMPARE(Difference(picture.Background.Image(), expected.Image), QString());
    }

    void ValueNumbersStandOneDivisionBelowAndUnitOnTop_data()
    {
        QTest::addColumn<QString>("unit");
        for (const char *unit : {"℃", "KΩ", "ohm", "mV", "V", ""})
            QTest::newRow(unit) << QString::fromUtf8(unit);
    }

    void ValueNumbersStandOneDivisionBelowAndUnitOnTop()
    {
        QFETCH(QString, unit);
        Picture picture(120, 103); // 103 / 5 rounds to 21
        picture.Background.BackColour = Rgb(10, 20, 30);
        WaveRecord record;
        record.XMax = 12;
        record.XTextColour = Cyan;
        record.YTextColour = Magenta;
        record.YMin = 1500;
        record.YMax = 1503;
        record.YUnitText = unit;
        DrawWaveAxisText(picture.Background, picture.Plot, record);

        PixelCanvas expected(200, 133, Rgb(10, 20, 30));
        const char *times[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"};
        // 40 + 10 i - 2.5, ties to even; two characters take 5 pixels off.
        const int lefts[] = {38, 48, 58, 68, 78, 88, 98, 108, 118, 128, 135, 145};
        for (int i = 0; i < 12; ++i)
            DrawPictureText(expected.Image, lefts[i], 115, QString::fromLatin1(times[i]), Cyan);
        const char *values[] = {"1.499k", "1.500k", "1.501k", "1.502k", "1.503k"};
        const int tops[] = {108, 88, 66, 46, 24}; // 113 - 21 i - 4.5, ties to even
        for (int i = 0; i < 5; ++i)
            DrawPictureText(expected.Image, 0, tops[i], QString::fromLatin1(values[i]), Magenta);
        DrawPictureText(expected.Image, 0, 4, unit, Magenta); // 113 - 105 - 4.5 is 3.5
        QCOMPARE(Difference(picture.Background.Image(), expected.Image), QString());
    }

    void AxisTextClearsWhatStoodThere()
    {
        Picture picture;
        WaveRecord record;
        record.XMax = 60;
        record.YMax = 1;
        DrawWaveAxisText(picture.Background, picture.Plot, record);
        const QImage once = picture.Background.Image().copy();
        picture.Background.Text(5, 5, QStringLiteral("old"));
        DrawWaveAxisText(picture.Background, picture.Plot, record);
        QCOMPARE(Difference(picture.Background.Image(), once), QString());
    }

    void WaveGridOfAnySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("grid");
        for (const bool grid : {true, false}) {
            for (const QSize size : {QSize(60, 25), QSize(240, 100), QSize(480, 200), QSize(1200, 500), QSize(437, 203),
                                     QSize(90, 38), QSize(150, 62)}) {
                QTest::addRow("%d x %d %s", size.width(), size.height(), grid ? "dotted" : "plain") << size << grid;
            }
        }
    }

    void WaveGridOfAnySize()
    {
        QFETCH(QSize, size);
        QFETCH(bool, grid);
        Picture picture(size.width(), size.height());
        WaveRecord record;
        record.Grid = grid;
        record.GridColour = Magenta;
        picture.Plot.Clear();
        picture.Plot.BackColour = Cyan;
        DrawWaveGrid(picture.Plot, record);
        PixelCanvas expected(size.width(), size.height(), Black);
        expected.WaveGraticule(grid, Magenta);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
        QCOMPARE(picture.Plot.BackColour, Black);
    }

    // The same rules once more, as single pixels of a picture with cells of 8 pixels.
    void WaveGridPixels()
    {
        Picture picture(480, 200);
        DrawWaveGrid(picture.Plot, WaveRecord{});
        const auto lit = [&picture](int x, int y) {
            return RefFromColour(picture.Plot.Image().pixelColor(x, y)) == Green;
        };
        for (const int edge : {0, 1}) {
            QVERIFY(lit(edge, 100) && lit(479 - edge, 101));
            QVERIFY(lit(4, edge) && lit(5, 199 - edge));
        }
        QVERIFY(!lit(2, 101) && !lit(477, 101) && !lit(4, 2) && !lit(4, 197));
        QVERIFY(lit(8, 3) && !lit(8, 4));       // short tick: 2 pixels on
        QVERIFY(lit(40, 5) && !lit(40, 6));     // long tick: 4 pixels on
        QVERIFY(lit(8, 196) && !lit(8, 195));   // from the lower edge
        QVERIFY(lit(40, 194) && !lit(40, 193)); // rows 198 to 194
        QVERIFY(lit(3, 8) && !lit(4, 8) && lit(5, 40) && !lit(6, 48));
        QVERIFY(lit(476, 8) && !lit(475, 8) && lit(474, 40) && !lit(473, 48));
        QVERIFY(lit(80, 8) && lit(80, 16) && !lit(80, 12)); // every division a dotted line, every tick a dot
        QVERIFY(lit(16, 80) && lit(24, 80) && !lit(20, 80) && !lit(16, 88));
    }

    void NothingIsTracedWithoutTwoSamples_data()
    {
        QTest::addColumn<int>("lastIndex");
        QTest::newRow("none") << -1;
        QTest::newRow("one") << 0;
    }

    void NothingIsTracedWithoutTwoSamples()
    {
        QFETCH(int, lastIndex);
        Picture picture;
        WaveRecord record = PixelRecord({-1, -2, -3}, 60);
        record.LastIndex = lastIndex;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        record.Link = false;
        DrawWaveTrace(picture.Plot, record);
        QCOMPARE(Difference(picture.Plot.Image(), PixelCanvas(240, 100, Black).Image), QString());
    }

    void NothingIsTracedWithoutRangeAndWindow()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-1, -2, -3}, 0);
        record.YMin = record.YMax;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        QCOMPARE(Difference(picture.Plot.Image(), PixelCanvas(240, 100, Black).Image), QString());
    }

    void AWindowOfOneSampleDividesByZero()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-1, -2, -3}, 0);
        const Surface surface(picture.Plot, record);
        QCOMPARE(ErrorOf([&] { DrawWaveTrace(picture.Plot, record); }), ErrorNumber::DivisionByZero);
    }

    void LinesJoinTheSamples()
    {
        Picture picture(240, 100);
        WaveRecord record = PixelRecord({0, -59.4, -10.4, -10.4, 12}, 6); // 239 / 6 pixels a sample
        const Surface surface(picture.Plot, record);
        DrawWaveGrid(picture.Plot, record);
        PixelCanvas expected(picture.Plot.Image());
        DrawWaveTrace(picture.Plot, record);
        expected.LineUpTo(0, 20, 40, 79, Yellow);
        expected.LineUpTo(40, 79, 80, 30, Yellow);
        expected.LineUpTo(80, 30, 119, 30, Yellow); // 119.499996 with a single as scale
        expected.LineUpTo(119, 30, 159, 8, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void TheRangeFillsTheMiddleThreeFifths()
    {
        Picture picture(300, 125); // 124 * 3 / 5 is 74.4, 125 / 5 is 25
        WaveRecord record;
        record.Points = {{0, 1007}, {1, 1003}, {2, 1007}, {3, 1005}};
        record.LastIndex = 3;
        record.LastVisible = 3;
        record.YMax = 1007;
        record.YMin = 1003;
        record.TraceColour = Cyan;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(300, 125, Black);
        expected.LineUpTo(0, 25, 100, 99, Cyan); // 299 / 3 pixels a sample
        expected.LineUpTo(100, 99, 199, 25, Cyan);
        expected.LineUpTo(199, 25, 299, 62, Cyan);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void AConstantCurveLiesAtOneFifth_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("row");
        QTest::newRow("whole") << 100 << 20;
        QTest::newRow("rounded up") << 103 << 21; // 20.6
        QTest::newRow("rounded down") << 102 << 20;
    }

    void AConstantCurveLiesAtOneFifth()
    {
        QFETCH(int, height);
        QFETCH(int, row);
        Picture picture(240, height);
        WaveRecord record = PixelRecord({5, 5, 5}, 60);
        record.YMax = record.YMin = 5;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, height, Black);
        expected.Fill(0, row, 7, row, Yellow); // 2 * 239 / 60 is 7.97; the end pixel is left out
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    // A constant range with other samples in it: the span counts as 0.1.
    void AnEmptyRangeCountsAsATenth()
    {
        Picture picture;
        WaveRecord record = PixelRecord({5, 4.9, 5}, 2);
        record.YMax = record.YMin = 5;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, 100, Black);
        expected.LineUpTo(0, 20, 120, 79, Yellow); // 119.5 ties to 120; 20 + 59.4
        expected.LineUpTo(120, 79, 239, 20, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void CoordinatesRoundTiesToEven()
    {
        Picture picture(61, 100);
        WaveRecord record = PixelRecord({-0.5, -1.5, -2.5, -3.5}, 120); // half a pixel a sample
        record.Link = false;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(61, 100, Black);
        expected.Set(0, 20, Yellow); // 0, 20.5
        expected.Set(0, 22, Yellow); // 0.5, 21.5
        expected.Set(1, 22, Yellow); // 1, 22.5
        expected.Set(2, 24, Yellow); // 1.5, 23.5
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void OverloadsInLinesAreSpikesToTheTop_data() { Overloads(); }

    void OverloadsInLinesAreSpikesToTheTop()
    {
        QFETCH(double, overload);
        Picture picture;
        WaveRecord record = PixelRecord({-30, -30, overload, -40, -40}, 4);
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, 100, Black);
        expected.LineUpTo(0, 50, 60, 50, Yellow); // 59.75 pixels a sample
        expected.LineUpTo(60, 50, 120, 0, Yellow);
        expected.LineUpTo(120, 0, 179, 60, Yellow);
        expected.LineUpTo(179, 60, 239, 60, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void OverloadsAmongDotsAreGaps_data() { Overloads(); }

    void OverloadsAmongDotsAreGaps()
    {
        QFETCH(double, overload);
        Picture picture;
        WaveRecord record = PixelRecord({-30, overload, -40}, 4);
        record.Link = false;
        const Surface surface(picture.Plot, record);
        DrawWaveGrid(picture.Plot, record);
        PixelCanvas expected(picture.Plot.Image());
        DrawWaveTrace(picture.Plot, record);
        expected.Set(0, 50, Yellow);
        expected.Set(120, 60, Yellow); // 119.5
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void AnInvalidFirstSampleStartsAtTheTopLeftCorner()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-7777, -30}, 4);
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, 100, Black);
        expected.LineUpTo(0, 0, 60, 50, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void OnlyTheWindowIsDrawn()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-50, -50, -10, -20, -30, -50, -50}, 4);
        record.FirstVisible = 2; // 119.5 pixels a sample
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, 100, Black);
        expected.LineUpTo(0, 30, 120, 40, Yellow);
        expected.LineUpTo(120, 40, 239, 50, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void NothingIsDrawnBehindTheLastIndex()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-10, -20, -30}, 4);
        record.LastIndex = 1;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, 100, Black);
        expected.LineUpTo(0, 30, 60, 40, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void AWindowThatStartsBeforeTheSamples()
    {
        Picture picture(241, 100);
        WaveRecord record = PixelRecord({-10, -20, -30}, 4);
        record.FirstVisible = -4; // the scale still counts all 8 samples: 30 pixels each
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(241, 100, Black);
        expected.LineUpTo(0, 30, 30, 40, Yellow);
        expected.LineUpTo(30, 40, 60, 50, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void LinesLeaveThePictureAndComeBack()
    {
        Picture picture(241, 100);
        WaveRecord record = PixelRecord({-30, 1000, -1000, -30}, 3); // 80 pixels a sample
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(241, 100, Black);
        expected.LineUpTo(0, 50, 80, -980, Yellow);
        expected.LineUpTo(80, -980, 160, 1020, Yellow);
        expected.LineUpTo(160, 1020, 240, 50, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void ErrorsOfATraceLeaveThePicture_data()
    {
        QTest::addColumn<WaveRecord>("record");
        QTest::addColumn<int>("number");
        QTest::addColumn<bool>("inDots");
        QTest::newRow("row beyond 32 bits") << PixelRecord({-1, 3e9, -1}, 4) << 6 << false;
        WaveRecord columns = PixelRecord({-1, -2, -3}, 4);
        columns.Points[1].X = 1e12;
        QTest::newRow("column beyond 32 bits") << columns << 6 << false;
        WaveRecord missing = PixelRecord({-1, -2, -3}, 60);
        missing.LastIndex = 3;
        QTest::newRow("last sample missing") << missing << 9 << true;
        WaveRecord beyond = PixelRecord({-1, -2, -3}, 60);
        beyond.FirstVisible = 3;
        beyond.LastIndex = 5;
        QTest::newRow("first sample missing") << beyond << 9 << true;
        WaveRecord empty = PixelRecord({}, 60);
        empty.LastIndex = 1;
        QTest::newRow("no sample at all") << empty << 9 << true;
    }

    void ErrorsOfATraceLeaveThePicture()
    {
        QFETCH(WaveRecord, record);
        QFETCH(int, number);
        QFETCH(bool, inDots);
        Picture picture;
        const Surface surface(picture.Plot, record);
        const int before = LiveSurfaceObjects();
        QCOMPARE(ErrorOf([&] { DrawWaveTrace(picture.Plot, record); }), number);
        record.Link = false;
        QCOMPARE(ErrorOf([&] { DrawWaveTrace(picture.Plot, record); }), inDots ? number : 0);
        QCOMPARE(LiveSurfaceObjects(), before);
    }

    // Far outside in either direction there is no pixel, and no error in dot mode.
    void DotsFarOutsideAreLeftOut()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-1, 3e9, -3e9, 1e300}, 4);
        record.Points.push_back({1e12, -5});
        record.LastIndex = 4;
        record.Link = false;
        const Surface surface(picture.Plot, record);
        DrawWaveTrace(picture.Plot, record);
        PixelCanvas expected(240, 100, Black);
        expected.Set(0, 21, Yellow);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    void WithoutASurfaceThePictureStaysWithoutACurve()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-1, -20, -30}, 4);
        DrawWaveGrid(picture.Plot, record);
        const QImage before = picture.Plot.Image().copy();
        const int objects = LiveSurfaceObjects();
        DrawWaveTrace(picture.Plot, record);
        record.Link = false;
        DrawWaveTrace(picture.Plot, record);
        QCOMPARE(Difference(picture.Plot.Image(), before), QString());
        QCOMPARE(LiveSurfaceObjects(), objects);
    }

    void ThePenIsGivenBack()
    {
        Picture picture;
        WaveRecord record = PixelRecord({-1, -20, -30}, 4);
        const Surface surface(picture.Plot, record);
        const SurfaceHandle probe = CreatePen(1, Green);
        const SurfaceHandle own = SelectObject(record.MemoryDcB, probe);
        const int objects = LiveSurfaceObjects();
        for (int i = 0; i < 100; ++i) {
            record.Link = i % 2 == 0;
            record.LastIndex = i % 3; // with 0 it ends early
            DrawWaveTrace(picture.Plot, record);
        }
        QCOMPARE(LiveSurfaceObjects(), objects);
        QCOMPARE(SelectObject(record.MemoryDcB, own), probe);
        QVERIFY(DeleteObject(probe));
    }

    void ReferenceNumbersAlongBothAxes()
    {
        Picture picture(105, 95, 30); // 10.5 and 9.5 a division, ties to even: 10 and 10
        picture.Background.BackColour = Rgb(200, 200, 200);
        DrawReferenceAxisText(true, picture.Plot, picture.Background, {Green, Magenta, 0, 1000, 50, -50});
        PixelCanvas expected(185, 125, Rgb(200, 200, 200));
        const char *inputs[] = {"0.00", "100", "200", "300", "400", "500", "600", "700", "800", "900", "1.00k"};
        // 30 + 10 i - 5 * length / 2, ties to even
        const int lefts[] = {20, 32, 42, 52, 62, 72, 82, 92, 102, 112, 118};
        const char *outputs[] = {"-50.0", "-40.0", "-30.0", "-20.0", "-10.0", "0.00",
                                 "10.0",  "20.0",  "30.0",  "40.0",  "50.0"};
        for (int i = 0; i <= 10; ++i) {
            DrawPictureText(expected.Image, lefts[i], 107, QString::fromLatin1(inputs[i]), Green);
            // 105 - 10 i - 4.5 is half way, and the even neighbour lies below
            DrawPictureText(expected.Image, 0, 100 - 10 * i, QString::fromLatin1(outputs[i]), Magenta);
        }
        QCOMPARE(Difference(picture.Background.Image(), expected.Image), QString());
    }

    void ReferenceNumbersClearWhatStoodThereOnlyWhenEnabled()
    {
        Picture picture(100, 100, 30);
        picture.Background.Text(0, 0, QStringLiteral("old"));
        const QImage before = picture.Background.Image().copy();
        const ReferenceAxes axes{Green, Magenta, 0, 10, 10, 0};
        DrawReferenceAxisText(false, picture.Plot, picture.Background, axes);
        QCOMPARE(Difference(picture.Background.Image(), before), QString());
        DrawReferenceAxisText(true, picture.Plot, picture.Background, axes);
        const QImage once = picture.Background.Image().copy();
        QVERIFY(!Difference(once, before).isEmpty());
        picture.Background.Text(150, 0, QStringLiteral("old"));
        DrawReferenceAxisText(true, picture.Plot, picture.Background, axes);
        QCOMPARE(Difference(picture.Background.Image(), once), QString());
    }

    void ReferenceGridOfAnySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("grid");
        for (const bool grid : {true, false}) {
            for (const QSize size : {QSize(50, 50), QSize(400, 400), QSize(600, 600), QSize(430, 385), QSize(125, 75)})
                QTest::addRow("%d x %d %s", size.width(), size.height(), grid ? "dotted" : "plain") << size << grid;
        }
    }

    void ReferenceGridOfAnySize()
    {
        QFETCH(QSize, size);
        QFETCH(bool, grid);
        Picture picture(size.width(), size.height());
        picture.Plot.DrawWidth = 2;
        picture.Plot.Line(0, 0, 49, 49);
        const ColourRef paper = Rgb(255, 255, 240);
        DrawReferenceGrid(grid, picture.Plot, Magenta, paper);
        PixelCanvas expected(size.width(), size.height(), paper);
        expected.Fill(0, 0, 0, size.height() - 1, Magenta);
        expected.Fill(0, size.height() - 1, size.width() - 1, size.height() - 1, Magenta);
        expected.Ticks(10, 10, Magenta);
        if (grid)
            expected.Dots(10, 10, Magenta);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

    // In the smallest picture every tick is one pixel: a second line along each edge.
    void TicksOfTheSmallestReferencePicture()
    {
        Picture picture(50, 50);
        DrawReferenceGrid(false, picture.Plot, Green, Black);
        PixelCanvas expected(50, 50, Black);
        expected.Fill(0, 0, 0, 49, Green);
        expected.Fill(0, 49, 49, 49, Green);
        expected.Fill(1, 1, 49, 1, Green);
        expected.Fill(1, 48, 49, 48, Green);
        expected.Fill(1, 1, 1, 49, Green);
        expected.Fill(48, 1, 48, 49, Green);
        QCOMPARE(Difference(picture.Plot.Image(), expected.Image), QString());
    }

private:
    static void Overloads()
    {
        QTest::addColumn<double>("overload");
        for (const double overload : {-8888.0, -7777.0, 9e15, -9e15})
            QTest::addRow("%g", overload) << overload;
    }
};

QTEST_MAIN(TestDispFunction)
#include "tst_disp_function.moc"
