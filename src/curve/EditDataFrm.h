/// @file
/// The dialogue that adds and changes rows of a reference table.
#pragma once

#include "controls/FlatScrollBar.h"
#include "controls/TextBox.h"
#include "controls/UpDown.h"
#include "project/ProjectTable.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <array>
#include <cstdint>

class EditDataFrm : public QDialog {
    Q_OBJECT

public:
    explicit EditDataFrm(QWidget *parent = nullptr);

    QLabel *NOLal, *VolLab, *TemperatureLab, *VUnitLab, *TUnitLab, *SegmentLab, *MathLab;
    TextBox *NOTxt; ///< row number
    FlatScrollBar *HScroll1;
    UpDown *UpDown1;
    TextBox *VolTxt;                          ///< input value
    TextBox *TemperateTxt;                    ///< output value
    std::array<QRadioButton *, 2> SegmentOpt; ///< yes, no
    QGroupBox *Frame1;
    std::array<QRadioButton *, 2> MathOpt; ///< line, least squares
    QPushButton *OkCmd, *CancelCmd;

    ReferenceRows WorkingTable; ///< the dialogue's copy: what is typed lands here first
    bool MultiSelect = false;   ///< more than one row was selected on entry
    std::int32_t FirstRow = 1;  ///< limits of NOTxt
    std::int32_t LastRow = 1;

private:
    void MakeFields();
    void MakeOptions();
    void MakeButtons();
};
