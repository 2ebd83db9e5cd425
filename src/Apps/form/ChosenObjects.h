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

#include <QString>
#include <QStringList>

#include <vector>

/// What kind of form an object gets.
enum class ObjectRole
{
    BODY,    ///< it rises from its outline
    OPENING, ///< it sinks: a mouth, a socket, a window
    SLAB,    ///< it gets a rim and is flat inside: a tile that fills the picture
    FLAT     ///< it gets no volume: a shadow on the ground, a backdrop
};

/// What is known of an object besides its shapes.
struct ChosenObject
{
    QString name;   ///< for people to read and type; unique in its drawing
    QString reason; ///< why it is an object, in a few words such as "a part over a part"
    ObjectRole role = ObjectRole::BODY;
    QStringList colours; ///< names of the paints that show most in it, the largest area first; a few
    double share = 0.0;  ///< how much of the picture shows it, 0 to 1
    /// What the object's form is measured on, where that is not its layer: of a part that was completed beneath what
    /// hides it, what the drawing shows of it. Empty for most objects. Paints are indices into the drawing's palette.
    std::vector<DIO_Shape> measured = {};
    QStringList values = {}; ///< what the file says of its volume (DIO_Layer::values)
};

/// A drawing in objects.
struct ChosenObjects
{
    DIO_Drawing drawing;               ///< its layers are the objects, bottom up
    std::vector<ChosenObject> objects; ///< one for every layer, in their order
};
