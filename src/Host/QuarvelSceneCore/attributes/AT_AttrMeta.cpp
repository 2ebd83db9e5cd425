// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Metadata of attributes.
#include "QuarvelSceneCore/attributes/AT_AttrMeta.h"

#include <algorithm>
#include <cassert>

namespace {

[[maybe_unused]] bool isKey(const QString& text)
{
    const auto isLetter = [](QChar c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); };
    const auto isPart = [&](QChar c) { return isLetter(c) || (c >= u'0' && c <= u'9') || c == u'_'; };
    return !text.isEmpty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), isPart);
}

} // namespace

AT_AttrMeta::AT_AttrMeta(const QString& key, const QString& label) : _key(key), _label(label)
{
    assert(isKey(key));
}

AT_AttrMeta::~AT_AttrMeta() = default;
