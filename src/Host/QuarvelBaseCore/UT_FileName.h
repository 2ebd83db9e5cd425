// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the name of a file says about its kind. Which kinds there are, the libraries know that read and write them
// (IIO_PictureFile.h, DIO_DrawingReader.h).
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QString>

/// The end of a file's name, behind its last dot, lower case: "png" of "art/Hero_n.PNG"; empty when the name has no
/// dot.
QUARVELBASECORE_EXPORT QString UT_fileSuffix(const QString& path);
