#include "curve/EditDataFrm.h"

#include "controls/FormDesign.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>

namespace {

constexpr int RowPage = 10; ///< rows that a click beside the thumb of HScroll1 moves

} // namespace

EditDataFrm::EditDataFrm(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("EditDataFrm"));
    // In the order of the Tab key.
    MakeFields();
    MakeOptions();
    MakeButtons();

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(OkCmd);
    buttons->addWidget(CancelCmd);

    auto *layout = new QGridLayout(this);
    layout->addWidget(NOLal, 0, 0);
    layout->addWidget(NOTxt, 0, 1);
    layout->addWidget(UpDown1, 0, 2);
    layout->addWidget(HScroll1, 1, 1, 1, 2);
    layout->addWidget(VolLab, 2, 0);
    layout->addWidget(VolTxt, 2, 1);
    layout->addWidget(VUnitLab, 2, 2);
    layout->addWidget(TemperatureLab, 3, 0);
    layout->addWidget(TemperateTxt, 3, 1);
    layout->addWidget(TUnitLab, 3, 2);
    layout->addWidget(SegmentLab, 4, 0);
    auto *segment = new QHBoxLayout;
    segment->addWidget(SegmentOpt[0]);
    segment->addWidget(SegmentOpt[1]);
    segment->addStretch();
    layout->addLayout(segment, 4, 1, 1, 2);
    layout->addWidget(Frame1, 5, 0, 1, 3);
    layout->addLayout(buttons, 6, 0, 1, 3);
    setMinimumWidth(360);
}

void EditDataFrm::MakeFields()
{
    NOLal = Named<QLabel>("NOLal", this);
    NOTxt = Named<TextBox>("NOTxt", this);
    UpDown1 = Named<UpDown>("UpDown1", this);
    HScroll1 = Named<FlatScrollBar>("HScroll1", Qt::Horizontal, this);
    HScroll1->SetUp(1, ReferenceRowLimit, 1, RowPage, 1);
    VolLab = Named<QLabel>("VolLab", this);
    VolTxt = Named<TextBox>("VolTxt", this);
    VUnitLab = Named<QLabel>("VUnitLab", this);
    TemperatureLab = Named<QLabel>("TemperatureLab", this);
    TemperateTxt = Named<TextBox>("TemperateTxt", this);
    TUnitLab = Named<QLabel>("TUnitLab", this);
    VUnitLab->setMinimumWidth(40);
}

void EditDataFrm::MakeOptions()
{
    SegmentLab = Named<QLabel>("SegmentLab", this);
    SegmentOpt = {Named<QRadioButton>("SegmentOpt(0)", this), Named<QRadioButton>("SegmentOpt(1)", this)};
    auto *segments = new QButtonGroup(this);
    for (QRadioButton *option : SegmentOpt)
        segments->addButton(option);
    SegmentOpt[1]->setChecked(true);

    Frame1 = Named<QGroupBox>("Frame1", this);
    MathLab = Named<QLabel>("MathLab", Frame1);
    MathOpt = {Named<QRadioButton>("MathOpt(0)", Frame1), Named<QRadioButton>("MathOpt(1)", Frame1)};
    MathOpt[0]->setChecked(true);
    auto *layout = new QHBoxLayout(Frame1);
    layout->addWidget(MathLab);
    layout->addSpacing(16);
    layout->addWidget(MathOpt[0]);
    layout->addWidget(MathOpt[1]);
    layout->addStretch();
}

void EditDataFrm::MakeButtons()
{
    OkCmd = Named<QPushButton>("OkCmd", this);
    OkCmd->setAutoDefault(false);
    CancelCmd = Named<QPushButton>("CancelCmd", this);
    CancelCmd->setAutoDefault(false);
}
