// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Selecting and changing objects in the picture: the effects of clicks, rectangles and handles, and their names in the
// history.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "studio/objects/ValueField.h"

#include <QMenu>

namespace {

class ObjectHandsTest : public studio_testing::ObjectsTest
{};

TEST_F(ObjectHandsTest, AClickSelectsTheTopmostObjectInEveryViewAndItsModulesWithIt)
{
    openParts();
    for (const PictureKind kind :
         {PictureKind::DRAWING, PictureKind::ELEVATION, PictureKind::NORMALS, PictureKind::LIT}) {
        viewer().setKind(kind);
        click(kOutside);
        EXPECT_EQ(selected(), QStringList());
        click(kHead);
        EXPECT_EQ(selected(), QStringList({"Head"}));
    }
    EXPECT_TRUE(document().selection().contains(document().scene().findModule(QStringLiteral("Head-Definition"))));
    EXPECT_TRUE(document().selection().contains(document().scene().findModule(QStringLiteral("Head"))));
    click(kBody);
    EXPECT_EQ(selected(), QStringList({"Body"}));
}

TEST_F(ObjectHandsTest, AnotherClickAtTheSamePlaceGoesToTheObjectBelowAndAroundAgain)
{
    openParts();
    click(kHead);
    EXPECT_EQ(selected(), QStringList({"Head"}));
    click(kHead);
    EXPECT_EQ(selected(), QStringList({"Body"}));
    click(kHead);
    EXPECT_EQ(selected(), QStringList({"Head"}));
}

TEST_F(ObjectHandsTest, ShiftAddsAndTakesAway)
{
    openParts();
    click(kHead);
    click(kBody, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringList({"Head", "Body"}));
    click(kHead, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringList({"Body"}));
}

TEST_F(ObjectHandsTest, ARectangleSelectsWhatLiesInIt)
{
    openParts();
    dragIn(kOutside, QPointF(399.0, 199.0));
    EXPECT_EQ(selected(), QStringList({"Body", "Head"}));
    // A rectangle around the head, from (160, 60) to (240, 140); the body is larger.
    dragIn(QPointF(156.0, 56.0), QPointF(244.0, 144.0));
    EXPECT_EQ(selected(), QStringList({"Head"}));
    dragIn(QPointF(2.0, 2.0), QPointF(9.0, 9.0));
    EXPECT_EQ(selected(), QStringList());
}

TEST_F(ObjectHandsTest, TheMouseOverAnObjectOutlinesItAndLeavesTheSelectionAlone)
{
    openParts();
    click(kBody);
    viewer().setKind(PictureKind::DRAWING);
    const QImage before = viewer().grab().toImage();
    hover(kHead);
    ASSERT_NE(window->objects().hovered(), nullptr);
    EXPECT_EQ(window->objects().hovered()->name, QStringLiteral("Head"));
    EXPECT_NE(viewer().grab().toImage(), before);
    EXPECT_EQ(selected(), QStringList({"Body"}));
    hover(kOutside);
    EXPECT_EQ(window->objects().hovered(), nullptr);
}

TEST_F(ObjectHandsTest, TheRightButtonSelectsWhatItsMenuIsFor)
{
    openParts();
    click(kHead);
    const auto askForMenu = [&](QContextMenuEvent::Reason reason, const QPoint& place) {
        QContextMenuEvent wanted(reason, place, viewer().mapToGlobal(place));
        QCoreApplication::sendEvent(&viewer(), &wanted);
        QCoreApplication::processEvents();
        auto* const menu = window->findChild<QMenu*>(QStringLiteral("objectMenu"));
        ASSERT_NE(menu, nullptr);
        delete menu;
    };
    askForMenu(QContextMenuEvent::Mouse, inView(kBody));
    EXPECT_EQ(selected(), QStringList({"Body"}));
    // What is selected stays so, and keys point at nothing.
    click(kHead, Qt::ShiftModifier);
    askForMenu(QContextMenuEvent::Mouse, inView(kBody));
    EXPECT_EQ(selected(), QStringList({"Body", "Head"}));
    click(kBody);
    askForMenu(QContextMenuEvent::Keyboard, inView(kHead));
    EXPECT_EQ(selected(), QStringList({"Body"}));
}

TEST_F(ObjectHandsTest, WhatIsSelectedInTheGraphIsOutlinedInThePicture)
{
    openParts();
    viewer().setKind(PictureKind::DRAWING);
    document().setSelection({});
    const QImage before = viewer().grab().toImage();
    document().setSelection({document().scene().findModule(QStringLiteral("Head-Definition"))});
    EXPECT_EQ(selected(), QStringList({"Head"}));
    EXPECT_NE(viewer().grab().toImage(), before);
}

TEST_F(ObjectHandsTest, APullEndsWhereAnotherObjectIsSelectedMeanwhile)
{
    openParts();
    click(kHead);
    pressOn(ObjectHandle::BEVEL);
    window->objects().select({object("Body")});
    QCoreApplication::processEvents();
    const QPoint way(40, 0);
    pullTo(way);
    letGo(way);
    QCoreApplication::processEvents();
    EXPECT_EQ(document().commands().undoNames(), QStringList());
    EXPECT_EQ(valuesOf("Body").bevel, 24.0);
    EXPECT_EQ(valuesOf("Head").bevel, 24.0);
}

TEST_F(ObjectHandsTest, PullingTheBevelInwardsWidensItInOneStepThatSaysSo)
{
    openParts();
    click(kHead);
    ASSERT_EQ(valuesOf("Head").bevel, 24.0);
    const int way = static_cast<int>(std::lround(36.0 * unit()));
    pull(ObjectHandle::BEVEL, QPoint(-way, 0));
    EXPECT_NEAR(valuesOf("Head").bevel, 60.0, 1.0);
    EXPECT_EQ(document().commands().undoNames(),
              QStringList({QStringLiteral("Bevel of Head 24 \u2192 %1").arg(valuesOf("Head").bevel)}));
    EXPECT_EQ(valuesOf("Body").bevel, 24.0);
    document().undo();
    EXPECT_EQ(valuesOf("Head").bevel, 24.0);
}

TEST_F(ObjectHandsTest, PullingUpRaisesAndPullingToTheRightRounds)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    EXPECT_EQ(valuesOf("Head").elevation, 1.5);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Elevation of Head 1 \u2192 1.5"));
    pull(ObjectHandle::SMOOTHNESS, QPoint(80, 0));
    EXPECT_EQ(valuesOf("Head").smoothness, 1.8);
    EXPECT_EQ(document().commands().undoNames().size(), 2);
}

