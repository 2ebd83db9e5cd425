// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Limits by the system's own means.
#include "Confinement.h"

#include <sys/resource.h>

namespace {

constexpr rlim_t kMemory = rlim_t{2} << 30; // bytes of address space
constexpr rlim_t kSeconds = 120;

// The sanitizers reserve terabytes of address space that they never use.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

bool limit(decltype(RLIMIT_AS) resource, rlim_t most)
{
    const rlimit value{most, most};
    return setrlimit(resource, &value) == 0;
}

} // namespace

bool confine()
{
    const bool memory = kSanitized || limit(RLIMIT_AS, kMemory);
    // No more descriptors than there are: no file, no socket.
    return memory && limit(RLIMIT_CPU, kSeconds) && limit(RLIMIT_CORE, 0) && limit(RLIMIT_NOFILE, 0);
}
