// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A library that is loaded before all others (LD_PRELOAD) and lets one call of a run go wrong: one allocation, or one
// call that changes what is on the disk. faults.py counts the calls of a run and then repeats it with each of them
// failing. The environment says what happens:
//
//   FAULT_KIND  memory  the call returns no memory
//               error   the call fails with FAULT_ERROR, a number of errno.h
//               kill    the process is killed before the call
//               full    this call to write and all later ones fail, as on a disk that is full from then on
//               stop    the process gets SIGTERM before the call, and the call is made
//   FAULT_AT    which call, counted from 1; 0: none, calls are only counted
//   FAULT_SIZE  allocations of fewer bytes are not counted
//   FAULT_LOG   the file that says what happened: "count N" at the end of the run, "fault CALLER CALL" at the fault
//
// No function here allocates, and the log is written by plain system calls: both would be counted.
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

// The C library's own names of what is replaced here.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

enum class Kind
{
    NONE,
    MEMORY,
    ERROR,
    KILL,
    FULL,
    STOP
};

struct Plan
{
    Kind kind = Kind::NONE;
    long at = 0;
    std::size_t size = 0;
    int error = EIO;
    const char* log = nullptr;
};

Plan plan;
std::atomic<long> calls = 0;
thread_local bool isInside = false;

Kind kindNamed(const char* name)
{
    if (!name)
        return Kind::NONE;
    if (std::strcmp(name, "memory") == 0)
        return Kind::MEMORY;
    if (std::strcmp(name, "error") == 0)
        return Kind::ERROR;
    if (std::strcmp(name, "kill") == 0)
        return Kind::KILL;
    if (std::strcmp(name, "full") == 0)
        return Kind::FULL;
    return std::strcmp(name, "stop") == 0 ? Kind::STOP : Kind::NONE;
}

