// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Several drawings at once: read, render, write. What goes wrong with one is said and does not stop the others; results
// and messages come in the drawings' order.
#include "NormalMapCommand.h"

#include "DrawingsInFolder.h"
#include "GlossOption.h"
#include "InOrder.h"
#include "InputAdvice.h"
#include "KeptMaps.h"
#include "LoadPlugIns.h"
#include "OptionTable.h"
#include "OutputFiles.h"
#include "ProgressLine.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "RenderedDrawing.h"
#include "Report.h"
#include "RunProgress.h"
#include "SheetRun.h"
#include "StandardInput.h"
#include "StandardOutput.h"
#include "StopSignal.h"
#include "WritePictures.h"
#include "form/ChooseObjects.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/sheets/ReadAtlas.h"
#include "jobs/targets/CanvasTexture.h"
#include "jobs/targets/Targets.h"

#include <QDir>
#include <QFileInfo>

#include <atomic>
#include <cstdio>
#include <functional>
#include <new>
#include <shared_mutex>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

// How much of a drawing's time its steps take, roughly.
constexpr double kReadEnds = 0.05;
constexpr double kRenderEnds = 0.75;

// The file appears whole or not at all.
UT_Result<void> writeText(const QString& path, const QByteArray& bytes)
{
    IIO_AtomicFile file(path);
    if (const auto opened = file.open(); !opened)
        return opened.error();
    file.device().write(bytes);
    return file.commit();
}

class DrawingRun
{
public:
    /// @param atOnce how many drawings are worked on at the same time
    /// @param stops  whether the run must stop
    DrawingRun(const NormalMapOptions& options, RunProgress& progress, std::size_t index, int atOnce,
               std::function<bool()> stops)
        : _options(options)
        , _progress(progress)
        , _drawing(options.drawings[static_cast<qsizetype>(index)])
        , _index(index)
        , _atOnce(atOnce)
        , _stops(std::move(stops))
    {}

    /// @param regions of the atlas that the drawing is a page of; none for other drawings
    UT_Result<void> run(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        show(0.0);
        if (UT_Result<void> made = makeFolders(files); !made)
            return made;
        _digest = digestOfMaps(_options, _drawing, files);
        _isKept = _options.resume && areMapsOnDisk(_options, files, _digest);
        if (UT_Result<void> done = _isKept ? UT_Result<void>() : makeMaps(files, regions); !done)
            return done;
        return files.canvas.isEmpty() ? UT_Result<void>() : writeCanvas(files);
    }

    /// What was chosen, for people: the objects' values as options, how many there are where they would fill the
    /// screen, or how many sprites there are.
    const QString& chosen() const { return _chosen; }
    const QStringList& warnings() const { return _warnings; }
    /// Whether the maps were complete before.
    bool isKept() const { return _isKept; }

private:
    UT_Result<void> makeMaps(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        return _options.cells || !regions.empty() ? runPage(files, regions) : runDrawing(files);
    }

    PictureOrigin origin() const { return {_drawing, _digest}; }

    UT_Result<void> writeCanvas(const OutputFiles& files) const
    {
        const QString& drawing = files.drawing.isEmpty() ? _drawing : files.drawing;
        return writeText(files.canvas, canvasTexture({files.canvas, drawing, files.normalMap, files.gloss}));
    }

    UT_Result<void> runPage(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        const UT_Result<SheetResult> done = runSheet(origin(), regions, _options, files, part(0.0, 1.0));
        if (!done)
            return done.error();
        _warnings = done->warnings;
        _chosen = QStringLiteral("sprites: %1").arg(done->sprites);
        return {};
    }

    UT_Result<void> runDrawing(const OutputFiles& files)
    {
        if (const UT_Result<void> readable = checkIsDrawing(_drawing); !readable)
            return readable.error();
        const UT_Result<ReadDrawing> read = readDrawing(_drawing, _options.settings.form, _options.tiling);
        if (!read)
            return read.error();
        _warnings = read->warnings;
        show(kReadEnds);
        return _options.tiling.isAny() ? renderTiled(read->drawing, files) : renderAlone(read->drawing, files);
    }

