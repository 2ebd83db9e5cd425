// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Works in single precision, which is more than the half floats of files hold.
#include "QuarvelNormalMap/NM_LinearPicture.h"

#include "QuarvelImageIO/IIO_Samples.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_Rows.h"

namespace {

template<typename Sample>
void copyAsFloats(const IIO_Picture& picture, IIO_Picture& copy)
{
    NM_forRows(picture.dataWindow().y1, picture.dataWindow().y2, [&](int y) {
        std::ranges::transform(picture.row<Sample>(y), copy.row<float>(y).begin(),
                               [](Sample sample) { return IIO_toSampleFloat(sample); });
    });
}

} // namespace

void NM_makeLinear(IIO_Picture& picture)
{
    const auto channels = static_cast<std::size_t>(picture.channelCount());
    NM_forRows(picture.dataWindow().y1, picture.dataWindow().y2, [&](int y) {
        const std::span<float> row = picture.row<float>(y);
        for (std::size_t i = 0; i < row.size(); i += channels)
            for (std::size_t c = 0; c < 3; ++c)
                row[i + c] = row[i + 3] > 0.0F ? NM_linearOfSrgb(row[i + c]) * row[i + 3] : 0.0F;
    });
}

UT_Result<IIO_Picture> NM_linearPicture(const IIO_Picture& picture)
{
    auto copy =
        IIO_Picture::create(IIO_SampleType::FLOAT, picture.displayWindow(), picture.dataWindow(), picture.channels());
    if (!copy)
        return copy;
    copy->metadata() = picture.metadata();
    if (picture.sampleType() == IIO_SampleType::UINT16)
        copyAsFloats<std::uint16_t>(picture, *copy);
    else
        copyAsFloats<float>(picture, *copy);
    NM_makeLinear(*copy);
    return copy;
}
