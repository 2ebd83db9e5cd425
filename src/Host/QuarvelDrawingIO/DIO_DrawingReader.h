// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads drawings of all kinds that the library knows: the kind follows from the end of the file's name. All that is
// known of a kind stands in one row of the table in DIO_DrawingReader.cpp; a new reader is one row more.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <vector>

/// A kind of files that drawings are read from.
struct DIO_DrawingKind
{
    using Read = UT_Result<DIO_Drawing> (*)(const QString& path, DIO_Grouping grouping, DIO_Blank blank);

    /// What people call such a file.
    QString name;
    /// The ends of the names of such files, lower case, without dot.
    QStringList suffixes;
    /// True when a file is one layer, named after it, that shows pixels: several files are layers of one drawing.
    bool isBitmap = false;
    /// See DIO_readDrawing(). A bitmap has one layer always, whatever the grouping, and is never blank.
    Read read = nullptr;
};

/// All kinds.
QUARVELDRAWINGIO_EXPORT const std::vector<DIO_DrawingKind>& DIO_drawingKinds();

/// The kind of a file by the end of its name, in any case; null when it is none that drawings are read from.
QUARVELDRAWINGIO_EXPORT const DIO_DrawingKind* DIO_drawingKindOf(const QString& path);

/// The ends of file names that can be read, lower case, without dot.
QUARVELDRAWINGIO_EXPORT QStringList DIO_readableSuffixes();

/// Reads a drawing.
///
/// A QGuiApplication must exist, since text in a drawing needs its fonts. Any thread may call it, several at once.
///
/// @param path a file whose name ends in one of the readable suffixes, in any case
/// @return the drawing, with at least one layer unless it is blank and that is accepted, or what is wrong with the file
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Drawing>
DIO_readDrawing(const QString& path, DIO_Grouping grouping = DIO_Grouping::AUTO, DIO_Blank blank = DIO_Blank::REFUSED);
