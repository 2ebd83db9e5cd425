// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The readers behind readSequence(), one for each kind of files.
#pragma once

#include "QuarvelDrawingIO/DIO_Animation.h"
#include "jobs/import/FrameNumbers.h"
#include "jobs/import/ImportDrawings.h"

/// @param files at least one, in natural order
UT_Result<DrawingSequence> readLayeredSequence(const QStringList& files, const ImportSettings& settings);
/// @param files at least one, in natural order, which is that of the layers from the bottom up
UT_Result<DrawingSequence> readBitmapSequence(const QStringList& files, const ImportSettings& settings);
/// @param files one
UT_Result<DrawingSequence> readAnimation(const QStringList& files, const ImportSettings& settings);

/// The sequence of an animation, from frame 1 on.
///
/// @param file that it was read from
/// @return an error when settings.goOn said to stop
UT_Result<DrawingSequence> sequenceOf(DIO_Animation animation, const QString& file, const ImportSettings& settings);
