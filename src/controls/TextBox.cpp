#include "controls/TextBox.h"

#include "controls/KeyCodes.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

namespace {

constexpr char32_t FirstPrintable = 0x20;
constexpr char32_t DeleteCharacter = 0x7F;

/// Whether the key would write its text into the box.
bool WritesText(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (event.text().isEmpty() || modifiers == Qt::ControlModifier)
        return false;
    const QChar first = event.text().front();
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_Format ||
           first.category() == QChar::Other_PrivateUse;
}

/// Ctrl+V, Shift+Insert and what else the platform pastes with.
bool IsPaste(const QKeyEvent &event)
{
    return event.matches(QKeySequence::Paste) ||
           (event.key() == Qt::Key_Insert && event.modifiers().testFlag(Qt::ShiftModifier));
}

/// The code of a key that cuts, undoes or redoes, by whichever of its ways the platform has, or 0: Shift+Delete cuts,
/// and Ctrl+Y redoes also where the toolkit has only Ctrl+Shift+Z for that.
int EditingCode(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Cut))
        return CutKey;
    if (event.matches(QKeySequence::Undo))
        return UndoKey;
    const bool controlY = event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
    return controlY || event.matches(QKeySequence::Redo) ? RedoKey : 0;
}

/// Ctrl+Shift+Insert and the middle button take the mouse selection where the platform has one.
QClipboard::Mode PasteSource(const QKeyEvent &event)
{
    const bool selection = event.key() == Qt::Key_Insert && event.modifiers().testFlag(Qt::ControlModifier) &&
                           QApplication::clipboard()->supportsSelection();
    return selection ? QClipboard::Selection : QClipboard::Clipboard;
}

/// A box over the window, a menu or another program takes the keyboard, but the control is not left.
bool StaysInControl(const QFocusEvent &event)
{
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
}

} // namespace

TextBox::TextBox(QWidget *parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, [this] { emit Change(); });
}

bool TextBox::Passes(int key)
{
    emit KeyPress(key);
    return key != 0;
}

void TextBox::InsertFiltered(const QString &text)
{
    for (const char32_t character : text.toUcs4()) {
        if (character < FirstPrintable || character == DeleteCharacter)
            continue;
        const bool wasEmpty = this->text().isEmpty();
        if (Passes(static_cast<int>(character))) {
            // Looked at after the report: its routine may unlock the box.
            if (!Locked())
                insert(QString::fromUcs4(&character, 1));
        } else if (!wasEmpty && this->text().isEmpty()) {
            // What is left would stand there as a text of its own that nobody has written.
            return;
        }
    }
}

void TextBox::Paste(QClipboard::Mode source)
{
    if (Passes(PasteKey))
        InsertFiltered(QApplication::clipboard()->text(source));
}

void TextBox::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (const int code = EditingCode(*event)) {
        if (Passes(code))
            QLineEdit::keyPressEvent(event);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        // Not passed on: a dialogue would click its default button.
        Passes(EnterKey);
    } else if (event->key() == Qt::Key_Backspace) {
        if (Passes(BackspaceKey))
            QLineEdit::keyPressEvent(event);
    } else if (IsPaste(*event)) {
        Paste(PasteSource(*event));
    } else if (WritesText(*event)) {
        InsertFiltered(event->text());
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void TextBox::inputMethodEvent(QInputMethodEvent *event)
{
    if (event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    // In the order of the toolkit: the old composition ends, text is replaced, the committed text goes in, a new
    // composition begins.
    QInputMethodEvent end;
    end.setCommitString(QString(), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&end);
    InsertFiltered(event->commitString());
    if (!event->preeditString().isEmpty()) {
        QInputMethodEvent begin(event->preeditString(), event->attributes());
        QLineEdit::inputMethodEvent(&begin);
    }
    event->accept();
}

void TextBox::mousePressEvent(QMouseEvent *event)
{
    emit MouseDown(event->button());
    QLineEdit::mousePressEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    if (QApplication::clipboard()->supportsSelection()) {
        deselect();
        Paste(QClipboard::Selection);
    }
}

void TextBox::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    const bool back = m_inside && StaysInControl(*event);
    m_inside = true;
    if (!back)
        emit GotFocus();
}

void TextBox::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (StaysInControl(*event))
        return;
    m_inside = false;
    emit LostFocus();
}

void TextBox::dropEvent(QDropEvent *event)
{
    if (!event->mimeData()->hasText()) {
        event->ignore();
        return;
    }
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    InsertFiltered(event->mimeData()->text());
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void TextBox::contextMenuEvent(QContextMenuEvent *event)
{
    // No menu: its Paste would go past KeyPress.
    event->accept();
}
