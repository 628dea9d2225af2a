/// @file
/// A drop-down list whose routine runs when an entry is chosen, by the user or by the program.
#pragma once

#include <QComboBox>

/// Filling and clearing are silent; setting the index always runs Click, also when it stands there already.
class ListCombo : public QComboBox {
    Q_OBJECT

public:
    explicit ListCombo(QWidget *parent = nullptr);

    /// Removes all entries; no index is set (-1).
    void ClearList();
    /// Adds an entry at the end; the index stays as it is.
    void AddItem(const QString &text);
    int ListCount() const { return count(); }

    /// The chosen entry, from 0; -1 for none.
    int ListIndex() const { return currentIndex(); }
    /// Chooses an entry, or none by -1, and runs Click. @throws RuntimeError 5 when there is no such entry
    void SetListIndex(int index);
    QString Text() const { return currentText(); }

signals:
    void Click();
    /// A key in the list: its character code, Enter is 13. Set to 0, it is swallowed; Enter never goes further.
    void KeyPress(int &key);

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
