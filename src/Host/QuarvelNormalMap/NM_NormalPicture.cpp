// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each layout has one encoder, which is called for every pixel. The conversions to 16-bit tangents have kernels for
// whole rows.
#include "QuarvelNormalMap/NM_NormalPicture.h"

#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "QuarvelNormalMap/private/NM_FineTangentKernels.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"
#include "QuarvelNormalMap/private/NM_TangentKernels.h"

#include <array>

namespace {

using Fine = CEL_PixelRGBAFloat;

template<typename Sample>
struct NodeEncoder
{
    template<typename Pixel>
    void operator()(const Pixel& pixel, Sample* samples) const
    {
        samples[0] = NM_toSample<Sample>(pixel.r);
        samples[1] = NM_toSample<Sample>(pixel.g);
        samples[2] = NM_toSample<Sample>(pixel.b);
        samples[3] = NM_toSample<Sample>(pixel.a);
    }
};

template<typename Sample>
struct TangentEncoder
{
    double ySign;

    template<typename Pixel>
    void operator()(const Pixel& pixel, Sample* samples) const
    {
        const Math::Vector3d normal = NM_directionOf(pixel);
        samples[0] = NM_fractionToSample<Sample>(normal.x * 0.5 + 0.5);
        samples[1] = NM_fractionToSample<Sample>(ySign * normal.y * 0.5 + 0.5);
        samples[2] = NM_fractionToSample<Sample>(normal.z * 0.5 + 0.5);
        samples[3] = NM_clampSample(NM_toSample<Sample>(pixel.a));
    }
};

void encodeTangents(const CEL_PixelStore<CEL_PixelRGBA16>& source, IIO_Picture& picture, double ySign)
{
    constexpr std::array<std::uint16_t, 4> kMissing{NM_kFacingSamples[0], NM_kFacingSamples[1], NM_kFacingSamples[2],
                                                    0};
    const Math::Box2di window = picture.dataWindow();
    NM_forRows(window.y1, window.y2, [&](int y) {
        const auto samplesAt = [&, row = picture.row<std::uint16_t>(y).data()](int x) {
            return row + std::ptrdiff_t{x - window.x1} * static_cast<std::ptrdiff_t>(kMissing.size());
        };
        const auto missing = [&](int x, int count) {
            for (int i = 0; i < count; ++i)
                std::ranges::copy(kMissing, samplesAt(x + i));
        };
        const auto held = [&](int x, std::span<const CEL_PixelRGBA16> pixels) {
            NM_encodeTangents(pixels, ySign, samplesAt(x));
        };
        NM_splitRow(source, y, window.x1, window.x2, missing, held);
    });
}

void encodeFineTangents(const CEL_PixelStore<CEL_PixelRGBAFloat>& source, IIO_Picture& picture, double ySign)
{
    const Math::Box2di window = picture.dataWindow();
    NM_forRows(window.y1, window.y2, [&](int y) {
        const auto write = [&, row = picture.row<std::uint16_t>(y).data()](int x, std::span<const Fine> pixels) {
            NM_encodeFineTangents(pixels, x, y, static_cast<float>(ySign), row + std::ptrdiff_t{x - window.x1} * 4);
        };
        const auto missing = [&](int x, int count) {
            for (int i = 0; i < count; ++i)
                write(x + i, std::array<Fine, 1>{});
        };
        NM_splitRow(source, y, window.x1, window.x2, missing, write);
    });
}

template<typename Sample, typename Pixel>
void encode(const CEL_PixelStore<Pixel>& source, IIO_Picture& picture, const NM_PictureSettings& settings)
{
    const double ySign = settings.yAxis == NM_YAxis::UP ? -1.0 : 1.0;
    // The encoders differ; the checker takes branches that a sample leaves out for equal ones.
    // NOLINTBEGIN(bugprone-branch-clone)
    if (settings.layout == NM_Layout::NODE)
        NM_encodeRows<Sample>(source, picture, NodeEncoder<Sample>{});
    else if constexpr (std::is_same_v<Sample, std::uint16_t> && std::is_same_v<Pixel, CEL_PixelRGBA16>)
        encodeTangents(source, picture, ySign);
    else if constexpr (std::is_same_v<Sample, std::uint16_t>)
        encodeFineTangents(source, picture, ySign);
    else
        NM_encodeRows<Sample>(source, picture, TangentEncoder<Sample>{ySign});
    // NOLINTEND(bugprone-branch-clone)
}

} // namespace

UT_Result<IIO_Picture> NM_toPicture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame,
                                    const NM_PictureSettings& settings)
{
    auto picture =
        IIO_Picture::create(settings.samples, frame, settings.dataWindow.value_or(frame), IIO_channelsRgba());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(settings.layout, settings.yAxis);
    const bool encoded = CEL_withFormat(pixmap, [&](const auto& source) {
        if (settings.samples == IIO_SampleType::UINT16)
            encode<std::uint16_t>(source, *picture, settings);
        else
            encode<float>(source, *picture, settings);
    });
    if (!encoded)
        return NM_noNormals();
    return picture;
}