TEST_F(ObjectHandsTest, EscapeTakesAPullBackAndLeavesNoTrace)
{
    openParts();
    click(kHead);
    pressOn(ObjectHandle::ELEVATION);
    pullTo(QPoint(0, -50));
    EXPECT_EQ(valuesOf("Head").elevation, 1.5);
    QTest::keyClick(&viewer(), Qt::Key_Escape);
    EXPECT_EQ(valuesOf("Head").elevation, 1.0);
    letGo(QPoint(0, -50));
    EXPECT_EQ(valuesOf("Head").elevation, 1.0);
    EXPECT_FALSE(document().commands().canUndo());
    EXPECT_FALSE(document().commands().canRedo());
    EXPECT_EQ(selected(), QStringList({"Head"}));
    QTest::keyClick(&viewer(), Qt::Key_Escape);
    EXPECT_EQ(selected(), QStringList());
}

TEST_F(ObjectHandsTest, EscapeTakesNothingBackThatWasDoneBeforeThePull)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    // The second pull goes away and back: at the moment of Escape it has changed nothing.
    pressOn(ObjectHandle::ELEVATION);
    pullTo(QPoint(0, -20));
    pullTo(QPoint(0, 0));
    QTest::keyClick(&viewer(), Qt::Key_Escape);
    letGo(QPoint(0, 0));
    EXPECT_EQ(valuesOf("Head").elevation, 1.5);
    EXPECT_EQ(document().commands().undoNames().size(), 1);
}

TEST_F(ObjectHandsTest, APullBackToWhereItBeganIsNoStep)
{
    openParts();
    click(kHead);
    pressOn(ObjectHandle::ELEVATION);
    pullTo(QPoint(0, -50));
    pullTo(QPoint(0, 0));
    letGo(QPoint(0, 0));
    EXPECT_FALSE(document().commands().canUndo());
}

TEST_F(ObjectHandsTest, SeveralObjectsArePulledTogetherEachFromItsOwnValue)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    click(kBody, Qt::ShiftModifier);
    ASSERT_EQ(selected(), QStringList({"Head", "Body"}));
    pull(ObjectHandle::ELEVATION, QPoint(0, -100));
    EXPECT_EQ(valuesOf("Head").elevation, 2.5);
    EXPECT_EQ(valuesOf("Body").elevation, 2.0);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Elevation of 2 objects 1 \u2192 2"));
}

