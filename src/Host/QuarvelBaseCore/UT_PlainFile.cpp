// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelBaseCore/UT_PlainFile.h"

#include <QFileInfo>

namespace {

UT_Result<void> checkIsFile(const QFileInfo& info)
{
    if (!info.exists())
        return UT_Error{QStringLiteral("there is no such file")};
    if (info.isDir())
        return UT_Error{QStringLiteral("it is a folder")};
    return {};
}

} // namespace

UT_Result<void> UT_checkPlainFile(const QString& path)
{
    const QFileInfo info(path);
    if (UT_Result<void> checked = checkIsFile(info); !checked)
        return checked;
    if (!info.isFile())
        return UT_Error{QStringLiteral("it is a pipe or a device, and only ordinary files are read")};
    return {};
}

UT_Result<void> UT_openFile(QFile& file)
{
    if (UT_Result<void> checked = checkIsFile(QFileInfo(file.fileName())); !checked)
        return checked;
    if (!file.open(QIODevice::ReadOnly))
        return UT_Error{QStringLiteral("the file cannot be read: %1").arg(file.errorString())};
    return {};
}

UT_Result<void> UT_openPlainFile(QFile& file)
{
    if (UT_Result<void> checked = UT_checkPlainFile(file.fileName()); !checked)
        return checked;
    return UT_openFile(file);
}
