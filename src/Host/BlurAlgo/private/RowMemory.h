// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Memory for rows of samples, kept between the bands and the blurs that use it: taking it anew would cost more than a
// band does.
#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace BlurAlgo {

/// Samples in memory that only grows. It begins where vectors and cache lines do.
class SampleMemory
{
public:
    /// Room for so many samples; what it held may be lost.
    float* room(std::size_t samples)
    {
        if (samples > _capacity) {
            _samples.reset();
            _samples.reset(static_cast<float*>(::operator new(samples * sizeof(float), kAlignment)));
            _capacity = samples;
        }
        return _samples.get();
    }

private:
    /// The longest vectors and cache lines that there are.
    static constexpr std::align_val_t kAlignment{128};

    struct Deleter
    {
        void operator()(float* samples) const { ::operator delete(samples, kAlignment); }
    };

    std::unique_ptr<float[], Deleter> _samples;
    std::size_t _capacity = 0;
};

/// Memory of one thread, kept between bands: handed out from the front, all taken back at once.
class RowMemory
{
public:
    /// Samples of a cache line, at whose beginning every row begins.
    static constexpr std::size_t kLine = 16;

    /// Takes everything back and makes room for this many rows of this many samples.
    void reset(std::size_t rows, std::size_t samples);
    /// One row of at least the size that was announced. It holds anything.
    float* take();
    /// One row of zeros.
    float* takeZeros();

private:
    SampleMemory _memory;
    float* _next = nullptr;
    std::size_t _stride = 0;
};

/// Memory for two steps at once.
struct BandMemory
{
    RowMemory outer;
    RowMemory inner;
};

} // namespace BlurAlgo
