/// @file
/// The commands that change the properties of a project: what they refuse, and what they do once the dialogue is
/// closed.
#include "project/EditProjectBench.h"

namespace {

constexpr Text runningRefused{"Measuring is running, the project can not be edit! ", "测量正在运行，工程不能被编辑! "};
constexpr Text deviceWrong{"Device can not match.Please create new project! ", "当前工程与设备不匹配，请建立新工程！ "};

} // namespace

class TestEditProject : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<EditProjectBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void dialogueComesUpByEveryEntry_data();
    void dialogueComesUpByEveryEntry();
    void changeIsRefusedDuringARun_data();
    void changeIsRefusedDuringARun();
    void runOfAnotherProjectDoesNotCount();
    void cancelChangesNothing();
    void gridFollowsTheSensor_data();
    void gridFollowsTheSensor();
    void gridFollowsAfterACancelToo();
    void projectThatDoesNotFitCanBeMadeAnother_data();
    void projectThatDoesNotFitCanBeMadeAnother();

private:
    QString Path(const char *name) const { return m_bench->Path(QString::fromUtf8(name)); }

    std::unique_ptr<EditProjectBench> m_bench;
};

void TestEditProject::dialogueComesUpByEveryEntry_data()
{
    QTest::addColumn<QString>("entry");
    for (const char *entry : {"tools menu", "toolbar", "settings menu"})
        QTest::newRow(entry) << QString::fromLatin1(entry);
}

void TestEditProject::dialogueComesUpByEveryEntry()
{
    QFETCH(QString, entry);
    m_bench->MakeProjects(2);
    m_bench->Activate(0);
    SensorProjects[0].SensorName = QStringLiteral("First");
    NewProjectMode = true;
    m_bench->Change(
        [](SensorPropertyFrm &form) {
            QVERIFY(form.isModal());
            QVERIFY(EditProjectMode);
            QVERIFY(!NewProjectMode);
            QCOMPARE(form.Txtname->text(), QStringLiteral("First"));
            QCOMPARE(form.Combtype->Text(), QStringLiteral("DCV"));
            FillVoltage(form);
        },
        entry);
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Scale"));
    QCOMPARE(SensorProjects[1].SensorName, QStringLiteral("Load"));
    QCOMPARE(int(ProjectCount), 2);
    QVERIFY(!EditProjectMode && !NewProjectMode);
}

void TestEditProject::changeIsRefusedDuringARun_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("language");
    for (const char *entry : {"tools menu", "toolbar", "settings menu"}) {
        QTest::addRow("%s, English", entry) << QString::fromLatin1(entry) << 1;
        QTest::addRow("%s, Chinese", entry) << QString::fromLatin1(entry) << 0;
    }
}

void TestEditProject::changeIsRefusedDuringARun()
{
    QFETCH(QString, entry);
    QFETCH(int, language);
    m_bench->NewProjectByMenu();
    CurrentLanguage = language;
    const QTimer &tick = m_bench->StartRun(0);
    ProjectForm[0]->EditDataView->setEnabled(false); // stays: nothing further is done
    BoxAnswers answers({Ok});
    m_bench->EditItem(entry)->trigger(); // a dialogue would wait for ever
    QCOMPARE(answers.Texts(), QStringList{runningRefused.InCurrentLanguage()});
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Warning")); // in both languages
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QVERIFY(!EditProjectMode);
    QVERIFY(tick.isActive());
    QVERIFY(!ProjectForm[0]->EditDataView->isEnabled());
}

/// What counts is the end button of the active window.
void TestEditProject::runOfAnotherProjectDoesNotCount()
{
    m_bench->MakeProjects(2);
    ProjectForm[0]->EndLumoBtn->setEnabled(true);
    m_bench->Change();
    QCOMPARE(SensorProjects[1].SensorName, QStringLiteral("Scale"));
}

void TestEditProject::cancelChangesNothing()
{
    m_bench->OpenNamed(QStringLiteral("stored"));
    ProjectSlots[0].CurveApplied = true;
    const QStringList titles = ColumnTitles(*ProjectForm[0]);
    m_bench->Edit([](SensorPropertyFrm &form) {
        FillThermistor(form);
        form.ComdCancel->click();
    });
    QCOMPARE(SensorProjects[0].SensorName, QStringLiteral("Probe"));
    QVERIFY(ProjectSlots[0].HasFile);
    QVERIFY(ProjectSlots[0].CurveApplied);
    QCOMPARE(ProjectSlots[0].LoadedPath, Path("stored.spj"));
    QCOMPARE(ColumnTitles(*ProjectForm[0]), titles);
    QVERIFY(EditProjectMode);
}

void TestEditProject::gridFollowsTheSensor_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("follows");
    QTest::newRow("tools menu") << QStringLiteral("tools menu") << true;
    QTest::newRow("toolbar") << QStringLiteral("toolbar") << true;
    QTest::newRow("settings menu leaves this out") << QStringLiteral("settings menu") << false;
}

void TestEditProject::gridFollowsTheSensor()
{
    QFETCH(QString, entry);
    QFETCH(bool, follows);
    m_bench->NewProjectByMenu();
    ReportList &grid = *ProjectForm[0]->EditDataView;
    QVERIFY(grid.isEnabled());
    m_bench->Change(FillThermistor, entry);
    QVERIFY(SensorProjects[0].IsBuiltInSensor);
    QCOMPARE(grid.isEnabled(), !follows);
    grid.setEnabled(false);
    m_bench->Change(FillVoltage, entry);
    QVERIFY(!SensorProjects[0].IsBuiltInSensor);
    QCOMPARE(grid.isEnabled(), follows);
}

void TestEditProject::gridFollowsAfterACancelToo()
{
    m_bench->NewProjectByMenu();
    SensorProjects[0].IsBuiltInSensor = true;
    SensorProjects[0].BuiltInKind = BuiltInKindCode::Thermistor;
    m_bench->Edit([](SensorPropertyFrm &form) { form.ComdCancel->click(); });
    QVERIFY(!ProjectForm[0]->EditDataView->isEnabled());
}

void TestEditProject::projectThatDoesNotFitCanBeMadeAnother_data()
{
    AddLanguages();
}

/// A frequency fits no instrument once it is a project.
void TestEditProject::projectThatDoesNotFitCanBeMadeAnother()
{
    QFETCH(int, language);
    m_bench->NewProjectByMenu();
    SensorProjects[0].MeasFunction = MeasFunctionCode::Frequency;
    SensorProjects[0].InputUnit = QStringLiteral("Hz");
    CurrentLanguage = language;
    BoxAnswers answers({Ok});
    m_bench->Edit([](SensorPropertyFrm &form) {
        QCOMPARE(form.Combtype->Text(), QStringLiteral("None"));
        FillVoltage(form);
        form.ComdEnter->click();
    });
    QCOMPARE(answers.Texts(), QStringList{deviceWrong.InCurrentLanguage()});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Information);
    QCOMPARE(SensorProjects[0].MeasFunction, 0);
    QCOMPARE(SensorProjects[0].InputUnit, QStringLiteral("mV"));
    QCOMPARE(int(ProjectCount), 1);
}

QTEST_MAIN(TestEditProject)
#include "tst_edit_project.moc"
