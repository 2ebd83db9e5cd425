// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Decodes rows in parallel.
#include "QuarvelNormalMap/NM_Surface.h"

#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_Srgb.h"
#include "QuarvelNormalMap/private/NM_Rows.h"
#include "QuarvelNormalMap/private/NM_Samples.h"

#include <exception>

namespace {

UT_Error wrongSize(int width, int height, const Math::Size2di& expected)
{
    return {QStringLiteral("the picture has %1 x %2 pixels where %3 x %4 are needed; take pictures of one size")
                .arg(width)
                .arg(height)
                .arg(expected.width)
                .arg(expected.height)};
}

// The component of a vector, -1 .. 1, that a sample stands for.
template<typename Sample>
double componentOf(Sample sample)
{
    if constexpr (std::is_same_v<Sample, float>)
        return 2.0 * static_cast<double>(sample) - 1.0;
    else {
        // Zero lies halfway between two samples and is stored as the upper one.
        constexpr int kZeroCode = 32768;
        return sample == kZeroCode ? 0.0 : sample / 32767.5 - 1.0;
    }
}

} // namespace

UT_Result<NM_Surface> NM_Surface::create(const Math::Size2di& size)
{
    if (size.isEmpty())
        return UT_Error{QStringLiteral("a surface needs a width and a height of 1 or more")};
    NM_Surface surface;
    surface._size = size;
    try {
        surface._planes.resize(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height) *
                               PLANE_COUNT);
    } catch (const std::exception&) {
        return UT_noMemory(QStringLiteral("a surface of %1 x %2 pixels").arg(size.width).arg(size.height),
                           QStringLiteral("make it smaller"));
    }
    for (int y = 0; y < size.height; ++y)
        std::ranges::fill(surface.planeRow(NORMAL_Z, y), 1.0F);
    return surface;
}

std::span<float> NM_Surface::planeRow(Plane plane, int y)
{
    const auto width = static_cast<std::size_t>(_size.width);
    // The seven planes of a row lie side by side, so that the data that a core needs for a row are close together.
    return {_planes.data() + (static_cast<std::size_t>(y) * PLANE_COUNT + static_cast<std::size_t>(plane)) * width,
            width};
}

std::span<const float> NM_Surface::planeRow(Plane plane, int y) const
{
    const auto width = static_cast<std::size_t>(_size.width);
    return {_planes.data() + (static_cast<std::size_t>(y) * PLANE_COUNT + static_cast<std::size_t>(plane)) * width,
            width};
}

NM_Surface::Row NM_Surface::row(int y) const
{
    return {planeRow(NORMAL_X, y), planeRow(NORMAL_Y, y), planeRow(NORMAL_Z, y), planeRow(RED, y),
            planeRow(GREEN, y),    planeRow(BLUE, y),     planeRow(COVERAGE, y)};
}

UT_Result<void> NM_Surface::checkPicture(const IIO_Picture& picture) const
{
    if (picture.width() != _size.width || picture.height() != _size.height)
        return wrongSize(picture.width(), picture.height(), _size);
    if (picture.channels() != IIO_channelsRgba())
        return UT_Error{QStringLiteral("the picture needs the channels R G B A")};
    return {};
}

template<typename Sample>
void NM_Surface::readDrawing(const IIO_Picture& drawing)
{
    NM_forRows(0, _size.height, [&](int y) {
        const Sample* sample = drawing.row<Sample>(drawing.dataWindow().y1 + y).data();
        const auto red = planeRow(RED, y);
        const auto green = planeRow(GREEN, y);
        const auto blue = planeRow(BLUE, y);
        const auto coverage = planeRow(COVERAGE, y);
        for (std::size_t x = 0; x < red.size(); ++x, sample += 4) {
            red[x] = NM_linearOfSrgb(sample[0]);
            green[x] = NM_linearOfSrgb(sample[1]);
            blue[x] = NM_linearOfSrgb(sample[2]);
            coverage[x] = NM_clampSample(IIO_toSampleFloat(sample[3]));
        }
    });
}

UT_Result<void> NM_Surface::setDrawing(const IIO_Picture& drawing)
{
    if (auto checked = checkPicture(drawing); !checked)
        return checked;
    if (drawing.sampleType() == IIO_SampleType::UINT16)
        readDrawing<std::uint16_t>(drawing);
    else
        readDrawing<float>(drawing);
    return {};
}

UT_Result<void> NM_Surface::setNormals(const CEL_PixmapArea& normals, const Math::Box2di& frame)
{
    if (frame.width() != _size.width || frame.height() != _size.height)
        return wrongSize(frame.width(), frame.height(), _size);
    const bool read = CEL_withFormat(normals, [&](const auto& source) {
        NM_forRows(0, _size.height, [&](int y) {
            float* normalX = planeRow(NORMAL_X, y).data();
            float* normalY = planeRow(NORMAL_Y, y).data();
            float* normalZ = planeRow(NORMAL_Z, y).data();
            NM_visitRow(source, frame.y1 + y, frame.x1, frame.x2, [&](int x, const auto& pixel) {
                const Math::Vector3d normal = NM_directionOf(pixel);
                normalX[x] = static_cast<float>(normal.x);
                normalY[x] = static_cast<float>(-normal.y);
                normalZ[x] = static_cast<float>(normal.z);
            });
        });
    });
    if (!read)
        return NM_noNormals();
    return {};
}

template<typename Sample>
void NM_Surface::readNormals(const IIO_Picture& normalMap, double ySign)
{
    NM_forRows(0, _size.height, [&](int y) {
        const Sample* sample = normalMap.row<Sample>(normalMap.dataWindow().y1 + y).data();
        const auto normalX = planeRow(NORMAL_X, y);
        const auto normalY = planeRow(NORMAL_Y, y);
        const auto normalZ = planeRow(NORMAL_Z, y);
        for (std::size_t x = 0; x < normalX.size(); ++x, sample += 4) {
            Math::Vector3d normal(componentOf(sample[0]), ySign * componentOf(sample[1]), componentOf(sample[2]));
            normal.normalize();
            normalX[x] = static_cast<float>(normal.x);
            normalY[x] = static_cast<float>(normal.y);
            normalZ[x] = static_cast<float>(normal.z);
        }
    });
}

UT_Result<void> NM_Surface::setNormals(const IIO_Picture& normalMap, NM_YAxis yAxis)
{
    if (auto checked = checkPicture(normalMap); !checked)
        return checked;
    const double ySign = yAxis == NM_YAxis::UP ? 1.0 : -1.0;
    if (normalMap.sampleType() == IIO_SampleType::UINT16)
        readNormals<std::uint16_t>(normalMap, ySign);
    else
        readNormals<float>(normalMap, ySign);
    return {};
}
