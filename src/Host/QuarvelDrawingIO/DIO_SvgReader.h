// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads SVG drawings.
//
// The file is untrusted. It is parsed once into a plain tree (private/DIO_XmlTree), within limits on size, depth and
// entity expansion; style sheets, links and references are resolved here, and a plain document without any of them is
// written (private/DIO_SvgFlattener), which the SVG library then paints on a device that records the shapes. So nothing
// outside the file is ever opened, no script or animation runs, and the work is bounded.
//
// Layers. Declared layers are the groups that vector editors mark as such:
//   inkscape:groupmode="layer", i:layer="yes", sketch:type="MSLayerGroup", class="layer" with a <title> inside,
//   a <metadata> child whose id contains "Corel-Layer", and top-level groups with a generated id ("Layer_1", "layer1",
//   ...).
// The topmost ones count: a layer within a layer is part of it. What stands outside all layers (or, when grouping by
// groups, of all top-level groups) forms layers of its own between them, so that the order of painting is kept. Layers
// that are hidden or paint nothing are left out with a warning.
//
// Masks cut, by brightness or by coverage; groups fade as one picture.
//
// What is not understood is left out, and said in the drawing's warnings: blend modes, filters. What a filter is
// applied to stays, sharp and without the shadow or glow that the filter adds, since relief where nothing solid is
// would only disturb the light. Gradients and patterns keep their outline and opacity and are painted in their average
// colour; a gradient covers less where it fades (DIO_GradientFade). Pictures that the file holds in data URLs are
// shapes with pixels (DIO_Shape::picture); those in files of their own are left out. The SVG library reports remarks of
// its own in the logging category "qt.svg"; programs may switch that off.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <QByteArray>

/// Reads an SVG file of up to 64 MiB. See DIO_readDrawing for what must exist, and for threads.
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Drawing>
DIO_readSvg(const QString& path, DIO_Grouping grouping = DIO_Grouping::AUTO, DIO_Blank blank = DIO_Blank::REFUSED);

/// Reads an SVG document from memory.
///
/// @param path names the document in messages, and gives the drawing its name; it is not opened
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Drawing> DIO_readSvgData(const QByteArray& data, const QString& path,
                                                               DIO_Grouping grouping = DIO_Grouping::AUTO,
                                                               DIO_Blank blank = DIO_Blank::REFUSED);
