// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TIFF files as other programs write them (files/tiff.sh): two by two pixels, red, green of half the coverage, blue of
// an eighth of it, and nothing.
#include "Drawings.h"

#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"

#include <array>
#include <cmath>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

QString file(const char* name)
{
    return QStringLiteral(TEST_FILES "/") + QLatin1String(name);
}

struct TiffFile
{
    const char* name;
    int bits;
};

void PrintTo(const TiffFile& tiff, std::ostream* out)
{
    *out << tiff.name;
}

class TiffReader : public testing::TestWithParam<TiffFile>
{
protected:
    // 0 to 1, within a step of the file.
    void expectPixel(const QImage& image, const QPoint& at, const std::array<double, 4>& expected) const
    {
        const QColor colour = image.pixelColor(at);
        const double step = 1.0 / (std::pow(2.0, GetParam().bits) - 1.0);
        EXPECT_NEAR(colour.alphaF(), expected[3], step);
        if (expected[3] > 0.0) {
            EXPECT_EQ(colour.redF(), expected[0]);
            EXPECT_EQ(colour.greenF(), expected[1]);
            EXPECT_EQ(colour.blueF(), expected[2]);
        }
    }
};

} // namespace

TEST_P(TiffReader, readsColoursAndCoverage)
{
    QStringList warnings;
    const UT_Result<QImage> image = DIO_readImage(file(GetParam().name), warnings);
    ASSERT_TRUE(image) << image.error().text.toStdString();
    ASSERT_EQ(image->size(), QSize(2, 2));
    EXPECT_EQ(image->format(), GetParam().bits == 16 ? QImage::Format_RGBA64 : QImage::Format_ARGB32);
    expectPixel(*image, {0, 0}, {1.0, 0.0, 0.0, 1.0});
    expectPixel(*image, {1, 0}, {0.0, 1.0, 0.0, 0.5});
    expectPixel(*image, {0, 1}, {0.0, 0.0, 1.0, 0.125});
    expectPixel(*image, {1, 1}, {0.0, 0.0, 0.0, 0.0});
    EXPECT_TRUE(warnings.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, TiffReader,
                         testing::Values(TiffFile{"tiff8-straight.tif", 8}, TiffFile{"tiff8-premultiplied.tif", 8},
                                         TiffFile{"tiff8-planes.tif", 8}, TiffFile{"tiff16-straight.tif", 16},
                                         TiffFile{"tiff16-premultiplied.tif", 16},
                                         TiffFile{"tiff16-big-endian.tif", 16}));

TEST(TiffFiles, greyOf16BitsKeepsThem)
{
    QStringList warnings;
    const UT_Result<QImage> image = DIO_readImage(file("tiff16-grey.tif"), warnings);
    ASSERT_TRUE(image);
    const QRgba64 pixel = image->pixelColor(0, 0).rgba64();
    EXPECT_EQ(pixel.red(), 0x4000);
    EXPECT_EQ(pixel.alpha(), 0xffff);
}

TEST(TiffFiles, ofSeveralPagesTheFirstIsReadWhichIsSaid)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(file("tiff-pages.tif"));
    ASSERT_TRUE(drawing);
    EXPECT_THAT(drawing->warnings, ElementsAre("only the first of 2 pictures is read"));
    EXPECT_EQ(drawing->layers.at(0).shapes.at(0).picture.pixel(0, 0), 0xffff0000) << "the second page is mirrored";
}

TEST(TiffFiles, whatIsNotReadSaysWhatIs)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(file("tiff16-tiles.tif"));
    ASSERT_FALSE(drawing);
    EXPECT_THAT(drawing.error().text.toStdString(), HasSubstr("save it as RGB in strips, or as PNG"));
}
