// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelCelCore/private/CELVEC_CrowdedPath.h"

#include "QuarvelCelCore/CELVEC_PathCoverage.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kFewElements = 256;
// Steps from one pixel of a line to the next, as many as a painter takes when it follows every line anew for each row
// of pixels.
constexpr double kMostSteps = 1e8;
// Cells that a painter passes to find those of a line among the others of their rows, which it keeps in lists.
constexpr double kMostListed = 2e6;
constexpr double kFarthest = 32767.0; // pixels; a painter cuts off what lies beyond
constexpr int kRowsAtOnce = 128;      // each time, all of the outline is followed

// The sides of a path's lines, curves taken as the lines between their control points.
double stepsFor(const QPainterPath& path, const QTransform& toPixel)
{
    double steps = 0.0;
    QPointF last;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF point = toPixel.map(QPointF(element));
        const QPointF side = point - last;
        last = point;
        if (!element.isMoveTo())
            steps += (std::abs(side.x()) + std::abs(side.y())) * std::abs(side.y());
    }
    return steps;
}

QPointF within(const QPointF& point)
{
    return {std::clamp(point.x(), -kFarthest, kFarthest), std::clamp(point.y(), -kFarthest, kFarthest)};
}

// Half the cells of the outline times those of a row, of which there are no more than columns.
double cellsListed(const QPainterPath& path, const QTransform& toPixel)
{
    double cells = 0.0;
    QPointF first(kFarthest, kFarthest);
    QPointF beyond(-kFarthest, -kFarthest);
    QPointF last;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        const QPointF point = within(toPixel.map(QPointF(element)));
        first = {std::min(first.x(), point.x()), std::min(first.y(), point.y())};
        beyond = {std::max(beyond.x(), point.x()), std::max(beyond.y(), point.y())};
        if (!element.isMoveTo())
            cells += (point - last).manhattanLength();
        last = point;
    }
    const double columns = std::max(beyond.x() - first.x(), 1.0);
    const double rows = std::max(beyond.y() - first.y(), 1.0);
    return 0.5 * cells * std::min(cells / rows, columns);
}

QRect boxWithin(const QRect& picture, const QPainterPath& outline)
{
    return picture & outline.controlPointRect().intersected(QRectF(picture)).toAlignedRect();
}

// The picture of a paint where it covers.
void takeCoverage(std::span<const std::uint8_t> covered, QRgba64 paint, QImage& rows)
{
    const auto width = static_cast<std::size_t>(rows.width());
    const auto part = [](quint16 channel, unsigned coverage) {
        return static_cast<quint16>((channel * coverage + 127U) / 255U);
    };
    for (int y = 0; y < rows.height(); ++y) {
        const std::span from = covered.subspan(static_cast<std::size_t>(y) * width, width);
        const std::span to(reinterpret_cast<QRgba64*>(rows.scanLine(y)), width);
        std::ranges::transform(from, to.begin(), [&](unsigned coverage) {
            return qRgba64(part(paint.red(), coverage), part(paint.green(), coverage), part(paint.blue(), coverage),
                           part(paint.alpha(), coverage));
        });
    }
}

} // namespace

bool CELVEC_isCrowded(const QPainterPath& path, const QTransform& toPixel)
{
    if (cellsListed(path, toPixel) > kMostListed)
        return true;
    if (path.elementCount() <= kFewElements)
        return false;
    const double steps = stepsFor(path, toPixel);
    return steps > kMostSteps && std::isfinite(steps);
}

void CELVEC_fillCrowded(QPainter& painter, const QPainterPath& path, const QPainterPath* clip, const QColor& paint)
{
    const QPainterPath outline = painter.transform().map(path);
    const QPainterPath around = clip ? painter.transform().map(*clip) : QPainterPath();
    const QRect picture(0, 0, painter.device()->width(), painter.device()->height());
    const QRect box = boxWithin(picture, outline) & (clip ? boxWithin(picture, around) : picture);
    if (box.isEmpty())
        return;
    painter.resetTransform();
    painter.setClipping(false);
    const QRgba64 pixel = paint.rgba64().premultiplied();
    const auto width = static_cast<std::size_t>(box.width());
    CELVEC_PathCoverage<double> coverage({0.0, 0.0}, {1.0, 1.0});
    std::vector<std::uint8_t> covered(width * kRowsAtOnce);
    std::vector<std::uint8_t> kept(clip ? covered.size() : 0);
    QImage rows = GR_newImage({box.width(), kRowsAtOnce}, QImage::Format_RGBA64_Premultiplied);
    for (int top = box.top(); top <= box.bottom(); top += kRowsAtOnce) {
        const QRect part(box.left(), top, box.width(), std::min(kRowsAtOnce, box.bottom() + 1 - top));
        const std::size_t pixels = width * static_cast<std::size_t>(part.height());
        coverage.find(outline, part, std::span(covered).first(pixels));
        if (clip) {
            coverage.find(around, part, std::span(kept).first(pixels));
            std::ranges::transform(covered, kept, covered.begin(), [](unsigned of, unsigned share) {
                return static_cast<std::uint8_t>((of * share + 127U) / 255U);
            });
        }
        takeCoverage(covered, pixel, rows);
        painter.drawImage(part.topLeft(), rows, QRect(QPoint(), part.size()));
    }
}
