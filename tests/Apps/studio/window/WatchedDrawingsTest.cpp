// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The window follows the files of its drawings, however editors save them.
#include "Apps/studio/window/WindowTesting.h"

#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/NormalMapNode.h"

#include <QAbstractItemView>
#include <QAction>
#include <QDir>
#include <QTreeWidget>

namespace {

QByteArray disc(int x)
{
    return QByteArray(studio_testing::kDisc).replace("cx=\"100\"", "cx=\"" + QByteArray::number(x) + "\"");
}

class WatchedDrawingsTest : public studio_testing::WindowTest
{
protected:
    const MO_ElementModule* element() const
    {
        const MO_ElementModule* found = nullptr;
        window->document().scene().root().forEachModule([&](const MO_Module& module) {
            if (const auto* const one = dynamic_cast<const MO_ElementModule*>(&module))
                found = one;
        });
        return found;
    }
    double centre() const { return extentOf(*element()->drawingAt(1.0)).center().x(); }
    bool waitForCentre(double x)
    {
        return studio_testing::waitUntil([&] { return std::abs(centre() - x) < 1.0; });
    }
    void rename(const QString& from, const QString& to) const
    {
        const QString target = folder.filePath(to);
        QFile::remove(target);
        ASSERT_TRUE(QFile::rename(folder.filePath(from), target));
    }
    // Saves a scene of the disc, changes the disc while no window shows it, and opens the scene again.
    QString reopenAfterAChange()
    {
        openDisc();
        const QString scene = folder.filePath(QStringLiteral("disc.scene"));
        EXPECT_TRUE(window->saveTo(scene));
        renew();
        write(QStringLiteral("disc.svg"), disc(60));
        drop({scene});
        EXPECT_TRUE(waitForPicture());
        return scene;
    }
    // The texts of a list's first column; of a tree, those inside its first row.
    QStringList rows(const QString& name, bool isTree) const
    {
        const auto* const view = window->findChild<QAbstractItemView*>(name);
        const QAbstractItemModel& model = *view->model();
        const QModelIndex parent = isTree ? model.index(0, 0) : QModelIndex();
        QStringList texts;
        for (int row = 0; row < model.rowCount(parent); ++row)
            texts << model.index(row, 0, parent).data().toString();
        return texts;
    }
    QAction* actionNamed(const QString& text) const
    {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->text().remove(QLatin1Char('&')) == text)
                return action;
        return nullptr;
    }
};

TEST_F(WatchedDrawingsTest, FollowWhatIsWrittenIntoTheFile)
{
    openDisc();
    EXPECT_NEAR(centre(), 100.0, 1.0);
    MO_Module& node = *document().currentModule();
    auto rows = NormalMapNode(node).objects();
    ASSERT_EQ(rows.size(), 1U);
    rows.front().bevel = 77.0;
    document().execute(NormalMapNode(node).objectsCmd(rows));
    write(QStringLiteral("disc.svg"), disc(60));
    ASSERT_TRUE(waitForCentre(60)) << window->messages().text().toStdString();
    EXPECT_EQ(NormalMapNode(node).objects(), rows);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Reload disc.svg"));
    // The picture is twice as large as the drawing.
    const auto alphaAt = [this](int x) { return viewer().shownImage().pixelColor(x, 100).alpha(); };
    EXPECT_TRUE(studio_testing::waitUntil([&] { return alphaAt(120) == 255 && alphaAt(270) == 0; }));
    document().undo();
    EXPECT_NEAR(centre(), 100.0, 1.0);
    write(QStringLiteral("disc.svg"), disc(70));
    EXPECT_TRUE(waitForCentre(70)) << "it is watched as before";
}

TEST_F(WatchedDrawingsTest, ShowNewColoursAndNamesEverywhere)
{
    openDisc();
    const auto isShown = [this](const QString& colour) {
        const QStringList only{colour};
        return rows(QStringLiteral("PaletteTree"), true) == only &&
               rows(QStringLiteral("ColourDepthsTable"), false) == only;
    };
    EXPECT_TRUE(isShown(QStringLiteral("#d02020")));
    write(QStringLiteral("disc.svg"), QByteArray(studio_testing::kDisc).replace("#d02020", "#20b030"));
    EXPECT_TRUE(studio_testing::waitUntil([&] { return isShown(QStringLiteral("#20b030")); }))
        << rows(QStringLiteral("PaletteTree"), true).join(QLatin1Char(' ')).toStdString() << " / "
        << rows(QStringLiteral("ColourDepthsTable"), false).join(QLatin1Char(' ')).toStdString();
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(studio_testing::waitUntil([&] { return isShown(QStringLiteral("#d02020")); }));
}

