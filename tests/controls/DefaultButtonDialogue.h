/// @file
/// A dialogue with a default button, for the controls that keep Enter from it.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

struct DefaultButtonDialogue {
    DefaultButtonDialogue() { Button.setDefault(true); }

    /// Puts a control above the button and shows both. Declare the control behind this, so that it goes first.
    bool Show(QWidget &control)
    {
        Column.addWidget(&control);
        Column.addWidget(&Button);
        Dialog.show();
        return QTest::qWaitForWindowActive(&Dialog);
    }

    /// Presses Return where nothing keeps it from the button.
    void PressReturnElsewhere()
    {
        QLineEdit plain(&Dialog);
        plain.show();
        QTest::keyClick(&plain, Qt::Key_Return);
    }

    QDialog Dialog;
    QVBoxLayout Column{&Dialog};
    QPushButton Button;
    QSignalSpy Clicks{&Button, &QPushButton::clicked};
};
