// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rectangles of the reference version: the few operations on half-open integer rectangles that the pixel algorithms
// need. Empty rectangles never enter a minimum or a maximum.
#include "reference/Box.h"

#include <algorithm>
#include <ostream>

namespace reference {

bool RefBox::empty() const
{
    return x1 >= x2 || y1 >= y2;
}

int RefBox::width() const
{
    return empty() ? 0 : x2 - x1;
}

int RefBox::height() const
{
    return empty() ? 0 : y2 - y1;
}

bool RefBox::contains(int x, int y) const
{
    return x >= x1 && x < x2 && y >= y1 && y < y2;
}

bool operator==(const RefBox& a, const RefBox& b)
{
    if (a.empty() || b.empty()) {
        return a.empty() && b.empty();
    }
    return a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 && a.y2 == b.y2;
}

RefBox united(const RefBox& a, const RefBox& b)
{
    if (a.empty()) {
        return b.empty() ? RefBox{} : b;
    }
    if (b.empty()) {
        return a;
    }
    return RefBox{std::min(a.x1, b.x1), std::min(a.y1, b.y1), std::max(a.x2, b.x2), std::max(a.y2, b.y2)};
}

RefBox intersected(const RefBox& a, const RefBox& b)
{
    const RefBox common{std::max(a.x1, b.x1), std::max(a.y1, b.y1), std::min(a.x2, b.x2), std::min(a.y2, b.y2)};
    return common.empty() ? RefBox{} : common;
}

RefBox enlarged(const RefBox& box, int margin)
{
    if (box.empty()) {
        return RefBox{};
    }
    return RefBox{box.x1 - margin, box.y1 - margin, box.x2 + margin, box.y2 + margin};
}

RefBox withPixel(const RefBox& box, int x, int y)
{
    return united(box, RefBox{x, y, x + 1, y + 1});
}

std::ostream& operator<<(std::ostream& stream, const RefBox& box)
{
    return stream << '[' << box.x1 << ", " << box.x2 << ") x [" << box.y1 << ", " << box.y2 << ')';
}

} // namespace reference
