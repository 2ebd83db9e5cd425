// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "NameEncoding.h"

#include <gtest/gtest.h>

namespace {

TEST(NameEncoding, GivesTheBytesBack)
{
    // Text of all lengths, a byte alone, a character cut short, one that is longer than it need be, half a pair.
    for (const QByteArray bytes : {"a\xC3\xA9\xE4\xB8\x80\xF0\x9F\x98\x80", "caf\xE9.svg", "\xE4\xB8", "\xC0\xAF",
                                   "\xED\xB2\x80", "\xF0\x9F\x98\x80\xE9", ""}) {
        const QString name = nameOf(bytes);
        EXPECT_EQ(bytesOf(name), bytes);
        EXPECT_EQ(isText(name), bytes.isValidUtf8()) << bytes.toPercentEncoding().toStdString();
    }
}

TEST(NameEncoding, EscapesOnlyNamesThatAreNoText)
{
    EXPECT_EQ(escapedName(nameOf("50%/caf\xE9%.svg")), QStringLiteral("50%/caf%E9%25.svg"));
    EXPECT_EQ(escapedName(nameOf("\xC3\xA9/\x80\xFF")), QStringLiteral("é/%80%FF"));
    EXPECT_EQ(escapedName(QStringLiteral("%.svg")), QStringLiteral("%.svg"));
}

TEST(NameEncoding, KeepsPairsTogether)
{
    // U+1F600 is the pair D83D DE00; U+104E9 has a second half that stands for a byte elsewhere: D801 DCE9.
    const QByteArray pair = "\xF0\x90\x93\xA9";
    EXPECT_TRUE(isText(nameOf(pair)));
    EXPECT_EQ(escapedName(nameOf(pair + "\xE9")), QString::fromUtf8(pair) + QStringLiteral("%E9"));
}

} // namespace
