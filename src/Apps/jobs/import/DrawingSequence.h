// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingSequence: drawings by frame, ready for a scene, whatever they were read from. Each layer has its drawings, of
// which equal ones are one, and says which is shown from which frame on.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "form/ChosenObjects.h"

#include <QRectF>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

/// A layer through time.
struct SequenceLayer
{
    QString name;
    std::map<int, UT_SharedPtr<CELVEC_Kvd>> drawings; ///< by the frame of their first use
    /// From a frame on, up to the next one: the key of a drawing, or kNothing.
    std::map<int, int> exposures;
    ObjectRole role = ObjectRole::BODY;
    QString reason = {}; ///< why it is an object (ChosenObject::reason)
    /// What the layer's form is measured on, so that one set of values holds for all frames: the drawing that reaches
    /// farthest, or what the choice of objects says.
    std::vector<DIO_Shape> measured;
    std::optional<ObjectExtent> extent = {}; ///< the result, if the choice of objects measured it
    QStringList values = {};                 ///< what the first file that has the layer says of it (DIO_Layer::values)

    static constexpr int kNothing = -1;
};

/// Layers through time.
struct DrawingSequence
{
    QString name;
    QRectF frame; ///< what the picture shows, in the drawings' units
    QSizeF size;  ///< its natural size in pixels
    int firstFrame = 1;
    int lastFrame = 1;
    double frameRate = 24.0;           ///< frames a second, as the file says
    std::vector<SequenceLayer> layers; ///< bottom up
    CM_SharedPtr<CM_Palette> palette;
    QStringList warnings; ///< for people to read, a line each
};
