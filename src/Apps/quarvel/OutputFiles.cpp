// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names of output files.
#include "OutputFiles.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "TakenFiles.h"
#include "jobs/frames/OutputFolder.h"
#include "jobs/page/LitPageFile.h"
#include "jobs/shown/SurfacePictures.h"
#include "jobs/targets/Targets.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace {

// One of the files that a drawing's run may write.
struct Place
{
    QString OutputFiles::*file;
    QString named;  // what the command line says; empty: beside the drawing
    QString suffix; // what is added to the drawing's name
    QString ending; // of the file, without a dot
    bool wanted;
    bool isFolder; // what is named is a folder whether it exists or not
};

// A folder that exists, or one that is to be made.
bool isFolderName(const QString& named)
{
    return named.endsWith(QLatin1Char('/')) || QFileInfo(named).isDir();
}

// Drawings that were found in a folder keep their places below it.
QString besideOrIn(const QString& drawing, const Place& place, const QString& below)
{
    const QFileInfo info(drawing);
    const QDir where = place.named.isEmpty() ? info.dir() : QDir(QDir(place.named).filePath(below));
    return QDir::cleanPath(where.filePath(info.completeBaseName() + place.suffix + QLatin1Char('.') + place.ending));
}

QString fileFor(const QString& drawing, const Place& place, const QString& below)
{
    if (!place.wanted)
        return {};
    if (place.named.isEmpty() || place.isFolder || isFolderName(place.named))
        return besideOrIn(drawing, place, below);
    return place.named;
}

Place placeOfMap(const NormalMapOptions& options, bool several)
{
    const Target* const target = options.form.target;
    // Pages of sprites are written as PNG whoever takes them.
    const bool page = options.cells || !options.atlas.isEmpty();
    return {&OutputFiles::normalMap,
            options.output,
            suffixOfMaps(options),
            target && !page ? target->endingText() : QStringLiteral("png"),
            true,
            several};
}

// Where a single drawing's map is named, a mask without a name goes into the map's folder.
Place placeOfGloss(const NormalMapOptions& options, const QString& suffix, bool several)
{
    const bool besideMap = options.glossFile.isEmpty() && !several && !options.output.isEmpty();
    const QString named = options.glossFile.isEmpty() ? options.output : options.glossFile;
    return {&OutputFiles::gloss,
            besideMap && !isFolderName(named) ? QFileInfo(named).path() : named,
            suffix,
            QStringLiteral("png"),
            options.gloss.isAny(),
            several || options.glossFile.isEmpty()};
}

// All files but the one that joins others; it is named after them.
std::vector<Place> placesOf(const NormalMapOptions& options, bool several)
{
    const TargetCompanions beside = options.form.target ? options.form.target->beside : TargetCompanions{};
    const auto place = [several](QString OutputFiles::*file, const QString& named, const char* suffix,
                                 const char* ending = "png") {
        return Place{file, named, QLatin1String(suffix), QLatin1String(ending), !named.isEmpty(), several};
    };
    return {placeOfMap(options, several),
            place(&OutputFiles::elevation, options.elevation, "_e"),
            place(&OutputFiles::lit, options.lit, "_lit"),
            place(&OutputFiles::drawing, options.drawingPicture, "_drawing"),
            place(&OutputFiles::page, options.page, "", "html"),
            place(&OutputFiles::height, options.height, beside.height),
            place(&OutputFiles::occlusion, options.occlusion, beside.occlusion),
            place(&OutputFiles::numbers, options.numbers, "_numbers"),
            placeOfGloss(options, QLatin1String(beside.gloss), several)};
}

// With several drawings the options name folders. A folder called one.png would surprise everybody.
UT_Result<void> checkFolder(const Place& place)
{
    const bool isPicture = IIO_pictureFormatOf(place.named).ok();
    const bool isFile = isPicture || LitPageFile::check(place.named);
    if (!place.isFolder || place.named.isEmpty() || !isFile || isFolderName(place.named))
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
    if (format)
        return {};
    if (QFileInfo(file).suffix().isEmpty())
        return UT_Error{QStringLiteral("%1; or write %2/ for a folder").arg(format.error().text, file)};
    return format.error();
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
    if (!options.canvas || !options.drawingPicture.isEmpty() || imported.contains(UT_fileSuffix(drawing)))
        return {};
    return UT_Error{QStringLiteral("%1 is not a picture that Godot imports; write the drawing as a picture, too, with "
                                   "--drawing")
                        .arg(drawing)};
}

