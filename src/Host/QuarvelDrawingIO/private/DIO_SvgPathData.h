// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The vertices of SVG path data: where its segments begin and end, and which way the line runs there. The SVG library,
// which paints the paths, does not report them, and drops segments of no length, whose caps would be visible.
#pragma once

#include <QPointF>
#include <QStringView>

#include <vector>

/// A vertex of a path.
struct DIO_PathVertex
{
    QPointF at;
    QPointF into;       ///< the direction of the segment that ends here; null where none with a length does
    QPointF onwards;    ///< the direction of the segment that begins here; null where none with a length does
    bool moved = false; ///< a subpath begins here
};

/// The vertices of path data, in their order; those before the first mistake in it.
std::vector<DIO_PathVertex> DIO_pathVertices(QStringView data);

/// The places of subpaths that have segments but no length: with round or square caps, they are dots.
std::vector<QPointF> DIO_pathDots(QStringView data);