    UT_Result<void> renderAlone(const LayeredDrawing& drawing, const OutputFiles& files)
    {
        _chosen = QStringLiteral("chosen: %1").arg(chosenFor(drawing));
        const auto rendered = render(drawing, _options.settings, files);
        if (!rendered)
            return rendered.error();
        return writePictures(*rendered, _options, files, origin(), part(kRenderEnds, 1.0));
    }

    UT_Result<void> renderTiled(LayeredDrawing drawing, const OutputFiles& files)
    {
        const Tiling& tiling = _options.tiling;
        shrinkGivenForms(drawing, tiling, _options.settings.form.shape);
        auto rendered = render(drawing, settingsForTiles(_options.settings, drawing.size, tiling), files);
        if (!rendered)
            return rendered.error();
        rendered->frame.window = middleOf(rendered->frame.window, tiling);
        return writePictures(*rendered, _options, files, origin(), part(kRenderEnds, 1.0));
    }

    UT_Result<RenderedDrawing> render(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                      const OutputFiles& files)
    {
        auto rendered = renderDrawing(drawing, settings, _options, files, part(kReadEnds, kRenderEnds), _atOnce);
        if (!rendered)
            return rendered;
        if (rendered->showsNothing)
            _warnings << QStringLiteral("all objects are hidden or cut out, so nothing shows");
        if (const QString warning = glossWarning(rendered->gloss.missing); !warning.isEmpty())
            _warnings << warning;
        return rendered;
    }

    QString chosenFor(const LayeredDrawing& drawing) const
    {
        constexpr std::size_t kFitScreen = 24;
        if (drawing.layers.size() <= kFitScreen)
            return objectOptions(drawing);
        return QStringLiteral("%1 objects; quarvel inspect %2 lists them").arg(drawing.layers.size()).arg(_drawing);
    }

    void show(double done) { _progress.show(_index, done, _drawing); }

    JobProgress part(double from, double to)
    {
        return [this, from, to](double done) {
            show(from + (to - from) * done);
            return !_stops();
        };
    }

    const NormalMapOptions& _options;
    RunProgress& _progress;
    const QString& _drawing;
    std::size_t _index;
    int _atOnce;
    std::function<bool()> _stops;
    QByteArray _digest;
    bool _isKept = false;
    QString _chosen;
    QStringList _warnings;
};

/// What came of a drawing.
struct DrawingEnd
{
    UT_Result<void> done;
    QString chosen;
    QStringList warnings;
    bool isKept = false;
};

DrawingEnd runOne(DrawingRun run, const OutputFiles& files, const std::vector<SheetRegion>& regions)
{
    const auto done = UT_withinMemory(QStringLiteral("this drawing"), QStringLiteral("choose a smaller size"),
                                      [&] { return run.run(files, regions); });
    return {done, run.chosen(), run.warnings(), run.isKept()};
}

// Pages come one after the other: what a page's sprites share is read from its folder.
int drawingsAtOnce(const NormalMapOptions& options)
{
    if (options.cells || !options.atlas.isEmpty())
        return 1;
    const int most = options.jobs > 0 ? options.jobs : jobLimits().threads;
    return static_cast<int>(std::clamp<qsizetype>(options.drawings.size(), 1, most));
}

// The programs that the maps are right for; empty where the options decide that.
QString formLine(const NormalMapOptions& options, const std::vector<OutputFiles>& files)
{
    const QString& file = files.front().normalMap;
    if (options.nodeLayout || !options.settings.generateNormals || IIO_isFloatFile(file))
        return {};
    return fitsLine(mapFormFor(options, file));
}

QJsonObject fieldsOf(const QString& drawing, const OutputFiles& files)
{
    QJsonObject fields{{QStringLiteral("drawing"), drawing}};
    const std::pair<const char*, const QString&> written[] = {
        {"normalMap", files.normalMap},    {"elevation", files.elevation}, {"lit", files.lit},
        {"drawingPicture", files.drawing}, {"height", files.height},       {"occlusion", files.occlusion},
        {"numbers", files.numbers},        {"gloss", files.gloss},         {"canvas", files.canvas}};
    for (const auto& [key, file] : written)
        if (!file.isEmpty())
            fields.insert(QLatin1String(key), file);
    return fields;
}

