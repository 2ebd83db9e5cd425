// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whose colour table is decoded when.
#include "node/ObjectColours.h"

#include <gtest/gtest.h>

namespace {

const QString kRed = QStringLiteral("00000000000000a1:255:Red");
const QString kGrey = QStringLiteral("00000000000000a1:128:Red");

TEST(LatestColours, AreDecodedOnceForAllWhoAskForTheSameTable)
{
    const LatestColours latest;
    const auto first = latest.of(kRed);
    EXPECT_EQ(latest.of(kRed), first);
    QString copied = kRed;
    copied.detach();
    EXPECT_EQ(latest.of(copied), first) << "equal text in other memory";
}

TEST(LatestColours, FollowTheTableAndLeaveOlderOnesToTheirHolders)
{
    const LatestColours latest;
    const auto red = latest.of(kRed);
    const auto grey = latest.of(kGrey);
    ASSERT_EQ(grey->records().size(), 1U);
    EXPECT_EQ(grey->records().front().value, 128);
    ASSERT_EQ(red->records().size(), 1U);
    EXPECT_EQ(red->records().front().value, 255);
}

TEST(LatestColours, OfAnEmptyTableAreNone)
{
    const LatestColours latest;
    ASSERT_NE(latest.of(QString()), nullptr);
    EXPECT_TRUE(latest.of(QString())->records().empty());
    EXPECT_EQ(latest.of(kRed)->records().size(), 1U);
    EXPECT_TRUE(latest.of(QString())->records().empty());
}

} // namespace
