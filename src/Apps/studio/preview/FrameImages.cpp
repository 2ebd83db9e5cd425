// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows do not depend on each other and are converted in parallel.
#include "studio/preview/FrameImages.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

namespace {

constexpr unsigned kFull = 65535;

unsigned byteOf(unsigned sample)
{
    return (sample * 255U + kFull / 2) / kFull;
}

QRgb premultiplied(unsigned red, unsigned green, unsigned blue, unsigned alpha)
{
    const unsigned a = byteOf(alpha);
    const auto times = [&](unsigned colour) { return static_cast<int>((byteOf(colour) * a + 127U) / 255U); };
    return qRgba(times(red), times(green), times(blue), static_cast<int>(a));
}

QRgb pixelOf(const std::uint16_t* sample, std::size_t channels)
{
    switch (channels) {
    case 1:
        return premultiplied(sample[0], sample[0], sample[0], kFull);
    case 2:
        return premultiplied(sample[0], sample[0], sample[0], sample[1]);
    default:
        return premultiplied(sample[0], sample[1], sample[2], sample[3]);
    }
}

int channelOf(QRgb pixel, PictureChannel channel)
{
    switch (channel) {
    case PictureChannel::RED:
        return qRed(pixel);
    case PictureChannel::GREEN:
        return qGreen(pixel);
    case PictureChannel::BLUE:
        return qBlue(pixel);
    case PictureChannel::ALL:
    case PictureChannel::ALPHA:
        break;
    }
    return qAlpha(pixel);
}

} // namespace

QImage imageOf(const IIO_Picture& picture)
{
    QImage image(picture.width(), picture.height(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    const auto channels = static_cast<std::size_t>(picture.channelCount());
    // Called once, before the loop, because bits() detaches a shared image.
    uchar* const bits = image.bits();
    const qsizetype stride = image.bytesPerLine();
    VL_parallelForEach(picture.height(), [&](int y) {
        const auto samples = picture.row<std::uint16_t>(picture.dataWindow().y1 + y);
        auto* const target = reinterpret_cast<QRgb*>(bits + stride * y);
        for (std::size_t x = 0; x < samples.size() / channels; ++x)
            target[x] = pixelOf(samples.data() + x * channels, channels);
    });
    return image;
}

QImage channelOf(const QImage& image, PictureChannel channel)
{
    if (channel == PictureChannel::ALL || image.isNull())
        return image;
    QImage grey(image.size(), QImage::Format_ARGB32_Premultiplied);
    if (grey.isNull())
        return grey;
    uchar* const bits = grey.bits();
    const qsizetype stride = grey.bytesPerLine();
    VL_parallelForEach(image.height(), [&](int y) {
        const auto* const source = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        auto* const target = reinterpret_cast<QRgb*>(bits + stride * y);
        for (int x = 0; x < image.width(); ++x) {
            const int value = channelOf(qUnpremultiply(source[x]), channel);
            target[x] = qRgb(value, value, value);
        }
    });
    return grey;
}
