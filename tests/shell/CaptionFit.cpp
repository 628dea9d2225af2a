#include "shell/CaptionFit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionGroupBox>
#include <QStyleOptionHeader>
#include <QStyleOptionTab>
#include <QTabBar>
#include <QTextLayout>
#include <QToolButton>

namespace {

constexpr Qt::Alignment FromTheLeft = Qt::AlignLeft | Qt::AlignVCenter;

/// The toolkit's own description of how a control is drawn, which it keeps to derived classes.
template <typename Control, typename Option, typename... Part>
Option DescriptionOf(const Control *control, Part... part)
{
    struct Opened : Control {
        using Control::initStyleOption;
    };
    Option option;
    (control->*(&Opened::initStyleOption))(&option, part...);
    return option;
}

/// The part of a control, in pixels of the window, that what it lies in leaves in sight.
QRect InSight(const QWidget &window, const QWidget *control)
{
    QRect sight = window.rect();
    for (const QWidget *outer = control; outer != &window; outer = outer->parentWidget())
        sight &= QRect(outer->mapTo(&window, QPoint()), outer->size());
    return sight;
}

/// Collects the captions of one window.
class Collector {
public:
    explicit Collector(const QWidget &window) : m_window(window) {}

    void AddControl(const QWidget *control);
    std::vector<DrawnCaption> Captions;

private:
    void Add(const QWidget *control, const QString &text, const QRect &room, Qt::Alignment place);
    void AddLabel(const QLabel *label);
    void AddFrame(const QGroupBox *frame);
    void AddBox(const QLineEdit *box);
    void AddList(const QComboBox *list);
    void AddTabs(const QTabBar *bar);
    void AddColumnTitles(const QHeaderView *header);
    void AddButton(const QAbstractButton *button);
    const QWidget &m_window;
};

/// @param room in pixels of the control
void Collector::Add(const QWidget *control, const QString &text, const QRect &room, Qt::Alignment place)
{
    if (text.trimmed().isEmpty())
        return;
    // A line of Chinese is higher than the control's font says.
    QTextLayout layout(text, control->font());
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    // Rounded as styles do.
    const QFontMetrics metrics(control->font());
    const QSize size(metrics.horizontalAdvance(text), qCeil(line.height()));
    const QPoint corner = control->mapTo(&m_window, QPoint());
    const QRect lineInControl = QStyle::alignedRect(Qt::LeftToRight, place, size, room);
    const QRect ink = metrics.tightBoundingRect(text);
    Captions.push_back({control, text, room.translated(corner), lineInControl.translated(corner),
                        ink.translated(corner + lineInControl.topLeft() + QPoint(0, qRound(line.ascent())))});
}

void Collector::AddLabel(const QLabel *label)
{
    const int margin = label->margin();
    QRect room = label->contentsRect().adjusted(margin, margin, -margin, -margin);
    // A framed label without an indent of its own keeps half an x free at its edge.
    int indent = label->indent();
    if (indent < 0)
        indent = label->frameWidth() > 0 ? label->fontMetrics().horizontalAdvance(u'x') / 2 - margin : 0;
    if (label->alignment() & Qt::AlignLeft)
        room.setLeft(room.left() + indent);
    Add(label, label->text(), room, label->alignment());
}

void Collector::AddFrame(const QGroupBox *frame)
{
    const auto option = DescriptionOf<QGroupBox, QStyleOptionGroupBox>(frame);
    Add(frame, frame->title(),
        frame->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, frame), FromTheLeft);
}

void Collector::AddBox(const QLineEdit *box)
{
    constexpr int inset = 2; // the toolkit's own, at both ends
    const auto option = DescriptionOf<QLineEdit, QStyleOptionFrame>(box);
    const QRect contents = box->style()->subElementRect(QStyle::SE_LineEditContents, &option, box);
    Add(box, box->text(), contents.marginsRemoved(box->textMargins()).adjusted(inset, 0, -inset, 0), FromTheLeft);
}

void Collector::AddList(const QComboBox *list)
{
    const auto option = DescriptionOf<QComboBox, QStyleOptionComboBox>(list);
    Add(list, list->currentText(),
        list->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, list), FromTheLeft);
}

void Collector::AddTabs(const QTabBar *bar)
{
    for (int tab = 0; tab < bar->count(); ++tab) {
        const auto option = DescriptionOf<QTabBar, QStyleOptionTab>(bar, tab);
        Add(bar, bar->tabText(tab), bar->style()->subElementRect(QStyle::SE_TabBarTabText, &option, bar),
            Qt::AlignCenter);
    }
}

