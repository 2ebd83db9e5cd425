// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From the readers' neutral drawing to objects with their form, and to vector drawings of them.
#include "jobs/drawing/ReadDrawing.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "form/ChooseForms.h"
#include "form/ChooseObjects.h"

UT_Result<ReadDrawing> readDrawing(const QString& path, const FormSettings& form)
{
    UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path, groupingFor(form.objects));
    if (!drawing)
        return drawing.error();
    ReadDrawing read;
    read.warnings = drawing->warnings;
    read.drawing.frame = drawing->viewBox;
    read.drawing.size = drawing->size;
    ChosenObjects chosen = chooseObjects(*drawing, form.objects);
    // The objects of a bitmap have paints of their own.
    read.drawing.palette = DIO_toPalette(chosen.drawing);
    const std::vector<ObjectForm> forms = chooseForms(chosen, form);
    for (std::size_t i = 0; i < chosen.objects.size(); ++i)
        read.drawing.layers.push_back(
            {chosen.objects[i].name, DIO_toKvd(chosen.drawing, i, read.drawing.palette), forms[i]});
    read.objects = std::move(chosen.objects);
    return read;
}
