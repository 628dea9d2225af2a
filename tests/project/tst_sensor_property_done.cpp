/// @file
/// The sensor dialogue, finished by its button Done or by Enter in a text: the checks in their order, and the project
/// made.
#include "project/SensorPropertyBench.h"

#include <optional>

class TestSensorPropertyDone : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void doneChecksInOrder_data();
    void doneChecksInOrder();
    void doneCutsTheUnitWithDefaultUnitsToo();
    void doneTestsTheResistance_data();
    void doneTestsTheResistance();
    void doneMakesTheProject_data();
    void doneMakesTheProject();
    void enterInTextsIsDone();
    void doneFillsTheLists();

private:
    std::optional<SensorPropertyBench> m_bench;
};

void TestSensorPropertyDone::doneChecksInOrder_data()
{
    QTest::addColumn<int>("language");
    QTest::newRow("English") << 1;
    QTest::newRow("Chinese") << 0;
}

/// Every failure is put right in turn, while the later ones still stand.
void TestSensorPropertyDone::doneChecksInOrder()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    OpenNew([](SensorPropertyFrm &form) {
        const auto refused = [&form](const Text &text, QMessageBox::Icon icon) {
            BoxAnswers answers({Ok});
            Click(form.ComdEnter);
            const bool open = form.isVisible() && ProjectCount == 0 && NewProjectMode;
            return open && answers.Texts() == QStringList{text.InCurrentLanguage()} &&
                   answers.Shown().front().Icon == icon && answers.Shown().front().Title == QStringLiteral("Ostrakon");
        };
        form.Combtype->AddItem(userType);
        Click(form.OptUser);
        QVERIFY(refused(nameMissing, QMessageBox::Warning));
        for (const char *hint : {nameHint.English, nameHint.Chinese}) {
            form.Txtname->setText(QString::fromUtf8(hint));
            QVERIFY(refused(nameMissing, QMessageBox::Warning));
        }
        form.Txtname->clear();
        QVERIFY(refused(nameMissing, QMessageBox::Warning));
        Retype(form.Txtname, QStringLiteral("abcdefghij"));
        QVERIFY(refused(nameCutByDone, QMessageBox::Information));
        QCOMPARE(form.Txtname->text(), QStringLiteral("abcdefghi"));
        QVERIFY(refused(typeMissing, QMessageBox::Warning));
        Choose(form.Combtype, userType);
        QVERIFY(refused(unitMissing, QMessageBox::Warning));
        Retype(form.TxtUnit, QStringLiteral("abc"));
        QVERIFY(refused(unitCut, QMessageBox::Information));
        QCOMPARE(form.TxtUnit->text(), QStringLiteral("ab"));
        QVERIFY(refused(typeUnsupported, QMessageBox::Warning));
        Choose(form.Combtype, QStringLiteral("RTD"));
        Retype(form.TextR0, QString());
        QVERIFY(refused(parameterMissing, QMessageBox::Warning));
        Retype(form.TextR0, QStringLiteral("2101"));
        QVERIFY(refused(parameterWrong, QMessageBox::Warning));
        Retype(form.TextR0, QStringLiteral("500"));
        const BoxAnswers none;
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QCOMPARE(SensorProjects[0].RtdR0, 500.0F);
    QVERIFY(!NewProjectMode);
}

void TestSensorPropertyDone::doneCutsTheUnitWithDefaultUnitsToo()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.OptUser);
        Retype(form.TxtUnit, QStringLiteral("abcd"));
        Click(form.OptDefault);
        BoxAnswers answers({Ok});
        Click(form.ComdEnter);
        QCOMPARE(answers.Texts(), QStringList{unitCut.InCurrentLanguage()});
        QCOMPARE(form.TxtUnit->text(), QStringLiteral("ab"));
        QVERIFY(form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 0);
}

