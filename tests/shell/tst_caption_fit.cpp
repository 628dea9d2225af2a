/// @file
/// Every caption of every window has the room that it needs, in both languages.
#include "controls/ToolkitTexts.h"
#include "curve/EditDataFrm.h"
#include "curve/ReferenceListModule.h"
#include "display/ProjectViewModule.h"
#include "display/RefPicColorrizeFrm.h"
#include "display/Wave1picColorrizeFrm.h"
#include "display/Wave2picColorrizeFrm.h"
#include "link/DeviceChoiceFrm.h"
#include "measure/SendProjFrm.h"
#include "shell/AboutFrm.h"
#include "shell/CaptionFit.h"
#include "shell/FrameBench.h"
#include "shell/LanguageModule.h"

#include <QGlyphRun>
#include <QTextLayout>

#include <functional>

namespace {

using Look = std::function<void(const QWidget &window)>;
using Open = std::function<void(LoadedFrame &loaded, const Look &look)>;

constexpr int DotsPerInch = 96;
const QStringList ThermocoupleQuestion{QStringLiteral("LabelbThermocouple"), QStringLiteral("OptYes"),
                                       QStringLiteral("OptNo")};
const QString LongestName = QStringLiteral("WWWWWWWWWWWWWWWWWWWW"); ///< 20 characters, as many as are sent

template <typename Form>
void LookAtDialogue(void (*loadLanguage)(Form &form), const Look &look)
{
    Form form;
    loadLanguage(form);
    form.show();
    look(form);
}

void LookAtStatusBar(const LoadedFrame &loaded, const Look &look)
{
    StatusPanels &panels = *loaded.frame.sbrStatus;
    for (const char *text : {"Status", "The data has been apllied", "The data has not been apllied"}) {
        panels.SetPanelText(1, QString::fromLatin1(text));
        for (const char *link : {"Unconnected", "Connect"}) {
            panels.SetPanelText(2, QString::fromLatin1(link));
            look(panels);
        }
    }
}

/// The three pages, with the controls that are not in use yet.
void LookAtProject(LoadedFrame &loaded, const Look &look)
{
    SensorProjFrm &form = loaded.NewProjectByMenu();
    form.LabXUnit->setText(QStringLiteral("X:  mV"));
    form.LabYUnit->setText(QStringLiteral("Y:  Wm"));
    for (QWidget *control : std::initializer_list<QWidget *>{form.ReplayFrame, form.DataFrame, form.PictureFrame,
                                                             form.LabColor2, form.LabColor})
        control->show();
    for (int tab = 1; tab <= 3; ++tab) {
        form.TabStrip->SelectTab(tab);
        SwitchProjectPage(0, tab);
        ResizeProjectView(form);
        look(*form.Client);
    }
}

void LookAtEditData(LoadedFrame &loaded, const Look &look)
{
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    PutRow(0, 1, 500, -12.5);
    RefreshReferenceLists();
    const auto lookAndCancel = [&](QWidget *dialog) {
        look(*dialog);
        qobject_cast<QDialog *>(dialog)->reject();
    };
    {
        const WhenModal adding(QStringLiteral("EditDataFrm"), lookAndCancel);
        loaded.frame.mnuPopEditDataAdd->trigger();
    }
    form.EditDataView->setCurrentItem(form.EditDataView->topLevelItem(0));
    const WhenModal changing(QStringLiteral("EditDataFrm"), lookAndCancel);
    loaded.frame.mnuPopEditDataChange->trigger();
}

/// Every type with both kinds of output unit and all sub types.
void LookAtTypes(SensorPropertyFrm &form, const Look &look)
{
    look(form);
    for (int type = 0; type < form.Combtype->ListCount(); ++type) {
        form.Combtype->SetListIndex(type);
        look(form);
        if (form.OptUser->isVisible()) {
            form.OptUser->click();
            form.TxtUnit->setText(QStringLiteral("Wm"));
            look(form);
            form.OptDefault->click();
        }
        for (int subType = 0; subType < form.CombSubType->ListCount(); ++subType) {
            form.CombSubType->SetListIndex(subType);
            look(form);
        }
    }
}

void LookAtSensor(LoadedFrame &loaded, std::int16_t kind, const Look &look)
{
    LinkUp = true;
    InstrumentKind = kind;
    const WhenModal dialogue(QStringLiteral("SensorPropertyFrm"), [&](QWidget *dialog) {
        auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
        LookAtTypes(form, look);
        form.reject();
    });
    loaded.frame.mnuFileNew->trigger();
}

void LookAtSendProject(const Look &look)
{
    SendProjFrm form;
    LoadSendProjectLanguage(form);
    form.LabName->setText(LongestName);
    form.LabType->setText(QStringLiteral("None"));
    form.LabUnit->setText(QStringLiteral("WWWWWWWWWWWWWWWW"));
    form.LabLength->setText(QStringLiteral("500"));
    form.show();
    look(form);
}

/// A window with one control in it that the checker shall judge.
struct Sample {
    template <typename Control, typename... Arguments>
    Control &Add(const QRect &place, Arguments &&...arguments)
    {
        auto *control = new Control(std::forward<Arguments>(arguments)..., &Window);
        control->setGeometry(place);
        return *control;
    }

