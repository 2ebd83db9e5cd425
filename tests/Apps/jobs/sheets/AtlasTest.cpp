// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The places of sprites on a page in each kind of atlas.
#include "TestFolder.h"
#include "jobs/sheets/AtlasGodot.h"
#include "jobs/sheets/AtlasJson.h"
#include "jobs/sheets/AtlasText.h"
#include "jobs/sheets/ReadAtlas.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AllOf;
using testing::HasSubstr;

namespace {

template<typename T>
std::string errorOf(const UT_Result<T>& result)
{
    return result ? std::string("no error") : result.error().sentence().toStdString();
}

// A sprite of 40 x 24, trimmed to 32 x 18 at 4, 3.
const char* const kHash = R"({"frames": {
  "walk_1.png": {"frame": {"x": 2, "y": 3, "w": 32, "h": 18}, "rotated": false, "trimmed": true,
    "spriteSourceSize": {"x": 4, "y": 3, "w": 32, "h": 18}, "sourceSize": {"w": 40, "h": 24}},
  "walk_2.png": {"frame": {"x": 50, "y": 4, "w": 32, "h": 18}, "rotated": true, "trimmed": true,
    "spriteSourceSize": {"x": 4, "y": 3, "w": 32, "h": 18}, "sourceSize": {"w": 40, "h": 24}},
  "coin.png": {"frame": {"x": 0, "y": 40, "w": 8, "h": 8}, "rotated": false, "trimmed": false}},
  "meta": {"image": "page.png"}})";

class AtlasFile : public testing::Test, protected TestFolder
{};

} // namespace

TEST(AtlasJson, ReadsTheHashWithTrimmedAndTurnedFrames)
{
    const auto sheets = parseAtlasJson(kHash);
    ASSERT_TRUE(sheets) << errorOf(sheets);
    ASSERT_EQ(sheets->size(), 1U);
    EXPECT_EQ(sheets->front().page, "page.png");
    const auto& regions = sheets->front().regions;
    ASSERT_EQ(regions.size(), 3U);
    EXPECT_EQ(regions[0].name, "coin.png");
    EXPECT_EQ(regions[0].whole, QSize(8, 8));
    EXPECT_EQ(regions[0].animation, "");
    EXPECT_EQ(regions[1].place, QRect(2, 3, 32, 18));
    EXPECT_EQ(regions[1].whole, QSize(40, 24));
    EXPECT_EQ(regions[1].offset, QPoint(4, 3));
    EXPECT_EQ(regions[1].animation, regions[2].animation);
    EXPECT_EQ(regions[2].place, QRect(50, 4, 18, 32)) << "turned, it is as wide as it was high";
    EXPECT_EQ(regions[2].quarterTurns, 1);
}

TEST(AtlasJson, ReadsArraysTagsAndSeveralPages)
{
    const auto tagged = parseAtlasJson(R"({"frames": [
      {"filename": "hero 0.aseprite", "frame": {"x": 0, "y": 0, "w": 4, "h": 4}},
      {"filename": "hero 1.aseprite", "frame": {"x": 4, "y": 0, "w": 4, "h": 4}},
      {"filename": "hero 2.aseprite", "frame": {"x": 8, "y": 0, "w": 4, "h": 4}}],
      "meta": {"image": "hero.png", "frameTags": [{"name": "run", "from": 1, "to": 2, "direction": "forward"}]}})");
    ASSERT_TRUE(tagged) << errorOf(tagged);
    EXPECT_EQ(tagged->front().regions[2].place, QRect(8, 0, 4, 4));
    EXPECT_EQ(tagged->front().regions[1].animation, "run");
    EXPECT_NE(tagged->front().regions[0].animation, "run");
    const auto pages = parseAtlasJson(R"({"textures": [
      {"image": "a.png", "frames": [{"filename": "x", "frame": {"x": 0, "y": 0, "w": 4, "h": 4}}]},
      {"image": "b.png", "frames": [{"filename": "y", "frame": {"x": 1, "y": 0, "w": 4, "h": 4}}]}]})");
    ASSERT_TRUE(pages) << errorOf(pages);
    ASSERT_EQ(pages->size(), 2U);
    EXPECT_EQ((*pages)[1].page, "b.png");
}

