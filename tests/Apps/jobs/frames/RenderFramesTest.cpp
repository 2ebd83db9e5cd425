// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs over many frames: the files, their pixels, and failures.
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "SmallScene.h"
#include "jobs/frames/FrameDigest.h"
#include "jobs/frames/FrameOnDisk.h"
#include "jobs/frames/FrameRange.h"

#include <gmock/gmock.h>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <numeric>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::vector<int> framesTo(int last)
{
    std::vector<int> frames(static_cast<std::size_t>(last));
    std::iota(frames.begin(), frames.end(), 1);
    return frames;
}

class RenderFramesTest : public SmallScene
{
protected:
    IIO_Picture read(const char* name) const
    {
        UT_Result<IIO_Picture> picture = IIO_read(path(name));
        EXPECT_TRUE(picture) << picture.error().text.toStdString();
        return std::move(*picture);
    }
    QByteArray digest(double frame, const RenderFramesSettings& made) const
    {
        return FrameDigests(node(), made).of(frame);
    }
    QByteArray digest(double frame) const { return digest(frame, settings("n.####.png", {1})); }
};

TEST_F(RenderFramesTest, GiveTheSameBytesHoweverManyRunAtOnce)
{
    RenderFramesSettings one = settings("one/n.####.exr", framesTo(48));
    RenderFramesSettings two = settings("two/n.####.exr", framesTo(48));
    two.atOnce = 2;
    EXPECT_EQ(render(one).written, 48);
    EXPECT_EQ(render(two).written, 48);
    for (const int frame : one.frames)
        EXPECT_EQ(bytes(one.file.of(frame)), bytes(two.file.of(frame))) << frame;
}

TEST_F(RenderFramesTest, InShardsGiveTheSameSet)
{
    EXPECT_EQ(render(settings("all/n.##.png", framesTo(10))).written, 10);
    for (int shard = 1; shard <= 3; ++shard)
        render(settings("shards/n.##.png", shardOf(framesTo(10), shard, 3)));
    ASSERT_EQ(files("shards"), files("all"));
    for (const QString& name : files("all"))
        EXPECT_EQ(bytes(path("all/") + name), bytes(path("shards/") + name)) << name.toStdString();
}

TEST_F(RenderFramesTest, DifferWhereAnAttributeIsAnimated)
{
    render(settings("n.##.png", {1, 24, 48}));
    const auto pixelsOf = [&](const char* name) {
        const IIO_Picture picture = read(name);
        std::vector<std::uint16_t> all;
        for (int y = 0; y < picture.height(); ++y)
            std::ranges::copy(picture.row<std::uint16_t>(y), std::back_inserter(all));
        return all;
    };
    EXPECT_NE(pixelsOf("n.01.png"), pixelsOf("n.24.png"));
    EXPECT_NE(pixelsOf("n.24.png"), pixelsOf("n.48.png"));
}

TEST_F(RenderFramesTest, ThatLookTheSameAreRenderedOnce)
{
    auto* const blur = dynamic_cast<AT_DoubleAttr*>(node().findAttr(QStringLiteral("BlurScale")));
    AT_Curve twos;
    for (const int frame : {1, 3, 5})
        twos.setKey({.frame = static_cast<double>(frame),
                     .value = frame == 3 ? 2.0 : 0.5,
                     .interpolation = AT_Curve::Interpolation::HOLD,
                     .in = {},
                     .out = {},
                     .unknown = {}});
    ASSERT_TRUE(blur->setCurve(twos));
    // The node prints a line for every picture that it makes.
    testing::internal::CaptureStdout();
    EXPECT_EQ(render(settings("n.#.png", {1, 2, 3, 4, 5, 6})).written, 6);
    std::fflush(stdout);
    const QString said = QString::fromStdString(testing::internal::GetCapturedStdout());
    EXPECT_EQ(said.count(QStringLiteral("FINISHING VALLORIN")), 2);
    EXPECT_EQ(read("n.2.png").metadata().value(QStringLiteral("Frame")), QStringLiteral("2"));
    render(settings("alone.#.png", {2, 4, 6}));
    for (const int frame : {2, 4, 6})
        EXPECT_EQ(bytes(path("n.%1.png").arg(frame)), bytes(path("alone.%1.png").arg(frame))) << frame;
}

