/// @file
/// The dialogues of colours and of sending, and the two windows that nothing opens, before any language is applied.
#include "display/RefPicColorrizeFrm.h"
#include "display/Wave1picColorrizeFrm.h"
#include "display/Wave2picColorrizeFrm.h"
#include "measure/SendProjFrm.h"
#include "shell/AboutFrm.h"
#include "shell/MainFrm.h"
#include "shell/SplashFrm.h"

#include <QTest>

#include <memory>

namespace {

std::unique_ptr<ColorrizeFrm> ColourWindow(const QString &name)
{
    if (name == QStringLiteral("RefPicColorrizeFrm"))
        return std::make_unique<RefPicColorrizeFrm>();
    if (name == QStringLiteral("Wave1picColorrizeFrm"))
        return std::make_unique<Wave1picColorrizeFrm>();
    return std::make_unique<Wave2picColorrizeFrm>();
}

} // namespace

class DialogueDesignTest : public QObject {
    Q_OBJECT

private slots:
    void every_frame_holds_its_swatch_data();
    void every_frame_holds_its_swatch();
    void a_swatch_shows_its_back_colour();
    void the_colour_buttons_are_those_of_the_form_data();
    void the_colour_buttons_are_those_of_the_form();
    void the_send_dialogue_is_that_of_the_form();
    void a_name_with_marks_is_shown_as_it_is();
    void the_about_window_is_closed_by_its_button();
    void the_splash_window_is_empty();
};

void DialogueDesignTest::every_frame_holds_its_swatch_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("swatch");
    const auto row = [](const char *window, const char *frame, const char *caption, const char *swatch) {
        QTest::addRow("%s %s", window, frame)
            << QString(window) << QString(frame) << QString(caption) << QString(swatch);
    };
    row("RefPicColorrizeFrm", "GridFrame", "Grid Color", "PicGrid");
    row("RefPicColorrizeFrm", "AbscissaFrame", "Abscissa Color", "PicAbscissa");
    row("RefPicColorrizeFrm", "OrdinateFrame", "Ordinate Color", "PicOrdinate");
    row("RefPicColorrizeFrm", "SegmentFrame", "Segment Dot Color", "PicSegment");
    row("RefPicColorrizeFrm", "LineDotFrame", "Line Dot Color", "PicLineDot");
    row("RefPicColorrizeFrm", "LeastDotFrame", "Least Dot Color", "PicLeastDot");
    for (const char *window : {"Wave1picColorrizeFrm", "Wave2picColorrizeFrm"}) {
        row(window, "GridFrame", "Grid Color", "PicGrid");
        row(window, "AbscissaFrame", "Abscissa Color", "PicAbscissa");
        row(window, "OrdinateFrame", "Ordinate Color", "PicOrdinate");
        row(window, "DotFrame", "Dot Color", "PicSegment");
    }
}

void DialogueDesignTest::every_frame_holds_its_swatch()
{
    QFETCH(const QString, window);
    QFETCH(const QString, frame);
    QFETCH(const QString, swatch);
    const std::unique_ptr<ColorrizeFrm> form = ColourWindow(window);
    const auto *box = form->findChild<QGroupBox *>(frame);
    const auto *picture = form->findChild<PictureBox *>(swatch);
    QVERIFY(box != nullptr && picture != nullptr);
    QTEST(box->title(), "caption");
    QCOMPARE(picture->parentWidget(), box);
    QVERIFY(box->rect().contains(picture->geometry()));
    QVERIFY(form->rect().contains(box->geometry()));
    for (const QGroupBox *other : form->findChildren<QGroupBox *>())
        QVERIFY2(other == box || !other->geometry().intersects(box->geometry()), qPrintable(other->objectName()));
}

void DialogueDesignTest::a_swatch_shows_its_back_colour()
{
    const RefPicColorrizeFrm form;
    form.PicLineDot->BackColour = Rgb(255, 128, 1);
    form.PicLineDot->Clear();
    QCOMPARE(form.PicLineDot->grab().toImage().pixelColor(3, 3), QColor(255, 128, 1));
}

void DialogueDesignTest::the_colour_buttons_are_those_of_the_form_data()
{
    QTest::addColumn<QString>("window");
    for (const char *window : {"RefPicColorrizeFrm", "Wave1picColorrizeFrm", "Wave2picColorrizeFrm"})
        QTest::newRow(window) << QString(window);
}

void DialogueDesignTest::the_colour_buttons_are_those_of_the_form()
{
    QFETCH(const QString, window);
    const std::unique_ptr<ColorrizeFrm> form = ColourWindow(window);
    QCOMPARE(form->objectName(), window);
    QCOMPARE(form->ComOK->text(), QStringLiteral("OK"));
    QCOMPARE(form->ComCancel->text(), QStringLiteral("Cancel"));
    QCOMPARE(form->ComApply->text(), QStringLiteral("Apply"));
    QVERIFY(form->DialogColor->CancelError);
}

void DialogueDesignTest::the_send_dialogue_is_that_of_the_form()
{
    const SendProjFrm form;
    QCOMPARE(form.windowTitle(), QStringLiteral("Send Project"));
    QCOMPARE(form.InforFrame->title(), QStringLiteral("Information"));
    QCOMPARE(form.LabNameTitle->text(), QStringLiteral("Sensor name"));
    QCOMPARE(form.LabTypeTitle->text(), QStringLiteral("Sensor type"));
    QCOMPARE(form.LabUnitTitle->text(), QStringLiteral("Sensor unit"));
    QCOMPARE(form.LabLenTitle->text(), QStringLiteral("Data length"));
    QCOMPARE(form.ComSend->text(), QStringLiteral("Send"));
    QCOMPARE(form.ComCancel->text(), QStringLiteral("Cancel"));
    for (const QLabel *value : {form.LabName, form.LabType, form.LabUnit, form.LabLength})
        QCOMPARE(value->text(), QString());
}

void DialogueDesignTest::a_name_with_marks_is_shown_as_it_is()
{
    const SendProjFrm form;
    form.LabName->setText(QStringLiteral("<b>Load</b>"));
    const int plain = form.LabName->fontMetrics().horizontalAdvance(QStringLiteral("<b>Load</b>"));
    QVERIFY(form.LabName->sizeHint().width() >= plain);
}

void DialogueDesignTest::the_about_window_is_closed_by_its_button()
{
    const MainFrm frame; // brings the pictures
    AboutFrm form;
    QCOMPARE(form.windowTitle(), QStringLiteral("About Ostrakon For KV7050"));
    QCOMPARE(form.LabVersion->text(), QStringLiteral("Version:00.02.00.00"));
    QVERIFY(!form.PicAbout->pixmap(Qt::ReturnByValue).isNull());
    form.show();
    QVERIFY(form.isVisible());
    QTest::mouseClick(form.ComOK, Qt::LeftButton);
    QVERIFY(!form.isVisible());
}

void DialogueDesignTest::the_splash_window_is_empty()
{
    const SplashFrm form;
    QCOMPARE(form.objectName(), QStringLiteral("SplashFrm"));
    QVERIFY(form.children().isEmpty());
}

QTEST_MAIN(DialogueDesignTest)
#include "tst_dialogue_design.moc"
