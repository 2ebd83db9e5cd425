// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The digest of a drawing's files.
#include "Apps/jobs/import/Files.h"

#include "jobs/import/DrawingDigest.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

TEST(DrawingDigest, OfOneFileIsTheOneThatOtherToolsGive)
{
    const files::Folder folder;
    // The example of FIPS 180-2.
    EXPECT_EQ(drawingDigest({folder.write(QStringLiteral("a"), "abc")}),
              QStringLiteral("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
}

TEST(DrawingDigest, OfSeveralFilesTellsTheirOrderAndBorders)
{
    const files::Folder folder;
    const QString a = folder.write(QStringLiteral("a"), "abc");
    const QString b = folder.write(QStringLiteral("b"), "d");
    const QString c = folder.write(QStringLiteral("c"), "ab");
    const QString d = folder.write(QStringLiteral("d"), "cd");
    EXPECT_NE(drawingDigest({a, b}), drawingDigest({b, a}));
    EXPECT_NE(drawingDigest({a, b}), drawingDigest({c, d}));
    EXPECT_EQ(drawingDigest({a, b}), drawingDigest({folder.write(QStringLiteral("e"), "abc"), b}));
}

TEST(DrawingDigest, OfAFileThatIsGoneIsEmpty)
{
    const files::Folder folder;
    EXPECT_EQ(drawingDigest({folder.write(QStringLiteral("a"), "abc"), folder.path(QStringLiteral("none"))}),
              QString());
}

// A pipe would keep the program waiting, and what came through it would be gone when the drawing is read.
TEST(DrawingDigest, OfWhatIsNoOrdinaryFileIsEmpty)
{
    const files::Folder folder;
    const QString pipe = folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString endless = folder.path(QStringLiteral("endless"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), endless));
    EXPECT_EQ(drawingDigest({pipe}), QString());
    EXPECT_EQ(drawingDigest({endless}), QString());
}

} // namespace
