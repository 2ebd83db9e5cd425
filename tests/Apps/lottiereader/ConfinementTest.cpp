// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From inside the confinement: everything that an attacker would want is tried and refused; what the reader needs still
// works. Each attempt runs in a process of its own, which confines itself first.
#include "Confinement.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int kRefused = 0;
constexpr int kNotConfined = 2;
constexpr int kDone = 3;
constexpr int kOtherError = 4;

// Runs something in a confined child. @return its exit code, or 128 + the signal that ended it
int confined(const std::function<int()>& run)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(confine() ? run() : kNotConfined);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// A call that must be refused.
struct Attempt
{
    const char* name;
    std::function<long()> call;
};

class Confinement : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!confinementFiltersCalls())
            GTEST_SKIP() << "built without the filter of calls";
        ASSERT_NE(::mkdtemp(folder.data()), nullptr);
        std::ofstream(file()) << "mine";
        ASSERT_EQ(::mkdir(inner().c_str(), 0700), 0);
    }
    void TearDown() override
    {
        ::unlink(file().c_str());
        ::rmdir(inner().c_str());
        ::rmdir(folder.c_str());
    }

    std::string file() const { return folder + "/file"; }
    std::string inner() const { return folder + "/inner"; }
    std::string fresh() const { return folder + "/new"; }

    void expectRefused(const std::vector<Attempt>& attempts) const
    {
        for (const Attempt& attempt : attempts)
            EXPECT_EQ(confined([&] {
                          errno = 0;
                          if (attempt.call() != -1)
                              return kDone;
                          return errno == EPERM ? kRefused : kOtherError;
                      }),
                      kRefused)
                << attempt.name;
    }

    std::string folder = testing::TempDir() + "confinement-XXXXXX";
};

} // namespace

// As a shell or a scheduler sets them; nobody may raise them.
TEST_F(Confinement, StricterLimitsAreNoHindrance)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit strict{60, 60};
        ::_exit(::setrlimit(RLIMIT_CPU, &strict) == 0 && confine() ? 0 : kNotConfined);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(Confinement, FilesAndFoldersAreOutOfReach)
{
    const std::string from = file();
    const std::string to = fresh();
    const std::string inside = inner();
    const char* const f = from.c_str();
    const char* const t = to.c_str();
    struct stat status = {};
    expectRefused({
        {"read", [&] { return ::open(f, O_RDONLY); }},
        {"write", [&] { return ::open(f, O_WRONLY); }},
        {"make", [&] { return ::open(t, O_WRONLY | O_CREAT, 0600); }},
#ifdef SYS_creat
        {"make by the old call", [&] { return ::syscall(SYS_creat, t, 0600); }},
#endif
        {"open with conditions", [&] { return ::syscall(SYS_openat2, AT_FDCWD, f, nullptr, 0); }},
        {"remove", [&] { return ::unlink(f); }},
        {"remove a folder", [&] { return ::rmdir(inside.c_str()); }},
        {"rename", [&] { return ::rename(f, t); }},
        {"rename at", [&] { return ::syscall(SYS_renameat2, AT_FDCWD, f, AT_FDCWD, t, 0); }},
        {"link", [&] { return ::link(f, t); }},
        {"symbolic link", [&] { return ::symlink(f, t); }},
        {"make a folder", [&] { return ::mkdir(t, 0700); }},
        {"make a pipe with a name", [&] { return ::mkfifo(t, 0600); }},
        {"change rights", [&] { return ::chmod(f, 0777); }},
        {"change the owner", [&] { return ::chown(f, 1, 1); }},
        {"cut", [&] { return ::truncate(f, 0); }},
        {"change times", [&] { return ::utimensat(AT_FDCWD, f, nullptr, 0); }},
        {"look at", [&] { return ::stat(f, &status); }},
        {"ask for access", [&] { return ::access(f, F_OK); }},
        {"go to a folder", [&] { return ::chdir(inside.c_str()); }},
        {"another root", [&] { return ::chroot(inside.c_str()); }},
        {"mount", [&] { return ::mount("none", inside.c_str(), "tmpfs", 0, nullptr); }},
        {"a file in memory", [] { return ::memfd_create("x", 0); }},
        {"many calls at once", [] { return ::syscall(SYS_io_uring_setup, 8, nullptr); }},
    });
    EXPECT_EQ(::access(file().c_str(), F_OK), 0);
    EXPECT_EQ(::access(fresh().c_str(), F_OK), -1);
}

