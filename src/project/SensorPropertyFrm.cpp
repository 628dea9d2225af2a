#include "project/SensorPropertyFrm.h"

#include "platform/Measures.h"

#include <QButtonGroup>

namespace {

constexpr int ClientWidth = 6000;  // twips
constexpr int ClientHeight = 3435; // twips

template <typename Widget, typename... Arguments>
Widget *Named(const char *name, Arguments &&...arguments)
{
    auto *widget = new Widget(std::forward<Arguments>(arguments)...);
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

void Place(QWidget *widget, int left, int top, int width, int height)
{
    widget->setGeometry(PixelsFromTwips(left), PixelsFromTwips(top), PixelsFromTwips(width), PixelsFromTwips(height));
}

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
    Place(LabName, 150, 150, 1350, 330);
    Place(Txtname, 1500, 150, 2700, 330);
    Place(LabType, 150, 600, 1350, 330);
    Place(Combtype, 1500, 600, 1500, 330);
    Place(LabelSubType, 3150, 600, 1050, 330);
    Place(CombSubType, 4200, 600, 1650, 330);
    Place(LabInUnit, 150, 1050, 1350, 330);
    Place(CombInunit, 1500, 1050, 1500, 330);
    Place(Labela, 3150, 1050, 1050, 330);
    Place(Comboa, 4200, 1050, 1650, 330);
    Place(LabOutUnit, 150, 1500, 1350, 330);
    Place(CombOutunit, 1500, 1500, 1500, 330);
    Place(TxtUnit, 1500, 1500, 1500, 330);
    Place(LabelParameter, 3150, 1500, 1050, 330);
    Place(TextR0, 4200, 1500, 1650, 330);
    Place(OptDefault, 1500, 1950, 1800, 330);
    Place(OptUser, 1500, 2280, 1800, 330);
    Place(ComdEnter, 1500, 2850, 1350, 420);
    Place(ComdCancel, 3150, 2850, 1350, 420);
    // Required: the thermocouple question lies below the dialogue's lower edge, and nothing brings it up.
    Place(LabelbThermocouple, 150, 6240, 1350, 330);
    Place(Frame2, 1500, 6240, 2700, 450);
    Place(OptYes, 60, 60, 1200, 330);
    Place(OptNo, 1320, 60, 1200, 330);
    for (QWidget *hidden :
         std::initializer_list<QWidget *>{LabelSubType, CombSubType, Labela, Comboa, LabelParameter, TextR0, TxtUnit})
        hidden->hide();
}
