// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_DeferredPixels: the promise of a pixmap's pixels. Where a picture is made of many inputs that are needed one
// after the other, their pixels would take the most memory of all if each were painted when it is delivered. A pixmap
// with deferred pixels knows its rectangle, and its pixels are made when somebody first reads or writes one.
#pragma once

#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelCelCore/QuarvelCelCoreExport.h"

#include <atomic>
#include <functional>
#include <mutex>

class CEL_PixmapArea;

/// Makes pixels once. Any thread may ask for them.
class QUARVELCELCORE_EXPORT CEL_DeferredPixels
{
public:
    /// Makes a pixmap of the same class with the pixels. It must not depend on anything that may change until then.
    using Make = std::function<UT_SharedPtr<CEL_PixmapArea>()>;
    using Take = std::function<void(CEL_PixmapArea& made)>;

    explicit CEL_DeferredPixels(Make make) : _make(std::move(make)) {}

    bool areMade() const { return _areMade.load(std::memory_order_acquire); }

    /// Makes the pixels unless they are made, and waits while another thread makes them. Parallel loops inside run
    /// isolated, so that a thread waiting in one never picks up work that asks for these same pixels.
    ///
    /// @param take receives what was made, once
    /// @throws what making throws; the next call tries again
    void make(const Take& take);

private:
    std::atomic<bool> _areMade = false;
    std::mutex _mutex;
    Make _make;
};