TEST_F(RenderFramesTest, ThatAreMadeOfTheSameHaveEqualDigests)
{
    EXPECT_NE(digest(1), digest(2));
    EXPECT_EQ(digest(48), digest(60)) << "a curve is constant after its last key";
    EXPECT_EQ(digest(1).size(), 64);
    scene().truckFactorAttr().setLocalValue(2.0);
    const QByteArray before = digest(48);
    scene().truckFactorAttr().setLocalValue(std::nextafter(2.0, 3.0));
    EXPECT_NE(digest(48), before) << "to the last bit";
}

TEST_F(RenderFramesTest, HaveOtherDigestsWhereTheDrawingOrItsColoursChange)
{
    const QByteArray before = digest(1);
    const auto [name, drawing] = *element().drawings().begin();
    element().setDrawing(name, UT_makeShared<CELVEC_Kvd>());
    EXPECT_NE(digest(1), before);
    element().setDrawing(name, drawing);
    EXPECT_EQ(digest(1), before);
    const auto& palette = drawing->palette();
    ASSERT_FALSE(palette->colors().empty());
    palette->colors().front()->SetNominalColor({1, 2, 3, 255});
    EXPECT_NE(digest(1), before);
}

TEST_F(RenderFramesTest, HaveOtherDigestsWhereTheSettingsChange)
{
    const RenderFramesSettings made = settings("n.####.png", {1});
    RenderFramesSettings other = made;
    other.parameters.resolution = {32, 16};
    EXPECT_NE(digest(1, other), digest(1, made));
    other = made;
    other.picture.form.yAxis = NM_YAxis::DOWN;
    EXPECT_NE(digest(1, other), digest(1, made));
    other = made;
    other.picture.form.pad = 3;
    EXPECT_NE(digest(1, other), digest(1, made));
    other = made;
    other.content = FrameContent::DRAWING;
    EXPECT_NE(digest(1, other), digest(1, made));
    other = made;
    other.content = FrameContent::LIT;
    other.lighting = NM_LightingSettings();
    const QByteArray lit = digest(1, other);
    EXPECT_NE(lit, digest(1, made));
    other.lighting->lights.front().azimuth = 90.0;
    EXPECT_NE(digest(1, other), lit);
    other = made;
    other.picture.scene = QStringLiteral("elsewhere.scene");
    other.file = *FrameFileName::parse(path("elsewhere/m.#.png"));
    EXPECT_EQ(digest(1, other), digest(1, made)) << "names do not change pixels";
}

TEST_F(RenderFramesTest, HaveOtherDigestsWhereTheHeightsOrTheGlossChange)
{
    const RenderFramesSettings made = settings("n.####.png", {1});
    std::vector<QByteArray> digests{digest(1, made)};
    const auto isNew = [&](const auto& change) {
        RenderFramesSettings other = made;
        change(other);
        const bool known = std::ranges::find(digests, digest(1, other)) != digests.end();
        digests.push_back(digest(1, other));
        return !known;
    };
    const QColor red(Qt::red);
    EXPECT_TRUE(isNew([](RenderFramesSettings& other) { other.heights.black = -1.0; }));
    EXPECT_TRUE(isNew([](RenderFramesSettings& other) { other.heights.white = -1.0; }));
    EXPECT_TRUE(isNew([](RenderFramesSettings& other) { other.roughness = true; }));
    EXPECT_TRUE(isNew([](RenderFramesSettings& other) { other.gloss.others = 0.5; }));
    EXPECT_TRUE(isNew([&](RenderFramesSettings& other) { other.gloss.colours = {{red, 0.5}}; }));
    EXPECT_TRUE(isNew([&](RenderFramesSettings& other) { other.gloss.colours = {{red, 0.25}}; }));
    EXPECT_TRUE(isNew([&](RenderFramesSettings& other) { other.gloss.colours = {{red, 0.5}, {red, 0.25}}; }));
}

