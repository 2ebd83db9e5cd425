// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files with layers of pixels that lie, end early or want too much: an error, or a drawing, and nothing worse.
#include "Drawings.h"
#include "LayeredFiles.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_LayeredReader.h"
#include "TestFolder.h"

#include <QImageReader>

#include <random>

using testing::HasSubstr;

namespace {

const QByteArray kRed = QByteArray::fromHex("ff0000ff");

class HostileLayered : public testing::Test, protected TestFolder
{
protected:
    static std::string refusalOf(const QString& path)
    {
        const UT_Result<DIO_Drawing> drawing = DIO_readDrawing(path);
        return drawing ? std::string("it was read") : drawing.error().text.toStdString();
    }

    // Reads it in every way; whatever comes of it.
    static void tryToRead(const QString& path)
    {
        (void)DIO_readDrawing(path);
        (void)DIO_readFrames(path);
    }
};

QByteArray fixture(const char* name)
{
    return bytesOfFile(QStringLiteral(TEST_FILES "/") + QString::fromLatin1(name));
}

AsepriteFile someFile()
{
    AsepriteFile file(6, 5);
    file.frame(100);
    file.chunk(0x2019, LittleEndian().u32(1).u32(0).u32(0).zeros(8).u16(0).bytes(kRed).get());
    file.layer("head", AsepriteFile::kVisible, 1);
    file.layer("eye", AsepriteFile::kVisible, 0, 1);
    file.packedCel(1, 0, 0, 2, 2, kRed + kRed + kRed + kRed);
    file.frame(100);
    file.linkedCel(1, 0);
    return file;
}

} // namespace

TEST_F(HostileLayered, AFileThatIsCutOffIsAnErrorWherever)
{
    const QByteArray whole = someFile().bytes();
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_NE(refusalOf(write(QStringLiteral("cut.ase"), whole.first(size))), "it was read") << size;
    writeArchive(path(QStringLiteral("whole.ora")),
                 {{"stack.xml", R"(<image w="2" h="2"><stack><layer name="a" src="a.png"/></stack></image>)"},
                  {"a.png", pngOf(QImage(2, 2, QImage::Format_ARGB32))}});
    const QByteArray archive = bytesOfFile(path(QStringLiteral("whole.ora")));
    for (qsizetype size = 0; size < archive.size(); size += 3)
        EXPECT_NE(refusalOf(write(QStringLiteral("cut.ora"), archive.first(size))), "it was read") << size;
    for (const char* name : {"blocks.gif", "blocks.webp", "blocks.apng"}) {
        const QByteArray film = fixture(name);
        for (qsizetype size = 0; size < film.size(); size += 2)
            tryToRead(write(QString::fromLatin1(name), film.first(size)));
    }
}

// Layers come before the picture of all of them, so that what is cut off may be of no use to anybody.
TEST_F(HostileLayered, APsdFileThatIsCutOffBehindItsLayersSaysSo)
{
    for (const char* name : {"agpsd.psd", "gimp.psd", "krita16.psd", "imagemagick16.psd"}) {
        const QByteArray whole = fixture(name);
        const auto cutOff = [&](qsizetype size) {
            const auto read = DIO_readDrawing(write(QStringLiteral("cut.psd"), whole.first(size)));
            return !read || read->warnings.join(u' ').contains(QStringLiteral("cut off"));
        };
        EXPECT_FALSE(cutOff(whole.size())) << name;
        const qsizetype step = std::max<qsizetype>(1, whole.size() / 40);
        for (qsizetype size = 0; size < whole.size(); size += step)
            EXPECT_TRUE(cutOff(size)) << name << ' ' << size;
        EXPECT_TRUE(cutOff(whole.size() - 1)) << name;
    }
}

