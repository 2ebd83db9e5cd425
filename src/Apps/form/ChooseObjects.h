// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The choice of objects: from a drawing as it was read to one whose layers are its objects.
#pragma once

#include "form/ChosenObjects.h"
#include "form/FormSettings.h"

/// What a reader is to make layers of, so that the choice can be made of them.
DIO_Grouping groupingFor(ObjectChoice choice);

/// Chooses the objects of a drawing that was read with groupingFor() the same choice.
///
/// Painted one over the other, the objects show the drawing as it was, but for the antialiasing where a line is shared
/// between objects; what the border of the picture cuts goes on beyond it. Moved, scaled or mirrored drawings get the
/// same objects, moved, scaled or mirrored.
ChosenObjects chooseObjects(const DIO_Drawing& drawing, ObjectChoice choice);
