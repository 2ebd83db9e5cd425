// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Conditions under which writing fails, for as long as the object lives: a disk with room for so many bytes and no
// more, and a user without rights.
#pragma once

#include <csignal>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

/// No file of this process can grow beyond the size; a write that would is cut short or fails.
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

/// The process is an ordinary user, also when the tests run as the superuser, whom no permission stops.
class OrdinaryUser
{
public:
    OrdinaryUser() : _superuser(geteuid() == 0)
    {
        // The superuser's number stays behind as the saved one, so that there is a way back.
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
