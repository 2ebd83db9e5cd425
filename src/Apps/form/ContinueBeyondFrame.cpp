// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where a side of the picture cuts a layer, every stretch of that side that the layer covers gets a rectangle outside
// the picture. If the stretch ends in a corner and the corner's other side cuts the layer too, the rectangle includes
// the area outside the corner.
#include "form/ContinueBeyondFrame.h"

#include "form/raster/CutSides.h"

#include <vector>

namespace {

constexpr int kCells = 256;
constexpr double kBeyond = 0.5;  // of the picture's longer side: farther than any bevel reaches
constexpr double kGoesOn = 0.02; // of the longer side: a path that continues this far is left alone
constexpr int kShortest = 3;     // cells; shorter stretches are left out

struct Stretch
{
    int from;
    int to; // after the last cell
};

template<typename IsCovered>
std::vector<Stretch> stretches(int count, IsCovered isCovered)
{
    std::vector<Stretch> found;
    int from = -1;
    for (int i = 0; i <= count; ++i) {
        const bool covered = i < count && isCovered(i);
        if (covered && from < 0)
            from = i;
        if (!covered && from >= 0) {
            if (i - from >= kShortest)
                found.push_back({from, i});
            from = -1;
        }
    }
    return found;
}

QRectF boundsOf(const DIO_Layer& layer)
{
    QRectF bounds;
    for (const DIO_Shape& shape : layer.shapes)
        bounds |= shape.clip ? shape.path.boundingRect() & shape.clip->boundingRect() : shape.path.boundingRect();
    return bounds;
}

// Whether an area comes near enough to the frame's border to cover cells along it.
bool reachesBorder(const QRectF& bounds, const Grid& grid)
{
    constexpr double kNear = 2.0; // cells
    const double margin = kNear * std::max(grid.frame.width() / grid.width, grid.frame.height() / grid.height);
    return !grid.frame.adjusted(margin, margin, -margin, -margin).contains(bounds);
}

class Continuation
{
public:
    Continuation(const DIO_Layer& layer, const QRectF& bounds, const Grid& grid, const QRectF& page)
        : _grid(grid)
        , _mask(CellMask::of(layer.shapes, _grid))
        , _cut(cutSides(_mask, _grid.bounds()))
        , _far(kBeyond * std::max(grid.frame.width(), grid.frame.height()))
        , _bounds(bounds)
    {
        const QRectF& frame = grid.frame;
        _cut.left = _cut.left && page.left() == frame.left();
        _cut.right = _cut.right && page.right() == frame.right();
        _cut.top = _cut.top && page.top() == frame.top();
        _cut.bottom = _cut.bottom && page.bottom() == frame.bottom();
    }

    /// The rectangles to add.
    std::vector<QRectF> rectangles() const
    {
        const QRectF& frame = _grid.frame;
        const double enough = kGoesOn * std::max(frame.width(), frame.height());
        std::vector<QRectF> added;
        if (_cut.left && frame.left() - _bounds.left() < enough)
            for (const Stretch& s : along(false, _grid.bounds().left()))
                added.emplace_back(QPointF(frame.left() - _far, top(s)), QPointF(frame.left(), bottom(s)));
        if (_cut.right && _bounds.right() - frame.right() < enough)
            for (const Stretch& s : along(false, _grid.bounds().right()))
                added.emplace_back(QPointF(frame.right(), top(s)), QPointF(frame.right() + _far, bottom(s)));
        if (_cut.top && frame.top() - _bounds.top() < enough)
            for (const Stretch& s : along(true, _grid.bounds().top()))
                added.emplace_back(QPointF(left(s), frame.top() - _far), QPointF(right(s), frame.top()));
        if (_cut.bottom && _bounds.bottom() - frame.bottom() < enough)
            for (const Stretch& s : along(true, _grid.bounds().bottom()))
                added.emplace_back(QPointF(left(s), frame.bottom()), QPointF(right(s), frame.bottom() + _far));
        return added;
    }

private:
    std::vector<Stretch> along(bool row, int place) const
    {
        return row ? stretches(_grid.width, [&](int x) { return _mask.at(x, place); })
                   : stretches(_grid.height, [&](int y) { return _mask.at(place, y); });
    }

    double left(const Stretch& s) const
    {
        const bool around = s.from == 0 && _cut.left;
        return _grid.frame.left() + (around ? -_far : s.from * _grid.frame.width() / _grid.width);
    }
    double right(const Stretch& s) const
    {
        const bool around = s.to == _grid.width && _cut.right;
        return around ? _grid.frame.right() + _far : _grid.frame.left() + s.to * _grid.frame.width() / _grid.width;
    }
    double top(const Stretch& s) const { return _grid.frame.top() + s.from * _grid.frame.height() / _grid.height; }
    double bottom(const Stretch& s) const { return _grid.frame.top() + s.to * _grid.frame.height() / _grid.height; }

    Grid _grid;
    CellMask _mask;
    CutSides _cut;
    double _far;
    QRectF _bounds;
};

} // namespace

void continueBeyondFrame(ChosenObjects& chosen, const QRectF& page)
{
    const QRectF& frame = chosen.drawing.viewBox;
    if (frame.isEmpty())
        return;
    const Grid grid = Grid::over(frame, kCells);
    for (std::size_t i = 0; i < chosen.objects.size(); ++i) {
        const ObjectRole role = chosen.objects[i].role;
        DIO_Layer& layer = chosen.drawing.layers[i];
        const QRectF bounds = boundsOf(layer);
        if (role == ObjectRole::SLAB || role == ObjectRole::FLAT || !reachesBorder(bounds, grid))
            continue;
        const int paint = layer.shapes.front().paint;
        for (const QRectF& rectangle : Continuation(layer, bounds, grid, page).rectangles()) {
            DIO_Shape shape;
            shape.path.addRect(rectangle);
            shape.paint = paint;
            // Beneath the layer's other shapes, so that these keep their edges at the border.
            layer.shapes.insert(layer.shapes.begin(), shape);
        }
    }
}
