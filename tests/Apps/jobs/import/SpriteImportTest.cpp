// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sprites: bitmaps become layers, and objects get their coverage.
#include "Files.h"

#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

using namespace files;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

namespace {

// A transparent picture with a square of 8 x 8 at a place.
QImage sprite(int x, int y, const QColor& colour = Qt::red)
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int row = y; row < y + 8; ++row)
        for (int column = x; column < x + 8; ++column)
            image.setPixelColor(column, row, colour);
    return image;
}

} // namespace

TEST(SpriteImport, ABitmapIsALayerNamedAfterItsFile)
{
    const Folder folder;
    const DrawingSequence sequence = sequenceOf({folder.write("hero_3.png", sprite(4, 4, QColor(0, 128, 255)))});
    ASSERT_EQ(layerNames(sequence), QStringList{"hero_3"});
    EXPECT_EQ(sequence.frame, QRectF(0, 0, 32, 32));
    EXPECT_EQ(colourNames(*sequence.palette), QStringList{"#0080ff"});
    EXPECT_TRUE(sequence.palette->colors()[0].dynamicCast<CM_Color>());
    const CELVEC_Shape shape = shapeOf(sequence.layers[0], 1);
    EXPECT_EQ(shape.path.boundingRect(), QRectF(4, 4, 8, 8)) << "what is empty around the object is left out";
    EXPECT_EQ(shape.picture.size(), QSize(8, 8));
    EXPECT_EQ(shape.picture.pixelColor(1, 1), QColor(0, 128, 255));
}

TEST(SpriteImport, NumbersMakeFramesAndNamesMakeLayers)
{
    const Folder folder;
    const QStringList paths = {folder.write("b_1.png", sprite(0, 0)), folder.write("b_3.png", sprite(8, 0)),
                               folder.write("a_1.png", sprite(0, 8)), folder.write("a_2.png", sprite(0, 8))};
    const DrawingSequence sequence = sequenceOf(paths);
    ASSERT_EQ(layerNames(sequence), QStringList({"a", "b"}));
    EXPECT_EQ(sequence.lastFrame, 3);
    EXPECT_THAT(sequence.layers[0].exposures, ElementsAre(Pair(1, 1), Pair(3, kNothing)));
    EXPECT_THAT(sequence.layers[1].exposures, ElementsAre(Pair(1, 1), Pair(2, kNothing), Pair(3, 3)));
}

TEST(SpriteImport, FilesWithoutNumbersAreShownAllTheTime)
{
    const Folder folder;
    const QStringList paths = {folder.write("body.png", sprite(0, 0)), folder.write("arm_5.png", sprite(8, 0)),
                               folder.write("arm_6.png", sprite(8, 8))};
    const DrawingSequence sequence = sequenceOf(paths);
    ASSERT_EQ(layerNames(sequence), QStringList({"arm", "body"}));
    EXPECT_EQ(sequence.firstFrame, 5);
    EXPECT_THAT(sequence.layers[1].exposures, ElementsAre(Pair(5, 5)));
}

TEST(SpriteImport, ALayerHasOneColourThroughAllFrames)
{
    const Folder folder;
    const QStringList paths = {folder.write("a_1.png", sprite(0, 0, Qt::red)),
                               folder.write("a_2.png", sprite(0, 0, Qt::green))};
    EXPECT_EQ(colourNames(*sequenceOf(paths).palette), QStringList{"#ff0000"});
}

TEST(SpriteImport, TheSameLayerTwiceAtOneFrameNamesBothFiles)
{
    const Folder folder;
    EXPECT_THAT(refusal({folder.write("a_1.png", sprite(0, 0)), folder.write("a_01.png", sprite(0, 0))}),
                AllOf(HasSubstr("a_1.png"), HasSubstr("a_01.png")));
}

TEST(SpriteImport, TheNormalMapCoversWhatTheSpriteCovers)
{
    const Folder folder;
    const auto imported = importDrawings({folder.write("hero.png", sprite(8, 16))}, {});
    ASSERT_TRUE(imported) << imported.error().text.toStdString();
    const RD_RenderParameters parameters{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {32, 32}};
    const auto cel = RD_SoftRenderer::render(*imported->scene->outputModule(), 1, parameters);
    ASSERT_TRUE(cel) << cel.error().text.toStdString();
    const auto picture = (*cel)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) {
            const CEL_PixelRGBA16* pixel = picture->find(x, y);
            const bool covered = x >= 8 && x < 16 && y >= 16 && y < 24;
            EXPECT_NEAR(pixel ? pixel->a : 0, covered ? 32767 : 0, 330) << x << ' ' << y;
        }
}
