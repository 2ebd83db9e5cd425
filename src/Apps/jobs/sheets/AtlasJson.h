// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The JSON of Aseprite and TexturePacker. A "rotated" sprite was turned by 90 degrees clockwise.
#pragma once

#include "jobs/sheets/Sheet.h"

#include <QByteArray>

/// Parses the pages of a file. Their names are those in the file.
UT_Result<std::vector<Sheet>> parseAtlasJson(const QByteArray& bytes);

/// The same text with other names of its pages; everything else stays, other names that equal a page's included.
///
/// @param maps the new name of each page
QByteArray renamePagesJson(const QByteArray& bytes, const PageNames& maps);
