// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// shortNames: names that are shortened to the room that they have, and stay different where they can.
#pragma once

#include <QString>

#include <vector>

class QFontMetricsF;

/// A name and the width of its room, in the units of the metrics.
struct RoomForName
{
    QString name;
    double width = 0.0;
};

/// Shortens names that are too wide: in the middle, because both ends tell most; where that makes two names equal, at
/// the end, else at the beginning.
std::vector<QString> shortNames(const std::vector<RoomForName>& names, const QFontMetricsF& metrics);
