/// @file
/// The dialogue that hands a project over to the instrument.
#pragma once

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

class SendProjFrm : public QDialog {
    Q_OBJECT

public:
    explicit SendProjFrm(QWidget *parent = nullptr);

    QGroupBox *InforFrame;
    QLabel *LabNameTitle, *LabTypeTitle, *LabUnitTitle, *LabLenTitle;
    QLabel *LabName, *LabType, *LabUnit; ///< what the project says
    QLabel *LabLength;                   ///< rows that will be sent, as text
    QPushButton *ComSend, *ComCancel;

private:
    static void MakeLine(int line, QLabel *title, QLabel *value);
};
