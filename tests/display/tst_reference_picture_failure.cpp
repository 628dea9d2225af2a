/// @file
/// Data that cannot be drawn: the box, the project that is closed, and what is left behind.
#include "display/ReferencePictureBench.h"

#include <QPointer>

#include <optional>

class ReferencePictureFailureTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_bench.emplace(); }
    void cleanup()
    {
        m_bench.reset();
        QCOMPARE(LiveSurfaceObjects(), 0);
    }

    void a_boundary_before_the_first_column_ends_in_the_failure();
    void a_failure_leaves_no_object_behind();
    void unusable_data_close_the_project_data();
    void unusable_data_close_the_project();
    void the_failure_speaks_chinese();
    void the_failure_closes_the_active_project();
    void a_project_may_refuse_to_close();
    void a_failure_while_all_close_keeps_the_mark();
    void a_failure_under_the_box_is_silent();

private:
    std::optional<ReferencePictureBench> m_bench;
};

void ReferencePictureFailureTest::a_boundary_before_the_first_column_ends_in_the_failure()
{
    Publish(0, {{0, 0, true, Line}, {5, 20, true, Least}, {90, 100}});
    ReferenceCurves[0].XMin = -10;
    HoldLine(0, 0, 100, 50);
    PreparePlot(Form(), 0, 100);
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QCOMPARE(answers.Shown().size(), 1);
}

void ReferencePictureFailureTest::a_failure_leaves_no_object_behind()
{
    // The second boundary fails while a pen is in the surface.
    Publish(0, {{0, 0, true, Line}, {5, 20, true, Least}, {90, 100}});
    ReferenceCurves[0].XMin = -10;
    HoldLine(0, 0, 100, 50);
    PreparePlot(Form(), 0, 100);
    QObject::connect(&Form(), &SensorProjFrm::CloseAsked, this, [](bool &cancel) { cancel = true; });
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
    for (int i = 0; i < 3; ++i)
        DrawReferenceCurve(0, true);
    QCOMPARE(answers.Left(), 0);
    QCOMPARE(LiveSurfaceObjects(), 2);
}

void ReferencePictureFailureTest::unusable_data_close_the_project_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("drawCurve");
    for (const char *what : {"no height", "no width", "no points", "count beyond the arrays", "dot beyond 32 bits",
                             "height beyond double", "width beyond double"})
        QTest::newRow(what) << QString::fromLatin1(what) << false;
    QTest::newRow("segment beyond 32 bits") << QStringLiteral("segment beyond 32 bits") << true;
}

void ReferencePictureFailureTest::unusable_data_close_the_project()
{
    QFETCH(QString, what);
    QFETCH(bool, drawCurve);
    Publish(0, {{0, 0, true}, {100, 100}});
    HoldLine(0, 0, 100, 100);
    ReferenceCurve &curve = ReferenceCurves[0];
    if (what == u"no height")
        curve.YMin = curve.YMax;
    else if (what == u"no width")
        curve.XMax = curve.XMin;
    else if (what == u"no points")
        curve.Count = 0;
    else if (what == u"count beyond the arrays")
        curve.Count = 501;
    else if (what == u"dot beyond 32 bits")
        curve.Points[1].Y = 1e300;
    else if (what == u"height beyond double")
        curve.YMax = 1.7e308, curve.YMin = -1.7e308;
    else if (what == u"width beyond double")
        curve.XMax = 1.7e308, curve.XMin = -1.7e308;
    else
        Publish(0, {{0, 0, true}, {1e300, 50, true}, {100, 100}}); // its column does not fit
    PreparePlot(Form(), 0, 100);
    int asked = 0;
    bool silently = false;
    connect(&Form(), &SensorProjFrm::CloseAsked, this, [&] {
        ++asked;
        silently = ClosingAll;
    });
    const QPointer<SensorProjFrm> form(&Form());
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, drawCurve);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(answers.Shown()[0].Text,
             QStringLiteral("You have loaded illegal project file,the current project will be closed! "));
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
    QCOMPARE(answers.Shown()[0].Buttons, QMessageBox::Ok);
    QCOMPARE(asked, 1);
    QVERIFY(silently);
    QVERIFY(!ClosingAll);
    QTRY_VERIFY(form.isNull());
}

void ReferencePictureFailureTest::the_failure_speaks_chinese()
{
    CurrentLanguage = LanguageChinese;
    PreparePlot(Form(), 0, 100);
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("您载入的是非法工程文件，当前工程即将被关闭! ")});
}

void ReferencePictureFailureTest::the_failure_closes_the_active_project()
{
    SensorProjFrm &other = m_bench->AddProject(1);
    QCOMPARE(m_bench->frame.Children->activeSubWindow(), &other);
    const QPointer<SensorProjFrm> drawn(&Form());
    const QPointer<SensorProjFrm> active(&other);
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QTRY_VERIFY(active.isNull());
    QVERIFY(!drawn.isNull());
    QVERIFY(drawn->isVisible());
}

void ReferencePictureFailureTest::a_project_may_refuse_to_close()
{
    connect(&Form(), &SensorProjFrm::CloseAsked, this, [](bool &cancel) { cancel = true; });
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QVERIFY(Form().isVisible());
    QVERIFY(!ClosingAll);
}

void ReferencePictureFailureTest::a_failure_while_all_close_keeps_the_mark()
{
    ClosingAll = true;
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QVERIFY(ClosingAll);
}

void ReferencePictureFailureTest::a_failure_under_the_box_is_silent()
{
    m_bench->AddProject(1);
    int asked = 0;
    for (int slot : {0, 1})
        connect(ProjectForm[slot], &SensorProjFrm::CloseAsked, this, [&] { ++asked; });
    bool redrawn = false;
    QTimer::singleShot(0, this, [&] {
        DrawReferenceCurve(0, true); // as a resize does while the box is up
        redrawn = true;
    });
    BoxAnswers answers({QMessageBox::Ok});
    DrawReferenceCurve(0, true);
    QVERIFY(redrawn);
    QCOMPARE(answers.Shown().size(), 1);
    QCOMPARE(asked, 1);
}

QTEST_MAIN(ReferencePictureFailureTest)
#include "tst_reference_picture_failure.moc"
