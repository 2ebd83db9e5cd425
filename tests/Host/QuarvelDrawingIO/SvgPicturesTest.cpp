// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Embedded pictures: where they come to lie, which pixels they show there, and what cuts them.
#include "Drawings.h"

#include <QBuffer>
#include <QImageReader>

#include <cmath>

using namespace drawings;
using testing::HasSubstr;

namespace {

constexpr QRgb kRed = 0xffff0000;
constexpr QRgb kGreen = 0xff00ff00;
constexpr QRgb kBlue = 0xff0000ff;
constexpr QRgb kWhite = 0xffffffff;
constexpr QRgb kHalfGreen = 0x8000ff00;
constexpr QRgb kNothing = 0;

QImage image(int width, const std::vector<QRgb>& pixels, QImage::Format format = QImage::Format_ARGB32)
{
    QImage made(width, static_cast<int>(pixels.size()) / width, QImage::Format_ARGB32);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        made.setPixel(static_cast<int>(i) % width, static_cast<int>(i) / width, pixels[i]);
    return made.convertToFormat(format);
}

QByteArray url(const QImage& image, const char* format = "png")
{
    QByteArray data;
    QBuffer buffer(&data);
    EXPECT_TRUE(image.save(&buffer, format));
    return "data:image/" + QByteArray(format) + ";base64," + data.toBase64();
}

QByteArray element(const QImage& image, const QByteArray& attributes)
{
    return "<image href='" + url(image) + "' " + attributes + "/>";
}

// Two by two.
QImage corners()
{
    return image(2, {kRed, kHalfGreen, kBlue, kNothing});
}

DIO_Shape onlyShape(const DIO_Drawing& drawing)
{
    const std::vector<DIO_Shape> shapes = shapesOf(drawing);
    EXPECT_EQ(shapes.size(), 1U);
    return shapes.empty() ? DIO_Shape() : shapes.front();
}

// The pixel of the uppermost picture at a point; 0 where there is none.
QRgb pixelAt(const DIO_Drawing& drawing, double x, double y)
{
    QRgb pixel = 0;
    for (const DIO_Shape& shape : shapesOf(drawing)) {
        const QRectF place = shape.path.boundingRect();
        if (!covers(shape, x, y) || shape.picture.isNull())
            continue;
        pixel = shape.picture.pixel(static_cast<int>((x - place.x()) / place.width() * shape.picture.width()),
                                    static_cast<int>((y - place.y()) / place.height() * shape.picture.height()));
    }
    return pixel;
}

bool isNear(QRgb a, QRgb b)
{
    constexpr int kMost = 16;
    return std::abs(qRed(a) - qRed(b)) < kMost && std::abs(qGreen(a) - qGreen(b)) < kMost &&
           std::abs(qBlue(a) - qBlue(b)) < kMost && std::abs(qAlpha(a) - qAlpha(b)) < kMost;
}

std::string left(const DIO_Drawing& drawing)
{
    return drawing.warnings.join(u'\n').toStdString();
}

} // namespace

TEST(SvgPictures, aPictureKeepsItsPixelsAndTheirCoverage)
{
    const DIO_Drawing drawing = read(element(corners(), "id='face' x='10' y='20' width='40' height='40'"));
    const DIO_Shape shape = onlyShape(drawing);
    EXPECT_EQ(shape.picture, corners());
    EXPECT_EQ(shape.path.boundingRect(), QRectF(10, 20, 40, 40));
    EXPECT_FALSE(shape.clip);
    EXPECT_EQ(shape.opacity, 1.0);
    EXPECT_EQ(drawing.palette.at(0).kind, DIO_Paint::Kind::PICTURE);
    EXPECT_EQ(drawing.palette.at(0).name, "Picture face");
    EXPECT_EQ(left(drawing), "");
}

TEST(SvgPictures, aPictureOf16BitsKeepsThem)
{
    QImage deep(1, 1, QImage::Format_RGBA64);
    deep.setPixelColor(0, 0, QColor::fromRgba64(1000, 2000, 3000, 40000));
    const DIO_Shape shape = onlyShape(read(element(deep, "width='10' height='10'")));
    EXPECT_EQ(shape.picture, deep);
}

TEST(SvgPictures, withoutASizeAPictureHasAUnitForEachPixel)
{
    EXPECT_EQ(onlyShape(read(element(corners(), "x='3'"))).path.boundingRect(), QRectF(3, 0, 2, 2));
}

