// Loaded before a program's libraries (LD_PRELOAD): its n-th call on a file of
// one folder fails or is its last.
//
//   TERVA_FAULT_FOLDER   where the files lie that count
//   TERVA_FAULT_AT       which call, from 1; 0 counts only
//   TERVA_FAULT          an errno by its number, or "kill"
//   TERVA_FAULT_COUNT    file that gets the number of calls at the end
#include "opened_files.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int calls = 0;
bool inside = false; // in a call of our own

const char* text(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

bool counts(const char* path)
{
    const char* folder = text("TERVA_FAULT_FOLDER");
    return !inside && *folder && std::strncmp(path, folder, std::strlen(folder)) == 0;
}

bool counts(int file)
{
    char link[64];
    char path[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = ::readlink(link, path, sizeof path - 1);
    path[length > 0 ? length : 0] = '\0';
    return counts(path);
}

// True when this call is the one that fails; errno is set.
template <class File>
bool fails(File file)
{
    if (!counts(file) || ++calls != std::atoi(text("TERVA_FAULT_AT")))
        return false;
    if (std::strcmp(text("TERVA_FAULT"), "kill") == 0)
        ::raise(SIGKILL);
    errno = std::atoi(text("TERVA_FAULT"));
    return true;
}

template <class Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

__attribute__((destructor)) void tellCount()
{
    inside = true;
    if (FILE* file = *text("TERVA_FAULT_COUNT") ? std::fopen(text("TERVA_FAULT_COUNT"), "w") : nullptr) {
        std::fprintf(file, "%d", calls);
        std::fclose(file);
    }
}

int openFile(const char* name, const char* path, int flags, mode_t mode)
{
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    return writes && fails(path) ? -1 : next<int (*)(const char*, int, ...)>(name)(path, flags, mode);
}

} // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t size)
{
    return fails(file) ? -1 : next<ssize_t (*)(int, const void*, size_t)>("write")(file, bytes, size);
}

int rename(const char* from, const char* to) noexcept
{
    return fails(to) ? -1 : next<int (*)(const char*, const char*)>("rename")(from, to);
}

int fsync(int file) { return fails(file) ? -1 : next<int (*)(int)>("fsync")(file); }

int fdatasync(int file) { return fails(file) ? -1 : next<int (*)(int)>("fdatasync")(file); }

int fchmod(int file, mode_t mode) noexcept
{
    return fails(file) ? -1 : next<int (*)(int, mode_t)>("fchmod")(file, mode);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return fails(file) ? -1 : next<int (*)(int, off64_t)>("ftruncate64")(file, size);
}
}
