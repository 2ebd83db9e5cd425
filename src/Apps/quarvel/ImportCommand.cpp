// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads, builds, saves; a scene that is there already stays unless it may be written over.
#include "ImportCommand.h"

#include "ExitCodes.h"
#include "InputAdvice.h"
#include "LoadPlugIns.h"
#include "ProgressLine.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Report.h"
#include "StandInFiles.h"
#include "StandardInput.h"
#include "StopSignal.h"
#include "jobs/import/ImportDrawings.h"

#include <QDir>
#include <QFileInfo>

#include <chrono>

namespace {

// Checked before anything is read, so that nobody waits for a refusal.
UT_Result<void> checkOutput(const ImportOptions& options)
{
    const QFileInfo output(options.output);
    if (!output.exists() && IIO_pictureFormatOf(options.output))
        return UT_Error{QStringLiteral("%1 names a picture, and a scene is a folder; choose another name with -o, such "
                                       "as %2.scene")
                            .arg(options.output, output.completeBaseName())};
    if (!output.absoluteDir().exists())
        return UT_Error{QStringLiteral("%1: there is no folder %2; make it first")
                            .arg(options.output, output.absoluteDir().path())};
    if (!output.exists() && !output.isSymLink())
        return {};
    if (SIO_isRoomForScene(options.output))
        return {};
    if (!SIO_holdsScene(options.output))
        return UT_Error{
            QStringLiteral("%1 is there already and is not a scene; choose another name with -o").arg(options.output)};
    if (!options.force)
        return UT_Error{
            QStringLiteral("%1 is there already; choose another name with -o, or write over it with --force")
                .arg(options.output)};
    return {};
}

// What a run of import shows while it works. Reading and saving take about as long.
class ImportProgress
{
public:
    explicit ImportProgress(const ImportOptions& options)
        : _options(options), _line(options.quiet ? ProgressStyle::NONE : ProgressStyle::AUTOMATIC)
    {}

    bool reads(double done) { return show(done / 2.0, _options.files.first()); }
    bool saves(double done) { return show((1.0 + done) / 2.0, _options.output); }
    void clear() { _line.clear(); }

private:
    // Short runs show nothing. @return whether to go on
    bool show(double done, const QString& what)
    {
        constexpr auto kSoonest = std::chrono::milliseconds(500);
        if (std::chrono::steady_clock::now() - _start >= kSoonest)
            _line.show(done, what);
        return !StopSignal::came();
    }

    const ImportOptions& _options;
    ProgressLine _line;
    std::chrono::steady_clock::time_point _start = std::chrono::steady_clock::now();
};

UT_Result<ImportedScene> importFiles(const ImportOptions& options, ImportProgress& progress)
{
    for (const QString& file : options.files)
        if (const UT_Result<void> importable = checkIsImportable(file); !importable)
            return importable.error();
    ImportSettings settings;
    settings.form = options.form;
    settings.wishes = options.wishes;
    settings.goOn = [&](double done) { return progress.reads(done); };
    return UT_withinMemory(QStringLiteral("all these drawings"), QStringLiteral("import fewer frames at once"),
                           [&] { return importDrawings(options.files, settings); });
}

void tellWhatWasMade(const ImportOptions& options, const MO_Scene& scene, Report& report)
{
    int elements = 0;
    std::size_t drawings = 0;
    scene.root().forEachModule([&](const MO_Module& module) {
        if (const auto* element = dynamic_cast<const MO_ElementModule*>(&module)) {
            ++elements;
            drawings += element->drawings().size();
        }
    });
    std::size_t colours = 0;
    for (const auto& palette : scene.palettes())
        colours += palette->colors().size();
    report.result({{QStringLiteral("files"), QJsonArray::fromStringList(options.files)},
                   {QStringLiteral("scene"), options.output},
                   {QStringLiteral("firstFrame"), scene.firstFrame()},
                   {QStringLiteral("lastFrame"), scene.lastFrame()},
                   {QStringLiteral("elements"), elements},
                   {QStringLiteral("drawings"), static_cast<int>(drawings)},
                   {QStringLiteral("colours"), static_cast<int>(colours)}},
                  QStringLiteral("%1 -> %2 (frames %3-%4, elements: %5, drawings: %6, colours: %7)\n")
                      .arg(options.files.first(), options.output, QString::number(scene.firstFrame()),
                           QString::number(scene.lastFrame()), QString::number(elements), QString::number(drawings),
                           QString::number(colours)));
}

// Once the save has taken effect a signal is too late: the scene is whole then.
int importAndSave(const ImportOptions& options, Report& report)
{
    const auto failed = [&](const UT_Error& error) {
        report.error(error);
        return kFailed;
    };
    if (const UT_Result<void> loaded = loadPlugIns(); !loaded)
        return failed(loaded.error());
    ImportProgress progress(options);
    const UT_Result<ImportedScene> imported = importFiles(options, progress);
    progress.clear();
    if (StopSignal::came())
        return StopSignal::leaveUnchanged(options.output, report);
    if (!imported)
        return failed(imported.error());
    for (const QString& warning : imported->warnings)
        report.warning({}, warning);
    const auto saved =
        SIO_saveScene(*imported->scene, options.output, [&](double done) { return progress.saves(done); });
    progress.clear();
    if (!saved)
        return saved.error().kind == UT_ErrorKind::STOPPED ? StopSignal::leaveUnchanged(options.output, report)
                                                           : failed(saved.error());
    tellWhatWasMade(options, *imported->scene, report);
    if (!StopSignal::came())
        return 0;
    report.error(QStringLiteral("stopped; %1 is complete").arg(options.output));
    return StopSignal::exitCode();
}

} // namespace

int runImportCommand(const QStringList& words, Report& report)
{
    UT_Result<ImportOptions> options = parseImportOptions(words);
    if (!options) {
        report.error(options.error());
        return kWrongUsage;
    }
    if (options->help) {
        report.help(importHelp());
        return 0;
    }
    if (options->quiet)
        report.beQuiet();
    StandardInput input;
    StandInFiles standIns;
    UT_Result<void> ready = checkOutput(*options);
    if (ready)
        ready = standIns.putInto(options->files, report);
    if (ready)
        ready = input.putInto(options->files, report);
    if (!ready) {
        report.error(ready.error());
        return kFailed;
    }
    return importAndSave(*options, report);
}
