/// @file
/// A text box that reports every key before the text changes.
#pragma once

#include <QClipboard>
#include <QLineEdit>

/// Whatever brings text in from outside the program goes through KeyPress first, character by character: keys, pasted,
/// dropped and input-method text. So do Ctrl+V (22), Ctrl+X (24), Ctrl+Y (25) and Ctrl+Z (26) with their other ways.
/// Delete and what else only takes text away has no code and is not reported. A refusal that empties the box ends the
/// text that comes in.
class TextBox : public QLineEdit {
    Q_OBJECT

public:
    explicit TextBox(QWidget *parent = nullptr);

    /// A locked box shows its text and takes no change from the user; its keys are still reported.
    void SetLocked(bool locked) { setReadOnly(locked); }
    bool Locked() const { return isReadOnly(); }

signals:
    /// A key about to take effect: its character code; Backspace is 8, Enter 13, Ctrl+V 22, Ctrl+X 24, Ctrl+Y 25,
    /// Ctrl+Z 26. Set to 0, it is swallowed.
    void KeyPress(int &key);
    /// The program or the user has changed the text.
    void Change();
    /// The box has become the control with the keyboard, or has ceased to be it. Neither comes when the keyboard only
    /// goes to a message box, a menu or another program and back.
    void GotFocus();
    void LostFocus();
    /// A press about to take effect.
    void MouseDown(Qt::MouseButton button);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    bool Passes(int key);
    void InsertFiltered(const QString &text);
    void Paste(QClipboard::Mode source);
    bool m_inside = false;
};
