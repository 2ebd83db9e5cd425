// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of output files.
#include "OutputFiles.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "jobs/page/LitPageFile.h"
#include "jobs/targets/Targets.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>

namespace {

struct Place
{
    QString named;  // what the command line says; empty: nothing
    QString suffix; // what is added to the drawing's name
    QString ending; // of the file, without a dot
    bool wanted;
};

// Drawings that were found in a folder keep their places below it.
QString besideOrIn(const QString& drawing, const Place& place, const QString& below)
{
    const QFileInfo info(drawing);
    const QDir where = place.named.isEmpty() ? info.dir() : QDir(QDir(place.named).filePath(below));
    return QDir::cleanPath(where.filePath(info.completeBaseName() + place.suffix + QLatin1Char('.') + place.ending));
}

QString fileFor(const QString& drawing, const Place& place, bool isFolder, const QString& below)
{
    if (!place.wanted)
        return {};
    if (place.named.isEmpty() || isFolder || QFileInfo(place.named).isDir())
        return besideOrIn(drawing, place, below);
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

TargetCompanions companionsFor(const NormalMapOptions& options)
{
    return options.form.target ? options.form.target->beside : TargetCompanions{};
}

// Where a single drawing's map is named, a mask without a name goes into the map's folder.
Place placeOfGloss(const NormalMapOptions& options, bool several)
{
    const bool besideMap = options.glossFile.isEmpty() && !several && !options.output.isEmpty();
    const QString named = options.glossFile.isEmpty() ? options.output : options.glossFile;
    return {besideMap && !QFileInfo(named).isDir() ? QFileInfo(named).path() : named,
            QLatin1String(companionsFor(options).gloss), QStringLiteral("png"), options.gloss.isAny()};
}

// With several drawings the options name folders. A folder called one.png would surprise everybody.
UT_Result<void> checkFolder(const Place& place)
{
    const bool isPicture = IIO_pictureFormatOf(place.named).ok();
    const bool isFile = isPicture || LitPageFile::check(place.named);
    if (place.named.isEmpty() || !isFile || QFileInfo(place.named).isDir())
        return {};
    return UT_Error{QStringLiteral("%1 names one %2, and there are several drawings; name a folder, which gets a %2 of "
                                   "each, or give one drawing at a time")
                        .arg(place.named, isPicture ? QStringLiteral("picture") : QStringLiteral("page"))};
}

UT_Result<void> checkFormat(const QString& file)
{
    if (file.isEmpty() || file.endsWith(QLatin1String("_canvas.tres")))
        return {};
    const auto format = IIO_pictureFormatOf(file);
    return format ? UT_Result<void>() : format.error();
}

QString canvasFile(const QString& drawing, const QString& map, const NormalMapOptions& options)
{
    if (!options.canvas)
        return {};
    const QString name = QFileInfo(drawing).completeBaseName() + QStringLiteral("_canvas.tres");
    return QDir::cleanPath(QFileInfo(map).dir().filePath(name));
}

// Godot imports these pictures itself.
UT_Result<void> checkCanvas(const QString& drawing, const NormalMapOptions& options)
{
    static const QStringList imported{QStringLiteral("png"), QStringLiteral("svg"), QStringLiteral("webp"),
                                      QStringLiteral("jpg"), QStringLiteral("bmp"), QStringLiteral("tga")};
    if (!options.canvas || !options.drawingPicture.isEmpty() ||
        imported.contains(QFileInfo(drawing).suffix().toLower()))
        return {};
    return UT_Error{QStringLiteral("%1 is no picture that Godot imports; write the drawing as a picture, too, with "
                                   "--drawing")
                        .arg(drawing)};
}

UT_Result<void> checkPage(const QString& file)
{
    return file.isEmpty() ? UT_Result<void>() : LitPageFile::check(file);
}

UT_Error sameFile(const QString& file, const QString& first, const QString& second)
{
    const QString text =
        first == second
            ? QStringLiteral("two pictures of %2 would be written to %1; name different files")
            : QStringLiteral("%2 and %3 would both be written to %1; rename one of them, or run quarvel once for "
                             "each, with another folder behind -o");
    return UT_Error{first == second ? text.arg(file, first) : text.arg(file, first, second)};
}

} // namespace

QStringList OutputFiles::all() const
{
    return {normalMap, elevation, lit, drawing, page, height, occlusion, numbers, gloss, canvas};
}

QString suffixOfMaps(const NormalMapOptions& options)
{
    const Target* const target = options.form.target;
    return options.suffix.value_or(target ? target->suffixText() : QString::fromLatin1(kSuffixForMost));
}

UT_Result<std::vector<OutputFiles>> outputFiles(const NormalMapOptions& options)
{
    const bool several = options.drawings.size() > 1 || !options.folders.isEmpty();
    const QString png = QStringLiteral("png");
    const Place normalMap = placeOfMap(options);
    const Place elevation{options.elevation, QStringLiteral("_e"), png, !options.elevation.isEmpty()};
    const Place lit{options.lit, QStringLiteral("_lit"), png, !options.lit.isEmpty()};
    const Place picture{options.drawingPicture, QStringLiteral("_drawing"), png, !options.drawingPicture.isEmpty()};
    const TargetCompanions beside = companionsFor(options);
    const Place height{options.height, QLatin1String(beside.height), png, !options.height.isEmpty()};
    const Place occlusion{options.occlusion, QLatin1String(beside.occlusion), png, !options.occlusion.isEmpty()};
    const Place numbers{options.numbers, QStringLiteral("_numbers"), png, !options.numbers.isEmpty()};
    const Place gloss = placeOfGloss(options, several);
    const bool glossInFolder = several || options.glossFile.isEmpty();
    const Place page{options.page, QString(), QStringLiteral("html"), !options.page.isEmpty()};

    for (const Place& place : {normalMap, elevation, lit, picture, page, height, occlusion, numbers, gloss})
        if (const UT_Result<void> isFolder = several ? checkFolder(place) : UT_Result<void>(); !isFolder)
            return isFolder.error();

    QHash<QString, QString> takenBy;
    QSet<QString> drawings;
    for (const QString& drawing : options.drawings)
        drawings.insert(QFileInfo(drawing).absoluteFilePath());

    std::vector<OutputFiles> all;
    for (const QString& drawing : options.drawings) {
        const QString below = options.folders.value(drawing);
        const OutputFiles files{fileFor(drawing, normalMap, several, below),
                                fileFor(drawing, elevation, several, below),
                                fileFor(drawing, lit, several, below),
                                fileFor(drawing, picture, several, below),
                                fileFor(drawing, page, several, below),
                                fileFor(drawing, height, several, below),
                                fileFor(drawing, occlusion, several, below),
                                fileFor(drawing, numbers, several, below),
                                fileFor(drawing, gloss, glossInFolder, below),
                                canvasFile(drawing, fileFor(drawing, normalMap, several, below), options)};
        if (UT_Result<void> fits = checkCanvas(drawing, options); !fits)
            return fits.error();
        for (const QString& file : files.all()) {
            if (UT_Result<void> known = file == files.page ? checkPage(file) : checkFormat(file); !known)
                return known.error();
            const QString path = QFileInfo(file).absoluteFilePath();
            if (file.isEmpty())
                continue;
            if (drawings.contains(path))
                return UT_Error{QStringLiteral("%1 would be written over by what is made of %2; name another file or "
                                               "folder with -o")
                                    .arg(file, drawing)};
            if (takenBy.contains(path))
                return sameFile(file, takenBy.value(path), drawing);
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
    for (const QString& file : files.all()) {
        if (file.isEmpty())
            continue;
        const QString folder = QFileInfo(file).absolutePath();
        if (!QDir().mkpath(folder))
            return UT_Error{QStringLiteral("the folder %1 cannot be made; choose one where you may write").arg(folder)};
    }
    return {};
}
