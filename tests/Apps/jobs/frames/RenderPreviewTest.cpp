// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Films of lit frames.
#include "jobs/frames/RenderPreview.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "SmallScene.h"
#include "jobs/frames/FilmFile.h"

#include <QImage>
#include <QStandardPaths>

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

class Preview : public SmallScene
{
protected:
    RenderPreviewSettings film(const char* name) const
    {
        RenderPreviewSettings made;
        made.frames = {1, 24, 48};
        made.parameters.resolution = {64, 32};
        made.file = path(name);
        return made;
    }
    UT_Result<QString> preview(const RenderPreviewSettings& settings, const RenderFramesWatcher& watcher = {}) const
    {
        return renderPreview(ShownModule(node()), settings, watcher);
    }
};

TEST_F(Preview, IsAnAnimatedPngOfAllFrames)
{
    const auto made = preview(film("out/lit.png"));
    ASSERT_TRUE(made) << made.error().text.toStdString();
    EXPECT_EQ(*made, path("out/lit.png"));
    const QByteArray file = bytes(*made);
    EXPECT_EQ(file.count("fcTL"), 3);
    EXPECT_EQ(file.mid(8 + 25 + 8, 4), QByteArray("\0\0\0\3", 4));
    const QImage first(*made);
    EXPECT_EQ(first.size(), QSize(64, 32));
    EXPECT_EQ(first.pixelColor(60, 2).alpha(), 0);
    EXPECT_EQ(first.pixelColor(16, 16).alpha(), 255);
}

TEST_F(Preview, ShowsTheDrawingInItsColours)
{
    const ShownModule shown(node());
    const LitFrames lit(shown, RenderedKind::NORMALS, film("x.png").parameters);
    const auto bytes = lit.render(1);
    ASSERT_TRUE(bytes);
    // Frame 1 has a narrow bevel: the middle of the square faces the viewer and keeps its colour.
    const std::size_t middle = (std::size_t{16} * 64 + 16) * 4;
    EXPECT_NEAR((*bytes)[middle], 0xc0, 2);
    EXPECT_NEAR((*bytes)[middle + 1], 0x60, 2);
    EXPECT_NEAR((*bytes)[middle + 2], 0x30, 2);
}

TEST_F(Preview, LightsTheEdgesFromTheUpperLeft)
{
    const ShownModule shown(node());
    const LitFrames lit(shown, RenderedKind::NORMALS, film("x.png").parameters);
    const auto bytes = lit.render(48);
    ASSERT_TRUE(bytes);
    const auto red = [&](int x, int y) { return (*bytes)[static_cast<std::size_t>((y * 64 + x) * 4)]; };
    EXPECT_GT(red(16, 9), red(16, 22));
}

TEST_F(Preview, LeavesTheSceneAsItWas)
{
    const auto count = scene().root().modules().size();
    ASSERT_TRUE(preview(film("lit.png")));
    EXPECT_EQ(scene().root().modules().size(), count);
}

TEST_F(Preview, IsTheSameHoweverManyFramesRunAtOnce)
{
    RenderPreviewSettings two = film("two.png");
    two.atOnce = 2;
    ASSERT_TRUE(preview(film("one.png")));
    ASSERT_TRUE(preview(two));
    EXPECT_EQ(bytes(path("one.png")), bytes(path("two.png")));
}

TEST_F(Preview, IsAtMost960Wide)
{
    const ShownModule shown(node());
    RD_RenderParameters parameters;
    parameters.resolution = {1920, 1080};
    EXPECT_EQ(LitFrames(shown, RenderedKind::NORMALS, parameters).size(), std::pair(960, 540));
    parameters.resolution = {959, 33};
    EXPECT_EQ(LitFrames(shown, RenderedKind::NORMALS, parameters).size(), std::pair(959, 33));
}

TEST_F(Preview, ThatIsStoppedLeavesNoFile)
{
    RenderFramesWatcher watcher;
    watcher.stop = [] { return true; };
    EXPECT_FALSE(preview(film("lit.png"), watcher));
    EXPECT_FALSE(QFile::exists(path("lit.png")));
}

TEST_F(Preview, OfAnotherKindIsRefused)
{
    const auto made = preview(film("lit.avi"));
    ASSERT_FALSE(made);
    EXPECT_THAT(made.error().text.toStdString(), HasSubstr(".mp4, .gif or .png"));
}

