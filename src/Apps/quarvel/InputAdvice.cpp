// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Kinds of files by the ends of their names. A kind that a reader knows gets no advice.
#include "InputAdvice.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelBaseCore/UT_PlainFile.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "jobs/import/ImportDrawings.h"
#include "jobs/sheets/ReadAtlas.h"

#include <QDir>
#include <QFileInfo>

namespace {

UT_Error errorOf(const QString& path, const QString& text)
{
    return UT_Error{text}.at(path);
}

// "*.png" for a folder of sprites.
QString filesToName(const QDir& folder)
{
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        if (importableSuffixes().contains(UT_fileSuffix(name)))
            return QStringLiteral("*.") + QFileInfo(name).suffix();
    return QStringLiteral("*.svg");
}

UT_Error folderAdvice(const QString& path)
{
    if (SIO_holdsScene(path))
        return errorOf(path, QStringLiteral("this is a scene; run ") + commandFor(path));
    const QDir folder(path);
    return errorOf(path, QStringLiteral("this is a folder; write %1").arg(folder.filePath(filesToName(folder))));
}

// How to get a drawing out of files that hold one and are not read.
UT_Result<void> kindAdvice(const QString& path)
{
    const QString suffix = UT_fileSuffix(path);
    static const QStringList kExportable = {QStringLiteral("ai"),  QStringLiteral("eps"),  QStringLiteral("pdf"),
                                            QStringLiteral("xcf"), QStringLiteral("clip"), QStringLiteral("afdesign")};
    if (kExportable.contains(suffix))
        return errorOf(path, QStringLiteral(".%1 files are not read; export the drawing as SVG, or as PNG with "
                                            "transparency")
                                 .arg(suffix));
    return {};
}

} // namespace

QString commandFor(const QString& path)
{
    if (SIO_holdsScene(path))
        return QStringLiteral("quarvel render %1 -o n.####.png").arg(path);
    if (DIO_drawingKindOf(path))
        return QStringLiteral("quarvel normalmap %1").arg(path);
    if (holdsAtlas(path))
        return QStringLiteral("quarvel normalmap --atlas %1").arg(path);
    if (importableSuffixes().contains(UT_fileSuffix(path)))
        return QStringLiteral("quarvel import %1").arg(path);
    return {};
}

UT_Error withAdvice(UT_Error error, const QString& more)
{
    error.text += more;
    return error;
}

UT_Result<void> checkIsDrawing(const QString& path)
{
    if (QFileInfo(path).isDir())
        return folderAdvice(path);
    if (DIO_drawingKindOf(path))
        return {};
    // A pipe is advised by its name, without being opened.
    if (const UT_Result<void> plain = UT_checkPlainFile(path); !plain && !QFileInfo::exists(path))
        return plain.error().at(path);
    if (holdsAtlas(path))
        return errorOf(path, QStringLiteral("this is an atlas; run ") + commandFor(path));
    if (importableSuffixes().contains(UT_fileSuffix(path)))
        return errorOf(path, QStringLiteral("this is an animation; run ") + commandFor(path));
    return kindAdvice(path);
}

UT_Result<void> checkIsImportable(const QString& path)
{
    if (QFileInfo(path).isDir())
        return folderAdvice(path);
    return importableSuffixes().contains(UT_fileSuffix(path)) ? UT_Result<void>() : kindAdvice(path);
}

UT_Result<void> checkIsScene(const QString& path)
{
    const QFileInfo place(path);
    if (!place.exists() || place.isDir())
        return {};
    if (importableSuffixes().contains(UT_fileSuffix(path)))
        return errorOf(
            path,
            QStringLiteral("this is a file, and a scene is a folder; make one of it: quarvel import %1").arg(path));
    return errorOf(path, QStringLiteral("this is a file, and a scene is a folder such as walk.scene"));
}