TEST_F(WatchedDrawingsTest, NameTheSceneAfterTheDrawingThatItHas)
{
    openDisc();
    EXPECT_EQ(document().title(), QStringLiteral("disc"));
    window->sources().replace(window->sources().current(), {write(QStringLiteral("other.svg"), disc(60))});
    ASSERT_TRUE(waitForCentre(60));
    ASSERT_TRUE(studio_testing::waitUntil([this] { return document().title() == QStringLiteral("other"); }));
    EXPECT_TRUE(window->windowTitle().contains(QStringLiteral("other")));
    EXPECT_EQ(rows(QStringLiteral("ObjectsTable"), false), QStringList{QStringLiteral("other")});
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(studio_testing::waitUntil([this] { return document().title() == QStringLiteral("disc"); }));
}

TEST_F(WatchedDrawingsTest, ADrawingThatChangedWhileItsSceneWasClosedIsReadWhenTheSceneIsOpened)
{
    const QString scene = reopenAfterAChange();
    ASSERT_TRUE(waitForCentre(60));
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("disc.svg")));
    EXPECT_FALSE(window->messages().isError());
    EXPECT_TRUE(document().isModified());
    document().undo();
    EXPECT_NEAR(centre(), 100.0, 1.0);
    document().redo();
    ASSERT_TRUE(window->saveTo(scene));

    renew();
    drop({scene});
    ASSERT_TRUE(waitForPicture());
    write(QStringLiteral("disc.svg"), disc(70));
    ASSERT_TRUE(waitForCentre(70)) << "it is watched as before";
}

TEST_F(WatchedDrawingsTest, AnOlderDrawingThatUndoBroughtBackIsKeptOnceItIsSaved)
{
    const QString scene = reopenAfterAChange();
    ASSERT_TRUE(waitForCentre(60));
    document().undo();
    ASSERT_TRUE(window->saveTo(scene));
    EXPECT_FALSE(document().isModified());

    renew();
    drop({scene});
    ASSERT_TRUE(waitForPicture());
    // What is asked for after the look at the files is done after it.
    window->sources().add({write(QStringLiteral("other.svg"), disc(20))});
    ASSERT_TRUE(studio_testing::waitUntil([&] { return document().isModified(); }));
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Add other.svg"));
    document().undo();
    EXPECT_NEAR(centre(), 100.0, 1.0);
    write(QStringLiteral("disc.svg"), disc(70));
    EXPECT_TRUE(waitForCentre(70)) << "a newer version is read";
}

TEST_F(WatchedDrawingsTest, ASceneWhoseFilesAreTheSameOrGoneOpensAsItWasSaved)
{
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    // Written again: another time, the same content.
    write(QStringLiteral("disc.svg"), studio_testing::kDisc);
    for (const bool isGone : {false, true}) {
        renew();
        if (isGone)
            rename(QStringLiteral("disc.svg"), QStringLiteral("away.svg"));
        drop({scene});
        ASSERT_TRUE(waitForPicture());
        // What is asked for after the look at the files is done after it.
        window->sources().add({write(QStringLiteral("other.svg"), disc(60))});
        ASSERT_TRUE(studio_testing::waitUntil([&] { return document().isModified(); }));
        EXPECT_EQ(document().commands().undoName(), QStringLiteral("Add other.svg"));
        EXPECT_EQ(window->messages().text(), QString());
        document().undo();
        EXPECT_FALSE(document().isModified());
    }
}

TEST_F(WatchedDrawingsTest, FollowEditorsThatSaveByRenaming)
{
    openDisc();
    for (const int x : {60, 120, 80}) {
        write(QStringLiteral("disc.svg.new"), disc(x));
        rename(QStringLiteral("disc.svg.new"), QStringLiteral("disc.svg"));
        ASSERT_TRUE(waitForCentre(x)) << x;
    }
    EXPECT_EQ(window->messages().text(), QString());
}

TEST_F(WatchedDrawingsTest, KeepADrawingWhoseFileIsGoneAndFollowItWhenItIsBack)
{
    openDisc();
    rename(QStringLiteral("disc.svg"), QStringLiteral("away.svg"));
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_TRUE(window->messages().isError());
    EXPECT_TRUE(window->messages().text().contains(QStringLiteral("disc.svg")));
    EXPECT_NEAR(centre(), 100.0, 1.0);
    write(QStringLiteral("new.svg"), disc(60));
    rename(QStringLiteral("new.svg"), QStringLiteral("disc.svg"));
    ASSERT_TRUE(waitForCentre(60));
    EXPECT_EQ(window->messages().text(), QString()) << "it is put right";
}

