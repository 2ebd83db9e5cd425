// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectPictures: makes a picture of each object at the bitmap's full resolution from the regions, which were found at
// its own resolution (OwnResolution.h).
//
// An object's picture has the bitmap's pixels where the object is visible. Where the object continues beneath others,
// it has its own colour under their opaque pixels. Painted one over the other, the pictures show the bitmap, pixel for
// pixel.
#pragma once

#include "form/bitmap/pictures/OwnResolution.h"
#include "form/bitmap/pixels/ConvexHull.h"
#include "form/bitmap/pixels/EllipseFit.h"

#include <QImage>
#include <QRect>

#include <vector>

/// An object's part in a bitmap.
struct ObjectPicture
{
    QRect place;  ///< the rectangle of `whole` in the bitmap
    QImage whole; ///< in the bitmap's format
    /// The visible part of the object and the part that others hide inside its convex hull, or inside its outline if
    /// that is known, as coverage alone; null if that is the whole object.
    QImage shown;
    QRect shownPlace; ///< the rectangle of `shown` in the bitmap
};

/// The region that becomes an object.
struct ObjectLabels
{
    int label;                ///< the region's label
    std::vector<int> beneath; ///< labels of the regions beneath which it continues
    std::vector<int> inside;  ///< those of `beneath` that lie inside it
    QRgb colour;              ///< the average of the region
    ConvexHull hull;          ///< the convex hull of the region
    /// The whole outline, if it is known: beneath others the object continues only inside it.
    std::optional<Ellipse> outline = {};
};

/// Makes the pictures of the objects.
///
/// @param bitmap ARGB32 or RGBA64
/// @param labels labels of the cells of own.colours; every covered cell has the label of one of the objects
std::vector<ObjectPicture> objectPictures(const QImage& bitmap, const OwnPicture& own, const PixelPlane<int>& labels,
                                          const std::vector<ObjectLabels>& objects);
