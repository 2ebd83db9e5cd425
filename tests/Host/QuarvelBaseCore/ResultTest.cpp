// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Errors: kinds for programs, sentences for people.
#include "QuarvelBaseCore/UT_Result.h"

#include <gtest/gtest.h>

namespace {

TEST(Error, KeepsItsKindOnItsWayOut)
{
    const UT_Error error = UT_noMemory(QStringLiteral("9 x 9 pixels"), QStringLiteral("choose a smaller size"))
                               .at(QStringLiteral("frame 3"))
                               .at(QStringLiteral("walk.scene"));
    EXPECT_EQ(error.kind, UT_ErrorKind::NO_MEMORY);
    EXPECT_EQ(error.sentence(),
              QStringLiteral("walk.scene: frame 3: not enough memory for 9 x 9 pixels; choose a smaller "
                             "size"));
}

TEST(Error, HasItsTextAsSentenceWhereNothingElseIsKnown)
{
    EXPECT_EQ((UT_Error{QStringLiteral("the file is empty")}).sentence(), QStringLiteral("the file is empty"));
    EXPECT_EQ((UT_Error{QStringLiteral("the file is empty")}).kind, UT_ErrorKind::FAILED);
    EXPECT_EQ(UT_stopped().kind, UT_ErrorKind::STOPPED);
}

TEST(Result, OfWorkThatUsesUpTheMemoryIsAnError)
{
    const auto work = [](bool fails) {
        return UT_withinMemory(QStringLiteral("it"), QStringLiteral("do less"), [&]() -> UT_Result<int> {
            if (fails)
                throw std::bad_alloc();
            return 5;
        });
    };
    EXPECT_EQ(*work(false), 5);
    EXPECT_EQ(work(true).error().kind, UT_ErrorKind::NO_MEMORY);
}

} // namespace
