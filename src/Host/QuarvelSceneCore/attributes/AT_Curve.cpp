// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Curves: their keys and their values. AT_CurveXml.cpp reads and writes them.
//
// A Bezier segment is evaluated in two steps: bisection finds the parameter t at which the curve reaches the frame (the
// horizontal polynomial never decreases, because its inner points are clamped to the segment), then the vertical
// polynomial gives the value there.
#include "QuarvelSceneCore/attributes/AT_Curve.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kBisections = 54; // one for each bit of a double's fraction, and a little more

using Key = AT_Curve::Key;

// The cubic Bezier polynomial with these four points.
double bezier(double p0, double p1, double p2, double p3, double t)
{
    const double s = 1.0 - t;
    return s * s * s * p0 + 3.0 * s * s * t * p1 + 3.0 * s * t * t * p2 + t * t * t * p3;
}

// The parameter at which a polynomial from 0 to 1 with inner points x1 and x2 reaches x.
double parameterAt(double x1, double x2, double x)
{
    double low = 0.0;
    double high = 1.0;
    for (int i = 0; i < kBisections; ++i) {
        const double middle = 0.5 * (low + high);
        (bezier(0.0, x1, x2, 1.0, middle) < x ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

double bezierValue(const Key& a, const Key& b, double length, double x)
{
    const double x1 = std::clamp(a.out.frame / length, 0.0, 1.0);
    const double x2 = std::clamp(1.0 + b.in.frame / length, 0.0, 1.0);
    return bezier(a.value, a.value + a.out.value, b.value + b.in.value, b.value, parameterAt(x1, x2, x));
}

double segmentValue(const Key& a, const Key& b, double frame)
{
    const double length = b.frame - a.frame;
    const double x = (frame - a.frame) / length;
    if (a.interpolation == AT_Curve::Interpolation::HOLD || x == 0.0)
        return a.value;
    if (a.interpolation == AT_Curve::Interpolation::LINEAR)
        return std::lerp(a.value, b.value, x);
    return bezierValue(a, b, length, x);
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
