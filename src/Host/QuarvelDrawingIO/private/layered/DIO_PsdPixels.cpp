// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/layered/DIO_PsdPixels.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <algorithm>

namespace {

using Bytes = std::span<const std::uint8_t>;
using Reader = DIO_ByteReader<DIO_ByteOrder::BIG>;

enum Packing
{
    NONE = 0,
    RUNS = 1,
    ZLIB = 2,
    DIFFERENCES = 3
};

// PackBits. False where the result has not exactly the length of the row.
bool unpackRuns(Bytes packed, std::span<std::uint8_t> row)
{
    Reader reader(packed);
    while (!row.empty()) {
        const int byte = reader.u8();
        const int head = byte < 128 ? byte : byte - 256;
        if (reader.hasFailed())
            return false;
        // -128 is a no-operation.
        if (head == -128)
            continue;
        const auto count = static_cast<std::size_t>(head < 0 ? 1 - head : head + 1);
        if (count > row.size())
            return false;
        if (head < 0)
            std::ranges::fill(row.first(count), reader.u8());
        else if (const Bytes bytes = reader.bytes(count); bytes.size() == count)
            std::ranges::copy(bytes, row.begin());
        if (reader.hasFailed())
            return false;
        row = row.subspan(count);
    }
    return true;
}

UT_Result<std::vector<std::uint8_t>> unpackRows(Bytes packed, std::size_t rowBytes, int height, bool isLarge)
{
    Reader reader(packed);
    std::vector<std::size_t> counts;
    for (int y = 0; y < height && !reader.hasFailed(); ++y)
        counts.push_back(isLarge ? reader.u32() : reader.u16());
    if (reader.hasFailed())
        return DIO_damaged();
    std::vector<std::uint8_t> bytes(rowBytes * static_cast<std::size_t>(height));
    std::span<std::uint8_t> rows = bytes;
    for (const std::size_t count : counts) {
        if (!unpackRuns(reader.bytes(count), rows.first(rowBytes)))
            return DIO_damaged();
        rows = rows.subspan(rowBytes);
    }
    return bytes;
}

UT_Result<std::vector<std::uint8_t>> unpack(Bytes packed, int packing, std::size_t rowBytes, int height, bool isLarge)
{
    const std::size_t size = rowBytes * static_cast<std::size_t>(height);
    switch (packing) {
    case NONE:
        if (packed.size() < size)
            return DIO_damaged();
        return std::vector<std::uint8_t>(packed.begin(), packed.begin() + static_cast<std::ptrdiff_t>(size));
    case RUNS:
        return unpackRows(packed, rowBytes, height, isLarge);
    case ZLIB:
    case DIFFERENCES:
        return DIO_inflate(packed, size);
    default:
        return DIO_damaged();
    }
}

// Each sample is the difference to the one on its left.
void sumUp(DIO_PsdPlane& plane, std::size_t width, int depth)
{
    const unsigned mask = depth == 8 ? 0xFFU : 0xFFFFU;
    for (std::size_t row = 0; row + width <= plane.size(); row += width)
        for (std::size_t x = 1; x < width; ++x)
            plane[row + x] = static_cast<std::uint16_t>((unsigned{plane[row + x]} + plane[row + x - 1]) & mask);
}

} // namespace

UT_Result<DIO_PsdPlane> DIO_psdPlane(Bytes packed, int packing, const QSize& size, const DIO_PsdForm& form)
{
    const auto width = static_cast<std::size_t>(size.width());
    const std::size_t sampleBytes = form.depth == 8 ? 1 : 2;
    const auto bytes = unpack(packed, packing, width * sampleBytes, size.height(), form.isLarge);
    if (!bytes)
        return bytes.error();
    Reader reader(*bytes);
    DIO_PsdPlane plane(bytes->size() / sampleBytes);
    for (std::uint16_t& sample : plane)
        sample = form.depth == 8 ? reader.u8() : reader.u16();
    if (packing == DIFFERENCES)
        sumUp(plane, width, form.depth);
    if (form.depth == 8)
        for (std::uint16_t& sample : plane)
            sample = static_cast<std::uint16_t>(sample * 257);
    return plane;
}

QImage DIO_psdImage(const DIO_PsdPlanes& planes, const QSize& size, const DIO_PsdForm& form)
{
    QImage image(size, QImage::Format_RGBA64);
    if (image.isNull())
        return image;
    const auto sampleOf = [](const DIO_PsdPlane& plane, const DIO_PsdPlane& other, std::size_t at) {
        return plane.empty() ? other[at] : plane[at];
    };
    std::size_t at = 0;
    for (int y = 0; y < size.height(); ++y) {
        auto* const row = reinterpret_cast<QRgba64*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x, ++at)
            row[x] = QRgba64::fromRgba64(planes.red[at], sampleOf(planes.green, planes.red, at),
                                         sampleOf(planes.blue, planes.red, at),
                                         planes.alpha.empty() ? std::uint16_t{65535} : planes.alpha[at]);
    }
    return form.depth == 8 ? GR_imageInFormat(image, QImage::Format_ARGB32) : image;
}

void DIO_applyPsdMask(DIO_PsdPlane& alpha, const QRect& place, const DIO_PsdMask& mask)
{
    const auto outside = static_cast<unsigned>(mask.outside) * 257U;
    std::size_t at = 0;
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x, ++at) {
            unsigned value = outside;
            if (mask.place.contains(x, y))
                value = mask.samples[static_cast<std::size_t>(y - mask.place.top()) *
                                         static_cast<std::size_t>(mask.place.width()) +
                                     static_cast<std::size_t>(x - mask.place.left())];
            alpha[at] = static_cast<std::uint16_t>((unsigned{alpha[at]} * value + 32767U) / 65535U);
        }
}
