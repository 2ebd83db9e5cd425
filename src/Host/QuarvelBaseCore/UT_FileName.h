// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the name of a file says about its kind. The libraries that read and write files know which kinds there are
// (IIO_PictureFile.h, DIO_DrawingReader.h).
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QString>

/// The part of a file's name after its last dot, in lower case: "png" of "art/Hero_n.PNG"; empty when the name has no
/// dot.
QUARVELBASECORE_EXPORT QString UT_fileSuffix(const QString& path);