TEST(SvgPictures, oneSideGivesTheOther)
{
    const QImage wide = image(2, {kRed, kBlue});
    EXPECT_EQ(onlyShape(read(element(wide, "width='40'"))).path.boundingRect(), QRectF(0, 0, 40, 20));
    EXPECT_EQ(onlyShape(read(element(wide, "height='40'"))).path.boundingRect(), QRectF(0, 0, 80, 40));
}

TEST(SvgPictures, proportionsAreKeptUnlessSaidOtherwise)
{
    const QImage wide = image(2, {kRed, kBlue});
    const QByteArray square = "width='40' height='40' preserveAspectRatio=";
    EXPECT_EQ(onlyShape(read(element(wide, square + "'xMidYMid'"))).path.boundingRect(), QRectF(0, 10, 40, 20));
    EXPECT_EQ(onlyShape(read(element(wide, square + "'xMidYMax meet'"))).path.boundingRect(), QRectF(0, 20, 40, 20));
    EXPECT_EQ(onlyShape(read(element(wide, square + "'none'"))).path.boundingRect(), QRectF(0, 0, 40, 40));
}

TEST(SvgPictures, aPictureThatFillsItsFrameIsCutOffThere)
{
    const DIO_Drawing drawing = read(element(image(2, {kRed, kBlue}), "x='30' y='30' width='20' height='20' "
                                                                      "preserveAspectRatio='xMaxYMid slice'"));
    EXPECT_EQ(onlyShape(drawing).path.boundingRect(), QRectF(10, 30, 40, 20));
    EXPECT_EQ(pixelAt(drawing, 40, 40), kBlue);
    EXPECT_EQ(pixelAt(drawing, 29, 40), kNothing) << "outside the frame";
}

TEST(SvgPictures, mirroringAndQuarterTurnsMoveThePixelsThemselves)
{
    const QByteArray square = "width='20' height='20' transform=";
    const DIO_Drawing mirrored = read(element(corners(), square + "'translate(50 0) scale(-1 1)'"));
    EXPECT_EQ(onlyShape(mirrored).picture, image(2, {kHalfGreen, kRed, kNothing, kBlue}));
    EXPECT_EQ(onlyShape(mirrored).path.boundingRect(), QRectF(30, 0, 20, 20));

    // Clockwise: the upper left pixel comes to the upper right.
    const DIO_Drawing turned = read(element(corners(), square + "'translate(50 0) rotate(90)'"));
    EXPECT_EQ(onlyShape(turned).picture, image(2, {kBlue, kRed, kNothing, kHalfGreen}));
    EXPECT_EQ(onlyShape(turned).path.boundingRect(), QRectF(30, 0, 20, 20));
    EXPECT_FALSE(onlyShape(turned).clip);

    // Rows become columns.
    const DIO_Drawing swapped = read(element(corners(), square + "'matrix(0 1 1 0 0 0)'"));
    EXPECT_EQ(onlyShape(swapped).picture, image(2, {kRed, kBlue, kHalfGreen, kNothing}));
}

TEST(SvgPictures, aPictureOfAnySizeMayLieOnItsSide)
{
    const DIO_Drawing drawing = read(
        element(image(3, {kRed, kGreen, kBlue}), "width='30' height='10' transform='translate(50 20) rotate(-90)'"));
    EXPECT_EQ(onlyShape(drawing).picture, image(1, {kBlue, kGreen, kRed}));
    EXPECT_EQ(onlyShape(drawing).path.boundingRect(), QRectF(50, -10, 10, 30));
}

TEST(SvgPictures, aTurnedPictureShowsItsPixelsWhereTheyComeToLie)
{
    // By 30 degrees about the upper left corner: (x, y) comes to (x cos - y sin, x sin + y cos).
    const DIO_Drawing drawing = read(element(image(2, {kRed, kGreen, kBlue, kWhite}),
                                             "width='40' height='40' transform='translate(50 0) rotate(30)'"));
    const double cosine = std::cos(3.14159265358979 / 6);
    const double sine = 0.5;
    const auto at = [&](double x, double y) {
        return pixelAt(drawing, 50 + x * cosine - y * sine, x * sine + y * cosine);
    };
    // Near the pixels' centres, between which colours run into each other.
    EXPECT_TRUE(isNear(at(10, 10), kRed));
    EXPECT_TRUE(isNear(at(30, 10), kGreen));
    EXPECT_TRUE(isNear(at(10, 30), kBlue));
    EXPECT_TRUE(isNear(at(30, 30), kWhite));
    // The outline is exact, however coarse the pixels are.
    EXPECT_NE(at(0.1, 0.1), kNothing);
    EXPECT_NE(at(39.9, 39.9), kNothing);
    EXPECT_EQ(at(-0.1, 20), kNothing);
    EXPECT_EQ(at(20, 40.1), kNothing);
}

