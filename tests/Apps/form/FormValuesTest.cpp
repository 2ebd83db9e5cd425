// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The values that objects get from their extents.
#include "FormDrawings.h"
#include "form/ChooseForms.h"

using namespace form_drawings;

namespace {

ObjectExtent extentOf(const QByteArray& content)
{
    const DIO_Drawing drawing = read(content);
    return measureExtent(drawing.layers.front().shapes, drawing.viewBox);
}

// Scene units, of which the picture is 720 wide, for each unit of the drawings.
constexpr double kUnit = 7.2;

} // namespace

TEST(FormValues, ADiscsBreadthIsItsRadius)
{
    const ObjectExtent extent = extentOf(circle(50, 50, 25, "#ffcc4d"));
    EXPECT_NEAR(extent.breadth, 25 * kUnit, 0.015 * 25 * kUnit);
    EXPECT_NEAR(extent.roundness, 1.0, 0.02);
}

TEST(FormValues, AStripsBreadthIsThreeQuartersOfItsWidth)
{
    // The mean distance inside a strip of width w is w/4; its ends add little.
    EXPECT_NEAR(extentOf(rect(5, 48, 90, 4, "#ffcc4d")).breadth, 3.0 * kUnit, 0.05 * 3.0 * kUnit);
}

TEST(FormValues, TheFramesBorderIsNoOutline)
{
    // A strip that leaves the picture on both sides: the mean distance is exactly a quarter of its width.
    EXPECT_NEAR(extentOf(rect(-20, 40, 140, 20, "#ffcc4d")).breadth, 15 * kUnit, 0.015 * 15 * kUnit);
    EXPECT_NEAR(extentOf(rect(0, 40, 100, 20, "#ffcc4d")).breadth, 15 * kUnit, 0.015 * 15 * kUnit);
    EXPECT_EQ(extentOf(rect(0, 40, 100, 20, "#ffcc4d")).roundness, 0.0);
}

TEST(FormValues, ADiscThatTouchesTheFrameStaysRound)
{
    EXPECT_NEAR(extentOf(circle(50, 50, 50, "#ffcc4d")).roundness, 1.0, 0.02);
}

// Values have few digits, so that people can read and type them.
constexpr double kDigitsOfBevel = 0.01;
constexpr double kDigitsOfElevation = 1e-4;

TEST(FormValues, ScaleWithTheBreadth)
{
    const ObjectForm one = formFor({40.0, 0.5}, ObjectRole::BODY, {});
    const ObjectForm other = formFor({80.0, 0.5}, ObjectRole::BODY, {});
    EXPECT_NEAR(other.bevel, 2.0 * one.bevel, 2.0 * kDigitsOfBevel);
    EXPECT_NEAR(other.elevation, 2.0 * one.elevation, 2.0 * kDigitsOfElevation);
    EXPECT_EQ(other.smoothness, one.smoothness);
    EXPECT_NEAR(one.elevation, 1.05 * 40.0 / 37.5, kDigitsOfElevation);
}

TEST(FormValues, RoundOnesAreFuller)
{
    const ObjectForm ordinary = formFor({40.0, 0.85}, ObjectRole::BODY, {});
    const ObjectForm round = formFor({40.0, 0.93}, ObjectRole::BODY, {});
    EXPECT_DOUBLE_EQ(round.bevel, 136.0);
    EXPECT_DOUBLE_EQ(round.elevation, 63.0 / 37.5);
    EXPECT_DOUBLE_EQ(round.smoothness, 3.2);
    const ObjectForm between = formFor({40.0, 0.89}, ObjectRole::BODY, {});
    EXPECT_NEAR(between.bevel, (ordinary.bevel + round.bevel) / 2.0, kDigitsOfBevel);
    EXPECT_EQ(formFor({40.0, 0.2}, ObjectRole::BODY, {.shape = FormShape::PILLOW}), round);
}

TEST(FormValues, OpeningsSink)
{
    const ObjectForm body = formFor({40.0, 0.5}, ObjectRole::BODY, {});
    const ObjectForm opening = formFor({40.0, 0.5}, ObjectRole::OPENING, {});
    EXPECT_DOUBLE_EQ(opening.elevation, -body.elevation);
    EXPECT_EQ(opening.bevel, body.bevel);
}

TEST(FormValues, VolumeScalesTheElevation)
{
    const ObjectForm body = formFor({40.0, 0.5}, ObjectRole::BODY, {});
    const ObjectForm half = formFor({40.0, 0.5}, ObjectRole::BODY, {.volume = 0.5});
    EXPECT_NEAR(half.elevation, 0.5 * body.elevation, kDigitsOfElevation);
    EXPECT_EQ(half.bevel, body.bevel);
}

