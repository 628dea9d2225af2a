/// @file
/// The toolkit's own texts in two languages: message boxes and the common dialogues.
#include "controls/Boxes.h"
#include "controls/ColourDialog.h"
#include "controls/CommonDialog.h"
#include "controls/SystemMenuTexts.h"
#include "controls/ToolkitTexts.h"
#include "support/BoxAnswer.h"

#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTemporaryDir>

#include <functional>

namespace {

/// The texts of the buttons of the standard button box, in the order of the alphabet.
QStringList ButtonTexts(const QWidget *dialog)
{
    QStringList texts;
    for (const QAbstractButton *button : dialog->findChild<QDialogButtonBox *>()->buttons())
        texts.append(button->text());
    texts.sort();
    return texts;
}

/// Opens a dialogue, reads it, and closes it.
QStringList ButtonsOf(const QString &name, const std::function<void()> &open)
{
    QStringList texts;
    const WhenModal answer(name, [&](QWidget *dialog) {
        texts = ButtonTexts(dialog);
        qobject_cast<QDialog *>(dialog)->reject();
    });
    open();
    return texts;
}

const QString Box = QStringLiteral("MessageBox");

} // namespace

class ToolkitTextsTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SetToolkitTexts(false); }

    void buttons_follow_the_language_data();
    void buttons_follow_the_language();
    void the_file_dialogue_follows_with_its_labels_too();
    void the_system_menu_of_a_child_window_follows_data();
    void the_system_menu_of_a_child_window_follows();
    void switching_twice_is_switching_once();
    void without_a_catalogue_the_texts_stay_english();
};

void ToolkitTextsTest::buttons_follow_the_language_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<std::function<void()>>("open");
    QTest::addColumn<QStringList>("english");
    QTest::addColumn<QStringList>("chinese");
    using Open = std::function<void()>;
    QTest::newRow("notice") << Box << Open([] { InformationBox(QString()); }) << QStringList{"OK"}
                            << QStringList{"确定"};
    QTest::newRow("OK or Cancel") << Box << Open([] { AskOkCancel(QString()); }) << QStringList{"Cancel", "OK"}
                                  << QStringList{"取消", "确定"};
    QTest::newRow("Yes or No") << Box << Open([] { AskYesNo(QString()); }) << QStringList{"&No", "&Yes"}
                               << QStringList{"否(&N)", "是(&Y)"};
    QTest::newRow("open a file") << "CommonDialog" << Open([] { CommonDialog().ShowOpen(); })
                                 << QStringList{"&Open", "Cancel"} << QStringList{"取消", "打开(&O)"};
    QTest::newRow("save a file") << "CommonDialog" << Open([] { CommonDialog().ShowSave(); })
                                 << QStringList{"&Save", "Cancel"} << QStringList{"保存(&S)", "取消"};
    QTest::newRow("colour") << "ColourDialog" << Open([] { ColourDialog().ShowColour(); })
                            << QStringList{"Cancel", "OK"} << QStringList{"取消", "确定"};
}

void ToolkitTextsTest::buttons_follow_the_language()
{
    QFETCH(const QString, name);
    QFETCH(const std::function<void()>, open);
    QFETCH(const QStringList, english);
    QFETCH(const QStringList, chinese);
    QCOMPARE(ButtonsOf(name, open), english);
    SetToolkitTexts(true);
    QCOMPARE(ButtonsOf(name, open), chinese);
    SetToolkitTexts(false);
    QCOMPARE(ButtonsOf(name, open), english);
}

void ToolkitTextsTest::the_file_dialogue_follows_with_its_labels_too()
{
    const auto labels = [] {
        QStringList texts;
        const WhenModal answer(QStringLiteral("CommonDialog"), [&](QWidget *dialog) {
            for (const QLabel *label : dialog->findChildren<QLabel *>())
                texts.append(label->text());
            qobject_cast<QDialog *>(dialog)->reject();
        });
        CommonDialog().ShowOpen();
        return texts;
    };
    QVERIFY(labels().contains(QStringLiteral("File &name:")));
    SetToolkitTexts(true);
    QVERIFY(labels().contains(QStringLiteral("文件名称(&N)：")));
}

void ToolkitTextsTest::the_system_menu_of_a_child_window_follows_data()
{
    QTest::addColumn<bool>("madeInChinese");
    QTest::newRow("made in English") << false;
    QTest::newRow("made in Chinese") << true;
}

void ToolkitTextsTest::the_system_menu_of_a_child_window_follows()
{
    QFETCH(const bool, madeInChinese);
    const QString english = QStringLiteral("&Restore|&Move|&Size|Mi&nimize|Ma&ximize|Stay on &Top||&Close");
    const QString chinese = QStringLiteral("恢复(&R)|移动(&M)|大小(&S)|最小化(&N)|最大化(&X)|置顶(&T)||关闭(&C)");
    SetToolkitTexts(madeInChinese);
    QMdiArea area;
    auto *window = new QMdiSubWindow;
    new SystemMenuTexts(window);
    area.addSubWindow(window);
    area.show();
    const auto menu = [window] {
        QStringList texts;
        for (const QAction *item : window->systemMenu()->actions())
            texts.append(item->text());
        return texts.join(u'|');
    };
    QCOMPARE(menu(), madeInChinese ? chinese : english);
    SetToolkitTexts(!madeInChinese);
    QTRY_COMPARE(menu(), madeInChinese ? english : chinese);
    SetToolkitTexts(madeInChinese);
    QTRY_COMPARE(menu(), madeInChinese ? chinese : english);
}

void ToolkitTextsTest::switching_twice_is_switching_once()
{
    const auto box = [] { return ButtonsOf(Box, [] { InformationBox(QString()); }); };
    SetToolkitTexts(true);
    SetToolkitTexts(true);
    QCOMPARE(box(), QStringList{"确定"});
    SetToolkitTexts(false);
    QCOMPARE(box(), QStringList{"OK"});
    SetToolkitTexts(false);
    QCOMPARE(box(), QStringList{"OK"});
}

void ToolkitTextsTest::without_a_catalogue_the_texts_stay_english()
{
    const QTemporaryDir empty;
    QTest::failOnWarning(QRegularExpression(QStringLiteral("qtbase|zh_CN")));
    SetToolkitTexts(true, empty.path());
    QCOMPARE(ButtonsOf(Box, [] { AskOkCancel(QString()); }), (QStringList{"Cancel", "OK"}));
}

QTEST_MAIN(ToolkitTextsTest)
#include "tst_toolkit_texts.moc"