TEST_F(RenderFramesTest, HoldUnitVectorsInNamedLayers)
{
    render(settings("n.#.exr", {24}));
    const IIO_Picture picture = read("n.24.exr");
    QStringList channels = picture.channels();
    channels.sort();
    ASSERT_EQ(channels,
              (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("G"), QStringLiteral("N.X"),
                           QStringLiteral("N.Y"), QStringLiteral("N.Z"), QStringLiteral("R"),
                           QStringLiteral("coverage.A"), QStringLiteral("elevation.Y")}));
    const auto at = [&](const char* name) { return picture.channels().indexOf(QLatin1String(name)); };
    int leaning = 0;
    float highest = 0.0F;
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<float>(y);
        for (std::size_t i = 0; i < row.size(); i += static_cast<std::size_t>(picture.channelCount())) {
            const float* const pixel = row.data() + i;
            const float x = pixel[at("N.X")];
            const float yy = pixel[at("N.Y")];
            const float z = pixel[at("N.Z")];
            ASSERT_NEAR(x * x + yy * yy + z * z, 1.0F, 1e-5F);
            leaning += std::abs(x) > 0.1F ? 1 : 0;
            highest = std::max(highest, pixel[at("elevation.Y")]);
            ASSERT_GE(pixel[at("coverage.A")], 0.0F);
            ASSERT_LE(pixel[at("coverage.A")], 1.0F);
        }
    }
    EXPECT_GT(leaning, 10);
    EXPECT_GT(highest, 0.5F);
}

TEST_F(RenderFramesTest, LeanToTheSideThatYNames)
{
    RenderFramesSettings up = settings("up.exr", {24});
    RenderFramesSettings down = settings("down.exr", {24});
    down.picture.form.yAxis = NM_YAxis::DOWN;
    render(up);
    render(down);
    const IIO_Picture upwards = read("up.exr");
    const IIO_Picture downwards = read("down.exr");
    const auto y = upwards.channels().indexOf(QLatin1String("N.Y"));
    // The square's upper edge is row 8: just below it the surface faces up.
    const auto atEdge = [&](const IIO_Picture& picture) {
        return picture.row<float>(
            9)[static_cast<std::size_t>((16 - picture.dataWindow().x1) * picture.channelCount() + y)];
    };
    EXPECT_GT(atEdge(upwards), 0.1F);
    EXPECT_FLOAT_EQ(atEdge(downwards), -atEdge(upwards));
}

TEST(FramePicture, KeepsWhatLiesBeyondTheFrameInFilesOfFloats)
{
    const Math::Box2di frame(0, 0, 64, 32);
    CEL_PixmapAreaRGBA16 pixmap({64, 32}, frame);
    pixmap.realloc({-3, 4, 60, 40}, true);
    pixmap.at(-3, 4) = {16384, 16384, 32767, 32767};
    FramePictureSettings settings;
    settings.floatFile = true;
    const auto layers = framePicture(pixmap, nullptr, frame, settings, 1);
    ASSERT_TRUE(layers);
    EXPECT_EQ(layers->displayWindow(), frame);
    EXPECT_EQ(layers->dataWindow(), Math::Box2di(-3, 0, 64, 40));
    EXPECT_EQ(layers->row<float>(4)[3], 1.0F);
    settings.shown = RenderedKind::COLOURS;
    EXPECT_EQ(framePicture(pixmap, nullptr, frame, settings, 1)->dataWindow(), Math::Box2di(-3, 0, 64, 40));
    settings.floatFile = false;
    EXPECT_EQ(framePicture(pixmap, nullptr, frame, settings, 1)->dataWindow(), frame);
}

TEST_F(RenderFramesTest, HaveTheFrameAsTheirDisplayWindow)
{
    render(settings("n.exr", {48}));
    const IIO_Picture picture = read("n.exr");
    EXPECT_EQ(picture.displayWindow(), Math::Box2di(0, 0, 64, 32));
    EXPECT_TRUE(picture.dataWindow().contains(picture.displayWindow()));
}

