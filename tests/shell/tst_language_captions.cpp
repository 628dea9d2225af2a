/// @file
/// Every caption in both languages, against a table of their own.
#include "shell/LanguageBench.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <map>
#include <memory>

namespace {

/// One line of the table of captions.
struct Caption {
    QString Window;
    QString Control;
    QString English;
    QString Chinese;
};

QList<Caption> ReadCaptions()
{
    QFile file(QStringLiteral(OSTRAKON_TEST_DATA "/captions.csv"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no table of captions");
    static const QRegularExpression line(QStringLiteral("^\"([^\"]*)\",\"([^\"]*)\",\"([^\"]*)\",\"([^\"]*)\"$"),
                                         QRegularExpression::MultilineOption);
    QList<Caption> captions;
    for (const QRegularExpressionMatch &match : line.globalMatch(QString::fromUtf8(file.readAll())))
        captions.append({match.captured(1), match.captured(2), match.captured(3), match.captured(4)});
    captions.removeFirst(); // the titles of the table
    return captions;
}

/// What a user reads on a control.
QString TextOf(const QObject *control)
{
    if (const auto *button = qobject_cast<const LumoButton *>(control))
        return button->toolTip();
    if (const auto *menu = qobject_cast<const QMenu *>(control))
        return menu->title();
    if (const auto *item = qobject_cast<const QAction *>(control))
        return item->text();
    if (const auto *label = qobject_cast<const QLabel *>(control))
        return label->text();
    if (const auto *button = qobject_cast<const QAbstractButton *>(control))
        return button->text();
    if (const auto *frame = qobject_cast<const QGroupBox *>(control))
        return frame->title();
    const auto *box = qobject_cast<const QLineEdit *>(control);
    return box != nullptr ? box->text() : QStringLiteral("no control with a text");
}

QString TextIn(const QWidget &window, const QString &control)
{
    return control == QStringLiteral("title") ? window.windowTitle() : TextOf(window.findChild<QObject *>(control));
}

/// A tab's caption stands on the tab and on its node in the tree.
QStringList TabTexts(int tab)
{
    QStringList texts;
    for (const int slot : OpenSlots) {
        texts << ProjectForm[slot]->TabStrip->Caption(tab);
        texts << ProjectSheet->NodeAt(ProjectSlots[slot].NodeIndex + tab)->text(0);
    }
    return texts;
}

/// All places that show a caption; those of a project window stand in each of the two.
QStringList ShownTexts(const LanguageBench &windows, const QString &window, const QString &control)
{
    if (window == QStringLiteral("Program"))
        return {HelpFile.mid(QCoreApplication::applicationDirPath().size())};
    if (window == QStringLiteral("ToolBar"))
        return {windows.bare.frame.ToolBarButton(control)->toolTip()};
    if (window == QStringLiteral("TabStrip"))
        return TabTexts(control.toInt());
    if (control == QStringLiteral("root"))
        return {ProjectRootText, ProjectSheet->NodeAt(1)->text(0)};
    QStringList texts;
    if (window == QStringLiteral("EditDataView") || window == QStringLiteral("SensorProjFrm")) {
        for (const int slot : OpenSlots) {
            const SensorProjFrm &form = *ProjectForm[slot];
            texts << (window == QStringLiteral("SensorProjFrm") ? TextIn(form, control)
                                                                : form.EditDataView->ColumnTitle(control.toInt()));
        }
        return texts;
    }
    for (const QWidget *form : std::initializer_list<const QWidget *>{
             &windows.bare.frame, ProjectSheet, &windows.device, &windows.editData, &windows.sensorProperty,
             &windows.refColours, &windows.wave1Colours, &windows.wave2Colours, &windows.sendProject}) {
        if (form->objectName() == window)
            texts << TextIn(*form, control);
    }
    return texts;
}

} // namespace

class LanguageCaptionsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_windows = std::make_unique<LanguageBench>(); }
    void cleanupTestCase() { m_windows.reset(); }

    void every_caption_is_there_in_both_languages_data();
    void every_caption_is_there_in_both_languages();
    void the_table_has_every_row();
    void columns_with_units_follow_each_project();
    void the_tree_shows_the_tabs_of_each_project();
    void the_panel_s_dock_shows_its_caption();
    void controls_without_a_row_stay_english_data();
    void controls_without_a_row_stay_english();

private:
    std::unique_ptr<LanguageBench> m_windows; ///< shared by the rows of the table
};

void LanguageCaptionsTest::every_caption_is_there_in_both_languages_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    for (const Caption &row : ReadCaptions()) {
        QTest::addRow("%s %s", qPrintable(row.Window), qPrintable(row.Control))
            << row.Window << row.Control << row.English << row.Chinese;
    }
}

void LanguageCaptionsTest::every_caption_is_there_in_both_languages()
{
    QFETCH(const QString, window);
    QFETCH(const QString, control);
    QFETCH(const QString, english);
    QFETCH(const QString, chinese);
    const std::pair<std::int32_t, QString> languages[]{{LanguageChinese, chinese}, {LanguageEnglish, english}};
    for (const auto &[language, caption] : languages) {
        m_windows->Apply(language);
        const QStringList shown = ShownTexts(*m_windows, window, control);
        QVERIFY(!shown.isEmpty());
        for (const QString &text : shown)
            QCOMPARE(text, caption);
    }
}