TEST(SvgPictures, coloursWithoutCoverageDoNotShowBetweenPixels)
{
    // Transparent green beside red: between them is red, half covered.
    const DIO_Drawing drawing =
        read(element(image(2, {kRed, 0x0000ff00}), "width='80' height='40' transform='rotate(1)'"));
    const QRgb between = pixelAt(drawing, 39.6, 20.7);
    EXPECT_EQ(qGreen(between), 0);
    EXPECT_NEAR(qAlpha(between), 128, 16);
}

TEST(SvgPictures, clipsAndOpacitiesHoldForPicturesToo)
{
    const QImage red = image(1, {kRed});
    const DIO_Drawing drawing =
        read("<clipPath id='k' clipPathUnits='objectBoundingBox'><rect width='0.5' height='1'/></clipPath>"
             "<g opacity='0.5'>" +
             element(red, "x='20' y='20' width='40' height='40' clip-path='url(#k)' opacity='0.5'") + "</g>");
    EXPECT_NEAR(opacityAt(drawing, 30, 30), 0.25, 1e-6);
    EXPECT_EQ(opacityAt(drawing, 50, 30), 0.0);
}

TEST(SvgPictures, hiddenPicturesAreNotPainted)
{
    const QByteArray square = "<rect width='9' height='9'/>";
    EXPECT_EQ(shapesOf(read(square + element(corners(), "visibility='hidden'"))).size(), 1U);
    EXPECT_EQ(shapesOf(read(square + element(image(1, {kNothing}), ""))).size(), 1U) << "nothing in it shows";
    EXPECT_EQ(shapesOf(read(square + element(corners(), "width='0' height='5'"))).size(), 1U);
}

TEST(SvgPictures, copiesOfAPictureShareItsPixels)
{
    const std::vector<DIO_Shape> shapes =
        shapesOf(read(element(corners(), "id='a' width='9' height='9'") + "<use href='#a' x='20'/>"));
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_EQ(shapes[0].picture.cacheKey(), shapes[1].picture.cacheKey());
    EXPECT_EQ(shapes[1].path.boundingRect(), QRectF(20, 0, 9, 9));
}

TEST(SvgPictures, aMaskOfAPictureLetsThroughWhatIsBrightInIt)
{
    const QByteArray mask =
        "<mask id='m'>" + element(image(2, {kWhite, 0xff000000}), "width='40' height='20'") + "</mask>";
    const DIO_Drawing plain = read(mask + "<circle cx='20' cy='10' r='20' fill='#00ff00' mask='url(#m)'/>");
    EXPECT_EQ(pixelAt(plain, 10, 8), kGreen);
    EXPECT_EQ(qAlpha(pixelAt(plain, 30, 8)), 0);
    EXPECT_EQ(pixelAt(plain, 0.5, 0.5), kNothing) << "outside the circle";
    EXPECT_EQ(plain.palette.at(0).name, "#00ff00");

    const DIO_Drawing picture = read(mask + "<g mask='url(#m)'>" +
                                     element(image(2, {kRed, kBlue, kBlue, kRed}), "width='40' height='20' "
                                                                                   "preserveAspectRatio='none'") +
                                     "</g>");
    EXPECT_EQ(onlyShape(picture).picture, image(2, {kRed, 0x000000ff, kBlue, 0x00ff0000}));
}

TEST(SvgPictures, aMaskByCoverageTakesThePicturesAlpha)
{
    const DIO_Drawing drawing = read("<mask id='m' style='mask-type:alpha'>" +
                                     element(image(2, {kHalfGreen, kNothing}), "width='40' height='20'") +
                                     "</mask><rect width='100' height='100' fill='#ff0000' mask='url(#m)'/>");
    EXPECT_EQ(pixelAt(drawing, 10, 10), 0x80ff0000);
    EXPECT_EQ(qAlpha(pixelAt(drawing, 30, 10)), 0);
    EXPECT_EQ(pixelAt(drawing, 10, 30), kNothing) << "outside the mask's picture";
}

