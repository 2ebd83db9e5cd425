// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Opening, saving, and what happens to files that are broken. WindowLeavingTest.cpp is about the end.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneIO/SIO_SceneFolder.h"
#include "studio/docks/graph/NodePanel.h"
#include "studio/window/StartPage.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolButton>

#include <algorithm>

namespace {

class WindowFilesTest : public studio_testing::WindowTest
{
protected:
    QAction* actionNamed(const QString& start) const
    {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->text().remove(QLatin1Char('&')).startsWith(start))
                return action;
        return nullptr;
    }
    // A folder of 50 drawings.
    QString writeLong()
    {
        EXPECT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("long")));
        for (int i = 1; i <= 50; ++i)
            write(QStringLiteral("long/walk_%1.svg").arg(i), studio_testing::kDisc);
        return folder.filePath(QStringLiteral("long"));
    }
};

TEST_F(WindowFilesTest, ADroppedDrawingIsSeenLit)
{
    openDisc();
    EXPECT_EQ(viewer().kind(), PictureKind::LIT);
    EXPECT_TRUE(viewer().isVisible());
    const QImage lit = viewer().shownImage();
    ASSERT_EQ(lit.size(), QSize(400, 200));
    EXPECT_EQ(lit.pixelColor(200, 100).alpha(), 255);
    EXPECT_EQ(lit.pixelColor(2, 2).alpha(), 0);
    // Red stays red, brighter where it faces the light in the upper left.
    const QColor towards = lit.pixelColor(200 - 50, 100 - 50);
    const QColor away = lit.pixelColor(200 + 50, 100 + 50);
    EXPECT_GT(towards.red(), away.red());
    EXPECT_GT(towards.red(), 2 * towards.green());
    EXPECT_EQ(window->messages().text(), QString());
}

TEST_F(WindowFilesTest, AFolderOfDrawingsIsAsGoodAsTheDrawings)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("walk")));
    write(QStringLiteral("walk/walk_1.svg"), studio_testing::kDisc);
    write(QStringLiteral("walk/walk_3.svg"), studio_testing::kDisc);
    write(QStringLiteral("walk/notes.txt"), "not a drawing");
    drop({folder.filePath(QStringLiteral("walk"))});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().scene().firstFrame(), 1);
    EXPECT_EQ(document().scene().lastFrame(), 3);
}

TEST_F(WindowFilesTest, ASequenceHasTheNameThatItsFilesShareAndIsOpenedWholeAgain)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("walk")));
    const QString first = write(QStringLiteral("walk/walk_1.svg"), studio_testing::kDisc);
    const QString third = write(QStringLiteral("walk/walk_3.svg"), studio_testing::kDisc);
    drop({third, first});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().title(), QStringLiteral("walk"));
    renew();
    auto* const recent = window->findChild<QListWidget*>(QStringLiteral("recentList"));
    ASSERT_EQ(recent->count(), 1);
    QTest::mouseClick(recent->viewport(), Qt::LeftButton, Qt::NoModifier,
                      recent->visualItemRect(recent->item(0)).center());
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().scene().lastFrame(), 3);
    // Beside other drawings, the folder would be something else.
    write(QStringLiteral("walk/other.svg"), studio_testing::kDisc);
    drop({third, first});
    ASSERT_TRUE(waitForPicture());
    EXPECT_TRUE(recent->item(0)->data(Qt::UserRole).toString().endsWith(QStringLiteral(".svg")));
}

TEST_F(WindowFilesTest, OpeningIsGivenUpByItsButton)
{
    openDisc();
    const QString before = xmlOf(document().scene());
    const QString drawings = writeLong();
    answerNext(QMessageBox::Discard);
    drop({drawings});
    ASSERT_TRUE(window->files().isBusy());
    auto* const cancel = window->findChild<QToolButton*>(QStringLiteral("cancelOpening"));
    ASSERT_NE(cancel, nullptr);
    cancel->click();
    EXPECT_FALSE(window->files().isBusy());
    QTest::qWait(200);
    EXPECT_EQ(xmlOf(document().scene()), before);
    EXPECT_TRUE(window->messages().text().isEmpty());
    // What was given up keeps nobody from opening it again.
    answerNext(QMessageBox::Discard);
    drop({drawings});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().scene().lastFrame(), 50);
}

