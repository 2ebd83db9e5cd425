// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Warnings of a scene that can be loaded: each reason once.
#include "QuarvelSceneIO/private/SIO_Warnings.h"

#include <gtest/gtest.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

TEST(Warnings, AReasonIsSaidOnceWithItsFirstPlaceAndACount)
{
    SIO_Warnings warnings;
    EXPECT_EQ(warnings.lines(), QStringList());
    warnings.add(text("a, line 1"), text("x"));
    warnings.add(text("a, line 2"), text("y"));
    warnings.add(text("b, line 3"), text("x"));
    warnings.add(text("b, line 4"), text("x"));
    EXPECT_EQ(warnings.lines(), QStringList({text("a, line 1: x (and 2 times more)"), text("a, line 2: y")}));
}

TEST(Warnings, OfTooManyReasonsThereIsACount)
{
    SIO_Warnings warnings;
    const int most = static_cast<int>(SIO_Warnings::kMost);
    for (int i = 0; i < most + 7; ++i)
        warnings.add(text("a"), QString::number(i));
    warnings.add(text("a"), text("0"));
    const QStringList lines = warnings.lines();
    ASSERT_EQ(lines.size(), most + 1);
    EXPECT_EQ(lines.front(), text("a: 0 (and 1 times more)"));
    EXPECT_EQ(lines.back(), text("and 7 warnings of other kinds"));
}

TEST(Warnings, AReasonThatIsVeryLongIsCut)
{
    SIO_Warnings warnings;
    warnings.add(text("a"), QString(100000, u'x'));
    EXPECT_LT(warnings.lines().front().size(), 1000);
}
