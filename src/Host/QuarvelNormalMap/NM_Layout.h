// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The forms of a normal map: what its channels hold and where its y axis points. The files' metadata record both,
// because the pixels alone do not tell.
//
// The node itself works in picture coordinates, x right and y down, with z towards the viewer. A normal leans away from
// where the elevation rises: on a slope that rises to the right, x is negative.
#pragma once

#include "QuarvelImageIO/IIO_Metadata.h"
#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

/// What the four channels hold.
enum class NM_Layout
{
    TANGENT, ///< x, y, z mapped from [-1, 1] to the channel's range, and coverage; every vector has unit length
    NODE     ///< the node's own channels: x, y, the node's blue channel, coverage
};

/// Where y points in the TANGENT layout. The NODE layout always has y down.
enum class NM_YAxis
{
    UP,  ///< green is bright where the surface faces the picture's upper edge
    DOWN ///< green is bright where the surface faces the picture's lower edge
};

/// The metadata of a normal map: "Software" (this program and its version), "Layout" (tangent or node), "Y" (up or
/// down) and "Encoding" (how a channel becomes a component of the vector, in words).
QUARVELNORMALMAP_EXPORT IIO_Metadata NM_metadataOf(NM_Layout layout, NM_YAxis yAxis);

/// The metadata of any other picture that this program makes: "Software", and "Layout" with the given name.
QUARVELNORMALMAP_EXPORT IIO_Metadata NM_metadataOf(const QString& layoutName);
