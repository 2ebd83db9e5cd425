// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Sprites within SVG drawings, through the program: they come out like the sprites themselves.
#include "ProgramFixture.h"

#include <QBuffer>
#include <QImage>

#include <cmath>

#include <gmock/gmock.h>

namespace {

class EmbeddedPictures : public Program
{
protected:
    void SetUp() override
    {
        write("sprite.png", png(sprite()));
        write("wrapped.svg", wrapped("width='48' height='48'"));
    }

    // A red disc of radius 16 with a blue one in front of it, on nothing; edges have part of the coverage.
    static QImage sprite()
    {
        QImage image(48, 48, QImage::Format_ARGB32);
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 48; ++x) {
                const double red = 16.5 - std::hypot(x - 23.5, y - 23.5);
                const bool blue = std::hypot(x - 23.5, y - 28.5) < 7.0;
                const int alpha = qBound(0, qRound(red * 255.0), 255);
                image.setPixel(x, y, blue ? qRgba(40, 60, 200, 255) : qRgba(200, 40, 40, alpha));
            }
        return image;
    }

    static QByteArray png(const QImage& image)
    {
        QByteArray data;
        QBuffer buffer(&data);
        EXPECT_TRUE(image.save(&buffer, "png"));
        return data;
    }

    static QByteArray wrapped(const QByteArray& attributes)
    {
        return "<svg xmlns='http://www.w3.org/2000/svg' width='48' height='48' viewBox='0 0 48 48'><image " +
               attributes + " href='data:image/png;base64," + png(sprite()).toBase64() + "'/></svg>";
    }
};

} // namespace

TEST_F(EmbeddedPictures, ASpriteWithinADrawingComesOutLikeTheSprite)
{
    for (const char* const size : {"48x48", "96x96", "31x31"}) {
        for (const char* const file : {"sprite.png", "wrapped.svg"}) {
            const QString name = QString::fromLatin1(file).first(6);
            const QString words =
                QStringLiteral("normalmap %1 -o %2_n.png --drawing %2_d.png --size %3").arg(file, name, size);
            const Outcome made = quarvel(words);
            ASSERT_EQ(made.exitCode, 0) << made.messages;
            EXPECT_EQ(made.messages, "");
        }
        EXPECT_EQ(QImage(path("sprite_n.png")), QImage(path("wrappe_n.png"))) << size;
        EXPECT_EQ(QImage(path("sprite_d.png")), QImage(path("wrappe_d.png"))) << size;
    }
}

TEST_F(EmbeddedPictures, AtItsOwnSizeTheDrawingIsTheSprite)
{
    ASSERT_EQ(quarvel("normalmap wrapped.svg --drawing drawing.png").exitCode, 0);
    const QImage drawing = QImage(path("drawing.png")).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    EXPECT_EQ(drawing, sprite().convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

TEST_F(EmbeddedPictures, ASceneKeepsThem)
{
    ASSERT_EQ(quarvel("import wrapped.svg -o wrapped.scene").exitCode, 0);
    ASSERT_EQ(quarvel("render wrapped.scene -o frame.png --frames 1 --drawing frame_d.png --resolution 48x48").exitCode,
              0);
    ASSERT_EQ(quarvel("normalmap wrapped.svg -o still.png --drawing still_d.png").exitCode, 0);
    EXPECT_EQ(QImage(path("frame_d.png")), QImage(path("still_d.png")));
}

TEST_F(EmbeddedPictures, APictureThatEndsInsideThePageIsNotContinued)
{
    // The lower half of the sprite alone: its upper border is cut by the picture, not by the page.
    const QByteArray half = png(sprite().copy(0, 24, 48, 24)).toBase64();
    write("half.svg",
          "<svg xmlns='http://www.w3.org/2000/svg' width='48' height='48' viewBox='0 0 48 48'><image y='20' "
          "width='48' height='24' href='data:image/png;base64," +
              half + "'/></svg>");
    ASSERT_EQ(quarvel("normalmap half.svg --alpha coverage -o half.png").exitCode, 0);
    const QImage map(path("half.png"));
    EXPECT_EQ(qAlpha(map.pixel(24, 21)), 255);
    EXPECT_EQ(qAlpha(map.pixel(24, 18)), 0);
}
