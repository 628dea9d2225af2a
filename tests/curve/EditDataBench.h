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

/// Opens the dialogue by a command, takes the steps in it, and cancels it unless a step has closed it.
inline void InDialogue(void (*command)(), const Steps &steps)
{
    WhenModal dialogue(QStringLiteral("EditDataFrm"), [&steps](QWidget *window) {
        auto *form = qobject_cast<EditDataFrm *>(window);
        QVERIFY(form != nullptr);
        QVERIFY(QTest::qWaitForWindowActive(form));
        steps(*form);
        if (form->isVisible())
            Click(form->CancelCmd);
    });
    command();
}

inline void Adding(const Steps &steps)
{
    InDialogue(mnuPopEditDataAdd_Click, steps);
}

inline void Changing(EditDataBench &bench, int line, const Steps &steps)
{
    ReportList &list = *bench.project.EditDataView;
    list.clearSelection();
    list.setCurrentItem(list.topLevelItem(line - 1));
    QCOMPARE(list.CurrentLine(), line);
    InDialogue(mnuPopEditDataChange_Click, steps);
}

inline void ChangingLines(EditDataBench &bench, const QList<int> &lines, const Steps &steps)
{
    ReportList &list = *bench.project.EditDataView;
    list.setCurrentItem(list.topLevelItem(lines.first() - 1));
    list.clearSelection();
    for (const int line : lines)
        list.SelectLine(line, true);
    InDialogue(mnuPopEditDataChange_Click, steps);
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