TEST(AtlasJson, SaysWhatIsMissing)
{
    EXPECT_THAT(errorOf(parseAtlasJson("{")), HasSubstr("not JSON"));
    EXPECT_THAT(errorOf(parseAtlasJson("{}")), HasSubstr("names no page"));
    EXPECT_THAT(errorOf(parseAtlasJson(R"({"meta": {"image": "a.png"}})")), HasSubstr("no \"frames\""));
}

TEST(AtlasJson, RefusesPlacesThatAreNoPixels)
{
    for (const char* const x : {"\"4\"", "1e300", "0.5", "-1000001", "true", "null", "[4]"}) {
        const QByteArray json = QByteArray(R"({"meta": {"image": "p.png"}, "frames": {"hat": {"frame": {"x": )") + x +
                                R"(, "y": 0, "w": 4, "h": 4}}}})";
        EXPECT_THAT(errorOf(parseAtlasJson(json)), AllOf(HasSubstr("\"hat\""), HasSubstr("whole numbers"))) << x;
    }
}

TEST(AtlasText, ReadsTheWordsOfTodayAndOfBefore)
{
    const auto sheets = parseAtlasText("page.png\nsize: 64, 64\nfilter: Linear, Linear\n"
                                       "head\n  bounds: 2, 3, 32, 18\n  offsets: 4, 5, 40, 24\n  rotate: 90\n"
                                       "\nold.png\nsize: 64,64\nformat: RGBA8888\n"
                                       "arm\n  rotate: false\n  xy: 7, 8\n  size: 9, 10\n  orig: 12, 20\n"
                                       "  offset: 1, 2\n  index: -1\n");
    ASSERT_TRUE(sheets) << errorOf(sheets);
    ASSERT_EQ(sheets->size(), 2U);
    const SheetRegion& head = (*sheets)[0].regions.front();
    EXPECT_EQ(head.place, QRect(2, 3, 18, 32));
    EXPECT_EQ(head.quarterTurns, 3) << "counter-clockwise";
    EXPECT_EQ(head.whole, QSize(40, 24));
    EXPECT_EQ(head.offset, QPoint(4, 24 - 5 - 18)) << "from the upper edge";
    const SheetRegion& arm = (*sheets)[1].regions.front();
    EXPECT_EQ((*sheets)[1].page, "old.png");
    EXPECT_EQ(arm.place, QRect(7, 8, 9, 10));
    EXPECT_EQ(arm.offset, QPoint(1, 20 - 2 - 10));
}

TEST(AtlasText, RefusesTurnsThatAreNoQuarters)
{
    EXPECT_THAT(errorOf(parseAtlasText("p.png\na\n rotate: 45\n bounds: 0, 0, 1, 1\n")), HasSubstr("45 degrees"));
    EXPECT_THAT(errorOf(parseAtlasText("just words\n")), HasSubstr("no page with regions"));
}

TEST(AtlasText, RefusesPlacesThatAreNoPixels)
{
    for (const char* const place : {"bounds: 0, 0, 4, x", "bounds: 0, 0, 4, 4000000000", "xy: 1.5, 2", "orig: , 3"})
        EXPECT_THAT(errorOf(parseAtlasText(QByteArray("p.png\nhat\n ") + place + "\n")),
                    AllOf(HasSubstr("\"hat\""), HasSubstr(place)))
            << place;
    EXPECT_TRUE(parseAtlasText("p.png\nhat\n bounds: 0, 0, 4, 4\n rotate: false\n who: me\n"));
}

TEST(AtlasGodot, RefusesPlacesThatAreNoPixels)
{
    for (const char* const place : {"Rect2(0, 0, 4)", "Rect2(0, 0, 4, 1e300)", "Rect2(nan, 0, 4, 4)", "4"})
        EXPECT_THAT(errorOf(parseAtlasGodot(QByteArray("[ext_resource path=\"res://p.png\" id=\"1\"]\n[resource]\n"
                                                       "atlas = ExtResource(\"1\")\nregion = ") +
                                            place + "\n")),
                    HasSubstr("whole numbers"))
            << place;
}

