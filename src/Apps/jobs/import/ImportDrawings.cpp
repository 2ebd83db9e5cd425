// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the kind of the files, and calls its reader.
#include "jobs/import/ImportDrawings.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/drawing/ObjectWords.h"
#include "jobs/drawing/OwnValues.h"
#include "jobs/import/DrawingDigest.h"
#include "jobs/import/ImportKinds.h"
#include "jobs/import/SceneElements.h"
#include "jobs/import/SequenceScene.h"

#include <algorithm>

namespace {

// A kind of files that scenes are made of.
struct Kind
{
    using Read = UT_Result<DrawingSequence> (*)(const QStringList& files, const ImportSettings& settings);

    QString name;
    QStringList suffixes;
    bool isOneFile; // several of them never make one scene
    Read read;
};

// All kinds of drawings can be frames; the rest stands here.
const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> table = [] {
        std::vector<Kind> rows = {
            {QStringLiteral("animation"), {QStringLiteral("json"), QStringLiteral("lottie")}, true, readAnimation},
        };
        for (const DIO_DrawingKind& drawings : DIO_drawingKinds())
            rows.push_back({drawings.name, drawings.suffixes, false,
                            drawings.isBitmap ? readBitmapSequence : readLayeredSequence});
        return rows;
    }();
    return table;
}

UT_Result<const Kind*> kindOf(const QString& file)
{
    const QString suffix = UT_fileSuffix(file);
    const auto found = std::ranges::find_if(kinds(), [&](const Kind& kind) { return kind.suffixes.contains(suffix); });
    if (found != kinds().end())
        return &*found;
    return UT_Error{QStringLiteral("%1: this kind of file cannot be imported; those that can are .%2")
                        .arg(file, importableSuffixes().join(QStringLiteral(", .")))};
}

UT_Result<const Kind*> kindOfAll(const QStringList& files)
{
    UT_Result<const Kind*> first = kindOf(files.first());
    for (const QString& file : files) {
        UT_Result<const Kind*> kind = kindOf(file);
        if (!kind)
            return kind;
        if (*kind != *first)
            return UT_Error{QStringLiteral("%1 and %2 are of different kinds (%3 and %4); a scene is made of files of "
                                           "one kind")
                                .arg(files.first(), file, (*first)->name, (*kind)->name)};
    }
    if ((*first)->isOneFile && files.size() > 1)
        return UT_Error{QStringLiteral("%1 and %2: a scene is made of one %3; import them one by one")
                            .arg(files[0], files[1], (*first)->name)};
    return first;
}

// The elements say where they came from, so that the files can be read again.
void noteOrigin(const MO_Scene& scene, const QStringList& files, const QString& digest, ObjectChoice objects)
{
    MO_DrawingOrigin origin;
    origin.files = originPaths(files);
    origin.digest = digest;
    if (objects != FormSettings().objects)
        origin.objects = objectChoiceWords()[static_cast<qsizetype>(objects)];
    scene.root().forEachModule([&](MO_Module& module) {
        auto* const element = dynamic_cast<MO_ElementModule*>(&module);
        if (!element)
            return;
        origin.layer = element->drawingAttr()->getElementName();
        origin.reason = element->origin().reason;
        element->setOrigin(origin);
    });
}

} // namespace

QStringList importableSuffixes()
{
    QStringList suffixes;
    for (const Kind& kind : kinds())
        suffixes += kind.suffixes;
    suffixes.sort();
    return suffixes;
}

UT_Result<DrawingSequence> readSequence(const QStringList& files, const ImportSettings& settings)
{
    if (files.isEmpty())
        return UT_Error{QStringLiteral("there is no file to import")};
    // The first in natural order speaks for all, whatever the order they came in.
    QStringList sorted = files;
    sortNaturally(sorted);
    const UT_Result<const Kind*> kind = kindOfAll(sorted);
    if (!kind)
        return kind.error();
    if (sorted.size() > 1 || (*kind)->isOneFile)
        return (*kind)->read(sorted, settings);
    UT_Result<std::optional<DIO_Animation>> frames = DIO_readFrames(sorted.first());
    if (!frames)
        return frames.error();
    return *frames ? sequenceOf(std::move(**frames), sorted.first(), settings) : (*kind)->read(sorted, settings);
}

UT_Result<ImportedScene> importDrawings(const QStringList& files, const ImportSettings& settings)
{
    QStringList sorted = files;
    sortNaturally(sorted);
    // Before the files are read: if one is written to meanwhile, it counts as changed later.
    const QString digest = drawingDigest(sorted);
    UT_Result<DrawingSequence> sequence = readSequence(files, settings);
    if (!sequence)
        return sequence.error();
    const UT_Result<ObjectWishes> folder = readFolderWishes(sorted.first());
    if (!folder)
        return folder.error();
    UT_Result<std::unique_ptr<MO_Scene>> scene =
        buildSequenceScene(*sequence, settings.form, {settings.wishes, *folder}, sequence->warnings);
    if (!scene)
        return scene.error();
    noteOrigin(**scene, sorted, digest, settings.form.objects);
    return ImportedScene{std::move(*scene), sequence->warnings};
}
