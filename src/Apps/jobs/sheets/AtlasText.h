// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The .atlas files of libGDX and Spine: lines, pages apart by an empty one. "rotate" is in degrees, counter-clockwise;
// offsets count from the sprite's lower left corner.
#pragma once

#include "jobs/sheets/Sheet.h"

#include <QByteArray>

/// The pages in a file's bytes; their names as they stand there.
UT_Result<std::vector<Sheet>> parseAtlasText(const QByteArray& bytes);
