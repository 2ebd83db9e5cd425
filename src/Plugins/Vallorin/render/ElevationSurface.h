// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An object's surface: how high each pixel lies, row by row. Rows are made on demand, because normals need three of
// them at a time, and a plane of all of them would only be written and read again.
#pragma once

#include "render/ElevationPlane.h"
#include "render/ElevationProfile.h"

/// Rows of elevations and depths. Read-only.
class ElevationSurface
{
public:
    virtual ~ElevationSurface() = default;

    /// The rectangle of the pixels.
    virtual const Math::Box2di& rect() const = 0;

    /// Writes row y: the elevation of each pixel, as a share from 0 to 1, and its depth in pixels, 0 where it is black.
    ///
    /// @param share, depth the row, from the rectangle's left; only the columns that are returned are written
    /// @return the columns outside which all pixels are black
    virtual ColumnSpan row(int y, float* share, float* depth) const = 0;
};

/// The surface of a bevelled object: shares of the elevation by a profile, depths in proportion to them.
class BevelSurface final : public ElevationSurface
{
public:
    /// @param plane must outlive the surface
    /// @param rect  the part of the plane's rectangle that the surface has
    /// @param rise  the depth of the highest value; clamped to +-1e38, so that depths stay finite
    BevelSurface(const ElevationPlane& plane, const Math::Box2di& rect, const ElevationProfile& profile, double rise);

    const Math::Box2di& rect() const override { return _rect; }
    ColumnSpan row(int y, float* share, float* depth) const override;

private:
    const ElevationPlane& _plane;
    Math::Box2di _rect;
    ElevationProfile _profile;
    double _rise;
};