// What a format loses. Said once for all drawings.
void warnOfLosses(const std::vector<OutputFiles>& files, Report& report)
{
    const QString& map = files.front().normalMap;
    const auto format = IIO_pictureFormatOf(map);
    if (!format || format->samples == IIO_SampleType::FLOAT || format->bitsPerChannel > 8)
        return;
    report.warning(map, QStringLiteral(".%1 files hold 8 bits a channel%2; write .png or .exr to keep everything")
                            .arg(format->suffix, format->alpha ? QString() : QStringLiteral(" and no coverage")));
}

/// The runs of all drawings.
class AllRuns
{
public:
    /// @param pages of an atlas, one for each drawing; none without one
    AllRuns(const NormalMapOptions& options, const std::vector<OutputFiles>& files, const std::vector<Sheet>& pages,
            Report& report)
        : _options(options)
        , _files(files)
        , _pages(pages)
        , _report(report)
        , _line(options.quiet ? ProgressStyle::NONE : options.progress)
        , _progress(_line, files.size())
        , _atOnce(drawingsAtOnce(options))
    {}

    /// @return the exit code
    int run()
    {
        inOrder<DrawingEnd>(
            _files.size(), _atOnce, [this](std::size_t i) { return make(i); },
            [this](std::size_t i, const DrawingEnd& end) { return take(i, end); });
        _progress.clear();
        if (const QString fits = formLine(_options, _files); _written > 0 && !fits.isEmpty())
            _report.remark(fits + QLatin1Char('\n'));
        if (stops() && (_files.size() > 1 || StopSignal::came()))
            _report.error(QStringLiteral("stopped; %1 of %2 drawings are done; --resume goes on from here")
                              .arg(_written)
                              .arg(_files.size()));
        return StopSignal::came() ? StopSignal::exitCode() : _exitCode;
    }

private:
    // On a full disk, the files of the drawings that are still to come would not fit either.
    bool stops() const { return StopSignal::came() || _diskIsFull; }

    DrawingEnd make(std::size_t i)
    {
        if (stops())
            return {UT_stopped(), {}, {}};
        DrawingEnd end = makeNow(i);
        const bool isFull = !end.done && end.done.error().kind == UT_ErrorKind::DISK_FULL;
        // One message is enough for all drawings that meet it.
        if (isFull && _diskIsFull.exchange(true))
            end.done = UT_stopped();
        return end;
    }

    // A drawing for which there is no memory beside others is tried again alone.
    DrawingEnd makeNow(std::size_t i)
    {
        const std::vector<SheetRegion> regions = i < _pages.size() ? _pages[i].regions : std::vector<SheetRegion>();
        {
            const std::shared_lock beside(_alone);
            DrawingEnd end = runOne(runOf(i, _atOnce), _files[i], regions);
            if (_atOnce == 1 || end.done || end.done.error().kind != UT_ErrorKind::NO_MEMORY)
                return end;
        }
        const std::unique_lock alone(_alone);
        return runOne(runOf(i, 1), _files[i], regions);
    }

    DrawingRun runOf(std::size_t i, int atOnce)
    {
        return {_options, _progress, i, atOnce, [this] { return stops(); }};
    }

    bool take(std::size_t i, const DrawingEnd& end)
    {
        const QString& drawing = _options.drawings[static_cast<qsizetype>(i)];
        // Later drawings may be done already.
        if (!end.done && end.done.error().kind == UT_ErrorKind::STOPPED)
            return true;
        _progress.show(i, 1.0, drawing);
        _progress.clear();
        for (const QString& warning : end.warnings)
            _report.warning(drawing, warning);
        if (!end.done) {
            _report.error(end.done.error(), drawing);
            _exitCode = kFailed;
            return true;
        }
        QJsonObject fields = fieldsOf(drawing, _files[i]);
        if (_options.resume)
            fields.insert(QStringLiteral("kept"), end.isKept);
        const QString note = end.isKept ? QStringLiteral(" (complete already)") : QString();
        _report.result(fields, QStringLiteral("%1 -> %2%3\n").arg(drawing, _files[i].normalMap, note));
        // Among many drawings the results would be lost between such lines.
        if (_files.size() == 1 && !end.chosen.isEmpty())
            _report.remark(end.chosen + QLatin1Char('\n'));
        ++_written;
        return true;
    }

