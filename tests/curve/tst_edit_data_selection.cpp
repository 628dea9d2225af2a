/// @file
/// The mouse selection of an X screen and the boxes of the dialogue of reference rows: the middle button pastes, so
/// that it is refused like the key that pastes.
#include "curve/EditDataBench.h"
#include "support/VirtualScreen.h"
#include "tour/XHands.h"

#include <QClipboard>

class EditDataSelectionTest : public QObject {
    Q_OBJECT

private slots:
    void init() { CurrentLanguage = LanguageEnglish; }

    void the_middle_button_gets_nothing_in_data();
    void the_middle_button_gets_nothing_in();
};

void EditDataSelectionTest::the_middle_button_gets_nothing_in_data()
{
    QTest::addColumn<QString>("selected");
    QTest::newRow("digits") << QStringLiteral("2");
    QTest::newRow("letters") << QStringLiteral("x");
    QTest::newRow("a long number") << QStringLiteral("1234567890123456");
}

void EditDataSelectionTest::the_middle_button_gets_nothing_in()
{
    QFETCH(const QString, selected);
    EditDataBench bench;
    bench.PutRows({1, 2, 3});
    const BoxAnswers noBox;
    Changing(bench, 1, [&](EditDataFrm &form) {
        // A box without a filter shows that the selection does come.
        QLineEdit plain(&form);
        plain.resize(120, 24);
        plain.show();
        QGuiApplication::clipboard()->setText(selected, QClipboard::Selection);
        XHands::Click(plain, 2);
        QTRY_COMPARE(plain.text(), selected);

        for (TextBox *box : {form.NOTxt, form.VolTxt, form.TemperateTxt}) {
            QStringList shown;
            QObject::connect(box, &TextBox::Change, &form, [&shown, box] { shown.append(box->text()); });
            QList<int> keys;
            QObject::connect(box, &TextBox::KeyPress, &form, [&keys](int &key) { keys.append(key); });
            XHands::Click(*box, 2);
            QTRY_COMPARE(keys.size(), 1);
            QCOMPARE(keys.first(), 0); // swallowed
            QCOMPARE(shown, QStringList());
        }
    });
}

int main(int argc, char **argv)
{
    const VirtualScreen screen;
    QApplication application(argc, argv);
    EditDataSelectionTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_edit_data_selection.moc"
