// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From drawings as they were read to vector drawings and palettes of the host.
#pragma once

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <span>

/// The identifier of a paint's palette colour. It is made from the paint's kind and colour and, unless it is solid, its
/// name; so the same colour has the same identifier in every drawing and every time it is read.
QUARVELDRAWINGIO_EXPORT CM_ColorId_t DIO_colorId(const DIO_Paint& paint);

/// The palette colour of a paint: a CM_Color for a solid paint, a CM_TextureColor for any other.
QUARVELDRAWINGIO_EXPORT CM_SharedPtr<CM_BaseColorObj> DIO_toColor(const DIO_Paint& paint);

/// The drawing's palette, named after it: a CM_Color for each solid paint, a CM_TextureColor for each other.
QUARVELDRAWINGIO_EXPORT CM_SharedPtr<CM_Palette> DIO_toPalette(const DIO_Drawing& drawing);

/// One layer as a vector drawing, all of it on the colour art layer, which keeps the order of painting.
///
/// @param layer the index of one of the drawing's layers
/// @param palette of the drawing, as DIO_toPalette() makes it; shared by the vector drawings of all layers
QUARVELDRAWINGIO_EXPORT UT_SharedPtr<CELVEC_Kvd> DIO_toKvd(const DIO_Drawing& drawing, std::size_t layer,
                                                           const CM_SharedPtr<CM_Palette>& palette);

/// Shapes as a vector drawing.
///
/// @param paints what the shapes' paints are indices into; the palette has their colours, or gets them before the
/// vector drawing is rendered
QUARVELDRAWINGIO_EXPORT UT_SharedPtr<CELVEC_Kvd> DIO_toKvd(std::span<const DIO_Shape> shapes,
                                                           std::span<const DIO_Paint> paints,
                                                           const CM_SharedPtr<CM_Palette>& palette);
