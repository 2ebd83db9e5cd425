// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which files a run writes: the names follow from the drawing's own and from what the command line says.
#pragma once

#include "NormalMapOptions.h"

#include <vector>

/// The files of one drawing; an empty name: not written.
struct OutputFiles
{
    QString normalMap;
    QString elevation;
    QString lit;
    QString drawing;
    QString page;
    QString height;
    QString occlusion;
    QString numbers;
    QString gloss;
    QString canvas;

    /// Every one of them.
    QStringList all() const;
};

/// The files of every drawing, in the order of the drawings.
///
/// One drawing: what the options name, or NAME_n.png beside it. Several: the options name folders, in which the files
/// are called NAME_n.png, NAME_e.png, NAME_lit.png, NAME_drawing.png, NAME_numbers.png and NAME.html, the map as its
/// target or --suffix says, heights, occlusion and gloss as the target says; an existing folder is taken as one for a
/// single drawing as well. A mask of gloss without a name lies beside the map,
/// and so does NAME_canvas.tres.
///
/// @return an error when two files would have the same name, an output would replace a drawing or the atlas, a name's
///         ending is not that of a picture format or, for a page, of a page, or a name that the options do not say is a
///         link
UT_Result<std::vector<OutputFiles>> outputFiles(const NormalMapOptions& options);

/// What the name of a map adds to its drawing's.
QString suffixOfMaps(const NormalMapOptions& options);

/// What the names of all pictures that such a run can write add to their drawing's, wanted or not.
QStringList suffixesOfPictures(const NormalMapOptions& options);

/// The files and folders that the options name for pictures and pages.
QStringList namedPlaces(const NormalMapOptions& options);

/// The file of the map for sprites that are mirrored: NAME_flipx.png of NAME.png.
///
/// @param leftRight mirrored left to right, else upside down
QString flippedFile(const QString& file, bool leftRight);

/// The files of the maps for mirrored sprites that the options want beside a map.
QStringList flippedFiles(const NormalMapOptions& options, const QString& map);

/// The files of the atlases that a run with an atlas writes beside its first map: that of the maps and, for Godot, that
/// of the textures with both, which may be missing.
struct AtlasFiles
{
    QString maps;
    QString canvases;
};
AtlasFiles atlasFiles(const NormalMapOptions& options, const QString& firstMap);

/// Makes the folders that the files go into.
UT_Result<void> makeFolders(const OutputFiles& files);