TEST(SvgPictures, shapesInAMaskOfPicturesCountToo)
{
    const DIO_Drawing drawing = read("<mask id='m'><rect y='20' width='40' height='20' fill='#fff'/>" +
                                     element(image(1, {kWhite}), "width='20' height='20'") +
                                     "</mask><rect width='40' height='40' fill='#ff0000' mask='url(#m)'/>");
    EXPECT_EQ(pixelAt(drawing, 10, 10), kRed);
    EXPECT_EQ(qAlpha(pixelAt(drawing, 30, 10)), 0);
    EXPECT_EQ(pixelAt(drawing, 30, 30), kRed);
}

TEST(SvgPictures, aPatternWithAPictureHasItsAverage)
{
    const DIO_Drawing drawing =
        read("<pattern id='p' width='4' height='4' patternUnits='userSpaceOnUse'>" +
             element(image(2, {kRed, kBlue}), "width='4' height='4' preserveAspectRatio='none'") +
             "</pattern><rect width='10' height='10' fill='url(#p)'/>");
    EXPECT_NEAR(drawing.palette.at(0).colour.red(), 128, 2);
    EXPECT_NEAR(drawing.palette.at(0).colour.blue(), 128, 2);
    EXPECT_NEAR(onlyShape(drawing).opacity, 1.0, 0.01);
}

TEST(SvgPictures, picturesAreLeftOutBeyondTheMemoryForThem)
{
    // One pixel more than fits at four bytes each; two colours, so that the file is small.
    const int side = static_cast<int>(std::sqrt(QImageReader::allocationLimit() * 1024.0 * 1024.0 / 4.0)) + 1;
    QImage large(side, side, QImage::Format_Mono);
    large.fill(1);
    const DIO_Drawing drawing = read("<rect width='9' height='9'/>" + element(large, "width='9' height='9'"));
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_THAT(left(drawing), HasSubstr("left out: picture that is too large (1)"));
}

TEST(SvgPictures, aCutOffPictureIsLeftOutAndNamed)
{
    const QByteArray whole = url(image(64, std::vector<QRgb>(64 * 64, kRed)));
    const DIO_Drawing drawing =
        read("<rect width='9' height='9'/><image width='9' height='9' href='" + whole.first(80) + "'/>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_THAT(left(drawing), HasSubstr("picture that cannot be decoded (1)"));
}

// Each pixel of a picture is resampled, so that thousands on each other would take minutes.
TEST(SvgPictures, picturesThatCoverThePageOftenAreLeftOutFromTheLowestOn)
{
    const QByteArray below = element(image(1, {kRed}), "id='p' width='100' height='100'");
    const QByteArray rest = QByteArray("<use href='#p'/>").repeated(66) + "<rect width='9' height='9'/>" +
                            element(image(1, {kBlue}), "width='50' height='100' preserveAspectRatio='none'");
    const DIO_Drawing drawing = read(below + rest);
    // The upper one covers the page half, and 63 copies of the lower one fit below it.
    const std::vector<DIO_Shape> shapes = shapesOf(drawing);
    EXPECT_EQ(std::ranges::count_if(shapes, [](const DIO_Shape& shape) { return !shape.picture.isNull(); }), 64);
    EXPECT_EQ(shapes.size(), 65U);
    EXPECT_EQ(pixelAt(drawing, 20.0, 20.0), kBlue);
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("the lowest are left out: 4"));
}

TEST(SvgPictures, picturesBesideThePageOrBehindAClipCountForWhatIsShownOfThem)
{
    const QByteArray beside = element(image(1, {kRed}), "id='p' x='50' width='100' height='100'");
    const QByteArray clipped = "<clipPath id='c'><rect width='50' height='50'/></clipPath>"
                               "<g clip-path='url(#c)'>" +
                               QByteArray("<use href='#p' x='-50'/>").repeated(100) + "</g>";
    // Half a page is shown of each of 77, and a quarter of each of 100.
    const DIO_Drawing drawing = read(beside + QByteArray("<use href='#p'/>").repeated(76) + clipped);
    EXPECT_EQ(shapesOf(drawing).size(), 177U);
    EXPECT_TRUE(drawing.warnings.isEmpty());
}
