// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Heights are single precision; codes are computed in double and rounded once.
#include "QuarvelNormalMap/NM_HeightField.h"

#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

#include <exception>

namespace {

template<typename Pixel>
float shareOf(const Pixel& pixel, NM_ElevationChannel channel)
{
    if (channel == NM_ElevationChannel::RED)
        return NM_clampSample(NM_toSample<float>(pixel.r));
    // An uncovered pixel has no elevation, whatever value the node left in its blue channel.
    return pixel.a > 0 ? NM_clampSample(NM_toSample<float>(pixel.b)) : 0.0F;
}

template<typename Pixel>
void readHeights(const CEL_PixelStore<Pixel>& source, NM_ElevationChannel channel, const Math::Box2di& frame,
                 const NM_RisesOfRow& rises, NM_HeightField& field)
{
    NM_forRows(frame.y1, frame.y2, [&](int y) {
        const std::span<float> row = field.row(y - frame.y1);
        rises(y, row);
        NM_visitRow(source, y, frame.x1, frame.x2,
                    [&](int i, const Pixel& pixel) { row[static_cast<std::size_t>(i)] *= shareOf(pixel, channel); });
    });
}

QString pixelsText(double height)
{
    return QString::number(height, 'g', 9);
}

} // namespace

UT_Result<NM_HeightField> NM_HeightField::create(const Math::Size2di& size)
{
    if (size.isEmpty())
        return UT_Error{QStringLiteral("a picture of heights needs a width and a height of 1 or more")};
    NM_HeightField field;
    field._size = size;
    try {
        field._heights.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height));
    } catch (const std::exception&) {
        return UT_noMemory(QStringLiteral("the heights of %1 x %2 pixels").arg(size.width).arg(size.height),
                           QStringLiteral("make the picture smaller"));
    }
    return field;
}

UT_Result<NM_HeightField> NM_HeightField::create(const CEL_PixmapArea& pixmap, NM_ElevationChannel channel,
                                                 const Math::Box2di& frame, const NM_RisesOfRow& rises)
{
    auto field = create({frame.width(), frame.height()});
    if (!field)
        return field;
    if (!CEL_withFormat(pixmap, [&](const auto& source) { readHeights(source, channel, frame, rises, *field); }))
        return UT_Error{QStringLiteral("the rendered picture holds no elevation; render in 16 bits or in float")};
    return field;
}

QString NM_heightsText(const NM_HeightRange& range)
{
    return QStringLiteral("black = %1 pixels, white = %2 pixels").arg(pixelsText(range.black), pixelsText(range.white));
}

QString NM_heightsInPixels()
{
    return QStringLiteral("in pixels of the picture");
}

UT_Result<IIO_Picture> NM_heightPicture(const NM_HeightField& field)
{
    auto picture = IIO_Picture::create(IIO_SampleType::FLOAT, {field.width(), field.height()}, IIO_channelsGrey());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("height"));
    picture->metadata().set(QStringLiteral("Heights"), NM_heightsInPixels());
    for (int y = 0; y < field.height(); ++y)
        std::ranges::copy(field.row(y), picture->row<float>(y).begin());
    return picture;
}

NM_HeightRange NM_rangeOf(const IIO_Picture& heights)
{
    float lowest = 0.0F;
    float highest = 0.0F;
    for (int y = heights.dataWindow().y1; y < heights.dataWindow().y2; ++y)
        for (const float height : heights.row<float>(y)) {
            lowest = std::min(lowest, height);
            highest = std::max(highest, height);
        }
    return {static_cast<double>(lowest), static_cast<double>(highest)};
}

UT_Result<IIO_Picture> NM_codedHeights(const IIO_Picture& heights, const NM_HeightRange& range)
{
    auto coded =
        IIO_Picture::create(IIO_SampleType::UINT16, heights.displayWindow(), heights.dataWindow(), heights.channels());
    if (!coded)
        return coded;
    coded->metadata() = heights.metadata();
    coded->metadata().set(QStringLiteral("Heights"), NM_heightsText(range));
    const double whole = range.white > range.black ? range.white - range.black : 1.0;
    NM_forRows(heights.dataWindow().y1, heights.dataWindow().y2, [&](int y) {
        std::ranges::transform(heights.row<float>(y), coded->row<std::uint16_t>(y).begin(), [&](float height) {
            return NM_fractionToSample<std::uint16_t>((static_cast<double>(height) - range.black) / whole);
        });
    });
    return coded;
}
