// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is proposed to somebody who mistyped a word.
#include "jobs/text/NearestWord.h"

#include <gtest/gtest.h>

namespace {

std::string nearest(const char* typed)
{
    static const QStringList words = {QStringLiteral("size"), QStringLiteral("pad"), QStringLiteral("bevel"),
                                      QStringLiteral("bevel-multiplier"), QStringLiteral("o")};
    return nearestWord(QString::fromUtf8(typed), words).toStdString();
}

} // namespace

TEST(NearestWord, IsTheOneWithTwoLettersSwapped)
{
    EXPECT_EQ(nearest("siez"), "size");
}

TEST(NearestWord, IsTheOneWithALetterTooManyOrTooFewOrAnother)
{
    EXPECT_EQ(nearest("ppad"), "pad");
    EXPECT_EQ(nearest("bevl"), "bevel");
    EXPECT_EQ(nearest("sise"), "size");
    EXPECT_EQ(nearest("bevel_multiplier"), "bevel-multiplier");
}

TEST(NearestWord, IsNoneWhereNobodyCouldMeanIt)
{
    EXPECT_EQ(nearest("zebra"), "");
    EXPECT_EQ(nearest(""), "");
}
