// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// While a value is dragged, the inputs of the node are not painted again, and what is shown is equal to the bit to what
// a render without anything kept shows.
#include "Apps/studio/window/WindowTesting.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/objects/DocumentObjects.h"
#include "studio/preview/SceneSnapshot.h"

#include <cmath>

namespace {

// Two discs that overlap, one of them half transparent at its edge by its stroke, and a bar that leaves the frame.
constexpr const char* kThree = R"(<svg xmlns="http://www.w3.org/2000/svg" width="200" height="100">
  <g id="a"><circle cx="80" cy="50" r="35" fill="#d02020"/></g>
  <g id="b"><circle cx="110" cy="45.5" r="25" fill="#20d020" fill-opacity="0.5"/></g>
  <g id="c"><rect x="-2000" y="80" width="4200" height="12" fill="#2020d0"/></g></svg>)";

class DraggedValuesTest : public studio_testing::WindowTest
{
protected:
    MO_Module& node()
    {
        MO_Module* found = nullptr;
        document().scene().root().forEachModule([&](MO_Module& module) {
            if (NormalMapNode::is(module))
                found = &module;
        });
        EXPECT_NE(found, nullptr);
        return *found;
    }
    void open(const QString& path)
    {
        drop({path});
        ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    }

    // How many inputs were painted for the picture; it is compared with one made of nothing.
    int paintedFor(const QSize& size, int frame = 1)
    {
        const int before = _drawings.inputs().paintedCount();
        SceneSnapshot keeping(document().scene(), {});
        SceneSnapshot alone(document().scene(), {});
        const auto made = keeping.render(frame, size, size, {}, &_drawings);
        const auto expected = alone.render(frame, size, size, {});
        EXPECT_TRUE(made.ok() && expected.ok());
        if (made.ok() && expected.ok())
            expectSame(**made, **expected);
        return _drawings.inputs().paintedCount() - before;
    }

    void setObjects(const std::function<void(NormalMapObject& object)>& change)
    {
        const NormalMapNode handle(node());
        std::vector<NormalMapObject> objects = handle.objects();
        for (NormalMapObject& object : objects)
            change(object);
        if (const auto command = handle.objectsCmd(objects))
            command->execute();
    }

private:
    static void expectSame(const RenderedFrame& made, const RenderedFrame& expected)
    {
        EXPECT_EQ(made.drawing, expected.drawing);
        EXPECT_EQ(made.normals, expected.normals);
        EXPECT_EQ(made.elevation, expected.elevation);
        ASSERT_EQ(made.node->format(), expected.node->format());
        ASSERT_EQ(made.node->allocatedRect(), expected.node->allocatedRect());
        const Math::Box2di rect = made.node->allocatedRect();
        for (int y = rect.y1; y < rect.y2; ++y)
            for (int x = rect.x1; x < rect.x2; ++x)
                ASSERT_EQ(pixelOf(made, {x, y})->channels, pixelOf(expected, {x, y})->channels) << x << ' ' << y;
    }

    DrawingCache _drawings;
};

TEST_F(DraggedValuesTest, ABevelPaintsNoDrawingAndShowsTheSameAsARenderOfEverything)
{
    const QStringList drawings{MainWindow::examplePath(), write(QStringLiteral("three.svg"), kThree)};
    for (const QString& drawing : drawings) {
        SCOPED_TRACE(qPrintable(drawing));
        open(drawing);
        const QSize size(240, drawing == drawings[0] ? 240 : 120);
        setObjects([](NormalMapObject& object) { object.bevel = 20.0; });
        EXPECT_GT(paintedFor(size), 0);
        for (const double bevel : {6.0, 0.0, 19.5}) {
            setObjects([&](NormalMapObject& object) { object.bevel = object.number == 1 ? bevel : 20.0; });
            EXPECT_EQ(paintedFor(size), 0) << bevel;
        }
        setObjects([](NormalMapObject& object) { object.elevation = object.number == 2 ? -2.5 : 0.25; });
        EXPECT_EQ(paintedFor(size), 0);
        setObjects([](NormalMapObject& object) { object.smoothness = 3.0; });
        EXPECT_EQ(paintedFor(size), 0);
    }
}

TEST_F(DraggedValuesTest, ATiltPaintsNoDrawingAndTurnsWhatWasKept)
{
    open(write(QStringLiteral("three.svg"), kThree));
    setObjects([](NormalMapObject& object) { object.bevel = 20.0; });
    ASSERT_EQ(paintedFor({240, 120}), 3);
    const ObjectDefinition& disc = *window->objects().all().back().definitions.front();
    for (const double tilt : {25.0, -40.0}) {
        disc.tiltX()->setLocalValue(tilt);
        disc.tiltY()->setLocalValue(tilt / 2.0);
        EXPECT_EQ(paintedFor({240, 120}), 0) << tilt;
        setObjects([&](NormalMapObject& object) { object.bevel = object.number == 1 ? std::abs(tilt) / 5.0 : 20.0; });
        EXPECT_EQ(paintedFor({240, 120}), 0) << "a bevel of what is tilted";
    }
    disc.tiltX()->setLocalValue(0.0);
    disc.tiltY()->setLocalValue(0.0);
    EXPECT_EQ(paintedFor({240, 120}), 0);
}

TEST_F(DraggedValuesTest, ARimPaintsNeitherDrawingNorInputs)
{
    open(write(QStringLiteral("three.svg"), kThree));
    setObjects([](NormalMapObject& object) { object.bevel = 20.0; });
    ASSERT_EQ(paintedFor({240, 120}), 3);
    const ObjectDefinition& disc = *window->objects().all().back().definitions.front();
    for (const double bevel : {4.0, 9.0, 0.0}) {
        disc.rimBevel()->setLocalValue(bevel);
        disc.rimHeight()->setLocalValue(1.0 + bevel);
        EXPECT_EQ(paintedFor({240, 120}), 0) << bevel;
    }
}

// The frame's margin and the requested rectangle grow with the bevel. The discs lie inside all of them.
TEST_F(DraggedValuesTest, AWideBevelPaintsOnlyWhatReachesBeyondTheRequestedRectangle)
{
    open(write(QStringLiteral("three.svg"), kThree));
    setObjects([](NormalMapObject& object) { object.bevel = 80.0; });
    ASSERT_EQ(paintedFor({240, 120}), 3);
    setObjects([](NormalMapObject& object) { object.bevel = 83.0; });
    EXPECT_EQ(paintedFor({240, 120}), 1);
}

TEST_F(DraggedValuesTest, WhatTheInputsDependOnPaintsThemAnew)
{
    open(write(QStringLiteral("three.svg"), kThree));
    ASSERT_EQ(paintedFor({240, 120}), 3);
    ASSERT_EQ(paintedFor({240, 120}), 0);

    const NormalMapNode handle(node());
    std::vector<NormalMapColour> colours = handle.colours();
    ASSERT_FALSE(colours.empty());
    colours.front().level = 60;
    handle.coloursCmd(colours)->execute();
    EXPECT_EQ(paintedFor({240, 120}), 3);

    document().scene().root().forEachModule([](MO_Module& module) {
        if (auto* const element = dynamic_cast<MO_ElementModule*>(&module))
            element->positionX()->setLocalValue(element->positionX()->localValue() + 7.0);
    });
    EXPECT_EQ(paintedFor({240, 120}), 3);
    EXPECT_EQ(paintedFor({120, 60}), 3);
    EXPECT_EQ(paintedFor({240, 120}), 0);
}

} // namespace
