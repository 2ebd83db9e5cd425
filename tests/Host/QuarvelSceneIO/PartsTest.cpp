// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Paths and pictures as texts, and file names made from any names.
#include "Host/QuarvelSceneIO/TestScenes.h"

#include "QuarvelSceneIO/private/SIO_FileNames.h"
#include "QuarvelSceneIO/private/SIO_PathText.h"
#include "QuarvelSceneIO/private/SIO_PictureText.h"

#include <gmock/gmock.h>

#include <QColorSpace>
#include <QRegularExpression>

#include <cstring>
#include <limits>

using namespace test_scenes;

namespace {

QString again(const char* points)
{
    const auto path = SIO_parsePath(text(points), Qt::OddEvenFill);
    return path ? SIO_pathText(*path).value_or(text("no text")) : text("no path");
}

TEST(PathText, HasALetterForEachElement)
{
    QPainterPath path;
    path.moveTo(1, 2);
    path.lineTo(3, 4.5);
    path.cubicTo(1, 1, 2, 2, 3, 3);
    path.closeSubpath();
    EXPECT_EQ(SIO_pathText(path), text("M 1 2 L 3 4.5 C 1 1 2 2 3 3 L 1 2"));
}

TEST(PathText, ComesBackWithEveryElement)
{
    for (const char* points :
         {"", "M 1 2", "M 0 0 M 1 1 L 1 1 L 1 1", "M -0 5e-324 L 9.9e+127 0.1", "M 1 1 C 1 1 1 1 1 1 M 2 2 M 3 3"})
        EXPECT_EQ(again(points), text(points));
    EXPECT_EQ(again(" M  1 2   L 3 4 "), text("M 1 2 L 3 4"));
}

TEST(PathText, KeepsTheFillRule)
{
    for (const auto rule : {Qt::WindingFill, Qt::OddEvenFill}) {
        EXPECT_EQ(SIO_parsePath(text("M 0 0 L 1 0 L 1 1"), rule)->fillRule(), rule);
        EXPECT_EQ(SIO_parsePath(QString(), rule)->fillRule(), rule);
        EXPECT_TRUE(SIO_parsePath(QString(), rule)->isEmpty());
    }
}

TEST(PathText, RefusesWhatIsNoPath)
{
    for (const char* points : {"L 1 1", "M 1", "M 1 2 3", "C 1 1 1 1 1 1", "M 0 0 C 1 1 1 1 1", "M nan 0", "M inf 0",
                               "M 1e999 0", "M 1e128 0", "m 1 1", "M 1,2", "M 0 0 Z", "M 0 0 D 1 1", "x"})
        EXPECT_EQ(again(points), text("no path")) << points;
    QPainterPath path;
    path.moveTo(0, 0);
    path.setElementPositionAt(0, std::numeric_limits<double>::infinity(), 0);
    EXPECT_EQ(SIO_pathText(path), std::nullopt);
}

TEST(PictureText, KeepsEveryBit)
{
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied, QImage::Format_RGBA64,
                              QImage::Format_RGBA64_Premultiplied}) {
        QImage picture(4, 2, format);
        for (int y = 0; y < 2; ++y)
            for (int i = 0; i < picture.bytesPerLine(); ++i)
                picture.scanLine(y)[i] = static_cast<uchar>(37 * i + 91 * y + 3);
        const auto written = SIO_pictureText(SIO_plainPicture(picture));
        ASSERT_TRUE(written);
        const auto read =
            SIO_parsePicture(*written, picture.pixelFormat().premultiplied() == QPixelFormat::Premultiplied);
        ASSERT_TRUE(read);
        EXPECT_EQ(read->format(), format);
        for (int y = 0; y < 2; ++y)
            EXPECT_EQ(std::memcmp(read->constScanLine(y), picture.constScanLine(y),
                                  static_cast<std::size_t>(picture.bytesPerLine())),
                      0);
    }
}

TEST(PictureText, DependsOnThePixelsAlone)
{
    QImage picture = testPicture(QImage::Format_ARGB32);
    const auto plain = SIO_pictureText(SIO_plainPicture(picture));
    picture.setDotsPerMeterX(17);
    picture.setText(text("Author"), text("somebody"));
    picture.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    EXPECT_EQ(SIO_pictureText(SIO_plainPicture(picture)), plain);
}

TEST(PictureText, RefusesWhatIsTooLargeOrDamaged)
{
    EXPECT_EQ(SIO_pictureText(SIO_plainPicture(QImage(20000, 1, QImage::Format_ARGB32))), std::nullopt);
    const auto written = SIO_pictureText(SIO_plainPicture(testPicture(QImage::Format_ARGB32)));
    ASSERT_TRUE(written);
    EXPECT_EQ(SIO_parsePicture(QString(), false), std::nullopt);
    EXPECT_EQ(SIO_parsePicture(*written + u'!', false), std::nullopt);
    // The header claims a width of 2^31 - 1 pixels.
    QByteArray huge = QByteArray::fromBase64(written->toLatin1());
    huge.replace(16, 4, QByteArray("\x7f\xff\xff\xff", 4));
    EXPECT_EQ(SIO_parsePicture(QString::fromLatin1(huge.toBase64()), false), std::nullopt);
}

TEST(FileNames, StandForThemselvesWhereTheyCan)
{
    SIO_FileNames names;
    EXPECT_EQ(names.add(text("Arm-left_2")), text("Arm-left_2"));
    EXPECT_EQ(names.add(text("a/b")), text("a%2Fb"));
    EXPECT_EQ(names.add(text("\xc3\xa9.")), text("%C3%A9%2E"));
    EXPECT_EQ(names.add(text("..")), text("%2E%2E"));
    EXPECT_EQ(names.add(text("con")), text("%63on"));
    EXPECT_EQ(names.add(QString()), text("%"));
}

TEST(FileNames, DifferEvenWhereCaseDoesNotCount)
{
    SIO_FileNames names;
    const QStringList wanted{text("Arm"),
                             text("arm"),
                             text("ARM"),
                             text("Arm"),
                             QString(QChar(0xd800)),
                             QString(QChar(0xd801)),
                             QString(500, u'x'),
                             QString(501, u'x'),
                             text("%"),
                             QString()};
    QSet<QString> given;
    for (const QString& name : wanted) {
        const QString file = names.add(name);
        EXPECT_FALSE(given.contains(file.toLower())) << qPrintable(file);
        EXPECT_LE(file.size(), 80);
        EXPECT_TRUE(QRegularExpression(text("^[A-Za-z0-9_%~-]+$")).match(file).hasMatch()) << qPrintable(file);
        given.insert(file.toLower());
    }
    SIO_FileNames others;
    for (const QString& name : wanted)
        EXPECT_TRUE(given.contains(others.add(name).toLower()));
}

} // namespace
