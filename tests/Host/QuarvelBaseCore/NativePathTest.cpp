// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths for functions of the system.
#include "QuarvelBaseCore/UT_NativePath.h"

#include <QDir>

#include <gtest/gtest.h>

#ifdef Q_OS_WIN

TEST(NativePath, HasThePrefixForAnyLength)
{
    EXPECT_EQ(UT_nativePath(QStringLiteral("C:/art/walk.scene")).wstring(), L"\\\\?\\C:\\art\\walk.scene");
    EXPECT_EQ(UT_nativePath(QStringLiteral("C:\\art\\..\\walk.scene")).wstring(), L"\\\\?\\C:\\walk.scene");
}

TEST(NativePath, NamesSharesByThePrefixOfTheirs)
{
    EXPECT_EQ(UT_nativePath(QStringLiteral("//server/films/walk")).wstring(), L"\\\\?\\UNC\\server\\films\\walk");
}

TEST(NativePath, KeepsAPrefix)
{
    EXPECT_EQ(UT_nativePath(QStringLiteral("\\\\?\\C:\\art")).wstring(), L"\\\\?\\C:\\art");
}

TEST(NativePath, BeginsInTheCurrentFolder)
{
    const QString here = QDir::toNativeSeparators(QDir::currentPath());
    EXPECT_EQ(UT_nativePath(QStringLiteral("n.png")).wstring(),
              (QStringLiteral("\\\\?\\") + here + "\\n.png").toStdWString());
}

#else

TEST(NativePath, IsTheNameInUtf8)
{
    EXPECT_EQ(UT_nativePath(QString::fromUtf8("art/B\xc3\xa4r.svg")).native(), "art/B\xc3\xa4r.svg");
}

#endif
