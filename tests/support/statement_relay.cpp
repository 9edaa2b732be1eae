#include "support/statement_relay.h"

#include "support/test_database.h"

#include <QByteArray>
#include <QtEndian>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace {

constexpr int kPollTime = 20; // ms; how long the end of the relay may take

sockaddr_in address(const QString& host, int port)
{
    sockaddr_in made{};
    made.sin_family = AF_INET;
    made.sin_port = htons(quint16(port));
    inet_pton(AF_INET, host.toUtf8().constData(), &made.sin_addr);
    return made;
}

bool sendAll(int socket, const QByteArray& bytes)
{
    for (int sent = 0; sent < bytes.size();) {
        const ssize_t part = send(socket, bytes.constData() + sent, size_t(bytes.size() - sent), MSG_NOSIGNAL);
        if (part <= 0)
            return false;
        sent += int(part);
    }
    return true;
}

bool receive(int socket, QByteArray& bytes)
{
    char buffer[65536];
    const ssize_t part = recv(socket, buffer, sizeof buffer, 0);
    if (part > 0)
        bytes.append(buffer, int(part));
    return part > 0;
}

quint32 number(const QByteArray& bytes, int at) { return qFromBigEndian<quint32>(bytes.constData() + at); }

// An answer goes on in pieces: held back for each other, they would take 40 ms a statement.
void sendAtOnce(int socket)
{
    const int yes = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
}

// One client and its server, message by message.
class Conversation {
public:
    Conversation(int client, int server) : client_(client), server_(server)
    {
        sendAtOnce(client_);
        sendAtOnce(server_);
    }
    ~Conversation()
    {
        close(client_);
        close(server_);
    }
    int client() const { return client_; }
    int server() const { return server_; }

    // Calls asked() with every statement's text, which it may change at its
    // length.
    template <class Asked>
    bool fromClient(Asked asked)
    {
        if (!receive(client_, asked_))
            return false;
        if (!started_ && !answerEncryption())
            return true;
        for (int size = messageSize(); size > 0; size = messageSize()) {
            QByteArray message = asked_.left(size);
            asked_.remove(0, size);
            if (introduced_ && !isUtility_)
                handOver(message, asked);
            isUtility_ = isUtility_ || (!introduced_ && message.contains("pg_dump"));
            introduced_ = true;
            if (!sendAll(server_, message))
                return false;
        }
        return true;
    }

    // Calls answered() at every message that ends a statement's answer; false
    // from it ends the conversation behind that message.
    template <class Answered>
    bool fromServer(Answered answered)
    {
        if (!receive(server_, told_))
            return false;
        // What came at once goes on at once: a row a packet would cost more than the statement.
        bool goesOn = true;
        int end = 0;
        while (goesOn && told_.size() - end >= 5 && quint32(told_.size() - end) >= 1 + number(told_, end + 1)) {
            // The first one says that the connection stands. It is counted
            // before the client can go on.
            const bool ends = told_[end] == 'Z';
            goesOn = !ends || !greeted_ || isUtility_ || answered();
            greeted_ = greeted_ || ends;
            end += int(1 + number(told_, end + 1));
        }
        const bool sent = end == 0 || sendAll(client_, told_.left(end));
        told_.remove(0, end);
        return sent && goesOn;
    }

private:
    // A client asks for encryption before anything else; it is declined, since
    // messages could not be told apart. True once the start message is there.
    bool answerEncryption()
    {
        while (asked_.size() >= 8 && number(asked_, 0) == 8
               && (number(asked_, 4) == 80877103u || number(asked_, 4) == 80877104u)) {
            asked_.remove(0, 8);
            sendAll(client_, "N");
        }
        started_ = !asked_.isEmpty();
        return started_;
    }

    // Of the first whole message that waits; 0 when there is none. The one that
    // introduces the client has no letter before its length.
    int messageSize() const
    {
        const int letter = introduced_ ? 1 : 0;
        if (asked_.size() < letter + 4)
            return 0;
        const int size = letter + int(number(asked_, letter));
        return asked_.size() >= size ? size : 0;
    }
    // A statement comes alone, or behind the name of what it prepares.
    template <class Asked>
    static void handOver(QByteArray& message, Asked asked)
    {
        if (message[0] != 'P' && message[0] != 'Q')
            return;
        const int from = message[0] == 'P' ? message.indexOf('\0', 5) + 1 : 5;
        QByteArray text = message.mid(from, message.indexOf('\0', from) - from);
        const int size = text.size();
        asked(text);
        message.replace(from, size, text);
    }

