// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The .atlas files of libGDX and Spine: text lines, with an empty line between pages. "rotate" is in degrees,
// counter-clockwise; offsets are measured from the sprite's lower left corner.
#pragma once

#include "jobs/sheets/Sheet.h"

#include <QByteArray>

/// Parses the pages of a file. Their names are those in the file.
UT_Result<std::vector<Sheet>> parseAtlasText(const QByteArray& bytes);

/// The same text with other names of its pages; everything else stays, other names that equal a page's included.
///
/// @param maps the new name of each page
QByteArray renamePagesText(const QByteArray& bytes, const PageNames& maps);
