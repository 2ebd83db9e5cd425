// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows and their changes.
#include "studio/docks/timeline/TimelineRows.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
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

TimelineCommand curveCmd(AT_AnimatableAttr& attribute, const AT_Curve& curve)
{
    return TimelineCommand(attribute.setCurveCmd(curve));
}

// The handles reach a third of the way to the neighbours and lie flat, so that the value eases out of a key and into
// the next one.
void ease(AT_Curve& curve, const AT_Curve::Key& key)
{
    const auto& keys = curve.keys();
    const auto next = std::ranges::find_if(keys, [&](const AT_Curve::Key& each) { return each.frame > key.frame; });
    AT_Curve::Key from = key;
    if (next != keys.end()) {
        AT_Curve::Key to = *next;
        const double third = (to.frame - from.frame) / 3.0;
        from.out = {third, 0.0};
        to.in = {-third, 0.0};
        curve.setKey(to);
    }
    curve.setKey(from);
}

} // namespace

std::vector<TimelineRow> timelineRows(const StudioDocument& document)
{
    std::vector<TimelineRow> rows;
    document.scene().root().forEachModule([&](MO_Module& module) {
        if (auto* element = dynamic_cast<MO_ElementModule*>(&module))
            rows.push_back({element, nullptr, element, element->instanceName()});
    });
    if (MO_Module* const current = document.currentModule()) {
        addKeyRows(rows, *current, current);
    } else {
        AT_DoubleAttr& truck = document.scene().truckFactorAttr();
        rows.push_back(
            {nullptr, &truck, nullptr, QCoreApplication::translate("TimelineRows", "Camera: %1").arg(truck.label())});
    }
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

TimelineCommand moveCmd(const TimelineRow& row, double from, int to)
{
    if (from == to || timelineStartAt(row, from) != from)
        return nullptr;
    if (row.attribute) {
        AT_Curve curve = row.attribute->curve();
        AT_Curve::Key key = *curve.keyAt(from);
        curve.removeKey(from);
        key.frame = to;
        curve.setKey(key);
        return curveCmd(*row.attribute, curve);
    }
    AT_DrawingAttr& drawing = *row.element->drawingAttr();
    AT_ExposureSheet sheet = drawing.exposures();
    const int start = static_cast<int>(from);
    const QString name = sheet.drawing(start);
    sheet.removeExposure(start);
    sheet.setExposure(to, name);
    return TimelineCommand(drawing.setExposuresCmd(sheet));
}

TimelineCommand removeCmd(const TimelineRow& row, double frame)
{
    if (row.attribute) {
        AT_Curve curve = row.attribute->curve();
        return curve.removeKey(frame) ? curveCmd(*row.attribute, curve) : nullptr;
    }
    if (!row.element || frame != std::floor(frame))
        return nullptr;
    AT_DrawingAttr& drawing = *row.element->drawingAttr();
    AT_ExposureSheet sheet = drawing.exposures();
    return sheet.removeExposure(static_cast<int>(frame)) ? TimelineCommand(drawing.setExposuresCmd(sheet)) : nullptr;
}

TimelineCommand addKeyCmd(const TimelineRow& row, int frame)
{
    if (!row.attribute || row.attribute->curve().keyAt(frame))
        return nullptr;
    AT_Curve curve = row.attribute->curve();
    AT_Curve::Key key;
    if (const AT_Curve::Key* before = curve.keyBefore(frame))
        key.interpolation = before->interpolation;
    key.frame = frame;
    key.value = row.attribute->scalarValue(frame).value_or(0.0);
    curve.setKey(key);
    return curveCmd(*row.attribute, curve);
}

TimelineCommand interpolationCmd(const TimelineRow& row, double frame, AT_Curve::Interpolation interpolation)
{
    const AT_Curve::Key* const key = row.attribute ? row.attribute->curve().keyAt(frame) : nullptr;
    if (!key || key->interpolation == interpolation)
        return nullptr;
    AT_Curve curve = row.attribute->curve();
    AT_Curve::Key changed = *key;
    changed.interpolation = interpolation;
    const bool hasHandles = changed.out != AT_Curve::Handle();
    if (interpolation == AT_Curve::Interpolation::BEZIER && !hasHandles)
        ease(curve, changed);
    else
        curve.setKey(changed);
    return curveCmd(*row.attribute, curve);
}
