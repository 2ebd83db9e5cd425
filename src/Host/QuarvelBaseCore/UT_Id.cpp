// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Making identifiers, and their text.
#include "QuarvelBaseCore/UT_Id.h"

#include <QRandomGenerator>

#include <algorithm>

namespace {

constexpr qsizetype kDigits = 16;

bool isLowerHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f');
}

} // namespace

UT_Id UT_Id::create()
{
    UT_Id id;
    while (id.isNull())
        id = UT_Id(QRandomGenerator::global()->generate64());
    return id;
}

UT_Id UT_Id::fromName(const QString& name)
{
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : name.toUtf8()) {
        hash ^= static_cast<unsigned char>(byte);
        hash *= 0x100000001b3U;
    }
    return UT_Id(hash == 0 ? 1 : hash);
}

UT_String UT_Id::AsString() const
{
    return UT_String(QStringLiteral("%1").arg(_value, kDigits, 16, QLatin1Char('0')));
}

bool UT_Id::parseXml(const QString& text)
{
    if (text.size() != kDigits || !std::all_of(text.begin(), text.end(), isLowerHexDigit))
        return false;
    _value = text.toULongLong(nullptr, 16);
    return true;
}