void Collector::AddColumnTitles(const QHeaderView *header)
{
    for (int column = 0; column < header->count(); ++column) {
        QStyleOptionHeader option;
        option.initFrom(header);
        option.text = header->model()->headerData(column, header->orientation()).toString();
        option.rect = QRect(header->sectionViewportPosition(column), 0, header->sectionSize(column), header->height());
        Add(header, option.text, header->style()->subElementRect(QStyle::SE_HeaderLabel, &option, header), FromTheLeft);
    }
}

void Collector::AddButton(const QAbstractButton *button)
{
    const auto roomOf = [button](QStyle::SubElement contents, const QStyleOptionButton &option) {
        return button->style()->subElementRect(contents, &option, button);
    };
    if (const auto *check = qobject_cast<const QCheckBox *>(button)) {
        Add(check, check->text(),
            roomOf(QStyle::SE_CheckBoxContents, DescriptionOf<QCheckBox, QStyleOptionButton>(check)), FromTheLeft);
    } else if (const auto *radio = qobject_cast<const QRadioButton *>(button)) {
        Add(radio, radio->text(),
            roomOf(QStyle::SE_RadioButtonContents, DescriptionOf<QRadioButton, QStyleOptionButton>(radio)),
            FromTheLeft);
    } else if (const auto *push = qobject_cast<const QPushButton *>(button)) {
        Add(push, push->text(),
            roomOf(QStyle::SE_PushButtonContents, DescriptionOf<QPushButton, QStyleOptionButton>(push)),
            Qt::AlignCenter);
    } else if (const auto *tool = qobject_cast<const QToolButton *>(button);
               tool == nullptr || tool->toolButtonStyle() != Qt::ToolButtonIconOnly) {
        Add(button, button->text(), button->rect(), Qt::AlignCenter);
    }
}

void Collector::AddControl(const QWidget *control)
{
    if (const auto *label = qobject_cast<const QLabel *>(control)) {
        AddLabel(label);
    } else if (const auto *frame = qobject_cast<const QGroupBox *>(control)) {
        AddFrame(frame);
    } else if (const auto *box = qobject_cast<const QLineEdit *>(control)) {
        AddBox(box);
    } else if (const auto *list = qobject_cast<const QComboBox *>(control)) {
        AddList(list);
    } else if (const auto *bar = qobject_cast<const QTabBar *>(control)) {
        AddTabs(bar);
    } else if (const auto *header = qobject_cast<const QHeaderView *>(control)) {
        AddColumnTitles(header);
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(control)) {
        AddButton(button);
    }
}

QString NameOf(const DrawnCaption &caption)
{
    return QStringLiteral("%1 \"%2\"").arg(caption.Control->objectName(), caption.Text);
}

/// Whether a stretch lies within another one.
bool Within(int first, int last, int outerFirst, int outerLast)
{
    return first >= outerFirst && last <= outerLast;
}

/// Too narrow, too low, or cut by what it lies in. Across the text's advance counts, since the ink of its first letter
/// may reach out by a pixel; down the ink counts, since the line has room to spare.
bool Clipped(const QWidget &window, const DrawnCaption &caption)
{
    const QRect room = caption.Room & InSight(window, caption.Control);
    return !Within(caption.Line.left(), caption.Line.right(), room.left(), room.right()) ||
           !Within(caption.Ink.top(), caption.Ink.bottom(), room.top(), room.bottom());
}

/// The text of one lies on the other, in the same surroundings.
bool Overlapping(const QWidget &window, const DrawnCaption &first, const DrawnCaption &second)
{
    return first.Control != second.Control && first.Control->parentWidget() == second.Control->parentWidget() &&
           (first.Line.intersects(InSight(window, second.Control)) ||
            second.Line.intersects(InSight(window, first.Control)));
}

} // namespace

std::vector<DrawnCaption> CaptionsOf(const QWidget &window)
{
    Collector collector(window);
    for (const QWidget *control : window.findChildren<QWidget *>()) {
        if (control->isVisibleTo(&window))
            collector.AddControl(control);
    }
    return collector.Captions;
}

QStringList CaptionFaults(const QWidget &window, const QStringList &outOfSight)
{
    QStringList faults;
    const std::vector<DrawnCaption> captions = CaptionsOf(window);
    for (std::size_t first = 0; first < captions.size(); ++first) {
        const DrawnCaption &caption = captions[first];
        if (outOfSight.contains(caption.Control->objectName())) {
            if (!InSight(window, caption.Control).isEmpty())
                faults << NameOf(caption) + QStringLiteral(" is in sight");
            continue;
        }
        if (Clipped(window, caption))
            faults << NameOf(caption) + QStringLiteral(" is clipped");
        for (std::size_t second = first + 1; second < captions.size(); ++second) {
            if (Overlapping(window, caption, captions[second]))
                faults << QStringLiteral("%1 and %2 overlap").arg(NameOf(caption), NameOf(captions[second]));
        }
    }
    return faults;
}
