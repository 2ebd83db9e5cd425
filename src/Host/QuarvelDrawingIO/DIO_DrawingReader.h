// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads drawings of all kinds that the library knows: the kind follows from the end of the file's name.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"

/// The ends of file names that can be read, lower case, without dot.
QUARVELDRAWINGIO_EXPORT QStringList DIO_readableSuffixes();

/// Reads a drawing.
///
/// A QGuiApplication must exist, since text in a drawing needs its fonts. Any thread may call it, several at once.
///
/// @param path a file whose name ends in one of the readable suffixes, in any case
/// @return the drawing, with at least one layer, or what is wrong with the file
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Drawing> DIO_readDrawing(const QString& path,
                                                               DIO_Grouping grouping = DIO_Grouping::AUTO);
