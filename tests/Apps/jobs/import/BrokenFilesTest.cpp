// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Damaged and malicious files always give a message or a result, and soon. So do animations, although the library that
// reads them does not promise this.
#include "Animations.h"
#include "Files.h"

#include "QuarvelDrawingIO/DIO_LottieStream.h"

#include <QBuffer>
#include <QElapsedTimer>

#include <random>

using namespace files;
using testing::HasSubstr;

namespace {

// Much longer than any of these files takes, even on a slow machine under a sanitizer; only a hang takes this long.
constexpr qint64 kHang = 120'000; // milliseconds

const QByteArray kMovingSquare = animations::layer(
    "Box", animations::group(animations::square(20), animations::fill("1,0,0")), animations::moving());

QByteArray animation()
{
    return animations::document(
        kMovingSquare + "," +
        animations::layer("Line", animations::group(animations::line(), animations::stroke("0,1,0"))));
}

QByteArray drawing()
{
    return svg(svgLayer("Body", 3) + svgLayer("Arm", 40, "#00ff00") +
               "<path d='M0 0C1 2 3 4 5 6z' stroke='#123' transform='rotate(9)'/>");
}

QByteArray sprite()
{
    QImage image(24, 16, QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 10, y * 15, 128, 255 - x * 5));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, "PNG"));
    return bytes;
}

// Expects layers, or a message that names the file.
void expectMessageOrResult(const QString& path)
{
    const UT_Result<DrawingSequence> sequence = readSequence({path}, {});
    if (sequence)
        EXPECT_FALSE(sequence->layers.empty());
    else
        EXPECT_THAT(sequence.error().text.toStdString(), HasSubstr(path.toStdString()));
}

class BrokenFile : public testing::TestWithParam<const char*>
{
protected:
    static QByteArray whole()
    {
        const QByteArray kind = GetParam();
        return kind == "svg" ? drawing() : kind == "png" ? sprite() : animation();
    }
    QString write(const QByteArray& bytes) const { return _folder.write(QStringLiteral("a.") + GetParam(), bytes); }

private:
    Folder _folder;
};

} // namespace

TEST_P(BrokenFile, IsReadWhenItIsWhole)
{
    EXPECT_EQ(refusal({write(whole())}), "");
}

TEST_P(BrokenFile, TruncatedAtEveryTenthByteCostsAMessage)
{
    const QByteArray bytes = whole();
    for (qsizetype size = 0; size < bytes.size(); size += 10) {
        SCOPED_TRACE(size);
        expectMessageOrResult(write(bytes.left(size)));
    }
}

TEST_P(BrokenFile, WithRandomBytesFlippedCostsAMessage)
{
    std::mt19937 random(20260101);
    const QByteArray bytes = whole();
    std::uniform_int_distribution<qsizetype> anywhere(0, bytes.size() - 1);
    std::uniform_int_distribution<int> anyBit(0, 7);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(i);
        QByteArray damaged = bytes;
        for (int flips = i % 4 + 1; flips > 0; --flips) {
            const qsizetype at = anywhere(random);
            damaged[at] = static_cast<char>(damaged[at] ^ (1 << anyBit(random)));
        }
        expectMessageOrResult(write(damaged));
    }
    EXPECT_LT(timer.elapsed(), kHang);
}