TEST_F(WatchedDrawingsTest, KeepADrawingWhoseFileIsHalfWritten)
{
    openDisc();
    write(QStringLiteral("disc.svg"), disc(60).left(90));
    ASSERT_TRUE(waitUntilSaid());
    EXPECT_NEAR(centre(), 100.0, 1.0);
    // It is told once, however long somebody works on it.
    window->messages().clear();
    write(QStringLiteral("disc.svg"), disc(60).left(95));
    ASSERT_TRUE(studio_testing::waitUntil([this] { return window->sources().isBusy(); }));
    ASSERT_TRUE(studio_testing::waitUntil([this] { return !window->sources().isBusy(); }));
    EXPECT_EQ(window->messages().text(), QString());
    write(QStringLiteral("disc.svg"), disc(60));
    ASSERT_TRUE(waitForCentre(60));
}

TEST_F(WatchedDrawingsTest, AreNoWorkOfThePersons)
{
    openDisc();
    write(QStringLiteral("disc.svg"), disc(60));
    ASSERT_TRUE(waitForCentre(60));
    answerNext(QMessageBox::Cancel);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(asked, QString());
}

TEST_F(WatchedDrawingsTest, AreKnownToASceneThatIsOpenedAgain)
{
    openDisc();
    const QString scene = folder.filePath(QStringLiteral("disc.scene"));
    ASSERT_TRUE(window->saveTo(scene));
    renew();
    drop({scene});
    ASSERT_TRUE(waitForPicture());
    ASSERT_EQ(window->sources().all().size(), 1U);
    write(QStringLiteral("disc.svg"), disc(60));
    ASSERT_TRUE(waitForCentre(60));
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(WatchedDrawingsTest, AreReadAgainByAKey)
{
    reopenAfterAChange();
    ASSERT_TRUE(waitForCentre(60)) << "it changed while nobody looked";
    document().undo();
    EXPECT_NEAR(centre(), 100.0, 1.0);
    QAction* const reload = actionNamed(QStringLiteral("Reload Drawings"));
    EXPECT_EQ(reload->shortcut(), QKeySequence(QStringLiteral("F5")));
    reload->trigger();
    EXPECT_TRUE(waitForCentre(60));
}

TEST_F(WatchedDrawingsTest, StayUnderAHandAndFollowTheNewestFileThen)
{
    openDisc();
    const QPoint place(1, window->height() - 2);
    QTest::mousePress(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    ASSERT_EQ(QGuiApplication::mouseButtons(), Qt::LeftButton);
    for (const int x : {60, 70}) {
        write(QStringLiteral("disc.svg"), disc(x));
        window->sources().reloadAll();
        QTest::qWait(400);
        EXPECT_NEAR(centre(), 100.0, 1.0);
    }
    QTest::mouseRelease(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_TRUE(waitForCentre(70));
}

TEST_F(WatchedDrawingsTest, AreReplacedAndAddedTo)
{
    openDisc();
    window->sources().replace(window->sources().current(), {write(QStringLiteral("other.svg"), disc(60))});
    ASSERT_TRUE(waitForCentre(60));
    EXPECT_EQ(element()->origin().files, QStringList{folder.filePath(QStringLiteral("other.svg"))});
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Replace disc.svg"));
    const auto* const tree = window->findChild<QTreeWidget*>(QStringLiteral("ElementsTree"));
    ASSERT_TRUE(studio_testing::waitUntil([&] {
        return tree->topLevelItem(0)->toolTip(0).contains(QStringLiteral("other.svg"));
    })) << tree->topLevelItem(0)->text(0).toStdString()
        << ": " << tree->topLevelItem(0)->toolTip(0).toStdString();
    window->sources().add({write(QStringLiteral("second.svg"), disc(140))});
    ASSERT_TRUE(studio_testing::waitUntil([&] { return window->sources().all().size() == 2U; }));
    EXPECT_EQ(NormalMapNode(*document().scene().findModule(QStringLiteral("Normal-Map"))).objects().size(), 2U);
    ASSERT_EQ(document().selection().size(), 1) << "what was added is selected";
    const auto* const added = dynamic_cast<const MO_ElementModule*>(document().selection().front());
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->origin().files, QStringList{folder.filePath(QStringLiteral("second.svg"))});
    write(QStringLiteral("second.svg"), disc(150));
    ASSERT_TRUE(waitForCentre(150));
}

} // namespace
