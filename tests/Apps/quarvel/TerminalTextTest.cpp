// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a terminal would obey is written out.
#include "TerminalText.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(VisibleText, WritesOutControlCharacters)
{
    EXPECT_EQ(visibleText(text("a\x1b[2Jb")), text("a\\x1b[2Jb"));
    EXPECT_EQ(visibleText(text("a\r\x07\x08\x7f")), text("a\\x0d\\x07\\x08\\x7f"));
    EXPECT_EQ(visibleText(QString(QChar(0))), text("\\x00"));
    // C1: one character that begins a sequence by itself.
    EXPECT_EQ(visibleText(text("\xc2\x9b"
                               "31m")),
              text("\\x9b"
                   "31m"));
}

TEST(VisibleText, WritesOutWhatChangesTheDirectionOfWriting)
{
    EXPECT_EQ(visibleText(text("a\xe2\x80\xae"
                               "gpj.exe")),
              text("a\\u202egpj.exe"));
    EXPECT_EQ(visibleText(text("\xe2\x81\xa6\xe2\x81\xa9\xe2\x80\x8f\xd8\x9c")), text("\\u2066\\u2069\\u200f\\u061c"));
}

TEST(VisibleText, LeavesAllOtherTextAlone)
{
    const QString plain =
        text("a\tb\nH\xc3\xa9ros \xe6\xbc\xa2 \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xf0\x9f\x98\x80 \\x1b");
    EXPECT_EQ(visibleText(plain), plain);
}
