// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// IIO_Picture: a picture for writing to or reading from a file. Its samples lie interleaved, row by row without gaps,
// and are all of one type. It has two windows, half-open rectangles with x right and y down: the display window is the
// visible frame, the data window holds the pixels that exist. They are the same for most pictures; a picture with
// pixels outside the frame has a larger data window.
//
// Colours are straight (not multiplied by coverage), as PNG files hold them, so that writing does not change any value.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/Math_Size2di.h"
#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/IIO_Metadata.h"

#include <QStringList>

#include <cassert>
#include <cstdint>
#include <memory>
#include <span>
#include <variant>

/// The types of a picture's samples.
enum class IIO_SampleType
{
    UINT16, ///< 0 .. 65535 stands for 0.0 .. 1.0
    FLOAT   ///< 32-bit float, any value
};

/// The names of the usual channels, in the usual order: R G B A, R G B, Y A (grey and coverage), Y.
QUARVELIMAGEIO_EXPORT QStringList IIO_channelsRgba();
QUARVELIMAGEIO_EXPORT QStringList IIO_channelsRgb();
QUARVELIMAGEIO_EXPORT QStringList IIO_channelsGreyAlpha();
QUARVELIMAGEIO_EXPORT QStringList IIO_channelsGrey();

/// A picture with its metadata. It can be moved; only clone() copies it.
///
/// Any number of threads may read a picture at once, or write disjoint rows of it.
class QUARVELIMAGEIO_EXPORT IIO_Picture
{
public:
    /// Makes a picture whose samples are uninitialised: the caller must write all of them.
    ///
    /// @param displayWindow the frame; not empty
    /// @param dataWindow the stored pixels; not empty
    /// @param channels      one name per channel, at least one, without repetition
    /// @return an error if a window is empty or the samples do not fit in memory
    static UT_Result<IIO_Picture> create(IIO_SampleType type, const Math::Box2di& displayWindow,
                                         const Math::Box2di& dataWindow, const QStringList& channels);

    /// The same, with both windows at the origin.
    static UT_Result<IIO_Picture> create(IIO_SampleType type, const Math::Size2di& size, const QStringList& channels);

    IIO_Picture(IIO_Picture&&) = default;
    IIO_Picture& operator=(IIO_Picture&&) = default;
    IIO_Picture(const IIO_Picture&) = delete;
    IIO_Picture& operator=(const IIO_Picture&) = delete;
    ~IIO_Picture() = default;

    /// Makes a copy, or returns an error if it does not fit in memory.
    UT_Result<IIO_Picture> clone() const;

    IIO_SampleType sampleType() const { return _samples.index() == 0 ? IIO_SampleType::UINT16 : IIO_SampleType::FLOAT; }
    const Math::Box2di& displayWindow() const { return _displayWindow; }
    const Math::Box2di& dataWindow() const { return _dataWindow; }
    const QStringList& channels() const { return _channels; }
    int channelCount() const { return static_cast<int>(_channels.size()); }

    /// Width and height of the data window in pixels.
    int width() const { return _dataWindow.width(); }
    int height() const { return _dataWindow.height(); }

    /// The width() * channelCount() samples of row y (dataWindow().y1 .. y2 - 1), channels side by side.
    ///
    /// @tparam Sample std::uint16_t or float, as sampleType() says
    template<typename Sample>
    std::span<Sample> row(int y)
    {
        return {std::get<Samples<Sample>>(_samples).get() + rowOffset(y), rowLength()};
    }
    template<typename Sample>
    std::span<const Sample> row(int y) const
    {
        return {std::get<Samples<Sample>>(_samples).get() + rowOffset(y), rowLength()};
    }

    IIO_Metadata& metadata() { return _metadata; }
    const IIO_Metadata& metadata() const { return _metadata; }

private:
    /// Returns the samples to UT_PixelMemory, which keeps large blocks for the next picture.
    struct Deleter
    {
        void operator()(void* samples) const { UT_PixelMemory::give(samples, bytes); }
        std::size_t bytes;
    };
    template<typename Sample>
    using Samples = std::unique_ptr<Sample[], Deleter>;

    IIO_Picture() = default;

    template<typename Sample>
    static Samples<Sample> allocate(std::size_t count);

    std::size_t rowLength() const
    {
        return static_cast<std::size_t>(width()) * static_cast<std::size_t>(channelCount());
    }
    std::size_t rowOffset(int y) const
    {
        assert(y >= _dataWindow.y1 && y < _dataWindow.y2);
        return static_cast<std::size_t>(y - _dataWindow.y1) * rowLength();
    }

    Math::Box2di _displayWindow;
    Math::Box2di _dataWindow;
    QStringList _channels;
    std::variant<Samples<std::uint16_t>, Samples<float>> _samples;
    IIO_Metadata _metadata;
};
