/// @file
/// Project windows whose reference list answers its commands, for the tests of those commands.
#pragma once

#include "curve/ReferenceEditModule.h"
#include "support/BareFrame.h"
#include "support/BoxAnswer.h"
#include "support/Hands.h"

class ReferenceListBench : public BareFrame {
public:
    SensorProjFrm &AddListProject(int slot)
    {
        SensorProjFrm &form = AddProject(slot);
        form.EditDataView->SetColumnTitles(
            {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")});
        form.UndoLumoBtn->setEnabled(false);
        form.RedoLumoBtn->setEnabled(false);
        ConnectReferenceEdit(form);
        return form;
    }
};

/// The inputs of a table's used rows, in its order.
inline QList<double> UsedInputs(const ReferenceRows &rows)
{
    QList<double> inputs;
    for (const ReferencePoint &point : rows) {
        if (point.Used)
            inputs.append(point.Input);
    }
    return inputs;
}
