// Both names by which a program opens files, for a preloaded library; its openFile(name, path, flags, mode), which
// stands before this is included, does the work.
#pragma once

#include <cstdarg>
#include <fcntl.h>

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
