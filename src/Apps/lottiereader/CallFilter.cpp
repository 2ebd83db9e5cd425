// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// libseccomp, which knows the calls' numbers on every processor, makes the filter. It also forbids new privileges (a
// program that runs as another user), and ends the process at a call in another processor's convention.
#include "CallFilter.h"

#include <seccomp.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <initializer_list>

namespace {

// Builds the filter.
class Filter
{
public:
    Filter() : _context(seccomp_init(SCMP_ACT_ERRNO(EPERM))) {}
    ~Filter()
    {
        if (_context)
            seccomp_release(_context);
    }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    /// @param conditions on the call's arguments, all of which must hold
    void allow(int call, std::initializer_list<scmp_arg_cmp> conditions = {})
    {
        _whole = _whole && _context &&
                 seccomp_rule_add_array(_context, SCMP_ACT_ALLOW, call, static_cast<unsigned>(conditions.size()),
                                        conditions.begin()) == 0;
    }

    bool load() { return _whole && seccomp_load(_context) == 0; }

private:
    scmp_filter_ctx _context;
    bool _whole = true;
};

scmp_arg_cmp argumentIs(unsigned index, scmp_datum_t value)
{
    return {index, SCMP_CMP_EQ, value, 0};
}

scmp_arg_cmp argumentHasNot(unsigned index, scmp_datum_t bits)
{
    return {index, SCMP_CMP_MASKED_EQ, bits, 0};
}

void allowWriting(Filter& filter)
{
    for (const scmp_datum_t descriptor : {STDOUT_FILENO, STDERR_FILENO}) {
        filter.allow(SCMP_SYS(write), {argumentIs(0, descriptor)});
        filter.allow(SCMP_SYS(writev), {argumentIs(0, descriptor)});
        filter.allow(SCMP_SYS(close), {argumentIs(0, descriptor)});
    }
}

void allowMemory(Filter& filter)
{
    constexpr unsigned kProtection = 2;
    filter.allow(SCMP_SYS(mmap), {argumentHasNot(kProtection, PROT_EXEC)});
#ifdef __NR_mmap2
    filter.allow(SCMP_SYS(mmap2), {argumentHasNot(kProtection, PROT_EXEC)});
#endif
    filter.allow(SCMP_SYS(mprotect), {argumentHasNot(kProtection, PROT_EXEC)});
    for (const int call : {SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise)})
        filter.allow(call);
}

void allowEnding(Filter& filter)
{
    for (const int call : {SCMP_SYS(exit), SCMP_SYS(exit_group), SCMP_SYS(rt_sigreturn), SCMP_SYS(rt_sigaction),
                           SCMP_SYS(rt_sigprocmask), SCMP_SYS(sigaltstack)})
        filter.allow(call);
    // abort() needs this call.
    filter.allow(SCMP_SYS(tgkill), {argumentIs(0, static_cast<scmp_datum_t>(::getpid()))});
}

void allowAsking(Filter& filter)
{
    for (const int call : {SCMP_SYS(getpid), SCMP_SYS(gettid), SCMP_SYS(clock_gettime), SCMP_SYS(gettimeofday),
                           SCMP_SYS(getrandom), SCMP_SYS(sched_yield), SCMP_SYS(futex), SCMP_SYS(restart_syscall),
                           SCMP_SYS(clock_nanosleep), SCMP_SYS(nanosleep)})
        filter.allow(call);
}

} // namespace

bool filterCalls()
{
    Filter filter;
    allowWriting(filter);
    allowMemory(filter);
    allowEnding(filter);
    allowAsking(filter);
    return filter.load();
}