void writeLog(const char* text)
{
    if (!plan.log)
        return;
    const long file = ::syscall(SYS_openat, AT_FDCWD, plan.log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    ::syscall(SYS_write, file, text, std::strlen(text));
    ::syscall(SYS_close, file);
}

bool isRuntime(const char* library)
{
    for (const char* name : {"libvallorin_faults", "libstdc++", "libc.so", "libgcc_s", "libc-"})
        if (std::strstr(library, name))
            return true;
    return false;
}

// The library whose code asked: the innermost one that is not the language's own.
const char* caller()
{
    void* frames[32];
    const int count = ::backtrace(frames, 32);
    for (int i = 0; i < count; ++i) {
        Dl_info info = {};
        if (::dladdr(frames[i], &info) == 0 || !info.dli_fname || isRuntime(info.dli_fname))
            continue;
        const char* const name = std::strrchr(info.dli_fname, '/');
        return name ? name + 1 : info.dli_fname;
    }
    return "unknown";
}

void logFault(const char* call)
{
    char line[512];
    std::snprintf(line, sizeof line, "fault %s %s\n", caller(), call);
    writeLog(line);
}

// Whether this allocation fails.
bool failsAllocation(std::size_t size, const char* call)
{
    if (plan.kind != Kind::MEMORY || size < plan.size || isInside)
        return false;
    if (++calls != plan.at)
        return false;
    isInside = true;
    logFault(call);
    isInside = false;
    return true;
}

// Whether there is no space for what this call writes; errno is set then.
bool isFull(const char* call)
{
    if (isInside || std::strcmp(call, "write") != 0)
        return false;
    const long number = ++calls;
    if (plan.at == 0 || number < plan.at)
        return false;
    if (number == plan.at)
        logFault(call);
    errno = ENOSPC;
    return true;
}

// Whether this call fails; errno is set then.
bool failsCall(const char* call)
{
    if (plan.kind == Kind::FULL)
        return isFull(call);
    if (plan.kind == Kind::NONE || plan.kind == Kind::MEMORY || isInside || ++calls != plan.at)
        return false;
    isInside = true;
    logFault(call);
    isInside = false;
    if (plan.kind == Kind::KILL)
        ::kill(::getpid(), SIGKILL);
    if (plan.kind == Kind::STOP)
        ::raise(SIGTERM);
    errno = plan.error;
    return plan.kind == Kind::ERROR;
}

// The next definition of a function: the C library's.
template<typename Function>
Function* next(const char* name)
{
    isInside = true;
    void* const found = ::dlsym(RTLD_NEXT, name);
    isInside = false;
    return reinterpret_cast<Function*>(found);
}

bool changesFiles(int flags)
{
    return (flags & (O_WRONLY | O_RDWR | O_CREAT | O_TRUNC)) != 0;
}

// What goes to the terminal or into a pipe is no file of ours.
bool isOnDisk(int file)
{
    struct stat status = {};
    return ::syscall(SYS_fstat, file, &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

struct Session
{
    Session()
    {
        void* frame[1];
        isInside = true;
        // The first call loads a library.
        ::backtrace(frame, 1);
        isInside = false;
        const auto number = [](const char* name) {
            const char* const text = std::getenv(name);
            return text ? std::strtol(text, nullptr, 10) : 0;
        };
        plan.at = number("FAULT_AT");
        plan.size = static_cast<std::size_t>(number("FAULT_SIZE"));
        plan.error = number("FAULT_ERROR") != 0 ? static_cast<int>(number("FAULT_ERROR")) : EIO;
        plan.log = std::getenv("FAULT_LOG");
        plan.kind = kindNamed(std::getenv("FAULT_KIND"));
    }
    ~Session()
    {
        char line[64];
        std::snprintf(line, sizeof line, "count %ld\n", calls.load());
        writeLog(line);
    }
};

const Session session;

} // namespace

extern "C" {

void* malloc(std::size_t size)
{
    if (failsAllocation(size, "malloc")) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    if (size != 0 && count <= SIZE_MAX / size && failsAllocation(count * size, "calloc")) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    if (failsAllocation(size, "realloc")) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(memory, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    if (failsAllocation(size, "aligned_alloc")) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_memalign(alignment, size);
}

// Memory for pixels comes from the system itself.
void* mmap(void* at, std::size_t size, int protection, int flags, int file, off_t offset)
{
    if ((flags & MAP_ANONYMOUS) != 0 && failsAllocation(size, "mmap")) {
        errno = ENOMEM;
        return MAP_FAILED;
    }
    return reinterpret_cast<void*>(::syscall(SYS_mmap, at, size, protection, flags, file, offset));
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    if (failsAllocation(size, "posix_memalign"))
        return ENOMEM;
    *memory = __libc_memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}

int open(const char* path, int flags, ...)
{
    va_list words;
    va_start(words, flags);
    const mode_t mode = va_arg(words, mode_t);
    va_end(words);
    if (changesFiles(flags) && failsCall("open"))
        return -1;
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int open64(const char* path, int flags, ...)
{
    va_list words;
    va_start(words, flags);
    const mode_t mode = va_arg(words, mode_t);
    va_end(words);
    if (changesFiles(flags) && failsCall("open"))
        return -1;
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...)
{
    va_list words;
    va_start(words, flags);
    const mode_t mode = va_arg(words, mode_t);
    va_end(words);
    if (changesFiles(flags) && failsCall("openat"))
        return -1;
    return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

int openat64(int folder, const char* path, int flags, ...)
{
    va_list words;
    va_start(words, flags);
    const mode_t mode = va_arg(words, mode_t);
    va_end(words);
    if (changesFiles(flags) && failsCall("openat"))
        return -1;
    return static_cast<int>(::syscall(SYS_openat, folder, path, flags, mode));
}

ssize_t write(int file, const void* bytes, std::size_t count)
{
    if (isOnDisk(file) && failsCall("write"))
        return -1;
    return ::syscall(SYS_write, file, bytes, count);
}

#define VALLORIN_FAULT(name, parameters, arguments)                                                                    \
    int name parameters                                                                                                \
    {                                                                                                                  \
        static int(*const original) parameters = next<int parameters>(#name);                                          \
        return failsCall(#name) ? -1 : original arguments;                                                             \
    }

VALLORIN_FAULT(rename, (const char* from, const char* to), (from, to))
VALLORIN_FAULT(renameat, (int fromFolder, const char* from, int toFolder, const char* to),
               (fromFolder, from, toFolder, to))
VALLORIN_FAULT(renameat2, (int fromFolder, const char* from, int toFolder, const char* to, unsigned flags),
               (fromFolder, from, toFolder, to, flags))
VALLORIN_FAULT(link, (const char* from, const char* to), (from, to))
VALLORIN_FAULT(linkat, (int fromFolder, const char* from, int toFolder, const char* to, int flags),
               (fromFolder, from, toFolder, to, flags))
VALLORIN_FAULT(unlink, (const char* path), (path))
VALLORIN_FAULT(unlinkat, (int folder, const char* path, int flags), (folder, path, flags))
VALLORIN_FAULT(mkdir, (const char* path, mode_t mode), (path, mode))
VALLORIN_FAULT(mkdirat, (int folder, const char* path, mode_t mode), (folder, path, mode))
VALLORIN_FAULT(rmdir, (const char* path), (path))
VALLORIN_FAULT(fsync, (int file), (file))
VALLORIN_FAULT(fdatasync, (int file), (file))
VALLORIN_FAULT(syncfs, (int file), (file))
VALLORIN_FAULT(ftruncate, (int file, off_t length), (file, length))
VALLORIN_FAULT(ftruncate64, (int file, off64_t length), (file, length))
VALLORIN_FAULT(fchmod, (int file, mode_t mode), (file, mode))
}
