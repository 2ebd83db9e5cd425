// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportChoices: what a person chose for an export, and the names of the files that follow from it. One file name is
// chosen, that of the first picture; the files of the other pictures of a frame are named after it:
//
//     hero_n.png  hero_e.png  hero_lit.png  hero_drawing.png  hero_height.png
//     walk_N.####.exr  walk_e.####.exr  walk_lit.####.png
#pragma once

#include "QuarvelNormalMap/NM_MapForm.h"
#include "jobs/shown/GlossDrawing.h"
#include "jobs/targets/Targets.h"

#include <QList>
#include <QString>
#include <QStringList>

/// The pictures of a frame that can be written, in the order of their files.
enum class ExportPicture
{
    MAP,       ///< normals
    ELEVATION, ///< how high the surface is
    LIT,       ///< the drawing in the scene's light
    DRAWING,   ///< the drawing, or the picture of a node that makes neither normals nor elevation
    HEIGHT,    ///< how high each place lies, with objects lying on each other, in pixels
    OCCLUSION, ///< how much light of all sides reaches it
    NUMBERS,   ///< the numbers of the objects
    GLOSS      ///< the gloss of the drawing's colours, or their roughness where the target takes that
};

/// All of them.
inline constexpr ExportPicture kExportPictures[] = {
    ExportPicture::MAP,    ExportPicture::ELEVATION, ExportPicture::LIT,     ExportPicture::DRAWING,
    ExportPicture::HEIGHT, ExportPicture::OCCLUSION, ExportPicture::NUMBERS, ExportPicture::GLOSS};

/// The largest height that white may stand for, in pixels.
inline constexpr double kHighestWhite = 1e6;

/// A plain value.
struct ExportChoices
{
    QString node;                                         ///< the module whose pictures are written
    QString frames;                                       ///< as a person writes a range; empty: all
    int width = 1920;                                     ///< of the pictures, in pixels
    QList<ExportPicture> pictures = {ExportPicture::MAP}; ///< in the order of ExportPicture, each once
    const Target* target = nullptr; ///< the program that the pictures are for; null: no single one
    NM_Layout layout = NM_Layout::TANGENT;
    NM_MapForm form;
    GlossSettings gloss; ///< of the colours; empty if no mask of gloss is written
    double white = 0.0;  ///< the height that white stands for in files of integers, in pixels; 0: the highest there is
    bool floatRender = false;
    bool half = false; ///< 16-bit floats in OpenEXR files
    QString file;      ///< of the first picture, with the place of the frame's number, as in FrameFileName
    QString sceneName; ///< noted in the files

    /// The file of one of the pictures, with the place of the frame's number. Lit pictures are for the eye and always
    /// PNG files.
    QString fileOf(ExportPicture picture) const;
    /// The files of all pictures, in their order.
    QStringList files() const;
};

/// The suffix of a picture's file name: "_e" for elevation.
///
/// @param target the program that the pictures are for; null: no single one
QString exportSuffix(ExportPicture picture, const Target* target);

/// Gives a file's name an ending, "png" or "exr", in place of the one that it has. Another word after a dot is no
/// ending: "walk_n.####" becomes "walk_n.####.png".
QString withExportEnding(const QString& file, const QString& ending);

/// Replaces the suffix of a file's name: "walk_n.####.png" becomes "walk_e.####.png".
///
/// @param picture the picture whose suffix is replaced; if the name has another suffix, the new one is appended
QString withExportSuffix(const QString& file, ExportPicture picture, const QString& suffix);
