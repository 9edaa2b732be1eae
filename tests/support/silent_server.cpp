#include "support/silent_server.h"

#include "support/test_database.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cmath>

namespace {

constexpr int kPollTime = 20; // ms

sockaddr_in localAddress(int port)
{
    sockaddr_in made{};
    made.sin_family = AF_INET;
    made.sin_port = htons(quint16(port));
    made.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return made;
}

// A socket that takes connections on a free port, which is returned too.
int listenSomewhere(int& port)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in at = localAddress(0);
    socklen_t size = sizeof at;
    ::bind(listener, reinterpret_cast<sockaddr*>(&at), size);
    ::listen(listener, 8);
    ::getsockname(listener, reinterpret_cast<sockaddr*>(&at), &size);
    port = ntohs(at.sin_port);
    return listener;
}

QString conninfoFor(int port, const QString& database)
{
    return QStringLiteral("hostaddr=127.0.0.1 port=%1 dbname=%2 user=%3 password=%4 ")
        .arg(QString::number(port), database, TestServer::user(), TestServer::password());
}

} // namespace

SilentServer::SilentServer() { listener_ = listenSomewhere(port_); }

SilentServer::~SilentServer() { ::close(listener_); }

QString SilentServer::conninfo() const { return conninfoFor(port_, QStringLiteral("nothing")); }

StallingLink::StallingLink()
{
    listener_ = listenSomewhere(port_);
    thread_ = std::thread([this] { serve(); });
}

StallingLink::~StallingLink()
{
    stop_ = true;
    thread_.join();
    ::close(listener_);
}

QString StallingLink::conninfo(const QString& database) const { return conninfoFor(port_, database); }

void StallingLink::lose(double share)
{
    constexpr double packet = 1448.0; // bytes
    const double roundTrip = 2.0 * delay_ / 1000.0;
    most_ = int(1.22 * packet / (roundTrip * std::sqrt(share)));
}

// One piece; its bytes, or -1 at the end.
int StallingLink::pass(int from, int to) const
{
    char buffer[65536];
    const ssize_t part = ::recv(from, buffer, sizeof buffer, 0);
    if (part > 0 && most_ > 0)
        ::poll(nullptr, 0, int(part * 1000 / most_));
    return part > 0 && ::send(to, buffer, size_t(part), MSG_NOSIGNAL) == part ? int(part) : -1;
}

void StallingLink::serve()
{
    pollfd waiting{listener_, POLLIN, 0};
    while (!stop_ && ::poll(&waiting, 1, kPollTime) == 0) { }
    if (stop_)
        return;
    const int client = ::accept(listener_, nullptr, nullptr);
    const int server = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in at = localAddress(TestServer::port().toInt());
    ::connect(server, reinterpret_cast<sockaddr*>(&at), sizeof at);
    pollfd both[] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
    while (!stop_) {
        if (stalled_ || ::poll(both, 2, kPollTime) == 0) {
            if (stalled_)
                ::poll(nullptr, 0, kPollTime);
            continue;
        }
        if (delay_ > 0)
            ::poll(nullptr, 0, delay_);
        const int asked = both[0].revents ? pass(client, server) : 0;
        const int told = both[1].revents ? pass(server, client) : 0;
        if (asked < 0 || told < 0)
            break;
        toClient_ += told;
    }
    ::close(client);
    ::close(server);
}
