// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NM_HeightField: how high each pixel of a frame lies above the picture's plane, in pixels of the picture. The node's
// elevation is the share of each object's own rise; multiplied by that rise, all objects have one measure. Pictures of
// heights serve displacement and parallax; ambient occlusion is computed from the field (NM_Occlusion.h).
//
// A file of floats holds heights in pixels. A file of integers holds a range of heights, which its metadata say.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layers.h"

#include <functional>
#include <span>
#include <vector>

/// Writes what the objects under the pixels of row y of a frame rise to at most, in pixels; 0 where there is no object.
using NM_RisesOfRow = std::function<void(int y, std::span<float> rises)>;

/// The heights of a frame, single precision. 0 is the picture's plane; what sinks in has negative heights. Any number
/// of threads may read it at once.
class QUARVELNORMALMAP_EXPORT NM_HeightField
{
public:
    /// Makes a field that lies in the picture's plane.
    ///
    /// @return an error if the size is empty or the field does not fit in memory
    static UT_Result<NM_HeightField> create(const Math::Size2di& size);

    /// Makes the field of a frame: the elevation times the rise.
    ///
    /// @param pixmap  the node's output in one of the two colour formats
    /// @param channel where the pixmap holds the elevation
    /// @param frame   the rectangle that the field covers, in the pixmap's coordinates
    /// @param rises   called for the rows of the frame, in the pixmap's coordinates, from several threads
    /// @return an error if the frame is empty, the field does not fit in memory or the pixmap has no colours
    static UT_Result<NM_HeightField> create(const CEL_PixmapArea& pixmap, NM_ElevationChannel channel,
                                            const Math::Box2di& frame, const NM_RisesOfRow& rises);

    int width() const { return _size.width; }
    int height() const { return _size.height; }

    /// The heights of row y, 0 .. height() - 1.
    std::span<float> row(int y) { return {_heights.data() + offset(y), static_cast<std::size_t>(_size.width)}; }
    std::span<const float> row(int y) const
    {
        return {_heights.data() + offset(y), static_cast<std::size_t>(_size.width)};
    }

private:
    NM_HeightField() = default;
    std::size_t offset(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(_size.width); }

    Math::Size2di _size;
    std::vector<float> _heights;
};

/// The heights that black and white stand for in a picture of integers, in pixels.
struct NM_HeightRange
{
    double black = 0.0;
    double white = 0.0; ///< greater than black, or equal if all heights are the same

    friend bool operator==(const NM_HeightRange&, const NM_HeightRange&) = default;
};

/// What the metadata "Heights" say of a picture of integers, and of a picture of floats.
QUARVELNORMALMAP_EXPORT QString NM_heightsText(const NM_HeightRange& range);
QUARVELNORMALMAP_EXPORT QString NM_heightsInPixels();

/// Makes a picture of floats with the heights in the channel Y. Metadata: "Software", "Layout" with the value "height".
///
/// @return an error if the picture does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_heightPicture(const NM_HeightField& field);

/// The lowest and the highest of a picture's heights, and the picture's plane: black is 0 or lower, white 0 or higher.
///
/// @param heights floats in the channel Y
QUARVELNORMALMAP_EXPORT NM_HeightRange NM_rangeOf(const IIO_Picture& heights);

/// Makes a picture of 16-bit samples of a picture of heights; heights outside the range are clamped to it. The metadata
/// "Heights" tell the range.
///
/// @param heights floats in the channel Y
/// @return an error if the picture does not fit in memory
QUARVELNORMALMAP_EXPORT UT_Result<IIO_Picture> NM_codedHeights(const IIO_Picture& heights, const NM_HeightRange& range);
