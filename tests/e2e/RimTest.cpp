// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Fine rims on large forms, wherever they are given.
#include "ProgramFixture.h"

#include <QImage>

#include <gmock/gmock.h>

#include <cmath>

using testing::HasSubstr;

namespace {

// A coin beside a bar, in a frame of 144 x 144: five scene units make a pixel.
QByteArray figure(const QByteArray& attributes = {})
{
    return R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape"
  viewBox="0 0 144 144" width="144" height="144">
<g inkscape:groupmode="layer" inkscape:label="Bar"><rect x="8" y="116" width="128" height="20" fill="#338833"/></g>
<g inkscape:groupmode="layer" inkscape:label="Coin" )" +
           attributes + R"(><rect x="24" y="8" width="96" height="96" fill="#e0c060"/></g></svg>)";
}

const QRect kCoin(24, 8, 96, 96);

// How fast a surface rises to the right and downwards.
struct Slope
{
    double right;
    double down;
};

class Rim : public Program
{
protected:
    void SetUp() override { write("plain.svg", figure()); }

    void make(const char* words) const
    {
        const Outcome outcome = quarvel(QLatin1String("normalmap -q --pad 0 ") + QLatin1String(words));
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    }

    QImage map(const char* words) const
    {
        make((QByteArray("-o map.png ") + words).constData());
        return QImage(path("map.png"));
    }

    // The normals are floats, y up.
    Slope slopeAt(const char* file, int x, int y) const
    {
        const IIO_Picture picture = read(file);
        const auto row = picture.row<float>(y);
        const auto channels = static_cast<std::size_t>(picture.channels().size());
        const float* const pixel = row.data() + static_cast<std::size_t>(x - picture.dataWindow().x1) * channels;
        const auto component = [&](const char* name) {
            return static_cast<double>(pixel[picture.channels().indexOf(QLatin1String(name))]);
        };
        return {-component("N.X") / component("N.Z"), component("N.Y") / component("N.Z")};
    }

    float heightAt(const char* file, int x, int y) const
    {
        return read(file).row<float>(y)[static_cast<std::size_t>(x)];
    }
};

} // namespace

TEST_F(Rim, OfAFlatObjectIsABevelOfItsWidthAndHeight)
{
    // 30 units wide and half as high: an elevation of 15 / 37.5.
    const QImage rim = map("plain.svg --shape off --object coin:rim=30,0.5");
    const QImage bevel = map("plain.svg --shape off --object coin:bevel=30:elevation=0.4:smoothness=1");
    ASSERT_EQ(rim.size(), bevel.size());
    for (int y = 0; y < rim.height(); ++y)
        for (int x = 0; x < rim.width(); ++x) {
            EXPECT_NEAR(qRed(rim.pixel(x, y)), qRed(bevel.pixel(x, y)), 1) << x << ' ' << y;
            EXPECT_NEAR(qGreen(rim.pixel(x, y)), qGreen(bevel.pixel(x, y)), 1) << x << ' ' << y;
        }
    EXPECT_GT(qAbs(qRed(rim.pixel(25, 56)) - 128), 40) << "a steep left side";
}

TEST_F(Rim, AddsItsSlopesToTheForm)
{
    const char* const form = "--object coin:bevel=200:elevation=3:smoothness=1.7";
    make((QByteArray("plain.svg --float -o form.exr ") + form).constData());
    make("plain.svg --float -o rim.exr --shape off --object coin:rim=40,0.8");
    make((QByteArray("plain.svg --float -o both.exr ") + form + ":rim=40,0.8").constData());
    for (const auto& [x, y] : {std::pair(25, 56), std::pair(27, 20), std::pair(70, 9), std::pair(117, 100)}) {
        const Slope first = slopeAt("form.exr", x, y);
        const Slope second = slopeAt("rim.exr", x, y);
        const Slope sum = slopeAt("both.exr", x, y);
        EXPECT_GT(std::abs(second.right) + std::abs(second.down), 0.1);
        EXPECT_NEAR(sum.right, first.right + second.right, 0.01) << x << ' ' << y;
        EXPECT_NEAR(sum.down, first.down + second.down, 0.01) << x << ' ' << y;
    }
}

