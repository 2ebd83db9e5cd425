// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A zlib stream (RFC 1950) consists of two bytes, a deflate stream and a checksum. Each band becomes a piece of the
// deflate stream; the checksums of the bands are combined. Matches across the borders of bands would make files hardly
// smaller: by one five-hundredth at the default setting.
#include "QuarvelImageIO/private/IIO_PngPixels.h"

#include "QuarvelImageIO/private/IIO_Deflate.h"
#include "QuarvelImageIO/private/IIO_PngFilter.h"
#include "QuarvelImageIO/private/IIO_PngKernels.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <QtEndian>
#include <tbb/enumerable_thread_specific.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <cstring>
#include <mutex>

namespace {

using Bytes = std::vector<std::uint8_t>;

// The approximate number of filtered bytes in a band: few enough for a processor's cache, enough for well-fitted
// Huffman codes.
constexpr std::size_t kBandBytes = std::size_t{1} << 19U;

struct Band
{
    Bytes compressed;
    std::size_t length = 0; ///< in bytes, uncompressed
    std::uint32_t checksum = 0;
};

void takeAll(std::span<const std::uint8_t> samples, std::span<std::uint8_t> bytes)
{
    std::ranges::copy(samples, bytes.begin());
}
void takeAll(std::span<const std::uint16_t> samples, std::span<std::uint8_t> bytes)
{
    IIO_takeSamples(samples, bytes);
}

// Copies a row of the image in PNG's form: big-endian, without unused channels.
template<typename Sample>
void takeRow(const uchar* source, const IIO_PngForm& form, std::span<std::uint8_t> target)
{
    const auto* samples = reinterpret_cast<const Sample*>(source);
    auto* bytes = target.data();
    const std::size_t count = target.size() / sizeof(Sample);
    if (form.channels == form.imageChannels) {
        takeAll(std::span(samples, count), target);
        return;
    }
    const auto channels = static_cast<std::size_t>(form.channels);
    for (std::size_t i = 0; i < count; i += channels, samples += form.imageChannels)
        for (std::size_t c = 0; c < channels; ++c)
            qToBigEndian(samples[c], bytes + (i + c) * sizeof(Sample));
}

IIO_PixelBytes pixelBytesOf(const IIO_PngForm& form)
{
    const std::size_t ofSample = form.bitDepth / 8U;
    return {ofSample, ofSample * static_cast<std::size_t>(form.channels)};
}

class BandCompressor
{
public:
    BandCompressor(const QImage& image, IIO_Compression compression)
        : _image(image)
        , _compression(compression)
        , _form(IIO_pngFormOf(image))
        , _pixelBytes(pixelBytesOf(_form))
        , _bytesPerRow(_pixelBytes.ofPixel * static_cast<std::size_t>(image.width()))
        , _rowsPerBand(static_cast<int>(std::max<std::size_t>(1, kBandBytes / (_bytesPerRow + 1))))
    {}

    std::vector<Band> compressAll()
    {
        std::vector<Band> bands(static_cast<std::size_t>((_image.height() + _rowsPerBand - 1) / _rowsPerBand));
        // The header of the stream: a window of 32 KiB, and the check bits of the header.
        bands.front().compressed = {0x78, 0x01};
        VL_parallelFor(tbb::blocked_range<std::size_t>(0, bands.size(), 1), [&](const auto& range) {
            for (std::size_t i = range.begin(); i < range.end(); ++i)
                compress(bands[i], static_cast<int>(i) * _rowsPerBand, i + 1 == bands.size());
        });
        return bands;
    }

private:
    // The buffers of a thread, which it reuses for its next band.
    struct Workplace
    {
        Bytes row;
        Bytes above;
        Bytes filtered;
        Bytes room; ///< for the compressed bytes
    };

    void compress(Band& band, int firstRow, bool isLast)
    {
        Workplace& place = _places.local();
        const int end = std::min(firstRow + _rowsPerBand, _image.height());
        if (!isLast && repeatsRowAbove(firstRow, end)) {
            band = unchanged(place);
            return;
        }
        filterRows(place, firstRow, end);
        compressFiltered(band, place, isLast);
    }

    // Appends to the band, with no more memory than the compressed bytes take.
    void compressFiltered(Band& band, Workplace& place, bool isLast) const
    {
        band.length = place.filtered.size();
        band.checksum = IIO_Deflate::checksumOf(place.filtered);
        const std::span<const std::uint8_t> piece = _deflate.compress(place.filtered, isLast, place.room);
        band.compressed.reserve(band.compressed.size() + piece.size());
        band.compressed.insert(band.compressed.end(), piece.begin(), piece.end());
    }

