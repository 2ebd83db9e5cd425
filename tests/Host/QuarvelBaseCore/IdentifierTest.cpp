// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What identifiers, their text and keys promise.
#include "QuarvelBaseCore/UT_DynKey.h"
#include "QuarvelBaseCore/UT_Id.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

TEST(UT_Id, IsNullFromTheStart)
{
    EXPECT_TRUE(UT_Id().isNull());
    EXPECT_EQ(UT_Id().AsString(), UT_String("0000000000000000"));
}

TEST(UT_Id, CreatesDifferentOnes)
{
    std::set<UT_Id> ids;
    for (int i = 0; i < 1000; ++i)
        ids.insert(UT_Id::create());
    EXPECT_EQ(ids.size(), 1000U);
    EXPECT_FALSE(ids.contains(UT_Id()));
}

TEST(UT_Id, OfANameIsItsFnvHash)
{
    EXPECT_EQ(UT_Id::fromName(QStringLiteral("a")).value(), 0xaf63dc4c8601ec8cU);
    EXPECT_EQ(UT_Id::fromName(QStringLiteral("foobar")).value(), 0x85944171f73967e8U);
}

TEST(UT_Id, WritesSixteenLowerCaseDigits)
{
    EXPECT_EQ(UT_Id(0xABCDEFU).AsString(), UT_String("0000000000abcdef"));
}

TEST(UT_Id, RefusesEveryOtherTextAndStaysAsItWas)
{
    const UT_Id before(42);
    for (const char* text : {"", "2a", "00000000000000000", "000000000000000A", "000000000000000g", " 00000000000000a",
                             "0x0000000000000a", "+00000000000000a"}) {
        UT_Id id = before;
        EXPECT_FALSE(id.parseXml(QString::fromLatin1(text))) << text;
        EXPECT_EQ(id, before) << text;
    }
}

RC_GTEST_PROP(UT_Id, ReadsWhatItWrote, (std::uint64_t value))
{
    UT_Id id;
    RC_ASSERT(id.parseXml(UT_Id(value).AsString().ToQString()));
    RC_ASSERT(id.value() == value);
}

TEST(UT_DynKey, IsEqualToItselfAlone)
{
    const UT_DynKey one("same");
    const UT_DynKey other("same");
    EXPECT_TRUE(one == one);
    EXPECT_FALSE(one == other);
    EXPECT_STREQ(one.name(), "same");
}

TEST(UT_String, KeepsUnicode)
{
    const QString text = QString::fromUtf8("Gr\u00fc\u00dfe \u4f60\u597d \U0001F600");
    EXPECT_EQ(UT_String(text).ToQString(), text);
    EXPECT_STREQ(UT_String(QString::fromUtf8("\u00fc")).c_str(), "\xc3\xbc");
}

TEST(UT_String, OfANullPointerIsEmpty)
{
    const char* nothing = nullptr;
    EXPECT_TRUE(UT_String(nothing).isEmpty());
}
