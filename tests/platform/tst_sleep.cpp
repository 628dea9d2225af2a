/// @file
/// The blocking pause.

#include "platform/Sleep.h"

#include <QElapsedTimer>
#include <QtTest>

#include <limits>

class TestSleep : public QObject {
    Q_OBJECT

private slots:
    void blocksForAtLeastTheTimeGiven()
    {
        QElapsedTimer clock;
        clock.start();
        Sleep(30);
        QVERIFY(clock.nsecsElapsed() >= 30'000'000);
    }

    void returnsAtOnceWithoutATime()
    {
        QElapsedTimer clock;
        clock.start();
        Sleep(0);
        Sleep(-1);
        Sleep(std::numeric_limits<int>::min());
        QVERIFY(clock.elapsed() < 1000);
    }
};

QTEST_GUILESS_MAIN(TestSleep)
#include "tst_sleep.moc"
