// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bitmaps as drawings.
#include "Drawings.h"

#include "QuarvelDrawingIO/DIO_BitmapReader.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "TestFolder.h"

#include <QDataStream>
#include <QFile>
#include <QImageReader>

#include <array>

using testing::HasSubstr;

namespace {

class BitmapReader : public testing::Test, protected TestFolder
{
protected:
    QString save(const QString& name, const QImage& image, const char* format = nullptr) const
    {
        EXPECT_TRUE(image.save(path(name), format));
        return path(name);
    }

    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    static std::string refusalOf(const QString& path)
    {
        const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
        return drawing ? std::string() : drawing.error().text.toStdString();
    }
};

// Left half opaque, right half a quarter as opaque.
QImage halves()
{
    QImage image(4, 2, QImage::Format_ARGB32);
    image.fill(QColor(200, 0, 0));
    for (int y = 0; y < 2; ++y)
        for (int x = 2; x < 4; ++x)
            image.setPixelColor(x, y, QColor(0, 200, 0, 0));
    return image;
}

} // namespace

TEST_F(BitmapReader, yieldsOneShapeThatShowsThePixels)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(save("hero_01.png", halves()));
    ASSERT_TRUE(drawing) << drawing.error().text.toStdString();
    EXPECT_EQ(drawing->size, QSizeF(4, 2));
    EXPECT_EQ(drawing->viewBox, QRectF(0, 0, 4, 2));
    ASSERT_EQ(drawings::layerNames(*drawing), QStringList{"hero"});
    const DIO_Shape& shape = drawing->layers[0].shapes.at(0);
    EXPECT_EQ(shape.path.boundingRect(), QRectF(0, 0, 4, 2));
    EXPECT_EQ(shape.picture, halves());
}

TEST_F(BitmapReader, paintsInTheAverageOfWhatIsCovered)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(save("hero.png", halves()));
    ASSERT_TRUE(drawing);
    ASSERT_EQ(drawing->palette.size(), 1U);
    EXPECT_EQ(drawing->palette[0].kind, DIO_Paint::Kind::SOLID);
    EXPECT_EQ(drawing->palette[0].name, "#c80000");
}

TEST_F(BitmapReader, givesThePictureOnToTheVectorDrawing)
{
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(save("hero.png", halves()));
    ASSERT_TRUE(drawing);
    const auto kvd = DIO_toKvd(*drawing, 0, DIO_toPalette(*drawing));
    EXPECT_EQ(kvd->shapes(GR_Art::COLOUR)[0].picture, halves());
}

TEST_F(BitmapReader, goesByTheContentsNotTheName)
{
    EXPECT_EQ(refusalOf(save("hero.bmp", halves(), "PNG")), "");
}

TEST_F(BitmapReader, refusesWhatIsNoPicture)
{
    EXPECT_THAT(refusalOf(write("a.png", "text")), testing::AllOf(HasSubstr("a.png"), HasSubstr("not a picture")));
    EXPECT_THAT(refusalOf(write("a.png", "")), HasSubstr("not a picture"));
    EXPECT_THAT(refusalOf(write("a.png", drawings::document("<rect width='9' height='9'/>"))),
                HasSubstr("not a picture"))
        << "a drawing would open other files";
    EXPECT_THAT(refusalOf("none.png"), HasSubstr("there is no such file"));
}

TEST_F(BitmapReader, saysWhereAPngFileEndsAndItsLibraryNothing)
{
    const QByteArray whole = bytesOf(save("whole.png", halves()));
    testing::internal::CaptureStderr();
    for (qsizetype size = 8; size < whole.size(); ++size)
        EXPECT_THAT(refusalOf(write("cut.png", whole.first(size))),
                    HasSubstr("it ends after " + std::to_string(size) + " bytes"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(BitmapReader, saysWhereAPngFileIsChangedAndItsLibraryNothing)
{
    QByteArray changed = bytesOf(save("whole.png", halves()));
    // The length of a part stands before its letters.
    const qsizetype pixels = changed.indexOf("IDAT") - 4;
    changed[pixels + 10] = static_cast<char>(changed[pixels + 10] ^ 1);
    testing::internal::CaptureStderr();
    EXPECT_THAT(refusalOf(write("changed.png", changed)),
                HasSubstr("its content from byte " + std::to_string(pixels) + " on is not what was written"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(BitmapReader, APngFileMayHaveChangedTextsAndMoreAfterItsEnd)
{
    QImage image = halves();
    image.setText("Comment", "made by hand");
    QByteArray bytes = bytesOf(save("text.png", image));
    const qsizetype text = bytes.indexOf("made by hand");
    ASSERT_GT(text, 0);
    bytes[text] = 'M';
    EXPECT_EQ(refusalOf(write("changed.png", bytes + "more")), "");
}

// 4 x 4 grey pixels in a strip that lies beyond the file's end.
TEST_F(BitmapReader, ATiffFileWithoutItsPixelsSaysWhatToDo)
{
    const std::array<std::array<quint32, 2>, 8> fields{
        {{256, 4}, {257, 4}, {258, 8}, {259, 1}, {262, 1}, {273, 5000}, {278, 4}, {279, 16}}};
    QByteArray bytes("II*\0\x08\0\0\0", 8);
    QDataStream to(&bytes, QIODevice::Append);
    to.setByteOrder(QDataStream::LittleEndian);
    to << quint16(fields.size());
    constexpr quint16 kWholeNumber = 4;
    for (const auto& [tag, value] : fields)
        to << quint16(tag) << kWholeNumber << quint32(1) << value;
    to << quint32(0);
    EXPECT_THAT(refusalOf(write("a.tif", bytes)), HasSubstr("the TIFF file is damaged, or of a kind that is not read"));
}

// 128 MiB at 4 bytes a pixel are 33.5 million pixels.
TEST_F(BitmapReader, refusesPicturesBeyondTheLimitOnMemory)
{
    ASSERT_EQ(QImageReader::allocationLimit(), 128);
    QImage wide(6000, 5593, QImage::Format_Mono);
    wide.fill(0);
    EXPECT_THAT(refusalOf(save("a.png", wide)), testing::AllOf(HasSubstr("6000 x 5593"), HasSubstr("33 million")));
}

TEST_F(BitmapReader, readsPicturesOfManyBits)
{
    QImage deep(2, 1, QImage::Format_RGBA64);
    deep.fill(Qt::transparent);
    deep.setPixelColor(0, 0, QColor::fromRgba64(1000, 2000, 3000, 65535));
    const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(save("a.png", deep));
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing->layers[0].shapes[0].picture.pixelColor(0, 0).rgba64().red(), 1000);
}

TEST_F(BitmapReader, APictureWithoutAnOutlineSaysSo)
{
    QImage image(4, 4, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 0));
    const UT_Result<DIO_Drawing> opaque = DIO_readDrawing(save("opaque.png", image));
    ASSERT_TRUE(opaque);
    EXPECT_TRUE(opaque->opaqueEdge);
    image.setPixelColor(3, 2, QColor(255, 0, 0, 254));
    EXPECT_FALSE(DIO_readDrawing(save("hole.png", image))->opaqueEdge);
    image.fill(QColor(255, 0, 0, 0));
    const UT_Result<DIO_Drawing> clear = DIO_readDrawing(save("clear.png", image));
    ASSERT_TRUE(clear);
    ASSERT_EQ(clear->warnings.size(), 1);
    EXPECT_THAT(clear->warnings[0].toStdString(), HasSubstr("transparent everywhere"));
}
