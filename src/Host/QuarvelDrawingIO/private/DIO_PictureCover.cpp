// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/DIO_PictureCover.h"

#include <algorithm>

namespace {

constexpr double kMostPages = 64.0;

double areaOf(const QRectF& rect)
{
    return rect.width() * rect.height();
}

QRectF shownPart(const DIO_Shape& shape, const QRectF& page)
{
    const QRectF part = shape.path.controlPointRect() & page;
    return shape.clip ? part & shape.clip->controlPointRect() : part;
}

// Takes the area of a layer's pictures, from the top down, from what is left.
//
// @return how many are left out
int limitLayer(DIO_Layer& layer, const QRectF& page, double& left)
{
    std::vector<DIO_Shape> kept;
    for (auto shape = layer.shapes.rbegin(); shape != layer.shapes.rend(); ++shape) {
        if (!shape->picture.isNull())
            left -= areaOf(shownPart(*shape, page));
        if (shape->picture.isNull() || left >= 0.0)
            kept.push_back(std::move(*shape));
    }
    std::ranges::reverse(kept);
    const auto leftOut = static_cast<int>(layer.shapes.size() - kept.size());
    layer.shapes = std::move(kept);
    return leftOut;
}

} // namespace

void DIO_limitPictures(DIO_Drawing& drawing)
{
    double left = kMostPages * areaOf(drawing.viewBox);
    int leftOut = 0;
    for (auto layer = drawing.layers.rbegin(); layer != drawing.layers.rend(); ++layer)
        leftOut += limitLayer(*layer, drawing.viewBox, left);
    if (leftOut == 0)
        return;
    std::erase_if(drawing.layers, [](const DIO_Layer& layer) { return layer.shapes.empty(); });
    drawing.warnings.append(QStringLiteral("pictures cover the drawing more than %1 times, the lowest are left out: %2")
                                .arg(kMostPages)
                                .arg(leftOut));
}
