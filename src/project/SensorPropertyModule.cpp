#include "project/SensorPropertyModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "controls/KeyCodes.h"
#include "curve/ReferenceListModule.h"
#include "platform/NumberText.h"
#include "project/LifecycleModule.h"
#include "project/SensorPropertyFrm.h"
#include "project/SensorTypeModule.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QEvent>

namespace {

constexpr int NameLimit = 9;      ///< characters of a name
constexpr int ListNameLimit = 20; ///< the same when the dialogue is finished by Enter in a list
constexpr int UnitLimit = 2;      ///< characters of a free output unit
constexpr double R0Least = 49;    // ohm
constexpr double R0Most = 2100;   // ohm

const QString EnglishHint = QStringLiteral("<Input sensor name here>");
const QString ChineseHint = QStringLiteral("<输入传感器名称>");
// Required as they stand, the doubled p included; no letter is missing for it.
const QString NameKeys = QStringLiteral("1234567890ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnpopqrstuvwxyz_");
const QString UnitKeys = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnpopqrstuvwxyz");
/// Whether text is selected in a box at the moment the keyboard leaves it: the toolkit drops the selection ahead of
/// LostFocus.
class SelectionAtLeaving : public QObject {
public:
    explicit SelectionAtLeaving(TextBox *box) : QObject(box) { box->installEventFilter(this); }

