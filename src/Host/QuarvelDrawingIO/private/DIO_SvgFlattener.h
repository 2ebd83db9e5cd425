// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Flattening: an SVG tree becomes a document that holds nothing but groups with transform and opacity, paths and texts
// with all their properties written out, and marks (see DIO_SvgMark). Uses, symbols, inner drawings, switches, style
// sheets, clips, gradients and pictures are resolved; nothing in the result refers to anything but a gradient that
// stands for a paint server.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/private/DIO_SvgLayers.h"
#include "QuarvelDrawingIO/private/DIO_SvgPaintServers.h"

#include <QByteArray>

/// A flattened document. Its viewBox is "0 0 100 100", so that painting it into that rectangle gives the root's user
/// units.
struct DIO_FlatSvg
{
    QByteArray document;
    std::vector<DIO_PaintServer> servers;
    qint64 picturePixels = 0; ///< how many more pixels of pictures there is memory for
    QStringList hiddenLayers;
    QStringList warnings;
};

/// Flattens a tree.
///
/// @param viewport what percentages at the root are relative to
/// @return the document; or, as a piece of text that follows a file's name, why the drawing is refused
UT_Result<DIO_FlatSvg> DIO_flattenSvg(const DIO_XmlTree& tree, const DIO_SvgLayers& layers, const QSizeF& viewport);
