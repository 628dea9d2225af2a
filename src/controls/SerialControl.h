/// @file
/// The serial communications control.
#pragma once

#include <QObject>
#include <QSerialPort>

/// Reports line events by number: 1 characters sent, 2 characters received, 3 to 7 line changes, from 1001 on line
/// errors.
class SerialControl : public QObject {
    Q_OBJECT

public:
    explicit SerialControl(QObject *parent = nullptr);

    QSerialPort &Port() { return m_port; }
    /// Writes text in the system's encoding. @throws RuntimeError 8018 while the port is closed
    void Output(const QString &text);
    /// Takes what has been received.
    QString Input();
    /// Number of the last event.
    int CommEvent() const { return m_event; }

signals:
    void OnComm();

private:
    void Report(int event);
    QSerialPort m_port;
    int m_event = 0;
};
