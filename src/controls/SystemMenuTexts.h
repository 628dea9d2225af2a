/// @file
/// Keeps the system menu of a child window in the language of the toolkit's texts, which the toolkit itself sets once
/// and for all when it makes the window.
#pragma once

#include <QAction>
#include <QMdiSubWindow>

#include <vector>

/// Lives with its window.
class SystemMenuTexts : public QObject {
    Q_OBJECT

public:
    explicit SystemMenuTexts(QMdiSubWindow *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Item {
        QAction *Action;
        const char *Source; ///< the toolkit's own English text
    };
    std::vector<Item> m_items;
};
