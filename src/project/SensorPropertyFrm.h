/// @file
/// The dialogue that defines a sensor.
#pragma once

#include "controls/ListCombo.h"
#include "controls/TextBox.h"

#include <QDialog>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

/// Keeps no data of its own: Done leaves its controls to be read.
class SensorPropertyFrm : public QDialog {
    Q_OBJECT

public:
    explicit SensorPropertyFrm(QWidget *parent = nullptr);

    QLabel *LabName, *LabType, *LabInUnit, *LabelSubType, *Labela, *LabelParameter, *LabOutUnit, *LabelbThermocouple;
    TextBox *Txtname;
    ListCombo *Combtype, *CombInunit, *CombSubType, *Comboa, *CombOutunit;
    TextBox *TextR0;  ///< ohm
    TextBox *TxtUnit; ///< free output unit
    QRadioButton *OptDefault, *OptUser;
    QFrame *Frame2; ///< lies below the lower edge of the dialogue, so that its options are never reached
    QRadioButton *OptYes, *OptNo;
    QPushButton *ComdEnter, *ComdCancel;

private:
    void MakeControls();
    void PlaceControls();
};
