// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Divides the associated colours by the coverage.
#include "QuarvelNormalMap/NM_DrawingPicture.h"

#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

namespace {

template<typename Sample>
struct StraightEncoder
{
    template<typename Pixel>
    void operator()(const Pixel& pixel, Sample* samples) const
    {
        // Written so that a coverage of NaN counts as uncovered.
        if (!(pixel.a > 0)) {
            std::fill_n(samples, 4, Sample{});
            return;
        }
        const auto coverage = static_cast<double>(pixel.a);
        samples[0] = NM_fractionToSample<Sample>(static_cast<double>(pixel.r) / coverage);
        samples[1] = NM_fractionToSample<Sample>(static_cast<double>(pixel.g) / coverage);
        samples[2] = NM_fractionToSample<Sample>(static_cast<double>(pixel.b) / coverage);
        samples[3] = NM_clampSample(NM_toSample<Sample>(pixel.a));
    }
};

} // namespace

UT_Result<IIO_Picture> NM_drawingPicture(const CEL_PixmapArea& drawing, const Math::Box2di& frame,
                                         IIO_SampleType samples, const std::optional<Math::Box2di>& dataWindow)
{
    auto picture = IIO_Picture::create(samples, frame, dataWindow.value_or(frame), IIO_channelsRgba());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("drawing"));
    const bool encoded = CEL_withFormat(drawing, [&](const auto& source) {
        if (samples == IIO_SampleType::UINT16)
            NM_encodeRows<std::uint16_t>(source, *picture, StraightEncoder<std::uint16_t>{});
        else
            NM_encodeRows<float>(source, *picture, StraightEncoder<float>{});
    });
    if (!encoded)
        return UT_Error{QStringLiteral("the drawing has no colours; paint it in 16 bits or in float")};
    return picture;
}