    bool Selected() const { return m_selected; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // A box that is being destroyed loses the keyboard too, and is no text box any more.
        const auto *box = qobject_cast<TextBox *>(watched);
        if (box != nullptr && event->type() == QEvent::FocusOut)
            m_selected = box->hasSelectedText();
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_selected = false;
};

bool KeyPasses(int key, const QString &accepted)
{
    if (key == BackspaceKey || key == EnterKey)
        return true;
    return key > 0 && key <= 0x7F && accepted.contains(QLatin1Char(static_cast<char>(key)));
}

/// Cuts a text that is too long. True when there was something to cut.
bool CutText(TextBox *box, int limit)
{
    if (box->text().size() <= limit)
        return false;
    box->setText(box->text().left(limit));
    return true;
}

void ReturnTo(TextBox *box)
{
    box->setFocus();
    box->end(false);
}

QString UnitLimitText()
{
    return Wording(QStringLiteral("The character number of output unit is limited not more than 2! "),
                   QStringLiteral("输出单位字符不能超过2个! "));
}

void Txtname_LostFocus(SensorPropertyFrm &form)
{
    if (IsSensorNameHint(form.Txtname->text()))
        form.Txtname->clear();
    if (!CutText(form.Txtname, NameLimit))
        return;
    // Required: the Chinese wording has one character more than that of Done.
    InformationBox(Wording(QStringLiteral("The character number of Sensor name is limited not more than 9! "),
                           QStringLiteral("传感器名称字符不能超过9个! ")));
    ReturnTo(form.Txtname);
}

void TxtUnit_LostFocus(SensorPropertyFrm &form)
{
    if (!CutText(form.TxtUnit, UnitLimit))
        return;
    InformationBox(UnitLimitText());
    ReturnTo(form.TxtUnit);
}

void Txtname_KeyPress(SensorPropertyFrm &form, int &key)
{
    form.Txtname->SetLocked(false);
    if (IsSensorNameHint(form.Txtname->text()))
        form.Txtname->clear();
    if (key == EnterKey)
        form.ComdEnter->click();
    else if (!SensorNameKeyPasses(key))
        key = 0;
}

void TxtUnit_KeyPress(SensorPropertyFrm &form, int &key)
{
    if (key == EnterKey)
        form.ComdEnter->click();
    else if (!OutputUnitKeyPasses(key))
        key = 0;
}

void Txtname_MouseDown(SensorPropertyFrm &form)
{
    if (form.Txtname->Locked())
        form.Txtname->clear();
    form.Txtname->SetLocked(false);
}

// The checks of both finishing paths. Each tells the user when it refuses.

bool NameGiven(const SensorPropertyFrm &form)
{
    const QString name = form.Txtname->text();
    if (!name.isEmpty() && !IsSensorNameHint(name))
        return true;
    ExclamationBox(Wording(QStringLiteral("Please input sensor name! "), QStringLiteral("请输入传感器名称! ")));
    return false;
}

bool NameFits(SensorPropertyFrm &form)
{
    if (!CutText(form.Txtname, NameLimit))
        return true;
    InformationBox(Wording(QStringLiteral("The character number of Sensor name is limited not more than 9! "),
                           QStringLiteral("传感器名称字符不超过9个! ")));
    return false;
}

bool TellTypeMissing()
{
    ExclamationBox(
        Wording(QStringLiteral("Please select right type and unit! "), QStringLiteral("请选择合适的类型和单位! ")));
    return false;
}

bool TypeChosen(const SensorPropertyFrm &form)
{
    return form.Combtype->ListIndex() != NoType || TellTypeMissing();
}

/// Required: refuses an output unit of "None", which Done accepts, also where the list is hidden.
bool TypeAndUnitChosen(const SensorPropertyFrm &form)
{
    const bool noOutputUnit = form.OptDefault->isChecked() && form.CombOutunit->ListIndex() == 0;
    return (form.Combtype->ListIndex() != NoType && !noOutputUnit) || TellTypeMissing();
}

bool UserUnitGiven(const SensorPropertyFrm &form)
{
    if (!form.OptUser->isChecked() || !form.TxtUnit->text().isEmpty())
        return true;
    ExclamationBox(Wording(QStringLiteral("Please input unit! "), QStringLiteral("请输入单位! ")));
    return false;
}

/// Required: looks at the free unit also when the default units are chosen.
bool UserUnitFits(SensorPropertyFrm &form)
{
    if (!CutText(form.TxtUnit, UnitLimit))
        return true;
    InformationBox(UnitLimitText());
    return false;
}

bool TypeSupported(const SensorPropertyFrm &form)
{
    if (form.CombInunit->Text() != NoUnit)
        return true;
    ExclamationBox(Wording(QStringLiteral("Don't support this sensor type at present! "),
                           QStringLiteral("目前不支持此类型传感器! ")));
    return false;
}

bool ParameterFits(const SensorPropertyFrm &form)
{
    if (!form.TextR0->isVisibleTo(&form))
        return true;
    if (form.TextR0->text().isEmpty()) {
        ExclamationBox(Wording(QStringLiteral("The parameter can not be empty! "), QStringLiteral("参数值不能为空! ")));
        return false;
    }
    const double ohms = LeadingNumber(form.TextR0->text());
    if (ohms >= R0Least && ohms <= R0Most)
        return true;
    ExclamationBox(Wording(QStringLiteral("The parameter value must between 49 and 2100ohm! "),
                           QStringLiteral("参数阻值范围必须在49-2100ohm之间! ")));
    return false;
}

void ClearModes()
{
    NewProjectMode = false;
    EditProjectMode = false;
}

/// What both finishing paths do with the dialogue's controls.
void TakeOver(const SensorPropertyFrm &form)
{
    if (NewProjectMode)
        NewProject(form);
    else
        ChangeProjectProperties(form);
}

void ComdEnter_Click(SensorPropertyFrm &form)
{
    if (!NameGiven(form) || !NameFits(form) || !TypeChosen(form) || !UserUnitGiven(form) || !UserUnitFits(form) ||
        !TypeSupported(form) || !ParameterFits(form))
        return;
    form.hide();
    TakeOver(form);
    RefreshReferenceLists();
    ClearModes();
    form.accept();
}

/// Required: cuts at 20 where Done cuts at 9, and goes on.
void CutListName(SensorPropertyFrm &form)
{
    if (CutText(form.Txtname, ListNameLimit))
        InformationBox(Wording(QStringLiteral("The character number of Sensor name is limited less than 20! "),
                               QStringLiteral("传感器名称字符不超过20个! ")));
}

/// Enter in one of the lists. Required: neither the free unit's length nor R0 is looked at, and no list is refreshed.
void FinishFromList(SensorPropertyFrm &form, bool unitFirst)
{
    if (unitFirst && !TypeSupported(form))
        return;
    if (!TypeAndUnitChosen(form) || !UserUnitGiven(form))
        return;
    if (!unitFirst && !TypeSupported(form))
        return;
    if (!NameGiven(form))
        return;
    CutListName(form);
    form.hide();
    TakeOver(form);
    ClearModes();
    form.accept();
}

void ConnectLists(SensorPropertyFrm &form)
{
    for (ListCombo *list : {form.Combtype, form.CombInunit, form.CombOutunit}) {
        ConnectGuarded(list, &ListCombo::KeyPress, &form, [&form, unitFirst = list == form.CombInunit](int &key) {
            if (key == EnterKey)
                FinishFromList(form, unitFirst);
        });
    }
}

void ConnectText(SensorPropertyFrm &form)
{
    ConnectGuarded(form.Txtname, &TextBox::KeyPress, &form, [&form](int &key) { Txtname_KeyPress(form, key); });
    ConnectGuarded(form.Txtname, &TextBox::MouseDown, &form, [&form] { Txtname_MouseDown(form); });
    ConnectGuarded(form.TxtUnit, &TextBox::KeyPress, &form, [&form](int &key) { TxtUnit_KeyPress(form, key); });
    const auto *name = new SelectionAtLeaving(form.Txtname);
    ConnectGuarded(form.Txtname, &TextBox::LostFocus, &form, [&form, name] {
        if (name->Selected())
            Txtname_LostFocus(form);
    });
    const auto *unit = new SelectionAtLeaving(form.TxtUnit);
    ConnectGuarded(form.TxtUnit, &TextBox::LostFocus, &form, [&form, unit] {
        if (unit->Selected())
            TxtUnit_LostFocus(form);
    });
}

void ConnectButtons(SensorPropertyFrm &form)
{
    ConnectGuarded(form.ComdEnter, &QPushButton::clicked, &form, [&form] { ComdEnter_Click(form); });
    // Required: the modes stay as they are.
    ConnectGuarded(form.ComdCancel, &QPushButton::clicked, &form, [&form] { form.reject(); });
}

} // namespace

bool SensorNameKeyPasses(int key)
{
    return KeyPasses(key, NameKeys);
}

bool OutputUnitKeyPasses(int key)
{
    return KeyPasses(key, UnitKeys);
}

bool IsSensorNameHint(const QString &text)
{
    return text == EnglishHint || text == ChineseHint;
}

void ShowSensorProperty()
{
    SensorPropertyFrm form(MainForm);
    LoadSensorPropertyLanguage(form);
    ConnectSensorTypes(form);
    ConnectLists(form);
    ConnectText(form);
    ConnectButtons(form);
    LoadSensorProperty(form);
    form.exec();
}
