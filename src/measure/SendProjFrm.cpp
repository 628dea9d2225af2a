#include "measure/SendProjFrm.h"

#include "controls/FormDesign.h"

namespace {

// Twips.
constexpr int ClientWidth = 6000;
constexpr int ClientHeight = 3150;
constexpr int LineTop = 390;
constexpr int LineHeight = 450;

QLabel *NewLabel(const char *name, const char *text, QWidget *parent)
{
    auto *label = Named<QLabel>(name, QString::fromLatin1(text), parent);
    label->setTextFormat(Qt::PlainText); // names are the user's
    return label;
}

QPushButton *NewButton(const char *name, const char *caption, QWidget *parent)
{
    auto *button = Named<QPushButton>(name, QString::fromLatin1(caption), parent);
    button->setAutoDefault(false);
    return button;
}

} // namespace

SendProjFrm::SendProjFrm(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("SendProjFrm"));
    setWindowTitle(QStringLiteral("Send Project"));
    setFixedSize(PixelsFromTwips(ClientWidth), PixelsFromTwips(ClientHeight));
    InforFrame = Placed(Named<QGroupBox>("InforFrame", QStringLiteral("Information"), this), 150, 150, 5700, 2250);
    LabNameTitle = NewLabel("LabNameTitle", "Sensor name", InforFrame);
    LabTypeTitle = NewLabel("LabTypeTitle", "Sensor type", InforFrame);
    LabUnitTitle = NewLabel("LabUnitTitle", "Sensor unit", InforFrame);
    LabLenTitle = NewLabel("LabLenTitle", "Data length", InforFrame);
    LabName = NewLabel("LabName", "", InforFrame);
    LabType = NewLabel("LabType", "", InforFrame);
    LabUnit = NewLabel("LabUnit", "", InforFrame);
    LabLength = NewLabel("LabLength", "", InforFrame);
    MakeLine(0, LabNameTitle, LabName);
    MakeLine(1, LabTypeTitle, LabType);
    MakeLine(2, LabUnitTitle, LabUnit);
    MakeLine(3, LabLenTitle, LabLength);
    ComSend = Placed(NewButton("ComSend", "Send", this), 1500, 2550, 1350, 420);
    ComCancel = Placed(NewButton("ComCancel", "Cancel", this), 3150, 2550, 1350, 420);
}

void SendProjFrm::MakeLine(int line, QLabel *title, QLabel *value)
{
    const int top = LineTop + line * LineHeight;
    Placed(title, 150, top, 1500, 330);
    Placed(value, 1650, top, 3900, 330);
}
