// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The border of the frame does not act as an outline: an object that leaves the frame has the same form as in a frame
// that shows it completely.
//
// The frame is 160 x 80 and shows the left half of a frame of 320 x 80. Bevels and heights are relative to the frame's
// width, so the wide frame has half of their values.
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "TestFolder.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"
#include "jobs/frames/RenderFrames.h"
#include "jobs/shown/FrameMargin.h"
#include "jobs/shown/LitFrames.h"
#include "studio/preview/SceneSnapshot.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 80;

// A disc cut in half by the frame's right border, and one that touches no border.
const char* const kDiscs = R"(<circle cx="160" cy="40" r="30" fill="#d02020"/>
  <circle cx="60" cy="40" r="20" fill="#2020d0"/>)";
const char* const kInnerDisc = R"(<circle cx="60" cy="40" r="20" fill="#2020d0"/>)";

class FrameBorder : public testing::Test
{
protected:
    static QByteArray svg(int width, const char* content)
    {
        return QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"") + QByteArray::number(width) +
               "\" height=\"80\">" + content + "</svg>";
    }

    LayeredDrawing read(int width, const char* content)
    {
        const QString path = file(QStringLiteral("%1.svg").arg(++_files));
        writeTestFile(path, svg(width, content));
        auto made = readDrawing(path, {.objects = ObjectChoice::SHAPES, .shape = FormShape::RIM});
        EXPECT_TRUE(made) << made.error().sentence().toStdString();
        return made->drawing;
    }

    static NormalMapSettings settings(bool wide)
    {
        NormalMapSettings made;
        made.allObjects.bevel = wide ? 45.0 : 90.0;
        made.allObjects.elevation = wide ? 1.0 : 2.0;
        made.allObjects.smoothness = 2.0;
        return made;
    }

    static UT_SharedPtr<CEL_PixmapAreaRGBA16> normalsOf(const LayeredDrawing& drawing, const NormalMapSettings& how)
    {
        const auto frame = renderNormalMap(drawing, how, {});
        EXPECT_TRUE(frame) << frame.error().sentence().toStdString();
        return frame->picture.dynamicCast<CEL_PixmapAreaRGBA16>();
    }

    // The frame of a whole picture.
    static CEL_PixelRGBA16 at(const CEL_PixmapAreaRGBA16& pixmap, int x, int y)
    {
        const CEL_PixelRGBA16* const pixel = pixmap.find(x, y);
        return pixel ? *pixel : CEL_PixelRGBA16{};
    }

    static void expectLeftHalf(const CEL_PixmapAreaRGBA16& cut, const CEL_PixmapAreaRGBA16& whole)
    {
        int tilted = 0;
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const CEL_PixelRGBA16 a = at(cut, x, y);
                const CEL_PixelRGBA16 b = at(whole, x, y);
                ASSERT_NEAR(a.r, b.r, 2) << x << ' ' << y;
                ASSERT_NEAR(a.g, b.g, 2) << x << ' ' << y;
                ASSERT_EQ(a.b, b.b) << x << ' ' << y;
                ASSERT_EQ(a.a, b.a) << x << ' ' << y;
                tilted += x == kWidth - 1 && std::abs(a.g - 16384) > 1000 ? 1 : 0;
            }
        // The last column is not flat.
        EXPECT_GT(tilted, 20);
    }

    QString file(const QString& name) const { return QDir(_folder.path()).filePath(name); }

private:
    QTemporaryDir _folder;
    int _files = 0;
};

TEST_F(FrameBorder, LeavesADiscItsForm)
{
    for (const char* quality : {"LOW_NORMAL_QUALITY", "HIGH_NORMAL_QUALITY"}) {
        NormalMapSettings narrow = settings(false);
        NormalMapSettings wide = settings(true);
        narrow.normalQuality = wide.normalQuality = QString::fromLatin1(quality);
        expectLeftHalf(*normalsOf(read(kWidth, kDiscs), narrow), *normalsOf(read(2 * kWidth, kDiscs), wide));
    }
}

TEST_F(FrameBorder, LeavesItsFormToWhatSpreadsUnclipped)
{
    NormalMapSettings narrow = settings(false);
    NormalMapSettings wide = settings(true);
    narrow.clipBlurredWithGeometry = wide.clipBlurredWithGeometry = false;
    expectLeftHalf(*normalsOf(read(kWidth, kDiscs), narrow), *normalsOf(read(2 * kWidth, kDiscs), wide));
}

TEST_F(FrameBorder, LeavesWhatKeepsAwayFromItAsItWas)
{
    const auto both = normalsOf(read(kWidth, kDiscs), settings(false));
    const auto alone = normalsOf(read(kWidth, kInnerDisc), settings(false));
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < 100; ++x) {
            const CEL_PixelRGBA16 a = at(*both, x, y);
            const CEL_PixelRGBA16 b = at(*alone, x, y);
            // Blue is the object's number.
            EXPECT_TRUE(a.r == b.r && a.g == b.g && a.a == b.a) << x << ' ' << y;
        }
}

