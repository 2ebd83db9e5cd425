// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Comparison of two pictures: geometry first, then every pixel; reports the first difference and the number of
// differences.
#include "reference/Compare.h"

#include <cmath>
#include <sstream>

namespace reference {
namespace {

bool close(float a, float b, double tolerance)
{
    if (std::isnan(a) || std::isnan(b)) {
        return std::isnan(a) && std::isnan(b);
    }
    if (a == b) {
        return true;
    }
    return std::abs(static_cast<double>(a) - static_cast<double>(b)) <= tolerance;
}

bool same(const RefPixel16& a, const RefPixel16& b, double)
{
    return a == b;
}

bool same(const RefPixelFloat& a, const RefPixelFloat& b, double tolerance)
{
    return close(a.r, b.r, tolerance) && close(a.g, b.g, tolerance) && close(a.b, b.b, tolerance) &&
           close(a.a, b.a, tolerance);
}

bool same(float a, float b, double tolerance)
{
    return close(a, b, tolerance);
}

template<class P>
std::string compare(const RefImage<P>& expected, const RefImage<P>& actual, double tolerance)
{
    std::ostringstream message;
    if (!(expected.canvas == actual.canvas)) {
        message << "canvas: expected " << expected.canvas << ", got " << actual.canvas << '\n';
    }
    if (expected.width != actual.width || expected.height != actual.height) {
        message << "size: expected " << expected.width << " x " << expected.height << ", got " << actual.width << " x "
                << actual.height << '\n';
    }
    if (!(expected.box == actual.box)) {
        message << "allocated: expected " << expected.box << ", got " << actual.box << '\n';
        return message.str();
    }
    int count = 0;
    std::ostringstream first;
    first.precision(9);
    for (int y = expected.box.y1; y < expected.box.y2; ++y) {
        for (int x = expected.box.x1; x < expected.box.x2; ++x) {
            if (same(expected.at(x, y), actual.at(x, y), tolerance)) {
                continue;
            }
            if (count == 0) {
                first << "at (" << x << ", " << y << "): expected " << expected.at(x, y) << ", got " << actual.at(x, y);
            }
            ++count;
        }
    }
    if (count > 0) {
        message << count << " pixels differ, first " << first.str() << '\n';
    }
    return message.str();
}

} // namespace

std::string differences(const RefImage16& expected, const RefImage16& actual)
{
    return compare(expected, actual, 0.0);
}

std::string differences(const RefImageFloat& expected, const RefImageFloat& actual, double tolerance)
{
    return compare(expected, actual, tolerance);
}

std::string differences(const RefDepth& expected, const RefDepth& actual, double tolerance)
{
    std::ostringstream message;
    if (expected.rangeLow != actual.rangeLow || expected.rangeHigh != actual.rangeHigh) {
        message << "range: expected " << expected.rangeLow << " ... " << expected.rangeHigh << ", got "
                << actual.rangeLow << " ... " << actual.rangeHigh << '\n';
    }
    message << compare<float>(expected, actual, tolerance);
    return message.str();
}

} // namespace reference
