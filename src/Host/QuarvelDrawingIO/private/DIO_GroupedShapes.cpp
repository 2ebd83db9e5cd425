// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Shapes are painted one over the other, so that opacities a and b make up 1 - (1 - a)(1 - b). Where a place is to
// reach b and the areas below it have reached a already, what is added there is 1 - (1 - b) / (1 - a).
#include "QuarvelDrawingIO/private/DIO_GroupedShapes.h"

#include "QuarvelDrawingIO/DIO_PathSets.h"
#include "QuarvelDrawingIO/private/DIO_PictureForm.h"

#include <algorithm>
#include <optional>

namespace {

// Opacities below this count as 0, and fading by less is left out: no 8-bit picture shows the difference.
constexpr double kInvisible = 1.0 / 1024.0;

double added(double reached, double wanted)
{
    return reached >= 1.0 ? 0.0 : 1.0 - (1.0 - wanted) / (1.0 - reached);
}

// Clips one shape after the other by the same area. Neighbours often share a clip, which is then cut once.
class Clipper
{
public:
    Clipper(const QPainterPath& area, DIO_PathWork& work)
        : _area(area), _work(work), _isRectangle(DIO_isRectangle(area))
    {}

    // No result when it is too detailed; the shape may have become empty.
    bool clip(DIO_Shape& shape)
    {
        const QRectF bounds = shape.path.controlPointRect();
        if (contains(bounds))
            return true;
        if (!shape.clip) {
            shape.clip = _area;
            return true;
        }
        if (!_before || *_before != *shape.clip) {
            _before = shape.clip;
            _after = DIO_intersected(*shape.clip, _area, &_work);
        }
        if (_after)
            shape.clip = _after;
        return _after.has_value();
    }

private:
    // Of detailed areas, the clip itself is cheaper than the question.
    bool contains(const QRectF& bounds) const
    {
        constexpr int kDetailed = 32;
        if (!_area.controlPointRect().contains(bounds))
            return false;
        return _isRectangle || (_area.elementCount() < kDetailed && _area.contains(bounds));
    }

