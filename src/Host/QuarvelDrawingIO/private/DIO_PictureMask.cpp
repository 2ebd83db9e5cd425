// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Painting the mask, and cutting by it. Coverage between pixels' centres is interpolated linearly, in double precision.
#include "QuarvelDrawingIO/private/DIO_PictureMask.h"

#include "QuarvelDrawingIO/private/DIO_GroupedShapes.h"
#include "QuarvelDrawingIO/private/DIO_MaskBrightness.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QPainter>
#include <QRgba64>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// The most pixels that a mask has, within the budget, and that all its shapes together may paint.
double mostPixels(std::size_t shapes, qint64 pixelBudget)
{
    constexpr double kMostPixels = 16.0 * 1024 * 1024;
    constexpr double kMostPainted = 256.0 * 1024 * 1024;
    return std::min({kMostPixels, kMostPainted / static_cast<double>(shapes),
                     static_cast<double>(std::max<qint64>(pixelBudget, 1))});
}

QSizeF pixelOf(const DIO_Shape& shape)
{
    const QRectF place = shape.path.boundingRect();
    return {place.width() / shape.picture.width(), place.height() / shape.picture.height()};
}

double areaOf(const QSizeF& size)
{
    return size.width() * size.height();
}

// The picture with the finest pixels.
const DIO_Shape& finestOf(std::span<const DIO_Shape> shapes)
{
    const auto fineness = [](const DIO_Shape& shape) {
        return shape.picture.isNull() ? std::numeric_limits<double>::infinity() : areaOf(pixelOf(shape));
    };
    return *std::ranges::min_element(shapes, {}, fineness);
}

// Whole pixels around an area, on a grid that starts anywhere.
QRectF onGrid(const QRectF& area, const QPointF& start, const QSizeF& pixel)
{
    constexpr double kRounding = 1e-6;
    const auto down = [](double from, double origin, double step) {
        return origin + step * std::floor((from - origin) / step + kRounding);
    };
    const auto up = [](double to, double origin, double step) {
        return origin + step * std::ceil((to - origin) / step - kRounding);
    };
    return {QPointF(down(area.left(), start.x(), pixel.width()), down(area.top(), start.y(), pixel.height())),
            QPointF(up(area.right(), start.x(), pixel.width()), up(area.bottom(), start.y(), pixel.height()))};
}

void paint(QPainter& painter, const DIO_Shape& shape, const QColor& colour, const QTransform& toPixels)
{
    painter.setClipping(shape.clip.has_value());
    if (shape.clip)
        painter.setClipPath(toPixels.map(*shape.clip));
    painter.setOpacity(shape.opacity);
    // A picture whose pixels are the grid's is copied.
    if (shape.picture.isNull())
        painter.fillPath(toPixels.map(shape.path), colour);
    else
        painter.drawImage(toPixels.mapRect(shape.path.boundingRect()), shape.picture);
}

