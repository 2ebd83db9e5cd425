// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// UT_String: text as the host's libraries pass it around, UTF-8 inside, with conversions from and to QString.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <QString>

#include <compare>
#include <string>

/// A text in UTF-8.
class QUARVELBASECORE_EXPORT UT_String
{
public:
    UT_String() = default;
    UT_String(const char* utf8) : _utf8(utf8 ? utf8 : "") {}
    UT_String(std::string utf8) : _utf8(std::move(utf8)) {}
    explicit UT_String(const QString& text);

    friend bool operator==(const UT_String&, const UT_String&) = default;
    friend auto operator<=>(const UT_String&, const UT_String&) = default;

    bool isEmpty() const { return _utf8.empty(); }
    /// The bytes, ended by a NUL; valid until this string is changed.
    const char* c_str() const { return _utf8.c_str(); }
    QString ToQString() const;

private:
    std::string _utf8;
};
