// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The options of the command.
#include "RenderOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Pair;

namespace {

QStringList split(const char* words)
{
    return QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

RenderOptions options(const char* words)
{
    const auto parsed = parseRenderOptions(split("walk.scene -o n.####.exr") + split(words));
    EXPECT_TRUE(parsed) << parsed.error().text.toStdString();
    return parsed ? *parsed : RenderOptions();
}

std::string refused(const char* words)
{
    const auto parsed = parseRenderOptions(split(words));
    EXPECT_FALSE(parsed) << words;
    return parsed ? std::string() : parsed.error().text.toStdString();
}

TEST(RenderOptions, TakeASceneAndAFile)
{
    const RenderOptions parsed = options("");
    EXPECT_EQ(parsed.scene.toStdString(), "walk.scene");
    EXPECT_EQ(parsed.output.toStdString(), "n.####.exr");
    EXPECT_EQ(parsed.layout, NM_Layout::TANGENT);
    EXPECT_EQ(parsed.form.resolved({}), NM_MapForm());
    EXPECT_FALSE(parsed.shown);
}

TEST(RenderOptions, AskForWhatIsMissing)
{
    EXPECT_THAT(refused("-o n.exr"), HasSubstr("which scene"));
    EXPECT_THAT(refused("walk.scene"), HasSubstr("where do the frames go"));
    EXPECT_THAT(refused("a.scene b.scene -o n.exr"), HasSubstr("one scene at a time"));
}

TEST(RenderOptions, TakeFramesThatBeginWithAMinus)
{
    EXPECT_EQ(options("--frames -5--1").frames.toStdString(), "-5--1");
}

TEST(RenderOptions, TakeMemoryInUnits)
{
    EXPECT_EQ(options("--memory 4G").memory, 4.0 * 1024 * 1024 * 1024);
    EXPECT_EQ(options("--memory 1.5k").memory, 1536.0);
    EXPECT_EQ(options("--memory 512MB").memory, 512.0 * 1024 * 1024);
    EXPECT_THAT(refused("s -o n.exr --memory lots"), HasSubstr("512M or 4G"));
    EXPECT_THAT(refused("s -o n.exr --memory 0"), HasSubstr("512M or 4G"));
}

TEST(RenderOptions, TakeShardsWithinTheirNumber)
{
    EXPECT_THAT(options("--shard 2/8").shard, Pair(2, 8));
    EXPECT_THAT(options("--shard 8/8").shard, Pair(8, 8));
    for (const char* wrong : {"9/8", "0/0", "2", "a/b", "1/2/3", "-1/2"})
        EXPECT_THAT(refused(qPrintable(QStringLiteral("s -o n.exr --shard=%1").arg(QLatin1String(wrong)))),
                    HasSubstr("--shard"));
}

TEST(RenderOptions, TakeShardsThatAreCountedFromZero)
{
    // 0/3 1/3 2/3 are all the pieces, and so are 1/3 2/3 3/3.
    EXPECT_THAT(options("--shard 0/3").shard, Pair(3, 3));
}

TEST(RenderOptions, TakeTheShardOfAnArrayTask)
{
    const auto set = [](const char* task, const char* first, const char* count) {
        qputenv("SLURM_ARRAY_TASK_ID", task);
        qputenv("SLURM_ARRAY_TASK_MIN", first);
        qputenv("SLURM_ARRAY_TASK_COUNT", count);
    };
    set("12", "10", "4");
    EXPECT_THAT(options("--shard auto").shard, Pair(3, 4));
    set("3", "0", "4");
    EXPECT_THAT(options("--shard auto").shard, Pair(4, 4));
    set("14", "10", "4");
    EXPECT_THAT(refused("s -o n.exr --shard auto"), HasSubstr("SLURM_ARRAY_TASK_ID"));
    for (const char* name : {"SLURM_ARRAY_TASK_ID", "SLURM_ARRAY_TASK_MIN", "SLURM_ARRAY_TASK_COUNT"})
        qunsetenv(name);
    EXPECT_THAT(refused("s -o n.exr --shard auto"), HasSubstr("SLURM_ARRAY_TASK_ID"));
}

TEST(RenderOptions, TakeEveryStyleOfProgress)
{
    EXPECT_EQ(options("").progress, RenderProgressStyle::AUTOMATIC);
    EXPECT_EQ(options("--progress bar").progress, RenderProgressStyle::BAR);
    EXPECT_EQ(options("--progress lines").progress, RenderProgressStyle::LINES);
    EXPECT_EQ(options("--progress json").progress, RenderProgressStyle::JSON);
    EXPECT_EQ(options("--progress none").progress, RenderProgressStyle::NONE);
    EXPECT_EQ(options("--progress percent").progress, RenderProgressStyle::PERCENT);
    EXPECT_EQ(options("--progress openjd").progress, RenderProgressStyle::OPENJD);
}

TEST(RenderOptions, TakeWhatThePictureIsTakenFor)
{
    EXPECT_EQ(options("--as normals").shown, RenderedKind::NORMALS);
    EXPECT_EQ(options("--as elevation").shown, RenderedKind::ELEVATION);
    EXPECT_EQ(options("--as colours").shown, RenderedKind::COLOURS);
    EXPECT_EQ(options("--layout node").layout, NM_Layout::NODE);
    EXPECT_EQ(options("--y down").form.resolved({}).yAxis, NM_YAxis::DOWN);
}

TEST(RenderOptions, TakeHalfFloatsByEitherOption)
{
    EXPECT_FALSE(options("").form.half);
    EXPECT_TRUE(options("--half").form.half);
    EXPECT_TRUE(options("--exr map,half").form.half);
    EXPECT_TRUE(options("--half --exr map").form.half);
    EXPECT_TRUE(options("--half --exr float").form.half);
}

TEST(RenderResolution, IsAFullHdWidthInTheScenesShape)
{
    EXPECT_THAT(renderResolution(options(""), 405.0), Pair(1920, 1080));
    EXPECT_THAT(renderResolution(options(""), 720.0), Pair(1920, 1920));
    EXPECT_THAT(renderResolution(options("--resolution 640"), 405.0), Pair(640, 360));
    EXPECT_THAT(renderResolution(options("--resolution 640x480"), 405.0), Pair(640, 480));
}

TEST(RenderResolution, IsDividedByTheProxy)
{
    EXPECT_THAT(renderResolution(options("--proxy 1/2"), 405.0), Pair(960, 540));
    EXPECT_THAT(renderResolution(options("--resolution 2x2 --proxy 1/8"), 405.0), Pair(1, 1));
    EXPECT_THAT(refused("s -o n.exr --proxy 2/3"), HasSubstr("1/2"));
    EXPECT_THAT(refused("s -o n.exr --proxy 1/0"), HasSubstr("1/2"));
}

} // namespace
