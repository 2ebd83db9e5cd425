// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads drawings of pixels as artists keep them: in layers (OpenRaster, Aseprite, PSD, Krita) and in frames (Aseprite,
// GIF, WebP, animated PNG). Each visible layer becomes a layer of the drawing, named with its groups: "head/eye". What
// cannot be kept, blend modes above all, is said once.
//
// These files are treated as hostile: sizes are checked before memory is taken, and what is damaged is an error. Any
// thread may call these functions, several at once.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Animation.h"

#include <optional>

/// A kind of files with layers of pixels.
struct DIO_LayeredKind
{
    QString name;
    QStringList suffixes; ///< lower case, without dot
};

/// All kinds. Files of one layer and many frames are bitmaps by kind (DIO_bitmapSuffixes).
QUARVELDRAWINGIO_EXPORT const std::vector<DIO_LayeredKind>& DIO_layeredKinds();

/// Reads a file of one of these kinds as a drawing: its first frame.
///
/// @return the drawing, which has a layer unless blank ones are accepted, or what is wrong with the file
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Drawing> DIO_readLayered(const QString& path, DIO_Grouping grouping,
                                                               DIO_Blank blank);

/// Reads all frames of a file, layered or a bitmap.
///
/// @return nothing where the file is of another kind or has a single frame
QUARVELDRAWINGIO_EXPORT UT_Result<std::optional<DIO_Animation>> DIO_readFrames(const QString& path);
