// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The JSON of Aseprite and TexturePacker. A sprite that is "rotated" was turned by 90 degrees clockwise.
#pragma once

#include "jobs/sheets/Sheet.h"

#include <QByteArray>

/// The pages in a file's bytes; their names as they stand there.
UT_Result<std::vector<Sheet>> parseAtlasJson(const QByteArray& bytes);
