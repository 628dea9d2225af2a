#include "controls/Boxes.h"

#include "controls/ActiveTop.h"

#include <QMessageBox>

namespace {

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
    return box.exec();
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
