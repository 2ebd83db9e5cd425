// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Parts that belong together become one object and parts of it become objects again, with keys and from the menus.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "studio/objects/ValueField.h"

namespace {

class JoinedObjectsTest : public studio_testing::ObjectsTest
{
protected:
    std::size_t count() const { return window->objects().all().size(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        viewer().setFocus();
        QTest::keyClick(&viewer(), key, modifiers);
        QCoreApplication::processEvents();
    }
    void enter(ObjectValue value, const QString& text)
    {
        ValueField& field = bar().field(value);
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    /// The head has a bevel of 40 and a rim, and both are one object with the head's values.
    void joinBodyAndHead()
    {
        openParts();
        click(kHead);
        enter(ObjectValue::BEVEL, QStringLiteral("40"));
        enter(ObjectValue::RIM, QStringLiteral("4"));
        click(kBody);
        click(kHead, Qt::ShiftModifier);
        key(Qt::Key_J);
    }
};

TEST_F(JoinedObjectsTest, HaveTheValuesOfTheOneThatWasSelectedLast)
{
    joinBodyAndHead();
    ASSERT_EQ(count(), 1U);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Join 2 objects"));
    const SceneObject joined = object("Body");
    EXPECT_EQ(joined.values, (NormalMapObject{2, 40.0, 1.0, 1.0}));
    ASSERT_EQ(joined.definitions.size(), 2U);
    for (const ObjectDefinition* const definition : joined.definitions)
        EXPECT_EQ(definition->rimBevel()->value(1.0), 4.0);
    EXPECT_EQ(selected(), QStringList{QStringLiteral("Body")});
    ASSERT_TRUE(waitForPicture());
    click(kOutside);
    EXPECT_EQ(selected(), QStringList());
    click(kHead);
    EXPECT_EQ(selected(), QStringList{QStringLiteral("Body")}) << "the head is a part of it";

    document().undo();
    ASSERT_EQ(count(), 2U);
    EXPECT_EQ(valuesOf("Body"), (NormalMapObject{1, 24.0, 1.0, 1.0}));
    EXPECT_EQ(object("Body").rim.bevel, 0.0);
    EXPECT_EQ(object("Head").rim.bevel, 4.0);
}

TEST_F(JoinedObjectsTest, LoseTheEdgeBetweenThem)
{
    openParts();
    // The head's rim is seen in the middle of the body, and at its edge the elevation begins anew.
    const auto elevationAtTheEdgeOfTheHead = [this] {
        EXPECT_TRUE(waitForPicture());
        viewer().setKind(PictureKind::ELEVATION);
        return qGray(viewer().shownImage().pixel(200, 62));
    };
    const int before = elevationAtTheEdgeOfTheHead();
    click(kBody);
    click(kHead, Qt::ShiftModifier);
    key(Qt::Key_J);
    const int after = elevationAtTheEdgeOfTheHead();
    EXPECT_GT(after, before + 30);
}

TEST_F(JoinedObjectsTest, AreSeparatedWithTheValuesThatTheyHadInCommon)
{
    joinBodyAndHead();
    key(Qt::Key_J, Qt::ShiftModifier);
    ASSERT_EQ(count(), 2U);
    EXPECT_EQ(document().commands().undoName(), QStringLiteral("Separate Body"));
    EXPECT_EQ(valuesOf("Body"), (NormalMapObject{2, 40.0, 1.0, 1.0}));
    EXPECT_EQ(valuesOf("Head"), (NormalMapObject{1, 40.0, 1.0, 1.0}));
    document().undo();
    EXPECT_EQ(count(), 1U);
}

TEST_F(JoinedObjectsTest, StayJoinedWhenTheirDrawingChanges)
{
    joinBodyAndHead();
    write(QStringLiteral("parts.svg"), QByteArray(studio_testing::kParts).replace("cx=\"100\"", "cx=\"60\""));
    ASSERT_TRUE(studio_testing::waitUntil(
        [this] { return document().commands().undoName() == QStringLiteral("Reload parts.svg"); }));
    ASSERT_EQ(count(), 1U);
    EXPECT_EQ(valuesOf("Body"), (NormalMapObject{2, 40.0, 1.0, 1.0}));
}

TEST_F(JoinedObjectsTest, AreMadeFromTheMenuWhereThereIsSomethingToJoinOrSeparate)
{
    openParts();
    const auto isPossible = [this](const char* text) {
        QAction* const action = entry(menuOfBar(), QLatin1String(text));
        return action && action->isEnabled();
    };
    click(kHead);
    EXPECT_FALSE(isPossible("Join"));
    EXPECT_FALSE(isPossible("Separate"));
    key(Qt::Key_J);
    EXPECT_EQ(count(), 2U);
    click(kBody, Qt::ShiftModifier);
    ASSERT_TRUE(isPossible("Join"));
    entry(menuOfBar(), QStringLiteral("Join"))->trigger();
    EXPECT_EQ(count(), 1U);
    EXPECT_FALSE(isPossible("Join"));
    EXPECT_TRUE(isPossible("Separate"));
}

TEST_F(JoinedObjectsTest, LeaveCutOutsAsTheyAre)
{
    openParts();
    click(kHead);
    key(Qt::Key_X);
    click(kBody, Qt::ShiftModifier);
    key(Qt::Key_J);
    EXPECT_EQ(count(), 2U);
    EXPECT_TRUE(object("Head").isCutOut());
}

} // namespace
