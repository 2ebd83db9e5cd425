// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The names of the files that an export writes.
#include "studio/export/ExportChoices.h"

#include <gtest/gtest.h>

namespace {

QStringList filesFor(const QString& file, const QList<ExportPicture>& pictures, const QString& target = {})
{
    ExportChoices choices;
    choices.file = file;
    choices.pictures = pictures;
    choices.target = target.isEmpty() ? nullptr : *targetNamed(target);
    return choices.files();
}

const QList<ExportPicture> kAll{ExportPicture::MAP, ExportPicture::ELEVATION, ExportPicture::LIT,
                                ExportPicture::DRAWING};

TEST(ExportChoices, NameThePicturesOfAFrameAfterTheFirst)
{
    EXPECT_EQ(filesFor("out/hero_n.png", kAll),
              (QStringList{"out/hero_n.png", "out/hero_e.png", "out/hero_lit.png", "out/hero_drawing.png"}));
    EXPECT_EQ(filesFor("out/hero_e.png", {ExportPicture::ELEVATION, ExportPicture::DRAWING}),
              (QStringList{"out/hero_e.png", "out/hero_drawing.png"}));
    EXPECT_EQ(filesFor("out/any.png", {ExportPicture::DRAWING}), QStringList{"out/any.png"});
}

TEST(ExportChoices, KeepThePlaceOfTheNumberAndTheDotsOfAName)
{
    const QList<ExportPicture> two{ExportPicture::MAP, ExportPicture::ELEVATION};
    EXPECT_EQ(filesFor("walk_n.####.png", two)[1], "walk_e.####.png");
    EXPECT_EQ(filesFor("walk_n_%04d.png", two)[1], "walk_e_%04d.png");
    EXPECT_EQ(filesFor("v1.2_n.png", two)[1], "v1.2_e.png");
    EXPECT_EQ(filesFor("a.b/walk_n.png", two)[1], "a.b/walk_e.png");
}

TEST(ExportChoices, TakeOnlyAFormatsEndingForAnEnding)
{
    const auto named = [](const char* file) { return withExportEnding(QLatin1String(file), QStringLiteral("exr")); };
    EXPECT_EQ(named("walk_n.####.png"), "walk_n.####.exr");
    EXPECT_EQ(named("walk_n.####"), "walk_n.####.exr");
    EXPECT_EQ(named("walk_n.%04d.PNG"), "walk_n.%04d.exr");
    EXPECT_EQ(named("a.b/hero_n"), "a.b/hero_n.exr");
    EXPECT_EQ(named("v1.2_n"), "v1.2_n.exr");
    EXPECT_EQ(named("v1.2_n.exr"), "v1.2_n.exr");
}

TEST(ExportChoices, KnowWhatEveryTargetCallsAMap)
{
    const QList<ExportPicture> two{ExportPicture::MAP, ExportPicture::ELEVATION};
    EXPECT_EQ(filesFor("hero_N.png", two)[1], "hero_e.png");
    EXPECT_EQ(filesFor("hero_normal.png", two)[1], "hero_e.png");
    EXPECT_EQ(filesFor("hero.png", two)[1], "hero_e.png");
    EXPECT_EQ(filesFor("can_north.png", two)[1], "can_north_e.png");
    // A name never shrinks to nothing.
    EXPECT_EQ(filesFor("_n.png", two)[1], "_n_e.png");
}

TEST(ExportChoices, CallHeightsAndOcclusionAsTheTargetDoes)
{
    const QList<ExportPicture> surfaces{ExportPicture::MAP, ExportPicture::HEIGHT, ExportPicture::OCCLUSION,
                                        ExportPicture::NUMBERS};
    EXPECT_EQ(filesFor("hero_n.png", surfaces),
              (QStringList{"hero_n.png", "hero_height.png", "hero_ao.png", "hero_numbers.png"}));
    EXPECT_EQ(filesFor("hero_N.png", surfaces, "unreal"),
              (QStringList{"hero_N.png", "hero_H.png", "hero_AO.png", "hero_numbers.png"}));
    // Another target's name for the first picture is replaced too.
    EXPECT_EQ(filesFor("hero_H.####.png", {ExportPicture::HEIGHT, ExportPicture::OCCLUSION}, "gltf")[1],
              "hero_occlusion.####.png");
}

TEST(ExportChoices, WriteLitPicturesAsPng)
{
    EXPECT_EQ(filesFor("walk_n.####.exr", kAll),
              (QStringList{"walk_n.####.exr", "walk_e.####.exr", "walk_lit.####.png", "walk_drawing.####.exr"}));
}

} // namespace
