// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Several drawings at once: read, render, write. What goes wrong with one is said and does not stop the others; results
// and messages come in the drawings' order.
#include "NormalMapCommand.h"

#include "AtlasFiles.h"
#include "DrawingRun.h"
#include "DrawingsInFolder.h"
#include "ExitCodes.h"
#include "FormatLosses.h"
#include "InOrder.h"
#include "KeptMaps.h"
#include "LoadPlugIns.h"
#include "OptionTable.h"
#include "OutputFiles.h"
#include "ProgressLine.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "Report.h"
#include "RunProgress.h"
#include "StandInFiles.h"
#include "StandardInput.h"
#include "StandardOutput.h"
#include "StopSignal.h"
#include "form/ChooseObjects.h"
#include "jobs/sheets/ReadAtlas.h"
#include "jobs/targets/Targets.h"

#include <atomic>
#include <shared_mutex>

namespace {

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
    return fitsLine(mapFormFor(options, file), options.form.target);
}

QJsonObject fieldsOf(const QString& drawing, const OutputFiles& files)
{
    QJsonObject fields{{QStringLiteral("drawing"), drawing}};
    const std::pair<const char*, const QString&> written[] = {
        {"normalMap", files.normalMap},    {"elevation", files.elevation}, {"lit", files.lit},
        {"drawingPicture", files.drawing}, {"page", files.page},           {"height", files.height},
        {"occlusion", files.occlusion},    {"numbers", files.numbers},     {"gloss", files.gloss},
        {"canvas", files.canvas}};
    for (const auto& [key, file] : written)
        if (!file.isEmpty())
            fields.insert(QLatin1String(key), file);
    return fields;
}

// What was made of a drawing, for people: the map, then what lies beside it.
QString resultLine(const QString& drawing, const OutputFiles& files, const QString& note)
{
    QStringList written = files.all();
    written.removeAll(QString());
    return QStringLiteral("%1 -> %2%3\n").arg(drawing, written.join(QStringLiteral(", ")), note);
}

// Icons name sizes for a line of text; whoever lights a drawing rarely means those.
constexpr int kSmallSide = 256;

// How small maps become larger.
QString sizeLine(int small)
{
    return QStringLiteral("maps of less than %1 pixels a side, because their drawings say so: %2; --size 1024 makes "
                          "them larger")
        .arg(kSmallSide)
        .arg(small);
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
        if (_small > 0)
            _report.remark(sizeLine(_small) + QLatin1Char('\n'));
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
            DrawingEnd end = runAt(i, _atOnce, regions);
            if (_atOnce == 1 || end.done || end.done.error().kind != UT_ErrorKind::NO_MEMORY)
                return end;
        }
        const std::unique_lock alone(_alone);
        return runAt(i, 1, regions);
    }

    DrawingEnd runAt(std::size_t i, int atOnce, const std::vector<SheetRegion>& regions)
    {
        return runDrawing(_options, {i, atOnce, [this] { return stops(); }}, _files[i], regions, _progress);
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
        _report.result(fields, resultLine(drawing, _files[i], note));
        // Among many drawings the results would be lost between such lines.
        if (_files.size() == 1 && !end.chosen.isEmpty())
            _report.remark(end.chosen + QLatin1Char('\n'));
        ++_written;
        if (end.ownSide > 0 && end.ownSide < kSmallSide)
            ++_small;
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
    int _small = 0; // of these, those whose drawings say a small size
};

int runPages(const NormalMapOptions& options, const std::vector<Sheet>& pages, Report& report)
{
    const UT_Result<std::vector<OutputFiles>> files = outputFiles(options);
    if (!files) {
        report.error(files.error());
        return kWrongUsage;
    }
    warnOfEightBits(files->front().normalMap, report);
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

// A map beside its drawing is named after it.
UT_Result<void> checkMapsHaveNames(const NormalMapOptions& options, const StandInFiles& standIns, const Report& report)
{
    const auto unnamed =
        std::ranges::find_if(options.drawings, [&](const QString& file) { return standIns.isForFile(file); });
    if (!options.output.isEmpty() || unnamed == options.drawings.end())
        return {};
    return UT_Error{QStringLiteral("%1: the name is not UTF-8, and files are read but not made under such names; name "
                                   "the map, or a folder for the maps, with -o")
                        .arg(report.named(*unnamed))};
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
    StandInFiles standIns;
    if (const UT_Result<void> named = standIns.putInto(options->drawings, report); !named) {
        report.error(named.error());
        return kFailed;
    }
    UT_Result<void> found = takeDrawingsOfFolders(*options, standIns, report);
    if (found)
        found = checkMapsHaveNames(*options, standIns, report);
    if (!found) {
        report.error(found.error());
        return kWrongUsage;
    }
    if (const UT_Result<void> loaded = loadPlugIns(); !loaded) {
        report.error(loaded.error());
        return kFailed;
    }
    return runWithStreams(*options, *pages, report);
}