TEST(FormValues, RimIsTheSameOnAll)
{
    const FormSettings rim{.shape = FormShape::RIM};
    EXPECT_EQ(formFor({40.0, 0.5}, ObjectRole::BODY, rim), kRimForm);
    EXPECT_EQ(formFor({400.0, 1.0}, ObjectRole::BODY, rim), kRimForm);
}

TEST(FormValues, NoVolumeIsTheSmallestElevation)
{
    for (const FormSettings& settings : {FormSettings{.shape = FormShape::OFF}, FormSettings{.volume = 0.0}}) {
        const ObjectForm flat = formFor({40.0, 0.5}, ObjectRole::BODY, settings);
        EXPECT_GT(flat.elevation, 0.0);
        EXPECT_LT(flat.elevation, 0.001);
    }
    EXPECT_LT(formFor({40.0, 0.5}, ObjectRole::FLAT, {}).elevation, 0.001);
}

TEST(FormValues, AreMeasuredOnWhatIsSeenOfACompletedPart)
{
    ChosenObjects found = chosen(circle(50, 50, 40, "#ffcc4d"));
    found.objects[0].measured = read(circle(50, 50, 20, "#ffcc4d")).layers[0].shapes;
    const ObjectForm form = chooseForms(found, {}).front();
    const ObjectForm ofSeen = chooseForms(chosen(circle(50, 50, 20, "#ffcc4d")), {}).front();
    EXPECT_NEAR(form.bevel, ofSeen.bevel, 0.01 * ofSeen.bevel);
    EXPECT_EQ(form.smoothness, ofSeen.smoothness);
}

// An object with a line around it is measured on the cells that were found, a small picture of its layer shows the
// same.
TEST(FormValues, OfAnObjectWithInkAreThoseOfItsWholeLayer)
{
    const ChosenObjects found =
        chosen(R"(<path fill="#ffcc4d" d="M20 25 H80 V70 H50 L20 85 Z"/>)"
               R"(<path fill="none" stroke="black" stroke-width="3" d="M20 25 H80 V70 H50 L20 85 Z"/>)");
    ASSERT_EQ(found.objects.size(), 1U);
    ASSERT_TRUE(found.objects[0].extent);
    const ObjectExtent painted = measureExtent(found.drawing.layers[0].shapes, found.drawing.viewBox);
    EXPECT_NEAR(found.objects[0].extent->breadth, painted.breadth, 0.015 * painted.breadth);
    EXPECT_NEAR(found.objects[0].extent->roundness, painted.roundness, 0.015);
    // Without its line it is narrower.
    const ObjectExtent body = extentOf(R"(<path fill="#ffcc4d" d="M20 25 H80 V70 H50 L20 85 Z"/>)");
    EXPECT_LT(body.breadth, 0.97 * painted.breadth);
}

// A line between two objects goes into both, each holds it to its own outline.
TEST(FormValues, OfObjectsThatShareInkAreThoseOfTheirWholeLayers)
{
    const ChosenObjects found =
        chosen(rect(10, 20, 40, 60, "#ffcc4d") + rect(50, 20, 40, 60, "#4466cc") +
               R"(<path fill="none" stroke="black" stroke-width="4" d="M10 20 H90 V80 H10 Z M50 20 V80"/>)");
    ASSERT_EQ(found.objects.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        ASSERT_TRUE(found.drawing.layers[i].shapes.back().clip) << "the line is held to the object";
        ASSERT_TRUE(found.objects[i].extent);
        const ObjectExtent painted = measureExtent(found.drawing.layers[i].shapes, found.drawing.viewBox);
        EXPECT_NEAR(found.objects[i].extent->breadth, painted.breadth, 0.015 * painted.breadth);
        EXPECT_NEAR(found.objects[i].extent->roundness, painted.roundness, 0.015);
    }
}

TEST(FormValues, AreInUnitsOfThePictureThatTheDrawingIsFittedInto)
{
    const ChosenObjects found = chosen(circle(50, 50, 25, "#ffcc4d"));
    const double own = chooseForms(found, {}).front().bevel;
    FormSettings wide;
    wide.aspect = 2.0;
    FormSettings high;
    high.aspect = 0.5;
    EXPECT_NEAR(chooseForms(found, wide).front().bevel, own / 2.0, 0.03 * own) << "the drawing takes half of the width";
    EXPECT_NEAR(chooseForms(found, high).front().bevel, own, 0.03 * own) << "it takes the whole width";
}
