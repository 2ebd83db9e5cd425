// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A Bezier segment is divided by P. de Casteljau's construction: the points that repeated interpolation at the
// parameter passes through are the control points of both halves.
#include "QuarvelSceneCore/attributes/AT_CurveKeys.h"

#include "QuarvelSceneCore/attributes/AT_BezierSegment.h"

#include <algorithm>

namespace {

using Key = AT_Curve::Key;

const Key* keyAfter(const AT_Curve& curve, double frame)
{
    const auto next = std::ranges::find_if(curve.keys(), [=](const Key& key) { return key.frame > frame; });
    return next == curve.keys().end() ? nullptr : &*next;
}

// The inner control points of both halves of a polynomial, and the point between them.
struct Halves
{
    double first;
    double beforeMiddle;
    double middle;
    double afterMiddle;
    double last;
};

Halves dividedAt(const std::array<double, 4>& p, double t)
{
    const double first = std::lerp(p[0], p[1], t);
    const double inner = std::lerp(p[1], p[2], t);
    const double last = std::lerp(p[2], p[3], t);
    const double before = std::lerp(first, inner, t);
    const double after = std::lerp(inner, last, t);
    return {first, before, std::lerp(before, after, t), after, last};
}

// The handles of the keys around the new one become those of the halves; the new one's are relative to its value, so
// that they keep their direction whatever that is.
void divide(AT_Curve& curve, Key from, Key to, Key middle)
{
    const double length = to.frame - from.frame;
    const AT_BezierSegment segment = AT_BezierSegment::between(from, to);
    const double t = segment.parameterAt((middle.frame - from.frame) / length);
    const Halves x = dividedAt(segment.x, t);
    const Halves y = dividedAt(segment.y, t);
    from.out = {length * x.first, y.first - from.value};
    middle.in = {std::min(0.0, length * (x.beforeMiddle - x.middle)), y.beforeMiddle - y.middle};
    middle.out = {std::max(0.0, length * (x.afterMiddle - x.middle)), y.afterMiddle - y.middle};
    to.in = {length * (x.last - 1.0), y.last - to.value};
    curve.setKey(from);
    curve.setKey(middle);
    curve.setKey(to);
}

} // namespace

void AT_ease(AT_Curve& curve, const Key& key)
{
    Key from = key;
    if (const Key* const next = keyAfter(curve, key.frame)) {
        Key to = *next;
        const double third = (to.frame - from.frame) / 3.0;
        from.out = {third, 0.0};
        to.in = {-third, 0.0};
        curve.setKey(to);
    }
    curve.setKey(from);
}

void AT_putValue(AT_Curve& curve, double frame, double value)
{
    if (const Key* const same = curve.keyAt(frame)) {
        Key key = *same;
        key.value = value;
        curve.setKey(key);
        return;
    }
    const Key* const before = curve.keyBefore(frame);
    const Key* const after = keyAfter(curve, frame);
    Key key;
    key.frame = frame;
    key.value = value;
    if (before)
        key.interpolation = before->interpolation;
    const bool isSmooth = before && before->interpolation == AT_Curve::Interpolation::BEZIER;
    if (isSmooth && after)
        return divide(curve, *before, *after, key);
    // The last key may have been made smooth before there was one to go to.
    const bool isEased = isSmooth && before->out == AT_Curve::Handle();
    const Key from = before ? *before : Key();
    curve.setKey(key);
    if (isEased)
        AT_ease(curve, from);
}
