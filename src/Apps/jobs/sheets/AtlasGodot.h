// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The text resources of Godot (.tres): AtlasTexture, and SpriteFrames made of them. A margin's position is the place of
// the region in the sprite; its size is the difference between the sizes of sprite and region.
#pragma once

#include "jobs/sheets/Sheet.h"

#include <QByteArray>

/// Parses the pages of a file. Their names are those in the file, usually "res://...".
UT_Result<std::vector<Sheet>> parseAtlasGodot(const QByteArray& bytes);

/// The same text with other names of its pages; everything else stays, other names that equal a page's included, but
/// for the identifiers by which Godot finds resources first, which belong to the original pages.
///
/// @param maps the new name of each page
QByteArray renamePagesGodot(const QByteArray& bytes, const PageNames& maps);
