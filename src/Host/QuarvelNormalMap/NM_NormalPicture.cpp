// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One encoder a layout, called for every pixel.
#include "QuarvelNormalMap/NM_NormalPicture.h"

#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

namespace {

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

template<typename Sample, typename Pixel>
void encode(const CEL_PixelStore<Pixel>& source, IIO_Picture& picture, const NM_PictureSettings& settings)
{
    if (settings.layout == NM_Layout::NODE)
        NM_encodeRows<Sample>(source, picture, NodeEncoder<Sample>{});
    else
        NM_encodeRows<Sample>(source, picture, TangentEncoder<Sample>{settings.yAxis == NM_YAxis::UP ? -1.0 : 1.0});
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
    const bool encoded = NM_withColours(pixmap, [&](const auto& source) {
        if (settings.samples == IIO_SampleType::UINT16)
            encode<std::uint16_t>(source, *picture, settings);
        else
            encode<float>(source, *picture, settings);
    });
    if (!encoded)
        return UT_Error{QStringLiteral("the rendered picture holds no normals; render in 16 bits or in float")};
    return picture;
}
