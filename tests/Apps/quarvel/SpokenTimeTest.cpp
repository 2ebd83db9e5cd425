// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Times in words.
#include "SpokenTime.h"

#include <gtest/gtest.h>

namespace {

TEST(SpokenTime, FitsItsLength)
{
    EXPECT_EQ(spokenTime(0.0).toStdString(), "0 s");
    EXPECT_EQ(spokenTime(11.2).toStdString(), "12 s");
    EXPECT_EQ(spokenTime(185.0).toStdString(), "3 min 05 s");
    EXPECT_EQ(spokenTime(7620.0).toStdString(), "2 h 07 min");
}

TEST(SpokenTime, ChangesUnitsAtFullMinutesAndHours)
{
    EXPECT_EQ(spokenTime(59.0).toStdString(), "59 s");
    EXPECT_EQ(spokenTime(59.5).toStdString(), "1 min 00 s");
    EXPECT_EQ(spokenTime(3599.5).toStdString(), "1 h 00 min");
}

} // namespace