    // Whether all these rows look as the one above the first of them does. Usually these are the empty ones above and
    // below a drawing.
    bool repeatsRowAbove(int first, int end) const
    {
        if (first == 0 || _compression == IIO_Compression::NONE)
            return false;
        const auto bytes = static_cast<std::size_t>(_image.width()) * static_cast<std::size_t>(_image.depth() / 8);
        for (int y = first; y < end; ++y)
            if (std::memcmp(_image.constScanLine(y), _image.constScanLine(y - 1), bytes) != 0)
                return false;
        return true;
    }

    // A whole band of such rows, which is the same everywhere, so that it is compressed once.
    Band unchanged(Workplace& place)
    {
        std::call_once(_unchangedOnce, [&] {
            place.above.assign(_bytesPerRow, 0);
            place.filtered.resize(static_cast<std::size_t>(_rowsPerBand) * (_bytesPerRow + 1));
            std::span<std::uint8_t> rest = place.filtered;
            for (int y = 0; y < _rowsPerBand; ++y, rest = rest.subspan(_bytesPerRow + 1))
                IIO_filterPngRow(place.above, place.above, _pixelBytes, rest.first(_bytesPerRow + 1));
            compressFiltered(_unchanged, place, false);
        });
        return _unchanged;
    }

    void filterRows(Workplace& place, int from, int to) const
    {
        place.row.resize(_bytesPerRow);
        place.above.assign(_bytesPerRow, 0);
        place.filtered.resize(static_cast<std::size_t>(to - from) * (_bytesPerRow + 1));
        if (from > 0)
            readRow(from - 1, place.above);
        std::span<std::uint8_t> rest = place.filtered;
        for (int y = from; y < to; ++y, rest = rest.subspan(_bytesPerRow + 1)) {
            readRow(y, place.row);
            if (_compression == IIO_Compression::NONE)
                IIO_keepPngRow(place.row, rest.first(_bytesPerRow + 1));
            else
                IIO_filterPngRow(place.row, place.above, _pixelBytes, rest.first(_bytesPerRow + 1));
            place.row.swap(place.above);
        }
    }

    void readRow(int y, std::span<std::uint8_t> row) const
    {
        if (_form.bitDepth == 16)
            takeRow<std::uint16_t>(_image.constScanLine(y), _form, row);
        else
            takeRow<std::uint8_t>(_image.constScanLine(y), _form, row);
    }

    const QImage& _image;
    const IIO_Compression _compression;
    const IIO_PngForm _form;
    const IIO_PixelBytes _pixelBytes;
    const std::size_t _bytesPerRow;
    const int _rowsPerBand;
    const IIO_Deflate _deflate{_compression};
    tbb::enumerable_thread_specific<Workplace> _places;
    std::once_flag _unchangedOnce;
    Band _unchanged;
};

} // namespace

IIO_PngForm IIO_pngFormOf(const QImage& image)
{
    switch (image.format()) {
    case QImage::Format_RGBA64:
        return {16, 6, 4, 4};
    case QImage::Format_RGBX64:
        return {16, 2, 3, 4};
    case QImage::Format_Grayscale16:
        return {16, 0, 1, 1};
    case QImage::Format_RGBX8888:
        return {8, 2, 3, 4};
    case QImage::Format_Grayscale8:
        return {8, 0, 1, 1};
    default:
        assert(image.format() == QImage::Format_RGBA8888);
        return {8, 6, 4, 4};
    }
}

std::vector<Bytes> IIO_compressPngPixels(const QImage& image, IIO_Compression compression)
{
    assert(!image.isNull());
    std::vector<Band> bands = BandCompressor(image, compression).compressAll();
    uLong checksum = 1;
    std::vector<Bytes> parts;
    parts.reserve(bands.size());
    for (Band& band : bands) {
        checksum = adler32_combine(checksum, band.checksum, static_cast<z_off_t>(band.length));
        parts.push_back(std::move(band.compressed));
    }
    std::array<std::uint8_t, 4> trailer{};
    qToBigEndian(static_cast<std::uint32_t>(checksum), trailer.data());
    parts.back().insert(parts.back().end(), trailer.begin(), trailer.end());
    return parts;
}
