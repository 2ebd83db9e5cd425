// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two passes, one a channel, since the two pixmaps may hold different rectangles.
#include "QuarvelNormalMap/NM_Elevation.h"

#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

namespace {

template<typename Sample>
bool encodeElevation(const CEL_PixmapArea& pixmap, IIO_Picture& picture)
{
    return NM_withColours(pixmap, [&](const auto& source) {
        NM_encodeRows<Sample>(source, picture,
                              [](const auto& pixel, Sample* samples) { samples[0] = NM_toSample<Sample>(pixel.r); });
    });
}

template<typename Sample>
bool encodeCoverage(const CEL_PixmapArea& pixmap, IIO_Picture& picture)
{
    return NM_withColours(pixmap, [&](const auto& source) {
        NM_encodeRows<Sample>(source, picture, [](const auto& pixel, Sample* samples) {
            samples[1] = NM_clampSample(NM_toSample<Sample>(pixel.a));
        });
    });
}

} // namespace

UT_Result<IIO_Picture> NM_elevationPicture(const CEL_PixmapArea& elevation, const CEL_PixmapArea* coverage,
                                           const Math::Box2di& frame, IIO_SampleType samples)
{
    auto picture = IIO_Picture::create(samples, frame, frame, coverage ? IIO_channelsGreyAlpha() : IIO_channelsGrey());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("elevation"));
    const bool wide = samples == IIO_SampleType::FLOAT;
    const bool elevated =
        wide ? encodeElevation<float>(elevation, *picture) : encodeElevation<std::uint16_t>(elevation, *picture);
    const bool covered = !coverage || (wide ? encodeCoverage<float>(*coverage, *picture)
                                            : encodeCoverage<std::uint16_t>(*coverage, *picture));
    if (!elevated || !covered)
        return UT_Error{QStringLiteral("the rendered picture holds no elevation; render in 16 bits or in float")};
    return picture;
}
