// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts the readers' neutral drawing to objects with their forms and to vector drawings of them.
#include "jobs/drawing/ReadDrawing.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "form/ChooseForms.h"
#include "form/ChooseObjects.h"
#include "form/choice/ObjectShares.h"
#include "jobs/drawing/OwnValues.h"

namespace {

// The drawing's own bevel, elevation and smoothness replace the chosen ones in the form, so that listings show them.
void takeOwn(LayeredDrawing::Layer& layer, const ObjectSettings& own)
{
    layer.own = own;
    layer.form.bevel = own.bevel.value_or(layer.form.bevel);
    layer.form.elevation = own.elevation.value_or(layer.form.elevation);
    layer.form.smoothness = own.smoothness.value_or(layer.form.smoothness);
}

} // namespace

ReadDrawing chosenDrawing(const DIO_Drawing& drawing, const FormSettings& form, const ObjectWishes& folder)
{
    ReadDrawing read;
    read.warnings = drawing.warnings;
    read.drawing.frame = drawing.viewBox;
    read.drawing.size = drawing.size;
    ChosenObjects chosen = chooseObjects(drawing, form.objects, form.aspect);
    if (form.listed)
        measureShares(chosen);
    if (const QString warning = chosen.warning(); !warning.isEmpty())
        read.warnings.append(warning);
    // From the chosen drawing, because the objects of a bitmap get paints of their own.
    read.drawing.palette = DIO_toPalette(chosen.drawing);
    const std::vector<ObjectForm> forms = chooseForms(chosen, form);
    for (std::size_t i = 0; i < chosen.objects.size(); ++i) {
        const ChosenObject& object = chosen.objects[i];
        LayeredDrawing::Layer layer{object.name, DIO_toKvd(chosen.drawing, i, read.drawing.palette), forms[i]};
        takeOwn(layer,
                ownSettings(object.values, folder, static_cast<int>(i) + 1, object.name, object.role, read.warnings));
        read.drawing.layers.push_back(std::move(layer));
    }
    read.objects = std::move(chosen.objects);
    return read;
}

UT_Result<ReadDrawing> readDrawing(const QString& path, const FormSettings& form, const Tiling& tiling)
{
    UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path, groupingFor(form.objects));
    if (!drawing)
        return drawing.error();
    const UT_Result<ObjectWishes> folder = readFolderWishes(path);
    if (!folder)
        return folder.error();
    takeValuesFromNames(*drawing);
    return chosenDrawing(tiling.isAny() ? tiled(*drawing, tiling) : *drawing, form, *folder);
}
