// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_SvgMark: what the flattened document tells the recording, besides what is painted. A mark is an open polyline of
// three points; since nothing else in a flattened document is one, it cannot be mistaken for a shape. Marks pass
// through the painting in their place, so one painting tells all layers and clips apart.
#pragma once

#include <QPointF>

#include <optional>
#include <span>

/// A command in the flow of shapes.
struct DIO_SvgMark
{
    enum class Command
    {
        LAYER = 1,  ///< the shapes that follow belong to the layer of this index
        NO_LAYER,   ///< the shapes that follow belong to no layer
        CLIP_BEGIN, ///< the shapes that follow make up a clip and are not painted
        CLIP_END,   ///< from here on the clip is in force, within those that already are
        CLIP_POP,   ///< the clip that came last is lifted
        FADE_BEGIN, ///< the shapes that follow are faded together, to this many parts of kDIO_fullOpacity
        FADE_END,   ///< they end here
        MASK_BEGIN, ///< the shapes that follow make up a mask and are not painted; the argument is a DIO_MaskKind
        MASK_END,   ///< from here on the mask cuts
        MASK_POP    ///< the mask that came last is lifted
    };

    Command command;
    int argument = 0;

    /// The mark as it stands in a points attribute.
    QByteArray points() const;

    /// The mark that a polyline is, if it is one.
    static std::optional<DIO_SvgMark> read(std::span<const QPointF> points);
};

/// What a mask lets through.
enum class DIO_MaskKind
{
    BRIGHTNESS,       ///< what it paints brightly
    COVERAGE,         ///< what it paints
    NESTED_BRIGHTNESS ///< brightness; its shapes are opaque, each lies within the one before and is brighter
};

/// What a mark of fading says of an opacity of 1.
inline constexpr int kDIO_fullOpacity = 1'000'000;

/// Gradients of the flattened document stand for paint servers of the file: they start at this x, and their y is the
/// server's index.
inline constexpr double kDIO_serverX = -262144.0;
