#include "link/DeviceChoiceFrm.h"

#include <QVBoxLayout>

DeviceChoiceFrm::DeviceChoiceFrm(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("DeviceChoiceFrm"));
    setWindowTitle(QStringLiteral("Device Choice"));
    LabelInfo = new QLabel(QStringLiteral("Please choice a device."), this);
    LabelInfo->setObjectName(QStringLiteral("LabelInfo"));
    CbDeviceList = new ListCombo(this);
    CbDeviceList->setObjectName(QStringLiteral("CbDeviceList"));
    CbDeviceList->setMinimumContentsLength(40);
    BtOk = new QPushButton(QStringLiteral("OK"), this);
    BtOk->setObjectName(QStringLiteral("BtOk"));
    BtOk->setAutoDefault(false);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(LabelInfo);
    layout->addWidget(CbDeviceList);
    layout->addWidget(BtOk, 0, Qt::AlignRight);
}

void DeviceChoiceFrm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        emit Opened();
}
