// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flattening is a walk through the tree.
#include "QuarvelDrawingIO/private/DIO_SvgFlattener.h"

#include "QuarvelDrawingIO/private/DIO_SvgWalk.h"

UT_Result<DIO_FlatSvg> DIO_flattenSvg(const DIO_XmlTree& tree, const DIO_SvgLayers& layers, const QSizeF& viewport)
{
    return DIO_SvgWalk(tree, layers).flatten(viewport);
}