QString suffixOfFlip(bool leftRight)
{
    return leftRight ? QStringLiteral("_flipx") : QStringLiteral("_flipy");
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

UT_Result<void> checkName(const QString& file, const OutputFiles& files)
{
    if (file == files.page)
        return checkPage(file);
    return !file.isEmpty() && file == files.numbers ? checkNumbersFile(file) : checkFormat(file);
}

// The files that a run reads and those that it writes.
class RunFiles
{
public:
    explicit RunFiles(const NormalMapOptions& options) : _named(namedPlaces(options))
    {
        for (const QString& source : options.drawings)
            _sources.insert(followedPath(source));
        if (!options.atlas.isEmpty())
            _sources.insert(followedPath(options.atlas));
    }

    // Takes files for what is made of a source: nothing else is written to them, and none of them is a source.
    UT_Result<void> take(const QStringList& files, const QString& source)
    {
        for (const QString& file : files) {
            if (!file.isEmpty() && _sources.contains(followedPath(file)))
                return UT_Error{QStringLiteral("%1 would be written over by what is made of %2; name another file or "
                                               "folder with -o")
                                    .arg(file, source)};
            if (UT_Result<void> own = _named.contains(file) ? UT_Result<void>() : checkIsNoLink(file); !own)
                return own;
            if (const auto before = _taken.take(file, source))
                return sameFile(file, *before, source);
        }
        return {};
    }

private:
    QSet<QString> _sources;
    QStringList _named; // by the options; these alone may be links
    TakenFiles _taken;
};

UT_Result<void> checkNames(const OutputFiles& files)
{
    for (const QString& file : files.all())
        if (UT_Result<void> known = checkName(file, files); !known)
            return known;
    return {};
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
    const std::vector<Place> places = placesOf(options, several);
    for (const Place& place : places)
        if (const UT_Result<void> isFolder = checkFolder(place); !isFolder)
            return isFolder.error();
    RunFiles run(options);
    std::vector<OutputFiles> all;
    all.reserve(static_cast<std::size_t>(options.drawings.size()));
    for (const QString& drawing : options.drawings) {
        OutputFiles files;
        for (const Place& place : places)
            files.*place.file = fileFor(drawing, place, options.folders.value(drawing));
        files.canvas = canvasFile(drawing, files.normalMap, options);
        if (UT_Result<void> fits = checkCanvas(drawing, options); !fits)
            return fits.error();
        if (UT_Result<void> known = checkNames(files); !known)
            return known.error();
        if (UT_Result<void> free = run.take(files.all() + flippedFiles(options, files.normalMap), drawing); !free)
            return free.error();
        all.push_back(std::move(files));
    }
    if (options.atlas.isEmpty() || all.empty())
        return all;
    const auto [maps, canvases] = atlasFiles(options, all.front().normalMap);
    if (UT_Result<void> free = run.take({maps, canvases}, options.atlas); !free)
        return free.error();
    return all;
}

QStringList suffixesOfPictures(const NormalMapOptions& options)
{
    QStringList suffixes;
    for (const Place& place : placesOf(options, true))
        if (place.file != &OutputFiles::page)
            suffixes << place.suffix;
    for (const bool leftRight : {true, false})
        suffixes << suffixOfMaps(options) + suffixOfFlip(leftRight);
    return suffixes;
}

QStringList namedPlaces(const NormalMapOptions& options)
{
    QStringList named;
    for (const Place& place : placesOf(options, true))
        if (!place.named.isEmpty())
            named << place.named;
    return named;
}

QString flippedFile(const QString& file, bool leftRight)
{
    const QFileInfo info(file);
    return QDir::cleanPath(
        info.dir().filePath(info.completeBaseName() + suffixOfFlip(leftRight) + QLatin1Char('.') + info.suffix()));
}

QStringList flippedFiles(const NormalMapOptions& options, const QString& map)
{
    return options.flips ? QStringList{flippedFile(map, true), flippedFile(map, false)} : QStringList();
}

AtlasFiles atlasFiles(const NormalMapOptions& options, const QString& firstMap)
{
    const QFileInfo atlas(options.atlas);
    const QDir folder = QFileInfo(firstMap).dir();
    const auto file = [&](const QString& suffix) {
        return QDir::cleanPath(folder.filePath(atlas.completeBaseName() + suffix + QLatin1Char('.') + atlas.suffix()));
    };
    const bool isGodots = options.atlas.endsWith(QLatin1String(".tres"), Qt::CaseInsensitive);
    return {file(suffixOfMaps(options)), options.canvas && isGodots ? file(QStringLiteral("_lit")) : QString()};
}

UT_Result<void> makeFolders(const OutputFiles& files)
{
    for (const QString& file : files.all())
        if (UT_Result<void> made = file.isEmpty() ? UT_Result<void>() : makeFolderFor(file); !made)
            return made;
    return {};
}
