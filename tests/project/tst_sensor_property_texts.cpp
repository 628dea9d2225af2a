/// @file
/// The name and the unit in the sensor dialogue: which keys they take, and what leaving them does.
#include "project/SensorPropertyBench.h"

#include <QClipboard>
#include <QInputMethodEvent>

#include <optional>

namespace {

/// Leaves a text by the Tab key: the keyboard goes on, or a box tells of a cut and the keyboard comes back to the end.
void LeaveByTab(SensorPropertyFrm &form, TextBox *text, const QString &left, const Text *cut)
{
    BoxAnswers answers(cut != nullptr ? Buttons{Ok} : Buttons{});
    QTest::keyClick(text, Qt::Key_Tab);
    QCOMPARE(text->text(), left);
    if (cut == nullptr) {
        QVERIFY(!text->hasFocus());
        return;
    }
    QCOMPARE(answers.Texts(), QStringList{cut->InCurrentLanguage()});
    QCOMPARE(answers.Shown().front().Icon, QMessageBox::Information);
    // The keyboard comes back with the window, which nobody but a window manager brings back to the front.
    QCOMPARE(form.focusWidget(), text);
    form.activateWindow();
    QTRY_VERIFY(text->hasFocus());
    QCOMPARE(text->cursorPosition(), left.size());
    QVERIFY(!text->hasSelectedText());
}

} // namespace

class TestSensorPropertyTexts : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void nameKeys();
    void unitKeys();
    void hintOfEitherLanguageIsKnown();

    void firstKeyReplacesTheHint_data();
    void firstKeyReplacesTheHint();
    void otherKeysAreSwallowedInTheName();
    void otherKeysAreSwallowedInTheUnit();
    void mousePressEmptiesALockedNameOnly();
    void leavingANameWithSelection_data();
    void leavingANameWithSelection();
    void leavingAUnitWithSelection_data();
    void leavingAUnitWithSelection();

private:
    std::optional<SensorPropertyBench> m_bench;
};

void TestSensorPropertyTexts::nameKeys()
{
    const QString accepted = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_");
    for (int key = 0; key < 0x250; ++key) {
        const bool expected = key == 8 || key == 13 || (key > 0 && accepted.contains(QChar(key)));
        QVERIFY2(SensorNameKeyPasses(key) == expected, qPrintable(QString::number(key)));
    }
    QVERIFY(!SensorNameKeyPasses(U'温'));
    QVERIFY(!SensorNameKeyPasses(0x10041)); // "A" in its low bits alone
}

void TestSensorPropertyTexts::unitKeys()
{
    const QString accepted = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    for (int key = 0; key < 0x250; ++key) {
        const bool expected = key == 8 || key == 13 || (key > 0 && accepted.contains(QChar(key)));
        QVERIFY2(OutputUnitKeyPasses(key) == expected, qPrintable(QString::number(key)));
    }
    QVERIFY(!OutputUnitKeyPasses(U'℃'));
}

void TestSensorPropertyTexts::hintOfEitherLanguageIsKnown()
{
    for (const std::int32_t language : {0, 1}) {
        CurrentLanguage = language;
        QVERIFY(IsSensorNameHint(QString::fromUtf8(nameHint.English)));
        QVERIFY(IsSensorNameHint(QString::fromUtf8(nameHint.Chinese)));
        QVERIFY(!IsSensorNameHint(QString()));
        QVERIFY(!IsSensorNameHint(QStringLiteral("<Input sensor name here> ")));
        QVERIFY(!IsSensorNameHint(QStringLiteral("Probe")));
    }
}

void TestSensorPropertyTexts::firstKeyReplacesTheHint_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

void TestSensorPropertyTexts::firstKeyReplacesTheHint()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    OpenNew([](SensorPropertyFrm &form) {
        QTest::keyClick(form.Txtname, 'P');
        QCOMPARE(form.Txtname->text(), QStringLiteral("P"));
        QVERIFY(!form.Txtname->Locked());
        QTest::keyClicks(form.Txtname, QStringLiteral("t_1"));
        QCOMPARE(form.Txtname->text(), QStringLiteral("Pt_1"));
        QTest::keyClick(form.Txtname, Qt::Key_Backspace);
        QCOMPARE(form.Txtname->text(), QStringLiteral("Pt_"));
    });
}

