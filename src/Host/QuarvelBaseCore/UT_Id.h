// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// UT_Id: a 64-bit identifier that names an object for good (a palette colour, an element), in files as well as in
// memory. As text it is exactly 16 lower-case hexadecimal digits.
#pragma once

#include "QuarvelBaseCore/UT_String.h"

#include <compare>
#include <cstdint>

/// A 64-bit identifier; 0 is the null identifier, which names nothing.
class QUARVELBASECORE_EXPORT UT_Id
{
public:
    constexpr UT_Id() = default;
    constexpr explicit UT_Id(std::uint64_t value) : _value(value) {}

    /// A new identifier, never null, random: two of them are equal with a chance of 1 in 2^64.
    static UT_Id create();

    /// An identifier made from a text, never null: the same text always gives the same one (64-bit FNV-1a of its
    /// UTF-8).
    static UT_Id fromName(const QString& name);

    // NOLINTNEXTLINE(modernize-use-nullptr): the generated comparison has a literal 0, which is no pointer
    friend constexpr auto operator<=>(const UT_Id&, const UT_Id&) = default;

    constexpr bool isNull() const { return _value == 0; }
    constexpr std::uint64_t value() const { return _value; }

    /// The identifier as 16 lower-case hexadecimal digits.
    UT_String AsString() const;

    /// Reads what AsString() writes. Any other text leaves this identifier unchanged.
    ///
    /// @return whether the text was an identifier
    bool parseXml(const QString& text);

private:
    std::uint64_t _value = 0;
};
