/// @file
/// An image button. Its caption is its tool tip and its accessible name.
#pragma once

#include <QToolButton>

class LumoButton : public QToolButton {
    Q_OBJECT

public:
    explicit LumoButton(QWidget *parent = nullptr);

    void SetCaption(const QString &caption);
    QString Caption() const { return m_caption; }

    /// Shows a picture from the program's resources.
    void SetPicture(const QString &resource);

signals:
    /// A click by mouse or keyboard; never while the button is disabled.
    void MouseClick();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_caption;
};
