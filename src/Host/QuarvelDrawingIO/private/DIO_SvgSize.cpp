// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sizes of SVG drawings.
#include "QuarvelDrawingIO/private/DIO_SvgSize.h"

#include "QuarvelDrawingIO/private/DIO_SvgValues.h"

namespace {

// A width or height; a percentage, "auto" and nonsense count as not given.
std::optional<double> readSide(const DIO_XmlNode& root, QLatin1String name, QStringList& warnings)
{
    const QString text = root.attribute(name);
    const std::optional<double> side = DIO_readLength(text, {});
    if (!side || text.contains(u'%'))
        return std::nullopt;
    if (!(*side > 0.0)) {
        warnings.append(QStringLiteral("the drawing's %1 is \"%2\", which is ignored").arg(name, text.trimmed()));
        return std::nullopt;
    }
    return side;
}

std::optional<QRectF> readBox(const DIO_XmlNode& root, QStringList& warnings)
{
    const QString text = root.attribute(QLatin1String("viewBox"));
    const std::optional<QRectF> box = DIO_readViewBox(text);
    if (!text.isEmpty() && !box)
        warnings.append(QStringLiteral("the drawing's viewBox is \"%1\", which is ignored").arg(text.trimmed()));
    return box;
}

} // namespace

QSizeF DIO_SvgSize::viewport() const
{
    return isKnown() ? QSizeF(viewBox.width(), viewBox.height() / stretchY) : QSizeF(100.0, 100.0);
}

DIO_SvgSize DIO_readSvgSize(const DIO_XmlNode& root)
{
    DIO_SvgSize result;
    const std::optional<double> width = readSide(root, QLatin1String("width"), result.warnings);
    const std::optional<double> height = readSide(root, QLatin1String("height"), result.warnings);
    const std::optional<QRectF> box = readBox(root, result.warnings);
    if (!box) {
        if (width && height) {
            result.size = QSizeF(*width, *height);
            result.viewBox = QRectF(QPointF(), result.size);
        }
        return result;
    }
    result.size = QSizeF(width.value_or(height ? *height * box->width() / box->height() : box->width()),
                         height.value_or(width ? *width * box->height() / box->width() : box->height()));
    const DIO_AspectFit fit = DIO_readAspectFit(root.attribute(QLatin1String("preserveAspectRatio")));
    // What of the root's plane the picture's rectangle shows.
    const QRectF picture(QPointF(), result.size);
    result.viewBox = DIO_fitTransform(*box, picture, fit).inverted().mapRect(picture);
    if (fit.stretch) {
        result.stretchY = (result.size.height() / result.size.width()) * (box->width() / box->height());
        result.viewBox =
            QRectF(box->left(), box->top() * result.stretchY, box->width(), box->height() * result.stretchY);
    }
    return result;
}
