// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Conditions under which writing fails, for the lifetime of an object: a disk with limited room, and a user without
// permissions.
#pragma once

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

/// Limits the size of this process's files; a write that would exceed it is partial or fails.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : _signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limit{bytes, _before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _signal);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit _before{};
    void (*_signal)(int);
};

/// Makes the process run as an ordinary user even if the tests run as the superuser, who may write everywhere.
class OrdinaryUser
{
public:
    OrdinaryUser() : _superuser(geteuid() == 0)
    {
        // The superuser's id is kept as the saved id, so that the destructor can restore it.
        constexpr uid_t kNobody = 65534;
        if (_superuser && setresuid(kNobody, kNobody, 0) != 0)
            std::abort();
    }
    ~OrdinaryUser()
    {
        if (_superuser && setresuid(0, 0, 0) != 0)
            std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    bool _superuser;
};
