// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RenderedFrame: everything that the viewer shows of one frame of a scene, made in the background and never changed
// afterwards, so that it may be handed from thread to thread.
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
    QSize fullSize;   ///< of the picture that was asked for
    QSize size;       ///< of this one: the full size, or a fraction of it
    QString nodeName; ///< whose picture it is
    RenderedKind kind = RenderedKind::COLOURS;

    QImage drawing;   ///< premultiplied, as the others
    QImage elevation; ///< null where there is none
    QImage normals;   ///< the same
    NM_Surface surface;

    /// What the node delivers, with the elevation in blue; null where kind is COLOURS.
    UT_SharedPtr<CEL_PixmapArea> node;
    /// What the node delivers, with blue as its attributes say; null as long as nobody rendered it.
    UT_SharedPtr<CEL_PixmapArea> channels;

    /// Where each input of the nodes shows, in pixels of this size; null or empty where kind is COLOURS.
    std::shared_ptr<const ShownInputs> inputs;

    bool isFull() const { return size == fullSize; }
    /// About how much memory a pixel takes: the surface, three images, and what the node delivered once.
    static constexpr qsizetype kBytesPerPixel = 28 + 3 * 4 + 8;
    /// About how much memory it takes.
    qsizetype bytes() const;
};

using RenderedFramePtr = std::shared_ptr<const RenderedFrame>;

/// A pixel of a frame, in numbers.
struct FramePixel
{
    std::array<double, 4> channels{}; ///< red, green, blue and alpha of what the node delivers, 0 to 1
    std::array<double, 3> normal{};   ///< x right, y up, z towards the viewer
    double elevation = 0.0;
    bool hasNormal = false;
    bool hasElevation = false;
};

/// The pixel at a place of the full picture; nothing outside of it.
std::optional<FramePixel> pixelOf(const RenderedFrame& frame, const QPoint& place);
