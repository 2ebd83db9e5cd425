// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A drawing's picture made without any window, editor or scene on disk: by the jobs that the command line runs, from
// the drawing's file and from what its objects are told. What the window shows is compared with it.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelNormalMap/NM_Lighting.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QImage>

#include <map>
#include <optional>

/// The picture in the drawing's natural size.
class IndependentPicture
{
public:
    /// Renders a drawing.
    ///
    /// @param objects what is said of the objects that have other values than an import gives them, by number
    /// @return nothing, and the test has failed with the reason, when that is not possible
    static std::optional<IndependentPicture> render(const QString& file, const std::map<int, ObjectSettings>& objects);

    QSize size() const { return {_surface.width(), _surface.height()}; }
    /// How many objects the drawing has.
    int objectCount() const { return _objectCount; }
    /// How many pixels of a node's picture, with the elevation in blue, are not exactly these.
    int pixelsThatDiffer(const CEL_PixmapArea& node) const;
    /// The greatest difference of a channel, 0 to 255, from an image that is shown lit; 255 when the sizes differ.
    int greatestDifference(const QImage& shown, const NM_LightingSettings& lighting) const;

private:
    explicit IndependentPicture(NM_Surface surface) : _surface(std::move(surface)) {}

    NM_Surface _surface;
    UT_SharedPtr<CEL_PixmapArea> _node;
    int _objectCount = 0;
};