TEST_F(ObjectHandsTest, RollingTheBallTiltsTheObjectInOneStepThatSaysSo)
{
    openParts();
    click(kHead);
    // Two pixels are a degree. The ball is rolled to the right first and upwards afterwards.
    pressOn(ObjectHandle::TILT);
    pullTo(QPoint(24, 0));
    pullTo(QPoint(24, 10));
    letGo(QPoint(24, 10));
    QCoreApplication::processEvents();
    EXPECT_EQ(object("Head").tilt, (ObjectTilt{12.0, -5.0}));
    EXPECT_EQ(document().commands().undoNames(), QStringList({QStringLiteral("Tilt of Head 0, 0 \u2192 12, -5")}));
    EXPECT_EQ(object("Body").tilt, ObjectTilt());
    document().undo();
    EXPECT_EQ(object("Head").tilt, ObjectTilt());
    EXPECT_FALSE(document().commands().canUndo());
}

TEST_F(ObjectHandsTest, ATiltEndsAtTheHorizonAndIsTakenBackByEscape)
{
    openParts();
    click(kHead);
    pressOn(ObjectHandle::TILT);
    pullTo(QPoint(0, -500));
    EXPECT_EQ(object("Head").tilt, (ObjectTilt{0.0, 90.0}));
    pullTo(QPoint(-500, -500));
    EXPECT_EQ(object("Head").tilt, (ObjectTilt{-90.0, 90.0}));
    QTest::keyClick(&viewer(), Qt::Key_Escape);
    EXPECT_EQ(object("Head").tilt, ObjectTilt());
    letGo(QPoint(-500, -500));
    EXPECT_FALSE(document().commands().canUndo());
    EXPECT_FALSE(document().commands().canRedo());
}

TEST_F(ObjectHandsTest, SeveralObjectsAreTiltedTogetherEachFromItsOwnTilt)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::TILT, QPoint(20, 0));
    click(kBody, Qt::ShiftModifier);
    pull(ObjectHandle::TILT, QPoint(0, -30));
    EXPECT_EQ(object("Head").tilt, (ObjectTilt{10.0, 15.0}));
    EXPECT_EQ(object("Body").tilt, (ObjectTilt{0.0, 15.0}));
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Tilt of 2 objects 0, 0 \u2192 0, 15"));
    entry(menuOfBar(), QStringLiteral("Tilt"))->trigger();
    EXPECT_EQ(object("Head").tilt, ObjectTilt());
    EXPECT_EQ(object("Body").tilt, ObjectTilt());
}

TEST_F(ObjectHandsTest, ATiltTurnsThePictureAndIsSavedWithTheScene)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::TILT, QPoint(60, 0));
    ASSERT_TRUE(waitForPicture());
    // The head's flat middle faces 30 degrees to the right: sin 30 is 0.5.
    const auto pixel = pixelOf(*window->renderService().current(), QPoint(200, 100));
    ASSERT_TRUE(pixel);
    EXPECT_NEAR(pixel->normal[0], 0.5, 0.01);
    EXPECT_NEAR(pixel->normal[1], 0.0, 0.01);
    ASSERT_TRUE(window->saveTo(folder.filePath(QStringLiteral("parts.scene"))));
    renew();
    openScene(folder.filePath(QStringLiteral("parts.scene")));
    EXPECT_EQ(object("Head").tilt, (ObjectTilt{30.0, 0.0}));
}

TEST_F(ObjectHandsTest, TheLightMovesByItsHandleAlone)
{
    openParts();
    ASSERT_EQ(viewer().kind(), PictureKind::LIT);
    const QPointF before = window->lights().lights().front().place;
    click(kHead);
    dragIn(kOutside, QPointF(390.0, 190.0));
    EXPECT_EQ(window->lights().lights().front().place, before);
}

TEST_F(ObjectHandsTest, ThePictureFollowsAPull)
{
    openParts();
    click(kHead);
    const auto elevation = [&] { return pixelOf(*window->renderService().current(), QPoint(200, 100))->normal[2]; };
    const double before = elevation();
    pull(ObjectHandle::BEVEL, QPoint(-200, 0));
    ASSERT_TRUE(waitForPicture());
    EXPECT_NE(elevation(), before);
}

