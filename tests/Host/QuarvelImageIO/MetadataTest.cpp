// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The texts of a picture: order, replacement, and which keys every format can keep.
#include "QuarvelImageIO/IIO_Metadata.h"

#include <gtest/gtest.h>

TEST(Metadata, KeepsTheOrderInWhichKeysWereFirstSet)
{
    IIO_Metadata metadata;
    metadata.set(QStringLiteral("b"), QStringLiteral("1"));
    metadata.set(QStringLiteral("a"), QStringLiteral("2"));
    metadata.set(QStringLiteral("b"), QStringLiteral("3"));
    const std::vector<IIO_Metadata::Entry> expected = {{QStringLiteral("b"), QStringLiteral("3")},
                                                       {QStringLiteral("a"), QStringLiteral("2")}};
    EXPECT_EQ(metadata.entries(), expected);
}

TEST(Metadata, AddTakesTheOthersValues)
{
    IIO_Metadata metadata;
    metadata.set(QStringLiteral("kept"), QStringLiteral("1"));
    metadata.set(QStringLiteral("both"), QStringLiteral("1"));
    IIO_Metadata other;
    other.set(QStringLiteral("new"), QStringLiteral("2"));
    other.set(QStringLiteral("both"), QStringLiteral("2"));
    metadata.add(other);
    EXPECT_EQ(metadata.value(QStringLiteral("kept")), QStringLiteral("1"));
    EXPECT_EQ(metadata.value(QStringLiteral("both")), QStringLiteral("2"));
    EXPECT_EQ(metadata.value(QStringLiteral("new")), QStringLiteral("2"));
    EXPECT_EQ(metadata.entries().size(), 3U);
}

TEST(Metadata, AKeyThatIsNotThereHasNoText)
{
    EXPECT_TRUE(IIO_Metadata().value(QStringLiteral("x")).isEmpty());
}

TEST(Metadata, KeysAreShortPrintableLatinTexts)
{
    EXPECT_TRUE(IIO_Metadata::isValidKey(QStringLiteral("Creation Time")));
    EXPECT_TRUE(IIO_Metadata::isValidKey(QString(79, QLatin1Char('k'))));
    EXPECT_FALSE(IIO_Metadata::isValidKey(QString(80, QLatin1Char('k'))));
    EXPECT_FALSE(IIO_Metadata::isValidKey(QString()));
    EXPECT_FALSE(IIO_Metadata::isValidKey(QStringLiteral(" k")));
    EXPECT_FALSE(IIO_Metadata::isValidKey(QStringLiteral("a\nb")));
    EXPECT_FALSE(IIO_Metadata::isValidKey(QString(QChar(0x0416))));
}
