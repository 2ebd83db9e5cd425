// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words of "quarvel normalmap", turned into settings. Pure: it looks at no file. A wrong word gives
// an error that says what was expected.
#pragma once

#include "LightOption.h"
#include "MapFormOptions.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "jobs/drawing/NormalMapSettings.h"
#include "jobs/drawing/TileDrawing.h"
#include "jobs/sheets/Sheet.h"
#include "jobs/shown/GlossDrawing.h"

#include <QHash>
#include <QStringList>

/// How a run tells what it does.
enum class ProgressStyle
{
    AUTOMATIC, ///< a line that is rewritten, where standard error is a terminal; nothing elsewhere
    LINES,     ///< one line a percent
    NONE
};

/// The whole command line of one run.
struct NormalMapOptions
{
    QStringList drawings;
    /// For drawings that were found in a folder: where below it they lie, which is where their maps lie in the folder
    /// of the maps. Drawings that are named themselves have none.
    QHash<QString, QString> folders;
    NormalMapSettings settings;

    QString output;    ///< empty: beside each drawing
    QString elevation; ///< empty: none is written
    QString lit;
    QString drawingPicture;
    QString page; ///< for browsers
    QString height;
    QString occlusion;
    QString numbers;
    QString glossFile; ///< empty: beside the map, if any gloss is given

    bool nodeLayout = false; ///< the node's own channels instead of tangent vectors
    MapFormOptions form;
    std::optional<QString> suffix; ///< of the map's name, where the drawing's name decides it
    LightAngles light;
    std::optional<double> heightRange; ///< pixels that white stands for; nothing: the highest place of the picture
    GlossSettings gloss;

    // Pages of many sprites.
    std::optional<CellGrid> cells; ///< the page's sprites, one a cell
    int margin = 0;                ///< as it was said; part of cells
    int spacing = 0;
    bool animation = false; ///< all cells are frames of one animation
    bool connected = false; ///< neighbouring cells may touch
    QString atlas;          ///< the file that says where sprites lie; empty: none

    Tiling tiling;       ///< the drawing repeats
    bool canvas = false; ///< a resource of Godot 4 that joins drawing and map
    bool flips = false;  ///< maps for mirrored sprites, too

    /// The options that determine what the pictures hold, each followed by its value; the others say where files go and
    /// how the run goes.
    QStringList pictureWords;

    bool resume = false; ///< leaves alone what is complete
    int jobs = 0;        ///< drawings at once; 0: as many as the job has threads
    ProgressStyle progress = ProgressStyle::AUTOMATIC;
    bool quiet = false;
    bool help = false;
};

/// The form of the map that a file gets. Files of the layout NODE and layers of floats keep the coverage and have no
/// padding unless it is asked for; a file format of 8 bits lowers the form's bits to 8.
NM_MapForm mapFormFor(const NormalMapOptions& options, const QString& file);

/// Reads the words after "normalmap".
UT_Result<NormalMapOptions> parseNormalMapOptions(const QStringList& words);

/// What "quarvel help normalmap" prints.
QString normalMapHelp();
