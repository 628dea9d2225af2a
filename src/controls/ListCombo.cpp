#include "controls/ListCombo.h"

#include "controls/KeyCodes.h"
#include "platform/RuntimeError.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace {

bool IsEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

ListCombo::ListCombo(QWidget *parent) : QComboBox(parent)
{
    // Comes for the user's choices alone, by mouse, key or wheel, also of the entry that is chosen already.
    connect(this, &QComboBox::activated, this, [this] { emit Click(); });
}

void ListCombo::ClearList()
{
    const QSignalBlocker silent(this);
    clear();
}

void ListCombo::AddItem(const QString &text)
{
    const QSignalBlocker silent(this);
    const int index = currentIndex();
    addItem(text);
    // The toolkit chooses the first entry by itself.
    setCurrentIndex(index);
}

void ListCombo::SetListIndex(int index)
{
    if (index < -1 || index >= count())
        throw RuntimeError(ErrorNumber::InvalidCall);
    {
        const QSignalBlocker silent(this);
        setCurrentIndex(index);
    }
    emit Click();
}

void ListCombo::keyPressEvent(QKeyEvent *event)
{
    if (IsEnter(*event)) {
        int key = EnterKey;
        event->accept();
        // Not passed on: a dialogue would click its default button.
        emit KeyPress(key);
        return;
    }
    if (!event->text().isEmpty()) {
        int key = event->text().front().unicode();
        emit KeyPress(key);
        if (key == 0) {
            event->accept();
            return;
        }
    }
    QComboBox::keyPressEvent(event);
}
