// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An atlas of maps is the drawings' atlas with the names of other pages.
#include "AtlasFiles.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "jobs/sheets/ReadAtlas.h"

#include <QFileInfo>

namespace {

// The atlas with other pages.
UT_Result<void> writeAtlas(const NormalMapOptions& options, QString OutputFiles::*page, const QString& path,
                           const std::vector<OutputFiles>& files)
{
    QStringList names;
    for (const OutputFiles& each : files)
        names << QFileInfo(each.*page).fileName();
    const UT_Result<QByteArray> bytes = atlasOfMaps(options.atlas, names);
    if (!bytes)
        return bytes.error();
    return IIO_writeFile(path, *bytes);
}

} // namespace

UT_Result<QStringList> writeAtlases(const NormalMapOptions& options, const std::vector<OutputFiles>& files)
{
    const auto [maps, canvases] = atlasFiles(options, files.front().normalMap);
    if (UT_Result<void> written = writeAtlas(options, &OutputFiles::normalMap, maps, files); !written)
        return written.error();
    if (canvases.isEmpty())
        return QStringList{maps};
    if (UT_Result<void> written = writeAtlas(options, &OutputFiles::canvas, canvases, files); !written)
        return written.error();
    return QStringList{maps, canvases};
}
