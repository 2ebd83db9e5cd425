// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Uses the system's own limits. The filter lists the allowed calls, so that new calls of later systems are refused too.
#include "Confinement.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>

#ifdef VALLORIN_SECCOMP
#include "CallFilter.h"
#endif

namespace {

constexpr rlim_t kMemory = rlim_t{2} << 30; // bytes of address space
constexpr rlim_t kSeconds = 120;

// The sanitizers reserve terabytes of address space without using them.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

// A stricter limit, such as a scheduler's, stays: nobody may raise it.
bool limit(decltype(RLIMIT_AS) resource, rlim_t most)
{
    rlimit value{};
    if (getrlimit(resource, &value) != 0)
        return false;
    value.rlim_max = std::min(value.rlim_max, most);
    value.rlim_cur = std::min(value.rlim_cur, value.rlim_max);
    return setrlimit(resource, &value) == 0;
}

// The parent process may have left descriptors open for this one.
void closeDescriptors()
{
    ::close(STDIN_FILENO);
    const long most = ::sysconf(_SC_OPEN_MAX);
#ifdef __linux__
    if (::close_range(STDERR_FILENO + 1, ~0U, 0) == 0)
        return;
#endif
    for (int descriptor = STDERR_FILENO + 1; descriptor < most; ++descriptor)
        ::close(descriptor);
}

} // namespace

bool confine()
{
    closeDescriptors();
    const bool memory = kSanitized || limit(RLIMIT_AS, kMemory);
    // Allows no further descriptors: no file, no socket.
    if (!memory || !limit(RLIMIT_CPU, kSeconds) || !limit(RLIMIT_CORE, 0) || !limit(RLIMIT_NOFILE, 0))
        return false;
#ifdef VALLORIN_SECCOMP
    return filterCalls();
#else
    return true;
#endif
}

bool confinementFiltersCalls()
{
#ifdef VALLORIN_SECCOMP
    return true;
#else
    return false;
#endif
}
