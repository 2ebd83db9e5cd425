// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Averages, summed with colours multiplied by alpha.
#include "QuarvelDrawingIO/private/DIO_AverageColour.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <algorithm>
#include <span>

namespace {

struct Sum
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;
    double weight = 0.0;

    void add(double r, double g, double b, double a, double w)
    {
        red += r * a * w;
        green += g * a * w;
        blue += b * a * w;
        alpha += a * w;
        weight += w;
    }

    QColor average() const
    {
        if (!(alpha > 0.0) || !(weight > 0.0))
            return {0, 0, 0, 0};
        const auto channel = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
        return QColor::fromRgbF(channel(red / alpha), channel(green / alpha), channel(blue / alpha),
                                channel(alpha / weight));
    }
};

void add(Sum& sum, const QColor& colour, double weight)
{
    sum.add(static_cast<double>(colour.redF()), static_cast<double>(colour.greenF()),
            static_cast<double>(colour.blueF()), static_cast<double>(colour.alphaF()), weight);
}

} // namespace

QColor DIO_averageColour(const QImage& image)
{
    const QImage pixels = GR_imageInFormat(image, QImage::Format_ARGB32);
    Sum sum;
    for (int y = 0; y < pixels.height(); ++y) {
        const std::span row(reinterpret_cast<const QRgb*>(pixels.constScanLine(y)),
                            static_cast<std::size_t>(pixels.width()));
        for (const QRgb pixel : row)
            sum.add(qRed(pixel) / 255.0, qGreen(pixel) / 255.0, qBlue(pixel) / 255.0, qAlpha(pixel) / 255.0, 1.0);
    }
    return sum.average();
}

QColor DIO_averageColour(const QGradient& gradient)
{
    QGradientStops stops = gradient.stops();
    if (stops.isEmpty())
        return {0, 0, 0, 0};
    // Before the first stop and after the last, the colour is that of the stop.
    stops.prepend({0.0, stops.first().second});
    stops.append({1.0, stops.last().second});
    Sum sum;
    for (qsizetype i = 1; i < stops.size(); ++i) {
        const double half = std::max(0.0, stops[i].first - stops[i - 1].first) / 2.0;
        add(sum, stops[i - 1].second, half);
        add(sum, stops[i].second, half);
    }
    return sum.average();
}

QColor DIO_averageColour(const QBrush& brush)
{
    if (const QGradient* gradient = brush.gradient())
        return DIO_averageColour(*gradient);
    if (brush.style() == Qt::TexturePattern)
        return DIO_averageColour(brush.textureImage());
    return brush.color();
}
