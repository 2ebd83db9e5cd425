// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a crash leaves, and what the next start makes of it.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"

#include <QDir>
#include <QTimer>

namespace {

class RecoveryTest : public studio_testing::WindowTest
{
protected:
    // What a process that was killed leaves: the files without the lock.
    QString leaveAsAfterACrash() { return leaveAsAfterACrash(recovery.path(), QStringLiteral("crashed")); }
    QString leaveAsAfterACrash(const QString& recoveryFolder, const QString& name)
    {
        EXPECT_TRUE(window->autosave().keepNow().ok());
        const QStringList kept = QDir(recoveryFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        EXPECT_EQ(kept.size(), 1);
        const QString to = folder.filePath(name + QStringLiteral("/session"));
        copyFolder(QDir(recoveryFolder).filePath(kept.value(0)), to);
        QFile::remove(to + QStringLiteral("/lock"));
        return folder.filePath(name);
    }
    QString keptFolder() const
    {
        const QStringList kept = QDir(recovery.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        return recovery.filePath(kept.value(0) + QStringLiteral("/kept.scene"));
    }
    QString keptScene() const
    {
        const auto loaded = SIO_loadScene(keptFolder());
        return loaded ? xmlOf(*loaded->scene) : loaded.error().sentence();
    }
    static void copyFolder(const QString& from, const QString& to)
    {
        EXPECT_TRUE(QDir().mkpath(to));
        for (const QFileInfo& entry :
             QDir(from).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
            const QString target = to + QLatin1Char('/') + entry.fileName();
            if (entry.isDir())
                copyFolder(entry.filePath(), target);
            else
                QFile::copy(entry.filePath(), target);
        }
    }

    // The next start after a crash. @return whether something was recovered
    bool startAfter(const QString& left, const QString& answer)
    {
        window.reset();
        window = std::make_unique<MainWindow>(left);
        window->show();
        answerNext(answer);
        return window->offerRecovery();
    }
};

TEST_F(RecoveryTest, ASceneThatWasRecoveredIsAskedAbout)
{
    openDisc();
    change();
    const QString left = leaveAsAfterACrash();
    EXPECT_TRUE(startAfter(left, QStringLiteral("Recover")));
    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window->close());
    EXPECT_FALSE(asked.isEmpty());
}

TEST_F(RecoveryTest, ACrashLosesNothingThatWasKept)
{
    openDisc();
    change();
    const QString before = xmlOf(document().scene());
    const QString left = leaveAsAfterACrash();
    startAfter(left, QStringLiteral("Recover"));
    EXPECT_TRUE(asked.contains(QStringLiteral("never saved"))) << qPrintable(asked);
    EXPECT_EQ(xmlOf(document().scene()), before);
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_FALSE(window->messages().text().isEmpty());
}

TEST_F(RecoveryTest, ARecoveredSceneReplacesWhatOthersSavedSinceOnlyWhereToldTo)
{
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    change();
    const QString left = leaveAsAfterACrash();
    window.reset();
    auto others = SIO_loadScene(scene);
    ASSERT_TRUE(others);
    MO_frameRangeCmd(*others->scene, 1, 9)->execute();
    ASSERT_TRUE(SIO_saveScene(*others->scene, scene));
    const QString theirs = xmlOf(*others->scene);

    startAfter(left, QStringLiteral("Recover"));
    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window->saveTo(scene));
    EXPECT_TRUE(asked.contains(QStringLiteral("Another program saved \"disc\""))) << qPrintable(asked);
    EXPECT_EQ(xmlOf(*SIO_loadScene(scene)->scene), theirs);
}

TEST_F(RecoveryTest, ARecoveredSceneIsSavedWithoutAQuestionWhereNobodyElseSaved)
{
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    change();
    const QString left = leaveAsAfterACrash();
    startAfter(left, QStringLiteral("Recover"));
    asked.clear();
    EXPECT_TRUE(window->saveTo(scene));
    EXPECT_EQ(asked, QString());
    EXPECT_EQ(xmlOf(*SIO_loadScene(scene)->scene), xmlOf(document().scene()));
}

TEST_F(RecoveryTest, ASceneKeepsItsNameThroughASecondCrash)
{
    openDisc();
    change();
    QString left = leaveAsAfterACrash();
    for (int crash = 0; crash < 2; ++crash) {
        startAfter(left, QStringLiteral("Recover"));
        EXPECT_TRUE(asked.contains(QStringLiteral("\"disc\""))) << qPrintable(asked);
        EXPECT_EQ(document().title(), QStringLiteral("disc"));
        left = leaveAsAfterACrash(left, QStringLiteral("crashed again %1").arg(crash));
    }
}

TEST_F(RecoveryTest, ADrawingThatNobodyChangedIsNotKept)
{
    openDisc();
    ASSERT_TRUE(window->autosave().keepNow().ok());
    EXPECT_TRUE(QDir(recovery.path()).isEmpty()) << "it can be opened again";
    change();
    ASSERT_TRUE(window->autosave().keepNow().ok());
    EXPECT_FALSE(QDir(recovery.path()).isEmpty());
    document().undo();
    EXPECT_TRUE(QDir(recovery.path()).isEmpty());
}

TEST_F(RecoveryTest, TheMinutesCopyIsTheSceneAsItWasWhateverChangesMeanwhile)
{
    openDisc();
    change();
    const QString before = xmlOf(document().scene());
    window->autosave().keepSoon();
    EXPECT_TRUE(window->autosave().isKeeping());
    change();
    const QString after = xmlOf(document().scene());
    ASSERT_NE(before, after);
    ASSERT_TRUE(studio_testing::waitUntil([this] { return !window->autosave().isKeeping(); }));
    EXPECT_EQ(keptScene(), before);
    window->autosave().keepSoon();
    ASSERT_TRUE(studio_testing::waitUntil([this] { return !window->autosave().isKeeping(); }));
    EXPECT_EQ(keptScene(), after) << "what changed meanwhile is kept a minute later";
    window->autosave().keepSoon();
    EXPECT_FALSE(window->autosave().isKeeping()) << "nothing changed since";
}

TEST_F(RecoveryTest, AMinuteThatEndsDuringAMovementIsMadeUpForSoonAfterIt)
{
    openDisc();
    change();
    auto* const minute = window->autosave().findChild<QTimer*>(QStringLiteral("autosaveTimer"));
    ASSERT_NE(minute, nullptr);
    const QPoint place(1, window->height() - 2);
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    minute->start(0);
    ASSERT_TRUE(studio_testing::waitUntil([&] { return minute->interval() > 0; }));
    EXPECT_LE(minute->interval(), 5000);
    EXPECT_FALSE(window->autosave().isKeeping());
    EXPECT_TRUE(QDir(recovery.path()).isEmpty());
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    const auto isAMinute = [&] { return minute->interval() == Autosave::kIntervalSeconds * 1000; };
    ASSERT_TRUE(studio_testing::waitUntil(isAMinute));
    ASSERT_TRUE(studio_testing::waitUntil([&] { return !window->autosave().isKeeping(); }));
    EXPECT_EQ(keptScene(), xmlOf(document().scene()));
}

TEST_F(RecoveryTest, ACopyOnItsWayIsGivenUpWithTheWorkThatItHolds)
{
    openDisc();
    change();
    window->autosave().keepSoon();
    ASSERT_TRUE(window->autosave().isKeeping());
    document().undo();
    EXPECT_FALSE(window->autosave().isKeeping());
    EXPECT_TRUE(QDir(recovery.path()).isEmpty());
    document().redo();
    ASSERT_TRUE(window->autosave().keepNow().ok());
    EXPECT_EQ(keptScene(), xmlOf(document().scene()));
}

TEST_F(RecoveryTest, ACopyThatCannotBeStoredIsTold)
{
    openDisc();
    change();
    window->autosave().keepSoon();
    ASSERT_TRUE(studio_testing::waitUntil([this] { return !window->autosave().isKeeping(); }));
    // A file lies where the scene's folder is to be.
    QDir kept(keptFolder());
    ASSERT_TRUE(kept.removeRecursively());
    QFile file(kept.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    window->messages().clear();
    change();
    window->autosave().keepSoon();
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_FALSE(window->autosave().isKeeping());
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("kept.scene")))
        << window->messages().text().toStdString();
}

TEST_F(RecoveryTest, WhatACrashLeftCanBeDiscarded)
{
    openDisc();
    change();
    const QString left = leaveAsAfterACrash();
    startAfter(left, QStringLiteral("Discard"));
    EXPECT_TRUE(window->autosave().left().isEmpty());
    EXPECT_TRUE(document().scene().root().modules().empty());
}

TEST_F(RecoveryTest, AnOrderlyEndLeavesNothingToRecover)
{
    openDisc();
    change();
    ASSERT_TRUE(window->autosave().keepNow().ok());
    EXPECT_FALSE(QDir(recovery.path()).isEmpty());
    window.reset();
    EXPECT_TRUE(QDir(recovery.path()).isEmpty());
}

TEST_F(RecoveryTest, WhatAnotherWindowKeepsIsNotOffered)
{
    openDisc();
    change();
    ASSERT_TRUE(window->autosave().keepNow().ok());
    MainWindow other(recovery.path());
    EXPECT_TRUE(other.autosave().left().isEmpty());
}

} // namespace
