// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The form in which readers keep the pixels of pictures, and what can be said of such pixels.
#pragma once

#include <QImage>

/// The picture in one of two formats, so that equal pictures compare equal whatever their files store: RGBA64 where the
/// file has more than 8 bits a channel, else ARGB32.
QImage DIO_inOneForm(const QImage& image);

/// Whether a pixel is at all visible.
bool DIO_showsSomething(const QImage& image);

/// Whether all pixels are opaque.
bool DIO_isOpaque(const QImage& image);

/// Whether all pixels at the picture's edge are opaque: then the picture has no visible outline.
bool DIO_hasOpaqueEdge(const QImage& image);