TEST_F(HostileLayered, BitsThatAreTurnedDoNoHarm)
{
    std::mt19937 random(20261122);
    const std::pair<QString, QByteArray> files[] = {{QStringLiteral("a.ase"), someFile().bytes()},
                                                    {QStringLiteral("a.gif"), fixture("blocks.gif")},
                                                    {QStringLiteral("a.webp"), fixture("blocks.webp")},
                                                    {QStringLiteral("a.apng"), fixture("blocks.apng")}};
    for (const auto& [name, whole] : files)
        for (int i = 0; i < 150; ++i) {
            QByteArray bytes = whole;
            for (int turned = 0; turned < 1 + i % 4; ++turned) {
                const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()));
                bytes[at] = static_cast<char>(bytes[at] ^ static_cast<char>(1U << random() % 8));
            }
            tryToRead(write(name, bytes));
        }
}

TEST_F(HostileLayered, PicturesThatAreLargerThanTheirBytesAreRefusedBeforeMemoryIsTaken)
{
    AsepriteFile large(60000, 60000);
    large.frame(100);
    EXPECT_THAT(refusalOf(write(QStringLiteral("canvas.ase"), large.bytes())), HasSubstr("60000 x 60000 pixels"));
    AsepriteFile cel(4, 4);
    cel.frame(100);
    cel.layer("a");
    cel.packedCel(0, 0, 0, 5000, 5000, kRed);
    EXPECT_THAT(refusalOf(write(QStringLiteral("cel.ase"), cel.bytes())), HasSubstr("damaged or cut off"));
    AsepriteFile empty(4, 4);
    empty.frame(100);
    empty.layer("a");
    empty.packedCel(0, 0, 0, 0, 0, {});
    EXPECT_THAT(refusalOf(write(QStringLiteral("empty.ase"), empty.bytes())), HasSubstr("damaged or cut off"));
    // The product of these sides is more than 63 bits hold.
    const QByteArray header = QByteArray::fromHex("384250530001000000000000 0003 ffffffff fd000010 0008 0003 00000000");
    EXPECT_THAT(refusalOf(write(QStringLiteral("sides.psd"), header)), HasSubstr("4244635664 x 4294967295 pixels"));
}

