// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The tables of a node: its attributes' local texts, decoded.
#include "QuarvelSceneCore/AT_StringAttr.h"
#include "node/Vallorin.h"
#include "parameters/VallorinAttributes.h"

namespace VallorinAttributes {

void getColorInformation(Vallorin* node, std::vector<ColorInformation>& colours)
{
    colours.clear();
    if (node)
        getColorInformation(node->colorInformation()->localValue(), colours);
}

void getColorInformation(Vallorin* node, std::map<CM_ColorId_t, int>& values)
{
    values.clear();
    std::vector<ColorInformation> colours;
    getColorInformation(node, colours);
    for (const ColorInformation& colour : colours)
        values[colour.colorId] = colour.value;
}

void getObjectInformation(Vallorin* node, std::vector<ObjectInformation>& objects)
{
    objects.clear();
    if (node)
        getObjectInformation(node->objectInformation()->localValue(), objects);
}

void getObjectInformation(Vallorin* node, std::map<int, ObjectInformation>& objects)
{
    objects.clear();
    std::vector<ObjectInformation> list;
    getObjectInformation(node, list);
    for (const ObjectInformation& object : list)
        objects[object.objectId] = object;
}

} // namespace VallorinAttributes