TEST_F(RenderFramesTest, SayWhatTheyAre)
{
    render(settings("n.exr", {24}));
    const IIO_Metadata texts = read("n.exr").metadata();
    const auto text = [&](const char* key) { return texts.value(QString::fromLatin1(key)).toStdString(); };
    EXPECT_EQ(text("Scene"), "small.scene");
    EXPECT_EQ(text("Node"), "Normal-Map");
    EXPECT_EQ(text("Frame"), "24");
    EXPECT_EQ(text("Y"), "up");
    EXPECT_EQ(text("Layout"), "tangent");
    EXPECT_THAT(text("Software"), HasSubstr("Vallorin "));
}

TEST_F(RenderFramesTest, InTheLayoutNodeHoldTheNodesOwnChannels)
{
    RenderFramesSettings made = settings("n.exr", {24});
    made.picture.layout = NM_Layout::NODE;
    made.picture.elevation = needsElevationInBlue(made.picture);
    render(made);
    const IIO_Picture picture = read("n.exr");
    EXPECT_EQ(picture.channels(), IIO_channelsRgba());
    EXPECT_EQ(picture.metadata().value(QStringLiteral("Layout")), QStringLiteral("node"));
}

TEST_F(RenderFramesTest, OfADrawingAreItsColours)
{
    RenderFramesSettings made = settings("n.png", {1});
    made.picture.source = RenderedKind::COLOURS;
    made.picture.shown = RenderedKind::COLOURS;
    EXPECT_EQ(renderFrames(ShownModule(drawing()), made, {}).written, 1);
    const IIO_Picture picture = read("n.png");
    // The middle of the square: #c06030; a byte b is 257 b in 16 bits, of which the renderer has 15.
    const auto middle = picture.row<std::uint16_t>(16).subspan(std::size_t{16} * 4, 4);
    EXPECT_NEAR(middle[0], 0xc0 * 257, 2);
    EXPECT_NEAR(middle[1], 0x60 * 257, 2);
    EXPECT_NEAR(middle[2], 0x30 * 257, 2);
    EXPECT_EQ(middle[3], 65535);
    EXPECT_EQ(picture.row<std::uint16_t>(1)[3], 0);
}

TEST_F(RenderFramesTest, ShowTheElevationInstead)
{
    RenderFramesSettings made = settings("n.png", {48});
    made.picture.shown = RenderedKind::ELEVATION;
    made.picture.elevation = needsElevationInBlue(made.picture);
    EXPECT_TRUE(made.picture.elevation);
    render(made);
    const IIO_Picture picture = read("n.png");
    const auto row = picture.row<std::uint16_t>(16);
    const auto pixel = [&](int x) { return row[static_cast<std::size_t>(x * picture.channelCount())]; };
    EXPECT_GT(pixel(16), pixel(29));
    EXPECT_GT(pixel(29), pixel(60));
    EXPECT_EQ(pixel(60), 0);
}

TEST_F(RenderFramesTest, LookAlikeInAProxy)
{
    render(settings("full.exr", {24}));
    RenderFramesSettings made = settings("proxy.exr", {24});
    made.parameters.resolution = {32, 16};
    render(made);
    const IIO_Picture full = read("full.exr");
    const IIO_Picture proxy = read("proxy.exr");
    const auto height = full.channels().indexOf(QLatin1String("elevation.Y"));
    const auto elevation = [&](const IIO_Picture& picture, int x, int y) {
        return picture.row<float>(
            y)[static_cast<std::size_t>((x - picture.dataWindow().x1) * picture.channelCount() + height)];
    };
    double difference = 0.0;
    for (int y = 4; y < 12; ++y)
        for (int x = 0; x < 16; ++x) {
            const float mean = (elevation(full, 2 * x, 2 * y) + elevation(full, 2 * x + 1, 2 * y) +
                                elevation(full, 2 * x, 2 * y + 1) + elevation(full, 2 * x + 1, 2 * y + 1)) /
                               4.0F;
            difference += std::abs(mean - elevation(proxy, x, y)) / (8 * 16);
        }
    EXPECT_LT(difference, 0.05);
}

