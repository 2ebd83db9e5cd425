// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// JoinedParts: makes one part of several that were found apart.
#pragma once

#include "form/choice/PartFinder.h"

#include <span>

/// Joins parts: a part that joins another lies where the other lies in the stack.
///
/// @param home for each part the part that it becomes a piece of, below it in the stack; its own index if it stays. The
/// home of a part that joins stays.
/// @param reason why, for the parts that gain pieces
FoundParts joinedParts(FoundParts found, std::span<const int> home, const QString& reason);
