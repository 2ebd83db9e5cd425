// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// OpenEXR files: floats are read back exactly, halves are rounded to nearest; windows, layers and texts are kept.
#include "Limits.h"
#include "Pictures.h"

#include "QuarvelImageIO/IIO_ExrFile.h"

#include <rapidcheck/gtest.h>

namespace {

using ExrFile = FolderTest;

IIO_Picture randomFloats(const Math::Box2di& display, const Math::Box2di& data, const QStringList& channels,
                         unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> any(-2.0F, 2.0F);
    return pictureOf<float>(display, data, channels, [&] { return any(random); });
}

RC_GTEST_FIXTURE_PROP(ExrFile, FullFloatsComeBackExactlyInTheirWindows, ())
{
    const auto left = *rc::gen::inRange(-20, 20);
    const auto top = *rc::gen::inRange(-20, 20);
    const Math::Box2di data(left, top, left + *rc::gen::inRange(1, 30), top + *rc::gen::inRange(1, 30));
    const auto channels = *rc::gen::element(IIO_channelsRgba(), IIO_channelsGreyAlpha(), IIO_channelsGrey(),
                                            QStringList{QStringLiteral("N.X"), QStringLiteral("N.Y")});
    const auto compression = *rc::gen::element(IIO_Compression::NONE, IIO_Compression::FAST, IIO_Compression::SMALL);
    const Math::Box2di display(0, 0, 16, 9);
    const IIO_Picture picture = randomFloats(display, data, channels, *rc::gen::arbitrary<unsigned>());

    const QString file = path(QStringLiteral("p.exr"));
    RC_ASSERT(IIO_writeExr(file, picture, {.compression = compression, .exrDepth = IIO_ExrDepth::FLOAT}).ok());
    const auto back = IIO_readExr(file);
    RC_ASSERT(back.ok());
    RC_ASSERT(back->displayWindow() == display);
    RC_ASSERT(back->dataWindow() == data);
    RC_ASSERT(back->channels() == channels);
    RC_ASSERT(samplesOf<float>(*back) == samplesOf<float>(picture));
}

TEST_F(ExrFile, HalvesAreWithinOnePartIn2048)
{
    const IIO_Picture picture = randomFloats({0, 0, 50, 50}, {0, 0, 50, 50}, IIO_channelsRgba(), 3);
    ASSERT_TRUE(IIO_writeExr(path(QStringLiteral("p.exr")), picture, {.exrDepth = IIO_ExrDepth::HALF}).ok());
    const auto back = IIO_readExr(path(QStringLiteral("p.exr")));
    ASSERT_TRUE(back.ok());
    const auto expected = samplesOf<float>(picture);
    const auto actual = samplesOf<float>(*back);
    bool rounded = false;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        ASSERT_NEAR(actual[i], expected[i], std::abs(expected[i]) / 2048.0F + 1e-7F);
        rounded = rounded || actual[i] != expected[i];
    }
    EXPECT_TRUE(rounded);
}

TEST_F(ExrFile, SixteenBitSamplesBecomeZeroToOne)
{
    const auto picture = pictureOfSamples<std::uint16_t>(3, 1, IIO_channelsGrey(), {0, 13107, 65535});
    ASSERT_TRUE(IIO_writeExr(path(QStringLiteral("p.exr")), picture, {.exrDepth = IIO_ExrDepth::FLOAT}).ok());
    const auto back = IIO_readExr(path(QStringLiteral("p.exr")));
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(samplesOf<float>(*back), (std::vector<float>{0.0F, 0.2F, 1.0F}));
}

TEST_F(ExrFile, BandsOfRowsMeet)
{
    // More rows than a band has, and not a multiple of that.
    const IIO_Picture picture = randomFloats({0, -3, 3, 700}, {0, -3, 3, 700}, IIO_channelsRgb(), 5);
    ASSERT_TRUE(IIO_writeExr(path(QStringLiteral("p.exr")), picture, {.exrDepth = IIO_ExrDepth::FLOAT}).ok());
    const auto back = IIO_readExr(path(QStringLiteral("p.exr")));
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(samplesOf<float>(*back), samplesOf<float>(picture));
}

