// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// There are only a few entries, so a list with a linear search is enough.
#include "QuarvelImageIO/IIO_Metadata.h"

#include <algorithm>

void IIO_Metadata::set(const QString& key, const QString& value)
{
    const auto found = std::find_if(_entries.begin(), _entries.end(), [&](const Entry& e) { return e.first == key; });
    if (found == _entries.end())
        _entries.emplace_back(key, value);
    else
        found->second = value;
}

void IIO_Metadata::add(const IIO_Metadata& other)
{
    for (const auto& [key, value] : other._entries)
        set(key, value);
}

QString IIO_Metadata::value(const QString& key) const
{
    const auto found = std::find_if(_entries.begin(), _entries.end(), [&](const Entry& e) { return e.first == key; });
    return found == _entries.end() ? QString() : found->second;
}

bool IIO_Metadata::isValidKey(const QString& key)
{
    constexpr int kLongestKey = 79;
    const auto printable = [](QChar c) { return c.unicode() <= 0xff && c.isPrint(); };
    return !key.isEmpty() && key.size() <= kLongestKey && std::all_of(key.begin(), key.end(), printable) &&
           key.simplified() == key;
}