TEST_F(HostileLayered, TooManyLayersAreRefused)
{
    AsepriteFile file(4, 4);
    file.frame(100);
    for (int i = 0; i <= 10'000; ++i)
        file.layer("a");
    EXPECT_THAT(refusalOf(write(QStringLiteral("many.ase"), file.bytes())), HasSubstr("more than the 10000 layers"));
    QByteArray stack = R"(<image w="2" h="2"><stack>)";
    for (int i = 0; i <= 10'000; ++i)
        stack += R"(<layer name="a" src="a.png"/>)";
    writeArchive(path(QStringLiteral("many.ora")),
                 {{"stack.xml", stack + "</stack></image>"}, {"a.png", pngOf(QImage(1, 1, QImage::Format_ARGB32))}});
    EXPECT_THAT(refusalOf(path(QStringLiteral("many.ora"))), HasSubstr("more than the 10000 layers"));
}

TEST_F(HostileLayered, StacksThatNestWithoutEndAreRefused)
{
    writeArchive(path(QStringLiteral("deep.ora")),
                 {{"stack.xml", "<image w=\"2\" h=\"2\">" + QByteArray("<stack>").repeated(20'000)}});
    EXPECT_THAT(refusalOf(path(QStringLiteral("deep.ora"))), HasSubstr("deep in each other"));
}

// 10,000 layers in a group with a name of eight million letters would take 160 GB.
TEST_F(HostileLayered, NamesAreAsLongAsAPersonReads)
{
    const QByteArray stack = "<image w=\"2\" h=\"2\"><stack><stack name=\"" + QByteArray(100'000, 'x') +
                             R"("><layer name="eye" src="a.png"/></stack></stack></image>)";
    QImage dot(1, 1, QImage::Format_ARGB32);
    dot.fill(Qt::red);
    writeArchive(path(QStringLiteral("long.ora")), {{"stack.xml", stack}, {"a.png", pngOf(dot)}});
    const auto drawing = DIO_readDrawing(path(QStringLiteral("long.ora")));
    ASSERT_TRUE(drawing) << drawing.error().text.toStdString();
    EXPECT_EQ(drawing->layers.front().name, QString(996, u'x') + QStringLiteral("/eye"));
}

// All of them are in memory at once, and so is what is made of them.
TEST_F(HostileLayered, PicturesTakeTwiceAsMuchTogetherAsOneMayTake)
{
    const int before = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(1); // 262,144 pixels
    QImage largest(512, 512, QImage::Format_ARGB32);
    largest.fill(Qt::red);
    const QByteArray layer = R"(<layer name="a" src="a.png"/>)";
    for (const int layers : {2, 3}) {
        writeArchive(path(QStringLiteral("all.ora")),
                     {{"stack.xml", R"(<image w="512" h="512"><stack>)" + layer.repeated(layers) + "</stack></image>"},
                      {"a.png", pngOf(largest)}});
        EXPECT_THAT(refusalOf(path(QStringLiteral("all.ora"))),
                    HasSubstr(layers == 2 ? "it was read" : "more than the 0 million pixels"));
    }
    QImageReader::setAllocationLimit(before);
}

// Each layer has a picture of thirty megabytes of zeros, which take thirty kilobytes.
TEST_F(HostileLayered, AnArchiveThatUnpacksToFarMoreThanItIsIsRefused)
{
    const QByteArray zeros = pngOf(QImage(1, 1, QImage::Format_ARGB32)) + QByteArray(30'000'000, '\0');
    QByteArray stack = R"(<image w="2" h="2"><stack>)";
    std::vector<std::pair<QByteArray, QByteArray>> files;
    for (int i = 0; i < 12; ++i) {
        const QByteArray name = QByteArray::number(i) + ".png";
        stack += R"(<layer name="a" src=")" + name + R"("/>)";
        files.push_back({name, zeros});
    }
    files.push_back({"stack.xml", stack + "</stack></image>"});
    writeArchive(path(QStringLiteral("bomb.ora")), files);
    EXPECT_THAT(refusalOf(path(QStringLiteral("bomb.ora"))), HasSubstr("unpacks to far more"));
}

TEST_F(HostileLayered, LayersThatLieFartherAwayThanAnyPictureAreRefused)
{
    for (const char* const x : {"1000001", "-1000001", "-2147483648"}) {
        const QByteArray stack = R"(<image w="2" h="2"><stack><layer name="a" src="a.png" x=")" + QByteArray(x) +
                                 R"(" y="0"/></stack></image>)";
        writeArchive(path(QStringLiteral("far.ora")),
                     {{"stack.xml", stack}, {"a.png", pngOf(QImage(1, 1, QImage::Format_ARGB32))}});
        EXPECT_THAT(refusalOf(path(QStringLiteral("far.ora"))), HasSubstr("damaged or cut off")) << x;
    }
}

TEST_F(HostileLayered, PiecesThatAreMissingOrNoPicturesAreNamed)
{
    const char* const stack = R"(<image w="2" h="2"><stack><layer name="a" src="data/a.png"/></stack></image>)";
    writeArchive(path(QStringLiteral("missing.ora")), {{"stack.xml", stack}});
    EXPECT_THAT(refusalOf(path(QStringLiteral("missing.ora"))), HasSubstr("\"data/a.png\" is missing in it"));
    writeArchive(path(QStringLiteral("text.ora")), {{"stack.xml", stack}, {"data/a.png", "no picture"}});
    EXPECT_THAT(refusalOf(path(QStringLiteral("text.ora"))), HasSubstr("damaged or cut off"));
    writeArchive(path(QStringLiteral("other.ora")), {{"mimetype", "image/openraster"}});
    EXPECT_THAT(refusalOf(path(QStringLiteral("other.ora"))), HasSubstr("\"stack.xml\" is missing in it"));
    EXPECT_THAT(refusalOf(write(QStringLiteral("no.ora"), "no archive")), HasSubstr("is not an archive"));
    EXPECT_THAT(refusalOf(write(QStringLiteral("no.ase"), QByteArray(200, 'x'))), HasSubstr("not a file of Aseprite"));
    EXPECT_THAT(refusalOf(path(QStringLiteral("none.ase"))), HasSubstr("there is no such file"));
}
