#include "support/full_disk.h"

#include <QFile>
#include <csignal>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

SmallDisk::SmallDisk(int kilobytes)
{
    const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
    mounted_ = ::mount("tmpfs", QFile::encodeName(folder_.path()).constData(), "tmpfs", 0, options.constData()) == 0;
}

SmallDisk::~SmallDisk()
{
    if (mounted_)
        ::umount2(QFile::encodeName(folder_.path()).constData(), MNT_DETACH);
}

bool SmallDisk::fillUpTo(qint64 left) const
{
    const QByteArray name = QFile::encodeName(filePath(QStringLiteral("ballast")));
    const int file = ::open(name.constData(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
    if (file < 0)
        return false;
    const QByteArray page(4096, 'x');
    qint64 size = 0;
    while (::write(file, page.constData(), size_t(page.size())) == page.size())
        size += page.size();
    const bool done = ::ftruncate(file, std::max<qint64>(0, size - left)) == 0;
    ::close(file);
    return done;
}

void SmallDisk::freeAgain() const { QFile::remove(filePath(QStringLiteral("ballast"))); }

FileSizeLimit::FileSizeLimit(qint64 bytes)
{
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    before_ = limit.rlim_cur;
    handlerBefore_ = std::signal(SIGXFSZ, SIG_IGN);
    limit.rlim_cur = rlim_t(bytes);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = before_;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, handlerBefore_);
}
