// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files appear complete or not at all, whatever fails, and the error says what to do.
#include "Limits.h"
#include "Pictures.h"

#include "QuarvelImageIO/IIO_AtomicFile.h"

namespace {

using AtomicFile = FolderTest;

TEST_F(AtomicFile, AppearsUnderItsNameOnlyAfterCommit)
{
    IIO_AtomicFile file(path(QStringLiteral("new")));
    ASSERT_TRUE(file.open().ok());
    file.device().write("content");
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("new"))));
    ASSERT_TRUE(file.commit().ok());
    EXPECT_EQ(bytes(QStringLiteral("new")), "content");
    EXPECT_EQ(files(), QStringList{QStringLiteral("new")});
}

TEST_F(AtomicFile, ReplacesAnOldFileInOneStep)
{
    write(QStringLiteral("f"), "old");
    IIO_AtomicFile file(path(QStringLiteral("f")));
    ASSERT_TRUE(file.open().ok());
    file.device().write("newer");
    EXPECT_EQ(bytes(QStringLiteral("f")), "old");
    ASSERT_TRUE(file.commit().ok());
    EXPECT_EQ(bytes(QStringLiteral("f")), "newer");
}

TEST_F(AtomicFile, LeavesNothingBehindWhenItIsNotCommitted)
{
    write(QStringLiteral("f"), "old");
    {
        IIO_AtomicFile file(path(QStringLiteral("f")));
        ASSERT_TRUE(file.open().ok());
        file.device().write("half");
    }
    EXPECT_EQ(bytes(QStringLiteral("f")), "old");
    EXPECT_EQ(files(), QStringList{QStringLiteral("f")});
}

TEST_F(AtomicFile, AnEncoderThatCouldNotGoBackLeavesTheOldFile)
{
    write(QStringLiteral("f"), "old");
    IIO_AtomicFile file(path(QStringLiteral("f")));
    ASSERT_TRUE(file.open().ok());
    file.device().write("new, with a hole in its header");
    file.device().seek(-1);
    EXPECT_FALSE(file.commit().ok());
    EXPECT_EQ(bytes(QStringLiteral("f")), "old");
    EXPECT_EQ(files(), QStringList{QStringLiteral("f")});
}

TEST_F(AtomicFile, AbandonLeavesTheOldFile)
{
    write(QStringLiteral("f"), "old");
    {
        IIO_AtomicFile file(path(QStringLiteral("f")));
        ASSERT_TRUE(file.open().ok());
        file.device().write("half");
        EXPECT_TRUE(file.abandon().ok());
    }
    EXPECT_EQ(bytes(QStringLiteral("f")), "old");
    EXPECT_EQ(files(), QStringList{QStringLiteral("f")});
}

// The sizes cover a write that fails at once, a partial write, and a write that fails only when buffers are flushed.
class FullDisk : public FolderTest, public testing::WithParamInterface<int>
{};

TEST_P(FullDisk, IsReportedAndLeavesTheOldFile)
{
    write(QStringLiteral("f"), "old");
    {
        const FileSizeLimit limit(100000);
        IIO_AtomicFile file(path(QStringLiteral("f")));
        ASSERT_TRUE(file.open().ok());
        const QByteArray piece(GetParam(), 'x');
        for (int written = 0; written <= 150000; written += GetParam())
            file.device().write(piece);
        const auto committed = file.commit();
        ASSERT_FALSE(committed.ok());
        EXPECT_TRUE(committed.error().text.contains(path(QStringLiteral("f"))));
        EXPECT_TRUE(committed.error().text.contains(QStringLiteral("File too large")))
            << committed.error().text.toStdString();
    }
    EXPECT_EQ(bytes(QStringLiteral("f")), "old");
    EXPECT_EQ(files(), QStringList{QStringLiteral("f")});
}

INSTANTIATE_TEST_SUITE_P(PieceSizes, FullDisk, testing::Values(7, 1000, 16384, 99999, 150000));

