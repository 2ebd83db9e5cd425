// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pool: a few blurs behind a lock.
#include "BlurAlgo/private/BlurPool.h"

#include <mutex>
#include <utility>
#include <vector>

namespace BlurAlgo {

namespace {

/// As many frames as are usually rendered at once; further ones allocate their memory.
constexpr std::size_t kLargestPool = 4;

struct Pool
{
    std::mutex lock;
    std::vector<BA_GaussianBlur> idle;
};

Pool& pool()
{
    static Pool only;
    return only;
}

BA_GaussianBlur takeIdle()
{
    const std::lock_guard guard(pool().lock);
    std::vector<BA_GaussianBlur>& idle = pool().idle;
    if (idle.empty())
        return BA_GaussianBlur();
    BA_GaussianBlur blur = std::move(idle.back());
    idle.pop_back();
    return blur;
}

} // namespace

BorrowedBlur::BorrowedBlur(double sigmaX, double sigmaY) : _blur(takeIdle())
{
    _blur.setSigmas(sigmaX, sigmaY);
}

BorrowedBlur::~BorrowedBlur()
{
    const std::lock_guard guard(pool().lock);
    if (pool().idle.size() < kLargestPool)
        pool().idle.push_back(std::move(_blur));
}

} // namespace BlurAlgo
