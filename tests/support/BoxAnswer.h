/// @file
/// Answers for the message boxes and modal dialogues that come up while a test is inside the code under test.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

inline constexpr int ModalPollInterval = 5; ///< milliseconds between two looks for a modal window

/// What a message box showed, and how it was answered.
struct ShownBox {
    QString Title;
    QString Text;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons Buttons;
    QMessageBox::StandardButton Answer = QMessageBox::NoButton; ///< NoButton for a box that nobody expected
};

/// Answers message boxes in the order of the given buttons, as long as it lives:
///     BoxAnswers answers({QMessageBox::Ok, QMessageBox::Cancel});
/// A box without an answer in store, or without the button that the answer names, is closed and fails the test; so
/// does, at the end, an answer that no box took. Without answers it says that no box may come.
class BoxAnswers {
public:
    explicit BoxAnswers(QList<QMessageBox::StandardButton> answers = {}) : m_answers(std::move(answers))
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { Look(); });
        m_poll.start(ModalPollInterval);
    }

    ~BoxAnswers()
    {
        if (!m_answers.isEmpty())
            Fail(QStringLiteral("%1 message boxes did not come").arg(m_answers.size()));
    }

    BoxAnswers(const BoxAnswers &) = delete;
    BoxAnswers &operator=(const BoxAnswers &) = delete;

    /// Stores one more answer.
    void Add(QMessageBox::StandardButton answer) { m_answers.append(answer); }

    /// All boxes so far, the unexpected ones included.
    const QList<ShownBox> &Shown() const { return m_shown; }

    /// Their texts.
    QStringList Texts() const
    {
        QStringList texts;
        for (const ShownBox &box : m_shown)
            texts.append(box.Text);
        return texts;
    }

    /// Answers that no box has taken yet.
    int Left() const { return static_cast<int>(m_answers.size()); }

private:
    // qVerify rather than qFail: an expected failure can then be declared for it.
    static void Fail(const QString &message)
    {
        QTest::qVerify(false, "every message box and every answer meet", qPrintable(message), __FILE__, __LINE__);
    }

    void Look()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible() || box == m_before)
            return;
        ShownBox shown{box->windowTitle(), box->text(), box->icon(), box->standardButtons(), QMessageBox::NoButton};
        if (!m_answers.isEmpty())
            shown.Answer = m_answers.takeFirst();
        m_shown.append(shown);
        if (QAbstractButton *button = box->button(shown.Answer)) {
            button->click();
            return;
        }
        Fail(QStringLiteral("no answer for the message box \"%1\": \"%2\"").arg(shown.Title, shown.Text));
        box->reject();
    }

    QPointer<QWidget> m_before = QApplication::activeModalWidget(); ///< a box that was up already is not its matter
    QList<QMessageBox::StandardButton> m_answers;
    QList<ShownBox> m_shown;
    QTimer m_poll;
};

/// Runs a routine once, when the modal dialogue is up that has the given class or object name; without a name, when any
/// modal dialogue is up that is no message box. The routine has to close the dialogue, at once or by what it sets
/// going.
///     WhenModal answer(QStringLiteral("EditDataFrm"), [](QWidget *dialog) { ... });
/// It lives as long as it shall wait, so give it a name; when it goes without having run, the test fails. Message boxes
/// that come up inside the routine are matters of a BoxAnswers, further dialogues of a further WhenModal.
class [[nodiscard]] WhenModal {
public:
    using Routine = std::function<void(QWidget *dialog)>;

    explicit WhenModal(Routine routine) : WhenModal(QString(), std::move(routine)) {}

    WhenModal(const QString &name, Routine routine) : m_name(name), m_routine(std::move(routine))
    {
        QObject::connect(&m_poll, &QTimer::timeout, &m_poll, [this] { Look(); });
        m_poll.start(ModalPollInterval);
    }

    ~WhenModal()
    {
        if (!m_came)
            QTest::qVerify(false, "the modal dialogue came up", qPrintable(m_name), __FILE__, __LINE__);
    }

    WhenModal(const WhenModal &) = delete;
    WhenModal &operator=(const WhenModal &) = delete;

    /// Whether the dialogue has come up.
    bool Came() const { return m_came; }

private:
    bool Matches(const QWidget *dialog) const
    {
        if (m_name.isEmpty())
            return !dialog->inherits("QMessageBox");
        return dialog->objectName() == m_name || dialog->inherits(m_name.toLatin1().constData());
    }

    void Look()
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (m_came || dialog == nullptr || !dialog->isVisible() || !Matches(dialog))
            return;
        m_came = true;
        m_poll.stop();
        m_routine(dialog);
    }

    QString m_name;
    Routine m_routine;
    bool m_came = false;
    QTimer m_poll;
};

/// Types a text; a character that has no key on a western keyboard comes as an input method commits it.
inline void TypeText(QWidget *edit, const QString &text)
{
    for (const QChar character : text) {
        if (character.unicode() < 0x80) {
            QTest::keyClick(edit, character.toLatin1());
            continue;
        }
        QInputMethodEvent committed;
        committed.setCommitString(character);
        QApplication::sendEvent(edit, &committed);
    }
}

/// Types a name into a file dialogue that is up, as WhenModal hands it over, and presses Return. Typed anew until the
/// dialogue takes it: it refuses every name while it still reads its folder.
inline void TypeFileName(QWidget *dialog, const QString &name)
{
    auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    auto *buttons = dialog->findChild<QDialogButtonBox *>();
    QVERIFY(edit != nullptr && buttons != nullptr);
    // Without the focus, folders on the way to the name stay chosen in its place.
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    edit->setFocus();
    const auto taken = [&] {
        edit->clear();
        TypeText(edit, name);
        for (QAbstractButton *button : buttons->buttons()) {
            if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
                return button->isEnabled();
        }
        return false;
    };
    if (QTest::qWaitFor(taken)) {
        QTest::keyClick(edit, Qt::Key_Return);
        return;
    }
    qobject_cast<QDialog *>(dialog)->reject();
    QFAIL("the file dialogue refuses the name");
}
