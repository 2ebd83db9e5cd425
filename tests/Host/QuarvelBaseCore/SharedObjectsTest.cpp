// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What shared and weak pointers, results and the display's density promise.
#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelBaseCore/UT_SharedWeakBase.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>
#include <vector>

namespace {

struct Thing : UT_ShareBaseSafe
{
    explicit Thing(int* livingThings) : living(livingThings) { ++*living; }
    Thing(const Thing& other) : UT_ShareBaseSafe(other), living(other.living) { ++*living; }
    Thing& operator=(const Thing&) = delete;
    ~Thing() override { --*living; }

    int* living;
};

struct SpecialThing : Thing
{
    using Thing::Thing;
};

struct Observed : UT_SharedWeakBase
{
    int number = 7;
};

} // namespace

TEST(UT_SharedPtr, DeletesWithItsLastHolder)
{
    int living = 0;
    UT_SharedPtr<Thing> first = UT_makeShared<Thing>(&living);
    {
        const UT_SharedPtr<Thing> second = first;
        EXPECT_EQ(first->refCount(), 2);
        EXPECT_TRUE(first == second);
    }
    EXPECT_EQ(first->refCount(), 1);
    EXPECT_EQ(living, 1);
    first = nullptr;
    EXPECT_EQ(living, 0);
}

TEST(UT_SharedPtr, MovesWithoutCounting)
{
    int living = 0;
    UT_SharedPtr<Thing> from = UT_makeShared<Thing>(&living);
    const UT_SharedPtr<Thing> to = std::move(from);
    EXPECT_EQ(to->refCount(), 1);
}

TEST(UT_SharedPtr, SurvivesAssignmentToItself)
{
    int living = 0;
    UT_SharedPtr<Thing> thing = UT_makeShared<Thing>(&living);
    const UT_SharedPtr<Thing>& alias = thing;
    thing = alias;
    EXPECT_EQ(thing->refCount(), 1);
}

TEST(UT_SharedPtr, OfACopyStartsWithOneHolder)
{
    int living = 0;
    const UT_SharedPtr<Thing> one = UT_makeShared<Thing>(&living);
    const UT_SharedPtr<Thing> again = one;
    const UT_SharedPtr<Thing> copy = UT_makeShared<Thing>(*one);
    EXPECT_EQ(copy->refCount(), 1);
    EXPECT_EQ(one->refCount(), 2);
}

TEST(UT_SharedPtr, CastsToWhatTheObjectIs)
{
    int living = 0;
    const UT_SharedPtr<Thing> special = UT_makeShared<SpecialThing>(&living);
    const UT_SharedPtr<Thing> plain = UT_makeShared<Thing>(&living);
    EXPECT_TRUE(special.dynamicCast<SpecialThing>());
    EXPECT_FALSE(plain.dynamicCast<SpecialThing>());
}

TEST(UT_SharedPtr, CountsHoldersOfSeveralThreads)
{
    int living = 0;
    const UT_SharedPtr<Thing> thing = UT_makeShared<Thing>(&living);
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([mine = thing] {
                for (int n = 0; n < 10000; ++n)
                    const UT_SharedPtr<Thing> another = mine;
            });
    }
    EXPECT_EQ(thing->refCount(), 1);
}

TEST(UT_WeakPtr, TurnsNullWithItsObject)
{
    auto object = std::make_unique<Observed>();
    const UT_WeakPtr<Observed> weak(object.get());
    const UT_WeakPtr<Observed> copy = weak;
    EXPECT_EQ(weak.get()->number, 7);
    object.reset();
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_FALSE(copy);
}

TEST(UT_WeakPtr, OfNothingIsNull)
{
    EXPECT_FALSE(UT_WeakPtr<Observed>());
    EXPECT_FALSE(UT_WeakPtr<Observed>(nullptr));
}

TEST(UT_Result, HoldsAValueOrAnError)
{
    const UT_Result<int> good = 5;
    const UT_Result<int> bad = UT_Error{QStringLiteral("no such number")};
    EXPECT_TRUE(good.ok());
    EXPECT_EQ(good.value(), 5);
    EXPECT_FALSE(bad.ok());
    EXPECT_EQ(bad.error().text, QStringLiteral("no such number"));
}

TEST(UT_Result, CarriesWhatCanOnlyBeMoved)
{
    UT_Result<std::unique_ptr<int>> result = std::make_unique<int>(3);
    const std::unique_ptr<int> taken = std::move(result.value());
    EXPECT_EQ(*taken, 3);
}

TEST(UT_Result, OfNothingIsSuccessUnlessThereIsAnError)
{
    EXPECT_TRUE(UT_Result<void>());
    EXPECT_FALSE(UT_Result<void>(UT_Error{QStringLiteral("disk full")}));
}

TEST(UT_DPI, ScalesLengthsToTheNearestPixel)
{
    UT_DPI_setFactor(1.5);
    EXPECT_EQ(UT_DPI_scale(5), 8); // 7.5
    EXPECT_EQ(UT_DPI_scale(QSize(10, 36)), QSize(15, 54));
    UT_DPI_setFactor(1.0);
    EXPECT_EQ(UT_DPI_scale(5), 5);
}

TEST(UT_DPI, TakesAFactorThatIsNotPositiveAsOne)
{
    UT_DPI_setFactor(-2.0);
    EXPECT_EQ(UT_DPI_factor(), 1.0);
    UT_DPI_setFactor(0.0);
    EXPECT_EQ(UT_DPI_factor(), 1.0);
}