// Of colours that are multiplied by coverage, 0 to 255.
double brightness(QRgb pixel)
{
    return DIO_maskBrightness(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

int toByte(double value)
{
    return static_cast<int>(std::clamp(value + 0.5, 0.0, 255.0));
}

QRgb faded(QRgb pixel, double coverage)
{
    return (pixel & RGB_MASK) | static_cast<QRgb>(toByte(qAlpha(pixel) * coverage)) << 24;
}

QRgba64 faded(QRgba64 pixel, double coverage)
{
    pixel.setAlpha(static_cast<quint16>(pixel.alpha() * coverage + 0.5));
    return pixel;
}

template<typename Pixel>
const Pixel* pixels(const QImage& image, int row)
{
    return reinterpret_cast<const Pixel*>(image.constScanLine(row));
}

template<typename Pixel>
Pixel* pixels(QImage& image, int row)
{
    return reinterpret_cast<Pixel*>(image.scanLine(row));
}

} // namespace

bool DIO_PictureMask::isNeededFor(std::span<const DIO_Shape> shapes)
{
    return std::ranges::any_of(shapes, [](const DIO_Shape& shape) { return !shape.picture.isNull(); });
}

DIO_PictureMask::DIO_PictureMask(std::span<const DIO_Shape> shapes, std::span<const DIO_Paint> palette, bool byCoverage,
                                 qint64& pixelBudget)
{
    const DIO_Shape& finest = finestOf(shapes);
    const QRectF all = DIO_boundsOf({shapes.begin(), shapes.end()});
    if (all.isEmpty())
        return;
    _pixel = pixelOf(finest);
    const double tooMany = areaOf(all.size()) / areaOf(_pixel) / mostPixels(shapes.size(), pixelBudget);
    if (tooMany > 1.0)
        _pixel *= std::sqrt(tooMany);
    _area = onGrid(all, finest.path.boundingRect().topLeft(), _pixel);
    const QSize size(std::max(1, qRound(_area.width() / _pixel.width())),
                     std::max(1, qRound(_area.height() / _pixel.height())));
    pixelBudget -= qint64{size.width()} * size.height();
    QImage painted = GR_newImage(size, QImage::Format_ARGB32_Premultiplied);
    painted.fill(Qt::transparent);
    QPainter painter(&painted);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QTransform toPixels = QTransform::fromTranslate(-_area.x(), -_area.y()) *
                                QTransform::fromScale(size.width() / _area.width(), size.height() / _area.height());
    for (const DIO_Shape& shape : shapes)
        paint(painter, shape, palette[static_cast<std::size_t>(shape.paint)].colour, toPixels);
    painter.end();

    _coverage = GR_newImage(size, QImage::Format_Grayscale8);
    for (int y = 0; y < size.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(painted.constScanLine(y));
        std::transform(from, from + size.width(), _coverage.scanLine(y), [byCoverage](QRgb pixel) {
            return static_cast<uchar>(byCoverage ? qAlpha(pixel) : toByte(brightness(pixel)));
        });
    }
}

int DIO_PictureMask::cut(std::vector<DIO_Shape>& shapes, std::span<const DIO_Paint> palette, qint64& pixelBudget) const
{
    int whole = 0;
    std::vector<DIO_Shape> kept;
    for (const DIO_Shape& shape : shapes) {
        const QRect pixels = touchedPixels(shape.path.controlPointRect());
        if (pixels.isEmpty())
            continue;
        const QSize made = shape.picture.isNull() ? pixels.size() : shape.picture.size();
        const qint64 count = qint64{made.width()} * made.height();
        if (count > pixelBudget) {
            ++whole;
            kept.push_back(shape);
            continue;
        }
        pixelBudget -= count;
        kept.push_back(shape.picture.isNull()
                           ? cutPlain(shape, pixels, palette[static_cast<std::size_t>(shape.paint)].colour)
                           : cutPicture(shape));
    }
    shapes = std::move(kept);
    return whole;
}

// Pixels of the grid that an area touches.
QRect DIO_PictureMask::touchedPixels(const QRectF& area) const
{
    const QRectF inside = area & _area;
    if (_coverage.isNull() || inside.isEmpty())
        return {};
    return QRectF((inside.x() - _area.x()) / _pixel.width(), (inside.y() - _area.y()) / _pixel.height(),
                  inside.width() / _pixel.width(), inside.height() / _pixel.height())
               .toAlignedRect() &
           _coverage.rect();
}

double DIO_PictureMask::coverageAt(const QPointF& place) const
{
    if (_coverage.isNull() || !_area.contains(place))
        return 0.0;
    const double x = std::clamp((place.x() - _area.x()) / _pixel.width() - 0.5, 0.0, _coverage.width() - 1.0);
    const double y = std::clamp((place.y() - _area.y()) / _pixel.height() - 0.5, 0.0, _coverage.height() - 1.0);
    const int left = static_cast<int>(x);
    const int top = static_cast<int>(y);
    const int right = std::min(left + 1, _coverage.width() - 1);
    const auto inRow = [&](int row) {
        const uchar* const values = _coverage.constScanLine(row);
        return values[left] + (x - left) * (values[right] - values[left]);
    };
    const double above = inRow(top);
    const double below = inRow(std::min(top + 1, _coverage.height() - 1));
    return (above + (y - top) * (below - above)) / 255.0;
}

DIO_Shape DIO_PictureMask::cutPicture(const DIO_Shape& shape) const
{
    DIO_Shape cut = shape;
    const QPointF start = shape.path.boundingRect().topLeft();
    const QSizeF pixel = pixelOf(shape);
    const auto coverage = [&](int x, int y) {
        return coverageAt(start + QPointF((x + 0.5) * pixel.width(), (y + 0.5) * pixel.height()));
    };
    cut.picture = GR_newImage(shape.picture.size(), shape.picture.format());
    const bool isDeep = cut.picture.format() == QImage::Format_RGBA64;
    for (int y = 0; y < cut.picture.height(); ++y)
        for (int x = 0; x < cut.picture.width(); ++x)
            if (isDeep)
                pixels<QRgba64>(cut.picture, y)[x] = faded(pixels<QRgba64>(shape.picture, y)[x], coverage(x, y));
            else
                pixels<QRgb>(cut.picture, y)[x] = faded(pixels<QRgb>(shape.picture, y)[x], coverage(x, y));
    return cut;
}

DIO_Shape DIO_PictureMask::cutPlain(const DIO_Shape& shape, const QRect& pixels, const QColor& colour) const
{
    DIO_Shape cut = shape;
    cut.clip = DIO_paintedArea(shape);
    cut.path = {};
    cut.path.addRect(_area.x() + pixels.x() * _pixel.width(), _area.y() + pixels.y() * _pixel.height(),
                     pixels.width() * _pixel.width(), pixels.height() * _pixel.height());
    cut.picture = GR_newImage(pixels.size(), QImage::Format_ARGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        const uchar* const from = _coverage.constScanLine(pixels.y() + y) + pixels.x();
        std::transform(
            from, from + pixels.width(), reinterpret_cast<QRgb*>(cut.picture.scanLine(y)),
            [rgb = colour.rgb() & RGB_MASK](uchar coverage) { return rgb | static_cast<QRgb>(coverage) << 24; });
    }
    return cut;
}
