// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ChooseObjects: turns a drawing as it was read into one whose layers are its objects.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"

/// How a reader has to group shapes into layers for this choice.
DIO_Grouping groupingFor(ObjectChoice choice);

/// Chooses the objects of a drawing that was read with the grouping groupingFor(choice).
///
/// Layers that bend the surface (ReliefLayers.h) are objects of the role RELIEF. Painted one over the other, the other
/// objects show the unchanged drawing without these layers, except for the antialiasing where objects share
/// a line. With AUTO, an object that the picture's border cuts continues outside it. Moved, scaled or mirrored drawings
/// get the same objects, moved, scaled or mirrored.
/// @param aspect of the picture (FormSettings::aspect)
ChosenObjects chooseObjects(const DIO_Drawing& drawing, ObjectChoice choice, double aspect = 0.0);
