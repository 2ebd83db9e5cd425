// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A title for the row headers of a table: a text in the corner where row headers and column headers meet.
#pragma once

#include <QString>

class QTableView;

/// Puts a text into a table's corner, replacing an earlier one. Where a style gives the table no corner, enables its
/// corner button, and nothing more.
///
/// @param table  may be null; then nothing happens
/// @param margin free space to the left of the text, in pixels
void setCornerLabel(QTableView* table, const QString& text, int margin);
