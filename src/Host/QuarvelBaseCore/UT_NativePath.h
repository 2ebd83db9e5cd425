// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths for functions of the system and of the standard library. Qt's own functions need no such path.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QString>

#include <filesystem>

/// A path as the system takes it: on other systems the bytes of the name. On Windows it is absolute and has backslashes
/// and the prefix "\\?\", without which a path may have 260 letters at most.
///
/// The standard library of some compilers finds no file by such a path where it asks what kind of file there is
/// (status, exists, remove), so these questions belong to Qt.
QUARVELBASECORE_EXPORT std::filesystem::path UT_nativePath(const QString& path);
