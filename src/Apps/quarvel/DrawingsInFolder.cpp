// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Walks through folders without following links, so that the walk ends.
#include "DrawingsInFolder.h"

#include "NameEncoding.h"
#include "OutputFiles.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "jobs/import/FrameNumbers.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

QString absolute(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

void collect(const QDir& folder, const QSet<QString>& leftOut, QStringList& drawings, Report& report)
{
    if (const int unreadable = namesThatAreNoText(folder.path()); unreadable > 0)
        report.warning(folder.path(),
                       QStringLiteral("left out: files whose names are not UTF-8 (%1); rename them").arg(unreadable));
    for (const QFileInfo& entry : folder.entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot)) {
        const QString path = folder.filePath(entry.fileName());
        const bool isFolder = entry.isDir();
        if (!isFolder && DIO_drawingKindOf(path))
            drawings << path;
        if (isFolder && !entry.isSymLink() && !leftOut.contains(absolute(path)) && !SIO_holdsScene(path))
            collect(QDir(path), leftOut, drawings, report);
    }
}

// The names, without endings, of the pictures that such a run writes for the drawings, whatever their folders and
// formats.
QSet<QString> namesOfResults(const QStringList& drawings, const NormalMapOptions& options)
{
    const QStringList suffixes = suffixesOfPictures(options);
    QSet<QString> names;
    for (const QString& drawing : drawings) {
        const QFileInfo info(drawing);
        for (const QString& suffix : suffixes)
            names.insert(info.dir().filePath(info.completeBaseName() + suffix));
    }
    return names;
}

QString withoutSuffix(const QString& path)
{
    const QFileInfo info(path);
    return info.dir().filePath(info.completeBaseName());
}

QStringList drawingsIn(const QString& folder, const NormalMapOptions& options, Report& report)
{
    QSet<QString> leftOut;
    for (const QString& output : namedPlaces(options))
        leftOut.insert(absolute(output));
    QStringList all;
    collect(QDir(folder), leftOut, all, report);
    const QSet<QString> results = namesOfResults(all, options);
    QStringList drawings;
    for (const QString& path : all)
        if (!results.contains(withoutSuffix(path)))
            drawings << path;
    sortNaturally(drawings);
    return drawings;
}

} // namespace

UT_Result<void> takeDrawingsOfFolders(NormalMapOptions& options, Report& report)
{
    QStringList drawings;
    for (const QString& named : options.drawings) {
        if (!QFileInfo(named).isDir() || SIO_holdsScene(named)) {
            drawings << named;
            continue;
        }
        const QStringList found = drawingsIn(named, options, report);
        if (found.isEmpty())
            return UT_Error{QStringLiteral("%1: there is no drawing in this folder; the readable kinds are .%2")
                                .arg(named, DIO_readableSuffixes().join(QStringLiteral(", .")))};
        for (const QString& path : found)
            options.folders.insert(path, QDir(absolute(named)).relativeFilePath(QFileInfo(absolute(path)).path()));
        drawings << found;
    }
    options.drawings = drawings;
    return {};
}
