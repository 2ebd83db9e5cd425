// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which elements of an SVG file are layers, and what they are called.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "QuarvelDrawingIO/private/DIO_XmlTree.h"

#include <QHash>
#include <QStringList>

/// The layers that a file is to be split into.
struct DIO_SvgLayers
{
    QHash<const DIO_XmlNode*, int> indexOf; ///< the layer that each layer element is
    QStringList names;                      ///< by index; never empty texts
    std::vector<QStringList> values;        ///< by index; see DIO_Layer::values
};

/// Finds the elements that become layers, in document order; none where the whole drawing is one. No layer is within
/// another one.
DIO_SvgLayers DIO_findLayers(const DIO_XmlNode& root, DIO_Grouping grouping);

/// The branch of a <switch> that is shown: the first one that needs nothing special. Null when there is none.
const DIO_XmlNode* DIO_shownBranch(const DIO_XmlNode& switchNode);
