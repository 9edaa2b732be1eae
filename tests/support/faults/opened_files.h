// Both names by which a program opens files, for a preloaded library, whose openFile does the work.
#pragma once

#include <cstdarg>
#include <fcntl.h>

namespace {
// name: "open" or "open64", by which the library's own is found; the result is that of open().
int openFile(const char* name, const char* path, int flags, mode_t mode);
} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openFile("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = flags & (O_CREAT | O_TMPFILE) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openFile("open64", path, flags, mode);
}
}
