/// @file
/// The text commands of the instrument, letter by letter.

#include "measure/CommandModule.h"

#include <QtTest>

#include <limits>

class TestCommand : public QObject {
    Q_OBJECT

private slots:
    void theFixedTexts()
    {
        QCOMPARE(IdentificationQuery, QStringLiteral("*IDN?"));
        QCOMPARE(IdentificationHandshake, QStringLiteral("IDNSET ZEMRA"));
        QCOMPARE(CommandHandshake, QStringLiteral("CMDSET ZEMRA"));
        QCOMPARE(PeriodGroup, QStringLiteral(":PERIod"));
    }

    void aFunctionGivesItsTwoCommands_data()
    {
        QTest::addColumn<std::int32_t>("measFunction");
        QTest::addColumn<QString>("functionCommand");
        QTest::addColumn<QString>("measureCommand");
        const QString direct = QStringLiteral(":FUNCtion:VOLTage:DC");
        const QString directMeasure = QStringLiteral(":MEASure:VOLTage:DC?");
        const auto row = [](const char *name, std::int32_t code, const char *function, const char *measure) {
            QTest::newRow(name) << code << QString::fromLatin1(function) << QString::fromLatin1(measure);
        };
        row("DCV", 0, ":FUNCtion:VOLTage:DC", ":MEASure:VOLTage:DC?");
        row("ACV", 1, ":FUNCtion:VOLTage:AC", ":MEASure:VOLTage:AC?");
        row("DCI", 2, ":FUNCtion:CURRent:DC", ":MEASure:CURRent:DC?");
        row("ACI", 3, ":FUNCtion:CURRent:AC", ":MEASure:CURRent:AC?");
        row("2WR", 4, ":FUNCtion:RESIstance", ":MEASure:RESIstance?");
        row("4WR", 5, ":FUNCtion:FRESistance", ":MEASure:FRESistance?");
        row("Cont", 6, ":FUNCtion:CONTinuity", ":MEASure:CONTinuity?");
        row("Diode", 7, ":FUNCtion:DIODe", ":MEASure:DIODe?");
        row("Ratio", 8, ":FUNCtion:VOLTage:DC:RATIo", ":MEASure:VOLTage:DC:RATIo?");
        row("Frequency", 9, ":FUNCtion:FREQuency", ":MEASure:FREQuency?");
        for (const std::int32_t other : {10, 11, 255, -1, -32768, std::numeric_limits<std::int32_t>::max(),
                                         std::numeric_limits<std::int32_t>::min()})
            QTest::addRow("other code %d", other) << other << direct << directMeasure;
    }

    void aFunctionGivesItsTwoCommands()
    {
        QFETCH(std::int32_t, measFunction);
        QTEST(ComposeFunctionCommand(measFunction), "functionCommand");
        QTEST(ComposeMeasureCommand(measFunction), "measureCommand");
    }

    /// The text goes to VISA as a format.
    void noCommandHoldsAPercentSignOrALineEnd()
    {
        for (std::int32_t code = -1; code <= 11; ++code) {
            for (const QString &text : {ComposeFunctionCommand(code), ComposeMeasureCommand(code)}) {
                QVERIFY(!text.contains(u'%'));
                QVERIFY(!text.contains(u'\n'));
                QVERIFY(!text.contains(u'\r'));
            }
        }
    }

    void noCommandUsesThePeriodGroup()
    {
        for (std::int32_t code = -1; code <= 11; ++code) {
            QVERIFY(!ComposeFunctionCommand(code).contains(PeriodGroup, Qt::CaseInsensitive));
            QVERIFY(!ComposeMeasureCommand(code).contains(PeriodGroup, Qt::CaseInsensitive));
        }
    }
};

QTEST_GUILESS_MAIN(TestCommand)
#include "tst_command.moc"
