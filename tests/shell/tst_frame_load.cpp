/// @file
/// The load of the frame: the language and the settings that it reads, damaged ones included, and what stands after it.
#include "link/DeviceChoiceFrm.h"
#include "platform/SettingsStore.h"
#include "shell/FrameBench.h"
#include "support/Hands.h"

namespace {

void PutSetting(const QString &section, const QString &key, const QString &value)
{
    WriteSetting(QStringLiteral("Ostrakon"), section, key, value);
}

void PutLanguage(const QString &value)
{
    PutSetting(QStringLiteral("Language"), QStringLiteral("Currentlang"), value);
}

} // namespace

class FrameLoadTest : public QObject {
    Q_OBJECT

private slots:
    void init() { StartAfresh(); }

    void a_first_run_is_english_and_stores_nothing();
    void the_stored_language_is_read_data();
    void the_stored_language_is_read();
    void a_damaged_language_is_told_and_english_stands_data();
    void a_damaged_language_is_told_and_english_stands();
    void damaged_io_settings_are_told_and_the_load_goes_on();
    void each_damaged_setting_is_told_on_its_own();
    void the_load_puts_all_tables_in_place();
    void controls_without_command_are_out_of_sight();
    void a_project_window_exports_and_imports_its_reference_table();
};

void FrameLoadTest::a_first_run_is_english_and_stores_nothing()
{
    {
        const LoadedFrame loaded;
        QCOMPARE(CurrentLanguage, 1);
        QCOMPARE(loaded.frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
        QVERIFY(loaded.frame.mnuHelpLang_English->isChecked());
        QVERIFY(!loaded.frame.mnuHelpLang_Chinese->isChecked());
    }
    QCOMPARE(Store().allKeys(), QStringList());
}

void FrameLoadTest::the_stored_language_is_read_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("newCaption");
    QTest::addColumn<bool>("chinese");
    QTest::newRow("Chinese") << "0" << 0 << "新建工程..." << true;
    QTest::newRow("English") << "1" << 1 << "&New Project..." << false;
    QTest::newRow("neither") << "2" << 2 << "&New Project..." << false;
}

void FrameLoadTest::the_stored_language_is_read()
{
    QFETCH(const QString, stored);
    QFETCH(const int, language);
    QFETCH(const QString, newCaption);
    QFETCH(const bool, chinese);
    PutLanguage(stored);
    const LoadedFrame loaded;
    QCOMPARE(CurrentLanguage, language);
    QCOMPARE(loaded.frame.mnuFileNew->text(), newCaption);
    QCOMPARE(ProjectRootText, chinese ? QStringLiteral("工程组") : QStringLiteral("Project Group"));
    QCOMPARE(loaded.frame.mnuHelpLang_Chinese->isChecked(), chinese);
    QCOMPARE(loaded.frame.mnuHelpLang_English->isChecked(), !chinese);
}

void FrameLoadTest::a_damaged_language_is_told_and_english_stands_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("told");
    QTest::newRow("no number") << "English"
                               << "Type mismatch";
    QTest::newRow("empty") << ""
                           << "Type mismatch";
    QTest::newRow("beyond 32 bits") << "4294967296"
                                    << "Overflow";
}

void FrameLoadTest::a_damaged_language_is_told_and_english_stands()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, told);
    PutLanguage(stored);
    BoxAnswers answers({QMessageBox::Ok});
    const LoadedFrame loaded;
    QCOMPARE(answers.Texts(), QStringList{told});
    QCOMPARE(answers.Shown()[0].Title, QStringLiteral("Ostrakon"));
    QCOMPARE(CurrentLanguage, 1);
    QCOMPARE(loaded.frame.mnuFileNew->text(), QStringLiteral("&New Project..."));
    QVERIFY(DeviceChoiceForm != nullptr);
    QVERIFY(loaded.frame.TimeOutTimer->isActive());
}

void FrameLoadTest::damaged_io_settings_are_told_and_the_load_goes_on()
{
    PutSetting(QStringLiteral("IOSetting"), QStringLiteral("IOType"), QStringLiteral("USB"));
    BoxAnswers answers({QMessageBox::Ok});
    const LoadedFrame loaded;
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("Type mismatch")});
    QCOMPARE(IOType, IOTypeUsb);
    // The commands behind it are connected.
    loaded.frame.mnuHelpLang_Chinese->trigger();
    QCOMPARE(loaded.frame.mnuFileNew->text(), QStringLiteral("新建工程..."));
}

void FrameLoadTest::each_damaged_setting_is_told_on_its_own()
{
    PutLanguage(QStringLiteral("?"));
    PutSetting(QStringLiteral("RS232"), QStringLiteral("BaudRate"), QStringLiteral("fast"));
    PutSetting(QStringLiteral("IOSetting"), QStringLiteral("IOType"), QStringLiteral("2"));
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok});
    const LoadedFrame loaded;
    QCOMPARE(answers.Shown().size(), 2);
    QCOMPARE(IOType, IOTypeRs232);
    QCOMPARE(CurrentLanguage, 1);
}

void FrameLoadTest::the_load_puts_all_tables_in_place()
{
    ProjectOccupied.fill(true);
    Measuring = true;
    InstrumentSensorOn = true;
    OverloadAccepted = true;
    ClosingAll = true;
    WaveBackColour = 7;
    const LoadedFrame loaded;
    for (int slot = 0; slot < SlotCount; ++slot) {
        QVERIFY(!ProjectOccupied[slot]);
        QCOMPARE(ProjectSlots[slot].ChildCount, std::int16_t{3});
    }
    QVERIFY(!Measuring && !InstrumentSensorOn && !OverloadAccepted && !ClosingAll && !LinkUp);
    QCOMPARE(WaveBackColour, 0);
    QVERIFY(ProjectPanelVisible);
    QVERIFY(ProjectTreeFirstFill);
    QVERIFY(loaded.frame.picLED_OFF->isVisible());
    QVERIFY(!loaded.frame.picLED_ON->isVisible());
    QVERIFY(!loaded.frame.mnuFileCloseAllProjects->isEnabled());
    QCOMPARE(NodeTexts(), QStringList{QStringLiteral("Project Group")});
}

void FrameLoadTest::controls_without_command_are_out_of_sight()
{
    LoadedFrame loaded;
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    for (const QWidget *control :
         std::initializer_list<const QWidget *>{form.ReplayFrame, form.DataFrame, form.PictureFrame,
                                                form.ColorRfLumoBtn, form.LabColor2, form.ColorLumoBtn, form.LabColor})
        QVERIFY2(control->isHidden(), qPrintable(control->objectName()));
    for (const QWidget *control :
         std::initializer_list<const QWidget *>{form.MeasureFrame, form.ZoomFrame, form.ImportLumoBtn,
                                                form.ExportLumoBtn, form.UndoLumoBtn, form.RedoLumoBtn})
        QVERIFY2(!control->isHidden(), qPrintable(control->objectName()));
}

void FrameLoadTest::a_project_window_exports_and_imports_its_reference_table()
{
    LoadedFrame loaded;
    const SensorProjFrm &form = loaded.NewProjectByMenu();
    BoxAnswers answers({QMessageBox::Ok});
    Click(form.ExportLumoBtn);
    QCOMPARE(answers.Texts(), QStringList{QStringLiteral("No reference point! ")});
    const WhenModal dialogue(QStringLiteral("CommonDialog"), [](QWidget *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Import reference datas"));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Click(form.ImportLumoBtn);
}

QTEST_MAIN(FrameLoadTest)
#include "tst_frame_load.moc"
