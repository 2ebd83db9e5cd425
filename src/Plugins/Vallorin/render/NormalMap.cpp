// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The normals, three depth rows at a time. A row beyond the pixmap's edge reads as black, which is as good as missing.
#include "render/NormalMap.h"

#include "QuarvelBaseCore/Math_Vector3d.h"
#include "render/NormalSmoothing.h"
#include "render/PixelTraits.h"

#include <vector>

namespace {

using Math::Vector3d;

// Three rows of depth with one black pixel on either side.
class DepthWindow
{
public:
    explicit DepthWindow(const CEL_PixmapAreaZ& depth)
        : _depth(depth), _black(static_cast<std::size_t>(depth.allocatedRect().width()) + 2)
    {
        for (auto& row : _rows)
            row = _black;
    }

    void moveTo(int y)
    {
        if (y == _depth.allocatedRect().y1)
            load(_rows[1], y);
        else {
            std::swap(_rows[0], _rows[1]);
            std::swap(_rows[1], _rows[2]);
        }
        load(_rows[2], y + 1);
    }

    // The depth of column i of the row and its neighbours, from -1 to 1 in both directions.
    float at(std::size_t i, int dx, int dy) const
    {
        return _rows[static_cast<std::size_t>(dy + 1)][i + static_cast<std::size_t>(dx + 1)];
    }

private:
    void load(std::vector<float>& row, int y) const
    {
        if (y >= _depth.allocatedRect().y2) {
            row = _black;
            return;
        }
        const auto source = _depth.row(y);
        for (std::size_t i = 0; i < source.size(); ++i)
            row[i + 1] = source[i].value;
    }

    const CEL_PixmapAreaZ& _depth;
    std::vector<float> _black;
    std::vector<float> _rows[3];
};

bool isBlack(float depth)
{
    return CEL_PixelFloat{depth}.isBlack();
}

Vector3d normalOf(const Vector3d& a, const Vector3d& b)
{
    Vector3d normal = a.getCrossProduct(b);
    normal.normalize();
    return normal;
}

// Differences are taken in float, as depths are stored, and only then widened.
Vector3d normalAt(const DepthWindow& z, std::size_t i, int quality)
{
    const float left = z.at(i, -1, 0);
    const float right = z.at(i, 1, 0);
    const float above = z.at(i, 0, -1);
    const float below = z.at(i, 0, 1);
    if (isBlack(left) || isBlack(right) || isBlack(above) || isBlack(below))
        return {};
    const Vector3d axes = normalOf({2.0, 0.0, right - left}, {0.0, 2.0, below - above});
    if (quality == FOUR_NEIGHBOURS)
        return axes;
    const float aboveLeft = z.at(i, -1, -1);
    const float belowRight = z.at(i, 1, 1);
    const float aboveRight = z.at(i, 1, -1);
    const float belowLeft = z.at(i, -1, 1);
    if (isBlack(aboveLeft) || isBlack(belowRight) || isBlack(aboveRight) || isBlack(belowLeft))
        return axes;
    const Vector3d diagonals = normalOf({2.0, 2.0, belowRight - aboveLeft}, {-2.0, 2.0, belowLeft - aboveRight});
    Vector3d normal = 0.5 * axes + 0.5 * diagonals;
    normal.normalize();
    return normal;
}

template<typename Pixel>
void normalRow(const DepthWindow& z, std::span<const Pixel> blurred, int quality, std::span<Pixel> normals)
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < normals.size(); ++i) {
        if (isBlack(z.at(i, 0, 0))) {
            normals[i] = {0, 0, Traits::kFull, 0};
            continue;
        }
        const Vector3d normal = normalAt(z, i, quality);
        normals[i] = {Traits::component(normal.x), Traits::component(normal.y), blurred[i].b, Traits::kFull};
    }
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> buildNormals(const CEL_PixmapAreaZ& depth, const CEL_PixmapOf<Pixel>& blurred,
                                               int quality)
{
    auto normals = UT_makeShared<CEL_PixmapOf<Pixel>>(depth.size(), depth.canvasRect());
    normals->realloc(depth.allocatedRect(), false);
    DepthWindow window(depth);
    for (int y = depth.allocatedRect().y1; y < depth.allocatedRect().y2; ++y) {
        window.moveTo(y);
        normalRow<Pixel>(window, blurred.row(y), quality, normals->row(y));
    }
    if (quality == EIGHT_NEIGHBOURS_SMOOTHED)
        return smoothNormals<Pixel>(*normals);
    return normals;
}

template UT_SharedPtr<CEL_PixmapAreaRGBA16> buildNormals<CEL_PixelRGBA16>(const CEL_PixmapAreaZ&,
                                                                          const CEL_PixmapAreaRGBA16&, int);
template UT_SharedPtr<CEL_PixmapAreaRGBAFloat> buildNormals<CEL_PixelRGBAFloat>(const CEL_PixmapAreaZ&,
                                                                                const CEL_PixmapAreaRGBAFloat&, int);
