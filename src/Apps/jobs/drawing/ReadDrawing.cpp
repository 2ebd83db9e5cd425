// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From the readers' neutral drawing to one whose layers are vector drawings.
#include "jobs/drawing/ReadDrawing.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "jobs/drawing/Grouping.h"

UT_Result<ReadDrawing> readDrawing(const QString& path, ObjectGrouping grouping)
{
    UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path, groupingOf(grouping));
    if (!drawing)
        return drawing.error();
    ReadDrawing read;
    read.warnings = drawing->warnings;
    read.drawing.frame = drawing->viewBox;
    read.drawing.size = drawing->size;
    read.drawing.palette = DIO_toPalette(*drawing);
    for (std::size_t i = 0; i < drawing->layers.size(); ++i)
        read.drawing.layers.push_back({drawing->layers[i].name, DIO_toKvd(*drawing, i, read.drawing.palette)});
    return read;
}
