// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pixel format for all pictures.
#include "QuarvelDrawingIO/private/DIO_PictureForm.h"

#include "QuarvelGraphicCore/GR_ImageMemory.h"

namespace {

bool isOpaque(QRgb pixel)
{
    return qAlpha(pixel) == 255;
}

template<typename Condition>
bool anyPixel(const QImage& image, const Condition& holds)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (holds(image.pixel(x, y)))
                return true;
    return false;
}

} // namespace

QImage DIO_inOneForm(const QImage& image)
{
    const bool deep = image.pixelFormat().redSize() > 8;
    QImage pixels = GR_imageInFormat(image, deep ? QImage::Format_RGBA64 : QImage::Format_ARGB32);
    pixels.setDevicePixelRatio(1.0);
    return pixels;
}

bool DIO_showsSomething(const QImage& image)
{
    return anyPixel(image, [](QRgb pixel) { return qAlpha(pixel) > 0; });
}

bool DIO_isOpaque(const QImage& image)
{
    return !anyPixel(image, [](QRgb pixel) { return !isOpaque(pixel); });
}

bool DIO_hasOpaqueEdge(const QImage& image)
{
    for (int x = 0; x < image.width(); ++x)
        if (!isOpaque(image.pixel(x, 0)) || !isOpaque(image.pixel(x, image.height() - 1)))
            return false;
    for (int y = 0; y < image.height(); ++y)
        if (!isOpaque(image.pixel(0, y)) || !isOpaque(image.pixel(image.width() - 1, y)))
            return false;
    return true;
}
