// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Outlines of the basic shapes.
#include "QuarvelDrawingIO/private/DIO_SvgGeometry.h"

#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

#include <algorithm>
#include <cmath>

namespace {

QString point(double x, double y)
{
    return DIO_number(x) + u' ' + DIO_number(y);
}

class Geometry
{
public:
    Geometry(const DIO_XmlNode& shape, const QSizeF& viewport, double fontSize)
        : _shape(shape), _viewport(viewport), _fontSize(fontSize)
    {}

    std::optional<double> along(const char* name, double percentOf) const
    {
        return DIO_readLength(_shape.attribute(QLatin1String(name)), {percentOf, _fontSize});
    }
    double x(const char* name) const { return along(name, _viewport.width()).value_or(0.0); }
    double y(const char* name) const { return along(name, _viewport.height()).value_or(0.0); }

    QString rect() const
    {
        const double width = x("width");
        const double height = y("height");
        if (!(width > 0.0 && height > 0.0))
            return {};
        std::optional<double> rx = along("rx", _viewport.width());
        std::optional<double> ry = along("ry", _viewport.height());
        const double horizontal = std::max(0.0, rx.value_or(ry.value_or(0.0)));
        const double vertical = std::max(0.0, ry.value_or(rx.value_or(0.0)));
        return DIO_rectPath(x("x"), y("y"), width, height, std::min(horizontal, width / 2),
                            std::min(vertical, height / 2));
    }

    QString ellipse(double rx, double ry) const
    {
        if (!(rx > 0.0 && ry > 0.0))
            return {};
        const double cx = x("cx");
        const double cy = y("cy");
        const QString arc = QStringLiteral("A%1 %2 0 0 1 ").arg(DIO_number(rx), DIO_number(ry));
        return u'M' + point(cx + rx, cy) + arc + point(cx, cy + ry) + arc + point(cx - rx, cy) + arc +
               point(cx, cy - ry) + arc + point(cx + rx, cy) + u'Z';
    }

    double circleRadius() const
    {
        return along("r", std::hypot(_viewport.width(), _viewport.height()) / std::sqrt(2.0)).value_or(0.0);
    }

    QString line() const { return u'M' + point(x("x1"), y("y1")) + u'L' + point(x("x2"), y("y2")); }

    QString polygon(bool close) const
    {
        const std::vector<double> numbers = DIO_readNumbers(_shape.attribute(QLatin1String("points")));
        QString path;
        for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
            path += (i == 0 ? u'M' : u'L') + point(numbers[i], numbers[i + 1]);
        return close && !path.isEmpty() ? path + u'Z' : path;
    }

private:
    const DIO_XmlNode& _shape;
    QSizeF _viewport;
    double _fontSize;
};

} // namespace

QString DIO_number(double value)
{
    return QString::number(value, 'g', 12);
}

QString DIO_rectPath(double x, double y, double width, double height, double rx, double ry)
{
    const double right = x + width;
    const double bottom = y + height;
    if (!(rx > 0.0 && ry > 0.0))
        return u'M' + point(x, y) + u'L' + point(right, y) + u'L' + point(right, bottom) + u'L' + point(x, bottom) +
               u'Z';
    const QString arc = u'A' + point(rx, ry) + " 0 0 1 ";
    return u'M' + point(x + rx, y) + u'L' + point(right - rx, y) + arc + point(right, y + ry) + u'L' +
           point(right, bottom - ry) + arc + point(right - rx, bottom) + u'L' + point(x + rx, bottom) + arc +
           point(x, bottom - ry) + u'L' + point(x, y + ry) + arc + point(x + rx, y) + u'Z';
}

QString DIO_shapePath(const DIO_XmlNode& shape, const QSizeF& viewport, double fontSize)
{
    const Geometry geometry(shape, viewport, fontSize);
    if (shape.name == u"path")
        return shape.attribute(QLatin1String("d"));
    if (shape.name == u"rect")
        return geometry.rect();
    if (shape.name == u"circle")
        return geometry.ellipse(geometry.circleRadius(), geometry.circleRadius());
    if (shape.name == u"ellipse")
        return geometry.ellipse(geometry.x("rx"), geometry.y("ry"));
    if (shape.name == u"line")
        return geometry.line();
    if (shape.name == u"polygon" || shape.name == u"polyline")
        return geometry.polygon(shape.name == u"polygon");
    return {};
}