    QStringList Faults()
    {
        Window.show();
        return CaptionFaults(Window);
    }

    Sample() { Window.resize(400, 300); }
    QWidget Window;
};

using Fill = std::function<void(Sample &sample, int width)>;

} // namespace

class CaptionFitTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { StartAfresh(); }
    void cleanup() { SetToolkitTexts(false); }

    void a_caption_without_room_is_found_data();
    void a_caption_without_room_is_found();
    void a_low_label_is_found();
    void a_caption_cut_by_its_surroundings_is_found();
    void captions_over_each_other_are_found();
    void a_hidden_caption_is_not_looked_at();
    void every_window_has_room_for_its_captions_data();
    void every_window_has_room_for_its_captions();
};

void CaptionFitTest::initTestCase()
{
    const QLabel probe;
    QCOMPARE(probe.logicalDpiX(), DotsPerInch);
    // Without a font for it, a character is an empty box, whose width says nothing.
    for (const QString &text : {QStringLiteral("Sensor"), QStringLiteral("传感器")}) {
        QTextLayout layout(text, probe.font());
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (const QGlyphRun &run : layout.glyphRuns())
            QVERIFY2(!run.glyphIndexes().contains(0), qPrintable(text));
    }
}

void CaptionFitTest::a_caption_without_room_is_found_data()
{
    QTest::addColumn<Fill>("fill");
    QTest::addColumn<int>("enough");
    QTest::addColumn<int>("tooLittle");
    const QString text = QStringLiteral("传感器 Sensor");
    QTest::newRow("label") << Fill([text](Sample &sample, int width) {
        sample.Add<QLabel>(QRect(10, 10, width, 24), text);
    }) << 120 << 60;
    QTest::newRow("framed label") << Fill([text](Sample &sample, int width) {
        sample.Add<QLabel>(QRect(10, 10, width, 24), text).setFrameStyle(QFrame::Panel);
    }) << 120 << 60;
    QTest::newRow("button") << Fill([text](Sample &sample, int width) {
        sample.Add<QPushButton>(QRect(10, 10, width, 28), text);
    }) << 120 << 70;
    QTest::newRow("option") << Fill([text](Sample &sample, int width) {
        sample.Add<QRadioButton>(QRect(10, 10, width, 24), text);
    }) << 140 << 85;
    QTest::newRow("check box") << Fill([text](Sample &sample, int width) {
        sample.Add<QCheckBox>(QRect(10, 10, width, 24), text);
    }) << 140 << 85;
    QTest::newRow("frame") << Fill([text](Sample &sample, int width) {
        sample.Add<QGroupBox>(QRect(10, 10, width, 60), text);
    }) << 140 << 70;
    QTest::newRow("text box") << Fill([text](Sample &sample, int width) {
        sample.Add<QLineEdit>(QRect(10, 10, width, 28), text);
    }) << 140 << 80;
    QTest::newRow("list") << Fill([text](Sample &sample, int width) {
        sample.Add<QComboBox>(QRect(10, 10, width, 28)).addItem(text);
    }) << 160 << 90;
    QTest::newRow("tabs") << Fill([text](Sample &sample, int width) {
        auto &bar = sample.Add<QTabBar>(QRect(10, 10, width, 40));
        bar.setExpanding(false);
        bar.setElideMode(Qt::ElideNone);
        bar.addTab(text);
        bar.addTab(text);
    }) << 300 << 180;
    QTest::newRow("column title") << Fill([text](Sample &sample, int width) {
        auto &list = sample.Add<ReportList>(QRect(10, 10, 300, 100));
        list.SetColumnTitles({text, QStringLiteral("x")});
        list.SetColumnWidth(1, width);
    }) << 140 << 70;
}