INSTANTIATE_TEST_SUITE_P(Kinds, BrokenFile, testing::Values("svg", "png", "json"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST(BrokenAnimation, NumbersOutOfAllReasonCostAMessage)
{
    const Folder folder;
    const auto refusalOf = [&](const char* from, const char* to) {
        return refusal({folder.write("a.json", animation().replace(from, to))});
    };
    EXPECT_THAT(refusalOf("\"w\":100", "\"w\":1e30"), HasSubstr("pixels"));
    EXPECT_THAT(refusalOf("\"w\":100", "\"w\":0"), HasSubstr("no width"));
    EXPECT_THAT(refusalOf("\"fr\":24", "\"fr\":0"), HasSubstr("how many frames"));
    EXPECT_THAT(refusalOf("\"ip\":0,\"op\":4,\"w\"", "\"ip\":0,\"op\":1e9,\"w\""), HasSubstr("frames"));
    EXPECT_THAT(refusalOf("\"ip\":0,\"op\":4,\"w\"", "\"ip\":5,\"op\":4,\"w\""), HasSubstr("no frames"));
    EXPECT_THAT(refusalOf("\"layers\"", "\"players\""), HasSubstr("no layers"));
}

TEST(BrokenAnimation, AnEmptyOneCostsAMessage)
{
    const Folder folder;
    EXPECT_THAT(refusal({folder.write("a.json", animations::document(""))}), HasSubstr("a.json"));
    EXPECT_THAT(refusal({folder.write("a.json", animations::document(animations::layer("A", "")))}),
                HasSubstr("nothing in it is filled or stroked"));
}

TEST(BrokenAnimation, ReadsNoOtherFile)
{
    const Folder folder;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QByteArray path = folder.write("red.png", image).toUtf8();
    QByteArray json = animations::document(
        kMovingSquare + R"(,{"ty":2,"nm":"Picture","refId":"p","ks":{"o":{"a":0,"k":100}},"ip":0,"op":4,"st":0})");
    json.replace("\"assets\":[]",
                 "\"assets\":[{\"id\":\"p\",\"w\":8,\"h\":8,\"u\":\"\",\"p\":\"" + path + "\",\"e\":0}]");
    const DrawingSequence sequence = sequenceOf({folder.write("a.json", json)});
    EXPECT_EQ(layerNames(sequence), QStringList{"Box"});
    EXPECT_THAT(sequence.warnings.join(u' ').toStdString(), HasSubstr("images (1)"));
}

namespace {

// Settings with a script in place of the reading program.
ImportSettings readBy(const Folder& folder, const QByteArray& script, int seconds = 60)
{
    const QString program = folder.write("reader.sh", "#!/bin/sh\n" + script);
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ImportSettings settings;
    settings.lottie = {program, seconds, 1'000'000};
    return settings;
}

std::string refusalBy(const QByteArray& script, int seconds = 60)
{
    const Folder folder;
    return refusal({folder.write("a.json", animation())}, readBy(folder, script, seconds));
}

} // namespace

TEST(AnimationReader, ThatCrashesCostsAMessage)
{
    EXPECT_THAT(refusalBy("kill -SEGV $$"), HasSubstr("probably damaged"));
}

TEST(AnimationReader, ThatNeverEndsIsEnded)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(refusalBy("exec sleep 1000", 1), HasSubstr("more than 1 seconds"));
    EXPECT_LT(timer.elapsed(), kHang);
}

TEST(AnimationReader, ThatWritesWithoutEndIsEnded)
{
    EXPECT_THAT(refusalBy("exec cat /dev/zero"), HasSubstr("more than can be kept"));
}

TEST(AnimationReader, ThatFailsHasItsReasonTold)
{
    EXPECT_THAT(refusalBy("echo 'the file is green' >&2; exit 1"), HasSubstr("a.json: the file is green"));
    EXPECT_THAT(refusalBy("printf 'a\\nb\\n' >&2; exit 1"), HasSubstr("damaged, or no animation"));
}

TEST(AnimationReader, ThatIsMissingIsSaid)
{
    const Folder folder;
    ImportSettings settings;
    settings.lottie.program = folder.path("nothing");
    EXPECT_THAT(refusal({folder.write("a.json", animation())}, settings), HasSubstr("is the installation whole?"));
}

TEST(AnimationReader, ThatWritesRubbishCostsAMessage)
{
    for (const char* rubbish : {"true", "echo QLOTTIE1", "echo rubbish", "head -c 3000 /dev/zero"})
        EXPECT_THAT(refusalBy(rubbish), HasSubstr("probably damaged")) << rubbish;
}

TEST(AnimationReader, WhoseOutputIsDamagedCostsAMessageOrAResult)
{
    const Folder folder;
    const QString path = folder.write("a.json", animation());
    // Keeps the output of the real program in a file; scripts return damaged versions of it.
    const ImportSettings keeping =
        readBy(folder, QByteArray(LOTTIE_READER " > ") + folder.path("stream").toUtf8() + "; exit 1");
    ASSERT_NE(refusal({path}, keeping), "");
    QFile file(folder.path("stream"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray stream = file.readAll();
    ASSERT_TRUE(stream.startsWith(QByteArray(DIO_LottieStream::kMagic.data(), 8)));

    const ImportSettings repeating = readBy(folder, "cat " + folder.path("damaged").toUtf8());
    const auto read = [&](const QByteArray& damaged) {
        folder.write("damaged", damaged);
        return refusal({path}, repeating);
    };
    EXPECT_EQ(read(stream), "");
    EXPECT_NE(read(stream + 'x'), "") << "there is more than there should be";
    for (qsizetype size = 0; size < stream.size(); size += 10)
        ASSERT_NE(read(stream.left(size)), "") << size;
    std::mt19937 random(7);
    std::uniform_int_distribution<qsizetype> anywhere(0, stream.size() - 1);
    for (int i = 0; i < 500; ++i) {
        QByteArray damaged = stream;
        damaged[anywhere(random)] = static_cast<char>(random() & 0xff);
        read(damaged);
    }
}
