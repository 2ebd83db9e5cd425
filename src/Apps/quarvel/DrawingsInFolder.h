// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Folders among the drawings of a run.
#pragma once

#include "NormalMapOptions.h"
#include "Report.h"
#include "StandInFiles.h"

/// Puts the drawings that lie in a folder and below it in the folder's place, in natural order, and notes where they
/// lie. Left out are scenes, hidden folders, links to folders, and pictures that are called like what the run writes
/// for another drawing there, which is what an earlier run wrote.
///
/// Links stand for files whose names are no text. Such files are left out, with a warning, where maps lie beside their
/// drawings.
///
/// @return an error that names a folder in which there is no drawing
UT_Result<void> takeDrawingsOfFolders(NormalMapOptions& options, StandInFiles& standIns, Report& report);
