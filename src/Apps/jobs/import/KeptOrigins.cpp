// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files that do not exist are no other file's second name.
#include "jobs/import/KeptOrigins.h"

#include "jobs/import/SceneElements.h"

#include <QFileInfo>
#include <QSet>

std::optional<QString> originAmong(const MO_Scene& scene, const QStringList& files)
{
    QSet<QString> origins;
    for (const QStringList& together : originsOf(scene))
        for (const QString& file : together)
            if (const QString real = QFileInfo(file).canonicalFilePath(); !real.isEmpty())
                origins.insert(real);
    for (const QString& file : files)
        if (origins.contains(QFileInfo(file).canonicalFilePath()))
            return file;
    return {};
}
