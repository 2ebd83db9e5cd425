// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths in scenes have slashes on every system.
#include "QuarvelSceneIO/private/SIO_SourcePath.h"

#include <QDir>

QString SIO_sourcePath(const QString& file, const QString& home)
{
    return home.isEmpty() ? file : QDir(home).relativeFilePath(file);
}

QString SIO_sourceFile(const QString& path, const QString& home)
{
    const bool isElsewhere = path.startsWith(QLatin1String("//")) || path.contains(QLatin1Char('\\'));
    return path.isEmpty() || isElsewhere ? QString() : QDir::cleanPath(QDir(home).absoluteFilePath(path));
}
