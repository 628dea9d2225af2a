/// @file
/// The command Open beside other projects: which slot it takes, which names it refuses, where the node stands, and what
/// a run under way makes of it.
#include "project/ProjectCommandBench.h"

#include <memory>

namespace {

constexpr Text sameProject{"The same project already exists! ", "已经有同名工程被打开！"};

} // namespace

class TestOpenSlots : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        m_bench = std::make_unique<ProjectCommandBench>();
        QVERIFY(m_bench->folder.isValid() && !m_bench->folder.path().contains(QLatin1Char('.')));
    }
    void cleanup() { m_bench.reset(); }

    void openTakesTheLowestFreeSlot();
    void tenthProjectOpens();
    void eleventhIsRefusedAheadOfTheDialogue_data();
    void eleventhIsRefusedAheadOfTheDialogue();
    void eleventhNewIsRefusedAtTheEndOfTheDialogue();
    void missingLinkIsToldAheadOfTheLimit();
    void sameNameIsRefused_data();
    void sameNameIsRefused();
    void sameNameInTheLastSlotBelowIsRefused();
    void countIsRaisedAheadOfTheChecks();
    void namesAreComparedExactly();
    void sameNameInAHigherSlotGivesTwo();
    void emptyNameOfAFreeSlotDoesNotMatch();
    void nameOfANewProjectCounts();
    void sameFileOpensAgainAfterItsProjectWasClosed();
    void nodesFollowEachOther();
    void firstSlotTakenAgainStandsLast();
    void lowerSlotTakenAgainStandsLast();
    void onlyProjectTakesTheFirstNode();
    void hiddenTreeGetsNoNode();
    void runGoesOnBesideOpenAndNew_data();
    void runGoesOnBesideOpenAndNew();

private:
    QStringList Names() const
    {
        QStringList names;
        for (const ProjectSlot &slot : ProjectSlots)
            names << slot.ProjectName;
        return names;
    }

    /// Opens a file and answers the one box that this brings up.
    void OpenRefused(const QString &path, const Text &text)
    {
        BoxAnswers answers({Ok});
        AnswerFileDialog(m_bench->Open(), path);
        QCOMPARE(answers.Texts(), QStringList{text.InCurrentLanguage()});
        QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Warning);
        QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    }

    std::unique_ptr<ProjectCommandBench> m_bench;
};

