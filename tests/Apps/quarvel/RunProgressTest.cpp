// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a run over drawings says of its progress.
#include "RunProgress.h"

#include <gtest/gtest.h>

namespace {

std::string said(int done, std::size_t all, double fraction, double seconds)
{
    return RunProgress::text(done, all, fraction, seconds, QStringLiteral("hero.svg")).toStdString();
}

TEST(RunProgress, NamesTheOnlyDrawing)
{
    EXPECT_EQ(said(0, 1, 0.5, 100.0), "hero.svg");
}

TEST(RunProgress, CountsManyDrawings)
{
    EXPECT_EQ(said(12, 480, 0.025, 1.0), "12 of 480: hero.svg");
}

TEST(RunProgress, SaysHowLongTheRestTakesAtTheSpeedSoFar)
{
    EXPECT_EQ(said(1, 4, 0.25, 10.0), "1 of 4, 30 s left: hero.svg");
    EXPECT_EQ(said(120, 480, 0.25, 100.0), "120 of 480, 5 min 00 s left: hero.svg");
    EXPECT_EQ(said(1, 480, 1.0 / 480.0, 15.2), "1 of 480, 2 h 01 min left: hero.svg");
    EXPECT_EQ(said(480, 480, 1.0, 100.0), "480 of 480, 0 s left: hero.svg");
}

TEST(RunProgress, GuessesNothingBeforeAnythingIsDone)
{
    EXPECT_EQ(said(0, 4, 0.0, 10.0), "0 of 4: hero.svg");
}

} // namespace