    const QPainterPath& _area;
    DIO_PathWork& _work;
    bool _isRectangle;
    std::optional<QPainterPath> _before;
    std::optional<QPainterPath> _after;
};

bool paintsNothing(const DIO_Shape& shape)
{
    return !(shape.opacity > kInvisible) ||
           (shape.clip && !shape.clip->controlPointRect().intersects(shape.path.controlPointRect()));
}

QRectF boundsOf(const DIO_Shape& shape)
{
    const QRectF bounds = shape.path.controlPointRect();
    return shape.clip ? bounds & shape.clip->controlPointRect() : bounds;
}

// For each shape, whether it overlaps no other one. Of more shapes than can be compared in pairs, the later ones count
// as standing alone. Nothing when no work is left for it.
std::optional<std::vector<bool>> standAlone(const std::vector<DIO_Shape>& shapes, DIO_PathWork& work)
{
    constexpr std::size_t kMost = 3000;
    constexpr std::size_t kPairsPerUnit = 128;
    const std::size_t compared = std::min(shapes.size(), kMost);
    if (!work.take(static_cast<int>(compared * compared / 2 / kPairsPerUnit)))
        return std::nullopt;
    std::vector<bool> alone(shapes.size(), true);
    std::vector<QRectF> bounds;
    bounds.reserve(shapes.size());
    for (const DIO_Shape& shape : shapes)
        bounds.push_back(boundsOf(shape));
    for (std::size_t i = 0; i < compared; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (bounds[i].intersects(bounds[j]))
                alone[i] = alone[j] = false;
    return alone;
}

// As if no shape overlapped another one.
void fadeEach(std::vector<DIO_Shape>& shapes, double opacity)
{
    for (DIO_Shape& shape : shapes)
        shape.opacity *= opacity;
}

// The opacity of a shape under an already faded group: the more opaque that group is, the less is painted.
DIO_CoverageLevels leftBelow(const DIO_CoverageLevels& above, const DIO_Shape& shape, double opacity,
                             DIO_PathWork& work)
{
    DIO_CoverageLevels left(boundsOf(shape).adjusted(-1.0, -1.0, 1.0, 1.0), 1.0, work);
    for (const DIO_CoverageLevels::Level& level : above.levels()) {
        const double together = 1.0 - (1.0 - level.value) * (1.0 - shape.opacity);
        const double wanted = added(opacity * level.value, opacity * together);
        left.change(level.area, false, 0.0, wanted / (opacity * shape.opacity));
    }
    return left;
}

} // namespace

QPainterPath DIO_paintedArea(const DIO_Shape& shape, DIO_PathWork* work)
{
    return shape.clip ? DIO_intersected(shape.path, *shape.clip, work).value_or(*shape.clip) : shape.path;
}

QRectF DIO_boundsOf(const std::vector<DIO_Shape>& shapes)
{
    QRectF bounds;
    for (const DIO_Shape& shape : shapes)
        bounds |= boundsOf(shape);
    return bounds;
}

int DIO_cut(std::vector<DIO_Shape>& shapes, const DIO_CoverageLevels& mask, DIO_PathWork& work)
{
    std::vector<Clipper> clippers;
    for (const DIO_CoverageLevels::Level& level : mask.levels())
        clippers.emplace_back(level.area, work);
    std::vector<DIO_Shape> cut;
    int whole = 0;
    for (const DIO_Shape& shape : shapes) {
        double reached = 0.0;
        for (std::size_t i = 0; i < clippers.size(); ++i) {
            const double wanted = shape.opacity * mask.levels()[i].value;
            DIO_Shape part = shape;
            part.opacity = added(reached, wanted);
            reached = wanted;
            whole += clippers[i].clip(part) ? 0 : 1;
            if (!paintsNothing(part))
                cut.push_back(std::move(part));
        }
    }
    shapes = std::move(cut);
    return whole;
}

int DIO_clip(std::vector<DIO_Shape>& shapes, const QPainterPath& area, DIO_PathWork& work)
{
    Clipper clipper(area, work);
    int whole = 0;
    for (DIO_Shape& shape : shapes)
        whole += clipper.clip(shape) ? 0 : 1;
    std::erase_if(shapes, paintsNothing);
    return whole;
}

int DIO_fade(std::vector<DIO_Shape>& shapes, double opacity, DIO_PathWork& work)
{
    if (opacity >= 1.0 - kInvisible)
        return 0;
    const std::optional<std::vector<bool>> alone = standAlone(shapes, work);
    if (!alone) {
        fadeEach(shapes, opacity);
        return 1;
    }
    // From the top down: what a shape adds depends on how opaque the group already is above it.
    DIO_CoverageLevels above(DIO_boundsOf(shapes).adjusted(-1.0, -1.0, 1.0, 1.0), 0.0, work);
    std::vector<DIO_Shape> faded;
    int tooDetailed = 0;
    for (std::size_t i = shapes.size(); i-- > 0;) {
        const DIO_Shape& shape = shapes[i];
        std::vector<DIO_Shape> parts{shape};
        parts.front().opacity *= opacity;
        if (!(*alone)[i]) {
            const DIO_CoverageLevels left = leftBelow(above, shape, opacity, work);
            tooDetailed += left.skipped() + DIO_cut(parts, left, work);
            if (shape.picture.isNull() || DIO_isOpaque(shape.picture))
                above.paint(DIO_paintedArea(shape, &work), false, shape.opacity, 1.0);
            else
                ++tooDetailed; // The outline of what a picture shows is no path.
        }
        faded.insert(faded.end(), parts.rbegin(), parts.rend());
    }
    std::ranges::reverse(faded);
    shapes = std::move(faded);
    return tooDetailed + above.skipped();
}
