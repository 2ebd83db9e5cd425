// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One drawing after the other: read, render, write. What goes wrong with one is said and does not stop the others.
#include "NormalMapCommand.h"

#include "DrawingsInFolder.h"
#include "GlossOption.h"
#include "InputAdvice.h"
#include "LoadPlugIns.h"
#include "OutputFiles.h"
#include "ProgressLine.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "RenderedDrawing.h"
#include "Report.h"
#include "SheetRun.h"
#include "StandardInput.h"
#include "StandardOutput.h"
#include "StopSignal.h"
#include "WritePictures.h"
#include "form/ChooseObjects.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/sheets/ReadAtlas.h"
#include "jobs/targets/Targets.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <new>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

// How much of a drawing's time its steps take, roughly.
constexpr double kReadEnds = 0.05;
constexpr double kRenderEnds = 0.75;

class DrawingRun
{
public:
    DrawingRun(const NormalMapOptions& options, ProgressLine& line, Report& report, qsizetype index)
        : _options(options), _line(line), _report(report), _drawing(options.drawings[index]), _index(index)
    {}

    /// @param regions of the atlas that the drawing is a page of; none for other drawings
    UT_Result<void> run(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        show(0.0);
        if (UT_Result<void> made = makeFolders(files); !made)
            return made;
        return _options.cells || !regions.empty() ? runPage(files, regions) : runDrawing(files);
    }

    /// What was chosen, for people: the objects' values as options, how many there are where they would fill the
    /// screen, or how many sprites there are.
    const QString& chosen() const { return _chosen; }

private:
    UT_Result<void> runPage(const OutputFiles& files, const std::vector<SheetRegion>& regions)
    {
        const UT_Result<SheetResult> done = runSheet(_drawing, regions, _options, files, part(0.0, 1.0));
        if (!done)
            return done.error();
        for (const QString& warning : done->warnings)
            warn(warning);
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
        for (const QString& warning : read->warnings)
            warn(warning);
        show(kReadEnds);
        return _options.tiling.isAny() ? renderTiled(read->drawing, files) : renderAlone(read->drawing, files);
    }

    UT_Result<void> renderAlone(const LayeredDrawing& drawing, const OutputFiles& files)
    {
        _chosen = QStringLiteral("chosen: %1").arg(chosenFor(drawing));
        const auto rendered = render(drawing, _options.settings, files);
        if (!rendered)
            return rendered.error();
        return writePictures(*rendered, _options, files, _drawing, part(kRenderEnds, 1.0));
    }

    UT_Result<void> renderTiled(LayeredDrawing drawing, const OutputFiles& files)
    {
        const Tiling& tiling = _options.tiling;
        shrinkGivenForms(drawing, tiling, _options.settings.form.shape);
        auto rendered = render(drawing, settingsForTiles(_options.settings, drawing.size, tiling), files);
        if (!rendered)
            return rendered.error();
        rendered->frame.window = middleOf(rendered->frame.window, tiling);
        return writePictures(*rendered, _options, files, _drawing, part(kRenderEnds, 1.0));
    }

    UT_Result<RenderedDrawing> render(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                      const OutputFiles& files)
    {
        auto rendered = renderDrawing(drawing, settings, _options, files, part(kReadEnds, kRenderEnds));
        if (rendered)
            if (const QString warning = glossWarning(rendered->gloss.missing); !warning.isEmpty())
                warn(warning);
        return rendered;
    }

    QString chosenFor(const LayeredDrawing& drawing) const
    {
        constexpr std::size_t kFitScreen = 24;
        if (drawing.layers.size() <= kFitScreen)
            return objectOptions(drawing);
        return QStringLiteral("%1 objects; quarvel inspect %2 lists them").arg(drawing.layers.size()).arg(_drawing);
    }

    void show(double done)
    {
        const auto count = static_cast<double>(_options.drawings.size());
        _line.show((static_cast<double>(_index) + done) / count, _drawing);
    }

    JobProgress part(double from, double to)
    {
        return [this, from, to](double done) {
            show(from + (to - from) * done);
            return !StopSignal::came();
        };
    }

