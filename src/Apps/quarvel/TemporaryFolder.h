// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A folder for what standard input or output pass on, since readers and writers want files with names.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QTemporaryDir>

#include <memory>

/// A folder that goes with the object.
inline UT_Result<std::unique_ptr<QTemporaryDir>> makeTemporaryFolder()
{
    auto folder = std::make_unique<QTemporaryDir>();
    if (!folder->isValid())
        return UT_Error{QStringLiteral("there is no room for temporary files: %1").arg(folder->errorString())};
    return folder;
}
