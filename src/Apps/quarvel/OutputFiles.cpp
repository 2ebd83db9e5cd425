// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of output files.
#include "OutputFiles.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "jobs/targets/Targets.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace {

struct Place
{
    QString named;  // what the command line says; empty: nothing
    QString suffix; // what is added to the drawing's name
    QString ending; // of the file, without a dot
    bool wanted;
};

QString besideOrIn(const QString& drawing, const Place& place)
{
    const QFileInfo info(drawing);
    const QDir where = place.named.isEmpty() ? info.dir() : QDir(place.named);
    return QDir::cleanPath(where.filePath(info.completeBaseName() + place.suffix + QLatin1Char('.') + place.ending));
}

QString fileFor(const QString& drawing, const Place& place, bool isFolder)
{
    if (!place.wanted)
        return {};
    if (place.named.isEmpty() || isFolder || QFileInfo(place.named).isDir())
        return besideOrIn(drawing, place);
    return place.named;
}

Place placeOfMap(const NormalMapOptions& options)
{
    const Target* const target = options.form.target;
    // Pages of sprites are written as PNG whoever takes them.
    const bool page = options.cells || !options.atlas.isEmpty();
    return {options.output, suffixOfMaps(options), target && !page ? target->endingText() : QStringLiteral("png"),
            true};
}

// With several drawings the options name folders. A folder called one.png would surprise everybody.
UT_Result<void> checkFolder(const Place& place)
{
    if (place.named.isEmpty() || !IIO_pictureFormatOf(place.named) || QFileInfo(place.named).isDir())
        return {};
    return UT_Error{QStringLiteral("%1 names one picture, and there are several drawings; name a folder, which gets a "
                                   "picture of each, or give one drawing at a time")
                        .arg(place.named)};
}

UT_Result<void> checkFormat(const QString& file)
{
    if (file.isEmpty())
        return {};
    const auto format = IIO_pictureFormatOf(file);
    return format ? UT_Result<void>() : format.error();
}

} // namespace

QString suffixOfMaps(const NormalMapOptions& options)
{
    const Target* const target = options.form.target;
    return options.suffix.value_or(target ? target->suffixText() : QString::fromLatin1(kSuffixForMost));
}

UT_Result<std::vector<OutputFiles>> outputFiles(const NormalMapOptions& options)
{
    const bool several = options.drawings.size() > 1;
    const QString png = QStringLiteral("png");
    const Place normalMap = placeOfMap(options);
    const Place elevation{options.elevation, QStringLiteral("_e"), png, !options.elevation.isEmpty()};
    const Place lit{options.lit, QStringLiteral("_lit"), png, !options.lit.isEmpty()};
    const Place picture{options.drawingPicture, QStringLiteral("_drawing"), png, !options.drawingPicture.isEmpty()};

    for (const Place& place : {normalMap, elevation, lit, picture})
        if (const UT_Result<void> isFolder = several ? checkFolder(place) : UT_Result<void>(); !isFolder)
            return isFolder.error();

    QHash<QString, QString> takenBy;
    for (const QString& drawing : options.drawings)
        takenBy.insert(QFileInfo(drawing).absoluteFilePath(), drawing);

    std::vector<OutputFiles> all;
    for (const QString& drawing : options.drawings) {
        const OutputFiles files{fileFor(drawing, normalMap, several), fileFor(drawing, elevation, several),
                                fileFor(drawing, lit, several), fileFor(drawing, picture, several)};
        for (const QString& file : {files.normalMap, files.elevation, files.lit, files.drawing}) {
            if (UT_Result<void> known = checkFormat(file); !known)
                return known.error();
            const QString path = QFileInfo(file).absoluteFilePath();
            if (!file.isEmpty() && takenBy.contains(path))
                return UT_Error{
                    QStringLiteral("%1 would be written over for %2 and is taken by %3; give them different names "
                                   "or folders")
                        .arg(file, drawing, takenBy.value(path))};
            if (!file.isEmpty())
                takenBy.insert(path, drawing);
        }
        all.push_back(files);
    }
    return all;
}

QString flippedFile(const QString& file, bool leftRight)
{
    const QFileInfo info(file);
    const QString ending = leftRight ? QStringLiteral("_flipx.") : QStringLiteral("_flipy.");
    return QDir::cleanPath(info.dir().filePath(info.completeBaseName() + ending + info.suffix()));
}

UT_Result<void> makeFolders(const OutputFiles& files)
{
    for (const QString& file : {files.normalMap, files.elevation, files.lit, files.drawing}) {
        if (file.isEmpty())
            continue;
        const QString folder = QFileInfo(file).absolutePath();
        if (!QDir().mkpath(folder))
            return UT_Error{QStringLiteral("the folder %1 cannot be made; choose one where you may write").arg(folder)};
    }
    return {};
}
