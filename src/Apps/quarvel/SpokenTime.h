// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SpokenTime: how long something takes, in words.
#pragma once

#include <QString>

/// "12 s", "3 min 05 s" or "2 h 07 min".
///
/// @param seconds rounded up to whole ones; negative numbers count as 0
QString spokenTime(double seconds);
