// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Channels of pixmaps as planes of floats: sources that read one, sinks that write one. Written once for both colour
// formats; a depth pixmap is a plane itself.
#pragma once

#include "BlurAlgo/BA_GaussianBlur.h"
#include "BlurAlgo/private/RowKernels.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <span>

namespace BlurAlgo {

template<typename Pixel>
using Channel = typename CEL_PixelTraits<Pixel>::Channel;

/// Reads one channel of a pixmap, in the channel's own scale.
template<typename Pixel>
class ChannelSource final : public BA_RowSource
{
public:
    ChannelSource(const CEL_PixmapOf<Pixel>& pixmap, Channel<Pixel> Pixel::*channel)
        : _pixmap(pixmap), _channel(channel)
    {}

    const float* row(int y, float* buffer) const override
    {
        const std::span<const Pixel> pixels = _pixmap.row(y);
        if (_channel == &Pixel::r) {
            RowKernels::loadRed(&pixels.data()->r, buffer, static_cast<int>(pixels.size()));
            return buffer;
        }
        for (std::size_t x = 0; x < pixels.size(); ++x)
            buffer[x] = static_cast<float>(pixels[x].*_channel);
        return buffer;
    }

private:
    const CEL_PixmapOf<Pixel>& _pixmap;
    Channel<Pixel> Pixel::*_channel;
};

/// Writes one channel of a pixmap and leaves the others unchanged.
template<typename Pixel>
class ChannelSink final : public BA_RowSink
{
public:
    ChannelSink(CEL_PixmapOf<Pixel>& pixmap, Channel<Pixel> Pixel::*channel, float gain)
        : _pixmap(pixmap), _channel(channel), _gain(gain)
    {}

    float* begin(int, float* buffer) override { return buffer; }

    void end(int y, const float* row) override
    {
        const std::span<Pixel> pixels = _pixmap.row(y);
        for (std::size_t x = 0; x < pixels.size(); ++x)
            pixels[x].*_channel = CEL_PixelTraits<Pixel>::toChannel(row[x] * _gain);
    }

private:
    CEL_PixmapOf<Pixel>& _pixmap;
    Channel<Pixel> Pixel::*_channel;
    float _gain;
};

/// Writes whole pixels from their red: green and blue zero, alpha full where red is not zero.
template<typename Pixel>
class RedSink final : public BA_RowSink
{
public:
    RedSink(CEL_PixmapOf<Pixel>& pixmap, float gain) : _pixmap(pixmap), _gain(gain) {}

    float* begin(int, float* buffer) override { return buffer; }

    void end(int y, const float* row) override
    {
        const std::span<Pixel> pixels = _pixmap.row(y);
        RowKernels::storeRed(row, _gain, &pixels.data()->r, static_cast<int>(pixels.size()));
    }

private:
    CEL_PixmapOf<Pixel>& _pixmap;
    float _gain;
};

/// Reads the rows of a depth pixmap where they are: its pixel is one float.
class DepthSource final : public BA_RowSource
{
public:
    explicit DepthSource(const CEL_PixmapAreaZ& pixmap) : _pixmap(pixmap) {}

    const float* row(int y, float*) const override { return &_pixmap.row(y).data()->value; }

private:
    static_assert(sizeof(CEL_PixelFloat) == sizeof(float));
    const CEL_PixmapAreaZ& _pixmap;
};

/// Writes the rows of a depth pixmap.
class DepthSink final : public BA_RowSink
{
public:
    DepthSink(CEL_PixmapAreaZ& pixmap, float gain) : _pixmap(pixmap), _gain(gain) {}

    float* begin(int y, float*) override { return &_pixmap.row(y).data()->value; }

    void end(int y, const float*) override
    {
        if (_gain == 1.0F)
            return;
        for (CEL_PixelFloat& pixel : _pixmap.row(y))
            pixel.value *= _gain;
    }

private:
    CEL_PixmapAreaZ& _pixmap;
    float _gain;
};

} // namespace BlurAlgo