TEST(AtlasGodot, ReadsRegionsMarginsAndAnimations)
{
    const auto sheets = parseAtlasGodot(R"([gd_resource type="SpriteFrames" load_steps=4 format=3]

[ext_resource type="Texture2D" uid="uid://b" path="res://art/page.png" id="1_p"]

[sub_resource type="AtlasTexture" id="AtlasTexture_a"]
atlas = ExtResource("1_p")
region = Rect2(2, 3, 32, 18)
margin = Rect2(4, 3, 8, 6)

[sub_resource type="AtlasTexture" id="AtlasTexture_b"]
atlas = ExtResource("1_p")
region = Rect2(50, 4, 18, 32)

[resource]
animations = [{
"frames": [{
"duration": 1.0,
"texture": SubResource("AtlasTexture_a")
}],
"loop": true,
"name": &"walk",
"speed": 5.0
}]
)");
    ASSERT_TRUE(sheets) << errorOf(sheets);
    EXPECT_EQ(sheets->front().page, "res://art/page.png");
    const auto& regions = sheets->front().regions;
    ASSERT_EQ(regions.size(), 2U);
    EXPECT_EQ(regions[0].place, QRect(2, 3, 32, 18));
    EXPECT_EQ(regions[0].whole, QSize(40, 24));
    EXPECT_EQ(regions[0].offset, QPoint(4, 3));
    EXPECT_EQ(regions[0].animation, "walk");
    EXPECT_EQ(regions[1].animation, "");
}

TEST(CellGrid, CountsFromTheMarginInSteps)
{
    const auto cells = cellsOf({36, 20}, {.cell = {8, 8}, .margin = 1, .spacing = 2});
    ASSERT_TRUE(cells);
    ASSERT_EQ(cells->size(), 6U) << "three across, at 1, 11 and 21; two down, at 1 and 11";
    EXPECT_EQ((*cells)[2].place, QRect(21, 1, 8, 8));
    EXPECT_EQ((*cells)[3].place, QRect(1, 11, 8, 8));
    EXPECT_THAT(errorOf(cellsOf({4, 4}, {.cell = {8, 8}})), HasSubstr("not one cell of 8 x 8"));
}

TEST(Regions, HaveToLieOnThePageAndApart)
{
    const auto region = [](const char* name, const QRect& place) {
        return SheetRegion{.name = QString::fromLatin1(name),
                           .place = place,
                           .quarterTurns = 0,
                           .whole = place.size(),
                           .offset = {},
                           .animation = {}};
    };
    EXPECT_TRUE(checkRegions({region("a", {0, 0, 4, 4}), region("b", {4, 0, 4, 4})}, {8, 4}));
    EXPECT_TRUE(checkRegions({region("a", {0, 0, 4, 4}), region("b", {0, 0, 4, 4})}, {8, 4}))
        << "one sprite, two names";
    EXPECT_THAT(errorOf(checkRegions({region("a", {0, 0, 4, 4}), region("b", {3, 0, 4, 4})}, {8, 4})),
                HasSubstr("overlap"));
    EXPECT_THAT(errorOf(checkRegions({region("a", {3, 0, 4, 4}), region("b", {0, 0, 4, 4}), region("c", {3, 0, 4, 4})},
                                     {8, 4})),
                HasSubstr("\"a\" (3, 0, 4 x 4) and \"b\" (0, 0, 4 x 4) overlap"));
    EXPECT_THAT(errorOf(checkRegions({region("a", {5, 0, 4, 4})}, {8, 4})), HasSubstr("leaves the page"));
    EXPECT_THAT(errorOf(checkRegions({region("a", {1, 1, 0, 4})}, {8, 4})), HasSubstr("no pixels"));
    SheetRegion wide = region("a", {0, 0, 4, 4});
    wide.offset = {1, 0};
    EXPECT_THAT(errorOf(checkRegions({wide}, {8, 4})), HasSubstr("does not fit"));
}

