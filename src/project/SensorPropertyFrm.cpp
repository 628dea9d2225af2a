#include "project/SensorPropertyFrm.h"

#include "controls/FormDesign.h"

#include <QButtonGroup>

namespace {

constexpr int ClientWidth = 6000;  // twips
constexpr int ClientHeight = 3435; // twips

} // namespace

SensorPropertyFrm::SensorPropertyFrm(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("SensorPropertyFrm"));
    setFixedSize(PixelsFromTwips(ClientWidth), PixelsFromTwips(ClientHeight));
    MakeControls();
    PlaceControls();
}

void SensorPropertyFrm::MakeControls()
{
    LabName = Named<QLabel>("LabName", this);
    Txtname = Named<TextBox>("Txtname", this);
    LabType = Named<QLabel>("LabType", this);
    Combtype = Named<ListCombo>("Combtype", this);
    LabInUnit = Named<QLabel>("LabInUnit", this);
    CombInunit = Named<ListCombo>("CombInunit", this);
    LabelSubType = Named<QLabel>("LabelSubType", this);
    CombSubType = Named<ListCombo>("CombSubType", this);
    Labela = Named<QLabel>("Labela", QStringLiteral("ALPHA"), this);
    Comboa = Named<ListCombo>("Comboa", this);
    LabelParameter = Named<QLabel>("LabelParameter", this);
    TextR0 = Named<TextBox>("TextR0", this);
    TextR0->setText(QStringLiteral("100"));
    OptDefault = Named<QRadioButton>("OptDefault", this);
    OptUser = Named<QRadioButton>("OptUser", this);
    auto *outputUnits = new QButtonGroup(this);
    outputUnits->addButton(OptDefault);
    outputUnits->addButton(OptUser);
    OptDefault->setChecked(true);
    LabOutUnit = Named<QLabel>("LabOutUnit", this);
    CombOutunit = Named<ListCombo>("CombOutunit", this);
    TxtUnit = Named<TextBox>("TxtUnit", this);
    LabelbThermocouple = Named<QLabel>("LabelbThermocouple", this);
    Frame2 = Named<QFrame>("Frame2", this);
    OptYes = Named<QRadioButton>("OptYes", Frame2);
    OptNo = Named<QRadioButton>("OptNo", Frame2);
    // Out of the mouse's reach and of the Tab key's.
    OptYes->setFocusPolicy(Qt::NoFocus);
    OptNo->setFocusPolicy(Qt::NoFocus);
    ComdEnter = Named<QPushButton>("ComdEnter", this);
    ComdEnter->setAutoDefault(false);
    ComdCancel = Named<QPushButton>("ComdCancel", this);
    ComdCancel->setAutoDefault(false);
}

void SensorPropertyFrm::PlaceControls()
{
    Placed(LabName, 150, 150, 1350, 330);
    Placed(Txtname, 1500, 150, 2700, 330);
    Placed(LabType, 150, 600, 1350, 330);
    Placed(Combtype, 1500, 600, 1500, 330);
    Placed(LabelSubType, 3150, 600, 1050, 330);
    Placed(CombSubType, 4200, 600, 1650, 330);
    Placed(LabInUnit, 150, 1050, 1350, 330);
    Placed(CombInunit, 1500, 1050, 1500, 330);
    Placed(Labela, 3150, 1050, 1050, 330);
    Placed(Comboa, 4200, 1050, 1650, 330);
    Placed(LabOutUnit, 150, 1500, 1350, 330);
    Placed(CombOutunit, 1500, 1500, 1500, 330);
    Placed(TxtUnit, 1500, 1500, 1500, 330);
    Placed(LabelParameter, 3150, 1500, 1050, 330);
    Placed(TextR0, 4200, 1500, 1650, 330);
    Placed(OptDefault, 1500, 1950, 1800, 330);
    Placed(OptUser, 1500, 2280, 1800, 330);
    Placed(ComdEnter, 1500, 2850, 1350, 420);
    Placed(ComdCancel, 3150, 2850, 1350, 420);
    // Required: the thermocouple question lies below the dialogue's lower edge, and nothing brings it up.
    Placed(LabelbThermocouple, 150, 6240, 1350, 330);
    Placed(Frame2, 1500, 6240, 2700, 450);
    Placed(OptYes, 60, 60, 1200, 330);
    Placed(OptNo, 1320, 60, 1200, 330);
    for (QWidget *hidden :
         std::initializer_list<QWidget *>{LabelSubType, CombSubType, Labela, Comboa, LabelParameter, TextR0, TxtUnit})
        hidden->hide();
}
