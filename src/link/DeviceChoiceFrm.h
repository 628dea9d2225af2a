/// @file
/// The dialogue in which the user picks one of several instruments.
#pragma once

#include "controls/ListCombo.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>

/// Made when the frame loads and kept: the discovery fills its list before it is shown. It has no Cancel.
class DeviceChoiceFrm : public QDialog {
    Q_OBJECT

public:
    explicit DeviceChoiceFrm(QWidget *parent = nullptr);

    QLabel *LabelInfo;
    ListCombo *CbDeviceList;
    QPushButton *BtOk;

signals:
    /// The dialogue opens.
    void Opened();

protected:
    void showEvent(QShowEvent *event) override;
};
