/// @file
/// The dialogue of reference rows for its tests: a project whose rows it edits, and the hands that fill it in.
#pragma once

#include "curve/EditDataFrm.h"
#include "curve/EditDataModule.h"
#include "curve/ReferenceListBench.h"
#include "curve/ReferenceListModule.h"

#include <QToolButton>

#include <functional>

inline const QString Exceeded = QStringLiteral("The data is exceeded,please rewrite! ");
inline const QString ExceededChinese = QStringLiteral("输入数值超限,请重新填写! ");

using Steps = std::function<void(EditDataFrm &form)>;

/// A frame with one project in slot 0, whose units are mV and C, and its list.
class EditDataBench : public ReferenceListBench {
public:
    EditDataBench() : project(AddListProject(0))
    {
        SensorProjects[0].InputUnit = QStringLiteral("mV");
        SensorProjects[0].OutputUnit = QStringLiteral("C");
    }

    ReportList &List() const { return *project.EditDataView; }

    /// Rows 1 and so on with the given inputs; each output is ten times its input.
    void PutRows(const QList<double> &inputs)
    {
        for (int i = 0; i < inputs.size(); ++i)
            PutRow(0, i + 1, inputs[i], 10 * inputs[i]);
        RefreshReferenceLists();
    }

    void PutFullTable()
    {
        for (int row = 1; row <= ReferenceRowLimit; ++row)
            PutRow(0, row, row, 2.0 * row);
        RefreshReferenceLists();
    }

    SensorProjFrm &project;
};

/// Opens the dialogue by a user's action, takes the steps in it, and cancels it unless a step has closed it.
inline void InDialogue(const std::function<void()> &open, const Steps &steps)
{
    WhenModal dialogue(QStringLiteral("EditDataFrm"), [&steps](QWidget *window) {
        auto *form = qobject_cast<EditDataFrm *>(window);
        QVERIFY(form != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(form));
        steps(*form);
        if (form->isVisible())
            Click(form->CancelCmd);
    });
    open();
}

/// Through the pop-up menu.
inline void Adding(const EditDataBench &bench, const Steps &steps)
{
    InDialogue([&] { bench.RunFromPopup(bench.List(), bench.frame.mnuPopEditDataAdd); }, steps);
}

/// By a double click on a line.
inline void Changing(const EditDataBench &bench, int line, const Steps &steps)
{
    ReportList &list = bench.List();
    InDialogue([&] { QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, EditDataBench::PlaceInList(list, line)); },
               steps);
}

/// Selects lines by clicks and opens the dialogue through the pop-up menu.
inline void ChangingLines(const EditDataBench &bench, const QList<int> &lines, const Steps &steps)
{
    ReportList &list = bench.List();
    EditDataBench::ClickLines(list, lines);
    InDialogue([&] { bench.RunFromPopup(list, bench.frame.mnuPopEditDataChange, lines.last()); }, steps);
}

/// Clicks a box and types over what it holds.
inline void TypeOver(TextBox *box, const QString &text)
{
    Click(box);
    Retype(box, text);
}

inline void TypeRow(const EditDataFrm &form, const QString &input, const QString &output)
{
    TypeOver(form.VolTxt, input);
    TypeOver(form.TemperateTxt, output);
}

inline void StepUp(const EditDataFrm &form)
{
    Click(form.UpDown1->findChild<QToolButton *>(QStringLiteral("Up")));
}

inline void StepDown(const EditDataFrm &form)
{
    Click(form.UpDown1->findChild<QToolButton *>(QStringLiteral("Down")));
}

/// The arrow at the right or the left end of a scroll bar.
inline void ClickArrow(FlatScrollBar *bar, bool right)
{
    const int inside = bar->height() / 2;
    QTest::mouseClick(bar, Qt::LeftButton, {}, QPoint(right ? bar->width() - inside : inside, inside));
}

/// What a box holds while the message is up that a step brings up; the message is closed.
inline QString TextBehindMessage(const TextBox *box, const std::function<void()> &step)
{
    QString text;
    const WhenModal message(QStringLiteral("MessageBox"), [&](QWidget *window) {
        text = box->text();
        window->close();
    });
    step();
    return text;
}

/// Whether the arithmetic can be chosen; all of it is enabled or nothing.
inline bool ArithmeticOffered(const EditDataFrm &form)
{
    const bool offered = form.Frame1->isEnabled();
    for (const QWidget *control : {static_cast<QWidget *>(form.MathLab), static_cast<QWidget *>(form.MathOpt[0]),
                                   static_cast<QWidget *>(form.MathOpt[1])}) {
        if (control->isEnabled() != offered)
            QTest::qFail("the arithmetic is enabled as a whole", __FILE__, __LINE__);
    }
    return offered;
}
