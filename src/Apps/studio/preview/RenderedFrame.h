// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderedFrame: everything that the viewer shows of one frame of a scene. It is made in the background and never
// changed afterwards, so that several threads can use it.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelNormalMap/NM_Surface.h"
#include "jobs/shown/InputCoverage.h"
#include "jobs/shown/RenderedKind.h"

#include <QImage>

#include <memory>
#include <optional>

/// A frame. All pictures have the same size.
struct RenderedFrame
{
    int frame = 1;
    QSize fullSize;   ///< the size of the requested picture
    QSize size;       ///< the size of this picture: the full size or a fraction of it
    QString nodeName; ///< the name of the rendered node
    RenderedKind kind = RenderedKind::COLOURS;

    QImage drawing;   ///< premultiplied, like the other images
    QImage elevation; ///< null if there is none
    QImage normals;   ///< null if there are none
    NM_Surface surface;

    /// The node's picture, with the elevation in blue if it has normals; null if kind is COLOURS.
    UT_SharedPtr<CEL_PixmapArea> node;
    /// The node's picture with the blue of its own attributes; null if it has not been rendered.
    UT_SharedPtr<CEL_PixmapArea> channels;

    /// The coverage of each input of the nodes, in pixels of `size`; null or empty if kind is COLOURS.
    std::shared_ptr<const ShownInputs> inputs;

    bool isFull() const { return size == fullSize; }
    /// The pixel of an image of this frame that shows a place of the full picture; outside the image where the place is
    /// outside the picture. The frame must not be empty.
    ///
    /// @param image the image's size, which is `size` or that of an image which was lit before this frame came
    QPoint pixelAt(const QPointF& place, const QSize& image) const;
    /// The same for the middle of a pixel of the full picture.
    QPoint pixelAt(const QPoint& pixel, const QSize& image) const;
    /// The approximate memory per pixel: the surface, three images, and one picture of the node.
    static constexpr qsizetype kBytesPerPixel = 28 + 3 * 4 + 8;
    /// The approximate memory of the frame.
    qsizetype bytes() const;
};

using RenderedFramePtr = std::shared_ptr<const RenderedFrame>;

/// The values of a pixel of a frame.
struct FramePixel
{
    std::array<double, 4> channels{}; ///< red, green, blue and alpha of the node's picture, 0 to 1
    std::array<double, 3> normal{};   ///< x right, y up, z towards the viewer
    double elevation = 0.0;
    bool hasNormal = false;
    bool hasElevation = false;
};

/// What a pixel of the full picture shows; std::nullopt outside it.
std::optional<FramePixel> pixelOf(const RenderedFrame& frame, const QPoint& pixel);
