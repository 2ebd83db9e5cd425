// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Chooses the form of every object of a drawing: measures the object's extent on a small picture of its layer and
// applies the law (FormLaw.h) to it.
#pragma once

#include "form/FormLaw.h"

#include <span>
#include <vector>

/// How many cells along the longer side of the picture an object is measured on. The breadth of an object that is a
/// hundred cells wide is then right to about one per cent; an error of a fifth would hardly be seen.
inline constexpr int kCellsMeasured = 384;

/// Measures the breadth and the roundness of an object.
///
/// @param frame the visible rectangle, in the shapes' units; its border does not count as an outline
/// @param shapes the object's shapes, painted together
ObjectExtent measureExtent(std::span<const DIO_Shape> shapes, const QRectF& frame);

/// The forms of a drawing's objects, in the order of its layers.
std::vector<ObjectForm> chooseForms(const ChosenObjects& chosen, const FormSettings& settings);