TEST_F(AtomicFile, AWriteAfterTheFailedOneDoesNotHideIt)
{
    const FileSizeLimit limit(50000);
    IIO_AtomicFile file(path(QStringLiteral("f")));
    ASSERT_TRUE(file.open().ok());
    EXPECT_EQ(file.device().write(QByteArray(60000, 'x')), 60000);
    file.device().seek(0);
    file.device().write("y");
    EXPECT_FALSE(file.commit().ok());
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("f"))));
}

QString openError(const QString& path)
{
    IIO_AtomicFile file(path);
    const auto opened = file.open();
    return opened.ok() ? QStringLiteral("(opened)") : opened.error().text;
}

TEST_F(AtomicFile, AFolderIsNoFile)
{
    const QString text = openError(path(QString()));
    EXPECT_TRUE(text.contains(QStringLiteral("it is a folder"))) << text.toStdString();
}

TEST_F(AtomicFile, AMissingFolderIsNamed)
{
    const QString text = openError(path(QStringLiteral("no/such/f.png")));
    EXPECT_TRUE(text.contains(path(QStringLiteral("no/such")) + QStringLiteral("\" does not exist")))
        << text.toStdString();
}

TEST_F(AtomicFile, AFileInPlaceOfTheFolderIsNamed)
{
    write(QStringLiteral("plain"), "x");
    const QString text = openError(path(QStringLiteral("plain/f.png")));
    EXPECT_TRUE(text.contains(QStringLiteral("is not a folder"))) << text.toStdString();
}

TEST_F(AtomicFile, ADeviceIsNotReplaced)
{
    const QString text = openError(QStringLiteral("/dev/null"));
    EXPECT_TRUE(text.contains(QStringLiteral("it is a device"))) << text.toStdString();
}

TEST_F(AtomicFile, AnEmptyNameIsRefused)
{
    const QString text = openError(QString());
    EXPECT_TRUE(text.contains(QStringLiteral("the name is empty"))) << text.toStdString();
}

// Everybody may read and enter; only the given ones may write.
void permit(const QString& path, QFile::Permissions writers)
{
    const auto readers = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto enterers = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(path, readers | enterers | writers));
}

TEST_F(AtomicFile, AFolderWithoutPermissionIsNamed)
{
    ASSERT_TRUE(QDir().mkdir(path(QStringLiteral("closed"))));
    permit(path(QStringLiteral("closed")), {});
    permit(path(QString()), QFile::WriteOwner);
    QString text;
    {
        const OrdinaryUser user;
        text = openError(path(QStringLiteral("closed/f.png")));
    }
    EXPECT_TRUE(text.contains(QStringLiteral("files may not be made in the folder"))) << text.toStdString();
}

TEST_F(AtomicFile, AProtectedFileIsNotReplaced)
{
    write(QStringLiteral("f"), "old");
    permit(path(QStringLiteral("f")), {});
    permit(path(QString()), QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther);
    QString text;
    {
        const OrdinaryUser user;
        text = openError(path(QStringLiteral("f")));
    }
    EXPECT_TRUE(text.contains(QStringLiteral("may not be changed"))) << text.toStdString();
    EXPECT_EQ(bytes(QStringLiteral("f")), "old");
}

TEST_F(AtomicFile, ALinkStaysALink)
{
    write(QStringLiteral("target"), "old");
    ASSERT_TRUE(QFile::link(path(QStringLiteral("target")), path(QStringLiteral("link"))));
    IIO_AtomicFile file(path(QStringLiteral("link")));
    ASSERT_TRUE(file.open().ok());
    file.device().write("new");
    ASSERT_TRUE(file.commit().ok());
    EXPECT_EQ(bytes(QStringLiteral("target")), "new");
    EXPECT_TRUE(QFileInfo(path(QStringLiteral("link"))).isSymLink());
}

} // namespace
