// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pages of --html as files: when they are written, under which names, and what is said where they cannot be. What they
// show is tested in a browser.
#include "ProgramFixture.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class Page : public Program
{
protected:
    void SetUp() override
    {
        write("disc.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="30">
            <circle cx="20" cy="15" r="12" fill="#c83"/></svg>)");
        write("tree.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20">
            <rect x="4" y="4" width="9" height="12" fill="#383"/></svg>)");
    }
};

} // namespace

TEST_F(Page, StandsBesideTheMapThatIsWrittenAnyway)
{
    ASSERT_EQ(quarvel("normalmap disc.svg --html pages/disc.html").exitCode, 0);
    EXPECT_TRUE(exists("disc_n.png"));
    EXPECT_TRUE(exists("pages/disc.html"));
}

TEST_F(Page, OfSeveralDrawingsGoIntoAFolder)
{
    ASSERT_EQ(quarvel("normalmap disc.svg tree.svg -o maps --html pages").exitCode, 0);
    EXPECT_TRUE(exists("pages/disc.html"));
    EXPECT_TRUE(exists("pages/tree.html"));
}

TEST_F(Page, ThatWouldBeWrittenTwiceIsRefused)
{
    const Outcome outcome = quarvel("normalmap disc.svg tree.svg -o maps --html one.html");
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_THAT(outcome.messages, HasSubstr("one.html names one page, and there are several drawings"));
    EXPECT_FALSE(exists("maps"));
}

TEST_F(Page, HasANameThatBrowsersTakeForOne)
{
    for (const char* words : {"normalmap disc.svg --html disc.png", "normalmap disc.svg --html page"}) {
        const Outcome outcome = quarvel(words);
        EXPECT_EQ(outcome.exitCode, 2) << words;
        EXPECT_THAT(outcome.messages, HasSubstr("its name is to end in .html")) << words;
    }
    EXPECT_FALSE(exists("disc_n.png"));
}

TEST_F(Page, IsNotWrittenOfWhatHasNoNormalsOrManySprites)
{
    const Outcome flat = quarvel("normalmap disc.svg --html a.html --no-normals");
    EXPECT_EQ(flat.exitCode, 2);
    EXPECT_THAT(flat.messages, HasSubstr("leave out --no-normals"));
    const Outcome cells = quarvel("normalmap disc.png --html a.html --cells 8x8");
    EXPECT_EQ(cells.exitCode, 2);
    EXPECT_THAT(cells.messages, HasSubstr("does not go with --cells or --atlas"));
    ASSERT_EQ(quarvel("import disc.svg -o disc.scene").exitCode, 0);
    const Outcome colours = quarvel("render disc.scene --html a.html --as colours");
    EXPECT_EQ(colours.exitCode, 2);
    EXPECT_THAT(colours.messages, HasSubstr("--html lights normals"));
    EXPECT_FALSE(exists("a.html"));
}

TEST_F(Page, OfASceneIsAFileOfItsOwn)
{
    ASSERT_EQ(quarvel("import disc.svg -o disc.scene").exitCode, 0);
    const Outcome outcome = quarvel("render disc.scene --html pages/disc.html --resolution 80");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    EXPECT_THAT(outcome.output, HasSubstr("disc.scene -> pages/disc.html"));
    EXPECT_TRUE(exists("pages/disc.html"));
}

TEST_F(Page, ThatCannotBeWrittenLeavesTheOldOne)
{
    write("disc.html", "old");
    ASSERT_EQ(quarvel("normalmap disc.svg --size 70000 --html disc.html").exitCode, 1);
    EXPECT_EQ(bytes("disc.html"), "old");
    EXPECT_EQ(filesThere(), (QStringList{"disc.html", "disc.svg", "tree.svg"}));
}
