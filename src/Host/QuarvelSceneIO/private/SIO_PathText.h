// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths as texts: "M x y" begins a part, "L x y" is a straight line, "C x1 y1 x2 y2 x y" a cubic Bezier curve, with
// single spaces in between. Every element of a path has its own letter, so that reading a path returns the same
// elements with the same bits.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QPainterPath>
#include <QString>

#include <optional>

/// Converts a path to a text; std::nullopt if a coordinate is NaN or its absolute value is not below 1e128.
QUARVELSCENEIO_EXPORT std::optional<QString> SIO_pathText(const QPainterPath& path);

/// The inverse; std::nullopt for texts that are not paths. Any number of spaces may separate letters and numbers.
QUARVELSCENEIO_EXPORT std::optional<QPainterPath> SIO_parsePath(const QString& text, Qt::FillRule fillRule);
