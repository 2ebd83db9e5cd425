// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Padding works on colours with coverage, so the values are made as such a picture first, and then as one of greys.
#include "QuarvelNormalMap/NM_MaskPicture.h"

#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/NM_Padding.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

namespace {

template<typename Sample, typename Pixel, typename Value>
void writeValues(const CEL_PixelStore<Pixel>& coverage, IIO_Picture& picture, float beyond, const Value& value)
{
    const Math::Box2di window = picture.dataWindow();
    const auto around = NM_fractionToSample<Sample>(static_cast<double>(beyond));
    NM_forRows(window.y1, window.y2, [&](int y) {
        Sample* const samples = picture.row<Sample>(y).data();
        NM_visitRow(coverage, y, window.x1, window.x2, [&](int i, const Pixel& pixel) {
            Sample* const target = samples + std::ptrdiff_t{i} * 4;
            const bool isCovered = pixel.a > 0;
            std::fill_n(target, 3, isCovered ? NM_fractionToSample<Sample>(value(window.x1 + i, y, pixel)) : around);
            target[3] = isCovered ? Sample{1} : Sample{0};
        });
    });
}

template<typename Sample>
UT_Result<IIO_Picture> greyOf(const IIO_Picture& colours)
{
    auto grey =
        IIO_Picture::create(colours.sampleType(), colours.displayWindow(), colours.dataWindow(), IIO_channelsGrey());
    if (!grey)
        return grey;
    NM_forRows(grey->dataWindow().y1, grey->dataWindow().y2, [&](int y) {
        const std::span<const Sample> from = colours.row<Sample>(y);
        const std::span<Sample> to = grey->row<Sample>(y);
        for (std::size_t x = 0; x < to.size(); ++x)
            to[x] = from[4 * x];
    });
    return grey;
}

template<typename Value>
UT_Result<IIO_Picture> maskOf(const CEL_PixmapArea& coverage, const Math::Box2di& frame, IIO_SampleType samples,
                              float beyond, int pad, const Value& value)
{
    auto colours = IIO_Picture::create(samples, frame, frame, IIO_channelsRgba());
    if (!colours)
        return colours;
    const bool isInteger = samples == IIO_SampleType::UINT16;
    const bool written = CEL_withFormat(coverage, [&](const auto& source) {
        if (isInteger)
            writeValues<std::uint16_t>(source, *colours, beyond, value);
        else
            writeValues<float>(source, *colours, beyond, value);
    });
    if (!written)
        return UT_Error{QStringLiteral("the rendered picture has no coverage; render in 16 bits or in float")};
    NM_padColours(*colours, pad);
    return isInteger ? greyOf<std::uint16_t>(*colours) : greyOf<float>(*colours);
}

} // namespace

UT_Result<IIO_Picture> NM_maskPicture(const CEL_PixmapArea& coverage, const Math::Box2di& frame, IIO_SampleType samples,
                                      const NM_ValueOfPixel& value, float beyond, int pad)
{
    return maskOf(coverage, frame, samples, beyond, pad,
                  [&](int x, int y, const auto&) { return static_cast<double>(value(x, y)); });
}

UT_Result<IIO_Picture> NM_paintedMaskPicture(const CEL_PixmapArea& painted, const Math::Box2di& frame,
                                             IIO_SampleType samples, bool isInverted, int pad)
{
    const float beyond = isInverted ? 1.0F : 0.0F;
    auto picture = maskOf(painted, frame, samples, beyond, pad, [&](int, int, const auto& pixel) {
        const double whole = static_cast<double>(pixel.r) + static_cast<double>(pixel.g) / 255.0;
        const double value = whole / static_cast<double>(pixel.a);
        return isInverted ? 1.0 - value : value;
    });
    if (picture)
        picture->metadata() = NM_metadataOf(isInverted ? QStringLiteral("roughness") : QStringLiteral("gloss"));
    return picture;
}