TEST_F(Confinement, ProcessesCannotBeMade)
{
    const std::array<char*, 1> none = {nullptr};
    expectRefused({
#ifdef SYS_fork
        {"fork", [] { return ::syscall(SYS_fork); }},
        {"vfork", [] { return ::syscall(SYS_vfork); }},
#endif
        {"the library's fork", [] { return long{::fork()}; }},
        {"clone", [] { return ::syscall(SYS_clone, SIGCHLD, nullptr, nullptr, nullptr, nullptr); }},
        {"clone3", [] { return ::syscall(SYS_clone3, nullptr, 0); }},
        {"run a program", [&] { return ::execve("/bin/true", none.data(), none.data()); }},
        {"run a program at",
         [&] { return ::syscall(SYS_execveat, AT_FDCWD, "/bin/true", none.data(), none.data(), 0); }},
        {"leave the name spaces", [] { return ::unshare(CLONE_NEWUSER); }},
        {"code in memory",
         [] {
             return ::mmap(nullptr, 4096, PROT_READ | PROT_WRITE | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0) ==
                            MAP_FAILED
                        ? -1L
                        : 0L;
         }},
        {"data becomes code",
         [] {
             void* const page = ::mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
             return page == MAP_FAILED ? 0L : ::mprotect(page, 4096, PROT_READ | PROT_EXEC);
         }},
    });
}

TEST_F(Confinement, OtherProcessesAreOutOfReach)
{
    const pid_t parent = ::getpid();
    char byte = 0;
    iovec mine{&byte, 1};
    iovec theirs{&byte, 1};
    rlimit limit{1, 1};
    expectRefused({
        {"signal", [&] { return ::kill(parent, SIGCONT); }},
        {"ask by a signal", [&] { return ::kill(parent, 0); }},
        {"signal a thread", [&] { return ::syscall(SYS_tkill, parent, SIGCONT); }},
        {"signal a process's thread", [&] { return ::syscall(SYS_tgkill, parent, parent, SIGCONT); }},
        {"queue a signal", [&] { return ::syscall(SYS_rt_sigqueueinfo, parent, SIGCONT, nullptr); }},
        {"a handle of the process", [&] { return ::syscall(SYS_pidfd_open, parent, 0); }},
        {"trace", [&] { return ::ptrace(PTRACE_ATTACH, parent, nullptr, nullptr); }},
        {"be traced", [] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr); }},
        {"read memory", [&] { return ::process_vm_readv(parent, &mine, 1, &theirs, 1, 0); }},
        {"write memory", [&] { return ::process_vm_writev(parent, &mine, 1, &theirs, 1, 0); }},
        {"change limits", [&] { return ::prlimit(parent, RLIMIT_CORE, &limit, nullptr); }},
        {"change the priority", [&] { return ::setpriority(PRIO_PROCESS, static_cast<id_t>(parent), 19); }},
        {"become another user", [] { return ::setuid(65534); }},
        {"a control of the process", [] { return ::prctl(PR_SET_DUMPABLE, 1); }},
    });
}