TEST_F(WindowFilesTest, OpeningAnAnimationTellsHowFarItIsAndIsGivenUpOnTheWay)
{
    openDisc();
    const QString before = xmlOf(document().scene());
    const QString animation = write(QStringLiteral("slide.json"), studio_testing::slide(200));
    auto* const cancel = window->findChild<QToolButton*>(QStringLiteral("cancelOpening"));
    QList<double> told;
    const auto giveUp = QObject::connect(&window->files(), &SceneFiles::progressed, cancel, [&](double done) {
        told << done;
        if (done > 0.0)
            cancel->click();
    });
    drop({animation});
    ASSERT_TRUE(waitForFiles());
    QTest::qWait(200);
    ASSERT_FALSE(told.isEmpty());
    EXPECT_GT(told.last(), 0.0);
    EXPECT_LT(told.last(), 1.0);
    EXPECT_EQ(xmlOf(document().scene()), before);
    // Read to its end, it tells of its way there, and never goes back.
    QObject::disconnect(giveUp);
    told.clear();
    QObject::connect(&window->files(), &SceneFiles::progressed, cancel, [&](double done) { told << done; });
    drop({animation});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().scene().lastFrame(), 200);
    EXPECT_TRUE(std::ranges::is_sorted(told));
    ASSERT_FALSE(told.isEmpty());
    EXPECT_GT(told.last(), 0.9);
}

TEST_F(WindowFilesTest, WhatIsChangedWhileADrawingIsReadIsAskedAbout)
{
    openDisc();
    const QString drawings = writeLong();
    answerNext(QMessageBox::Cancel);
    drop({drawings});
    ASSERT_TRUE(window->files().isBusy());
    EXPECT_EQ(asked, QString());
    // Before the event loop can learn that the drawings were read.
    ASSERT_TRUE(document().execute(MO_frameRangeCmd(document().scene(), 1, 7)));
    const QString changed = xmlOf(document().scene());
    ASSERT_TRUE(waitForFiles());
    EXPECT_TRUE(asked.contains(QStringLiteral("\"disc\" has changes"))) << qPrintable(asked);
    EXPECT_EQ(xmlOf(document().scene()), changed);
    EXPECT_TRUE(document().isModified());

    // What was discarded is not asked about twice.
    answerNext(QMessageBox::Discard);
    drop({drawings});
    EXPECT_FALSE(asked.isEmpty());
    answerNext(QMessageBox::Cancel);
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(asked, QString());
    EXPECT_EQ(document().scene().lastFrame(), 50);
}

TEST_F(WindowFilesTest, ANewSceneEndsTheReadingOfAnother)
{
    openDisc();
    drop({writeLong()});
    ASSERT_TRUE(window->files().isBusy());
    actionNamed(QStringLiteral("New"))->trigger();
    EXPECT_FALSE(window->files().isBusy());
    EXPECT_TRUE(document().scene().root().modules().empty());
}

TEST_F(WindowFilesTest, ADialogKeepsTheSceneThatItShows)
{
    openDisc();
    const MO_Scene* const before = &document().scene();
    drop({writeLong()});
    ASSERT_TRUE(window->files().isBusy());
    auto* const timer = new QTimer(window.get());
    bool wasOpen = false;
    QObject::connect(timer, &QTimer::timeout, timer, [&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (!dialog || !(window->files().isWaiting() || !window->files().isBusy()))
            return;
        timer->stop();
        wasOpen = true;
        EXPECT_TRUE(window->files().isWaiting());
        EXPECT_EQ(&document().scene(), before);
        dialog->findChild<QSpinBox*>(QStringLiteral("exportWidth"))->setValue(77);
        dialog->close();
    });
    timer->start(10);
    actionNamed(QStringLiteral("Export"))->trigger();
    EXPECT_TRUE(wasOpen);
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().scene().lastFrame(), 50);
}

TEST_F(WindowFilesTest, TheFirstSaveProposesTheFolderAndTheNameOfTheDrawing)
{
    openDisc();
    QString proposed;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&proposed] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        proposed = dialog->directory().filePath(dialog->findChild<QLineEdit*>()->text());
        dialog->reject();
    });
    timer.start(10);
    EXPECT_FALSE(window->save());
    EXPECT_EQ(QFileInfo(proposed).absolutePath(), folder.path());
    EXPECT_EQ(QFileInfo(proposed).fileName(), QStringLiteral("disc.scene"));
}

