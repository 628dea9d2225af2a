/// @file
/// The panels of a status bar, in order, some with a key; the last two keep date and time by themselves.
#pragma once

#include <QBasicTimer>
#include <QStatusBar>

#include <map>
#include <vector>

class QLabel;

/// Panels count from 1.
class StatusPanels : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusPanels(QWidget *parent = nullptr);

    /// Adds a panel that takes the given share of the width; 0 takes what its text needs.
    void AddPanel(const QString &key, const QString &text, int stretch);
    /// Leaves room behind the panels, in pixels.
    void AddSpace(int width);
    void AddDatePanel();
    void AddTimePanel();

    void SetPanelText(int panel, const QString &text);
    QString PanelText(int panel) const;
    /// @throws RuntimeError 5 for an unknown key
    int PanelOfKey(const QString &key) const;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void StartClock();
    void ShowClock();
    QBasicTimer m_clock;
    std::vector<QLabel *> m_panels;
    std::map<QString, int> m_keys;
    QLabel *m_date = nullptr;
    QLabel *m_time = nullptr;
};
