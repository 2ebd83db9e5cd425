// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blurs that keep their memory between calls. Allocating it for every call costs more than the blur of a large picture
// itself, so finished blurs go back to a small pool, from which each call borrows one.
#pragma once

#include "BlurAlgo/BA_GaussianBlur.h"

namespace BlurAlgo {

/// A blur borrowed from the process's pool for as long as this object lives. Safe from any thread.
class BorrowedBlur
{
public:
    BorrowedBlur(double sigmaX, double sigmaY);
    BorrowedBlur(const BorrowedBlur&) = delete;
    BorrowedBlur& operator=(const BorrowedBlur&) = delete;
    ~BorrowedBlur();

    BA_GaussianBlur& operator*() { return _blur; }
    BA_GaussianBlur* operator->() { return &_blur; }

private:
    BA_GaussianBlur _blur;
};

} // namespace BlurAlgo