void LanguageCaptionsTest::the_table_has_every_row()
{
    std::map<QString, int> rows;
    for (const Caption &row : ReadCaptions())
        ++rows[row.Window];
    const std::map<QString, int> expected{
        {QStringLiteral("ToolBar"), 10},
        {QStringLiteral("MainFrm"), 42},
        {QStringLiteral("Program"), 1},
        {QStringLiteral("ProjectSheetFrm"), 14},
        {QStringLiteral("TabStrip"), 3},
        {QStringLiteral("EditDataView"), 3},
        {QStringLiteral("DeviceChoiceFrm"), 2},
        {QStringLiteral("SensorProjFrm"), 16},
        {QStringLiteral("EditDataFrm"), 11},
        {QStringLiteral("SensorPropertyFrm"), 15},
        {QStringLiteral("RefPicColorrizeFrm"), 10},
        {QStringLiteral("Wave1picColorrizeFrm"), 8},
        {QStringLiteral("Wave2picColorrizeFrm"), 8},
        {QStringLiteral("SendProjFrm"), 8},
    };
    QCOMPARE(rows, expected);
}

void LanguageCaptionsTest::columns_with_units_follow_each_project()
{
    const ReportList &first = *LanguageBench::Project(0).EditDataView;
    const ReportList &second = *LanguageBench::Project(1).EditDataView;
    m_windows->Apply(LanguageEnglish);
    QCOMPARE(first.ColumnTitle(2), QStringLiteral("Unit: mV"));
    QCOMPARE(first.ColumnTitle(3), QStringLiteral("Unit: kPa"));
    QCOMPARE(second.ColumnTitle(2), QStringLiteral("Unit: ohm"));
    QCOMPARE(second.ColumnTitle(3), QStringLiteral("Unit: C"));
    m_windows->Apply(LanguageChinese);
    QCOMPARE(first.ColumnTitle(2), QStringLiteral("单位\uFF1A mV"));
    QCOMPARE(first.ColumnTitle(3), QStringLiteral("单位\uFF1A kPa"));
    QCOMPARE(second.ColumnTitle(2), QStringLiteral("单位\uFF1A ohm"));
    QCOMPARE(second.ColumnTitle(3), QStringLiteral("单位\uFF1A C"));
    QCOMPARE(first.columnCount(), 5);
}

void LanguageCaptionsTest::the_tree_shows_the_tabs_of_each_project()
{
    m_windows->Apply(LanguageChinese);
    const QStringList chinese{QStringLiteral("传感器参考曲线"), QStringLiteral("传感器数据编辑"),
                              QStringLiteral("传感器测量曲线")};
    QCOMPARE(TreeTexts(), QStringList{QStringLiteral("工程组")} + QStringList{QStringLiteral("Project-4")} + chinese +
                              QStringList{QStringLiteral("Project-8")} + chinese);
    m_windows->Apply(LanguageEnglish);
    const QStringList english{QStringLiteral("Reference Curve"), QStringLiteral("Edit Data"),
                              QStringLiteral("Measure Curve")};
    QCOMPARE(TreeTexts(), QStringList{QStringLiteral("Project Group")} + QStringList{QStringLiteral("Project-4")} +
                              english + QStringList{QStringLiteral("Project-8")} + english);
}

void LanguageCaptionsTest::the_panel_s_dock_shows_its_caption()
{
    const QWidget &dock = *ProjectSheet->parentWidget();
    m_windows->Apply(LanguageChinese);
    QCOMPARE(dock.windowTitle(), QStringLiteral("工程"));
    m_windows->Apply(LanguageEnglish);
    QCOMPARE(dock.windowTitle(), QStringLiteral("Project"));
}

void LanguageCaptionsTest::controls_without_a_row_stay_english_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("caption");
    const auto row = [](const char *window, const char *control, const char *caption) {
        QTest::newRow(control) << QString::fromLatin1(window) << QString::fromLatin1(caption);
    };
    row("SensorProjFrm", "DispRefFrame", "Display");
    row("SensorProjFrm", "ChkGridRef", "   Grid");
    row("SensorProjFrm", "LabColor2", "Color");
    row("SensorProjFrm", "InfoFrame", "Info");
    row("SensorProjFrm", "PictureFrame", "Picture");
    row("SensorProjFrm", "DispSetFrame", "Display");
    row("SensorProjFrm", "Frame1", "Wave");
    row("SensorProjFrm", "OptWave1", "Wave1");
    row("SensorProjFrm", "OptWave2", "Wave2");
    row("SensorProjFrm", "ChkGrid", "   Grid");
    row("SensorProjFrm", "ChkLink", "   Link");
    row("SensorProjFrm", "LabColor", "Color");
    row("SensorProjFrm", "ZoomFrame", "Zoom");
    row("SensorProjFrm", "MeasureFrame", "Measure");
    row("SensorProjFrm", "SampleRateFrame", "Sample");
    row("SensorProjFrm", "Labperiodunit", "S");
    row("SensorProjFrm", "ReplayFrame", "Replay");
    row("SensorProjFrm", "DataFrame", "Data");
    row("MainFrm", "ConnectStatus", "Unconnected");
    row("MainFrm", "mnuToolsRun", "&Run");
    row("MainFrm", "mnuFilePrint", "&Print");
    row("MainFrm", "mnuPopEditData", "EditDataPopMenu");
    row("SensorPropertyFrm", "Labela", "ALPHA");
    row("ProjectSheetFrm", "pop_mnu1", "popmenu");
    row("ProjectSheetFrm", "pop_mnu2", "popmenu2");
}

void LanguageCaptionsTest::controls_without_a_row_stay_english()
{
    QFETCH(const QString, window);
    QFETCH(const QString, caption);
    m_windows->Apply(LanguageEnglish);
    m_windows->Apply(LanguageChinese);
    const QStringList shown = ShownTexts(*m_windows, window, QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(!shown.isEmpty());
    for (const QString &text : shown)
        QCOMPARE(text, caption);
}

QTEST_MAIN(LanguageCaptionsTest)
#include "tst_language_captions.moc"
