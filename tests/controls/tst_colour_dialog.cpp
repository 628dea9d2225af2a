/// @file
/// The common colour dialogue: what it starts from, what it returns, and how it is cancelled.
#include "controls/ColourDialog.h"
#include "support/BoxAnswer.h"
#include "support/ErrorOf.h"

#include <QColorDialog>

namespace {

const QString Name = QStringLiteral("ColourDialog");
const ColourRef Teal = Rgb(0, 128, 129);

/// The toolkit's dialogue that is up.
QColorDialog &Chooser(QWidget *dialog)
{
    return *qobject_cast<QColorDialog *>(dialog);
}

void Press(const QWidget *dialog, QDialogButtonBox::StandardButton button)
{
    dialog->findChild<QDialogButtonBox *>()->button(button)->click();
}

} // namespace

class ColourDialogTest : public QObject {
    Q_OBJECT

private slots:
    void it_starts_from_the_given_colour_with_its_flag_only_data();
    void it_starts_from_the_given_colour_with_its_flag_only();
    void the_chosen_colour_is_kept();
    void a_cancel_leaves_the_colour_data();
    void a_cancel_leaves_the_colour();
};

void ColourDialogTest::it_starts_from_the_given_colour_with_its_flag_only_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QColor>("start");
    QTest::newRow("with") << 1 << QColor(0, 128, 129);
    QTest::newRow("without") << 0 << QColor(0, 0, 0);
}

void ColourDialogTest::it_starts_from_the_given_colour_with_its_flag_only()
{
    QFETCH(const int, flags);
    ColourDialog colours;
    colours.Colour = Teal;
    colours.Flags = flags;
    QColor start;
    const WhenModal answer(Name, [&](QWidget *dialog) {
        start = Chooser(dialog).currentColor();
        Press(dialog, QDialogButtonBox::Cancel);
    });
    colours.ShowColour();
    QTEST(start, "start");
}

void ColourDialogTest::the_chosen_colour_is_kept()
{
    ColourDialog colours;
    colours.CancelError = true;
    const WhenModal answer(Name, [](QWidget *dialog) {
        Chooser(dialog).setCurrentColor(QColor(255, 64, 1));
        Press(dialog, QDialogButtonBox::Ok);
    });
    colours.ShowColour();
    QCOMPARE(colours.Colour, 0x000140FF);
}

void ColourDialogTest::a_cancel_leaves_the_colour_data()
{
    QTest::addColumn<bool>("cancelError");
    QTest::newRow("as an error") << true;
    QTest::newRow("silently") << false;
}

void ColourDialogTest::a_cancel_leaves_the_colour()
{
    QFETCH(const bool, cancelError);
    ColourDialog colours;
    colours.Colour = Teal;
    colours.Flags = ColourDialog::StartFromColour;
    colours.CancelError = cancelError;
    const WhenModal answer(Name, [](QWidget *dialog) {
        Chooser(dialog).setCurrentColor(Qt::red);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QCOMPARE(ErrorOf([&] { colours.ShowColour(); }), cancelError ? 32755 : 0);
    QCOMPARE(colours.Colour, Teal);
}

QTEST_MAIN(ColourDialogTest)
#include "tst_colour_dialog.moc"
