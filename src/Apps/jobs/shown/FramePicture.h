// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a rendered frame to the picture that goes into its file, with the texts that say what it is.
//
// A file of floats (OpenEXR) in the layout TANGENT holds the drawing as R G B A, linear and multiplied by coverage, so
// that every program shows it, and the layers N.X N.Y N.Z elevation.Y coverage.A; colours are linear and multiplied
// there, too. Every file of floats holds what lies beyond the frame: its display window is the frame, its data window
// the frame and all pixels that the node made. Other files hold the frame alone, in the encodings of
// NM_NormalPicture.h.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "jobs/shown/ShownFrame.h"

/// What the default layer of an OpenEXR file with normals is.
enum class ExrContent
{
    LAYERS, ///< the drawing; the vectors have layers of their own
    MAP,    ///< the map as other files have it, 0 .. 1
    SIGNED  ///< the map, -1 .. 1
};

/// How frames become pictures. A plain value, the same for all frames of a run.
struct FramePictureSettings
{
    RenderedKind source = RenderedKind::NORMALS; ///< what the node renders
    RenderedKind shown = RenderedKind::NORMALS;  ///< what is written of it
    NM_Layout layout = NM_Layout::TANGENT;
    /// Its padding holds in pictures that are no layers, and alpha in normals of them.
    NM_MapForm form;
    bool elevation = false;   ///< the blue channel holds the elevation (DepthInBlue)
    bool floatFile = false;   ///< the file is OpenEXR
    bool floatRender = false; ///< noted in the file
    bool half = false;        ///< 16-bit floats in OpenEXR files
    ExrContent exr = ExrContent::LAYERS;
    QString scene; ///< the scene's name, noted in the file
    QString node;  ///< the same
};

/// Whether the render has to put elevation into blue for such pictures.
bool needsElevationInBlue(const FramePictureSettings& settings);

/// What such pictures are made of.
ShownParts partsOf(const FramePictureSettings& settings);

/// The texts that a frame's file has.
IIO_Metadata frameMetadata(const FramePictureSettings& settings, int frame);

/// The picture of a frame, with its texts.
///
/// @param pixmap  what was rendered
/// @param drawing the drawing that belongs to it, with associated colours, or null
/// @param window  the frame's rectangle in the pixmaps' coordinates
UT_Result<IIO_Picture> framePicture(const CEL_PixmapArea& pixmap, const CEL_PixmapArea* drawing,
                                    const Math::Box2di& window, const FramePictureSettings& settings, int frame);
