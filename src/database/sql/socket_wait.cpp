#include "database/sql/socket_wait.h"

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <poll.h>
#endif

namespace sql {

bool waitForSocket(int socket, bool alsoToWrite, int milliseconds)
{
#ifdef Q_OS_WIN
    WSAPOLLFD waited{SOCKET(socket), short(POLLRDNORM | (alsoToWrite ? POLLWRNORM : 0)), 0};
    return WSAPoll(&waited, 1, milliseconds) > 0;
#else
    pollfd waited{socket, short(POLLIN | (alsoToWrite ? POLLOUT : 0)), 0};
    return ::poll(&waited, 1, milliseconds) > 0;
#endif
}

} // namespace sql
