// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts a rendered frame to the picture for its file, with the metadata that describe it.
//
// A file of floats (OpenEXR) in the layout TANGENT holds the drawing as R G B A, linear and multiplied by coverage, so
// that every program shows it, and the layers N.X N.Y N.Z elevation.Y coverage.A. A file of floats with colours holds
// them linear and multiplied by coverage too. Every file of floats also holds pixels outside the frame: its display
// window is the frame, its data window the frame and all pixels that the node made. Other files hold the frame alone,
// in the encodings of NM_NormalPicture.h.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_MapForm.h"
#include "jobs/shown/ShownFrame.h"

/// The content of the default layer of an OpenEXR file with normals.
enum class ExrContent
{
    LAYERS, ///< the drawing; the vectors have layers of their own
    MAP,    ///< the map as in other files, 0 .. 1
    SIGNED  ///< the map with signed components, -1 .. 1
};

/// How to convert frames to pictures. A plain value, the same for all frames of a run.
struct FramePictureSettings
{
    RenderedKind source = RenderedKind::NORMALS; ///< what the node renders
    RenderedKind shown = RenderedKind::NORMALS;  ///< the part that is written
    NM_Layout layout = NM_Layout::TANGENT;
    /// The padding applies to pictures in R G B A, which layers and elevations are not; the rest to maps of normals
    /// that are not layers; the bits also to elevations and to lit frames.
    NM_MapForm form;
    bool elevation = false;   ///< the blue channel holds the elevation (DepthInBlue)
    bool floatFile = false;   ///< the file is OpenEXR
    bool floatRender = false; ///< recorded in the metadata
    bool half = false;        ///< 16-bit floats in OpenEXR files
    ExrContent exr = ExrContent::LAYERS;
    bool objectNumbers = false; ///< layers contain the object numbers
    QString scene;              ///< the scene's name, recorded in the file's metadata
    QString node;               ///< the node's name, recorded too
};

/// Whether the node must put the elevation into blue for these pictures.
bool needsElevationInBlue(const FramePictureSettings& settings);

/// The same for the frames that are written lit, as PNG files.
FramePictureSettings litPictureSettings(FramePictureSettings settings);
/// The same for the drawing, which gets no padding: it is what vectors are looked up for, not a map.
FramePictureSettings drawingPictureSettings(FramePictureSettings settings, const QString& file);

/// What such pictures are made of.
ShownParts partsOf(const FramePictureSettings& settings);

/// The metadata of a frame's file.
IIO_Metadata frameMetadata(const FramePictureSettings& settings, int frame);

/// Makes the picture of a frame, with its metadata.
///
/// @param pixmap the rendered pixels
/// @param drawing the drawing that belongs to it, with associated colours, or null
/// @param window  the frame's rectangle in the pixmaps' coordinates
/// @param objects the object of each pixel, or null if the settings say no objectNumbers
UT_Result<IIO_Picture> framePicture(const CEL_PixmapArea& pixmap, const CEL_PixmapArea* drawing,
                                    const Math::Box2di& window, const FramePictureSettings& settings, int frame,
                                    const ObjectPlane* objects = nullptr);
