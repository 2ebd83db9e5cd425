// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Math::Vector3d: a vector in double precision. The order of operations is fixed, so that results are the same bits
// everywhere.
#pragma once

#include <cmath>

namespace Math {

/// A vector in double precision.
class Vector3d
{
public:
    constexpr Vector3d() = default;
    constexpr Vector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    friend constexpr bool operator==(const Vector3d&, const Vector3d&) = default;
    friend constexpr Vector3d operator+(const Vector3d& a, const Vector3d& b)
    {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr Vector3d operator*(double k, const Vector3d& v) { return {k * v.x, k * v.y, k * v.z}; }
    constexpr Vector3d& operator+=(const Vector3d& other) { return *this = *this + other; }

    constexpr double dot(const Vector3d& other) const { return x * other.x + y * other.y + z * other.z; }
    double length() const { return std::sqrt(dot(*this)); }

    /// The cross product this x other (right-handed: x cross y is z).
    constexpr Vector3d getCrossProduct(const Vector3d& other) const
    {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }

    /// Divides every component by the length. A vector of length zero stays zero.
    void normalize()
    {
        const double len = length();
        if (len == 0.0)
            return;
        x /= len;
        y /= len;
        z /= len;
    }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

} // namespace Math
