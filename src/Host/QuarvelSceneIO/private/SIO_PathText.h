// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths as texts: "M x y" begins a part, "L x y" goes straight, "C x1 y1 x2 y2 x y" follows a cubic Bezier curve, with
// single spaces in between. Every element of a path has its own letter, so that a path comes back with the same
// elements and the same bits.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QPainterPath>
#include <QString>

#include <optional>

/// The path as a text; nothing when one of its numbers is none, or not below 1e128.
QUARVELSCENEIO_EXPORT std::optional<QString> SIO_pathText(const QPainterPath& path);

/// The inverse; nothing for texts that are no path. White space of any length may stand between letters and numbers.
QUARVELSCENEIO_EXPORT std::optional<QPainterPath> SIO_parsePath(const QString& text, Qt::FillRule fillRule);