void TestOpenSlots::openTakesTheLowestFreeSlot()
{
    for (const char *name : {"a", "b", "c"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    m_bench->CloseProject(1);
    CurrentNewSlot = 2;
    m_bench->OpenNamed(QStringLiteral("d"));
    QCOMPARE(Names().first(4), (QStringList{"a", "d", "c", ""}));
    QCOMPARE(ProjectForm[1]->Tag, QStringLiteral("1"));
    QCOMPARE(int(CurrentNewSlot), 2); // belongs to New
    m_bench->OpenNamed(QStringLiteral("e"));
    QCOMPARE(ProjectSlots[3].ProjectName, QStringLiteral("e"));
    QCOMPARE(int(ProjectCount), 4);
}

void TestOpenSlots::tenthProjectOpens()
{
    m_bench->MakeProjects(9);
    m_bench->OpenNamed(QStringLiteral("tenth"));
    QCOMPARE(int(ProjectCount), 10);
    QCOMPARE(int(ProjectNodeCount), 10);
    QCOMPARE(ProjectSlots[9].ProjectName, QStringLiteral("tenth"));
    QCOMPARE(int(ProjectSlots[9].NodeIndex), 38);
    QCOMPARE(ActiveSlot(), 9);
}

void TestOpenSlots::eleventhIsRefusedAheadOfTheDialogue_data()
{
    AddLanguages();
}

void TestOpenSlots::eleventhIsRefusedAheadOfTheDialogue()
{
    QFETCH(int, language);
    m_bench->MakeProjects(10);
    CurrentLanguage = language;
    const QStringList names = Names();
    BoxAnswers answers({Ok});
    m_bench->frame.mnuFileOpen->trigger(); // a dialogue would wait for ever
    QCOMPARE(answers.Texts(), QStringList{limitReached.InCurrentLanguage()});
    QCOMPARE(answers.Shown()[0].Icon, QMessageBox::Information);
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(int(ProjectCount), 10);
    QCOMPARE(Names(), names);
}

/// New shows its dialogue first, and is refused when that is done.
void TestOpenSlots::eleventhNewIsRefusedAtTheEndOfTheDialogue()
{
    m_bench->MakeProjects(10);
    const WhenModal done(QStringLiteral("SensorPropertyFrm"), [](QWidget *dialog) {
        auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
        form.Txtname->setText(QStringLiteral("Eleventh"));
        form.Combtype->SetListIndex(2);
        BoxAnswers answers({Ok});
        form.ComdEnter->click();
        QCOMPARE(answers.Texts(), QStringList{limitReached.InCurrentLanguage()});
        QVERIFY(!form.isVisible());
    });
    m_bench->frame.mnuFileNew->trigger();
    QCOMPARE(int(ProjectCount), 10);
    for (const SensorProject &project : SensorProjects)
        QCOMPARE(project.SensorName, QStringLiteral("Load"));
    QVERIFY(!NewProjectMode);
}

void TestOpenSlots::missingLinkIsToldAheadOfTheLimit()
{
    m_bench->MakeProjects(10);
    LinkUp = false;
    BoxAnswers answers({Ok});
    m_bench->frame.mnuFileOpen->trigger();
    QCOMPARE(answers.Texts(), QStringList{notConnected.InCurrentLanguage()});
}

void TestOpenSlots::sameNameIsRefused_data()
{
    AddLanguages();
}

/// The folder makes no difference, nor what stands behind the first point.
void TestOpenSlots::sameNameIsRefused()
{
    QFETCH(int, language);
    CurrentLanguage = language;
    m_bench->OpenNamed(QStringLiteral("scale"));
    const SensorProject &free = SensorProjects[1];
    QVERIFY(QDir(m_bench->folder.path()).mkpath(QStringLiteral("other")));
    const QString again = m_bench->Path(QStringLiteral("scale.spj"));
    const QString other = m_bench->Path(QStringLiteral("other/scale.new.spj"));
    QVERIFY(PutBytes(other, ProjectFileText().Line(1, "Other").Bytes()));
    for (const QString &path : {again, other}) {
        OpenRefused(path, sameProject);
        QCOMPARE(int(ProjectCount), 1);
        QCOMPARE(int(ProjectNodeCount), 1);
        QVERIFY(!ProjectOccupied[1]);
        QVERIFY(ProjectForm[1] == nullptr);
        QCOMPARE(ProjectSlots[1].ProjectName, QString());
        QCOMPARE(ProjectSlots[1].FilePath, QString());
        QCOMPARE(free.SensorName, QString());
        QCOMPARE(NodeTexts().size(), 5);
    }
}

void TestOpenSlots::sameNameInTheLastSlotBelowIsRefused()
{
    for (const char *name : {"a", "b", "c"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    OpenRefused(m_bench->Path(QStringLiteral("c.spj")), sameProject);
    QCOMPARE(int(ProjectCount), 3);
}

void TestOpenSlots::countIsRaisedAheadOfTheChecks()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    int under = -1;
    QTimer poll;
    connect(&poll, &QTimer::timeout, &poll, [&under] {
        if (under < 0 && qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr)
            under = ProjectCount;
    });
    poll.start(0);
    OpenRefused(m_bench->Path(QStringLiteral("scale.spj")), sameProject);
    QCOMPARE(under, 2);
    QCOMPARE(int(ProjectCount), 1);
}

void TestOpenSlots::namesAreComparedExactly()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    for (const char *name : {"Scale", "scale ", "scal"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    QCOMPARE(Names().first(4), (QStringList{"scale", "Scale", "scale ", "scal"}));
}

void TestOpenSlots::sameNameInAHigherSlotGivesTwo()
{
    for (const char *name : {"a", "b", "c"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    m_bench->CloseProject(0);
    m_bench->OpenNamed(QStringLiteral("c"));
    QCOMPARE(Names().first(3), (QStringList{"c", "b", "c"}));
    QCOMPARE(ProjectSlots[0].FilePath, ProjectSlots[2].FilePath);
    QCOMPARE(int(ProjectCount), 3);
}

/// A file that is all extension gives an empty name, once.
void TestOpenSlots::emptyNameOfAFreeSlotDoesNotMatch()
{
    const QString path = m_bench->Path(QStringLiteral(".spj"));
    QVERIFY(PutBytes(path, ProjectFileText().Bytes()));
    m_bench->OpenNamed(QStringLiteral("scale"));
    m_bench->OpenFile(path);
    QCOMPARE(int(ProjectCount), 2);
    QVERIFY(ProjectOccupied[1]);
    QCOMPARE(ProjectSlots[1].ProjectName, QString());
    OpenRefused(path, sameProject);
    QCOMPARE(int(ProjectCount), 2);
}

void TestOpenSlots::nameOfANewProjectCounts()
{
    m_bench->NewProjectByMenu();
    const QString path = m_bench->Path(QStringLiteral("Project-1.spj"));
    QVERIFY(PutBytes(path, ProjectFileText().Bytes()));
    OpenRefused(path, sameProject);
    QCOMPARE(int(ProjectCount), 1);
}

void TestOpenSlots::sameFileOpensAgainAfterItsProjectWasClosed()
{
    m_bench->OpenNamed(QStringLiteral("scale"));
    m_bench->CloseProject(0);
    QCOMPARE(ProjectSlots[0].FilePath, m_bench->Path(QStringLiteral("scale.spj"))); // kept until the slot is taken
    m_bench->OpenNamed(QStringLiteral("scale"));
    QCOMPARE(Names().first(2), (QStringList{"scale", ""}));
}

void TestOpenSlots::nodesFollowEachOther()
{
    for (const char *name : {"a", "b", "c"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    for (int slot = 0; slot < 3; ++slot) {
        QCOMPARE(int(ProjectSlots[slot].NodeIndex), 2 + 4 * slot);
        QCOMPARE(m_bench->NodeText(slot), ProjectSlots[slot].ProjectName);
    }
    QCOMPARE(NodeTexts().size(), 13);
}

/// The slot is the lowest of all, its node the last.
void TestOpenSlots::firstSlotTakenAgainStandsLast()
{
    m_bench->NewProjectByMenu();
    m_bench->OpenNamed(QStringLiteral("b"));
    m_bench->CloseProject(0);
    QCOMPARE(int(ProjectSlots[1].NodeIndex), 2);
    m_bench->OpenNamed(QStringLiteral("a"));
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("a"));
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 6);
    QCOMPARE(m_bench->NodeText(1), QStringLiteral("b"));
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("a"));
    // The same with New.
    m_bench->CloseProject(0);
    m_bench->NewProjectByMenu();
    QCOMPARE(ProjectSlots[0].ProjectName, QStringLiteral("Project-1"));
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 6);
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("Project-1"));
}

void TestOpenSlots::lowerSlotTakenAgainStandsLast()
{
    for (const char *name : {"a", "b", "c"})
        m_bench->OpenNamed(QString::fromLatin1(name));
    m_bench->CloseProject(1);
    QCOMPARE(int(ProjectSlots[2].NodeIndex), 6);
    m_bench->OpenNamed(QStringLiteral("d"));
    QCOMPARE(int(ProjectSlots[1].NodeIndex), 10);
    QCOMPARE(m_bench->NodeText(1), QStringLiteral("d"));
    QCOMPARE(m_bench->NodeText(2), QStringLiteral("c"));
    QCOMPARE(ProjectSlots[2].ProjectNode, ProjectSheet->NodeAt(10)); // at the count of nodes, not at the slot
}

void TestOpenSlots::onlyProjectTakesTheFirstNode()
{
    m_bench->OpenNamed(QStringLiteral("a"));
    m_bench->OpenNamed(QStringLiteral("b"));
    m_bench->CloseProject(1);
    m_bench->CloseProject(0);
    m_bench->OpenNamed(QStringLiteral("c"));
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 2);
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("c"));
}

void TestOpenSlots::hiddenTreeGetsNoNode()
{
    m_bench->frame.mnuViewProjectWindow->trigger();
    m_bench->OpenNamed(QStringLiteral("a"));
    QCOMPARE(ProjectSheet->NodeCount(), 0);
    QCOMPARE(int(ProjectSlots[0].NodeIndex), 2);
    QCOMPARE(int(ProjectNodeCount), 1);
    m_bench->frame.mnuViewProjectWindow->trigger();
    QCOMPARE(m_bench->NodeText(0), QStringLiteral("a"));
}

void TestOpenSlots::runGoesOnBesideOpenAndNew_data()
{
    QTest::addColumn<bool>("open");
    QTest::newRow("Open") << true;
    QTest::newRow("New") << false;
}

void TestOpenSlots::runGoesOnBesideOpenAndNew()
{
    QFETCH(bool, open);
    m_bench->NewProjectByMenu();
    const QTimer &tick = m_bench->StartRun(0);
    const QTimer &replay = *ProjectForm[0]->Timer2;
    const int tickId = tick.timerId();
    const int replayId = replay.timerId();
    if (open)
        m_bench->OpenNamed(QStringLiteral("beside"));
    else
        m_bench->NewProjectByMenu();
    QCOMPARE(int(ProjectCount), 2);
    QVERIFY(Measuring);
    QVERIFY(tick.isActive() && replay.isActive());
    QCOMPARE(tick.timerId(), tickId); // not even restarted
    QCOMPARE(replay.timerId(), replayId);
    QCOMPARE(tick.interval(), 54000);
    QCOMPARE(replay.interval(), 53000);
    QVERIFY(ProjectForm[0]->EndLumoBtn->isEnabled());
    QVERIFY(!ProjectForm[1]->Timer1->isActive());
    QVERIFY(ProjectForm[1]->RecordLumoBtn->isEnabled());
    QCOMPARE(ActiveSlot(), 0); // the project under measurement stays in front
}

QTEST_MAIN(TestOpenSlots)
#include "tst_open_slots.moc"
