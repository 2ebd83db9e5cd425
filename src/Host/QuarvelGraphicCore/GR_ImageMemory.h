// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Images that have their pixels. A QImage that gets no memory is null and says nothing; a painter on it paints nothing,
// and what comes of that is a wrong picture. These functions throw instead, as any other allocation does.
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
