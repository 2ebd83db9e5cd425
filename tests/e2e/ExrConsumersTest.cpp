// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpenEXR files as other programs read them: each opens the file and shows the drawing, and those that read layers find
// the vectors. A program that is not installed is skipped with its name.
#include "ProgramFixture.h"

#include <QImage>
#include <QRegularExpression>
#include <QStandardPaths>

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

// A grey square, half of #808080's pixels' width away from the borders, that covers its outermost pixels by half.
const char* const kSquare = R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16">
  <rect x="3.5" y="3" width="9" height="10" fill="#808080"/></svg>)";

constexpr double kLight = 0.2158605; // of 128/255

class ExrConsumers : public Program
{
protected:
    void SetUp() override
    {
        write("square.svg", kSquare);
        ASSERT_EQ(quarvel("normalmap square.svg -o square.exr --drawing flat.exr -q").exitCode, 0);
    }

    static bool lacks(const char* program)
    {
        return QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
    }

    // Whether a picture that another program made of the file shows the square on nothing. The edge's colour is not
    // looked at in a program that takes the file's colours, which are multiplied by coverage, for straight ones.
    void expectSquare(const char* name, bool edgeToo = true) const
    {
        const QImage image = QImage(path(name)).convertToFormat(QImage::Format_ARGB32);
        ASSERT_EQ(image.size(), QSize(16, 16)) << name;
        EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
        EXPECT_EQ(qAlpha(image.pixel(8, 8)), 255);
        EXPECT_NEAR(qRed(image.pixel(8, 8)), 128, 1);
        EXPECT_NEAR(qAlpha(image.pixel(3, 8)), 128, 2) << "the edge is covered by half";
        if (edgeToo) {
            EXPECT_NEAR(qGreen(image.pixel(3, 8)), 128, 3) << "and is no darker than the square";
        }
    }
};

} // namespace

#define NEEDS(program, package)                                                                                        \
    if (lacks(program))                                                                                                \
    GTEST_SKIP() << program << " is not installed; it is in Debian's package " << package

TEST_F(ExrConsumers, OpenExrsToolsListTheLayers)
{
    NEEDS("exrheader", "openexr");
    const Outcome outcome = run("exrheader", {"square.exr"});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
    for (const char* channel : {"A, ", "B, ", "G, ", "R, ", "N.X, ", "N.Y, ", "N.Z, ", "coverage.A, ", "elevation.Y, "})
        EXPECT_THAT(outcome.output, HasSubstr(channel));
}

TEST_F(ExrConsumers, OpenImageIoFindsLinearColoursAndSignedVectors)
{
    NEEDS("oiiotool", "openimageio-tools");
    const Outcome outcome = run("oiiotool", {"--dumpdata", "square.exr"});
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    static const QRegularExpression line("Pixel \\((\\d+), (\\d+)\\): ([^\\n]*)");
    int inside = 0;
    int edges = 0;
    for (auto it = line.globalMatch(QString::fromStdString(outcome.output)); it.hasNext();) {
        const auto match = it.next();
        std::vector<double> v;
        for (const QString& number : match.captured(3).split(' ', Qt::SkipEmptyParts))
            v.push_back(number.toDouble());
        // R G B A N.X N.Y N.Z coverage.A elevation.Y
        ASSERT_EQ(v.size(), 9U);
        EXPECT_NEAR(v[4] * v[4] + v[5] * v[5] + v[6] * v[6], 1.0, 1e-4);
        EXPECT_NEAR(v[3], v[7], 1e-6) << "alpha is the coverage";
        EXPECT_NEAR(v[0], kLight * v[3], 1e-4) << "multiplied by it";
        const int x = match.captured(1).toInt();
        inside += v[3] == 1.0 ? 1 : 0;
        if (match.captured(2).toInt() == 8 && (x == 3 || x == 12)) {
            ++edges;
            EXPECT_NEAR(v[3], 0.5, 0.01);
            EXPECT_GT(x == 3 ? -v[4] : v[4], 0.3) << "the edge's vectors lean outwards, unharmed by alpha";
        }
    }
    EXPECT_EQ(inside, 8 * 10);
    EXPECT_EQ(edges, 2);
}

TEST_F(ExrConsumers, ImageMagickShowsTheDrawing)
{
    NEEDS("convert", "imagemagick");
    for (const char* name : {"square", "flat"}) {
        const QString source = QStringLiteral("%1.exr").arg(QLatin1String(name));
        const Outcome outcome = run("convert", {source, "-colorspace", "sRGB", "-depth", "8", "shown.png"});
        if (outcome.messages.find("no decode delegate") != std::string::npos)
            GTEST_SKIP()
                << "ImageMagick reads no OpenEXR here; it does with Debian's package libmagickcore-6.q16-6-extra";
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
        const QImage shown(path("shown.png"));
        EXPECT_EQ(shown.size(), QSize(16, 16));
        EXPECT_NEAR(qRed(shown.pixel(8, 8)), 128, 1) << name;
        EXPECT_EQ(qAlpha(shown.pixel(0, 0)), 0) << name;
    }
}

TEST_F(ExrConsumers, GeglShowsTheDrawing)
{
    NEEDS("gegl", "gegl");
    for (const char* name : {"square.exr", "flat.exr"}) {
        const Outcome outcome = run("gegl", {QString::fromLatin1(name), "-o", "shown.png"});
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
        expectSquare("shown.png");
    }
}

TEST_F(ExrConsumers, GimpShowsTheDrawing)
{
    NEEDS("gimp", "gimp");
    for (const QString name : {"square.exr", "flat.exr"}) {
        const QString script =
            QStringLiteral("(let* ((image (car (gimp-file-load RUN-NONINTERACTIVE \"%1\" \"%1\"))))"
                           "(gimp-image-convert-precision image PRECISION-U8-GAMMA)"
                           "(file-png-save RUN-NONINTERACTIVE image (car (gimp-image-get-active-drawable"
                           " image)) \"shown.png\" \"shown.png\" 0 9 0 0 0 0 0))")
                .arg(name);
        const Outcome outcome =
            run("env", {"HOME=" + path("."), "gimp", "-i", "-d", "-f", "-b", script, "-b", "(gimp-quit 0)"});
        ASSERT_TRUE(exists("shown.png")) << outcome.messages;
        expectSquare("shown.png", false);
        QFile::remove(path("shown.png"));
    }
}

TEST_F(ExrConsumers, TheMapAloneIsOpaqueCodedOrSigned)
{
    ASSERT_EQ(quarvel("normalmap square.svg -o coded.exr --exr map,half -q").exitCode, 0);
    ASSERT_EQ(quarvel("normalmap square.svg -o signed.exr --exr signed -q").exitCode, 0);
    const IIO_Picture coded = read("coded.exr");
    const IIO_Picture plain = read("signed.exr");
    EXPECT_EQ(coded.channels(), IIO_channelsRgba());
    for (int y = 0; y < 16; ++y)
        for (std::size_t i = 0; i < 64; ++i)
            ASSERT_NEAR(i % 4 == 3 ? coded.row<float>(y)[i] : 2.0F * coded.row<float>(y)[i] - 1.0F,
                        plain.row<float>(y)[i], 2e-3F);
    EXPECT_EQ(plain.row<float>(0)[3], 1.0F) << "opaque";
    EXPECT_EQ(plain.metadata().value("Encoding"), "x = R, y = G, z = B");
}
