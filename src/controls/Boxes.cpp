#include "controls/Boxes.h"

#include "controls/ActiveTop.h"
#include "controls/FlatScrollBar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

namespace {

/// A press under which a box has come up gets no release, be it given to the box or later: the control would stay sunk
/// or step on for ever.
void ReleaseControls()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        if (auto *button = qobject_cast<QAbstractButton *>(widget))
            button->setDown(false);
        else if (auto *bar = qobject_cast<FlatScrollBar *>(widget))
            bar->Release();
    }
}

/// Shows a box until it is answered; closing it is the escape button.
int ShowBox(QMessageBox::Icon icon, const QString &text, const QString &title, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton standard, QMessageBox::StandardButton escape)
{
    QMessageBox box(ActiveTop());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(icon);
    box.setStandardButtons(buttons);
    box.setDefaultButton(standard);
    box.setEscapeButton(escape);
    const int answer = box.exec();
    // Later: a press that takes the focus off a control reaches its own behind the box that this has brought up.
    QMetaObject::invokeMethod(qApp, ReleaseControls, Qt::QueuedConnection);
    return answer;
}

void ShowNotice(QMessageBox::Icon icon, const QString &text, const QString &title)
{
    ShowBox(icon, text, title, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok);
}

} // namespace

void ExclamationBox(const QString &text, const QString &title)
{
    ShowNotice(QMessageBox::Warning, text, title);
}

void InformationBox(const QString &text, const QString &title)
{
    ShowNotice(QMessageBox::Information, text, title);
}

void PlainBox(const QString &text, const QString &title)
{
    ShowNotice(QMessageBox::NoIcon, text, title);
}

bool AskOkCancel(const QString &text, const QString &title)
{
    return ShowBox(QMessageBox::Warning, text, title, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok,
                   QMessageBox::Cancel) == QMessageBox::Ok;
}

bool AskYesNo(const QString &text, const QString &title)
{
    return ShowBox(QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes,
                   QMessageBox::No) == QMessageBox::Yes;
}
