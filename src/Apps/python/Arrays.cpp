// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Everything is copied once, so that an array outlives what it was made of.
#include "Arrays.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "QuarvelNormalMap/NM_Layers.h"

#include <algorithm>
#include <span>

UT_Result<IIO_Picture> layersOf(const ShownFrame& frame)
{
    if (frame.kind != RenderedKind::NORMALS)
        return UT_Error{QStringLiteral("what is shown are not normals; connect a Vallorin node to the display")};
    return NM_layersPicture(*frame.picture, frame.window, frame.window, NM_YAxis::UP, true);
}

pybind11::array_t<float> channelsOf(const IIO_Picture& picture, int first, int count)
{
    std::vector<pybind11::ssize_t> shape{picture.height(), picture.width()};
    if (count > 1)
        shape.push_back(count);
    pybind11::array_t<float> array(shape);
    float* to = array.mutable_data();
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y1 + picture.height(); ++y) {
        const std::span<const float> row = picture.row<float>(y);
        for (auto i = static_cast<std::size_t>(first); i < row.size();
             i += static_cast<std::size_t>(picture.channelCount()))
            to = std::copy_n(row.begin() + static_cast<std::ptrdiff_t>(i), count, to);
    }
    return array;
}

UT_Result<QImage> imageOf(const pybind11::array_t<std::uint8_t, pybind11::array::c_style>& array)
{
    constexpr pybind11::ssize_t kMost = 32767; // pixels of a side
    if (array.ndim() != 3 || array.shape(2) != 4)
        return UT_Error{QStringLiteral("expected an array of height x width x 4 bytes (red, green, blue, alpha)")};
    const pybind11::ssize_t height = array.shape(0);
    const pybind11::ssize_t width = array.shape(1);
    if (height < 1 || width < 1 || height > kMost || width > kMost)
        return UT_Error{
            QStringLiteral("expected 1 to %1 rows and columns, got %2 x %3").arg(kMost).arg(height).arg(width)};
    const QImage view(array.data(), static_cast<int>(width), static_cast<int>(height),
                      static_cast<qsizetype>(width * 4), QImage::Format_RGBA8888);
    return GR_imageInFormat(view, QImage::Format_ARGB32);
}
