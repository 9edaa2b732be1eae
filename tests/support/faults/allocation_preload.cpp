// Loaded before a program's libraries (LD_PRELOAD): its n-th allocation fails, alone or with all
// that follow. Counted from the moment at which a file is read that says so.
//
//   TERVA_ALLOCATION_START   the file
//   TERVA_ALLOCATION_AT      which allocation, from 1; 0 counts only
//   TERVA_ALLOCATION_ON      set: those that follow fail too
//   TERVA_ALLOCATION_FOLDER  where the program writes
//   TERVA_ALLOCATION_COUNT   file that gets the numbers of allocations: all, those before the first
//                            file that is opened for writing in the folder, those before the last
//                            that is moved there
#include "opened_files.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/resource.h>

extern "C" {
void* __libc_malloc(std::size_t size);                    // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t count, std::size_t size); // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* block, std::size_t size);      // NOLINT(bugprone-reserved-identifier)
}

namespace {

std::atomic<bool> counting{false};
std::atomic<long> calls{0};
std::atomic<long> firstWrite{0};
std::atomic<long> lastMove{0};
long at = 0;
bool onAndOn = false;

const char* text(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool fails()
{
    if (!counting)
        return false;
    const long call = ++calls;
    if (at == 0 || (onAndOn ? call < at : call != at))
        return false;
    errno = ENOMEM;
    return true;
}

// Also the folder itself, in which a file without a name is opened.
bool isWritten(const char* path)
{
    const char* folder = text("TERVA_ALLOCATION_FOLDER");
    const std::size_t length = std::strlen(folder);
    return length > 0 && std::strncmp(path, folder, length) == 0 && (path[length] == '/' || path[length] == '\0');
}

// What dies of a fault leaves no picture of its memory behind.
__attribute__((constructor)) void begin()
{
    at = std::atol(text("TERVA_ALLOCATION_AT"));
    onAndOn = *text("TERVA_ALLOCATION_ON") != '\0';
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
}

__attribute__((destructor)) void tellCounts()
{
    counting = false;
    if (FILE* file = *text("TERVA_ALLOCATION_COUNT") ? std::fopen(text("TERVA_ALLOCATION_COUNT"), "w") : nullptr) {
        std::fprintf(file, "%ld %ld %ld", calls.load(), firstWrite.load(), lastMove.load());
        std::fclose(file);
    }
}

template <class Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

int openFile(const char* name, const char* path, int flags, mode_t mode)
{
    if ((flags & O_ACCMODE) == O_RDONLY && std::strcmp(path, text("TERVA_ALLOCATION_START")) == 0)
        counting = true;
    if ((flags & O_ACCMODE) != O_RDONLY && firstWrite == 0 && isWritten(path))
        firstWrite = calls.load();
    return next<int (*)(const char*, int, ...)>(name)(path, flags, mode);
}

} // namespace

extern "C" {

void* malloc(std::size_t size) { return fails() ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t count, std::size_t size) { return fails() ? nullptr : __libc_calloc(count, size); }

void* realloc(void* block, std::size_t size) { return fails() ? nullptr : __libc_realloc(block, size); }

int rename(const char* from, const char* to) noexcept
{
    if (isWritten(to))
        lastMove = calls.load();
    return next<int (*)(const char*, const char*)>("rename")(from, to);
}
}
