/// @file
/// The captions of all windows in both languages, against a table of their own.
#include "curve/EditDataFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "project/SensorPropertyFrm.h"
#include "shell/LanguageModule.h"
#include "shell/ProjectSheetFrm.h"
#include "shell/ProjectTreeModule.h"
#include "support/BareFrame.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <memory>

namespace {

constexpr int Slot = 3; ///< of the open project
constexpr int FreeSlot = 4;

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

/// Everything that has captions.
class Windows {
public:
    Windows()
    {
        ResetProjectTreeModule();
        ProjectSheet = new ProjectSheetFrm(&bare.frame);
        ProjectPanelVisible = true;
        LoadProjectSheet();
        bare.frame.TabDock->AddPanel(ProjectSheetPanel, ProjectSheet);
        DeviceChoiceForm = &device;
        project = &bare.AddProject(Slot);
        ProjectSlots[Slot].NodeIndex = 2;
        SensorProjects[Slot].InputUnit = QStringLiteral("mV");
        SensorProjects[Slot].OutputUnit = QStringLiteral("kPa");
        AddProjectNode(Slot);
        ++ProjectNodeCount;
    }

    ~Windows()
    {
        DeviceChoiceForm = nullptr;
        ResetProjectTreeModule();
    }

    Windows(const Windows &) = delete;
    Windows &operator=(const Windows &) = delete;

    void Apply(std::int32_t language)
    {
        CurrentLanguage = language;
        LoadLanguage(language);
        LoadEditDataLanguage(editData);
        LoadSensorPropertyLanguage(sensorProperty);
    }

    QWidget *Window(const QString &name)
    {
        if (name == QStringLiteral("MainFrm"))
            return &bare.frame;
        if (name == QStringLiteral("DeviceChoiceFrm"))
            return &device;
        if (name == QStringLiteral("EditDataFrm"))
            return &editData;
        if (name == QStringLiteral("SensorPropertyFrm"))
            return &sensorProperty;
        return name == QStringLiteral("SensorProjFrm") ? project : nullptr;
    }

    BareFrame bare;
    DeviceChoiceFrm device;
    EditDataFrm editData;
    SensorPropertyFrm sensorProperty;
    SensorProjFrm *project = nullptr;
};

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
    const auto *box = qobject_cast<const QLineEdit *>(control);
    return box != nullptr ? box->text() : QStringLiteral("no control with a text");
}

QString ShownText(Windows &windows, const QString &window, const QString &control)
{
    if (window == QStringLiteral("ToolBar"))
        return windows.bare.frame.ToolBarButton(control)->toolTip();
    if (window == QStringLiteral("TabStrip"))
        return windows.project->TabStrip->Caption(control.toInt());
    if (window == QStringLiteral("EditDataView"))
        return windows.project->EditDataView->ColumnTitle(control.toInt());
    if (window == QStringLiteral("ProjectSheetFrm"))
        return control == QStringLiteral("title") ? ProjectSheet->windowTitle() : ProjectSheet->NodeAt(1)->text(0);
    if (control == QStringLiteral("title"))
        return windows.Window(window)->windowTitle();
    return TextOf(windows.Window(window)->findChild<QObject *>(control));
}

QStringList NodeTexts()
{
    QStringList texts;
    for (int index = 1; index <= ProjectSheet->NodeCount(); ++index)
        texts.append(ProjectSheet->NodeAt(index)->text(0));
    return texts;
}

} // namespace

class LanguageModuleTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void every_caption_is_there_in_both_languages_data();
    void every_caption_is_there_in_both_languages();
    void the_table_has_every_row();
    void columns_with_units_follow_the_project();
    void the_panel_s_dock_shows_its_caption();
    void nodes_follow_the_language();
    void a_hidden_panel_keeps_the_root_text_until_it_is_shown_again();
    void a_language_that_is_neither_is_english();
    void a_free_slot_is_left_alone();
    void an_open_dialogue_keeps_its_language();
    void a_dialogue_takes_the_current_language();
    void without_panel_and_dialogue_nothing_fails();

private:
    std::unique_ptr<Windows> m_windows; ///< shared by the rows of the table
};

void LanguageModuleTest::initTestCase()
{
    m_windows = std::make_unique<Windows>();
}

void LanguageModuleTest::cleanupTestCase()
{
    m_windows.reset();
}

void LanguageModuleTest::every_caption_is_there_in_both_languages_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("chinese");
    for (const Caption &row : ReadCaptions())
        QTest::addRow("%s %s", qPrintable(row.Window), qPrintable(row.Control))
            << row.Window << row.Control << row.English << row.Chinese;
}

void LanguageModuleTest::every_caption_is_there_in_both_languages()
{
    QFETCH(const QString, window);
    QFETCH(const QString, control);
    QFETCH(const QString, english);
    QFETCH(const QString, chinese);
    m_windows->Apply(LanguageChinese);
    QCOMPARE(ShownText(*m_windows, window, control), chinese);
    m_windows->Apply(LanguageEnglish);
    QCOMPARE(ShownText(*m_windows, window, control), english);
}

void LanguageModuleTest::the_table_has_every_row()
{
    std::map<QString, int> rows;
    for (const Caption &row : ReadCaptions())
        ++rows[row.Window];
    const std::map<QString, int> expected{
        {QStringLiteral("ToolBar"), 10},          {QStringLiteral("MainFrm"), 42},
        {QStringLiteral("ProjectSheetFrm"), 2},   {QStringLiteral("TabStrip"), 3},
        {QStringLiteral("EditDataView"), 3},      {QStringLiteral("DeviceChoiceFrm"), 2},
        {QStringLiteral("SensorProjFrm"), 16},    {QStringLiteral("EditDataFrm"), 11},
        {QStringLiteral("SensorPropertyFrm"), 15}};
    QCOMPARE(rows, expected);
}

