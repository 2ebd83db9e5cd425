// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelBaseCore/UT_PlainFile.h"

#include <QFileInfo>

UT_Result<void> UT_checkPlainFile(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return UT_Error{QStringLiteral("it is a folder")};
    if (info.exists() && !info.isFile())
        return UT_Error{QStringLiteral("it is a pipe or a device, and only ordinary files are read")};
    return {};
}

UT_Result<void> UT_openPlainFile(QFile& file)
{
    if (UT_Result<void> checked = UT_checkPlainFile(file.fileName()); !checked)
        return checked;
    if (!file.open(QIODevice::ReadOnly))
        return UT_Error{file.errorString()};
    return {};
}
