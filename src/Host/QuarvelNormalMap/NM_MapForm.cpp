// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every step changes samples in place, row by row.
#include "QuarvelNormalMap/NM_MapForm.h"

#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelNormalMap/NM_Dither.h"
#include "QuarvelNormalMap/NM_Padding.h"
#include "QuarvelNormalMap/private/NM_Rows.h"

#include <limits>

namespace {

constexpr int kChannels = 4;

template<typename Sample>
constexpr Sample kFull = std::is_same_v<Sample, float> ? Sample{1} : std::numeric_limits<Sample>::max();

template<typename Sample>
void setAlpha(IIO_Picture& picture, bool onlyCovered)
{
    NM_forRows(picture.dataWindow().y1, picture.dataWindow().y2, [&](int y) {
        const std::span<Sample> row = picture.row<Sample>(y);
        for (std::size_t i = kChannels - 1; i < row.size(); i += kChannels)
            row[i] = !onlyCovered || row[i] > 0 ? kFull<Sample> : Sample{0};
    });
}

bool facesViewer(std::span<const std::uint16_t> pixel)
{
    const auto& [x, y, z] = NM_kFacingSamples;
    return pixel.size() >= NM_kFacingSamples.size() && pixel[0] == x && pixel[1] == y && pixel[2] == z;
}

// The largest multiple of 257 up to value + 257 threshold.
std::uint16_t ditheredStep(std::uint16_t value, float threshold)
{
    constexpr float kStep = 257.0F;
    return static_cast<std::uint16_t>(257U * static_cast<unsigned>(static_cast<float>(value) / kStep + threshold));
}

std::uint16_t nearestStep(std::uint16_t value)
{
    return static_cast<std::uint16_t>(257U * IIO_toSample8(value));
}

} // namespace

void NM_setAlpha(IIO_Picture& picture, NM_Alpha alpha)
{
    assert(picture.channels() == IIO_channelsRgba());
    if (alpha == NM_Alpha::COVERAGE)
        return;
    if (picture.sampleType() == IIO_SampleType::UINT16)
        setAlpha<std::uint16_t>(picture, alpha == NM_Alpha::HARD);
    else
        setAlpha<float>(picture, alpha == NM_Alpha::HARD);
}

void NM_ditherTo8Bits(IIO_Picture& picture)
{
    if (picture.sampleType() != IIO_SampleType::UINT16)
        return;
    const Math::Box2di window = picture.dataWindow();
    const auto channels = static_cast<std::size_t>(picture.channelCount());
    const std::size_t dithered = picture.channels().last() == QLatin1String("A") ? channels - 1 : channels;
    NM_forRows(window.y1, window.y2, [&](int y) {
        const NM_DitherRow thresholds = NM_ditherRow(y);
        std::span<std::uint16_t> rest = picture.row<std::uint16_t>(y);
        for (int x = window.x1; x < window.x2; ++x, rest = rest.subspan(channels)) {
            const auto pixel = rest.first(channels);
            const float threshold =
                facesViewer(pixel) ? 0.5F : thresholds[static_cast<unsigned>(x) % thresholds.size()];
            for (std::uint16_t& sample : pixel.first(dithered))
                sample = ditheredStep(sample, threshold);
            for (std::uint16_t& sample : pixel.subspan(dithered))
                sample = nearestStep(sample);
        }
    });
}

void NM_finishMap(IIO_Picture& picture, const NM_MapForm& form)
{
    NM_padColours(picture, form.pad);
    NM_setAlpha(picture, form.alpha);
    if (form.bits == 8)
        NM_ditherTo8Bits(picture);
    picture.metadata() = NM_metadataOf(form);
}

void NM_makeSigned(IIO_Picture& picture)
{
    NM_forRows(picture.dataWindow().y1, picture.dataWindow().y2, [&](int y) {
        const std::span<float> row = picture.row<float>(y);
        for (std::size_t i = 0; i < row.size(); ++i)
            if (i % kChannels != kChannels - 1)
                row[i] = 2.0F * row[i] - 1.0F;
    });
    picture.metadata().set(QStringLiteral("Encoding"), NM_signedEncoding());
}

QString NM_signedEncoding()
{
    return QStringLiteral("x = R, y = G, z = B");
}

IIO_Metadata NM_metadataOf(const NM_MapForm& form)
{
    IIO_Metadata metadata = NM_metadataOf(NM_Layout::TANGENT, form.yAxis);
    if (form.alpha != NM_Alpha::COVERAGE)
        metadata.set(QStringLiteral("Encoding"), QStringLiteral("x = 2 R - 1, y = 2 G - 1, z = 2 B - 1"));
    metadata.set(QStringLiteral("Alpha"), NM_nameOf(form.alpha));
    return metadata;
}

QString NM_nameOf(NM_Alpha alpha)
{
    switch (alpha) {
    case NM_Alpha::FULL:
        return QStringLiteral("opaque");
    case NM_Alpha::HARD:
        return QStringLiteral("hard");
    case NM_Alpha::COVERAGE:
        break;
    }
    return QStringLiteral("coverage");
}
