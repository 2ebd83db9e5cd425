// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The form of every object of a drawing: its extent is measured on a small picture of its layer and goes through the
// law.
#pragma once

#include "form/FormLaw.h"

#include <span>
#include <vector>

/// Measures an object.
///
/// @param frame what the picture shows, in the shapes' units; its border is no outline
/// @param shapes the object's, painted together
ObjectExtent measureExtent(std::span<const DIO_Shape> shapes, const QRectF& frame);

/// The forms of a drawing's objects, in the order of its layers.
std::vector<ObjectForm> chooseForms(const ChosenObjects& chosen, const FormSettings& settings);
