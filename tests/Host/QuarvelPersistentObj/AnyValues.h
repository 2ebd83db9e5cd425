// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Generators of texts and numbers for property tests, with many values that tend to break readers and writers.
#pragma once

#include <QString>

#include <rapidcheck.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace AnyValues {

/// Any text: control characters, paired and unpaired surrogates, markup, white space, text that looks like an escape.
inline rc::Gen<QString> text()
{
    std::u16string nasty = u"\t\n\r &<>\"'\\]_x0AF5a:;%\u007f\u0085\u00a0\u2028\ufeff";
    nasty += std::u16string{0x0, 0x1, 0x1b, 0xd800, 0xdbff, 0xdc00, 0xdfff, 0xfffe, 0xffff};
    const auto unit = rc::gen::oneOf(rc::gen::elementOf(nasty), rc::gen::cast<char16_t>(rc::gen::inRange(0, 0x10000)),
                                     rc::gen::cast<char16_t>(rc::gen::inRange(0x20, 0x7f)));
    return rc::gen::map(rc::gen::container<std::vector<char16_t>>(unit), [](const std::vector<char16_t>& units) {
        return QStringView(units.data(), static_cast<qsizetype>(units.size())).toString();
    });
}

/// Any finite number: every bit pattern, round numbers, and those at the ends of the range.
inline rc::Gen<double> number()
{
    using Limits = std::numeric_limits<double>;
    const auto bits = rc::gen::map(rc::gen::arbitrary<std::uint64_t>(), [](std::uint64_t b) {
        // Small generated integers are spread over all exponents.
        const double value = std::bit_cast<double>(b * 0x9e3779b97f4a7c15U);
        return std::isfinite(value) ? value : 0.0;
    });
    const auto round = rc::gen::map(rc::gen::inRange(-100000, 100000), [](int n) { return n / 8.0; });
    const auto extreme = rc::gen::element(0.0, -0.0, Limits::max(), Limits::lowest(), Limits::min(),
                                          Limits::denorm_min(), -Limits::denorm_min(), 0.1, 1e22, 1e23, 1e15, 1e-5);
    return rc::gen::oneOf(bits, round, extreme);
}

} // namespace AnyValues
