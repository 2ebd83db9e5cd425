// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads the files in which packers and editors say where sprites lie on a page:
//
//     .json    of Aseprite and TexturePacker, hash and array, also with several pages ("textures")
//     .atlas   of libGDX and Spine, the older and the newer words
//     .tres    of Godot: AtlasTexture, and SpriteFrames made of them
//
// What they do not say (pivots, durations, outlines) is of no concern here.
#pragma once

#include "jobs/sheets/Sheet.h"

/// Reads an atlas. Pages lie beside it, or below the Godot project that it belongs to.
///
/// @return its pages, each with at least one region, or what is wrong with it: the regions are not yet compared with
/// the page (checkRegions)
UT_Result<std::vector<Sheet>> readAtlas(const QString& path);

/// An atlas for the normal maps of its pages: the same text with the pages' names replaced.
///
/// @param names the maps' file names, one for each page as readAtlas() gives them
UT_Result<QByteArray> atlasOfMaps(const QString& path, const QStringList& names);
