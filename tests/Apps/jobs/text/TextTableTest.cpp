// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Tables for a terminal.
#include "jobs/text/TextTable.h"

#include <gtest/gtest.h>

namespace {

QStringList row(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char('|'));
}

TEST(TextTable, AlignsColumnsAndEndsLinesWithoutSpaces)
{
    const QStringList lines = tableLines({row("number|name|bevel"), row("1|left arm|40"), row("12|hat|")});
    EXPECT_EQ(lines.join(QLatin1Char('\n')).toStdString(), "  number  name      bevel\n"
                                                           "  1       left arm  40\n"
                                                           "  12      hat");
}

TEST(TextTable, HasNoLinesWithoutRows)
{
    EXPECT_TRUE(tableLines({}).isEmpty());
}

} // namespace
