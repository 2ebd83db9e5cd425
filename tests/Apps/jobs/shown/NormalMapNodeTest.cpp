// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The texts of the node's tables.
#include "jobs/shown/NormalMapNode.h"

#include <gtest/gtest.h>

namespace {

std::string readBack(const char* table)
{
    return objectTableText(objectsOfTable(QString::fromLatin1(table))).toStdString();
}

TEST(ObjectTable, UsesTheLastOfSeveralRowsWithOneNumber)
{
    EXPECT_EQ(readBack("1:60:1:1;2:24:1:1;1:40:0.5:2"), "1:40:0.5:2;2:24:1:1");
}

TEST(ObjectTable, LeavesOutRowsThatTheNodeIgnores)
{
    EXPECT_EQ(readBack("0:60:1:1;-1:60:1:1;body:60:1:1;3:;2:24:1:1"), "2:24:1:1");
}

TEST(ObjectTable, GivesMissingValuesTheirDefaults)
{
    EXPECT_EQ(readBack("7"), "7:5:1:1");
    EXPECT_EQ(readBack("7:60"), "7:60:1:1");
}

TEST(ObjectTable, FindsAndReplacesRowsByNumber)
{
    std::vector<NormalMapObject> table{{1, 60.0, 1.0, 1.0}, {2, 24.0, 1.0, 1.0}};
    EXPECT_EQ(findRow(table, 3), nullptr);
    putRow(table, {3, 5.0, 1.0, 1.0});
    putRow(table, {1, 40.0, 1.0, 1.0});
    EXPECT_EQ(objectTableText(table).toStdString(), "1:40:1:1;2:24:1:1;3:5:1:1");
    ASSERT_NE(findRow(table, 3), nullptr);
    EXPECT_EQ(findRow(table, 3)->bevel, 5.0);
}

} // namespace
