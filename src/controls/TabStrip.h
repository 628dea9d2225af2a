/// @file
/// A strip of tabs along its lower edge, with room above it that the owner fills with page panels.
#pragma once

#include <QStringList>
#include <QWidget>

class QTabBar;

/// Tabs count from 1. The pages are no children of the strip; it only says which tab was clicked.
class TabStrip : public QWidget {
    Q_OBJECT

public:
    explicit TabStrip(int tabs, QWidget *parent = nullptr);

    void SetCaption(int tab, const QString &caption);
    QString Caption(int tab) const;

    int SelectedTab() const;
    /// Selects a tab without Click.
    void SelectTab(int tab);
    /// What the tabs take of the strip's height, in pixels.
    int FixedTabHeight() const;
    /// The middle of a tab in pixels of the strip: where a user clicks it.
    QPoint TabCentre(int tab) const;

signals:
    /// A tab was clicked, also the one that is selected already, or another one was chosen by key or wheel. It is
    /// selected then.
    void Click(int tab);

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Place() const;
    QTabBar *m_bar;
    bool m_silent = false;
};
