// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each pixel is decoded once, into a window of three rows; the samples are then summed in one fixed order.
#include "render/NormalSmoothing.h"

#include "MultiStageKvd/NormalParser.h"
#include "render/PixelTraits.h"

#include <array>
#include <vector>

namespace {

using Math::Vector3d;

struct Sample
{
    Vector3d normal;
    bool exists = false;
};

struct Tap
{
    int dx;
    int dy;
    double weight;
};

constexpr std::array<Tap, 9> kTaps = {{{-1, 0, 0.125},
                                       {0, -1, 0.125},
                                       {0, 0, 0.25},
                                       {0, 1, 0.125},
                                       {1, 0, 0.125},
                                       {-1, -1, 0.0625},
                                       {-1, 1, 0.0625},
                                       {1, -1, 0.0625},
                                       {1, 1, 0.0625}}};

// The decoded samples of three rows, one column wider than the pixmap on either side.
class SampleWindow
{
public:
    SampleWindow(const NormalParser& parser, const Math::Box2di& rect) : _parser(parser), _rect(rect)
    {
        for (auto& row : _rows)
            row.resize(static_cast<std::size_t>(rect.width()) + 2);
        load(_rows[1], rect.y1 - 1);
        load(_rows[2], rect.y1);
    }

    void moveTo(int y)
    {
        std::swap(_rows[0], _rows[1]);
        std::swap(_rows[1], _rows[2]);
        load(_rows[2], y + 1);
    }

    const Sample& at(std::size_t i, int dx, int dy) const
    {
        return _rows[static_cast<std::size_t>(dy + 1)][i + static_cast<std::size_t>(dx + 1)];
    }

private:
    void load(std::vector<Sample>& row, int y) const
    {
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i].exists = _parser.normalAt(_rect.x1 - 1 + static_cast<int>(i), y, row[i].normal);
    }

    const NormalParser& _parser;
    Math::Box2di _rect;
    std::array<std::vector<Sample>, 3> _rows;
};

template<typename Pixel>
void smoothPixel(const SampleWindow& window, std::size_t i, Pixel& pixel)
{
    using Traits = VolumeTraits<Pixel>;
    Vector3d sum;
    double total = 0.0;
    for (const Tap& tap : kTaps) {
        const Sample& sample = window.at(i, tap.dx, tap.dy);
        if (!sample.exists)
            continue;
        sum += tap.weight * sample.normal;
        total += tap.weight;
    }
    if (total == 0.0)
        return;
    sum.normalize();
    pixel.r = Traits::component(sum.x);
    pixel.g = Traits::component(sum.y);
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> smoothNormals(const CEL_PixmapOf<Pixel>& normals)
{
    auto smoothed = normals.clone().template dynamicCast<CEL_PixmapOf<Pixel>>();
    const NormalParser parser(normals);
    const Math::Box2di rect = normals.allocatedRect();
    SampleWindow window(parser, rect);
    for (int y = rect.y1; y < rect.y2; ++y) {
        window.moveTo(y);
        const std::span<Pixel> row = smoothed->row(y);
        for (std::size_t i = 0; i < row.size(); ++i)
            smoothPixel(window, i, row[i]);
    }
    return smoothed;
}

template UT_SharedPtr<CEL_PixmapAreaRGBA16> smoothNormals<CEL_PixelRGBA16>(const CEL_PixmapAreaRGBA16&);
template UT_SharedPtr<CEL_PixmapAreaRGBAFloat> smoothNormals<CEL_PixelRGBAFloat>(const CEL_PixmapAreaRGBAFloat&);
