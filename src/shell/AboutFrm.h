/// @file
/// An old window about the program. Required: nothing opens it, the About command shows a box instead.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

class AboutFrm : public QDialog {
    Q_OBJECT

public:
    explicit AboutFrm(QWidget *parent = nullptr);

    QLabel *PicAbout;
    QLabel *LabVersion;
    QPushButton *ComOK; ///< closes the window
};