void LanguageModuleTest::columns_with_units_follow_the_project()
{
    Windows windows;
    windows.Apply(LanguageEnglish);
    QCOMPARE(windows.project->EditDataView->ColumnTitle(2), QStringLiteral("Unit: mV"));
    QCOMPARE(windows.project->EditDataView->ColumnTitle(3), QStringLiteral("Unit: kPa"));
    windows.Apply(LanguageChinese);
    QCOMPARE(windows.project->EditDataView->ColumnTitle(2), QStringLiteral("单位\uFF1A mV"));
    QCOMPARE(windows.project->EditDataView->ColumnTitle(3), QStringLiteral("单位\uFF1A kPa"));
    QCOMPARE(windows.project->EditDataView->columnCount(), 5);
}

void LanguageModuleTest::the_panel_s_dock_shows_its_caption()
{
    Windows windows;
    const auto *dock = qobject_cast<QWidget *>(ProjectSheet->parentWidget());
    windows.Apply(LanguageChinese);
    QCOMPARE(dock->windowTitle(), QStringLiteral("工程"));
    windows.Apply(LanguageEnglish);
    QCOMPARE(dock->windowTitle(), QStringLiteral("Project"));
}

void LanguageModuleTest::nodes_follow_the_language()
{
    Windows windows;
    windows.Apply(LanguageChinese);
    QCOMPARE(NodeTexts(),
             (QStringList{QStringLiteral("工程组"), QStringLiteral("Project-4"), QStringLiteral("传感器参考曲线"),
                          QStringLiteral("传感器数据编辑"), QStringLiteral("传感器测量曲线")}));
    windows.Apply(LanguageEnglish);
    QCOMPARE(NodeTexts(), (QStringList{QStringLiteral("Project Group"), QStringLiteral("Project-4"),
                                       QStringLiteral("Reference Curve"), QStringLiteral("Edit Data"),
                                       QStringLiteral("Measure Curve")}));
}

void LanguageModuleTest::a_hidden_panel_keeps_the_root_text_until_it_is_shown_again()
{
    Windows windows;
    windows.Apply(LanguageEnglish);
    HideProjectPanel();
    QVERIFY(!ProjectPanelVisible);
    windows.Apply(LanguageChinese);
    QCOMPARE(ProjectRootText, QStringLiteral("Project Group"));
    QCOMPARE(ProjectSheet->windowTitle(), QStringLiteral("Project"));
    QCOMPARE(windows.bare.frame.mnuFile->title(), QStringLiteral("文件"));
    QCOMPARE(windows.project->TabStrip->Caption(1), QStringLiteral("传感器参考曲线"));
    ProjectPanelVisible = true;
    ShowProjectPanel();
    QCOMPARE(ProjectSheet->NodeAt(1)->text(0), QStringLiteral("Project Group"));
    LoadLanguage(CurrentLanguage);
    QCOMPARE(ProjectRootText, QStringLiteral("工程组"));
    QCOMPARE(ProjectSheet->NodeAt(1)->text(0), QStringLiteral("工程组"));
}

void LanguageModuleTest::a_language_that_is_neither_is_english()
{
    Windows windows;
    windows.Apply(LanguageChinese);
    windows.Apply(2);
    QCOMPARE(windows.bare.frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
    QCOMPARE(windows.sensorProperty.windowTitle(), QStringLiteral("Sensor Property"));
}

void LanguageModuleTest::a_free_slot_is_left_alone()
{
    Windows windows;
    SensorProjFrm &other = windows.bare.AddProject(FreeSlot);
    other.TabStrip->SetCaption(1, QStringLiteral("before"));
    ProjectOccupied[FreeSlot] = false;
    windows.Apply(LanguageChinese);
    QCOMPARE(other.TabStrip->Caption(1), QStringLiteral("before"));
    QCOMPARE(windows.project->TabStrip->Caption(1), QStringLiteral("传感器参考曲线"));
}

void LanguageModuleTest::an_open_dialogue_keeps_its_language()
{
    Windows windows;
    windows.Apply(LanguageEnglish);
    CurrentLanguage = LanguageChinese;
    LoadLanguage(LanguageChinese);
    QCOMPARE(windows.editData.OkCmd->text(), QStringLiteral("OK"));
    QCOMPARE(windows.sensorProperty.ComdEnter->text(), QStringLiteral("Done"));
    QCOMPARE(windows.device.BtOk->text(), QStringLiteral("确定"));
}

void LanguageModuleTest::a_dialogue_takes_the_current_language()
{
    Windows windows;
    CurrentLanguage = LanguageChinese;
    LoadEditDataLanguage(windows.editData);
    QCOMPARE(windows.editData.SegmentLab->text(), QStringLiteral("分段点? "));
    CurrentLanguage = LanguageEnglish;
    LoadEditDataLanguage(windows.editData);
    QCOMPARE(windows.editData.SegmentLab->text(), QStringLiteral("Segment dot? "));
}

void LanguageModuleTest::without_panel_and_dialogue_nothing_fails()
{
    BareFrame bare;
    ResetProjectTreeModule();
    DeviceChoiceForm = nullptr;
    SensorProjFrm &form = bare.AddProject(0);
    LoadLanguage(LanguageChinese);
    QCOMPARE(form.TabStrip->Caption(3), QStringLiteral("传感器测量曲线"));
    QCOMPARE(ProjectRootText, QString());
}

QTEST_MAIN(LanguageModuleTest)
#include "tst_language_module.moc"