TEST_F(ExrFile, MetadataComesBack)
{
    IIO_Picture picture = randomFloats({0, 0, 2, 2}, {0, 0, 2, 2}, IIO_channelsGrey(), 1);
    picture.metadata().set(QStringLiteral("Author"), QString::fromUtf8("žluťoučký 筆"));
    picture.metadata().set(QStringLiteral("A key of more than thirty-one letters"), QStringLiteral("two\nlines"));
    ASSERT_TRUE(IIO_writeExr(path(QStringLiteral("p.exr")), picture, {}).ok());
    const auto back = IIO_readExr(path(QStringLiteral("p.exr")));
    ASSERT_TRUE(back.ok());
    for (const auto& [key, value] : picture.metadata().entries())
        EXPECT_EQ(back->metadata().value(key), value);
}

// Krita lays all layers of a file on top of each other, unless this attribute names them all and hides them.
TEST_F(ExrFile, LayersBesideAPictureAreHiddenInKrita)
{
    const QString file = path(QStringLiteral("p.exr"));
    const auto said = [&](const QStringList& channels) {
        EXPECT_TRUE(IIO_writeExr(file, randomFloats({0, 0, 4, 4}, {0, 0, 4, 4}, channels, 1), {}).ok());
        EXPECT_TRUE(IIO_readExr(file)->metadata().entries().empty()) << "it is no text of the picture";
        QFile written(file);
        EXPECT_TRUE(written.open(QIODevice::ReadOnly));
        return written.readAll();
    };
    const QStringList layers{QStringLiteral("N.X"), QStringLiteral("N.Y"), QStringLiteral("a&b.Y")};
    EXPECT_TRUE(said(IIO_channelsRgba() + layers)
                    .contains("<krita_layers_info><layer exr_name=\"N\" visible=\"0\"/>"
                              "<layer exr_name=\"a&amp;b\" visible=\"0\"/></krita_layers_info>"));
    EXPECT_FALSE(said(layers).contains("krita")) << "nothing else could be seen";
    EXPECT_FALSE(said(IIO_channelsRgba()).contains("krita"));
}

TEST_F(ExrFile, AKeyOfTheFormatItselfIsRefused)
{
    for (const char* key : {"dataWindow", "channels", "compression", "tiles"}) {
        IIO_Picture picture = randomFloats({0, 0, 2, 2}, {0, 0, 2, 2}, IIO_channelsGrey(), 1);
        picture.metadata().set(QString::fromLatin1(key), QStringLiteral("x"));
        const auto written = IIO_writeExr(path(QStringLiteral("p.exr")), picture, {});
        ASSERT_FALSE(written.ok()) << key;
        EXPECT_TRUE(written.error().text.contains(QString::fromLatin1(key)));
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(ExrFile, AFullDiskLeavesTheOldPictureWhereverItStrikes)
{
    write(QStringLiteral("p.exr"), "old");
    const IIO_Picture picture = randomFloats({0, 0, 64, 64}, {0, 0, 64, 64}, IIO_channelsRgba(), 1);
    ASSERT_TRUE(IIO_writeExr(path(QStringLiteral("whole.exr")), picture, {}).ok());
    const auto size = static_cast<rlim_t>(bytes(QStringLiteral("whole.exr")).size());
    // The disk is full in the header, in the middle of the lines, and at the last byte.
    for (const rlim_t room : {rlim_t{100}, size / 2, size - 1}) {
        const FileSizeLimit limit(room);
        EXPECT_FALSE(IIO_writeExr(path(QStringLiteral("p.exr")), picture, {}).ok()) << room;
    }
    EXPECT_EQ(bytes(QStringLiteral("p.exr")), "old");
    EXPECT_EQ(files().size(), 2);
}

TEST_F(ExrFile, ACutFileIsAnErrorAndNoCrash)
{
    const IIO_Picture picture = randomFloats({0, 0, 20, 20}, {0, 0, 20, 20}, IIO_channelsRgba(), 1);
    ASSERT_TRUE(IIO_writeExr(path(QStringLiteral("p.exr")), picture, {}).ok());
    const QByteArray whole = bytes(QStringLiteral("p.exr"));
    for (qsizetype length = 0; length < whole.size() - 1; length += 1 + whole.size() / 50) {
        write(QStringLiteral("cut.exr"), whole.left(length));
        const auto back = IIO_readExr(path(QStringLiteral("cut.exr")));
        ASSERT_FALSE(back.ok()) << length;
        EXPECT_TRUE(back.error().sentence().contains(path(QStringLiteral("cut.exr"))));
    }
}

} // namespace