TEST_F(ObjectHandsTest, TheBarShowsTheValuesAndTakesNewOnes)
{
    openParts();
    EXPECT_FALSE(bar().isVisible());
    click(kHead);
    ASSERT_TRUE(bar().isVisible());
    EXPECT_TRUE(viewer().rect().contains(bar().geometry()));
    ValueField& bevel = bar().field(ObjectValue::BEVEL);
    EXPECT_EQ(bevel.value(), 24.0);
    bevel.setFocus();
    bevel.selectAll();
    QTest::keyClicks(&bevel, QStringLiteral("60"));
    QTest::keyClick(&bevel, Qt::Key_Return);
    EXPECT_EQ(valuesOf("Head").bevel, 60.0);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Bevel of Head 24 \u2192 60"));
    EXPECT_EQ(document().commands().undoNames().size(), 1);
}

TEST_F(ObjectHandsTest, TheBarActsOnAllThatIsSelected)
{
    openParts();
    click(kHead);
    click(kBody, Qt::ShiftModifier);
    toggle("bar-carve");
    EXPECT_EQ(valuesOf("Head").elevation, -1.0);
    EXPECT_EQ(valuesOf("Body").elevation, -1.0);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Carve 2 objects"));
    toggle("bar-carve");
    EXPECT_EQ(valuesOf("Head").elevation, 1.0);
}

TEST_F(ObjectHandsTest, ACutOutIsAnObjectAgainWithItsOldValues)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    toggle("bar-cut-out");
    EXPECT_EQ(definition("Head").objectId(1), 0);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Cut out Head"));
    EXPECT_EQ(selected(), QStringList({"Head"}));
    ASSERT_TRUE(waitForPicture());
    // Objects in the hole can still be selected, the cut-out first.
    click(kOutside);
    click(kHead);
    EXPECT_EQ(selected(), QStringList({"Head"}));
    toggle("bar-cut-out");
    EXPECT_GT(definition("Head").objectId(1), 0);
    EXPECT_EQ(valuesOf("Head").elevation, 1.5);
}

TEST_F(ObjectHandsTest, WhatIsHiddenIsShownAgainFromTheBarThatHidIt)
{
    openParts();
    click(kHead);
    toggle("bar-hide");
    ASSERT_TRUE(waitForPicture());
    EXPECT_TRUE(object("Head").isHidden);
    EXPECT_FALSE(object("Body").isHidden);
    toggle("bar-hide");
    EXPECT_FALSE(object("Head").isHidden);
}

TEST_F(ObjectHandsTest, SoloHidesAllOthersAndShowsThemAgain)
{
    openParts();
    click(kHead);
    toggle("bar-solo");
    EXPECT_FALSE(object("Head").isHidden);
    EXPECT_TRUE(object("Body").isHidden);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Show Head alone"));
    toggle("bar-solo");
    EXPECT_FALSE(object("Body").isHidden);
    EXPECT_EQ(document().commands().undoNames().size(), 2);
}

TEST_F(ObjectHandsTest, LettersThatAreTypedIntoAFieldSwitchNothing)
{
    openParts();
    click(kHead);
    ValueField& bevel = bar().field(ObjectValue::BEVEL);
    bevel.setFocus();
    QTest::keyClicks(&bevel, QStringLiteral("hsxv"));
    EXPECT_FALSE(object("Head").isHidden);
    EXPECT_FALSE(document().commands().canUndo());
    viewer().setFocus();
    QTest::keyClick(&viewer(), Qt::Key_H);
    EXPECT_TRUE(object("Head").isHidden);
}

TEST_F(ObjectHandsTest, TheOutlineOfASpriteGoesAlongItsPixels)
{
    // A square of 8 pixels in the middle of a sprite of 16.
    QImage sprite(16, 16, QImage::Format_ARGB32);
    sprite.fill(Qt::transparent);
    for (int y = 4; y < 12; ++y)
        for (int x = 4; x < 12; ++x)
            sprite.setPixelColor(x, y, QColor(200, 60, 60));
    const QString file = folder.filePath(QStringLiteral("sprite.png"));
    ASSERT_TRUE(sprite.save(file));
    drop({file});
    ASSERT_TRUE(waitForPicture());
    ASSERT_EQ(window->renderService().current()->fullSize, QSize(16, 16));
    viewer().setKind(PictureKind::DRAWING);
    viewer().fit();
    const QPoint corner = inView(QPointF(12, 4));
    const auto seen = [&] { return viewer().grab().toImage().pixelColor(corner * viewer().devicePixelRatioF()); };
    click(QPointF(8.5, 8.5));
    ASSERT_EQ(selected().size(), 1);
    // The line is blue; the sprite is red and its ground grey.
    EXPECT_GT(seen().blue(), seen().red() + 40) << qPrintable(seen().name());
}

} // namespace
