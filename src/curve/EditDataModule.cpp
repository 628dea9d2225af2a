#include "curve/EditDataModule.h"

#include "controls/Boxes.h"
#include "controls/Guard.h"
#include "controls/KeyCodes.h"
#include "curve/EditDataFrm.h"
#include "curve/ReferenceListModule.h"
#include "curve/ReferenceRows.h"
#include "curve/StringFunction.h"
#include "display/SensorProjFrm.h"
#include "link/LinkState.h"
#include "platform/Measures.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "shell/ActiveProject.h"
#include "shell/LanguageModule.h"
#include "shell/MainFrm.h"
#include "shell/MainModule.h"

#include <QApplication>
#include <QClipboard>
#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace {

constexpr int LastAsciiKey = 127;
constexpr int ValueLengthLimit = 12;   ///< characters
constexpr float SmallestValue = 1E-9F; ///< magnitude of a value other than 0
constexpr float LargestValue = 1.2E8F;
constexpr ColourRef LockedColour = Rgb(220, 220, 220);
constexpr ColourRef OpenColour = Rgb(255, 255, 255);

bool IsOneOf(int key, QStringView characters)
{
    return key > 0 && key <= LastAsciiKey && characters.contains(QChar(static_cast<char16_t>(key)));
}

/// @throws RuntimeError 6 when the number is beyond single
bool ValueInRange(const QString &text)
{
    const double number = std::abs(LeadingNumber(text));
    if (number > static_cast<double>(std::numeric_limits<float>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    // Both limits are compared in single precision.
    const auto magnitude = static_cast<float>(number);
    return magnitude == 0 || (magnitude >= SmallestValue && magnitude <= LargestValue);
}

void WarnExceeded()
{
    ExclamationBox(
        Wording(QStringLiteral("The data is exceeded,please rewrite! "), QStringLiteral("输入数值超限,请重新填写! ")));
}

void WarnErrorData()
{
    ExclamationBox(Wording(QStringLiteral("Error data! "), QStringLiteral("数据填写有误! ")));
}

std::int32_t RowShown(const EditDataFrm &form)
{
    return RoundToInt32(LeadingNumber(form.NOTxt->text()));
}

void ShowRow(const EditDataFrm &form, std::int32_t row)
{
    form.NOTxt->setText(QString::number(row));
}

/// @throws RuntimeError 9 when the table has no such row
ReferencePoint &WorkingRow(EditDataFrm &form, std::int32_t row)
{
    if (row < 0 || row > ReferenceRowLimit)
        throw RuntimeError(ErrorNumber::OutOfRange);
    return form.WorkingTable[row];
}

void LockRowNumber(const EditDataFrm &form, bool locked)
{
    form.NOTxt->SetLocked(locked);
    QPalette palette = form.NOTxt->palette();
    palette.setColor(QPalette::Base, ColourFromRef(locked ? LockedColour : OpenColour));
    form.NOTxt->setPalette(palette);
}

void EmptyValues(const EditDataFrm &form)
{
    form.VolTxt->clear();
    form.TemperateTxt->clear();
}

/// Only a segment point has an arithmetic to choose; the choice itself stays.
void OfferArithmetic(const EditDataFrm &form)
{
    const bool offered = form.SegmentOpt[0]->isChecked();
    form.MathLab->setEnabled(offered);
    for (QRadioButton *option : form.MathOpt)
        option->setEnabled(offered);
    form.Frame1->setEnabled(offered);
}

std::int16_t ChosenArithmetic(const EditDataFrm &form)
{
    return form.MathOpt[0]->isChecked() ? 0 : 1;
}

void LoadRowIntoDialogue(EditDataFrm &form, std::int32_t row)
{
    ReferencePoint &point = WorkingRow(form, row);
    if (point.Used) {
        form.VolTxt->setText(FormatInputValue(GeneralNumber(point.Input)));
        form.TemperateTxt->setText(FormatOutputValue(GeneralNumber(point.Output)));
        point.InputText = form.VUnitLab->text();
        point.OutputText = form.TUnitLab->text();
        form.SegmentOpt[point.Segment ? 0 : 1]->setChecked(true);
        form.MathOpt[point.Arithmetic == 0 ? 0 : 1]->setChecked(true);
    } else {
        EmptyValues(form);
        form.SegmentOpt[1]->setChecked(true);
        form.MathOpt[0]->setChecked(true);
    }
    OfferArithmetic(form);
}

void SaveRowFromDialogue(EditDataFrm &form, std::int32_t row)
{
    ReferencePoint &point = WorkingRow(form, row);
    if (form.VolTxt->text().isEmpty() || form.TemperateTxt->text().isEmpty()) {
        // Required: a half-filled row is dropped without a word, also one that was in the table before.
        point.Used = false;
        EmptyValues(form);
        return;
    }
    point.Used = true;
    point.Input = LeadingNumber(form.VolTxt->text());
    point.Output = LeadingNumber(form.TemperateTxt->text());
    point.InputText = form.VUnitLab->text();
    point.OutputText = form.TUnitLab->text();
    point.Segment = form.SegmentOpt[0]->isChecked();
    point.Arithmetic = ChosenArithmetic(form);
}

/// Tells the user that the input is beyond the instrument's ranges. @return false when it is
bool CheckCurrentLimit(const EditDataFrm &form, int slot)
{
    if (!CurrentLimitExceeded(slot, LeadingNumber(form.VolTxt->text())))
        return true;
    WarnExceeded();
    return false;
}

void OpenToAdd(EditDataFrm &form)
{
    form.setWindowTitle(Wording(QStringLiteral("EditData - Add Data"), QStringLiteral("数据编辑－添加数据")));
    form.FirstRow = EditRowNumber;
    form.LastRow = ReferenceRowLimit;
    LockRowNumber(form, true);
    form.SegmentOpt[1]->setChecked(true);
    OfferArithmetic(form);
    ShowRow(form, EditRowNumber);
    form.HScroll1->SetValue(EditRowNumber);
    form.VolTxt->setFocus(); // the row number, the first control, takes no digit
}

/// Marks the selected lines. @return their number
int MarkSelectedLines(const ReportList &list)
{
    int selected = 0;
    for (int line = 1; line <= list.LineCount(); ++line) {
        RowMarks.at(static_cast<std::size_t>(line)) = list.LineSelected(line);
        selected += list.LineSelected(line) ? 1 : 0;
    }
    return selected;
}

void OpenToChange(EditDataFrm &form, const ReportList &list)
{
    form.setWindowTitle(Wording(QStringLiteral("EditData - Modify Data"), QStringLiteral("数据编辑－修改数据")));
    form.FirstRow = 1;
    form.LastRow = list.LineCount();
    form.NOTxt->SetLocked(true);
    form.MultiSelect = MarkSelectedLines(list) > 1;
    if (form.MultiSelect) {
        // Required: no row is loaded; only segment and arithmetic can be set, for all selected rows at once.
        for (QWidget *control :
             std::initializer_list<QWidget *>{form.NOTxt, form.VolTxt, form.TemperateTxt, form.HScroll1, form.UpDown1})
            control->setEnabled(false);
        return;
    }
    LockRowNumber(form, false);
    ShowRow(form, EditRowNumber);
    LoadRowIntoDialogue(form, EditRowNumber);
    form.HScroll1->SetValue(EditRowNumber);
}

void CentreOnScreen(EditDataFrm &form)
{
    form.adjustSize();
    const QRect screen = form.screen()->geometry();
    form.move(screen.left() + RoundToInt32((screen.width() - form.width()) / 2.0),
              screen.top() + RoundToInt32((screen.height() - form.height()) / 2.0));
}

void OpenDialogue(EditDataFrm &form, int slot)
{
    RowMarks.fill(false);
    form.MultiSelect = false;
    LoadEditDataLanguage(form);
    form.VUnitLab->setText(SensorProjects[slot].InputUnit);
    form.TUnitLab->setText(SensorProjects[slot].OutputUnit);
    CopyReferenceTable(ReferenceTable[slot], form.WorkingTable);
    if (EditDataMode == EditDataModeAdd) {
        OpenToAdd(form);
    } else {
        OpenToChange(form, *FormOfSlot(slot).EditDataView);
    }
    form.HScroll1->SetRange(form.FirstRow, ReferenceRowLimit);
    form.UpDown1->SetRange(form.FirstRow, ReferenceRowLimit);
    CentreOnScreen(form);
}

void StepToScrollPosition(EditDataFrm &form)
{
    SaveRowFromDialogue(form, RowShown(form));
    ShowRow(form, form.HScroll1->value());
    LoadRowIntoDialogue(form, RowShown(form));
}

void StepDown(EditDataFrm &form)
{
    const std::int32_t row = RowShown(form);
    SaveRowFromDialogue(form, row);
    ShowRow(form, std::max(row - 1, 1));
    LoadRowIntoDialogue(form, RowShown(form));
}

/// Never past the first empty row.
void StepUp(EditDataFrm &form)
{
    const std::int32_t row = RowShown(form);
    SaveRowFromDialogue(form, row);
    if (!WorkingRow(form, row).Used)
        return;
    ShowRow(form, std::min(row + 1, ReferenceRowLimit));
    LoadRowIntoDialogue(form, RowShown(form));
}

/// Keeps the number between FirstRow and LastRow, by whatever way it came. Both limits are tested once: behind a full
/// table 501 falls to LastRow, 500, and rises to FirstRow again, so that OK finds no such row.
void LimitRowNumber(const EditDataFrm &form)
{
    const double number = LeadingNumber(form.NOTxt->text());
    double limited = number;
    if (limited > form.LastRow)
        limited = form.LastRow;
    if (limited < form.FirstRow)
        limited = form.FirstRow;
    if (limited == number)
        return;
    const QSignalBlocker onlyOnce(form.NOTxt);
    ShowRow(form, RoundToInt32(limited));
}

void FilterValueKey(const EditDataFrm &form, TextBox &box, int &key, void (*warnFailed)())
{
    ValueKeyVerdict verdict = ValueKeyVerdict::OutOfRange;
    auto warn = &WarnExceeded;
    try {
        verdict = TestValueKey(key, box.text());
    } catch (const RuntimeError &) {
        warn = warnFailed;
    }
    switch (verdict) {
    case ValueKeyVerdict::Accepted:
        if (key == EnterKey)
            form.OkCmd->click();
        return;
    case ValueKeyVerdict::Swallowed:
        break;
    case ValueKeyVerdict::TooLong:
        box.clear();
        InformationBox(Wording(QStringLiteral("The character number of this form is limited not more than 12! "),
                               QStringLiteral("您所填写的字符不能超过12个! ")));
        break;
    case ValueKeyVerdict::OutOfRange:
        warn();
        box.clear();
        break;
    }
    key = 0;
}

void LeaveOutput(const EditDataFrm &form)
{
    if (!form.TemperateTxt->text().isEmpty())
        form.TemperateTxt->setText(FormatOutputValue(form.TemperateTxt->text()));
}

void LeaveInput(const EditDataFrm &form)
{
    if (form.VolTxt->text().isEmpty())
        return;
    form.VolTxt->setText(FormatInputValue(form.VolTxt->text()));
    const double value = LeadingNumber(form.VolTxt->text());
    const std::int32_t own = RowShown(form);
    for (std::int32_t row = 1; row <= ReferenceRowLimit; ++row) {
        const ReferencePoint &other = form.WorkingTable[row];
        if (row == own || !other.Used || other.Input != value)
            continue;
        ExclamationBox(
            Wording(QStringLiteral("One reference dot has two value! "), QStringLiteral("同一个点存在两个数值! ")));
        form.VolTxt->clear();
    }
}

void SetSelectedRows(const EditDataFrm &form, int slot)
{
    const ReportList &list = *FormOfSlot(slot).EditDataView;
    for (int line = 1; line <= list.LineCount(); ++line) {
        if (!list.LineSelected(line))
            continue;
        ReferenceTable[slot][line].Segment = form.SegmentOpt[0]->isChecked();
        ReferenceTable[slot][line].Arithmetic = ChosenArithmetic(form);
    }
}

void StoreEdit(EditDataFrm &form, int slot)
{
    if (!CheckCurrentLimit(form, slot))
        return;
    CopyReferenceTable(ReferenceTable[slot], ReferenceBackup[slot]);
    if (form.MultiSelect) {
        SetSelectedRows(form, slot);
    } else {
        SaveRowFromDialogue(form, RowShown(form));
        CopyReferenceTable(form.WorkingTable, ReferenceTable[slot]);
    }
    if (EditDataMode == EditDataModeAdd) {
        const std::int32_t row = RowShown(form);
        std::fill_n(RowMarks.begin() + 1, row, false);
        RowMarks[row] = true;
    }
    SortReferenceTable(static_cast<std::int16_t>(slot));
    RefreshReferenceLists();
    FormOfSlot(slot).RedoLumoBtn->setEnabled(false);
    FormOfSlot(slot).UndoLumoBtn->setEnabled(true);
    form.accept();
}

void ConnectValueBox(EditDataFrm &form, TextBox *box, void (*warnFailed)(), void (*leave)(const EditDataFrm &))
{
    ConnectGuarded(box, &TextBox::KeyPress, &form,
                   [&form, box, warnFailed](int &key) { FilterValueKey(form, *box, key, warnFailed); });
    ConnectGuarded(box, &TextBox::LostFocus, &form, [&form, leave] { leave(form); });
    ConnectGuarded(box, &TextBox::MouseDown, &form, [](Qt::MouseButton button) {
        if (button == Qt::RightButton)
            QApplication::clipboard()->clear();
    });
}

void ConnectStepping(EditDataFrm &form, int slot)
{
    ConnectGuarded(form.NOTxt, &TextBox::KeyPress, &form, [](int &key) {
        if (!RowNumberKeyPasses(key))
            key = 0;
    });
    ConnectGuarded(form.NOTxt, &TextBox::Change, &form, [&form] { LimitRowNumber(form); });
    // Not each move of a dragged thumb: a row that it passes would be put into the format and stored.
    ConnectGuarded(form.HScroll1, &FlatScrollBar::Changed, &form, [&form] { StepToScrollPosition(form); });
    ConnectGuarded(form.UpDown1, &UpDown::DownClick, &form, [&form] { StepDown(form); });
    ConnectGuarded(form.UpDown1, &UpDown::UpClick, &form, [&form] { StepUp(form); });
    ConnectGuarded(form.UpDown1, &UpDown::Changed, &form, [&form, slot] { CheckCurrentLimit(form, slot); });
}

void ConnectRules(EditDataFrm &form, int slot)
{
    ConnectStepping(form, slot);
    ConnectValueBox(form, form.VolTxt, WarnErrorData, LeaveInput);
    ConnectValueBox(form, form.TemperateTxt, WarnExceeded, LeaveOutput);
    for (const QRadioButton *option : form.SegmentOpt)
        ConnectGuarded(option, &QRadioButton::clicked, &form, [&form] { OfferArithmetic(form); });
    ConnectGuarded(form.OkCmd, &QPushButton::clicked, &form, [&form, slot] { StoreEdit(form, slot); });
    ConnectGuarded(form.CancelCmd, &QPushButton::clicked, &form, [&form] { form.reject(); });
}

} // namespace

ValueKeyVerdict TestValueKey(int key, const QString &text)
{
    const bool control = key == BackspaceKey || key == EnterKey;
    // Required: no other key passes, the one that pastes included.
    if (!control && !IsOneOf(key, u"-1234567890."))
        return ValueKeyVerdict::Swallowed;
    if (key == '.' && text.contains(u'.'))
        return ValueKeyVerdict::Swallowed;
    if (!control && text.size() >= ValueLengthLimit)
        return ValueKeyVerdict::TooLong;
    // Required: the text ahead of the key is what is tested, so that a value too large shows with the next key only.
    return ValueInRange(text) ? ValueKeyVerdict::Accepted : ValueKeyVerdict::OutOfRange;
}

bool RowNumberKeyPasses(int key)
{
    return key == BackspaceKey || key == EnterKey || IsOneOf(key, u"0123456789");
}

bool CurrentLimitExceeded(int slot, double value)
{
    const SensorProject &project = SensorProjects[CheckedSlot(slot)];
    if (InstrumentKind != InstrumentKindKV7060 || project.MeasFunction != MeasFunctionCode::DcCurrent)
        return false;
    const double magnitude = std::abs(value);
    if (project.InputUnit == QLatin1StringView("A"))
        return magnitude > 0.22;
    if (project.InputUnit == QLatin1StringView("mA"))
        return magnitude > 220;
    return project.InputUnit == QLatin1StringView("uA") && magnitude > 220000;
}

void ShowEditData()
{
    const int slot = ActiveSlot();
    EditDataFrm form(MainForm);
    ConnectRules(form, slot); // ahead of the rest: the first number in NOTxt is a change too
    OpenDialogue(form, slot);
    form.exec();
}
