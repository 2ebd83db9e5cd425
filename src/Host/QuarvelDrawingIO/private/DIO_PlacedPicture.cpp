// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Placing pictures upright, and sampling those that are not.
#include "QuarvelDrawingIO/private/DIO_PlacedPicture.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QRgba64>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace {

// By how much of a pixel a picture's far edge may be off for the picture to count as upright.
constexpr double kUnseen = 0.01;

constexpr double kLongestSide = 32767.0;

QPainterPath rectanglePath(const QRectF& rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

// Whether x stays x and y stays y, but for a share of a pixel that nobody sees.
bool isUpright(const QTransform& t, const QSize& size)
{
    return std::abs(t.m12()) * size.width() <= kUnseen * std::abs(t.m22()) &&
           std::abs(t.m21()) * size.height() <= kUnseen * std::abs(t.m11());
}

// A QImage that gets no memory is null and says nothing.
// The picture as the transform mirrors it.
QImage mirroredAs(const QImage& image, const QTransform& t)
{
    const bool mirrors = t.m11() < 0.0 || t.m22() < 0.0;
    return mirrors ? GR_withPixels(image.mirrored(t.m11() < 0.0, t.m22() < 0.0)) : image;
}

// One pixel between four, colours weighted by coverage.
class Sampler
{
public:
    // RGBA64
    explicit Sampler(const QImage& image) : _image(image) {}

    // Positions are in pixels, whose centres are at halves; beyond the outermost centres they count as there.
    QRgba64 at(const QPointF& place) const
    {
        const double x = std::clamp(place.x() - 0.5, 0.0, _image.width() - 1.0);
        const double y = std::clamp(place.y() - 0.5, 0.0, _image.height() - 1.0);
        const int left = static_cast<int>(x);
        const int top = static_cast<int>(y);
        const double right = x - left;
        const double bottom = y - top;
        std::array<double, 4> sum{};
        add(sum, left, top, (1.0 - right) * (1.0 - bottom));
        add(sum, left + 1, top, right * (1.0 - bottom));
        add(sum, left, top + 1, (1.0 - right) * bottom);
        add(sum, left + 1, top + 1, right * bottom);
        const auto channel = [](double value) { return static_cast<quint16>(std::clamp(value + 0.5, 0.0, 65535.0)); };
        const double alpha = sum[3];
        if (!(alpha > 0.0))
            return QRgba64::fromRgba64(0);
        return QRgba64::fromRgba64(channel(sum[0] / alpha), channel(sum[1] / alpha), channel(sum[2] / alpha),
                                   channel(alpha));
    }

private:
    void add(std::array<double, 4>& sum, int x, int y, double weight) const
    {
        if (!(weight > 0.0))
            return;
        const QRgba64 pixel = reinterpret_cast<const QRgba64*>(_image.constScanLine(y))[x];
        const double covered = weight * pixel.alpha();
        sum[0] += covered * pixel.red();
        sum[1] += covered * pixel.green();
        sum[2] += covered * pixel.blue();
        sum[3] += covered;
    }

    const QImage& _image;
};

void store(QRgba64 pixel, QRgb& to)
{
    to = pixel.toArgb32();
}

void store(QRgba64 pixel, QRgba64& to)
{
    to = pixel;
}

template<typename Pixel>
void sampleInto(QImage& made, const QImage& image, const QTransform& toImage)
{
    const QImage deep = GR_imageInFormat(image, QImage::Format_RGBA64);
    const Sampler sampler(deep);
    for (int y = 0; y < made.height(); ++y) {
        const std::span row(reinterpret_cast<Pixel*>(made.scanLine(y)), static_cast<std::size_t>(made.width()));
        for (int x = 0; x < made.width(); ++x)
            store(sampler.at(toImage.map(QPointF(x + 0.5, y + 0.5))), row[static_cast<std::size_t>(x)]);
    }
}

// How far apart the pixels of a turned picture are taken: half as far as they lie, since each is taken between others;
// farther where too many would come of it.
double pitchFor(const QImage& image, const QTransform& toDrawing, const QSizeF& whole, qint64 pixelBudget)
{
    constexpr double kFew = 1024.0 * 1024.0;
    const double pixels = static_cast<double>(image.width()) * image.height();
    const double most = std::min(static_cast<double>(std::max<qint64>(pixelBudget, 1)), 2.0 * std::max(pixels, kFew));
    const double finest =
        std::min(std::hypot(toDrawing.m11(), toDrawing.m12()), std::hypot(toDrawing.m21(), toDrawing.m22()));
    return std::max(finest / 2.0, std::sqrt(whole.width() * whole.height() / most));
}

DIO_PlacedPicture sampled(const QImage& image, const QTransform& toDrawing, qint64& pixelBudget)
{
    QPainterPath outline = toDrawing.map(rectanglePath(QRectF(QPointF(), QSizeF(image.size()))));
    const QRectF bounds = outline.boundingRect();
    const double pitch = pitchFor(image, toDrawing, bounds.size(), pixelBudget);
    const auto count = [pitch](double length) {
        return static_cast<int>(std::clamp(std::ceil(length / pitch), 1.0, kLongestSide));
    };
    const QSize size(count(bounds.width()), count(bounds.height()));
    const QSizeF pixel(bounds.width() / size.width(), bounds.height() / size.height());
    const QTransform toImage =
        QTransform(pixel.width(), 0.0, 0.0, pixel.height(), bounds.x(), bounds.y()) * toDrawing.inverted();
    QImage made = GR_newImage(size, image.format());
    if (image.format() == QImage::Format_RGBA64)
        sampleInto<QRgba64>(made, image, toImage);
    else
        sampleInto<QRgb>(made, image, toImage);
    pixelBudget -= qint64{size.width()} * size.height();
    return {rectanglePath(bounds), std::move(outline), std::move(made)};
}

} // namespace

DIO_PlacedPicture DIO_placePicture(const QImage& image, const QTransform& toDrawing, qint64& pixelBudget)
{
    const QRectF whole(QPointF(), QSizeF(image.size()));
    if (isUpright(toDrawing, image.size()))
        return {rectanglePath(toDrawing.mapRect(whole)), std::nullopt, mirroredAs(image, toDrawing)};
    // A picture that lies on its side is first laid down, pixel by pixel.
    const QTransform laidDown = QTransform(0.0, 1.0, -1.0, 0.0, image.height(), 0.0).inverted() * toDrawing;
    if (isUpright(laidDown, image.size().transposed())) {
        const QImage turned = GR_withPixels(image.transformed(QTransform(0.0, 1.0, -1.0, 0.0, 0.0, 0.0)));
        return {rectanglePath(toDrawing.mapRect(whole)), std::nullopt, mirroredAs(turned, laidDown)};
    }
    return sampled(image, toDrawing, pixelBudget);
}
