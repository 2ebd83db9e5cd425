// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a rendered frame to the picture that goes into its file, with the texts that say what it is.
//
// A file of floats (OpenEXR) in the layout TANGENT holds the layers N.X N.Y N.Z elevation.Y coverage.A, and every file
// of floats holds what lies beyond the frame: its display window is the frame, its data window the frame and all pixels
// that the node made. Other files hold the frame alone, in the encodings of NM_NormalPicture.h.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "jobs/shown/ShownFrame.h"

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
    QString scene;            ///< the scene's name, noted in the file
    QString node;             ///< the same
};

/// Whether the render has to put elevation into blue for such pictures.
bool needsElevationInBlue(const FramePictureSettings& settings);

/// What such pictures are made of.
ShownParts partsOf(const FramePictureSettings& settings);

/// The texts that a frame's file has.
IIO_Metadata frameMetadata(const FramePictureSettings& settings, int frame);

/// The picture of a frame, with its texts.
///
/// @param pixmap what was rendered
/// @param window the frame's rectangle in the pixmap's coordinates
UT_Result<IIO_Picture> framePicture(const CEL_PixmapArea& pixmap, const Math::Box2di& window,
                                    const FramePictureSettings& settings, int frame);
