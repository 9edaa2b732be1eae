#pragma once
// A road to the server that can be closed: what a user meets when the server
// stops and comes back. It works in a thread of its own, because who waits for
// the server does not look at its own events meanwhile.

#include <QHostAddress>
#include <QObject>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>
#include <memory>

/// The listening end; lives in the relay's thread.
class RelayListener : public QObject {
    Q_OBJECT
public:
    RelayListener(quint16 port, const QString& host, quint16 serverPort);
    /// False when the port is taken.
    Q_INVOKABLE bool start();
    Q_INVOKABLE void stop();

private:
    void accept();

    const quint16 port_;
    const QHostAddress host_;
    const quint16 serverPort_;
    std::unique_ptr<QTcpServer> server_;
};

class Relay {
public:
    Relay(quint16 port, const QString& host, quint16 serverPort);
    ~Relay();
    Relay(const Relay&) = delete;
    Relay& operator=(const Relay&) = delete;

    bool start();
    void stop();

private:
    QThread thread_;
    RelayListener* listener_;
};

/// A port that nobody listens on just now.
quint16 freePort();
