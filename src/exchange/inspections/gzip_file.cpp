#include "exchange/inspections/gzip_file.h"

#include "files/written_file.h"

#include <QFile>
#include <zlib.h>

namespace {

constexpr int blockSize = 4096;
constexpr int outputSize = 1 << 16;
constexpr int gzipOrZlib = 15 + 32; // window bits: the form is told by its first bytes
constexpr int gzipOnly = 15 + 16;

bool isGzip(const QByteArray& head) { return head.startsWith("\x1f\x8b"); }

Bytef* bytesOf(QByteArray& bytes) { return reinterpret_cast<Bytef*>(bytes.data()); }

GzipOutcome broken(const QString& problem, int code) { return {GzipState::Broken, problem, code}; }

class Unpacker {
public:
    Unpacker(QFile& file, qint64 most, QByteArray& contents) : file_(file), most_(most), contents_(contents)
    {
        inflateInit2(&stream_, gzipOrZlib);
    }
    ~Unpacker() { inflateEnd(&stream_); }
    Unpacker(const Unpacker&) = delete;
    Unpacker& operator=(const Unpacker&) = delete;

    GzipOutcome run()
    {
        for (;;) {
            if (stream_.avail_in == 0 && !readBlock())
                return file_.error() == QFileDevice::NoError ? atEnd() : broken(file_.errorString(), Z_ERRNO);
            if (memberEnded_ && !startMember())
                return {}; // what follows the last member is nobody's
            const int code = inflateBlock();
            if (code != Z_OK && code != Z_STREAM_END && code != Z_BUF_ERROR)
                return broken(QStringLiteral("данные повреждены"), code);
            if (contents_.size() > most_)
                return {GzipState::TooLarge, QStringLiteral("слишком велик"), Z_MEM_ERROR};
        }
    }

private:
    bool readBlock()
    {
        block_ = file_.read(blockSize);
        stream_.next_in = bytesOf(block_);
        stream_.avail_in = uInt(block_.size());
        return !block_.isEmpty();
    }

    GzipOutcome atEnd() const
    {
        return memberEnded_ ? GzipOutcome() : broken(QStringLiteral("файл обрезан"), Z_BUF_ERROR);
    }

    // The member's mark may be parted by the end of a block: its first byte decides.
    bool startMember()
    {
        if (*stream_.next_in != 0x1f)
            return false;
        inflateReset(&stream_);
        memberEnded_ = false;
        return true;
    }

    int inflateBlock()
    {
        stream_.next_out = bytesOf(output_);
        stream_.avail_out = outputSize;
        const int code = inflate(&stream_, Z_NO_FLUSH);
        contents_.append(output_.constData(), outputSize - int(stream_.avail_out));
        memberEnded_ = code == Z_STREAM_END;
        return code;
    }

    QFile& file_;
    qint64 most_;
    QByteArray& contents_;
    z_stream stream_ = {};
    QByteArray block_;
    QByteArray output_ = QByteArray(outputSize, Qt::Uninitialized);
    bool memberEnded_ = false;
};

GzipOutcome readPlain(QFile& file, qint64 most, QByteArray& contents)
{
    contents = file.read(most + 1);
    if (file.error() != QFileDevice::NoError)
        return broken(file.errorString(), Z_ERRNO);
    if (contents.size() > most)
        return {GzipState::TooLarge, QStringLiteral("слишком велик"), Z_MEM_ERROR};
    return {};
}

class Packer {
public:
    explicit Packer(WrittenFile& file)
        : file_(file),
          begun_(deflateInit2(&stream_, Z_DEFAULT_COMPRESSION, Z_DEFLATED, gzipOnly, 8, Z_DEFAULT_STRATEGY))
    { }
    ~Packer() { deflateEnd(&stream_); }
    Packer(const Packer&) = delete;
    Packer& operator=(const Packer&) = delete;

    // Z_OK; Z_ERRNO when the file takes no more; else why the packing stopped.
    int write(QByteArray contents)
    {
        stream_.next_in = bytesOf(contents);
        stream_.avail_in = uInt(contents.size());
        int code = begun_;
        while (code == Z_OK) {
            stream_.next_out = bytesOf(output_);
            stream_.avail_out = outputSize;
            code = deflate(&stream_, Z_FINISH);
            if (!file_.write(output_.left(outputSize - int(stream_.avail_out))))
                return Z_ERRNO;
        }
        return code == Z_STREAM_END ? Z_OK : code;
    }

private:
    WrittenFile& file_;
    z_stream stream_ = {};
    int begun_;
    QByteArray output_ = QByteArray(outputSize, Qt::Uninitialized);
};

} // namespace

GzipOutcome readGzip(const QString& path, qint64 most, QByteArray& contents)
{
    contents.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {GzipState::NotOpened, file.errorString(), Z_ERRNO};
    GzipOutcome outcome = isGzip(file.peek(2)) ? Unpacker(file, most, contents).run() : readPlain(file, most, contents);
    if (outcome.state != GzipState::Done)
        contents = QByteArray();
    return outcome;
}

GzipOutcome writeGzip(const QString& path, const QByteArray& contents)
{
    WrittenFile file(path);
    if (!file.open())
        return {GzipState::NotOpened, file.problem(), Z_ERRNO};
    const int code = Packer(file).write(contents);
    if (code != Z_OK)
        return {GzipState::NotWritten, code == Z_ERRNO ? file.problem() : QStringLiteral("не хватает памяти"), code};
    if (!file.commit())
        return {GzipState::NotClosed, file.problem(), Z_ERRNO};
    return {};
}
