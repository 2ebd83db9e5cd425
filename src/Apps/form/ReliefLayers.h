// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ReliefLayers: layers whose strokes bend the surface of what lies below instead of being seen: creases and ridges.
// They are told by their names, or by the values that the file gives them. They take no part in the choice of objects.
#pragma once

#include "form/ChosenObjects.h"

/// The relief of a layer or a role with this name, in any case: negative for "crease" and "creases", positive for
/// "ridge" and "ridges", with or without a number behind and groups before ("Coat/Crease 2"); 0 for all others. In
/// multiples of half of a stroke's width.
double reliefCalled(const QString& name);

/// Whether a layer bends the surface: the file gives it a relief or a role with one, or declares it by such a name. (A
/// drawing without layers has its file's name.)
bool bendsTheSurface(const DIO_Layer& layer);

/// Removes and returns the layers that bend the surface, unless no other layer would remain.
std::vector<DIO_Layer> takeReliefLayers(DIO_Drawing& drawing, std::vector<std::size_t>& places);

/// Adds layers that bend the surface to the objects that were chosen without them.
///
/// @param layers taken from the drawing
/// @param places of the layers among all layers of the drawing; empty if the objects are no longer the drawing's
/// layers: then they lie above all objects
/// @param palette the drawing's
void addReliefLayers(const std::vector<DIO_Layer>& layers, const std::vector<std::size_t>& places,
                     const std::vector<DIO_Paint>& palette, ChosenObjects& chosen);