    const NormalMapOptions& _options;
    const std::vector<OutputFiles>& _files;
    const std::vector<Sheet>& _pages;
    Report& _report;
    ProgressLine _line;
    RunProgress _progress;
    const int _atOnce;
    std::atomic<bool> _diskIsFull = false;
    std::shared_mutex _alone; // held alone by a drawing that is tried again
    int _exitCode = 0;
    int _written = 0;
};

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
    if (const auto written = writeText(path, *bytes); !written)
        return written.error();
    return path;
}

// The atlas of the maps; and, for Godot's own atlases, one whose frames show drawing and map together.
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

int runPages(const NormalMapOptions& options, const std::vector<Sheet>& pages, Report& report)
{
    const UT_Result<std::vector<OutputFiles>> files = outputFiles(options);
    if (!files) {
        report.error(files.error());
        return kWrongUsage;
    }
    warnOfLosses(*files, report);
    warnOfFilesWithoutDigest(options, files->front(), report);
    const int exitCode = AllRuns(options, *files, pages, report).run();
    if (exitCode != 0 || pages.empty())
        return exitCode;
    const UT_Result<QStringList> atlases = writeAtlases(options, *files);
    if (!atlases) {
        report.error(atlases.error());
        return kFailed;
    }
    for (const QString& atlas : *atlases)
        report.result({{QStringLiteral("atlas"), options.atlas}, {QStringLiteral("normalMap"), atlas}},
                      QStringLiteral("%1 -> %2\n").arg(options.atlas, atlas));
    return 0;
}

// The drawings of an atlas are its pages.
UT_Result<std::vector<Sheet>> takePages(NormalMapOptions& options)
{
    if (options.atlas.isEmpty())
        return std::vector<Sheet>();
    UT_Result<std::vector<Sheet>> pages = readAtlas(options.atlas);
    if (pages)
        for (const Sheet& page : *pages)
            options.drawings << page.page;
    return pages;
}

// The map goes to standard output where somebody says so, and where the drawing came through standard input and nobody
// says anything else.
bool isForStandardOutput(const NormalMapOptions& options)
{
    return options.output == kStandardStream ||
           (options.output.isEmpty() && options.drawings == QStringList(kStandardStream));
}

int runWithStreams(NormalMapOptions& options, const std::vector<Sheet>& pages, Report& report)
{
    StandardOutput output;
    if (isForStandardOutput(options)) {
        const UT_Result<QString> file = output.prepare(options, report);
        if (!file) {
            report.error(file.error());
            return kWrongUsage;
        }
        options.output = *file;
    }
    StandardInput input;
    if (const UT_Result<void> read = input.putInto(options.drawings, report); !read) {
        report.error(read.error());
        return kFailed;
    }
    const int exitCode = runPages(options, pages, report);
    if (exitCode != 0)
        return exitCode;
    if (const UT_Result<void> sent = output.send(report); !sent) {
        report.error(sent.error());
        return kFailed;
    }
    return 0;
}

} // namespace

int runNormalMapCommand(const QStringList& words, Report& report)
{
    UT_Result<NormalMapOptions> options = parseNormalMapOptions(words);
    if (!options) {
        report.error(options.error());
        return kWrongUsage;
    }
    if (options->help) {
        report.help(normalMapHelp());
        return 0;
    }
    if (options->quiet)
        report.beQuiet();
    const UT_Result<std::vector<Sheet>> pages = takePages(*options);
    if (!pages) {
        report.error(pages.error());
        return kFailed;
    }
    if (const UT_Result<void> found = takeDrawingsOfFolders(*options, report); !found) {
        report.error(found.error());
        return kWrongUsage;
    }
    if (const UT_Result<void> loaded = loadPlugIns(); !loaded) {
        report.error(loaded.error());
        return kFailed;
    }
    return runWithStreams(*options, *pages, report);
}
