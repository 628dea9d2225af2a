/// @file
/// The sensor dialogue, finished by Enter in one of its lists, which checks otherwise than Done.
#include "project/SensorPropertyBench.h"

#include <optional>

class TestSensorPropertyEnter : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void listEnterChecksInOrder_data();
    void listEnterChecksInOrder();
    void listEnterRefusesNoOutputUnitWhereDoneAccepts();
    void longNameIsCutByDoneAndNotByAList();
    void listEnterCutsAtTwentyAndGoesOn_data();
    void listEnterCutsAtTwentyAndGoesOn();
    void listEnterLooksNeitherAtUnitNorAtResistance();
    void listEnterRefreshesNoList();
    void otherKeysInListsFinishNothing();

private:
    std::optional<SensorPropertyBench> m_bench;
};

void TestSensorPropertyEnter::listEnterChecksInOrder_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("list");
    for (const int language : {0, 1}) {
        for (const char *list : {"Combtype", "CombInunit", "CombOutunit"})
            QTest::addRow("%s %s", list, language == 0 ? "Chinese" : "English")
                << language << QString::fromLatin1(list);
    }
}

/// Every failure is put right in turn, while the later ones still stand.
void TestSensorPropertyEnter::listEnterChecksInOrder()
{
    QFETCH(int, language);
    QFETCH(QString, list);
    CurrentLanguage = language;
    OpenNew([&list](SensorPropertyFrm &form) {
        auto *combo = form.findChild<ListCombo *>(list);
        const auto refused = [&form, combo](const Text &text) {
            BoxAnswers answers({Ok});
            QTest::keyClick(combo, Qt::Key_Return);
            const bool open = form.isVisible() && ProjectCount == 0 && NewProjectMode;
            return open && answers.Texts() == QStringList{text.InCurrentLanguage()} &&
                   answers.Shown().front().Icon == QMessageBox::Warning &&
                   answers.Shown().front().Title == QStringLiteral("Ostrakon");
        };
        form.Combtype->AddItem(userType);
        if (list == QStringLiteral("CombInunit")) {
            QVERIFY(refused(typeUnsupported)); // ahead of the missing type
            Choose(form.Combtype, userType);
            QVERIFY(refused(typeUnsupported));
            Choose(form.Combtype, QStringLiteral("DCV"));
            QVERIFY(refused(typeMissing)); // no output unit
            Click(form.OptUser);
            QVERIFY(refused(unitMissing));
            Retype(form.TxtUnit, QStringLiteral("m"));
        } else {
            QVERIFY(refused(typeMissing));
            Choose(form.Combtype, userType);
            QVERIFY(refused(typeMissing)); // no output unit
            Click(form.OptUser);
            QVERIFY(refused(unitMissing));
            Retype(form.TxtUnit, QStringLiteral("m"));
            QVERIFY(refused(typeUnsupported));
            Choose(form.Combtype, QStringLiteral("DCV"));
        }
        QVERIFY(refused(nameMissing));
        for (const char *hint : {nameHint.English, nameHint.Chinese}) {
            form.Txtname->setText(QString::fromUtf8(hint));
            QVERIFY(refused(nameMissing));
        }
        form.Txtname->clear();
        QVERIFY(refused(nameMissing));
        Retype(form.Txtname, QStringLiteral("Probe"));
        const BoxAnswers none;
        QTest::keyClick(combo, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].OutputUnit, QStringLiteral("m"));
    QVERIFY(!NewProjectMode);
}

void TestSensorPropertyEnter::listEnterRefusesNoOutputUnitWhereDoneAccepts()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        {
            BoxAnswers answers({Ok});
            QTest::keyClick(form.Combtype, Qt::Key_Return);
            QCOMPARE(answers.Texts(), QStringList{typeMissing.InCurrentLanguage()});
        }
        // A built-in sensor has no output unit to choose, and is refused all the same.
        Choose(form.Combtype, QStringLiteral("THERM"));
        {
            BoxAnswers answers({Ok});
            QTest::keyClick(form.Combtype, Qt::Key_Return);
            QCOMPARE(answers.Texts(), QStringList{typeMissing.InCurrentLanguage()});
        }
        Choose(form.Combtype, QStringLiteral("DCV"));
        QCOMPARE(int(ProjectCount), 0);
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].OutputUnit, QString());
}

void TestSensorPropertyEnter::longNameIsCutByDoneAndNotByAList()
{
    const QString name = QStringLiteral("abcdefghijklmno");
    OpenNew([&name](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        Retype(form.Txtname, name);
        QTest::keyClick(form.CombOutunit, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(SensorProjects[0].SensorName, name);
    OpenNew([&name](SensorPropertyFrm &form) {
        FillGood(form);
        Retype(form.Txtname, name);
        BoxAnswers answers({Ok});
        Click(form.ComdEnter);
        QCOMPARE(answers.Texts(), QStringList{nameCutByDone.InCurrentLanguage()});
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefghi"));
        QVERIFY(form.isVisible());
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(SensorProjects[1].SensorName, QStringLiteral("abcdefghi"));
}

void TestSensorPropertyEnter::listEnterCutsAtTwentyAndGoesOn_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("length");
    QTest::newRow("20") << 1 << 20;
    QTest::newRow("21") << 1 << 21;
    QTest::newRow("25 Chinese") << 0 << 25;
}

void TestSensorPropertyEnter::listEnterCutsAtTwentyAndGoesOn()
{
    QFETCH(int, language);
    QFETCH(int, length);
    CurrentLanguage = language;
    const bool cut = length > 20;
    OpenNew([&](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        Retype(form.Txtname, QString(length, QLatin1Char('n')));
        BoxAnswers answers(cut ? Buttons{Ok} : Buttons{});
        QTest::keyClick(form.Combtype, Qt::Key_Return);
        QCOMPARE(answers.Texts(), cut ? QStringList{nameCutByList.InCurrentLanguage()} : QStringList{});
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].SensorName, QString(20, QLatin1Char('n')));
}

void TestSensorPropertyEnter::listEnterLooksNeitherAtUnitNorAtResistance()
{
    const BoxAnswers none;
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form, QStringLiteral("DCV"));
        Click(form.OptUser);
        Retype(form.TxtUnit, QStringLiteral("abcde"));
        QTest::keyClick(form.CombInunit, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(SensorProjects[0].OutputUnit, QStringLiteral("abcde"));
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        Choose(form.Combtype, QStringLiteral("RTD"));
        Retype(form.TextR0, QStringLiteral("5"));
        QTest::keyClick(form.Combtype, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(SensorProjects[1].RtdR0, 5.0F);
}

void TestSensorPropertyEnter::listEnterRefreshesNoList()
{
    const SensorProjFrm &other = m_bench->AddProject(0);
    PutRow(0, 1, 1.0, 2.0);
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Choose(form.CombOutunit, QStringLiteral("kg"));
        QTest::keyClick(form.Combtype, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(other.EditDataView->LineCount(), 0);
}

void TestSensorPropertyEnter::otherKeysInListsFinishNothing()
{
    const BoxAnswers none;
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form, QStringLiteral("RTD"));
        QTest::keyClick(form.Combtype, Qt::Key_R);
        // Enter in the two other lists does nothing either.
        QTest::keyClick(form.CombSubType, Qt::Key_Return);
        QTest::keyClick(form.Comboa, Qt::Key_Return);
        QTest::keyClick(form.TextR0, Qt::Key_Return);
        QVERIFY(form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 0);
}

QTEST_MAIN(TestSensorPropertyEnter)
#include "tst_sensor_property_enter.moc"
