/// @file
/// The sampling period: what its box takes, and what a new one sets.
#include "measure/RunBench.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>

namespace {

constexpr const char *ShortEnglish = "The Minimum sampling cycle is 1 second! ";
constexpr const char *ShortChinese = "最小抽样周期是1秒! ";
constexpr const char *LongEnglish = "The maximum sampling cycle is 1 minute! ";
constexpr const char *LongChinese = "最大抽样周期是1分钟! ";
constexpr const char *FineEnglish = "The sampling precision is 0.1 second! ";
constexpr const char *FineChinese = "抽样精度到0.1秒! ";
constexpr const char *WrongChinese = "抽样周期时间填写有误，请重新填写! ";

/// Makes the frame the active window, without which no control has the focus.
void Activate(RunBench &bench)
{
    bench.bare.frame.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bench.bare.frame));
}

} // namespace

class SamplePeriodTest : public QObject {
    Q_OBJECT

private slots:
    void textBecomesThePeriod_data();
    void textBecomesThePeriod();
    void wrongTextChangesNothing_data();
    void wrongTextChangesNothing();
    void windowOfAnEmptyRecordGrowsWithThePeriod();
    void bothRecordsKeepTheirLeftEdge();
    void bothCurvesAreDrawnAnew();
    void periodBelongsToTheWindowOfTheField();
    void leavingTheFieldAppliesIt();
    void focusReturnsOnAWrongText();
    void periodHoldsForTheNextRun();
    void filterLetsDigitsAndPointPass_data();
    void filterLetsDigitsAndPointPass();
    void filterKnowsNoCharacterBeyondThem();
    void keysOfTheFieldAreFiltered();
    void filterLooksAtTheTextAheadOfTheKey();
    void rightPressEmptiesTheClipboard();
};

void SamplePeriodTest::textBecomesThePeriod_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("interval"); // ms
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    const auto add = [](const char *text, const char *shown, int interval, const char *english = "",
                        const char *chinese = "") {
        QTest::addRow("\"%s\"", text) << QString::fromUtf8(text) << QString::fromUtf8(shown) << interval
                                      << QString::fromUtf8(english) << QString::fromUtf8(chinese);
    };
    add("1.0", "1.0", 1000);
    add("1", "1.0", 1000);
    add("1.", "1.0", 1000);
    add(" 3 ", "3.0", 3000);
    add("2.5", "2.5", 2500);
    add("1.1", "1.1", 1100);
    add("59.9", "59.9", 59900);
    add("60", "60.0", 60000);
    add("0.9996", "1.0", 1000); // rounds up to the shortest period
    add("0.9995", "1.0", 1000); // 999.5, a tie
    add("1.0005", "1.0", 1000); // 1000.5, a tie
    add("0.95", "1.0", 1000, ShortEnglish, ShortChinese);
    add("0.9994", "1.0", 1000, ShortEnglish, ShortChinese);
    add("0", "1.0", 1000, ShortEnglish, ShortChinese);
    add(".5", "1.0", 1000, ShortEnglish, ShortChinese);
    add("-5", "1.0", 1000, ShortEnglish, ShortChinese);
    add("61", "60.0", 60000, LongEnglish, LongChinese);
    add("60.1", "60.0", 60000, LongEnglish, LongChinese);
    add("60.04", "60.0", 60000, LongEnglish, LongChinese);
    add("9999", "60.0", 60000, LongEnglish, LongChinese);
    add("1e3", "60.0", 60000, LongEnglish, LongChinese);
    add("1.25", "1.2", 1200, FineEnglish, FineChinese);
    add("1.29", "1.2", 1200, FineEnglish, FineChinese);
    add("1.001", "1.0", 1000, FineEnglish, FineChinese);
    add("1.0015", "1.0", 1000, FineEnglish, FineChinese); // 1001.5, a tie
    add("59.95", "59.9", 59900, FineEnglish, FineChinese);
}

void SamplePeriodTest::textBecomesThePeriod()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    QFETCH(int, interval);
    QFETCH(QString, english);
    QFETCH(QString, chinese);
    for (const std::int32_t language : {LanguageEnglish, LanguageChinese}) {
        if (language == LanguageChinese && chinese.isEmpty())
            break; // nothing is said
        RunBench bench;
        CurrentLanguage = language;
        bench.Form().Timer1->setInterval(7700);
        bench.Form().TxtSample->setText(text);
        if (!english.isEmpty())
            bench.boxes.Add(QMessageBox::Ok);
        ApplySamplePeriod(bench.Form());

        const QString told = language == LanguageEnglish ? english : chinese;
        QCOMPARE(bench.boxes.Texts(), told.isEmpty() ? QStringList() : QStringList{told});
        if (!told.isEmpty()) {
            QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Information);
            QCOMPARE(bench.boxes.Shown().front().Title, QStringLiteral("Ostrakon"));
        }
        QCOMPARE(bench.Form().TxtSample->text(), shown);
        QCOMPARE(bench.Form().Timer1->interval(), interval);
        QVERIFY(!bench.Form().Timer1->isActive());
        QCOMPARE(ValueWave[0].Step, interval / 1000.0);
        QCOMPARE(MeasureWave[0].Step, interval / 1000.0);
    }
}

