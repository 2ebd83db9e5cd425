// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How often pictures may cover the page of a drawing. The outlines of shapes cost little where they lie on each other;
// each pixel of a picture is resampled, and a few kilobytes of copies would take minutes.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

/// Leaves out the lowest pictures where all of them together cover the page more than 64 times, with a warning. What
/// lies on top, and all other shapes, stay.
///
/// @param drawing with its layers and its viewBox
void DIO_limitPictures(DIO_Drawing& drawing);
