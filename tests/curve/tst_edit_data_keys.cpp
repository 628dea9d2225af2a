/// @file
/// The rules of the dialogue of reference rows that are plain functions: key filters and the limit of currents.
#include "curve/EditDataModule.h"
#include "support/BareFrame.h"
#include "support/ErrorOf.h"

Q_DECLARE_METATYPE(ValueKeyVerdict)

class EditDataKeysTest : public QObject {
    Q_OBJECT

private slots:
    void value_keys_are_tested_in_order_data();
    void value_keys_are_tested_in_order();
    void a_number_beyond_single_fails_to_convert();
    void the_row_number_takes_digits_backspace_and_enter();
    void the_current_limit_depends_on_unit_function_and_model_data();
    void the_current_limit_depends_on_unit_function_and_model();
};

void EditDataKeysTest::value_keys_are_tested_in_order_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<ValueKeyVerdict>("verdict");
    using enum ValueKeyVerdict;
    const auto row = [](const char *name, int key, const char *text, ValueKeyVerdict verdict) {
        QTest::newRow(name) << key << QString::fromLatin1(text) << verdict;
    };
    row("digit 0", '0', "", Accepted);
    row("digit 9", '9', "", Accepted);
    row("minus first", '-', "", Accepted);
    row("minus anywhere", '-', "12", Accepted);
    row("minus twice", '-', "-", Accepted);
    row("first point", '.', "12", Accepted);
    row("second point", '.', "1.2", Swallowed);
    row("digit behind a point", '3', "1.2", Accepted);
    row("backspace", 8, "1.2", Accepted);
    row("enter", 13, "1.2", Accepted);
    row("letter", 'a', "", Swallowed);
    row("exponent", 'E', "1", Swallowed);
    row("plus", '+', "", Swallowed);
    row("comma", ',', "", Swallowed);
    row("blank", ' ', "", Swallowed);
    row("paste", 22, "", Swallowed);
    row("delete character", 127, "", Swallowed);
    row("full-width digit", 0xFF11, "", Swallowed);
    row("character whose low half is a digit", 0x10031, "", Swallowed);
    row("a bad key is swallowed whatever the text", 'x', "999999999", Swallowed);
    row("a second point is swallowed at 12 characters", '.', "1.2345678901", Swallowed);
    row("12th character", '1', "12345678.12", Accepted);
    row("13th character", '1', "12345678.123", TooLong);
    row("13th character, a point", '.', "123456789012", TooLong);
    row("13th character, a minus", '-', "123456789012", TooLong);
    row("backspace at 12", 8, "12345678.123", Accepted);
    row("enter at 12", 13, "12345678.123", Accepted);
    row("the length comes ahead of the value", '1', "999999999999", TooLong);
    row("backspace on a value too large", 8, "999999999999", OutOfRange);
    row("largest value", '0', "120000000", Accepted);
    row("equal to the largest in single precision", '0', "120000003", Accepted);
    row("above the largest", '0', "120000008", OutOfRange);
    row("negative above the largest", '0', "-120000008", OutOfRange);
    row("backspace above the largest", 8, "120000008", OutOfRange);
    row("enter above the largest", 13, "123456789", OutOfRange);
    row("typed up to 123456789", '9', "12345678", Accepted);
    row("key behind 123456789", '0', "123456789", OutOfRange);
    row("a bad value may get a point", '.', "123456789", OutOfRange);
    row("smallest value", '0', "0.000000001", Accepted);
    row("negative smallest value", '0', "-.000000001", Accepted);
    row("below the smallest", 13, "0.0000000009", OutOfRange);
    row("zero", '1', "0.000000000", Accepted);
    row("empty text", 13, "", Accepted);
    row("point alone", '5', ".", Accepted);
    row("minus alone", '5', "-", Accepted);
}

void EditDataKeysTest::value_keys_are_tested_in_order()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QTEST(TestValueKey(key, text), "verdict");
}

void EditDataKeysTest::a_number_beyond_single_fails_to_convert()
{
    QCOMPARE(ErrorOf([] { TestValueKey(8, QStringLiteral("1") + QString(39, u'0')); }), ErrorNumber::Overflow);
    QCOMPARE(TestValueKey(8, QStringLiteral("1") + QString(38, u'0')), ValueKeyVerdict::OutOfRange);
}

void EditDataKeysTest::the_row_number_takes_digits_backspace_and_enter()
{
    QString passing;
    for (int key = 1; key < 0x300; ++key) {
        if (RowNumberKeyPasses(key))
            passing += QChar(static_cast<char16_t>(key));
    }
    QCOMPARE(passing, QStringLiteral("\x08\x0d"
                                     "0123456789"));
    QVERIFY(!RowNumberKeyPasses(0xFF11));
    QVERIFY(!RowNumberKeyPasses(0x10031));
}

void EditDataKeysTest::the_current_limit_depends_on_unit_function_and_model_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("function");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("exceeded");
    const auto row = [](const char *name, int kind, int function, const char *unit, double value, bool exceeded) {
        QTest::newRow(name) << kind << function << QString::fromLatin1(unit) << value << exceeded;
    };
    row("A at the limit", 2, 2, "A", 0.22, false);
    row("A above", 2, 2, "A", 0.2200001, true);
    row("A below zero", 2, 2, "A", -0.23, true);
    row("A below zero at the limit", 2, 2, "A", -0.22, false);
    row("mA at the limit", 2, 2, "mA", 220, false);
    row("mA above", 2, 2, "mA", 220.001, true);
    row("mA below zero", 2, 2, "mA", -220.001, true);
    row("uA at the limit", 2, 2, "uA", 220000, false);
    row("uA above", 2, 2, "uA", 220000.5, true);
    row("uA below zero", 2, 2, "uA", -220001, true);
    row("another unit", 2, 2, "V", 1e6, false);
    row("the unit is compared exactly", 2, 2, "ma", 1e6, false);
    row("voltage", 2, 0, "A", 1, false);
    row("another function", 2, 4, "A", 1, false);
    row("KV7050", 1, 2, "A", 1, false);
    row("another model", 0, 2, "A", 1, false);
}

void EditDataKeysTest::the_current_limit_depends_on_unit_function_and_model()
{
    QFETCH(int, kind);
    QFETCH(int, function);
    QFETCH(QString, unit);
    QFETCH(double, value);
    ResetAllTables();
    InstrumentKind = static_cast<std::int16_t>(kind);
    SensorProjects[3].MeasFunction = function;
    SensorProjects[3].InputUnit = unit;
    QTEST(CurrentLimitExceeded(3, value), "exceeded");
}

QTEST_MAIN(EditDataKeysTest)
#include "tst_edit_data_keys.moc"
