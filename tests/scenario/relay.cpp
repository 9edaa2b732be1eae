#include "relay.h"

namespace {

// What one side says is handed to the other; when one goes, so does the other.
void join(QTcpSocket* from, QTcpSocket* to)
{
    QObject::connect(from, &QTcpSocket::readyRead, to, [from, to] { to->write(from->readAll()); });
    QObject::connect(from, &QTcpSocket::disconnected, to, &QTcpSocket::disconnectFromHost);
}

} // namespace

RelayListener::RelayListener(quint16 port, const QString& host, quint16 serverPort)
    : port_(port), host_(host), serverPort_(serverPort)
{ }

bool RelayListener::start()
{
    server_ = std::make_unique<QTcpServer>();
    connect(server_.get(), &QTcpServer::newConnection, this, &RelayListener::accept);
    return server_->listen(QHostAddress::LocalHost, port_);
}

// Sockets are children of the server and go with it.
void RelayListener::stop()
{
    if (!server_)
        return;
    for (QTcpSocket* socket : server_->findChildren<QTcpSocket*>())
        socket->abort();
    server_.reset();
}

void RelayListener::accept()
{
    QTcpSocket* client = server_->nextPendingConnection();
    auto* server = new QTcpSocket(server_.get());
    join(client, server);
    join(server, client);
    server->connectToHost(host_, serverPort_);
}

Relay::Relay(quint16 port, const QString& host, quint16 serverPort)
    : listener_(new RelayListener(port, host, serverPort))
{
    listener_->moveToThread(&thread_);
    QObject::connect(&thread_, &QThread::finished, listener_, &QObject::deleteLater);
    thread_.start();
}

Relay::~Relay()
{
    stop();
    thread_.quit();
    thread_.wait();
}

bool Relay::start()
{
    bool good = false;
    QMetaObject::invokeMethod(listener_, "start", Qt::BlockingQueuedConnection, Q_RETURN_ARG(bool, good));
    return good;
}

void Relay::stop() { QMetaObject::invokeMethod(listener_, "stop", Qt::BlockingQueuedConnection); }

quint16 freePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}
