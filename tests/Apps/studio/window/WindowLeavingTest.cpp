// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Leaving a scene, by closing the window or by opening another file: when the window asks, and what the answers do.
#include "Apps/studio/window/WindowTesting.h"

namespace {

using WindowLeavingTest = studio_testing::WindowTest;

TEST_F(WindowLeavingTest, AsksAndCancelStays)
{
    openDisc();
    change();
    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window->close());
    EXPECT_FALSE(asked.isEmpty());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(WindowLeavingTest, NamesTheDrawingThatTheSceneWasMadeOf)
{
    drop({write(QStringLiteral("fox.svg"), studio_testing::kDisc)});
    ASSERT_TRUE(waitForPicture());
    change();
    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(asked.contains(QStringLiteral("\"fox\" has changes"))) << qPrintable(asked);
}

TEST_F(WindowLeavingTest, AsksAndDiscardLeaves)
{
    openDisc();
    change();
    answerNext(QMessageBox::Discard);
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(asked.isEmpty());
}

TEST_F(WindowLeavingTest, AsksNothingAboutWhatNobodyTouched)
{
    openDisc();
    answerNext(QMessageBox::Cancel);
    drop({write(QStringLiteral("other.svg"), studio_testing::kDisc)});
    ASSERT_TRUE(waitForPicture());
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("other")));
    // A change that was taken back is none.
    change();
    document().undo();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(asked, QString());
}

TEST_F(WindowLeavingTest, AsksAndSaveSaves)
{
    openDisc();
    const QString saved = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(saved));
    change();
    const QString after = xmlOf(document().scene());
    answerNext(QMessageBox::Save);
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(asked.contains(QStringLiteral("disc")));
    renew();
    drop({saved});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(xmlOf(document().scene()), after);
}

TEST_F(WindowLeavingTest, AsksNothingAboutWhatIsSaved)
{
    openDisc();
    ASSERT_TRUE(window->saveTo(folder.filePath(QStringLiteral("disc.scene"))));
    EXPECT_TRUE(window->close());
}

} // namespace
