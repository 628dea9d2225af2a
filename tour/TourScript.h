/// @file
/// A script of steps, each with a condition to wait for and an act of the user.
#pragma once

#include <QString>

#include <functional>
#include <vector>

/// Runs its steps one after the other on the event loop, also below modal dialogues and menus. A condition that does
/// not come true in time ends the tour with a failure that names the step.
class TourScript {
public:
    using Condition = std::function<bool()>;
    using Act = std::function<void()>;

    explicit TourScript(QString folder) : m_folder(std::move(folder)) {}

    void Add(const QString &name, Condition ready, Act act);
    /// Takes a picture of the whole screen when the condition holds.
    void AddPicture(const QString &name, Condition ready);
    /// Begins; the application ends after the last step, with 0 when all went well.
    void Start();
    int Pictures() const { return m_pictures; }

private:
    struct Step {
        QString Name;
        Condition Ready;
        Act Run;
    };

    void Poll(std::size_t index, int waited);
    void TakePicture(const QString &name);

    QString m_folder;
    std::vector<Step> m_steps;
    int m_pictures = 0;
};
