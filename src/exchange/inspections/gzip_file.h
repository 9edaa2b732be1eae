// Whole files in and out of the gzip form. What is read is bounded: a few
// kilobytes of the form may hold gigabytes.
#pragma once

#include <QByteArray>
#include <QString>

enum class GzipState {
    Done,
    NotOpened,
    Broken,   ///< cut off or damaged
    TooLarge, ///< holds more than was asked for
    NotWritten,
    NotClosed, ///< written, but not all of it reached its place
};

struct GzipOutcome {
    GzipState state = GzipState::Done;
    QString problem; ///< for the user; empty for Done
    int code = 0;    ///< zlib's own
};

/// The file's contents, read in blocks of 4096 bytes. A file that is not in the
/// gzip form is taken as it stands; several members are put together. Whatever
/// fails leaves `contents` empty.
GzipOutcome readGzip(const QString& path, qint64 most, QByteArray& contents);

/// Writes the file beside its place and moves it over: what fails leaves the old one.
GzipOutcome writeGzip(const QString& path, const QByteArray& contents);
