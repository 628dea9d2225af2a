/// @file
/// The dialogue in which one of several instruments is picked.

#include "link/ConnectionModule.h"
#include "link/DeviceChoiceFrm.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"

#include <QtTest>

#include <memory>

namespace {

const QString First = QStringLiteral("USB0::0xFFFE::0x7060::KV70600001::INSTR");
const QString Second = QStringLiteral("USB0::0xFFFE::0x7050::KV70500002::INSTR");
const QString Found = QStringLiteral("as the discovery left it");

} // namespace

class TestDeviceChoice : public QObject {
    Q_OBJECT

    std::unique_ptr<BareFrame> m_fixture;

    static ListCombo &Devices() { return *DeviceChoiceForm->CbDeviceList; }

private slots:
    void init()
    {
        m_fixture = std::make_unique<BareFrame>();
        MakeDeviceChoice();
        Devices().AddItem(First);
        Devices().AddItem(Second);
        VisaResourceBuffer[0] = Found;
    }

    void cleanup() { m_fixture.reset(); }

    void itsTextsStandAsGiven()
    {
        QCOMPARE(DeviceChoiceForm->windowTitle(), QStringLiteral("Device Choice"));
        QCOMPARE(DeviceChoiceForm->LabelInfo->text(), QStringLiteral("Please choice a device."));
        QCOMPARE(DeviceChoiceForm->BtOk->text(), QStringLiteral("OK"));
    }

    void itsControlsCarryTheirNames()
    {
        QCOMPARE(DeviceChoiceForm->objectName(), QStringLiteral("DeviceChoiceFrm"));
        QCOMPARE(DeviceChoiceForm->findChild<QLabel *>(QStringLiteral("LabelInfo")), DeviceChoiceForm->LabelInfo);
        QCOMPARE(DeviceChoiceForm->findChild<ListCombo *>(QStringLiteral("CbDeviceList")),
                 DeviceChoiceForm->CbDeviceList);
        QCOMPARE(DeviceChoiceForm->findChild<QPushButton *>(QStringLiteral("BtOk")), DeviceChoiceForm->BtOk);
    }

    void okIsItsOnlyButton()
    {
        QCOMPARE(DeviceChoiceForm->findChildren<QAbstractButton *>().size(), 1);
        QVERIFY(!DeviceChoiceForm->BtOk->autoDefault());
        QVERIFY(!DeviceChoiceForm->BtOk->isDefault());
    }

    void filledItHasNothingSelectedUntilItOpens()
    {
        QCOMPARE(Devices().ListIndex(), -1);
        int opened = -2;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [&opened](QWidget *dialog) {
                opened = Devices().ListIndex();
                dialog->close();
            });
            DeviceChoiceForm->exec();
        }
        QCOMPARE(opened, 0);
    }

    void eachOpeningSelectsTheFirstAgain()
    {
        for (int round = 1; round <= 2; ++round) {
            int opened = -2;
            {
                const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [&opened](QWidget *dialog) {
                    opened = Devices().ListIndex();
                    Devices().SetListIndex(1);
                    dialog->close();
                });
                DeviceChoiceForm->exec();
            }
            QCOMPARE(opened, 0);
        }
    }

    void openedWithoutEntriesItSelectsNothing()
    {
        const BoxAnswers noBox;
        Devices().ClearList();
        int opened = -2;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [&opened](QWidget *) {
                opened = Devices().ListIndex();
                DeviceChoiceForm->BtOk->click();
            });
            DeviceChoiceForm->exec();
        }
        QCOMPARE(opened, -1);
        QCOMPARE(VisaResourceBuffer[0], QString());
    }

    void okHandsOverTheChoiceAndCloses_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("first") << 0 << First;
        QTest::newRow("second") << 1 << Second;
    }

    void okHandsOverTheChoiceAndCloses()
    {
        QFETCH(int, index);
        VisaResourceBuffer[1] = Found;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [index](QWidget *) {
                Devices().SetListIndex(index);
                QTest::mouseClick(DeviceChoiceForm->BtOk, Qt::LeftButton);
            });
            DeviceChoiceForm->exec();
        }
        QVERIFY(!DeviceChoiceForm->isVisible());
        QTEST(VisaResourceBuffer[0], "chosen");
        QCOMPARE(VisaResourceBuffer[1], Found);
    }

    void closedByOtherMeansItLeavesWhatTheDiscoveryFound_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("escape key") << true;
        QTest::newRow("close box") << false;
    }

    void closedByOtherMeansItLeavesWhatTheDiscoveryFound()
    {
        QFETCH(bool, byKey);
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [byKey](QWidget *dialog) {
                Devices().SetListIndex(1);
                if (byKey)
                    QTest::keyClick(dialog, Qt::Key_Escape);
                else
                    dialog->close();
            });
            DeviceChoiceForm->exec();
        }
        QVERIFY(!DeviceChoiceForm->isVisible());
        QCOMPARE(VisaResourceBuffer[0], Found);
    }

    void enterChoosesNothing()
    {
        bool stood = false;
        {
            const WhenModal answer(QStringLiteral("DeviceChoiceFrm"), [&stood](QWidget *dialog) {
                QTest::keyClick(dialog, Qt::Key_Return);
                QTest::keyClick(&Devices(), Qt::Key_Enter);
                stood = dialog->isVisible();
                dialog->close();
            });
            DeviceChoiceForm->exec();
        }
        QVERIFY(stood);
        QCOMPARE(VisaResourceBuffer[0], Found);
    }

    void unloadedItIsGoneUntilItIsMadeAgain()
    {
        UnloadDeviceChoice();
        QVERIFY(DeviceChoiceForm == nullptr);
        QVERIFY(m_fixture->frame.findChildren<DeviceChoiceFrm *>().isEmpty());
        UnloadDeviceChoice();
        MakeDeviceChoice();
        QCOMPARE(m_fixture->frame.findChildren<DeviceChoiceFrm *>().size(), 1);
        QCOMPARE(Devices().ListCount(), 0);
    }
};

QTEST_MAIN(TestDeviceChoice)
#include "tst_device_choice.moc"
