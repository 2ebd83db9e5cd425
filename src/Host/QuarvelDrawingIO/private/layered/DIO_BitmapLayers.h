// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The common result of all readers of files with layers and frames of pixels: layers from the bottom up, each with its
// pictures and which of them is shown when. It is converted to a drawing or to an animation.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Animation.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"

#include <QPoint>
#include <QSize>

/// Pixels at a place in the picture.
struct DIO_BitmapCel
{
    QImage image; ///< straight colours, ARGB32 or RGBA64
    QPoint place; ///< of its upper left pixel
    double opacity = 1.0;
};

/// A group of layers. Several groups of a file may have the same name, which may be that of a layer, too.
struct DIO_BitmapGroup
{
    QString name;
    int number = 0; ///< from 1, different for every group of the file; 0: none
};

/// The outermost of the groups around a layer that is in a group.
///
/// @param around the outermost of the groups around that group
/// @param number of that group
inline DIO_BitmapGroup DIO_outermost(const DIO_BitmapGroup& around, const QString& name, int number)
{
    return around.number > 0 ? around : DIO_BitmapGroup{DIO_layerName({}, name), number};
}

/// A layer.
struct DIO_BitmapLayer
{
    QString name;          ///< with the names of its groups: "head/eye"
    DIO_BitmapGroup group; ///< the outermost one
    std::vector<DIO_BitmapCel> cels;
    std::vector<int> shown; ///< by frame: the index of a cel, or -1
};

/// A file.
struct DIO_BitmapLayers
{
    QSize size;
    double frameRate = 0.0; ///< 0: unknown
    int frames = 1;
    std::vector<DIO_BitmapLayer> layers; ///< bottom up
    QStringList warnings;
};

/// Adds a warning that names the layers whose blend modes are lost; nothing where there are none.
void DIO_warnOfBlendModes(const QStringList& modes, QStringList& warnings);

/// Drops what shows nothing and gives names to layers that have none.
void DIO_tidyLayers(DIO_BitmapLayers& layers);

/// The first frame.
///
/// @param path of the file; its name becomes the drawing's
DIO_Drawing DIO_drawingOf(const DIO_BitmapLayers& layers, const QString& path, DIO_Grouping grouping);

/// All frames. Layers that show nothing at all are left out beforehand: DIO_tidyLayers().
DIO_Animation DIO_animationOf(const DIO_BitmapLayers& layers, const QString& path);