TEST_F(Preview, IsAnAnimatedPngBesideWhereTheEncoderIsMissing)
{
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", "/nowhere");
    const auto made = preview(film("lit.mp4"));
    qputenv("PATH", before);
    ASSERT_TRUE(made) << made.error().text.toStdString();
    EXPECT_EQ(*made, path("lit.png"));
    EXPECT_TRUE(QFile::exists(path("lit.png")));
    EXPECT_FALSE(QFile::exists(path("lit.mp4")));
}

TEST_F(Preview, IsEncodedWhereTheEncoderIsInstalled)
{
    if (QStandardPaths::findExecutable(QStringLiteral("ffmpeg")).isEmpty())
        GTEST_SKIP() << "ffmpeg is not installed";
    for (const char* name : {"films/lit.gif", "films/lit.mp4"}) {
        const auto made = preview(film(name));
        ASSERT_TRUE(made) << made.error().text.toStdString();
        EXPECT_GT(bytes(*made).size(), 100);
    }
    EXPECT_EQ(bytes(path("films/lit.gif")).left(3), QByteArray("GIF"));
    EXPECT_EQ(bytes(path("films/lit.mp4")).mid(4, 4), QByteArray("ftyp"));
    EXPECT_EQ(files("films").size(), 2);
}

// Encoders that fail, or that report success although they failed.
class EncodedPreview : public Preview
{
protected:
    UT_Result<QString> previewBy(const char* encoder, const char* prober)
    {
        for (const auto& [name, script] : {std::pair("ffmpeg", encoder), std::pair("ffprobe", prober)}) {
            write(name, script);
            EXPECT_TRUE(QFile::setPermissions(path(name), QFileDevice::ReadOwner | QFileDevice::ExeOwner));
        }
        const QByteArray before = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(path("")) + ":/bin:/usr/bin");
        auto made = preview(film("films/lit.mp4"));
        qputenv("PATH", before);
        return made;
    }
};

constexpr const char* kWrites = "#!/bin/sh\nfor last; do :; done\ncat >\"$last\"\n";

TEST_F(EncodedPreview, SaysWhenTheEncoderFails)
{
    const auto made = previewBy("#!/bin/sh\necho no such codec >&2\nexit 3\n", "#!/bin/sh\n");
    ASSERT_FALSE(made);
    EXPECT_THAT(made.error().text.toStdString(), HasSubstr("no such codec"));
    EXPECT_TRUE(files("films").isEmpty());
}

TEST_F(EncodedPreview, SaysThatTheDiskIsFull)
{
    const auto made = previewBy("#!/bin/sh\necho 'av_interleaved_write_frame(): No space left on device' >&2\nexit 1\n",
                                "#!/bin/sh\n");
    ASSERT_FALSE(made);
    EXPECT_EQ(made.error().kind, UT_ErrorKind::DISK_FULL);
    EXPECT_THAT(made.error().text.toStdString(), HasSubstr("lit.mp4\": the disk is full; free some space"));
    EXPECT_TRUE(files("films").isEmpty());
}

TEST_F(EncodedPreview, AppearsWhenAllItsFramesAreFoundInIt)
{
    const auto made = previewBy(kWrites, "#!/bin/sh\necho 3\n");
    ASSERT_TRUE(made) << made.error().text.toStdString();
    EXPECT_EQ(files("films"), QStringList{QStringLiteral("lit.mp4")});
}

TEST_F(EncodedPreview, OfWhichFramesAreMissingDoesNotAppear)
{
    const auto made = previewBy(kWrites, "#!/bin/sh\necho 1\n");
    ASSERT_FALSE(made);
    EXPECT_THAT(made.error().text.toStdString(), HasSubstr("1 of its 3 frames can be read back"));
    EXPECT_TRUE(files("films").isEmpty());
}

TEST_F(EncodedPreview, ThatCannotBeDecodedDoesNotAppear)
{
    const auto made = previewBy(kWrites, "#!/bin/sh\necho 3\necho half a frame >&2\n");
    ASSERT_FALSE(made);
    EXPECT_THAT(made.error().text.toStdString(), HasSubstr("half a frame"));
    EXPECT_TRUE(files("films").isEmpty());
}

} // namespace
