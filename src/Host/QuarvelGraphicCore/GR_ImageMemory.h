// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes images, or throws where there is no memory for them, as any other allocation does. QImage itself reports
// nothing: it becomes a null image, on which a painter paints nothing, so that the result would be a wrong picture.
#pragma once

#include <QImage>

#include <new>

/// A new image, whose pixels are not initialised. An empty size makes a null image.
///
/// @throws std::bad_alloc
inline QImage GR_newImage(const QSize& size, QImage::Format format)
{
    QImage image(size, format);
    if (image.isNull() && !size.isEmpty())
        throw std::bad_alloc();
    return image;
}

/// What one of QImage's own functions, such as copy() or scaled(), made of an image with pixels.
///
/// @throws std::bad_alloc if it is null
inline QImage GR_withPixels(QImage made)
{
    if (made.isNull())
        throw std::bad_alloc();
    return made;
}

/// The image in another format; null stays null.
///
/// @throws std::bad_alloc
inline QImage GR_imageInFormat(const QImage& image, QImage::Format format)
{
    QImage converted = image.convertToFormat(format);
    if (converted.isNull() && !image.isNull())
        throw std::bad_alloc();
    return converted;
}
