// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NM_Surface: a drawing and its normals, prepared for lighting: planes of floats that are decoded once per frame, so
// that moving a light does not decode anything again.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

#include <span>
#include <vector>

/// The surface of one frame. Coordinates: x right, y UP, z towards the viewer. It takes 28 bytes per pixel.
///
/// Any number of threads may read a surface at once; no other thread may use it while one sets a part. The drawing and
/// the normals are set separately because one often changes without the other.
class QUARVELNORMALMAP_EXPORT NM_Surface
{
public:
    /// The rows of the surface's planes, width() floats each.
    struct Row
    {
        std::span<const float> normalX, normalY, normalZ; ///< unit vectors
        std::span<const float> red, green, blue;          ///< linear light, 0 .. 1, straight
        std::span<const float> coverage;                  ///< 0 .. 1
    };

    /// Makes an empty drawing that faces the viewer everywhere.
    ///
    /// @return an error if the size is empty or the surface does not fit in memory
    static UT_Result<NM_Surface> create(const Math::Size2di& size);

    int width() const { return _size.width; }
    int height() const { return _size.height; }

    /// The planes' row y, 0 .. height() - 1.
    Row row(int y) const;

    /// Reads the drawing from the pixels of a picture with the channels R G B A, straight and encoded as sRGB.
    ///
    /// @return an error when the size or the channels are others
    UT_Result<void> setDrawing(const IIO_Picture& drawing);

    /// Reads the normals from the node's output.
    ///
    /// @param normals in one of the two colour formats
    /// @param frame   a rectangle of the surface's size in the pixmap's coordinates
    /// @return an error if the size or the format is wrong
    UT_Result<void> setNormals(const CEL_PixmapArea& normals, const Math::Box2di& frame);

    /// Reads the normals from a normal map in the layout TANGENT, for instance from a file. Normalises the vectors.
    ///
    /// @return an error when the size or the channels are others
    UT_Result<void> setNormals(const IIO_Picture& normalMap, NM_YAxis yAxis);

private:
    enum Plane
    {
        NORMAL_X,
        NORMAL_Y,
        NORMAL_Z,
        RED,
        GREEN,
        BLUE,
        COVERAGE,
        PLANE_COUNT
    };

    NM_Surface() = default;

    UT_Result<void> checkPicture(const IIO_Picture& picture) const;
    std::span<float> planeRow(Plane plane, int y);
    std::span<const float> planeRow(Plane plane, int y) const;

    template<typename Sample>
    void readDrawing(const IIO_Picture& drawing);
    template<typename Sample>
    void readNormals(const IIO_Picture& normalMap, double ySign);

    Math::Size2di _size;
    std::vector<float> _planes;
};
