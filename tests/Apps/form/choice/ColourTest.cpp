// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Words for colours, which name objects.
#include "form/choice/Colour.h"

#include <gtest/gtest.h>

namespace {

QString wordFor(const char* colour)
{
    return colourWord(SeenColour::of(QColor(QString::fromLatin1(colour))));
}

TEST(ColourWord, IsWhatPeopleCallTheColour)
{
    EXPECT_EQ(wordFor("#ff0000"), QStringLiteral("red"));
    EXPECT_EQ(wordFor("#00ff00"), QStringLiteral("green"));
    EXPECT_EQ(wordFor("#0000ff"), QStringLiteral("blue"));
    EXPECT_EQ(wordFor("#ffff00"), QStringLiteral("yellow"));
    EXPECT_EQ(wordFor("#ffa500"), QStringLiteral("orange"));
    EXPECT_EQ(wordFor("#800080"), QStringLiteral("purple"));
    EXPECT_EQ(wordFor("#ffc0cb"), QStringLiteral("pink"));
    EXPECT_EQ(wordFor("#8b4513"), QStringLiteral("brown"));
}

} // namespace
