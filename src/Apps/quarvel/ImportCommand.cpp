// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads, builds, saves; a scene that is there already stays unless it may be written over.
#include "ImportCommand.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "Say.h"
#include "jobs/import/ImportDrawings.h"

#include <QDir>
#include <QFileInfo>

#include <new>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

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
            QStringLiteral("%1 is there already and is no scene; choose another name with -o").arg(options.output)};
    if (!options.force)
        return UT_Error{
            QStringLiteral("%1 is there already; choose another name with -o, or write over it with --force")
                .arg(options.output)};
    return {};
}

UT_Result<ImportedScene> importFiles(const ImportOptions& options)
{
    ImportSettings settings;
    settings.form = options.form;
    settings.wishes = options.wishes;
    return UT_withinMemory(QStringLiteral("all these drawings"), QStringLiteral("import fewer frames at once"),
                           [&] { return importDrawings(options.files, settings); });
}

void sayWhatWasMade(const ImportOptions& options, const MO_Scene& scene)
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
    writeText(stdout, QStringLiteral("%1 -> %2 (frames %3-%4, elements: %5, drawings: %6, colours: %7)\n")
                          .arg(options.files.first(), options.output, QString::number(scene.firstFrame()),
                               QString::number(scene.lastFrame()), QString::number(elements), QString::number(drawings),
                               QString::number(colours)));
}

int failed(const UT_Error& error)
{
    say(error.sentence());
    return kFailed;
}

} // namespace

int runImportCommand(const QStringList& words)
{
    const UT_Result<ImportOptions> options = parseImportOptions(words);
    if (!options) {
        say(options.error().sentence());
        return kWrongUsage;
    }
    if (options->help) {
        std::fputs(qPrintable(importHelp()), stdout);
        return 0;
    }
    if (const UT_Result<void> checked = checkOutput(*options); !checked)
        return failed(checked.error());
    if (const UT_Result<QStringList> loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder()); !loaded)
        return failed(loaded.error());
    const UT_Result<ImportedScene> imported = importFiles(*options);
    if (!imported)
        return failed(imported.error());
    for (const QString& warning : imported->warnings)
        say(QStringLiteral("warning: ") + warning);
    if (const auto saved = SIO_saveScene(*imported->scene, options->output); !saved)
        return failed(saved.error());
    if (!options->quiet)
        sayWhatWasMade(*options, *imported->scene);
    return 0;
}
