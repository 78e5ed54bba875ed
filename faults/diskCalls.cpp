// The C library's calls on files, defined anew for the whole process: the program exports its symbols, and the dynamic
// linker lets the libraries find these first. Each passes `Disk`, which does the library's own call or doesn't.

#include "Disk.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

using faults::Disk;

namespace {

/// The call of the library behind this program; that of a sanitizer's where one stands between.
template <typename Function>
Function *libraryCall(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

/// The third argument is there only where a file may be made.
mode_t rightsOf(int flags, va_list rest)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

using Open = int(const char *, int, ...);
using OpenAt = int(int, const char *, int, ...);

int openBy(Open *real, const char *path, int flags, mode_t rights)
{
    return Disk::instance().open(path, flags, [=] { return real(path, flags, rights); });
}

int openAtBy(OpenAt *real, int folder, const char *path, int flags, mode_t rights)
{
    return Disk::instance().open(path, flags, [=] { return real(folder, path, flags, rights); });
}

} // namespace

// The C library's own names for the parameters tell nothing.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)

extern "C" {

int open(const char *path, int flags, ...)
{
    static auto *const real = libraryCall<Open>("open");
    va_list rest;
    va_start(rest, flags);
    const mode_t rights = rightsOf(flags, rest);
    va_end(rest);
    return openBy(real, path, flags, rights);
}

int open64(const char *path, int flags, ...)
{
    static auto *const real = libraryCall<Open>("open64");
    va_list rest;
    va_start(rest, flags);
    const mode_t rights = rightsOf(flags, rest);
    va_end(rest);
    return openBy(real, path, flags, rights);
}

int openat(int folder, const char *path, int flags, ...)
{
    static auto *const real = libraryCall<OpenAt>("openat");
    va_list rest;
    va_start(rest, flags);
    const mode_t rights = rightsOf(flags, rest);
    va_end(rest);
    return openAtBy(real, folder, path, flags, rights);
}

int openat64(int folder, const char *path, int flags, ...)
{
    static auto *const real = libraryCall<OpenAt>("openat64");
    va_list rest;
    va_start(rest, flags);
    const mode_t rights = rightsOf(flags, rest);
    va_end(rest);
    return openAtBy(real, folder, path, flags, rights);
}

int close(int descriptor)
{
    static auto *const real = libraryCall<int(int)>("close");
    Disk::instance().close(descriptor);
    return real(descriptor);
}

ssize_t write(int descriptor, const void *bytes, size_t count)
{
    static auto *const real = libraryCall<ssize_t(int, const void *, size_t)>("write");
    return Disk::instance().write(
        descriptor, bytes, count, -1, [=](size_t part) { return real(descriptor, bytes, part); });
}

ssize_t pwrite(int descriptor, const void *bytes, size_t count, off_t offset)
{
    static auto *const real = libraryCall<ssize_t(int, const void *, size_t, off_t)>("pwrite");
    return Disk::instance().write(
        descriptor, bytes, count, offset, [=](size_t part) { return real(descriptor, bytes, part, offset); });
}

ssize_t pwrite64(int descriptor, const void *bytes, size_t count, off64_t offset)
{
    static auto *const real = libraryCall<ssize_t(int, const void *, size_t, off64_t)>("pwrite64");
    return Disk::instance().write(
        descriptor, bytes, count, offset, [=](size_t part) { return real(descriptor, bytes, part, offset); });
}

int fsync(int descriptor)
{
    static auto *const real = libraryCall<int(int)>("fsync");
    return Disk::instance().sync(descriptor, [=] { return real(descriptor); });
}

int fdatasync(int descriptor)
{
    static auto *const real = libraryCall<int(int)>("fdatasync");
    return Disk::instance().sync(descriptor, [=] { return real(descriptor); });
}

int ftruncate(int descriptor, off_t size) noexcept
{
    static auto *const real = libraryCall<int(int, off_t)>("ftruncate");
    return Disk::instance().truncate(descriptor, size, [=] { return real(descriptor, size); });
}

int ftruncate64(int descriptor, off64_t size) noexcept
{
    static auto *const real = libraryCall<int(int, off64_t)>("ftruncate64");
    return Disk::instance().truncate(descriptor, size, [=] { return real(descriptor, size); });
}

int rename(const char *from, const char *to) noexcept
{
    static auto *const real = libraryCall<int(const char *, const char *)>("rename");
    return Disk::instance().rename(from, to, [=] { return real(from, to); });
}

int renameat(int fromFolder, const char *from, int toFolder, const char *to) noexcept
{
    static auto *const real = libraryCall<int(int, const char *, int, const char *)>("renameat");
    return Disk::instance().rename(from, to, [=] { return real(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned int flags) noexcept
{
    static auto *const real = libraryCall<int(int, const char *, int, const char *, unsigned int)>("renameat2");
    return Disk::instance().rename(from, to, [=] { return real(fromFolder, from, toFolder, to, flags); });
}

int unlink(const char *path) noexcept
{
    static auto *const real = libraryCall<int(const char *)>("unlink");
    return Disk::instance().remove(path, [=] { return real(path); });
}

int unlinkat(int folder, const char *path, int flags) noexcept
{
    static auto *const real = libraryCall<int(int, const char *, int)>("unlinkat");
    return Disk::instance().remove(path, [=] { return real(folder, path, flags); });
}

int remove(const char *path) noexcept
{
    static auto *const real = libraryCall<int(const char *)>("remove");
    return Disk::instance().remove(path, [=] { return real(path); });
}

int rmdir(const char *path) noexcept
{
    static auto *const real = libraryCall<int(const char *)>("rmdir");
    return Disk::instance().remove(path, [=] { return real(path); });
}

int mkdir(const char *path, mode_t rights) noexcept
{
    static auto *const real = libraryCall<int(const char *, mode_t)>("mkdir");
    return Disk::instance().makeFolder(path, [=] { return real(path, rights); });
}

// Copies that the system makes by itself, and second names, are refused in the folder, as some file systems do: who
// asks for them goes on with reads, writes and renames, which are seen.

ssize_t sendfile(int to, int from, off_t *offset, size_t count) noexcept
{
    static auto *const real = libraryCall<ssize_t(int, int, off_t *, size_t)>("sendfile");
    if (!Disk::instance().isWatched(to))
        return real(to, from, offset, count);
    errno = EINVAL;
    return -1;
}

ssize_t copy_file_range(int from, off64_t *fromOffset, int to, off64_t *toOffset, size_t count, unsigned int flags)
{
    static auto *const real =
        libraryCall<ssize_t(int, off64_t *, int, off64_t *, size_t, unsigned int)>("copy_file_range");
    if (!Disk::instance().isWatched(to))
        return real(from, fromOffset, to, toOffset, count, flags);
    errno = EXDEV;
    return -1;
}

int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    static auto *const real = libraryCall<int(int, unsigned long, ...)>("ioctl");
    va_list rest;
    va_start(rest, request);
    void *argument = va_arg(rest, void *);
    va_end(rest);
    if (!Disk::instance().isWatched(descriptor))
        return real(descriptor, request, argument);
    errno = ENOTTY;
    return -1;
}

int link(const char *from, const char *to) noexcept
{
    static auto *const real = libraryCall<int(const char *, const char *)>("link");
    if (!Disk::instance().isBelow(to))
        return real(from, to);
    errno = EPERM;
    return -1;
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    static auto *const real = libraryCall<int(int, const char *, int, const char *, int)>("linkat");
    if (!Disk::instance().isBelow(to))
        return real(fromFolder, from, toFolder, to, flags);
    errno = EPERM;
    return -1;
}
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
