/// @file
/// The common file dialogue: its settings stay from one use to the next.
#pragma once

#include <QObject>
#include <QString>

/// It adds no extension to a typed name and asks nothing of its own.
class CommonDialog : public QObject {
    Q_OBJECT

public:
    explicit CommonDialog(QObject *parent = nullptr);

    QString DialogTitle;
    QString Filter;      ///< "text|pattern|text|pattern"
    int FilterIndex = 1; ///< the chosen pair, from 1
    QString InitDir;
    QString FileName;         ///< full path after OK, without steps like ".."; emptied by a cancel
    bool CancelError = false; ///< a cancel throws RuntimeError 32755

    void ShowOpen();
    void ShowSave();

private:
    void Show(bool save);
};