void TestSensorPropertyDone::doneTestsTheResistance_data()
{
    QTest::addColumn<QString>("ohms");
    QTest::addColumn<bool>("passes");
    QTest::newRow("48.9") << QStringLiteral("48.9") << false;
    QTest::newRow("49") << QStringLiteral("49") << true;
    QTest::newRow("2100") << QStringLiteral("2100") << true;
    QTest::newRow("2100.5") << QStringLiteral("2100.5") << false;
    QTest::newRow("no number") << QStringLiteral("abc") << false;
    QTest::newRow("negative") << QStringLiteral("-100") << false;
}

void TestSensorPropertyDone::doneTestsTheResistance()
{
    QFETCH(QString, ohms);
    QFETCH(bool, passes);
    for (const int subType : {0, 1}) {
        const int before = ProjectCount;
        OpenNew([&](SensorPropertyFrm &form) {
            FillGood(form, QStringLiteral("RTD"));
            Choose(form.CombSubType, subType);
            Retype(form.TextR0, ohms);
            BoxAnswers answers(passes ? Buttons{} : Buttons{Ok});
            Click(form.ComdEnter);
            QCOMPARE(answers.Texts(), passes ? QStringList{} : QStringList{parameterWrong.InCurrentLanguage()});
            QCOMPARE(form.isVisible(), !passes);
        });
        QCOMPARE(ProjectCount - before, passes ? 1 : 0);
    }
}

void TestSensorPropertyDone::doneMakesTheProject_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("measFunction");
    QTest::addColumn<bool>("builtIn");
    QTest::newRow("DCV") << QStringLiteral("DCV") << 0 << false;
    QTest::newRow("Frequency") << QStringLiteral("Frequency") << 9 << false;
    QTest::newRow("TC") << QStringLiteral("TC") << 0 << true;
    QTest::newRow("RTD") << QStringLiteral("RTD") << 4 << true;
    QTest::newRow("THERM") << QStringLiteral("THERM") << 4 << true;
}

/// The default output unit stands on "None" all along.
void TestSensorPropertyDone::doneMakesTheProject()
{
    QFETCH(QString, type);
    OpenNew([&](SensorPropertyFrm &form) {
        FillGood(form, type);
        QCOMPARE(form.CombOutunit->ListIndex(), 0);
        const BoxAnswers none;
        Click(form.ComdEnter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    QVERIFY(ProjectOccupied[0]);
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Probe"));
    QTEST(SensorProjects[0].MeasFunction, "measFunction");
    QTEST(SensorProjects[0].IsBuiltInSensor, "builtIn");
    QVERIFY(!NewProjectMode);
    QVERIFY(!EditProjectMode);
}

void TestSensorPropertyDone::enterInTextsIsDone()
{
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        QTest::keyClick(form.Txtname, Qt::Key_Return);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 1);
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.OptUser);
        QTest::keyClicks(form.TxtUnit, QStringLiteral("xy"));
        QTest::keyClick(form.TxtUnit, Qt::Key_Enter);
        QVERIFY(!form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(SensorProjects[1].OutputUnit, QStringLiteral("xy"));
    OpenNew([](SensorPropertyFrm &form) {
        BoxAnswers answers({Ok});
        QTest::keyClick(form.Txtname, Qt::Key_Return);
        QCOMPARE(answers.Texts(), QStringList{nameMissing.InCurrentLanguage()});
        QVERIFY(form.isVisible());
    });
    QCOMPARE(int(ProjectCount), 2);
}

void TestSensorPropertyDone::doneFillsTheLists()
{
    const SensorProjFrm &other = m_bench->AddProject(0);
    PutRow(0, 1, 1.0, 2.0);
    QCOMPARE(other.EditDataView->LineCount(), 0);
    OpenNew([](SensorPropertyFrm &form) {
        FillGood(form);
        Click(form.ComdEnter);
    });
    QCOMPARE(int(ProjectCount), 2);
    QCOMPARE(other.EditDataView->LineCount(), 1);
}

QTEST_MAIN(TestSensorPropertyDone)
#include "tst_sensor_property_done.moc"