TEST_F(RenderFramesTest, GoOnWhenOneFails)
{
    // A folder has the name of frame 2's file.
    ASSERT_TRUE(QDir().mkpath(path("out/n.2.png")));
    QStringList reasons;
    RenderFramesWatcher watcher;
    watcher.ended = [&](int frame, FrameEnd end, const QString& reason) {
        if (end == FrameEnd::FAILED)
            reasons << QStringLiteral("%1: %2").arg(frame).arg(reason);
    };
    const RenderFramesResult result = render(settings("out/n.#.png", {1, 2, 3}), watcher);
    EXPECT_EQ(result.written, 2);
    EXPECT_EQ(result.failed, 1);
    EXPECT_FALSE(result.stopped);
    ASSERT_EQ(reasons.size(), 1);
    EXPECT_THAT(reasons.first().toStdString(), testing::StartsWith("2: "));
    EXPECT_EQ(files("out"), (QStringList{QStringLiteral("n.1.png"), QStringLiteral("n.3.png")}));
}

TEST_F(RenderFramesTest, StopInOrder)
{
    std::atomic<int> ended = 0;
    RenderFramesWatcher watcher;
    watcher.ended = [&](int, FrameEnd, const QString&) { ++ended; };
    watcher.stop = [&] { return ended >= 3; };
    const RenderFramesResult result = render(settings("out/n.##.exr", framesTo(48)), watcher);
    EXPECT_TRUE(result.stopped);
    EXPECT_EQ(result.failed, 0);
    EXPECT_EQ(result.written, 3);
    EXPECT_EQ(files("out").size(), 3);
}

TEST_F(RenderFramesTest, TellProgressThatNeverGoesBack)
{
    double last = 0.0;
    RenderFramesWatcher watcher;
    watcher.progress = [&](double done) {
        EXPECT_GE(done, last);
        last = done;
    };
    RenderFramesSettings made = settings("n.##.png", framesTo(6));
    made.atOnce = 2;
    render(made, watcher);
    EXPECT_NEAR(last, 1.0, 1e-9);
}

TEST_F(RenderFramesTest, ResumeLeavesCompleteFramesAlone)
{
    RenderFramesSettings made = settings("out/n.#.png", {1, 2, 3});
    render(made);
    made.resume = true;
    const QByteArray second = bytes(made.file.of(2));
    QFile cut(made.file.of(2));
    ASSERT_TRUE(cut.resize(second.size() - 5));
    const RenderFramesResult result = render(made);
    EXPECT_EQ(result.kept, 2);
    EXPECT_EQ(result.written, 1);
    EXPECT_EQ(bytes(made.file.of(2)), second);
}

TEST_F(RenderFramesTest, ResumeRendersWhatWasMadeOtherwise)
{
    RenderFramesSettings made = settings("n.png", {1});
    render(made);
    made.resume = true;
    EXPECT_EQ(render(made).kept, 1);
    RenderFramesSettings otherSize = made;
    otherSize.parameters.resolution = {32, 16};
    EXPECT_EQ(render(otherSize).kept, 0);
    EXPECT_EQ(render(otherSize).kept, 1);
    RenderFramesSettings otherFrame = otherSize;
    otherFrame.frames = {2};
    EXPECT_EQ(render(otherFrame).kept, 0);
    RenderFramesSettings otherY = otherFrame;
    otherY.picture.form.yAxis = NM_YAxis::DOWN;
    EXPECT_EQ(render(otherY).kept, 0);
}

TEST_F(RenderFramesTest, ResumeRendersATruncatedExrAgain)
{
    RenderFramesSettings made = settings("n.exr", {1});
    render(made);
    made.resume = true;
    EXPECT_EQ(render(made).kept, 1);
    const QByteArray whole = bytes(path("n.exr"));
    ASSERT_TRUE(QFile(path("n.exr")).resize(whole.size() / 2));
    EXPECT_EQ(render(made).kept, 0);
    EXPECT_EQ(bytes(path("n.exr")), whole);
}

} // namespace
