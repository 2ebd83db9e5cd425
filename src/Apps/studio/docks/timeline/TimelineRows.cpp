// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows, and which change of a row is which command.
#include "studio/docks/timeline/TimelineRows.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "studio/document/StudioDocument.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

void addKeyRows(std::vector<TimelineRow>& rows, const MO_Module& module, MO_Module* owner)
{
    for (AT_Attr* attr : module.attrs())
        if (auto* number = dynamic_cast<AT_AnimatableAttr*>(attr))
            rows.push_back({nullptr, number, owner, number->label()});
}

// Lights are keyed in their panel; here is what has keys already.
void addLightRows(std::vector<TimelineRow>& rows, MO_Lighting& lighting)
{
    for (AT_DoubleAttr& number : lighting.numbers())
        if (number.isAnimated())
            rows.push_back({nullptr, &number, nullptr, number.label()});
    for (const auto& light : lighting.lights())
        for (AT_Attr* const attr : light->attrs())
            if (auto* const number = dynamic_cast<AT_AnimatableAttr*>(attr); number && number->isAnimated())
                rows.push_back({nullptr, number, nullptr,
                                QCoreApplication::translate("TimelineRows", "%1: %2")
                                    .arg(lighting.titleOf(*light), number->label())});
}

} // namespace

std::vector<TimelineRow> timelineRows(const StudioDocument& document)
{
    std::vector<TimelineRow> rows;
    document.scene().root().forEachModule([&](MO_Module& module) {
        if (auto* element = dynamic_cast<MO_ElementModule*>(&module))
            rows.push_back({element, nullptr, element, element->instanceName()});
    });
    MO_Module* const current = document.currentModule();
    if (current)
        addKeyRows(rows, *current, current);
    // What moves the whole picture is seen whatever is selected.
    AT_DoubleAttr& truck = document.scene().truckFactorAttr();
    if (!current || truck.isAnimated())
        rows.push_back(
            {nullptr, &truck, nullptr, QCoreApplication::translate("TimelineRows", "Camera: %1").arg(truck.label())});
    addLightRows(rows, document.scene().lighting());
    return rows;
}

std::optional<double> timelineStartAt(const TimelineRow& row, double frame)
{
    if (row.attribute)
        return row.attribute->curve().keyAt(frame) ? std::optional(frame) : std::nullopt;
    if (!row.element)
        return std::nullopt;
    const auto& exposures = row.element->drawingAttr()->exposures().exposures();
    auto next = std::ranges::find_if(exposures, [&](const auto& exposure) { return exposure.first > frame; });
    return next == exposures.begin() ? std::nullopt : std::optional<double>((--next)->first);
}

MO_EditCommand moveCmd(const TimelineRow& row, double from, int to)
{
    if (from == to || timelineStartAt(row, from) != from)
        return nullptr;
    return row.attribute ? MO_moveKeyCmd(*row.attribute, from, to)
                         : MO_moveExposureCmd(*row.element->drawingAttr(), static_cast<int>(from), to);
}

MO_EditCommand removeCmd(const TimelineRow& row, double frame)
{
    if (row.attribute)
        return MO_removeKeyCmd(*row.attribute, frame);
    if (!row.element || frame != std::floor(frame))
        return nullptr;
    return MO_removeExposureCmd(*row.element->drawingAttr(), static_cast<int>(frame));
}

MO_EditCommand addKeyCmd(const TimelineRow& row, int frame)
{
    return row.attribute ? MO_addKeyCmd(*row.attribute, frame) : nullptr;
}

MO_EditCommand interpolationCmd(const TimelineRow& row, double frame, AT_Curve::Interpolation interpolation)
{
    return row.attribute ? MO_interpolationCmd(*row.attribute, frame, interpolation) : nullptr;
}