TEST_F(Rim, AddsItsHeightToTheForms)
{
    make("plain.svg -o map.png --object coin:bevel=10:elevation=1 --height plain.exr");
    make("plain.svg -o map.png --object coin:bevel=10:elevation=1:rim=20,0.5 --height both.exr");
    // 37.5 of 720 units of 144 pixels, and 10 units more.
    EXPECT_NEAR(heightAt("plain.exr", 72, 56), 7.5F, 0.01F);
    EXPECT_NEAR(heightAt("both.exr", 72, 56), 9.5F, 0.01F);
    EXPECT_EQ(heightAt("plain.exr", 72, 126), heightAt("both.exr", 72, 126)) << "the bar";
}

TEST_F(Rim, OfAnObjectThatSinksSinks)
{
    make("plain.svg -o map.png --object coin:bevel=10:elevation=-1:rim=20,0.5 --height sunk.exr");
    EXPECT_NEAR(heightAt("sunk.exr", 72, 56), -9.5F, 0.01F);
}

TEST_F(Rim, LeavesOtherObjectsAndTheMiddleAsTheyWere)
{
    const QImage plain = map("plain.svg");
    const QImage rimmed = map("plain.svg --object coin:rim=20");
    // A bevel of 20 units reaches four pixels inwards.
    const QRect inside = kCoin.adjusted(6, 6, -6, -6);
    int changed = 0;
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x) {
            const bool mayChange = kCoin.contains(x, y) && !inside.contains(x, y);
            if (!mayChange) {
                EXPECT_EQ(plain.pixel(x, y), rimmed.pixel(x, y)) << x << ' ' << y;
            }
            changed += plain.pixel(x, y) != rimmed.pixel(x, y);
        }
    EXPECT_GT(changed, 500);
    EXPECT_EQ(map("plain.svg --object coin:rim=0"), plain);
}

TEST_F(Rim, IsTheSameInARunADrawingAndAScene)
{
    const QImage said = map("plain.svg --object coin:rim=15,0.8");
    write("own.svg", figure(R"(data-vallorin-rim="15,0.8")"));
    EXPECT_EQ(map("own.svg"), said);
    EXPECT_THAT(quarvel("inspect own.svg").output, HasSubstr("rim=15,0.8"));

    for (const char* const words : {"import plain.svg --object coin:rim=15,0.8", "import plain.svg -o set.scene"})
        ASSERT_EQ(quarvel(words).exitCode, 0);
    ASSERT_EQ(quarvel("set set.scene --object coin:rim=15,0.8").exitCode, 0);
    EXPECT_THAT(quarvel("inspect set.scene").output, HasSubstr("15,0.8"));
    for (const char* const scene : {"plain", "set"})
        ASSERT_EQ(
            quarvel(QStringLiteral("render %1.scene -o %1.png --resolution 144").arg(QLatin1String(scene))).exitCode,
            0);
    EXPECT_EQ(QImage(path("plain.png")), QImage(path("set.png")));
    ASSERT_FALSE(QImage(path("set.png")).isNull());
}

TEST_F(Rim, TakesKeysInAScene)
{
    ASSERT_EQ(quarvel("import plain.svg").exitCode, 0);
    ASSERT_EQ(quarvel("set plain.scene frames 1-3").exitCode, 0);
    ASSERT_EQ(quarvel("set plain.scene Coin-Definition.RimBevel 1:0 3:30").exitCode, 0);
    ASSERT_EQ(quarvel("render plain.scene -o n.####.png --resolution 144").exitCode, 0);
    const QImage first(path("n.0001.png"));
    EXPECT_NE(QImage(path("n.0002.png")), first);
    EXPECT_NE(QImage(path("n.0003.png")), QImage(path("n.2.png")));
}
