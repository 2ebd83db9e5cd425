// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An atlas of maps is the drawings' atlas with the names of other pages.
#include "AtlasFiles.h"

#include "OptionTable.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "jobs/sheets/ReadAtlas.h"

#include <QDir>
#include <QFileInfo>

namespace {

// The atlas with other pages, beside the first of them.
UT_Result<QString> writeAtlas(const NormalMapOptions& options, QString OutputFiles::*page, const QString& suffix,
                              const std::vector<OutputFiles>& files)
{
    QStringList names;
    for (const OutputFiles& each : files)
        names << QFileInfo(each.*page).fileName();
    const UT_Result<QByteArray> bytes = atlasOfMaps(options.atlas, names);
    if (!bytes)
        return bytes.error();
    const QFileInfo atlas(options.atlas);
    const QDir folder = QFileInfo(files.front().normalMap).dir();
    const QString path =
        QDir::cleanPath(folder.filePath(atlas.completeBaseName() + suffix + QLatin1Char('.') + atlas.suffix()));
    if (const auto written = IIO_writeFile(path, *bytes); !written)
        return written.error();
    return path;
}

} // namespace

UT_Result<QStringList> writeAtlases(const NormalMapOptions& options, const std::vector<OutputFiles>& files)
{
    QStringList written;
    const auto add = [&](QString OutputFiles::*page, const QString& suffix) -> UT_Result<void> {
        return keep(writeAtlas(options, page, suffix, files), [&](const QString& path) { written << path; });
    };
    if (UT_Result<void> added = add(&OutputFiles::normalMap, suffixOfMaps(options)); !added)
        return added.error();
    const bool isGodots = options.atlas.endsWith(QLatin1String(".tres"), Qt::CaseInsensitive);
    if (options.canvas && isGodots)
        if (UT_Result<void> added = add(&OutputFiles::canvas, QStringLiteral("_lit")); !added)
            return added.error();
    return written;
}
