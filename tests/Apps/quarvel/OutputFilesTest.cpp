// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where the pictures of a run go.
#include "OutputFiles.h"
#include "TestFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

NormalMapOptions optionsFor(const QStringList& drawings)
{
    NormalMapOptions options;
    options.drawings = drawings;
    return options;
}

std::string errorOf(const NormalMapOptions& options)
{
    const auto files = outputFiles(options);
    return files ? std::string("no error") : files.error().text.toStdString();
}

} // namespace

TEST(OutputFiles, LieBesideTheDrawingUnlessNamed)
{
    const auto files = outputFiles(optionsFor({"art/hero.v2.svg"}));
    ASSERT_TRUE(files);
    EXPECT_EQ(files->front().normalMap, "art/hero.v2_n.png");
    EXPECT_TRUE(files->front().elevation.isEmpty());
    EXPECT_TRUE(files->front().lit.isEmpty());
    EXPECT_TRUE(files->front().drawing.isEmpty());
}

TEST(OutputFiles, OfOneDrawingAreCalledWhatTheOptionsSay)
{
    NormalMapOptions options = optionsFor({"hero.svg"});
    options.output = "out/map.exr";
    options.elevation = "out/height.png";
    const auto files = outputFiles(options);
    ASSERT_TRUE(files);
    EXPECT_EQ(files->front().normalMap, "out/map.exr");
    EXPECT_EQ(files->front().elevation, "out/height.png");
}

TEST(OutputFiles, OfSeveralDrawingsGoIntoTheNamedFolders)
{
    NormalMapOptions options = optionsFor({"a.svg", "b.svg"});
    options.output = "maps";
    options.lit = "lit";
    const auto files = outputFiles(options);
    ASSERT_TRUE(files);
    EXPECT_EQ((*files)[0].normalMap, "maps/a_n.png");
    EXPECT_EQ((*files)[1].normalMap, "maps/b_n.png");
    EXPECT_EQ((*files)[1].lit, "lit/b_lit.png");
}

// A folder from a stranger may hold hero_n.png as a link to a file of the user's.
TEST(OutputFiles, AreNotWrittenThroughALinkThatNobodyNamed)
{
    const TestFolder folder;
    const QString link = folder.path("hero_n.png");
    ASSERT_TRUE(QFile::link(folder.path("precious"), link));
    NormalMapOptions options = optionsFor({folder.path("hero.svg")});
    EXPECT_THAT(errorOf(options), HasSubstr("hero_n.png is a link"));
    options.output = link;
    EXPECT_EQ(errorOf(options), "no error") << "whoever names a link means it";
    options.output = folder.path();
    EXPECT_THAT(errorOf(options), HasSubstr("hero_n.png is a link"));
}

TEST(OutputFiles, ReplaceNoDrawingThatALinkLeadsTo)
{
    const TestFolder folder;
    const auto path = [&folder](const char* name) { return folder.path(name); };
    folder.write("hero.svg", {});
    ASSERT_TRUE(QFile::link(path("hero.svg"), path("map.png")));
    ASSERT_TRUE(QFile::link(folder.path(), path("again")));
    NormalMapOptions options = optionsFor({path("hero.svg")});
    options.output = path("map.png");
    EXPECT_THAT(errorOf(options), HasSubstr("map.png would be written over by what is made of"));
    options.output = path("again/map.png");
    EXPECT_THAT(errorOf(options), HasSubstr("again/map.png would be written over by what is made of"));
    options.output = path("n.png");
    options.lit = path("again/n.png");
    EXPECT_THAT(errorOf(options), HasSubstr("would be written to"));
    options.lit = path("again/new/n.png");
    EXPECT_EQ(errorOf(options), "no error");
}

TEST(OutputFiles, OfADrawingWithoutANameEndInAnErrorOrNone)
{
    EXPECT_FALSE(errorOf(optionsFor({""})).empty());
}

TEST(OutputFiles, OfOneDrawingGoIntoAFolderThatExists)
{
    const TestFolder folder;
    NormalMapOptions options = optionsFor({"hero.svg"});
    options.output = folder.path();
    const auto files = outputFiles(options);
    ASSERT_TRUE(files);
    EXPECT_EQ(files->front().normalMap, folder.path("hero_n.png"));
}

TEST(OutputFiles, OfOneDrawingGoIntoAFolderThatASlashNames)
{
    NormalMapOptions options = optionsFor({"hero.svg"});
    options.output = "maps/";
    options.lit = "lit/";
    options.gloss.others = 0.5;
    const auto files = outputFiles(options);
    ASSERT_TRUE(files) << files.error().text.toStdString();
    EXPECT_EQ(files->front().normalMap, "maps/hero_n.png");
    EXPECT_EQ(files->front().lit, "lit/hero_lit.png");
    EXPECT_EQ(files->front().gloss, "maps/hero_gloss.png");
    options.output = "maps";
    EXPECT_THAT(errorOf(options), HasSubstr("or write maps/ for a folder"));
}

TEST(OutputFiles, RefuseToMeetInOneName)
{
    NormalMapOptions options = optionsFor({"left/hero.svg", "right/hero.svg"});
    options.output = "maps";
    EXPECT_THAT(errorOf(options), HasSubstr("maps/hero_n.png"));
}

TEST(OutputFiles, RefuseToReplaceADrawing)
{
    NormalMapOptions options = optionsFor({"hero.png"});
    options.output = "hero.png";
    EXPECT_THAT(errorOf(options), HasSubstr("hero.png"));
}

TEST(OutputFiles, RefuseToReplaceADrawingOrAPictureByAMapForMirroredSprites)
{
    NormalMapOptions options = optionsFor({"hero_flipx.png"});
    options.output = "hero.png";
    EXPECT_EQ(errorOf(options), "no error");
    options.flips = true;
    EXPECT_THAT(errorOf(options), HasSubstr("hero_flipx.png would be written over"));
    options = optionsFor({"hero.svg"});
    options.flips = true;
    options.elevation = "hero_n_flipy.png";
    EXPECT_THAT(errorOf(options), HasSubstr("would be written to hero_n_flipy.png"));
}

TEST(OutputFiles, RefuseToReplaceTheAtlas)
{
    NormalMapOptions options = optionsFor({"pages/hero.png"});
    options.atlas = "hero.json";
    EXPECT_EQ(errorOf(options), "no error");
    options.suffix = "";
    options.output = "map.png";
    EXPECT_THAT(errorOf(options), HasSubstr("hero.json would be written over"));
    options = optionsFor({"hero.png"});
    options.atlas = "hero_canvas.tres";
    options.canvas = true;
    EXPECT_THAT(errorOf(options), HasSubstr("hero_canvas.tres would be written over"));
}

TEST(OutputFiles, SayWhichFormatsThereAre)
{
    NormalMapOptions options = optionsFor({"hero.svg"});
    options.output = "hero.psq";
    EXPECT_THAT(errorOf(options), testing::AllOf(HasSubstr("psq"), HasSubstr("exr"), HasSubstr("png")));
}
