// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/frames/OutputFolder.h"

#include <QDir>
#include <QFileInfo>

UT_Result<void> makeFolderFor(const QString& file)
{
    const QString folder = QFileInfo(file).absolutePath();
    if (!QDir().mkpath(folder))
        return UT_Error{QStringLiteral("the folder %1 cannot be made; choose one where you may write").arg(folder)};
    return {};
}
