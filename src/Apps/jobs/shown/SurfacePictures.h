// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pictures that follow from a frame's elevation and objects: heights, ambient occlusion and object numbers. They
// need the frame's elevation and objects (surfaceParts).
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "jobs/shown/ShownFrame.h"

/// The parts of a frame that these pictures are made of.
inline ShownParts surfaceParts()
{
    return {.elevation = true, .drawing = true, .objects = true};
}

/// Whether frames of a kind have heights: those of normals and of elevation have.
///
/// @return an error for the others
UT_Result<void> checkHasHeights(RenderedKind kind);

/// Makes a picture of the heights of all objects in one measure: floats in the channel Y, in pixels (NM_HeightField.h).
/// Objects lie on each other (StackedHeights.h).
///
/// @return an error if the frame holds neither normals nor elevation, or the picture does not fit in memory
UT_Result<IIO_Picture> heightPicture(const ShownFrame& frame);

/// Makes a picture of the ambient occlusion (NM_Occlusion.h). What lies outside the frame casts shadow into it.
///
/// @param pad how far the values continue outside the silhouette, in pixels
UT_Result<IIO_Picture> occlusionPicture(const ShownFrame& frame, IIO_SampleType samples, int pad);

/// Whether a file of this name can hold object numbers.
///
/// @return an error for a name that ends in no known format, and for formats that do not keep samples exactly
UT_Result<void> checkNumbersFile(const QString& file);

/// Makes a picture of the object numbers in the channel Y; 0 where there is no object. A float is the number itself. In
/// a picture of integers that is written with 8 or 16 bits, the file's sample is the number.
///
/// @param bits 8 or 16
/// @return an error if a number is too large for so many bits, or the picture does not fit in memory
UT_Result<IIO_Picture> numbersPicture(const ShownFrame& frame, IIO_SampleType samples, int bits);

/// The content of layers in words (NM_layersEncoding), with object numbers.
QString withObjectNumbers(const QString& encoding);

/// Adds the object numbers to layers as the last channel, "object.id", and to their metadata.
///
/// @param layers floats, in the coordinates of the plane
/// @return an error if the picture does not fit in memory
UT_Result<IIO_Picture> withObjectNumbers(const IIO_Picture& layers, const ObjectPlane& objects);
