// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// All values of an object at once: copied to another object, taken from a preset, and reset to what was chosen.
#include "Apps/studio/objects/ObjectsTesting.h"

#include <QAction>
#include <QClipboard>
#include <QInputDialog>
#include <QMenu>

namespace {

class ObjectValuesTest : public studio_testing::ObjectsTest
{};

TEST_F(ObjectValuesTest, ValuesAreCopiedAndPastedByKey)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    viewer().setFocus();
    QTest::keyClick(&viewer(), Qt::Key_C, Qt::ControlModifier);
    click(kBody);
    QTest::keyClick(&viewer(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(valuesOf("Body").elevation, 1.5);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Paste Values to Body"));
    QApplication::clipboard()->setText(QStringLiteral("bevel=nan:elevation=1:smoothness=1"));
    QTest::keyClick(&viewer(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(valuesOf("Body").elevation, 1.5);
}

TEST_F(ObjectValuesTest, PresetsFitTheObjectAndAreOneStep)
{
    openParts();
    click(kHead);
    QAction* const coin = entry(menuOfBar(), QStringLiteral("Coin"));
    ASSERT_NE(coin, nullptr);
    coin->trigger();
    EXPECT_EQ(valuesOf("Head").elevation, 0.25);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Coin for Head"));
    // The head is 80 of 400 pixels wide, which are 144 units; the bevel is four times half of this.
    entry(menuOfBar(), QStringLiteral("Balloon"))->trigger();
    EXPECT_NEAR(valuesOf("Head").bevel, 4.0 * 72.0, 4.0);
}

TEST_F(ObjectValuesTest, OwnPresetsAreKeptInTheSettings)
{
    openParts();
    click(kHead);
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    QTimer::singleShot(0, window.get(), [] {
        auto* const dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->setTextValue(QStringLiteral("100 % mine"));
        dialog->accept();
    });
    entry(menuOfBar(), QStringLiteral("Save Values as Preset..."))->trigger();
    renew();
    openParts();
    click(kBody);
    QAction* const own = entry(menuOfBar(), QStringLiteral("100 % mine"));
    ASSERT_NE(own, nullptr);
    own->trigger();
    EXPECT_EQ(valuesOf("Body").elevation, 1.5);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("100 % mine for Body"));
}

TEST_F(ObjectValuesTest, ResetGivesTheFormThatWasChosenWhenTheDrawingCameIn)
{
    drop({write(QStringLiteral("parts.svg"), studio_testing::kParts)});
    ASSERT_TRUE(waitForPicture());
    const NormalMapObject chosen = valuesOf("Head");
    ASSERT_NE(chosen, valuesOf("Body"));
    window->objects().select({object("Head")});
    QCoreApplication::processEvents();
    pull(ObjectHandle::ELEVATION, QPoint(0, -50));
    pull(ObjectHandle::SMOOTHNESS, QPoint(80, 0));
    pull(ObjectHandle::BEVEL, QPoint(-10, 0));
    const NormalMapObject pulled = valuesOf("Head");
    ASSERT_NE(pulled.bevel, chosen.bevel);
    entry(menuOfBar(), QStringLiteral("Elevation"))->trigger();
    EXPECT_EQ(valuesOf("Head").elevation, chosen.elevation);
    EXPECT_EQ(valuesOf("Head").smoothness, pulled.smoothness);
    EXPECT_EQ(valuesOf("Head").bevel, pulled.bevel);
    entry(menuOfBar(), QStringLiteral("Reset Values"))->trigger();
    EXPECT_EQ(valuesOf("Head"), chosen);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Reset Values of Head"));
}

TEST_F(ObjectValuesTest, TheChosenFormIsSavedWithTheScene)
{
    drop({write(QStringLiteral("parts.svg"), studio_testing::kParts)});
    ASSERT_TRUE(waitForPicture());
    const NormalMapObject chosen = valuesOf("Head");
    window->objects().change(
        changeValueCmd({object("Head")}, ObjectValue::BEVEL, 1.0, [](const auto&) { return 3.0; }));
    ASSERT_TRUE(window->saveTo(folder.filePath(QStringLiteral("parts.scene"))));
    renew();
    openScene(folder.filePath(QStringLiteral("parts.scene")));
    ASSERT_EQ(valuesOf("Head").bevel, 3.0);
    EXPECT_EQ(asChosen(object("Head")).values, chosen);
}

} // namespace
