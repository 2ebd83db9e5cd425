// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ChosenObjects: a drawing whose layers are the objects that were found in it. It is what the choice of objects, from
// vector drawings and from bitmaps alike, hands to the choice of their form:
//
//     DIO_Drawing ──► chooseObjects ──► ChosenObjects ──► chooseForms ──► an ObjectForm for every layer
//
// Painted one over the other in their order, the layers show the drawing that they were found in.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "form/ObjectExtent.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What kind of form an object gets.
enum class ObjectRole
{
    BODY,    ///< it rises from its outline
    OPENING, ///< it sinks below its surroundings: a mouth, a socket, a window
    SLAB,    ///< it gets a rim and is flat inside: a tile that fills the picture
    FLAT,    ///< it gets no volume: a shadow on the ground, a backdrop
    RELIEF   ///< it is not seen: its strokes bend the surface of what lies below (ReliefLayers.h)
};

/// An object's properties, apart from its shapes.
struct ChosenObject
{
    QString name;   ///< for people to read and type; unique in its drawing
    QString reason; ///< why it is an object, in a few words such as "a part over a part"
    ObjectRole role = ObjectRole::BODY;
    QStringList colours; ///< names of the few paints with the largest visible areas, the largest first
    double share = 0.0;  ///< its visible part of the picture, 0 to 1
    /// The shapes that the object's form is measured on, if these are not its layer's: an object that was completed
    /// beneath others, or that touches the picture's border, is measured on a part of itself. Empty for most objects.
    /// Paints are indices into the drawing's palette.
    std::vector<DIO_Shape> measured = {};
    /// Its extent, if the choice measured it; otherwise its shapes are still to be measured.
    std::optional<ObjectExtent> extent = {};
    QStringList values = {}; ///< the volume values that the file gives it (DIO_Layer::values)
};

/// Why a layer of a file is an object.
QString layerReason(const DIO_Layer& layer);

/// A drawing in objects.
struct ChosenObjects
{
    /// Says that an opaque bitmap shows nothing in front of a backdrop; empty for other drawings.
    QString warning() const;

    DIO_Drawing drawing;               ///< its layers are the objects, bottom up
    std::vector<ChosenObject> objects; ///< one for every layer, in their order
};
