// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each kind of picture has one encoder, which is called for every pixel.
#include "QuarvelNormalMap/NM_Layers.h"

#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_Dither.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

namespace {

struct LayersEncoder
{
    double ySign;
    bool elevation;
    std::ptrdiff_t first; // channel of N.X

    template<typename Pixel>
    void operator()(const Pixel& pixel, float* samples) const
    {
        const Math::Vector3d normal = NM_directionOf(pixel);
        samples += first;
        *samples++ = static_cast<float>(normal.x);
        *samples++ = static_cast<float>(ySign * normal.y);
        *samples++ = static_cast<float>(normal.z);
        if (elevation)
            *samples++ = pixel.a > 0 ? NM_toSample<float>(pixel.b) : 0.0F;
        *samples = NM_clampSample(NM_toSample<float>(pixel.a));
    }
};

template<typename Sample>
struct BlueEncoder
{
    template<typename Pixel>
    void operator()(const Pixel& pixel, Sample* samples) const
    {
        // An uncovered pixel has no elevation, whatever value the node left in its blue channel.
        samples[0] = pixel.a > 0 ? NM_toSample<Sample>(pixel.b) : Sample{};
        samples[1] = NM_clampSample(NM_toSample<Sample>(pixel.a));
    }
};

template<typename Sample>
struct RedEncoder
{
    template<typename Pixel>
    void operator()(const Pixel& pixel, Sample* samples) const
    {
        samples[0] = NM_toSample<Sample>(pixel.r);
    }
};

// Float elevations on a slope are dithered like its normals; pixels that face the viewer get the nearest sample.
void encodeFineBlue(const CEL_PixelStore<CEL_PixelRGBAFloat>& source, IIO_Picture& picture)
{
    const Math::Box2di window = picture.dataWindow();
    NM_forRows(window.y1, window.y2, [&](int y) {
        std::uint16_t* const samples = picture.row<std::uint16_t>(y).data();
        const NM_DitherRow thresholds = NM_ditherRow(y);
        NM_visitRow(source, y, window.x1, window.x2, [&](int i, const CEL_PixelRGBAFloat& pixel) {
            std::uint16_t* const target = samples + std::ptrdiff_t{i} * 2;
            BlueEncoder<std::uint16_t>{}(pixel, target);
            if (pixel.a > 0 && pixel.b > 0.0F && pixel.b < 1.0F && !NM_facesViewer(pixel)) {
                const auto place = static_cast<unsigned>(window.x1 + i) % thresholds.size();
                target[0] = static_cast<std::uint16_t>(pixel.b * 65535.0F + thresholds[place]);
            }
        });
    });
}

template<typename Sample, typename Pixel>
void encodeBlue(const CEL_PixelStore<Pixel>& source, IIO_Picture& picture)
{
    if constexpr (std::is_same_v<Sample, std::uint16_t> && std::is_same_v<Pixel, CEL_PixelRGBAFloat>)
        encodeFineBlue(source, picture);
    else
        NM_encodeRows<Sample>(source, picture, BlueEncoder<Sample>{});
}

template<typename Sample>
bool encodeElevation(const CEL_PixmapArea& pixmap, NM_ElevationChannel channel, IIO_Picture& picture)
{
    return CEL_withFormat(pixmap, [&](const auto& source) {
        if (channel == NM_ElevationChannel::BLUE)
            encodeBlue<Sample>(source, picture);
        else
            NM_encodeRows<Sample>(source, picture, RedEncoder<Sample>{});
    });
}

// Divides associated colours by their coverage, makes them linear, and multiplies them by the coverage again.
struct LinearEncoder
{
    template<typename Pixel>
    void operator()(const Pixel& pixel, float* samples) const
    {
        // Written so that a coverage of NaN counts as uncovered.
        if (!(pixel.a > 0)) {
            std::fill_n(samples, 4, 0.0F);
            return;
        }
        const auto coverage = static_cast<double>(pixel.a);
        const float alpha = NM_clampSample(NM_toSample<float>(pixel.a));
        const auto linear = [&](auto channel) {
            return NM_linearOfSrgb(static_cast<float>(static_cast<double>(channel) / coverage)) * alpha;
        };
        samples[0] = linear(pixel.r);
        samples[1] = linear(pixel.g);
        samples[2] = linear(pixel.b);
        samples[3] = alpha;
    }
};

template<typename Pixel>
void encodeColours(const CEL_PixelStore<Pixel>& drawing, IIO_Picture& picture)
{
    NM_encodeRows<float>(drawing, picture, LinearEncoder{});
}

QStringList elevationChannels(bool coverage, IIO_SampleType samples)
{
    if (coverage && samples == IIO_SampleType::FLOAT)
        return IIO_channelsGrey() << QStringLiteral("coverage.A");
    return coverage ? IIO_channelsGreyAlpha() : IIO_channelsGrey();
}

} // namespace

QString NM_layersEncoding(bool drawing, bool elevation)
{
    QStringList parts;
    if (drawing)
        parts << QStringLiteral("drawing = R G B A (linear, multiplied by coverage)");
    parts << QStringLiteral("x = N.X") << QStringLiteral("y = N.Y") << QStringLiteral("z = N.Z");
    if (elevation)
        parts << QStringLiteral("elevation = elevation.Y");
    parts << QStringLiteral("coverage = coverage.A");
    return parts.join(QStringLiteral(", "));
}

QStringList NM_layerNames(bool drawing, bool elevation)
{
    QStringList names = drawing ? IIO_channelsRgba() : QStringList();
    names << QStringLiteral("N.X") << QStringLiteral("N.Y") << QStringLiteral("N.Z");
    if (elevation)
        names << QStringLiteral("elevation.Y");
    return names << QStringLiteral("coverage.A");
}

UT_Result<IIO_Picture> NM_layersPicture(const CEL_PixmapArea& pixmap, const Math::Box2di& frame,
                                        const Math::Box2di& dataWindow, NM_YAxis yAxis, bool elevation,
                                        const CEL_PixmapArea* drawing)
{
    auto picture = IIO_Picture::create(IIO_SampleType::FLOAT, frame, dataWindow, NM_layerNames(drawing, elevation));
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(NM_Layout::TANGENT, yAxis);
    picture->metadata().set(QStringLiteral("Encoding"), NM_layersEncoding(drawing, elevation));
    const LayersEncoder encoder{yAxis == NM_YAxis::UP ? -1.0 : 1.0, elevation, drawing ? 4 : 0};
    if (!CEL_withFormat(pixmap, [&](const auto& source) { NM_encodeRows<float>(source, *picture, encoder); }))
        return NM_noNormals();
    if (drawing && !CEL_withFormat(*drawing, [&](const auto& source) { encodeColours(source, *picture); }))
        return NM_noNormals();
    return picture;
}

UT_Result<IIO_Picture> NM_elevationOf(const CEL_PixmapArea& pixmap, NM_ElevationChannel channel,
                                      const Math::Box2di& frame, const Math::Box2di& dataWindow, IIO_SampleType samples)
{
    const bool coverage = channel == NM_ElevationChannel::BLUE;
    auto picture = IIO_Picture::create(samples, frame, dataWindow, elevationChannels(coverage, samples));
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("elevation"));
    const bool encoded = samples == IIO_SampleType::FLOAT ? encodeElevation<float>(pixmap, channel, *picture)
                                                          : encodeElevation<std::uint16_t>(pixmap, channel, *picture);
    if (!encoded)
        return NM_noNormals();
    return picture;
}
