// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each change is made on a copy of the curve or sheet, which then replaces the old one.
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"

#include "QuarvelSceneCore/attributes/AT_CurveKeys.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

MO_EditCommand MO_addKeyCmd(AT_AnimatableAttr& attr, double frame)
{
    if (attr.curve().keyAt(frame))
        return nullptr;
    AT_Curve curve = attr.curve();
    AT_putValue(curve, frame, attr.scalarValue(frame).value_or(0.0));
    return MO_curveCmd(attr, curve);
}

MO_EditCommand MO_removeKeyCmd(AT_AnimatableAttr& attr, double frame)
{
    AT_Curve curve = attr.curve();
    const AT_Curve::Key* const key = curve.keyAt(frame);
    if (!key)
        return nullptr;
    const double value = key->value;
    curve.removeKey(frame);
    return curve.isEmpty() ? MO_constantCmd(attr, value) : MO_curveCmd(attr, curve);
}

MO_EditCommand MO_moveKeyCmd(AT_AnimatableAttr& attr, double from, double to)
{
    AT_Curve curve = attr.curve();
    const AT_Curve::Key* const found = curve.keyAt(from);
    if (!found)
        return nullptr;
    AT_Curve::Key key = *found;
    curve.removeKey(from);
    key.frame = to;
    curve.setKey(key);
    return MO_curveCmd(attr, curve);
}

MO_EditCommand MO_interpolationCmd(AT_AnimatableAttr& attr, double frame, AT_Curve::Interpolation interpolation)
{
    const AT_Curve::Key* const key = attr.curve().keyAt(frame);
    if (!key)
        return nullptr;
    // A key without handles goes straight to the next one, whatever it is called.
    const bool makesHandles = interpolation == AT_Curve::Interpolation::BEZIER && key->out == AT_Curve::Handle();
    if (key->interpolation == interpolation && key->otherType.isEmpty() && !makesHandles)
        return nullptr;
    AT_Curve curve = attr.curve();
    AT_Curve::Key changed = *key;
    changed.interpolation = interpolation;
    changed.otherType.clear();
    if (makesHandles)
        AT_ease(curve, changed);
    else
        curve.setKey(changed);
    return MO_curveCmd(attr, curve);
}

MO_EditCommand MO_removeExposureCmd(AT_DrawingAttr& attr, int frame)
{
    AT_ExposureSheet sheet = attr.exposures();
    return sheet.removeExposure(frame) ? MO_exposuresCmd(attr, sheet) : nullptr;
}

MO_EditCommand MO_moveExposureCmd(AT_DrawingAttr& attr, int from, int to)
{
    AT_ExposureSheet sheet = attr.exposures();
    const QString drawing = sheet.drawing(from);
    if (!sheet.removeExposure(from))
        return nullptr;
    sheet.setExposure(to, drawing);
    return MO_exposuresCmd(attr, sheet);
}