void TestSensorPropertyTexts::otherKeysAreSwallowedInTheName()
{
    OpenNew([](SensorPropertyFrm &form) {
        QTest::keyClicks(form.Txtname, QStringLiteral("a b-c.d/e\"f;"));
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdef"));
        QInputMethodEvent event;
        event.setCommitString(QStringLiteral("温g"));
        QApplication::sendEvent(form.Txtname, &event);
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefg"));
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        QTest::keyClick(form.Txtname, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefg"));
    });
}

void TestSensorPropertyTexts::otherKeysAreSwallowedInTheUnit()
{
    OpenNew([](SensorPropertyFrm &form) {
        Click(form.OptUser);
        QTest::keyClicks(form.TxtUnit, QStringLiteral("1m_ /%"));
        QCOMPARE(form.TxtUnit->text(), QStringLiteral("m"));
        QTest::keyClick(form.TxtUnit, Qt::Key_Backspace);
        QCOMPARE(form.TxtUnit->text(), QString());
    });
}

void TestSensorPropertyTexts::mousePressEmptiesALockedNameOnly()
{
    OpenNew([](SensorPropertyFrm &form) {
        Click(form.Txtname);
        QCOMPARE(form.Txtname->text(), QString());
        QVERIFY(!form.Txtname->Locked());
        QTest::keyClicks(form.Txtname, QStringLiteral("Pt"));
        Click(form.Txtname);
        QCOMPARE(form.Txtname->text(), QStringLiteral("Pt"));
    });
}

void TestSensorPropertyTexts::leavingANameWithSelection_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<QString>("left");
    QTest::addColumn<bool>("box");
    for (const int language : {0, 1}) {
        const char *tongue = language == 0 ? "Chinese" : "English";
        const QString hint = QString::fromUtf8(language == 0 ? nameHint.Chinese : nameHint.English);
        const QString otherHint = QString::fromUtf8(language == 0 ? nameHint.English : nameHint.Chinese);
        QTest::addRow("%s, hint", tongue) << language << hint << true << QString() << false;
        QTest::addRow("%s, hint of the other language", tongue) << language << otherHint << true << QString() << false;
        QTest::addRow("%s, hint not selected", tongue) << language << hint << false << hint << false;
        QTest::addRow("%s, nine", tongue)
            << language << QStringLiteral("abcdefghi") << true << QStringLiteral("abcdefghi") << false;
        QTest::addRow("%s, ten", tongue) << language << QStringLiteral("abcdefghij") << true
                                         << QStringLiteral("abcdefghi") << true;
        QTest::addRow("%s, ten not selected", tongue)
            << language << QStringLiteral("abcdefghij") << false << QStringLiteral("abcdefghij") << false;
    }
}

void TestSensorPropertyTexts::leavingANameWithSelection()
{
    QFETCH(int, language);
    QFETCH(QString, name);
    QFETCH(bool, selected);
    QFETCH(QString, left);
    QFETCH(bool, box);
    CurrentLanguage = language;
    OpenNew([&](SensorPropertyFrm &form) {
        QTRY_VERIFY(form.isActiveWindow());
        form.Txtname->setFocus();
        QTRY_VERIFY(form.Txtname->hasFocus());
        form.Txtname->setText(name);
        if (selected)
            form.Txtname->setSelection(0, 3);
        else
            form.Txtname->deselect();
        LeaveByTab(form, form.Txtname, left, box ? &nameCutOnLeaving : nullptr);
    });
}

void TestSensorPropertyTexts::leavingAUnitWithSelection_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<QString>("left");
    QTest::addColumn<bool>("box");
    for (const int language : {0, 1}) {
        const char *tongue = language == 0 ? "Chinese" : "English";
        QTest::addRow("%s, two", tongue) << language << QStringLiteral("ab") << true << QStringLiteral("ab") << false;
        QTest::addRow("%s, three", tongue) << language << QStringLiteral("abc") << true << QStringLiteral("ab") << true;
        QTest::addRow("%s, three not selected", tongue)
            << language << QStringLiteral("abc") << false << QStringLiteral("abc") << false;
    }
}

void TestSensorPropertyTexts::leavingAUnitWithSelection()
{
    QFETCH(int, language);
    QFETCH(QString, unit);
    QFETCH(bool, selected);
    QFETCH(QString, left);
    QFETCH(bool, box);
    CurrentLanguage = language;
    OpenNew([&](SensorPropertyFrm &form) {
        QTRY_VERIFY(form.isActiveWindow());
        Click(form.OptUser);
        form.TxtUnit->setFocus();
        QTRY_VERIFY(form.TxtUnit->hasFocus());
        form.TxtUnit->setText(unit);
        if (selected)
            form.TxtUnit->selectAll();
        LeaveByTab(form, form.TxtUnit, left, box ? &unitCut : nullptr);
    });
}

QTEST_MAIN(TestSensorPropertyTexts)
#include "tst_sensor_property_texts.moc"
