// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names in messages.
#include "jobs/text/NameList.h"

#include <gtest/gtest.h>

namespace {

QStringList numbered(int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names << QString::number(i);
    return names;
}

TEST(NameList, JoinsNamesByCommas)
{
    EXPECT_EQ(namesForPeople({}).toStdString(), "");
    EXPECT_EQ(namesForPeople({QStringLiteral("body")}).toStdString(), "body");
    EXPECT_EQ(namesForPeople({QStringLiteral("body"), QStringLiteral("head")}).toStdString(), "body, head");
}

TEST(NameList, EndsWithDotsAfterThirtyNames)
{
    EXPECT_TRUE(namesForPeople(numbered(30)).endsWith(QLatin1String("29, 30")));
    EXPECT_TRUE(namesForPeople(numbered(31)).endsWith(QLatin1String("29, 30, ...")));
    EXPECT_EQ(namesForPeople(numbered(320)), namesForPeople(numbered(31)));
}

} // namespace