TEST_F(Confinement, NothingCanBeReachedBesidesTheTwoOutputs)
{
    const int other = ::open(file().c_str(), O_RDWR);
    ASSERT_GE(other, 0);
    std::array<int, 2> ends = {};
    char byte = 0;
    expectRefused({
        {"socket", [] { return ::socket(AF_INET, SOCK_STREAM, 0); }},
        {"local socket", [] { return ::socket(AF_UNIX, SOCK_STREAM, 0); }},
        {"pipe", [&] { return ::pipe(ends.data()); }},
        {"second descriptor", [] { return ::dup(STDOUT_FILENO); }},
        {"terminal's input", [] { return ::syscall(SYS_ioctl, STDERR_FILENO, 0x5412 /* TIOCSTI */, "x"); }},
        {"read", [&] { return ::read(STDIN_FILENO, &byte, 1); }},
        {"write what the parent had open", [&] { return ::write(other, "x", 1); }},
        {"shared memory", [] { return ::syscall(SYS_shmget, 0, 4096, 0600 | 01000); }},
        {"keys", [] { return ::syscall(SYS_keyctl, 0, 0, 0, 0, 0); }},
        {"kernel programs", [] { return ::syscall(SYS_bpf, 0, nullptr, 0); }},
    });
    ::close(other);
}

TEST_F(Confinement, CallsOfAnotherKindEndTheProcessOrFail)
{
#ifdef __x86_64__
    // The numbers of the x32 convention, which has other numbers for the same calls.
    constexpr long kX32 = 0x40000000;
    const int outcome = confined([] { return ::syscall(kX32 + SYS_getpid) == -1 ? kRefused : kDone; });
    EXPECT_TRUE(outcome == kRefused || outcome == 128 + SIGSYS) << outcome;
#else
    GTEST_SKIP() << "this processor has one convention";
#endif
}

TEST_F(Confinement, WhatTheReaderNeedsGoesOn)
{
    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipe[1], STDOUT_FILENO);
        if (!confine())
            ::_exit(kNotConfined);
        std::vector<std::string> memory(1000, std::string(100000, 'x'));
        ::_exit(::write(STDOUT_FILENO, memory.back().data(), 5) == 5 ? 0 : 1);
    }
    ::close(pipe[1]);
    char bytes[16] = {};
    EXPECT_EQ(::read(pipe[0], bytes, sizeof bytes), 5);
    ::close(pipe[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(confined([]() -> int { std::abort(); }), 128 + SIGABRT);
}

// The program itself, blocked while it writes its frames, because nobody reads them.
TEST_F(Confinement, TheProgramIsConfinedWhileItReads)
{
    const std::string animation = file();
    std::ofstream(animation)
        << R"({"v":"5.5.0","fr":24,"ip":0,"op":9000,"w":100,"h":100,"ddd":0,"assets":[],"layers":[)"
        << R"({"ddd":0,"ty":4,"nm":"a","sr":1,"ks":{"o":{"a":0,"k":100},"r":{"a":0,"k":0},)"
        << R"("p":{"a":0,"k":[50,50,0]},"a":{"a":0,"k":[0,0,0]},"s":{"a":0,"k":[100,100,100]}},)"
        << R"("ao":0,"shapes":[],"ip":0,"op":9000,"st":0,"bm":0}]})";
    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipe[1], STDOUT_FILENO);
        ::dup2(::open(animation.c_str(), O_RDONLY), STDIN_FILENO);
        ::execl(LOTTIE_READER, "quarvel-lottie-reader", nullptr);
        ::_exit(127);
    }
    ::close(pipe[1]);
    // After the first byte it has read its file, and it cannot end before somebody reads the rest.
    char byte = 0;
    EXPECT_EQ(::read(pipe[0], &byte, 1), 1);
    std::ifstream status("/proc/" + std::to_string(child) + "/status");
    const std::string said((std::istreambuf_iterator<char>(status)), {});
    EXPECT_NE(said.find("NoNewPrivs:\t1"), std::string::npos) << said;
    EXPECT_NE(said.find("Seccomp:\t2"), std::string::npos) << said;
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(pipe[0]);
}
