// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Objects that do not face the viewer, wherever that is said.
#include "ProgramFixture.h"

#include <QImage>

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

// A box above a disc, which do not touch.
QByteArray figure(const QByteArray& attributes = {})
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"
  viewBox="0 0 96 96" width="96" height="96">
<g inkscape:groupmode="layer" inkscape:label="Disc"><circle cx="48" cy="70" r="20" fill="#338833"/></g>
<g inkscape:groupmode="layer" inkscape:label="Box" )" +
           attributes + R"(><rect x="20" y="8" width="56" height="32" fill="#e0a060"/></g></svg>)";
}

class Tilt : public Program
{
protected:
    void SetUp() override { write("plain.svg", figure()); }

    // The vector of a pixel of a map, y up, from 8 bits.
    void expectVector(const char* map, const QPoint& place, double x, double y, double z) const
    {
        const QRgb pixel = QImage(path(map)).pixel(place);
        EXPECT_NEAR(qRed(pixel) / 127.5 - 1.0, x, 0.012);
        EXPECT_NEAR(qGreen(pixel) / 127.5 - 1.0, y, 0.012);
        EXPECT_NEAR(qBlue(pixel) / 127.5 - 1.0, z, 0.012);
    }

    QImage map(const char* words) const
    {
        const Outcome outcome = quarvel(QStringLiteral("normalmap -q -o map.png --pad 0 ") + QLatin1String(words));
        EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
        return QImage(path("map.png"));
    }
};

} // namespace

TEST_F(Tilt, TurnsAFlatObjectToTheRightAndUpwards)
{
    map("plain.svg --shape off --object box:tilt=30,0");
    expectVector("map.png", {48, 24}, 0.5, 0.0, 0.866);
    expectVector("map.png", {48, 70}, 0.0, 0.0, 1.0);
    map("plain.svg --shape off --object box:tilt=0,30");
    expectVector("map.png", {48, 24}, 0.0, 0.5, 0.866);
    map("plain.svg --shape off --object box:tilt=-30,-90");
    expectVector("map.png", {48, 24}, -0.5, -0.866, 0.0);
}

TEST_F(Tilt, LeavesOtherObjectsAndTheGroundAsTheyWere)
{
    const QImage plain = map("plain.svg");
    const QImage tilted = map("plain.svg --object box:tilt=25,10");
    ASSERT_EQ(plain.size(), tilted.size());
    const QRect box(20, 8, 56, 32);
    int changed = 0;
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x)
            if (plain.pixel(x, y) != tilted.pixel(x, y)) {
                EXPECT_TRUE(box.contains(x, y)) << x << ' ' << y;
                ++changed;
            }
    EXPECT_EQ(changed, box.width() * box.height());
}

TEST_F(Tilt, IsTheSameInARunADrawingAndAScene)
{
    const QImage said = map("plain.svg --object box:tilt=25,10");
    write("own.svg", figure(R"(data-vallorin-tilt="25,10")"));
    EXPECT_EQ(map("own.svg"), said);
    EXPECT_THAT(quarvel("inspect own.svg").output, HasSubstr("tilt=25,10"));

    for (const char* const words : {"import plain.svg --object box:tilt=25,10", "import plain.svg -o set.scene"})
        ASSERT_EQ(quarvel(words).exitCode, 0);
    ASSERT_EQ(quarvel("set set.scene --object box:tilt=25,10").exitCode, 0);
    EXPECT_THAT(quarvel("inspect set.scene").output, HasSubstr("TiltX  25"));
    for (const char* const scene : {"plain", "set"})
        ASSERT_EQ(
            quarvel(QStringLiteral("render %1.scene -o %1.png --resolution 96").arg(QLatin1String(scene))).exitCode, 0);
    EXPECT_EQ(QImage(path("plain.png")), QImage(path("set.png")));
    ASSERT_FALSE(QImage(path("set.png")).isNull());
}

TEST_F(Tilt, OfAnObjectBeneathAnotherEndsAtItsOutline)
{
    write("over.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 96 96" width="96" height="96">
<g id="below" data-vallorin-tilt="40,0"><rect x="8" y="8" width="80" height="80" fill="#338833"/></g>
<g id="above" data-vallorin-tilt="0,0"><circle cx="48" cy="48" r="20" fill="#e0a060"/></g></svg>)");
    map("over.svg --shape off");
    expectVector("map.png", {20, 48}, 0.643, 0.0, 0.766);
    expectVector("map.png", {48, 48}, 0.0, 0.0, 1.0);
    map("over.svg --shape off --object above:cutout");
    expectVector("map.png", {20, 48}, 0.643, 0.0, 0.766);
    expectVector("map.png", {48, 48}, 0.0, 0.0, 1.0);
}
