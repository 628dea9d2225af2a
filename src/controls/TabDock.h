/// @file
/// The docking manager of a frame: named panels at the left edge.
#pragma once

#include <QObject>
#include <QString>

#include <map>

class QDockWidget;
class QMainWindow;
class QWidget;

/// Panels that the user can close and make wider, but not move away.
class TabDock : public QObject {
    Q_OBJECT

public:
    explicit TabDock(QMainWindow *frame);

    /// Adds a panel at the left edge under a name; it starts hidden.
    void AddPanel(const QString &name, QWidget *panel);
    /// Width of the left panels in twips, from the first showing on; the user may change it.
    void SetLeftPanelWidth(int twips);
    /// @throws RuntimeError 5 for an unknown name
    void ShowPanel(const QString &name);
    void HidePanel(const QString &name);
    bool PanelVisible(const QString &name) const;
    /// The title that the panel shows.
    void SetPanelTitle(const QString &name, const QString &title);

signals:
    /// The user has closed a panel by its own close box.
    void PanelClosed(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ApplyWidth();
    QDockWidget *Dock(const QString &name) const;
    QMainWindow *m_frame;
    std::map<QString, QDockWidget *> m_docks;
    int m_leftWidth = 0; // pixels
    bool m_widthPending = false;
};
