// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the words of "quarvel import" mean.
#include "ImportCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

ImportOptions parsed(const QStringList& words)
{
    const UT_Result<ImportOptions> options = parseImportOptions(words);
    EXPECT_TRUE(options) << options.error().text.toStdString();
    return options ? *options : ImportOptions();
}

std::string errorOf(const QStringList& words)
{
    const UT_Result<ImportOptions> options = parseImportOptions(words);
    return options ? std::string("no error") : options.error().text.toStdString();
}

using testing::HasSubstr;

} // namespace

TEST(ImportOptions, TheSceneIsNamedAfterTheSequence)
{
    EXPECT_EQ(parsed({"art/walk_2.svg", "art/walk_1.svg"}).output, "art/walk.scene");
    EXPECT_EQ(parsed({"bounce2.json"}).output, "bounce2.scene");
}

TEST(ImportOptions, TakeWhatIsGiven)
{
    const ImportOptions options = parsed({"a.svg", "-o", "b.scene", "--objects", "groups", "--force", "-q"});
    EXPECT_EQ(options.files, QStringList{"a.svg"});
    EXPECT_EQ(options.output, "b.scene");
    EXPECT_EQ(options.form.objects, ObjectChoice::GROUPS);
    EXPECT_TRUE(options.force);
    EXPECT_TRUE(options.quiet);
    EXPECT_FALSE(parsed({"a.svg"}).force);
}

TEST(ImportOptions, WordsWithoutMeaningAreExplained)
{
    EXPECT_THAT(errorOf({}), HasSubstr("which drawings?"));
    EXPECT_THAT(errorOf({"a.svg", "--objects", "none"}), HasSubstr("auto, layers, groups, shapes, one"));
    EXPECT_THAT(errorOf({"a.svg", "--frames", "3"}), HasSubstr("quarvel help import"));
}

TEST(ImportOptions, HelpNeedsNoFiles)
{
    EXPECT_TRUE(parsed({"--help"}).help);
}
