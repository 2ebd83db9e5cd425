// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What kind the files are of, and who reads them.
#include "jobs/import/ImportDrawings.h"

#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "jobs/import/ImportKinds.h"
#include "jobs/import/SequenceScene.h"

#include <QFileInfo>

namespace {

enum class Kind
{
    SVG,
    BITMAP,
    LOTTIE
};

UT_Result<Kind> kindOf(const QString& file)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    if (suffix == QLatin1String("svg"))
        return Kind::SVG;
    if (suffix == QLatin1String("json"))
        return Kind::LOTTIE;
    if (DIO_bitmapSuffixes().contains(suffix))
        return Kind::BITMAP;
    return UT_Error{QStringLiteral("%1: this kind of file cannot be imported; .svg and .json can, and the bitmaps .%2")
                        .arg(file, DIO_bitmapSuffixes().join(QStringLiteral(", .")))};
}

UT_Result<Kind> kindOfAll(const QStringList& files)
{
    const UT_Result<Kind> first = kindOf(files.first());
    for (const QString& file : files) {
        const UT_Result<Kind> kind = kindOf(file);
        if (!kind)
            return kind;
        if (*kind != *first)
            return UT_Error{QStringLiteral("%1 and %2 are of different kinds; a scene is made of SVG drawings, of "
                                           "bitmaps, or of one animation")
                                .arg(files.first(), file)};
    }
    if (*first == Kind::LOTTIE && files.size() > 1)
        return UT_Error{QStringLiteral("%1 and %2: a scene is made of one animation; import them one by one")
                            .arg(files[0], files[1])};
    return first;
}

} // namespace

UT_Result<DrawingSequence> readSequence(const QStringList& files, const ImportSettings& settings)
{
    if (files.isEmpty())
        return UT_Error{QStringLiteral("there is no file to import")};
    // The first in natural order speaks for all, whatever the order they came in.
    QStringList sorted = files;
    sortNaturally(sorted);
    const UT_Result<Kind> kind = kindOfAll(sorted);
    if (!kind)
        return kind.error();
    switch (*kind) {
    case Kind::SVG:
        return readSvgSequence(sorted, settings);
    case Kind::BITMAP:
        return readBitmapSequence(sorted, settings);
    case Kind::LOTTIE:
        break;
    }
    return readAnimation(sorted.first(), settings);
}

UT_Result<ImportedScene> importDrawings(const QStringList& files, const ImportSettings& settings)
{
    const UT_Result<DrawingSequence> sequence = readSequence(files, settings);
    if (!sequence)
        return sequence.error();
    UT_Result<std::unique_ptr<MO_Scene>> scene = buildSequenceScene(*sequence, settings.form);
    if (!scene)
        return scene.error();
    return ImportedScene{std::move(*scene), sequence->warnings};
}