// Beside each other, in as many ways as there are: the sweep compares each with its neighbours alone.
TEST(Regions, AreComparedWithAllThatTheyCanMeet)
{
    const auto region = [](const QRect& place) {
        SheetRegion made;
        made.name = QStringLiteral("%1,%2").arg(place.x()).arg(place.y());
        made.place = place;
        made.whole = place.size();
        return made;
    };
    const QSize page(1000, 1000);
    std::vector<SheetRegion> grid;
    for (int y = 0; y < 1000; y += 10)
        for (int x = y % 7; x + 8 < 1000; x += 8)
            grid.push_back(region({x, y, 8, 10}));
    EXPECT_TRUE(checkRegions(grid, page)) << errorOf(checkRegions(grid, page));
    for (const QRect& place : {QRect(0, 500, 1000, 1), QRect(500, 0, 1, 1000), QRect(504, 333, 3, 3)}) {
        auto more = grid;
        more.push_back(region(place));
        EXPECT_THAT(errorOf(checkRegions(more, page)), HasSubstr("overlap")) << place.x() << ", " << place.y();
    }
    auto twins = grid;
    twins.insert(twins.end(), grid.begin(), grid.end());
    EXPECT_TRUE(checkRegions(twins, page)) << "one sprite with two names";
}

TEST_F(AtlasFile, HasNoMoreSpritesThanCanBeRead)
{
    write("page.png", "");
    QByteArray atlas = "page.png\n";
    for (int i = 0; i <= 100'000; ++i)
        atlas += "s\n bounds: 0, 0, 1, 1\n";
    EXPECT_THAT(errorOf(readAtlas(write("many.atlas", atlas))), HasSubstr("100001 sprites, more than the 100000"));
}

TEST_F(AtlasFile, FindsItsPageBesideItAndBelowTheProject)
{
    const QString json = write("a/page.json", kHash);
    EXPECT_THAT(errorOf(readAtlas(json)), HasSubstr("its page page.png is missing"));
    write("a/page.png", "");
    const auto sheets = readAtlas(json);
    ASSERT_TRUE(sheets) << errorOf(sheets);
    EXPECT_TRUE(sheets->front().page.endsWith("a/page.png"));

    write("game/project.godot", "");
    write("game/art/page.png", "");
    const QString tres = write("game/frames/hero.tres", "[ext_resource path=\"res://art/page.png\" id=\"1\"]\n"
                                                        "[resource]\natlas = ExtResource(\"1\")\n"
                                                        "region = Rect2(0, 0, 4, 4)\n");
    const auto godot = readAtlas(tres);
    ASSERT_TRUE(godot) << errorOf(godot);
    EXPECT_TRUE(godot->front().page.endsWith("game/art/page.png"));
}

TEST_F(AtlasFile, NamesNoPageOutsideItsFolder)
{
    write("outside/page.png", "");
    for (const char* const page : {"../outside/page.png", "x/../../outside/page.png"}) {
        QDir().remove(write("in/page.png", ""));
        const QString atlas = write("in/page.atlas", QByteArray(page) + "\nx\n bounds: 0, 0, 1, 1\n");
        EXPECT_THAT(errorOf(readAtlas(atlas)), HasSubstr("outside the atlas' folder")) << page;
        write("in/page.png", "");
        const auto sheets = readAtlas(atlas);
        ASSERT_TRUE(sheets) << errorOf(sheets);
        EXPECT_TRUE(sheets->front().page.endsWith("in/page.png"));
    }
    const QString tres =
        write("in/hero.tres", "[ext_resource path=\"res://../outside/other.png\" id=\"1\"]\n[resource]\n"
                              "atlas = ExtResource(\"1\")\nregion = Rect2(0, 0, 4, 4)\n");
    write("outside/other.png", "");
    EXPECT_THAT(errorOf(readAtlas(tres)), HasSubstr("outside the atlas' folder"));
    const auto maps =
        atlasOfMaps(write("in/far.atlas", "../outside/page.png\nx\n bounds: 0, 0, 1, 1\n"), {"page_n.png"});
    ASSERT_TRUE(maps) << errorOf(maps);
    EXPECT_EQ(*maps, "page_n.png\nx\n bounds: 0, 0, 1, 1\n");
}

// Maps are written beside pages.
TEST_F(AtlasFile, NamesNoPageInAFolderThatALinkLeadsOutOf)
{
    write("outside/page.png", "");
    const QString atlas = write("in/page.atlas", "sub/page.png\nx\n bounds: 0, 0, 1, 1\n");
    const QDir in = QFileInfo(atlas).dir();
    ASSERT_TRUE(QFile::link(QStringLiteral("../outside"), in.filePath(QStringLiteral("sub"))));
    EXPECT_THAT(errorOf(readAtlas(atlas)), HasSubstr("outside the atlas' folder"));
    ASSERT_TRUE(QFile::remove(in.filePath(QStringLiteral("sub"))));

    write("in/art/page.png", "");
    ASSERT_TRUE(QFile::link(QStringLiteral("art"), in.filePath(QStringLiteral("sub"))));
    EXPECT_TRUE(readAtlas(atlas)) << "within the folder, links are welcome";
}

TEST_F(AtlasFile, HasALimitWhateverSizeItClaimsToHave)
{
    const QString endless = QFileInfo(write("page.png", "")).dir().filePath(QStringLiteral("endless.json"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), endless));
    EXPECT_THAT(errorOf(readAtlas(endless)), HasSubstr("more than 64 MB"));
}