void SamplePeriodTest::wrongTextChangesNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"", " ", "abc", "1,5", ".", "1 2", "1.2.3", "2s", "nan", "inf", "0x10", "1e999"})
        QTest::addRow("\"%s\"", text) << QString::fromLatin1(text);
}

void SamplePeriodTest::wrongTextChangesNothing()
{
    QFETCH(QString, text);
    for (const std::int32_t language : {LanguageEnglish, LanguageChinese}) {
        RunBench bench;
        CurrentLanguage = language;
        bench.Form().Timer1->setInterval(3200);
        for (WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
            record->Step = 3.2;
            record->XMax = 192;
        }
        bench.Form().TxtSample->setText(text);
        bench.boxes.Add(QMessageBox::Ok);
        ApplySamplePeriod(bench.Form());

        const QString told = QString::fromUtf8(language == LanguageEnglish ? ShortEnglish : WrongChinese);
        QCOMPARE(bench.boxes.Texts(), QStringList{told});
        QCOMPARE(bench.boxes.Shown().front().Icon, QMessageBox::Information);
        QCOMPARE(bench.Form().TxtSample->text(), QStringLiteral("1.0"));
        QCOMPARE(bench.Form().Timer1->interval(), 3200);
        for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
            QCOMPARE(record->Step, 3.2);
            QCOMPARE(record->XMax, 192.0);
        }
    }
}

void SamplePeriodTest::windowOfAnEmptyRecordGrowsWithThePeriod()
{
    RunBench bench;
    QCOMPARE(MeasureWave[0].XMax, 60.0);
    bench.Form().TxtSample->setText(QStringLiteral("2.5"));
    ApplySamplePeriod(bench.Form());
    for (const WaveRecord *record : {&ValueWave[0], &MeasureWave[0]}) {
        QCOMPARE(record->XMin, 0.0);
        QCOMPARE(record->XMax, 150.0);
    }
}

void SamplePeriodTest::bothRecordsKeepTheirLeftEdge()
{
    RunBench bench;
    ValueWave[0].XMin = 10;
    ValueWave[0].WindowSamples = 16;
    MeasureWave[0].XMin = 4;
    MeasureWave[0].WindowSamples = 121;
    bench.Form().TxtSample->setText(QStringLiteral("2"));
    ApplySamplePeriod(bench.Form());
    QCOMPARE(ValueWave[0].XMin, 10.0);
    QCOMPARE(ValueWave[0].XMax, 40.0);
    QCOMPARE(MeasureWave[0].XMin, 4.0);
    QCOMPARE(MeasureWave[0].XMax, 244.0);
    QCOMPARE(ValueWave[0].WindowSamples, 16);
    QCOMPARE(MeasureWave[0].WindowSamples, 121);
}

void SamplePeriodTest::bothCurvesAreDrawnAnew()
{
    RunBench bench;
    const RedrawMark values(*bench.Form().PicTime_Value);
    const RedrawMark readings(*bench.Form().PicTime_Meas);
    QVERIFY(!values.Redrawn());
    QVERIFY(!readings.Redrawn());
    bench.Form().TxtSample->setText(QStringLiteral("2"));
    ApplySamplePeriod(bench.Form());
    QVERIFY(values.Redrawn());
    QVERIFY(readings.Redrawn());
}

void SamplePeriodTest::periodBelongsToTheWindowOfTheField()
{
    RunBench bench;
    SensorProjFrm &second = bench.Add(1);
    QCOMPARE(bench.bare.frame.Children->currentSubWindow(), &second);
    bench.Form(0).TxtSample->setText(QStringLiteral("5"));
    ApplySamplePeriod(bench.Form(0));
    QCOMPARE(bench.Form(0).Timer1->interval(), 5000);
    QCOMPARE(MeasureWave[0].Step, 5.0);
    QCOMPARE(ValueWave[0].Step, 5.0);
    QCOMPARE(second.Timer1->interval(), 1000);
    QCOMPARE(MeasureWave[1].Step, 1.0);
    QCOMPARE(ValueWave[1].Step, 1.0);
}

void SamplePeriodTest::leavingTheFieldAppliesIt()
{
    RunBench bench;
    Activate(bench);
    TextBox &field = *bench.Form().TxtSample;
    field.setFocus();
    QVERIFY(field.hasFocus());
    field.clear();
    QTest::keyClicks(&field, QStringLiteral("4"));
    QTest::keyClick(&field, Qt::Key_Return);
    QCOMPARE(bench.Form().Timer1->interval(), 1000); // Enter is no leaving
    bench.Form().RecordLumoBtn->setFocus();
    QCOMPARE(field.text(), QStringLiteral("4.0"));
    QCOMPARE(bench.Form().Timer1->interval(), 4000);
    QVERIFY(bench.Form().RecordLumoBtn->hasFocus());
}

