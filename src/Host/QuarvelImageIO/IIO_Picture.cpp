// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Samples are left uninitialised on purpose: clearing a large picture that is completely overwritten right afterwards
// would cost one more pass over its memory.
#include "QuarvelImageIO/IIO_Picture.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

UT_Error tooLarge(const Math::Box2di& window)
{
    return UT_noMemory(QStringLiteral("a picture of %1 x %2 pixels").arg(window.width()).arg(window.height()),
                       QStringLiteral("make it smaller"));
}

} // namespace

QStringList IIO_channelsRgba()
{
    return {QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B"), QStringLiteral("A")};
}

QStringList IIO_channelsRgb()
{
    return {QStringLiteral("R"), QStringLiteral("G"), QStringLiteral("B")};
}

QStringList IIO_channelsGreyAlpha()
{
    return {QStringLiteral("Y"), QStringLiteral("A")};
}

QStringList IIO_channelsGrey()
{
    return {QStringLiteral("Y")};
}

// Null if there is not enough memory.
template<typename Sample>
IIO_Picture::Samples<Sample> IIO_Picture::allocate(std::size_t count)
{
    const std::size_t bytes = count * sizeof(Sample);
    try {
        return {static_cast<Sample*>(UT_PixelMemory::take(bytes)), Deleter{bytes}};
    } catch (const std::bad_alloc&) {
        return {};
    }
}

UT_Result<IIO_Picture> IIO_Picture::create(IIO_SampleType type, const Math::Box2di& displayWindow,
                                           const Math::Box2di& dataWindow, const QStringList& channels)
{
    assert(!channels.isEmpty());
    if (displayWindow.isEmpty() || dataWindow.isEmpty())
        return UT_Error{
            QStringLiteral("a picture needs at least one pixel; give it a width and a height of 1 or more")};

    // Refuses more samples than the largest array can hold, before the product can overflow.
    constexpr std::int64_t kMostSamples = std::numeric_limits<std::ptrdiff_t>::max() / std::int64_t{sizeof(float)};
    if (dataWindow.area() > kMostSamples / channels.size())
        return tooLarge(dataWindow);
    const auto count = static_cast<std::size_t>(dataWindow.area() * channels.size());

    IIO_Picture picture;
    picture._displayWindow = displayWindow;
    picture._dataWindow = dataWindow;
    picture._channels = channels;
    if (type == IIO_SampleType::UINT16)
        picture._samples = allocate<std::uint16_t>(count);
    else
        picture._samples = allocate<float>(count);
    if (!std::visit([](const auto& samples) { return static_cast<bool>(samples); }, picture._samples))
        return tooLarge(dataWindow);
    return picture;
}

UT_Result<IIO_Picture> IIO_Picture::create(IIO_SampleType type, const Math::Size2di& size, const QStringList& channels)
{
    const Math::Box2di window(0, 0, size.width, size.height);
    return create(type, window, window, channels);
}

UT_Result<IIO_Picture> IIO_Picture::clone() const
{
    auto copy = create(sampleType(), _displayWindow, _dataWindow, _channels);
    if (!copy)
        return copy;
    copy->_metadata = _metadata;
    std::visit(
        [&](const auto& samples) {
            using Array = std::decay_t<decltype(samples)>;
            std::copy_n(samples.get(), rowLength() * static_cast<std::size_t>(height()),
                        std::get<Array>(copy->_samples).get());
        },
        _samples);
    return copy;
}
