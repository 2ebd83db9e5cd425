// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A stack of open groups. When a group ends, its shapes go to the group around it.
#include "QuarvelDrawingIO/private/DIO_ShapeGroups.h"

#include "QuarvelDrawingIO/private/DIO_MaskBrightness.h"

#include <utility>

namespace {

double brightness(const QColor& colour)
{
    return DIO_maskBrightness(static_cast<double>(colour.redF()), static_cast<double>(colour.greenF()),
                              static_cast<double>(colour.blueF()));
}

} // namespace

void DIO_ShapeGroups::setLayer(int layer)
{
    _layer = layer;
    ++_run;
}

void DIO_ShapeGroups::add(DIO_Shape shape)
{
    shapesOf(_layer, _run).push_back(std::move(shape));
}

void DIO_ShapeGroups::beginFading(double opacity)
{
    _open.emplace_back().opacity = opacity;
}

void DIO_ShapeGroups::endFading()
{
    Group group = close();
    for (Run& run : group.runs)
        _tooDetailed += DIO_fade(run.shapes, group.opacity, _work);
    keep(group.runs);
}

void DIO_ShapeGroups::beginMask(DIO_MaskKind kind)
{
    _open.emplace_back().maskKind = kind;
    ++_masksOpen;
}

void DIO_ShapeGroups::endMask(const std::vector<DIO_Paint>& palette)
{
    const Group mask = close();
    --_masksOpen;
    std::vector<DIO_Shape> shapes;
    for (const Run& run : mask.runs)
        shapes.insert(shapes.end(), run.shapes.begin(), run.shapes.end());
    const bool byCoverage = mask.maskKind == DIO_MaskKind::COVERAGE;
    Group& masked = _open.emplace_back();
    masked.maskKind = mask.maskKind;
    if (DIO_PictureMask::isNeededFor(shapes)) {
        masked.pictureMask.emplace(shapes, palette, byCoverage, _picturePixels);
        return;
    }
    for (const DIO_Shape& shape : shapes) {
        const QColor& colour = palette[static_cast<std::size_t>(shape.paint)].colour;
        masked.mask.push_back({DIO_paintedArea(shape, &_work), shape.opacity, byCoverage ? 1.0 : brightness(colour)});
    }
}

void DIO_ShapeGroups::endMasked(const std::vector<DIO_Paint>& palette)
{
    Group group = close();
    if (!group.pictureMask)
        cutByLevels(group);
    for (Run& run : group.runs)
        if (group.pictureMask)
            _tooDetailed += group.pictureMask->cut(run.shapes, palette, _picturePixels);
    keep(group.runs);
}

void DIO_ShapeGroups::cutByLevels(Group& group)
{
    QRectF page;
    for (const Run& run : group.runs)
        page |= DIO_boundsOf(run.shapes);
    DIO_CoverageLevels levels(page.adjusted(-1.0, -1.0, 1.0, 1.0), 0.0, _work);
    if (group.maskKind == DIO_MaskKind::NESTED_BRIGHTNESS)
        levels.paintNested(group.mask);
    else
        levels.paint(group.mask);
    _tooDetailed += levels.skipped();
    for (Run& run : group.runs)
        _tooDetailed += DIO_cut(run.shapes, levels, _work);
}

std::vector<DIO_ShapeGroups::Run> DIO_ShapeGroups::take()
{
    return std::exchange(_open.front().runs, {});
}

// Documents that are read in part leave groups open or close too many; the outermost one stays.
DIO_ShapeGroups::Group DIO_ShapeGroups::close()
{
    if (_open.size() == 1)
        return {};
    Group group = std::move(_open.back());
    _open.pop_back();
    return group;
}

void DIO_ShapeGroups::keep(const std::vector<Run>& runs)
{
    for (const Run& run : runs)
        if (!run.shapes.empty()) {
            std::vector<DIO_Shape>& shapes = shapesOf(run.layer, run.number);
            shapes.insert(shapes.end(), run.shapes.begin(), run.shapes.end());
        }
}

std::vector<DIO_Shape>& DIO_ShapeGroups::shapesOf(int layer, int number)
{
    std::vector<Run>& runs = _open.back().runs;
    if (runs.empty() || runs.back().number != number)
        runs.push_back({layer, number, {}});
    return runs.back().shapes;
}