// A copy that is linked to nothing would not be seen in the picture.
TEST_F(WindowFilesTest, ControlDCopiesNodesInTheGraphAndNothingInThePicture)
{
    openDisc();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), studio_testing::kPatience));
    const std::size_t modules = document().scene().root().modules().size();
    QTest::mouseClick(&viewer(), Qt::LeftButton, Qt::NoModifier,
                      viewer().transform().toView(QPointF(200, 100)).toPoint());
    ASSERT_FALSE(document().selection().isEmpty());
    QTest::keyClick(&viewer(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(document().scene().root().modules().size(), modules);
    EXPECT_FALSE(window->statusBar()->currentMessage().isEmpty());
    NodeView& nodes = window->findChild<NodePanel*>()->view();
    nodes.setFocus();
    QTest::keyClick(&nodes, Qt::Key_D, Qt::ControlModifier);
    EXPECT_GT(document().scene().root().modules().size(), modules);
}

TEST_F(WindowFilesTest, AMenuKeepsTheSceneThatItIsAbout)
{
    openDisc();
    NodeView& nodes = window->findChild<NodePanel*>()->view();
    MO_Module* const node = document().currentModule();
    ASSERT_NE(node, nullptr);
    const std::size_t modules = document().scene().root().modules().size();
    drop({writeLong()});
    Q_EMIT nodes.menuWanted(QPoint(10, 10), node, {});
    auto* const menu = nodes.findChild<QMenu*>(QStringLiteral("NodeMenu"));
    ASSERT_NE(menu, nullptr);
    ASSERT_TRUE(studio_testing::waitUntil([this] { return window->files().isWaiting() || !window->files().isBusy(); }));
    ASSERT_TRUE(window->files().isWaiting());
    answerNext(QMessageBox::Discard);
    QAction* const duplicate = window->findChild<NodePanel*>()->actions().duplicate();
    ASSERT_TRUE(menu->actions().contains(duplicate));
    duplicate->trigger();
    EXPECT_EQ(document().scene().root().modules().size(), modules + 1);
    menu->close();
    ASSERT_TRUE(waitForPicture());
    EXPECT_FALSE(asked.isEmpty()) << "the menu changed the scene";
    EXPECT_EQ(document().scene().lastFrame(), 50);
}

TEST_F(WindowFilesTest, ADragKeepsTheSceneThatItChanges)
{
    openDisc();
    const MO_Scene* const before = &document().scene();
    drop({writeLong()});
    const QPoint place(1, window->height() - 2);
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    ASSERT_TRUE(studio_testing::waitUntil([this] { return window->files().isWaiting() || !window->files().isBusy(); }));
    EXPECT_EQ(&document().scene(), before);
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(document().scene().lastFrame(), 50);
}

TEST_F(WindowFilesTest, ADamagedDrawingIsToldAndChangesNothing)
{
    openDisc();
    const QString before = xmlOf(document().scene());
    drop({write(QStringLiteral("broken.svg"), "<svg><path d='M0 0")});
    ASSERT_TRUE(waitForFiles());
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_TRUE(window->messages().isError());
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("broken.svg")))
        << qPrintable(window->messages().text());
    EXPECT_EQ(xmlOf(document().scene()), before);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(WindowFilesTest, ADamagedSceneIsToldAndChangesNothing)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("bad.scene")));
    write(QStringLiteral("bad.scene/scene.xml"), "<scene version=\"1\"><graph>");
    drop({folder.filePath(QStringLiteral("bad.scene"))});
    ASSERT_TRUE(waitForFiles());
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_TRUE(window->messages().isError());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(WindowFilesTest, WhatIsNoDrawingIsTold)
{
    drop({write(QStringLiteral("notes.txt"), "hello")});
    ASSERT_TRUE(waitForFiles());
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_TRUE(window->messages().isError());
    window->openPaths({folder.filePath(QStringLiteral("missing.svg"))});
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("missing.svg")));
}

