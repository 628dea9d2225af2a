/// @file
/// Run-time errors: their descriptions, and steps that run with errors set aside.

#include "platform/RuntimeError.h"

#include <QtTest>

#include <stdexcept>

class TestRuntimeError : public QObject {
    Q_OBJECT

private slots:
    void describesEachNumberInUse_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("description");
        const std::pair<int, const char *> rows[] = {{5, "Invalid call"},
                                                     {6, "Overflow"},
                                                     {7, "Out of memory"},
                                                     {9, "Out of range"},
                                                     {11, "Division by zero"},
                                                     {13, "Type mismatch"},
                                                     {53, "File not found"},
                                                     {55, "File already open"},
                                                     {57, "Device I/O error"},
                                                     {61, "Disk full"},
                                                     {62, "Input past end of file"},
                                                     {70, "Permission denied"},
                                                     {76, "Path not found"},
                                                     {91, "No object"},
                                                     {8018, "The port is closed"},
                                                     {32751, "No program opens this kind of file"},
                                                     {32755, "Cancelled"},
                                                     {0, "Unknown error"},
                                                     {-1, "Unknown error"},
                                                     {14, "Unknown error"}};
        for (const auto &[number, description] : rows)
            QTest::addRow("%d", number) << number << QString::fromLatin1(description);
    }
    void describesEachNumberInUse()
    {
        QFETCH(int, number);
        QTEST(ErrorDescription(number), "description");
        QTEST(RuntimeError(number).Description(), "description");
        QCOMPARE(RuntimeError(number).Number(), number);
    }

    void aFailingStepIsLeftWhereItFailedAndTheNextOneIsTried()
    {
        ErrorsSetAside aside;
        QString trace;
        aside.Run([&] {
            trace += u'a';
            throw RuntimeError(ErrorNumber::Overflow);
        });
        aside.Run([&] { trace += u'b'; });
        QCOMPARE(trace, QStringLiteral("ab"));
        QVERIFY(aside.Last().has_value());
        QCOMPARE(aside.Last()->Number(), 6);
    }

    void theLastErrorIsKept()
    {
        ErrorsSetAside aside;
        aside.Run([] { throw RuntimeError(ErrorNumber::Overflow); });
        aside.Run([] { throw RuntimeError(ErrorNumber::DiskFull); });
        aside.Run([] {});
        QVERIFY(aside.Last().has_value());
        QCOMPARE(aside.Last()->Number(), 61);
    }

    void withoutAnErrorThereIsNone()
    {
        ErrorsSetAside aside;
        aside.Run([] {});
        QVERIFY(!aside.Last().has_value());
    }

    void onlyRuntimeErrorsAreSetAside()
    {
        ErrorsSetAside aside;
        QVERIFY_THROWS_EXCEPTION(std::logic_error,
                                 aside.Run([] { throw std::logic_error("a mistake of the program"); }));
        QVERIFY(!aside.Last().has_value());
    }
};

QTEST_GUILESS_MAIN(TestRuntimeError)
#include "tst_runtime_error.moc"