TEST_F(AtlasFile, OfTheMapsNamesThePagesOfMaps)
{
    const auto json = atlasOfMaps(write("page.json", kHash), {"page_n.png"});
    ASSERT_TRUE(json) << errorOf(json);
    EXPECT_EQ(parseAtlasJson(*json)->front().page, "page_n.png");
    const auto text = atlasOfMaps(write("p.atlas", "a.png\nx\n bounds: 0, 0, 1, 1\n\nb.png\ny\n bounds: 0, 0, 1, 1\n"),
                                  {"a_n.png", "b_n.png"});
    ASSERT_TRUE(text) << errorOf(text);
    EXPECT_EQ(*text, "a_n.png\nx\n bounds: 0, 0, 1, 1\n\nb_n.png\ny\n bounds: 0, 0, 1, 1\n");
    EXPECT_FALSE(atlasOfMaps(write("a.txt", ""), {}));
}

// Frames keep their names and their order, whatever they are called and however a program spelt the page's name.
TEST_F(AtlasFile, OfTheMapsKeepsTheNamesOfFrames)
{
    const QString atlas = write("page.json", R"({"frames": {
        "z": {"frame": {"x": 0, "y": 0, "w": 4, "h": 4}},
        "h\u00e9ro.png": {"frame": {"x": 4, "y": 0, "w": 4, "h": 4}}},
        "meta": {"image": "art\/h\u00e9ro.png", "app": "art/héro.png"}})");
    const auto maps = atlasOfMaps(atlas, {"héro_n.png"});
    ASSERT_TRUE(maps) << errorOf(maps);
    EXPECT_EQ(parseAtlasJson(*maps)->front().page, "art/héro_n.png");
    EXPECT_THAT(maps->toStdString(), HasSubstr("\"h\\u00e9ro.png\": {"));
    EXPECT_THAT(maps->toStdString(), HasSubstr("\"app\": \"art/héro.png\""));
    EXPECT_LT(maps->indexOf("\"z\""), maps->indexOf("\"h\\u00e9ro"));
}

TEST_F(AtlasFile, OfTheMapsKeepsARegionThatIsCalledLikeItsPage)
{
    const auto maps = atlasOfMaps(write("p.atlas", "\na.png\nsize: 8, 8\na.png\n bounds: 0, 0, 1, 1\n"), {"a_n.png"});
    ASSERT_TRUE(maps) << errorOf(maps);
    EXPECT_EQ(*maps, "\na_n.png\nsize: 8, 8\na.png\n bounds: 0, 0, 1, 1\n");
}
