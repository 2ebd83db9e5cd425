// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TextTable: rows of words as a table for a terminal.
#pragma once

#include <QStringList>

#include <vector>

/// A line for each row. All cells of a column are as wide as its widest, with two spaces before each; a line has no
/// spaces at its end.
///
/// @param rows all with the same number of cells; a title for each column comes first if one is wanted
QStringList tableLines(const std::vector<QStringList>& rows);