TEST_F(WindowFilesTest, SavingAndOpeningAgainGivesTheSameScene)
{
    openDisc();
    EXPECT_TRUE(window->isWindowModified());
    const QString before = xmlOf(document().scene());
    const QString saved = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(saved)) << qPrintable(window->messages().text());
    EXPECT_FALSE(window->isWindowModified());
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("disc")));
    renew();
    drop({saved});
    ASSERT_TRUE(waitForPicture());
    EXPECT_EQ(xmlOf(document().scene()), before);
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(WindowFilesTest, AFolderThatCannotBeWrittenIsTold)
{
    openDisc();
    EXPECT_FALSE(window->saveTo(folder.filePath(QStringLiteral("no/such/folder/disc.scene"))));
    EXPECT_TRUE(window->messages().isError());
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(WindowFilesTest, AfterOpeningTheNodeThatMattersIsSelected)
{
    openDisc();
    ASSERT_NE(document().currentModule(), nullptr);
    EXPECT_EQ(document().currentModule()->keyword(), QStringLiteral("Vallorin"));
}

TEST_F(WindowFilesTest, AFilesNameStaysWhole)
{
    drop({write(QStringLiteral("1F98A.svg"), studio_testing::kDisc)});
    ASSERT_TRUE(waitForPicture());
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("1F98A"))) << qPrintable(window->windowTitle());
    EXPECT_FALSE(xmlOf(document().scene()).contains(QStringLiteral("1FA")));
}

TEST_F(WindowFilesTest, UndoAndRedoCarryTheNameOfTheChange)
{
    openDisc();
    change();
    const QString name = document().commands().undoName();
    ASSERT_FALSE(name.isEmpty());
    QAction* const undo = actionNamed(QStringLiteral("Undo"));
    ASSERT_NE(undo, nullptr);
    EXPECT_EQ(undo->text().remove(QLatin1Char('&')), QStringLiteral("Undo ") + name);
    undo->trigger();
    QCoreApplication::processEvents();
    QAction* const redo = actionNamed(QStringLiteral("Redo"));
    ASSERT_NE(redo, nullptr);
    EXPECT_EQ(redo->text().remove(QLatin1Char('&')), QStringLiteral("Redo ") + name);
    EXPECT_FALSE(undo->isEnabled());
}

TEST_F(WindowFilesTest, ASaveAsksWhereAnotherProgramSavedMeanwhile)
{
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    change();
    ASSERT_TRUE(window->saveTo(scene)) << "its own save is none of another program";
    auto others = SIO_loadScene(scene);
    ASSERT_TRUE(others);
    MO_frameRangeCmd(*others->scene, 1, 9)->execute();
    ASSERT_TRUE(SIO_saveScene(*others->scene, scene));
    const QString theirs = xmlOf(*others->scene);

    answerNext(QMessageBox::Cancel);
    EXPECT_FALSE(window->saveTo(scene));
    EXPECT_TRUE(asked.contains(QStringLiteral("Another program saved \"disc\""))) << qPrintable(asked);
    EXPECT_EQ(xmlOf(*SIO_loadScene(scene)->scene), theirs);

    answerNext(QStringLiteral("Replace"));
    EXPECT_TRUE(window->saveTo(scene));
    EXPECT_EQ(xmlOf(*SIO_loadScene(scene)->scene), xmlOf(document().scene()));
    asked.clear();
    EXPECT_TRUE(window->saveTo(scene));
    EXPECT_EQ(asked, QString());
}

TEST_F(WindowFilesTest, WhatWasOpenedStandsAmongTheRecentFilesAfterANewStart)
{
    openDisc();
    renew();
    const auto* const list = window->findChild<QAbstractItemView*>(QStringLiteral("recentList"));
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->model()->rowCount(), 1);
    EXPECT_TRUE(list->model()->index(0, 0).data().toString().startsWith(QStringLiteral("disc.svg")));
}

TEST_F(WindowFilesTest, ARecentFileIsOpenedOnceByADoubleClickOrByEnter)
{
    openDisc();
    for (const bool isKey : {false, true}) {
        renew();
        auto* const list = window->findChild<QAbstractItemView*>(QStringLiteral("recentList"));
        ASSERT_NE(list, nullptr);
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), studio_testing::kPatience));
        const QSignalSpy requested(window->findChild<StartPage*>(), &StartPage::recentRequested);
        const QModelIndex first = list->model()->index(0, 0);
        if (isKey) {
            list->setFocus();
            list->setCurrentIndex(first);
            QTest::keyClick(list, Qt::Key_Return);
        } else {
            // What a hand does: the function makes the second press alone.
            const QPoint place = list->visualRect(first).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseRelease(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        }
        ASSERT_TRUE(waitForPicture());
        EXPECT_EQ(requested.size(), 1) << isKey;
    }
}

} // namespace