void SamplePeriodTest::focusReturnsOnAWrongText()
{
    RunBench bench;
    Activate(bench);
    TextBox &field = *bench.Form().TxtSample;
    field.setFocus();
    field.clear();
    QTest::keyClicks(&field, QStringLiteral("1.2."));
    bench.boxes.Add(QMessageBox::Ok);
    bench.Form().RecordLumoBtn->setFocus();
    QCOMPARE(field.text(), QStringLiteral("1.0"));
    Activate(bench); // a window manager does this when a box goes
    QVERIFY(field.hasFocus());
    QCOMPARE(bench.Form().Timer1->interval(), 1000);
    // A text that is put right leaves the focus where it has gone.
    field.setText(QStringLiteral("0.5"));
    bench.boxes.Add(QMessageBox::Ok);
    bench.Form().RecordLumoBtn->setFocus();
    Activate(bench);
    QVERIFY(bench.Form().RecordLumoBtn->hasFocus());
    QCOMPARE(field.text(), QStringLiteral("1.0"));
    QCOMPARE(bench.boxes.Shown().size(), 2);
}

void SamplePeriodTest::periodHoldsForTheNextRun()
{
    RunBench bench;
    bench.Form().TxtSample->setText(QStringLiteral("2.5"));
    ApplySamplePeriod(bench.Form());
    StartMeasurement();
    QVERIFY(bench.Form().Timer1->isActive());
    QCOMPARE(bench.Form().Timer1->interval(), 2500);
    for (int sample = 1; sample <= 62; ++sample)
        bench.Tick("1");
    QCOMPARE(MeasureWave[0].XMin, 2.5);
    QCOMPARE(MeasureWave[0].XMax, 152.5);
    QCOMPARE(MeasureWave[0].Points[61].X, 61.0); // an index, not seconds
}

void SamplePeriodTest::filterLetsDigitsAndPointPass_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("passing");
    const QByteArray all("1234567890.\b\r");
    QTest::newRow("no text yet") << 0 << all;
    QTest::newRow("three characters") << 3 << all;
    QTest::newRow("four characters") << 4 << QByteArray("\b\r");
    QTest::newRow("a longer text, set by the program") << 9 << QByteArray("\b\r");
}

void SamplePeriodTest::filterLetsDigitsAndPointPass()
{
    QFETCH(int, length);
    QFETCH(QByteArray, passing);
    for (int key = 0; key < 256; ++key)
        QCOMPARE(SamplePeriodKeyPasses(key, length), key < 128 && passing.contains(static_cast<char>(key)));
}

void SamplePeriodTest::filterKnowsNoCharacterBeyondThem()
{
    QVERIFY(!SamplePeriodKeyPasses(U'１', 0));          // a full-width digit
    QVERIFY(!SamplePeriodKeyPasses(U'٣', 0));           // an Arabic one
    QVERIFY(!SamplePeriodKeyPasses(0x10000 + U'1', 0)); // the same lower half as a digit
    QVERIFY(!SamplePeriodKeyPasses(0x10000 + 8, 0));
    QVERIFY(!SamplePeriodKeyPasses(-1, 0));
}

void SamplePeriodTest::keysOfTheFieldAreFiltered()
{
    RunBench bench;
    TextBox &field = *bench.Form().TxtSample;
    field.clear();
    QTest::keyClicks(&field, QStringLiteral("1a-2,.e 3+45"));
    QCOMPARE(field.text(), QStringLiteral("12.3"));
    QTest::keyClick(&field, Qt::Key_Backspace);
    QTest::keyClicks(&field, QStringLiteral("7"));
    QCOMPARE(field.text(), QStringLiteral("12.7"));
    QApplication::clipboard()->setText(QStringLiteral("5"));
    field.setText(QStringLiteral("1"));
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field.text(), QStringLiteral("1"));
    QInputMethodEvent committed;
    committed.setCommitString(QStringLiteral("2秒3"));
    QApplication::sendEvent(&field, &committed);
    QCOMPARE(field.text(), QStringLiteral("123"));
}

void SamplePeriodTest::filterLooksAtTheTextAheadOfTheKey()
{
    RunBench bench;
    TextBox &field = *bench.Form().TxtSample;
    field.setText(QStringLiteral("12.5"));
    field.selectAll();
    QTest::keyClicks(&field, QStringLiteral("3"));
    QCOMPARE(field.text(), QStringLiteral("12.5"));
}

void SamplePeriodTest::rightPressEmptiesTheClipboard()
{
    RunBench bench;
    QApplication::clipboard()->setText(QStringLiteral("2.5"));
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
        QTest::mouseClick(bench.Form().TxtSample, button);
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("2.5"));
    }
    QTest::mousePress(bench.Form().TxtSample, Qt::RightButton);
    QCOMPARE(QApplication::clipboard()->text(), QString());
}

QTEST_MAIN(SamplePeriodTest)
#include "tst_sample_period.moc"
