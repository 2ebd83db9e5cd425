// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Curves: their keys and their values. AT_CurveXml.cpp reads and writes them.
#include "QuarvelSceneCore/attributes/AT_Curve.h"

#include "QuarvelSceneCore/attributes/AT_BezierSegment.h"

#include <algorithm>
#include <cmath>

namespace {

using Key = AT_Curve::Key;

double segmentValue(const Key& a, const Key& b, double frame)
{
    const double length = b.frame - a.frame;
    const double x = (frame - a.frame) / length;
    if (a.interpolation == AT_Curve::Interpolation::HOLD || x == 0.0)
        return a.value;
    if (a.interpolation == AT_Curve::Interpolation::LINEAR)
        return std::lerp(a.value, b.value, x);
    return AT_BezierSegment::between(a, b).valueAt(x);
}

bool isUsable(const Key& key)
{
    const bool finite = std::isfinite(key.frame) && std::isfinite(key.value) && std::isfinite(key.in.frame) &&
                        std::isfinite(key.in.value) && std::isfinite(key.out.frame) && std::isfinite(key.out.value);
    return finite && key.in.frame <= 0.0 && key.out.frame >= 0.0;
}

bool isBefore(const Key& key, double frame)
{
    return key.frame < frame;
}

} // namespace

const AT_Curve::Key* AT_Curve::keyAt(double frame) const
{
    const auto it = std::lower_bound(_keys.begin(), _keys.end(), frame, isBefore);
    return it != _keys.end() && it->frame == frame ? &*it : nullptr;
}

const AT_Curve::Key* AT_Curve::keyBefore(double frame) const
{
    const auto it = std::lower_bound(_keys.begin(), _keys.end(), frame, isBefore);
    return it == _keys.begin() ? nullptr : &*std::prev(it);
}

bool AT_Curve::setKey(const Key& key)
{
    if (!isUsable(key))
        return false;
    const auto it = std::lower_bound(_keys.begin(), _keys.end(), key.frame, isBefore);
    if (it != _keys.end() && it->frame == key.frame)
        *it = key;
    else
        _keys.insert(it, key);
    return true;
}

bool AT_Curve::removeKey(double frame)
{
    return std::erase_if(_keys, [frame](const Key& key) { return key.frame == frame; }) > 0;
}

double AT_Curve::value(double frame) const
{
    if (_keys.empty())
        return 0.0;
    const auto next =
        std::upper_bound(_keys.begin(), _keys.end(), frame, [](double at, const Key& key) { return at < key.frame; });
    if (next == _keys.begin())
        return _keys.front().value;
    if (next == _keys.end())
        return _keys.back().value;
    return segmentValue(*std::prev(next), *next, frame);
}
