// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The text resources of Godot (.tres): AtlasTexture, and SpriteFrames made of them. A margin's position is where the
// region lies in the sprite, its size is by how much the sprite is larger than the region.
#pragma once

#include "jobs/sheets/Sheet.h"

#include <QByteArray>

/// The pages in a file's bytes; their names as they stand there, usually "res://...".
UT_Result<std::vector<Sheet>> parseAtlasGodot(const QByteArray& bytes);