void CaptionFitTest::a_caption_without_room_is_found()
{
    QFETCH(const Fill, fill);
    QFETCH(const int, enough);
    QFETCH(const int, tooLittle);
    Sample good;
    fill(good, enough);
    QCOMPARE(good.Faults(), QStringList());
    QVERIFY(!CaptionsOf(good.Window).empty());
    Sample bad;
    fill(bad, tooLittle);
    const QStringList faults = bad.Faults();
    QVERIFY(!faults.isEmpty());
    for (const QString &fault : faults)
        QVERIFY2(fault.endsWith(QStringLiteral("is clipped")), qPrintable(fault));
}

void CaptionFitTest::a_low_label_is_found()
{
    Sample sample;
    sample.Add<QLabel>(QRect(10, 10, 100, 7), QStringLiteral("Sensor"));
    QCOMPARE(sample.Faults(), QStringList{QStringLiteral(" \"Sensor\" is clipped")});
}

void CaptionFitTest::a_caption_cut_by_its_surroundings_is_found()
{
    Sample sample;
    auto &panel = sample.Add<QWidget>(QRect(10, 10, 60, 40));
    auto *label = new QLabel(QStringLiteral("Sensor"), &panel);
    label->setGeometry(40, 5, 100, 24);
    QCOMPARE(sample.Faults(), QStringList{QStringLiteral(" \"Sensor\" is clipped")});
    label->move(400, 5);
    QCOMPARE(sample.Faults(), QStringList{QStringLiteral(" \"Sensor\" is clipped")});
}

void CaptionFitTest::captions_over_each_other_are_found()
{
    Sample sample;
    sample.Add<QLabel>(QRect(10, 10, 100, 24), QStringLiteral("Sensor"));
    auto &second = sample.Add<QLabel>(QRect(30, 15, 100, 24), QStringLiteral("Unit"));
    QCOMPARE(sample.Faults(), QStringList{QStringLiteral(" \"Sensor\" and  \"Unit\" overlap")});
    second.move(10, 40);
    QCOMPARE(sample.Faults(), QStringList());
}

void CaptionFitTest::a_hidden_caption_is_not_looked_at()
{
    Sample sample;
    sample.Add<QLabel>(QRect(10, 10, 10, 24), QStringLiteral("Sensor")).hide();
    QCOMPARE(sample.Faults(), QStringList());
}

void CaptionFitTest::every_window_has_room_for_its_captions_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<Open>("open");
    for (const int language : {LanguageChinese, LanguageEnglish}) {
        const auto row = [language](const char *window, const Open &open) {
            QTest::addRow("%s, %s", window, language == LanguageChinese ? "Chinese" : "English") << language << open;
        };
        row("status bar", LookAtStatusBar);
        row("project window", LookAtProject);
        row("device choice", [](const LoadedFrame &, const Look &look) {
            DeviceChoiceForm->show();
            look(*DeviceChoiceForm);
        });
        row("reference points", LookAtEditData);
        for (const std::int16_t kind : {InstrumentKindOther, InstrumentKindKV7050, InstrumentKindKV7060}) {
            row(qPrintable(QStringLiteral("sensor, instrument kind %1").arg(kind)),
                [kind](LoadedFrame &loaded, const Look &look) { LookAtSensor(loaded, kind, look); });
        }
        row("colours of the reference picture",
            [](const LoadedFrame &, const Look &look) { LookAtDialogue(LoadRefColourLanguage, look); });
        row("colours of the values",
            [](const LoadedFrame &, const Look &look) { LookAtDialogue(LoadWave1ColourLanguage, look); });
        row("colours of the readings",
            [](const LoadedFrame &, const Look &look) { LookAtDialogue(LoadWave2ColourLanguage, look); });
        row("send", [](const LoadedFrame &, const Look &look) { LookAtSendProject(look); });
        row("about", [](const LoadedFrame &, const Look &look) {
            AboutFrm form;
            form.show();
            look(form);
        });
    }
}

void CaptionFitTest::every_window_has_room_for_its_captions()
{
    QFETCH(const int, language);
    QFETCH(const Open, open);
    LoadedFrame loaded;
    (language == LanguageChinese ? loaded.frame.mnuHelpLang_Chinese : loaded.frame.mnuHelpLang_English)->trigger();
    QTRY_VERIFY(loaded.frame.TabDock->PanelVisible(ProjectSheetPanel));
    int windows = 0;
    open(loaded, [&windows](const QWidget &window) {
        ++windows;
        QVERIFY(!CaptionsOf(window).empty());
        const bool sensor = window.objectName() == QStringLiteral("SensorPropertyFrm");
        const QStringList faults = CaptionFaults(window, sensor ? ThermocoupleQuestion : QStringList());
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(QStringLiteral("; "))));
    });
    QVERIFY(windows > 0);
}

QTEST_MAIN(CaptionFitTest)
#include "tst_caption_fit.moc"