TEST_F(FrameBorder, AsksForNoMarginWhereNothingTouchesIt)
{
    const RD_RenderParameters parameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kWidth, kHeight}};
    const auto marginsOf = [&](const char* content) {
        auto scene = DrawingScene::build(read(kWidth, content), settings(false));
        EXPECT_TRUE(scene);
        return marginsFor({&scene->normalMap()}, 1.0, parameters);
    };
    EXPECT_TRUE(marginsOf(kInnerDisc).isEmpty());
    const RD_Margins margins = marginsOf(kDiscs);
    EXPECT_EQ(margins.left, 0);
    EXPECT_EQ(margins.top, 0);
    EXPECT_EQ(margins.bottom, 0);
    // 30 pixels lie outside, and the normals need a few more.
    EXPECT_GE(margins.right, 32);
    EXPECT_LE(margins.right, 64);
    // An object that continues for thousands of pixels is rendered as far as the blur reaches: 4 sigma are 20 pixels,
    // or half of the frame.
    const RD_Margins far = marginsOf(R"(<rect x="-9000" y="10" width="19000" height="20" fill="#d02020"/>)");
    EXPECT_EQ(far.left, far.right);
    EXPECT_GE(far.left, 20);
    EXPECT_LE(far.left, 64);
    EXPECT_EQ(far.top, 0);
}

TEST_F(FrameBorder, IsNoOutlineInFramesFilmsAndTheWindow)
{
    auto narrow = DrawingScene::build(read(kWidth, kDiscs), settings(false));
    auto wide = DrawingScene::build(read(2 * kWidth, kDiscs), settings(true));
    ASSERT_TRUE(narrow && wide);
    const auto half = [](const auto& picture, const auto& whole) {
        for (int y = 0; y < kHeight; ++y) {
            const auto a = picture(y);
            const auto b = whole(y);
            for (std::size_t i = 0; i < std::size_t{kWidth} * 4; ++i)
                ASSERT_NEAR(a[i], b[i], a.size_bytes() == a.size() ? 1 : 6) << i / 4 << ' ' << y;
        }
    };
    // Files.
    std::vector<IIO_Picture> files;
    std::vector<std::vector<std::uint8_t>> films;
    std::vector<QImage> images;
    for (DrawingScene* scene : {&*narrow, &*wide}) {
        const std::pair<int, int> size(scene == &*narrow ? kWidth : 2 * kWidth, kHeight);
        const ShownModule shown(scene->normalMap());
        RenderFramesSettings frames;
        frames.frames = {1};
        frames.parameters.resolution = size;
        frames.file = *FrameFileName::parse(file(QStringLiteral("f%1.png").arg(size.first)));
        ASSERT_EQ(renderFrames(shown, frames, {}).written, 1);
        files.push_back(std::move(*IIO_read(file(QStringLiteral("f%1.png").arg(size.first)))));
        films.push_back(*LitFrames(shown, RenderedKind::NORMALS, frames.parameters).render(1));
        SceneSnapshot snapshot(scene->scene(), scene->normalMap().instanceName());
        const QSize pixels(size.first, size.second);
        images.push_back((*snapshot.render(1, pixels, pixels, {}))->normals);
    }
    const auto fileRow = [&](std::size_t i) {
        return [&, i](int y) { return std::span<const std::uint16_t>(files[i].row<std::uint16_t>(y)); };
    };
    const auto filmRow = [&](std::size_t i) {
        return [&, i](int y) {
            const std::size_t bytes = films[i].size() / kHeight;
            return std::span<const std::uint8_t>(films[i]).subspan(bytes * static_cast<std::size_t>(y), bytes);
        };
    };
    const auto imageRow = [&](std::size_t i) {
        return [&, i](int y) {
            return std::span<const std::uint8_t>(images[i].constScanLine(y),
                                                 static_cast<std::size_t>(images[i].bytesPerLine()));
        };
    };
    half(fileRow(0), fileRow(1));
    half(filmRow(0), filmRow(1));
    half(imageRow(0), imageRow(1));
}

// A file of floats holds the frame without the margin of the render.
TEST_F(FrameBorder, IsTheEndOfWhatFilesHold)
{
    auto scene = DrawingScene::build(read(kWidth, kDiscs), settings(false));
    ASSERT_TRUE(scene);
    const ShownModule shown(scene->normalMap());
    RenderFramesSettings frames;
    frames.frames = {1};
    frames.parameters.resolution = {kWidth, kHeight};
    frames.picture.floatFile = true;
    frames.file = *FrameFileName::parse(file(QStringLiteral("f.exr")));
    ASSERT_EQ(renderFrames(shown, frames, {}).written, 1);
    const auto picture = IIO_read(file(QStringLiteral("f.exr")));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->displayWindow(), Math::Box2di(0, 0, kWidth, kHeight));
    EXPECT_EQ(picture->dataWindow(), Math::Box2di(0, 0, kWidth, kHeight));
}

} // namespace
