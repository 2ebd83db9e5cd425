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
#include <QHash>
#include <QSet>

namespace {

QString absolute(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

// The drawings of a folder and of those below it.
class FolderWalk
{
public:
    FolderWalk(const NormalMapOptions& options, StandInFiles& standIns, Report& report)
        : _options(options), _standIns(standIns), _report(report)
    {
        for (const QString& output : namedPlaces(options))
            _leftOut.insert(absolute(output));
    }

    // @param below from the folder that was named to this one
    void collect(const QDir& folder, const QString& below)
    {
        for (const QFileInfo& entry : folder.entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot)) {
            const bool isWalked = entry.isDir() && !entry.isSymLink();
            take(folder.filePath(entry.fileName()), below, isWalked);
        }
        int unnamed = 0;
        for (const QString& name : namesThatAreNoText(folder.path())) {
            if (name.startsWith(u'.'))
                continue;
            const UT_Result<QString> link = _standIns.linkTo(folder.path() + u'/' + name, _report);
            const bool isFile = link && _standIns.isForFile(*link);
            if (!link || (isFile && _options.output.isEmpty())) {
                ++unnamed;
                continue;
            }
            take(*link, below, !isFile);
        }
        if (unnamed > 0)
            _report.warning(folder.path(), QStringLiteral("left out: files whose names are not UTF-8 (%1); rename "
                                                          "them, or name a folder for the maps with -o")
                                               .arg(unnamed));
    }

    const QStringList& drawings() const { return _drawings; }
    // Where a drawing lies below the folder that was named.
    QString placeOf(const QString& drawing) const { return _places.value(drawing); }

private:
    void take(const QString& path, const QString& below, bool isWalked)
    {
        if (!QFileInfo(path).isDir() && DIO_drawingKindOf(path)) {
            _drawings << path;
            _places.insert(path, below);
        }
        if (isWalked && !_leftOut.contains(absolute(path)) && !SIO_holdsScene(path))
            collect(QDir(path), QDir::cleanPath(below + u'/' + QFileInfo(path).fileName()));
    }

    const NormalMapOptions& _options;
    StandInFiles& _standIns;
    Report& _report;
    QSet<QString> _leftOut;
    QStringList _drawings;
    QHash<QString, QString> _places;
};

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

QStringList withoutResults(const QStringList& all, const NormalMapOptions& options)
{
    const QSet<QString> results = namesOfResults(all, options);
    QStringList drawings;
    for (const QString& path : all)
        if (!results.contains(withoutSuffix(path)))
            drawings << path;
    sortNaturally(drawings);
    return drawings;
}

} // namespace

UT_Result<void> takeDrawingsOfFolders(NormalMapOptions& options, StandInFiles& standIns, Report& report)
{
    QStringList drawings;
    for (const QString& named : options.drawings) {
        if (!QFileInfo(named).isDir() || SIO_holdsScene(named)) {
            drawings << named;
            continue;
        }
        FolderWalk walk(options, standIns, report);
        walk.collect(QDir(named), QStringLiteral("."));
        const QStringList found = withoutResults(walk.drawings(), options);
        if (found.isEmpty())
            return UT_Error{QStringLiteral("%1: there is no drawing in this folder; the readable kinds are .%2")
                                .arg(named, DIO_readableSuffixes().join(QStringLiteral(", .")))};
        for (const QString& path : found)
            options.folders.insert(path, walk.placeOf(path));
        drawings << found;
    }
    options.drawings = drawings;
    return {};
}
