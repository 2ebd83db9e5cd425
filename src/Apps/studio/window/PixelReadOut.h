// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the status bar says of the pixel under the mouse: what the view shows there, in the units that people think in.
#pragma once

#include "studio/objects/SceneObjects.h"
#include "studio/preview/PictureKind.h"
#include "studio/preview/RenderedFrame.h"

#include <QCoreApplication>

/// The texts of the read-out.
class PixelReadOut
{
    Q_DECLARE_TR_FUNCTIONS(PixelReadOut)

public:
    /// The colour of the drawing; the elevation in units of which the picture is 720 wide; the vector with its tilt in
    /// degrees; or the lit colour. Before that the place, and after it the object.
    ///
    /// @param shown   the image that is seen, for the lit colour
    /// @param objects all objects of the scene
    /// @return empty outside of the picture
    static QString text(const RenderedFrame& frame, PictureKind kind, const QImage& shown,
                        const std::vector<SceneObject>& objects, const QPoint& place, double atFrame);
    /// Red, green, blue and alpha of what the node delivers, the normal and the elevation as a share.
    static QString rawText(const RenderedFrame& frame, const QPoint& place);
};
