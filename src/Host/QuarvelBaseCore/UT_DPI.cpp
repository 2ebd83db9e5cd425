// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The display's density: one number for the process.
#include "QuarvelBaseCore/UT_DPI.h"

#include <atomic>
#include <cmath>

namespace {
std::atomic<double> theFactor{1.0};
}

double UT_DPI_factor()
{
    return theFactor.load();
}

void UT_DPI_setFactor(double factor)
{
    theFactor.store(factor > 0.0 ? factor : 1.0);
}

int UT_DPI_scale(int length)
{
    return static_cast<int>(std::lround(length * UT_DPI_factor()));
}

QSize UT_DPI_scale(QSize size)
{
    return {UT_DPI_scale(size.width()), UT_DPI_scale(size.height())};
}
