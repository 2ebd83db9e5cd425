// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Memory for rows of samples. It is kept between bands and between blurs, because allocating it costs more than a band
// does.
#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace BlurAlgo {

/// Memory for samples that grows and never shrinks, aligned to vectors and cache lines.
class SampleMemory
{
public:
    /// Room for this many samples; earlier contents may be lost.
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
    /// The largest alignment that vectors and cache lines need.
    static constexpr std::align_val_t kAlignment{128};

    struct Deleter
    {
        void operator()(float* samples) const { ::operator delete(samples, kAlignment); }
    };

    std::unique_ptr<float[], Deleter> _samples;
    std::size_t _capacity = 0;
};

/// One thread's memory, kept between bands: rows are handed out from the front and taken back all at once.
class RowMemory
{
public:
    /// Samples of a cache line; every row begins at the start of one.
    static constexpr std::size_t kLine = 16;

    /// Takes everything back and makes room for this many rows of this many samples.
    void reset(std::size_t rows, std::size_t samples);
    /// One uninitialised row of at least the size given to reset().
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
