/// @file
/// The change of an open project's properties, for its tests: the sensor dialogue by each entry, filled in and
/// finished.
#pragma once

#include "project/ProjectCommandBench.h"

/// Voltages in mV that stand for kg.
inline void FillVoltage(SensorPropertyFrm &form)
{
    form.Txtname->setText(QStringLiteral("Scale"));
    form.Combtype->SetListIndex(1);
    form.CombInunit->SetListIndex(1);
    form.CombOutunit->SetListIndex(2);
}

inline void FillThermistor(SensorPropertyFrm &form)
{
    form.Txtname->setText(QStringLiteral("Warm"));
    form.Combtype->SetListIndex(8);
}

inline QStringList ColumnTitles(const SensorProjFrm &form)
{
    QStringList titles;
    for (int column = 1; column <= 5; ++column)
        titles << form.EditDataView->ColumnTitle(column);
    return titles;
}

class EditProjectBench : public ProjectCommandBench {
public:
    using Routine = std::function<void(SensorPropertyFrm &)>;

    /// The command by its entry: "tools menu", "settings menu" or "toolbar".
    QAction *EditItem(const QString &entry) const
    {
        if (entry == QStringLiteral("toolbar"))
            return frame.ToolBarButton(QStringLiteral("Options"));
        return entry == QStringLiteral("settings menu") ? frame.mnuSettingsSensorOption : frame.mnuToolsSensorOption;
    }

    /// Opens the dialogue and runs a routine on it, which shall close it.
    void Edit(const Routine &routine, const QString &entry = QStringLiteral("tools menu"))
    {
        const WhenModal answer(QStringLiteral("SensorPropertyFrm"), [&routine](QWidget *dialog) {
            auto &form = *qobject_cast<SensorPropertyFrm *>(dialog);
            routine(form);
            QVERIFY(!form.isVisible());
        });
        EditItem(entry)->trigger();
    }

    /// The same with Done, and without a box.
    void Change(const Routine &fill = FillVoltage, const QString &entry = QStringLiteral("tools menu"))
    {
        const BoxAnswers none;
        Edit(
            [&fill](SensorPropertyFrm &form) {
                fill(form);
                form.ComdEnter->click();
            },
            entry);
    }
};
