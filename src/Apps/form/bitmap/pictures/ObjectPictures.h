// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectPictures: from regions, found at a picture's own resolution, to a picture of each object at its full one.
//
// An object's picture has the bitmap's pixels where the object shows. Where it goes on beneath others, and they cover
// it fully, it has its own colour. So the pictures painted one over the other are the bitmap, pixel for pixel.
#pragma once

#include "form/bitmap/pictures/OwnResolution.h"
#include "form/bitmap/pixels/ConvexHull.h"

#include <QImage>
#include <QRect>

#include <vector>

/// An object's part in a bitmap.
struct ObjectPicture
{
    QRect place;  ///< where its picture lies in the bitmap
    QImage whole; ///< in the bitmap's format
    /// What shows of it and what others hide inside of its convex hull, coverage alone; null where that is all.
    QImage shown;
    QRect shownPlace; ///< where that lies
};

/// What becomes an object.
struct ObjectLabels
{
    int label;                ///< of the region
    std::vector<int> beneath; ///< labels of those beneath which it goes on
    std::vector<int> inside;  ///< of these, those that lie inside it
    QRgb colour;              ///< its own
    ConvexHull hull;          ///< what it would be if nothing was cut out of it
};

/// The pictures of objects.
///
/// @param bitmap ARGB32 or RGBA64
/// @param labels the regions of own.colours, every covered pixel in one of the objects'
std::vector<ObjectPicture> objectPictures(const QImage& bitmap, const OwnPicture& own, const PixelPlane<int>& labels,
                                          const std::vector<ObjectLabels>& objects);
