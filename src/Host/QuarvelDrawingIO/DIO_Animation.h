// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_Animation: what every reader of animations yields: layers, each with its drawings and which of them is shown
// when.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

/// A layer of an animation.
struct DIO_AnimatedLayer
{
    QString name;
    std::vector<std::vector<DIO_Shape>> drawings; ///< each once, in the order of first use; shapes in that of painting
    std::vector<int> shown;                       ///< by frame: the index of a drawing, or -1 where there is none
};

/// An animation.
struct DIO_Animation
{
    QString name;                          ///< the file's name without folder and suffix
    QSizeF size;                           ///< in pixels
    QRectF viewBox;                        ///< the picture's part of the plane
    double frameRate = 0.0;                ///< frames a second, above 0
    int frames = 0;                        ///< at least 1
    std::vector<DIO_AnimatedLayer> layers; ///< bottom up; at least one of them shows something somewhere
    std::vector<DIO_Paint> palette;        ///< each paint once, in the order of first use
    QStringList warnings;                  ///< what was left out or simplified, for people to read
};