    int client_;
    int server_;
    bool started_ = false;
    bool introduced_ = false;
    bool greeted_ = false;
    bool isUtility_ = false; // that saves a database: its statements are its own matter
    QByteArray asked_;
    QByteArray told_;
};

} // namespace

StatementRelay::StatementRelay() : listener_(socket(AF_INET, SOCK_STREAM, 0))
{
    sockaddr_in here = address(host(), 0);
    socklen_t size = sizeof here;
    bind(listener_, reinterpret_cast<sockaddr*>(&here), size);
    listen(listener_, 8);
    getsockname(listener_, reinterpret_cast<sockaddr*>(&here), &size);
    port_ = ntohs(here.sin_port);
    thread_ = std::thread([this] { serve(); });
}

StatementRelay::~StatementRelay()
{
    stop_ = true;
    thread_.join();
    close(listener_);
}

QString StatementRelay::host() { return QStringLiteral("127.0.0.1"); }

QString StatementRelay::port() const { return QString::number(port_); }

void StatementRelay::cutAfter(int statements)
{
    startAnew();
    limit_ = statements;
}

void StatementRelay::refuse(int statement)
{
    startAnew();
    refused_ = statement;
}

void StatementRelay::startAnew()
{
    const std::lock_guard<std::mutex> lock(textsGuard_);
    texts_.clear();
    count_ = 0;
    cut_ = false;
    limit_ = -1;
    refused_ = -1;
}

QStringList StatementRelay::texts() const
{
    const std::lock_guard<std::mutex> lock(textsGuard_);
    return texts_;
}

bool StatementRelay::hasRefused() const { return refused_ > 0 && texts().size() >= refused_; }

// No statement begins with the sign that replaces the first letter.
void StatementRelay::passOn(QByteArray& statement)
{
    const std::lock_guard<std::mutex> lock(textsGuard_);
    texts_.append(QString::fromUtf8(statement));
    if (texts_.size() == refused_)
        statement.replace(0, 1, "#");
}

namespace {

// Null when the server takes no connection.
std::unique_ptr<Conversation> newConversation(int listener)
{
    const int client = accept(listener, nullptr, nullptr);
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in there = address(TestServer::host(), TestServer::port().toInt());
    if (connect(server, reinterpret_cast<const sockaddr*>(&there), sizeof there) == 0)
        return std::make_unique<Conversation>(client, server);
    close(server);
    close(client);
    return nullptr;
}

} // namespace

void StatementRelay::serve()
{
    std::vector<std::unique_ptr<Conversation>> talks;
    const auto answered = [this] {
        const bool last = ++count_ == limit_ && !cut_;
        cut_ = cut_ || last;
        return !last;
    };
    while (!stop_) {
        std::vector<pollfd> sockets = {{listener_, POLLIN, 0}};
        for (const auto& talk : talks) {
            sockets.push_back({talk->client(), POLLIN, 0});
            sockets.push_back({talk->server(), POLLIN, 0});
        }
        if (poll(sockets.data(), sockets.size(), kPollTime) <= 0)
            continue;
        for (size_t i = 0; i < talks.size(); ++i) {
            bool goesOn = true;
            if (sockets[1 + 2 * i].revents)
                goesOn = talks[i]->fromClient([this](QByteArray& statement) { passOn(statement); });
            if (goesOn && sockets[2 + 2 * i].revents)
                goesOn = talks[i]->fromServer(answered);
            if (!goesOn)
                talks[i].reset();
        }
        talks.erase(std::remove(talks.begin(), talks.end(), nullptr), talks.end());
        if (!sockets[0].revents)
            continue;
        if (std::unique_ptr<Conversation> talk = newConversation(listener_))
            talks.push_back(std::move(talk));
    }
}