    void warn(const QString& warning)
    {
        _line.clear();
        _report.warning(_drawing, warning);
    }

    const NormalMapOptions& _options;
    ProgressLine& _line;
    Report& _report;
    const QString& _drawing;
    qsizetype _index;
    QString _chosen;
};

UT_Result<void> runOne(DrawingRun& run, const OutputFiles& files, const std::vector<SheetRegion>& regions)
{
    return UT_withinMemory(QStringLiteral("this drawing"), QStringLiteral("choose a smaller size"),
                           [&] { return run.run(files, regions); });
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
        {"numbers", files.numbers},        {"gloss", files.gloss}};
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

/// @param pages of an atlas, one for each drawing; none without one
int runAll(const NormalMapOptions& options, const std::vector<OutputFiles>& files, const std::vector<Sheet>& pages,
           Report& report)
{
    ProgressLine line(options.quiet ? ProgressStyle::NONE : options.progress);
    int exitCode = 0;
    int written = 0;
    for (qsizetype i = 0; i < options.drawings.size() && !StopSignal::came(); ++i) {
        const OutputFiles& own = files[static_cast<std::size_t>(i)];
        DrawingRun run(options, line, report, i);
        const auto page = static_cast<std::size_t>(i);
        const UT_Result<void> done =
            runOne(run, own, page < pages.size() ? pages[page].regions : std::vector<SheetRegion>());
        line.clear();
        if (done) {
            report.result(fieldsOf(options.drawings[i], own),
                          QStringLiteral("%1 -> %2\n").arg(options.drawings[i], own.normalMap));
            // Among many drawings the results would be lost between such lines.
            if (options.drawings.size() == 1 && !run.chosen().isEmpty())
                report.remark(run.chosen() + QLatin1Char('\n'));
            ++written;
            continue;
        }
        if (done.error().kind == UT_ErrorKind::STOPPED)
            break;
        report.error(done.error(), options.drawings[i]);
        exitCode = kFailed;
    }
    if (const QString fits = formLine(options, files); written > 0 && !fits.isEmpty())
        report.remark(fits + QLatin1Char('\n'));
    if (!StopSignal::came())
        return exitCode;
    report.error(QStringLiteral("stopped; %1 of %2 drawings are done").arg(written).arg(options.drawings.size()));
    return StopSignal::exitCode();
}

// The atlas of the maps, beside the first of them.
UT_Result<QString> writeAtlasOfMaps(const NormalMapOptions& options, const std::vector<OutputFiles>& files)
{
    QStringList names;
    for (const OutputFiles& page : files)
        names << QFileInfo(page.normalMap).fileName();
    const UT_Result<QByteArray> bytes = atlasOfMaps(options.atlas, names);
    if (!bytes)
        return bytes.error();
    const QFileInfo atlas(options.atlas);
    const QDir folder = QFileInfo(files.front().normalMap).dir();
    const QString path = QDir::cleanPath(
        folder.filePath(atlas.completeBaseName() + suffixOfMaps(options) + QLatin1Char('.') + atlas.suffix()));
    IIO_AtomicFile file(path);
    if (const auto opened = file.open(); !opened)
        return opened.error();
    file.device().write(*bytes);
    if (const auto written = file.commit(); !written)
        return written.error();
    return path;
}

int runPages(const NormalMapOptions& options, const std::vector<Sheet>& pages, Report& report)
{
    const UT_Result<std::vector<OutputFiles>> files = outputFiles(options);
    if (!files) {
        report.error(files.error());
        return kWrongUsage;
    }
    warnOfLosses(*files, report);
    const int exitCode = runAll(options, *files, pages, report);
    if (exitCode != 0 || pages.empty())
        return exitCode;
    const UT_Result<QString> atlas = writeAtlasOfMaps(options, *files);
    if (!atlas) {
        report.error(atlas.error());
        return kFailed;
    }
    report.result({{QStringLiteral("atlas"), options.atlas}, {QStringLiteral("normalMap"), *atlas}},
                  QStringLiteral("%1 -> %2\n").arg(options.atlas, *atlas));
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
