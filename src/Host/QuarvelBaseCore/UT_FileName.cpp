// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of files.
#include "QuarvelBaseCore/UT_FileName.h"

#include <QFileInfo>

QString UT_fileSuffix(const QString& path)
{
    return QFileInfo(path).suffix().toLower();
}
