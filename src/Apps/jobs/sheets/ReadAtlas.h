// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads the files in which packers and editors store where sprites lie on a page:
//
//     .json    of Aseprite and TexturePacker, hash and array, also with several pages ("textures")
//     .atlas   of libGDX and Spine, with the older and the newer keys
//     .tres    of Godot: AtlasTexture, and SpriteFrames made of them
//
// Other properties (pivots, durations, outlines) are ignored.
#pragma once

#include "jobs/sheets/Sheet.h"

/// Reads an atlas. Its pages must lie beside it or in the Godot project that it belongs to.
///
/// @return its pages, each with at least one region, or an error. The regions have not been compared with the page yet
/// (checkRegions)
UT_Result<std::vector<Sheet>> readAtlas(const QString& path);

/// Whether a file holds an atlas, wherever its pages are: an animation and an atlas may both end in .json.
bool holdsAtlas(const QString& path);

/// Makes an atlas for the normal maps of an atlas's pages: the same text with other names of pages.
///
/// @param mapNames the maps' file names, one for each page as readAtlas() gives them
/// @return an error if the atlas cannot be read or a page's name cannot be replaced
UT_Result<QByteArray> atlasOfMaps(const QString& path, const QStringList& mapNames);
