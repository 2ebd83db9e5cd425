// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One drawing after the other: read, render, write. What goes wrong with one is said and does not stop the others.
#include "NormalMapCommand.h"

#include "OutputFiles.h"
#include "ProgressLine.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "Say.h"
#include "SilencedOutput.h"
#include "StopSignal.h"
#include "WritePictures.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/targets/Targets.h"

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
    DrawingRun(const NormalMapOptions& options, ProgressLine& line, qsizetype index)
        : _options(options), _line(line), _drawing(options.drawings[index]), _index(index)
    {}

    UT_Result<void> run(const OutputFiles& files)
    {
        show(0.0);
        UT_Result<ReadDrawing> read = readDrawing(_drawing, _options.settings.form);
        if (!read)
            return read.error();
        for (const QString& warning : read->warnings)
            warn(warning);
        show(kReadEnds);
        if (UT_Result<void> made = makeFolders(files); !made)
            return made;
        QStringList names;
        for (const LayeredDrawing::Layer& layer : read->drawing.layers)
            names << layer.name;
        const auto wishes = withNumberedObjects(_options.settings, names);
        if (!wishes)
            return wishes.error();
        NormalMapSettings settings = _options.settings;
        static_cast<ObjectWishes&>(settings) = *wishes;
        _chosen = chosenFor(read->drawing);
        const auto rendered =
            renderNormalMap(read->drawing, settings, wantedPictures(_options, files), part(kReadEnds, kRenderEnds));
        if (!rendered)
            return rendered.error();
        return writePictures(*rendered, _options, files, _drawing, part(kRenderEnds, 1.0));
    }

    /// The values that were chosen for the objects, as options; how many there are where they would fill the screen.
    const QString& chosen() const { return _chosen; }

private:
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
        say(QStringLiteral("%1: warning: %2").arg(_drawing, warning));
    }

    const NormalMapOptions& _options;
    ProgressLine& _line;
    const QString& _drawing;
    qsizetype _index;
    QString _chosen;
};

UT_Result<void> runOne(DrawingRun& run, const OutputFiles& files)
{
    return UT_withinMemory(QStringLiteral("this drawing"), QStringLiteral("choose a smaller size"),
                           [&] { return run.run(files); });
}

// For whom the maps are right; empty where that is nobody's question.
QString formLine(const NormalMapOptions& options, const std::vector<OutputFiles>& files)
{
    const QString& file = files.front().normalMap;
    if (options.nodeLayout || !options.settings.generateNormals || IIO_isFloatFile(file))
        return {};
    return fitsLine(mapFormFor(options, file));
}

int runAll(const NormalMapOptions& options, const std::vector<OutputFiles>& files)
{
    ProgressLine line(options.progress);
    int exitCode = 0;
    int written = 0;
    for (qsizetype i = 0; i < options.drawings.size() && !StopSignal::came(); ++i) {
        const OutputFiles& own = files[static_cast<std::size_t>(i)];
        DrawingRun run(options, line, i);
        const UT_Result<void> done = runOne(run, own);
        line.clear();
        if (done) {
            writeText(stdout, QStringLiteral("%1 -> %2\n").arg(options.drawings[i], own.normalMap));
            // Among many drawings the results would be lost between such lines.
            if (options.drawings.size() == 1)
                writeText(stdout, QStringLiteral("chosen: %1\n").arg(run.chosen()));
            ++written;
            continue;
        }
        if (done.error().kind == UT_ErrorKind::STOPPED)
            break;
        say(QStringLiteral("%1: %2").arg(options.drawings[i], done.error().sentence()));
        exitCode = kFailed;
    }
    if (const QString fits = formLine(options, files); written > 0 && !fits.isEmpty())
        writeText(stdout, fits + QLatin1Char('\n'));
    if (!StopSignal::came())
        return exitCode;
    say(QStringLiteral("stopped; %1 of %2 drawings are done").arg(written).arg(options.drawings.size()));
    return StopSignal::exitCode();
}

} // namespace

int runNormalMapCommand(const QStringList& words)
{
    const UT_Result<NormalMapOptions> options = parseNormalMapOptions(words);
    if (!options) {
        say(options.error().sentence());
        return kWrongUsage;
    }
    if (options->help) {
        std::fputs(qPrintable(normalMapHelp()), stdout);
        return 0;
    }
    const UT_Result<std::vector<OutputFiles>> files = outputFiles(*options);
    if (!files) {
        say(files.error().sentence());
        return kWrongUsage;
    }
    if (const UT_Result<QStringList> loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder()); !loaded) {
        say(loaded.error().sentence());
        return kFailed;
    }
    const StopSignal stopSignal;
    const SilencedOutput silenced(options->quiet);
    return runAll(*options, *files);
}
