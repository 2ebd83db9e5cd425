// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// No picture of a run replaces another one, and none gets lost.
#include "ProgramFixture.h"

#include <QImage>

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

const QByteArray kTwo = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 72 72" width="72" height="72">
<g id="base"><path d="M12 12h48v48h-48z" fill="#ff0000"/></g>
<g id="disc"><circle cx="36" cy="36" r="12" fill="#0000ff"/></g></svg>)";

class WrittenFiles : public Program
{
protected:
    void SetUp() override { write("two.svg", kTwo); }

    void importScene() const { ASSERT_EQ(quarvel("import two.svg -o two.scene").exitCode, 0); }

    // Expects that the run is refused with these words and writes nothing.
    void expectRefused(const Outcome& outcome, const char* words, const QStringList& before) const
    {
        EXPECT_NE(outcome.exitCode, 0);
        EXPECT_THAT(outcome.messages, HasSubstr(words));
        EXPECT_EQ(files(), before);
    }
};

} // namespace

TEST_F(WrittenFiles, OfFramesDifferFromEachOther)
{
    importScene();
    const QStringList before = files();
    expectRefused(quarvel("render two.scene -o n.####.png --lit ./n.%04d.png"),
                  "-o and --lit would both write ./n.0001.png", before);
    expectRefused(quarvel("render two.scene -o n.#.png --height h.#.png --occlusion h.#.png"),
                  "--height and --occlusion would both write h.1.png", before);
    expectRefused(quarvel("render two.scene -o n.1.png --preview n.1.png"), "-o and --preview would both write n.1.png",
                  before);
    EXPECT_EQ(quarvel("render two.scene -o n.#.png --lit l.#.png --resolution 36x36").exitCode, 0);
}

// A folder from a stranger may hold them already.
TEST_F(WrittenFiles, OfFramesAreNotWrittenThroughLinksThatNobodyNamed)
{
    importScene();
    write("precious", "mine");
    ASSERT_TRUE(QFile::link(QStringLiteral("precious"), path("n.0001.png")));
    const QStringList before = files();
    expectRefused(quarvel("render two.scene -o n.####.png"), "n.0001.png is a link", before);
    expectRefused(quarvel("render two.scene -o m.####.png --lit n.####.png"), "n.0001.png is a link", before);
    EXPECT_EQ(bytes("precious"), "mine");
    EXPECT_EQ(quarvel("render two.scene -o n.0001.png --frames 1 --resolution 36x36").exitCode, 0);
    EXPECT_TRUE(bytes("precious").startsWith("\x89PNG")) << "whoever names a link means it";
}

TEST_F(WrittenFiles, OfFramesReplaceNothingOfTheScene)
{
    importScene();
    ASSERT_TRUE(QFile::link(QStringLiteral("two.scene/scene.xml"), path("n.png")));
    const QByteArray scene = bytes("two.scene/scene.xml");
    const QStringList before = files();
    expectRefused(quarvel("render two.scene -o n.png --frames 1"), "n.png is a link into the scene", before);
    expectRefused(quarvel("render two.scene --preview n.png"), "n.png is a link into the scene", before);
    EXPECT_EQ(bytes("two.scene/scene.xml"), scene);
}

TEST_F(WrittenFiles, OfFramesReplaceNoDrawingThatTheSceneWasMadeOf)
{
    QImage disc(24, 24, QImage::Format_ARGB32);
    disc.fill(Qt::transparent);
    for (int y = 6; y < 18; ++y)
        for (int x = 6; x < 18; ++x)
            disc.setPixelColor(x, y, Qt::red);
    ASSERT_TRUE(disc.save(path("disc.0001.png")));
    const QByteArray drawing = bytes("disc.0001.png");
    ASSERT_EQ(quarvel("import disc.0001.png -o disc.scene").exitCode, 0);
    ASSERT_TRUE(QFile::link(QStringLiteral("disc.0001.png"), path("other.png")));
    const QStringList before = files();
    constexpr const char* kLost = "is the drawing that the scene was made of";
    expectRefused(quarvel("render disc.scene -o disc.0001.png --frames 1"), kLost, before);
    expectRefused(quarvel("render disc.scene -o disc.####.png --frames 1"), kLost, before);
    expectRefused(quarvel("render disc.scene -o n.png --lit other.png --frames 1"), kLost, before);
    EXPECT_EQ(bytes("disc.0001.png"), drawing);
}

TEST_F(WrittenFiles, OfAFilmWithoutItsEncoderReplaceNoPicture)
{
    importScene();
    const QStringList before = files();
    environment.insert(QStringLiteral("PATH"), QStringLiteral("/nowhere"));
    const Outcome outcome = quarvel("render two.scene -o n.1.png --lit film.png --preview film.mp4");
    expectRefused(outcome, "--lit and --preview would both write film.png", before);
}

TEST_F(WrittenFiles, OfStandardInputHaveAPlace)
{
    const QStringList before = files();
    expectRefused(piped("two.svg", "normalmap two.svg -"), "standard input has no folder", before);
    expectRefused(piped("two.svg", "normalmap - -o m.png --for godot --canvas"), "--canvas names the drawing's file",
                  before);
    expectRefused(quarvel("normalmap two.svg -o - --for godot --canvas"), "name the map's file with -o", before);
    QDir().mkdir(path("maps"));
    const Outcome both = piped("two.svg", "normalmap two.svg - -o maps");
    EXPECT_EQ(both.exitCode, 0) << both.messages;
    EXPECT_TRUE(exists("maps/two_n.png"));
    EXPECT_TRUE(exists("maps/drawing_n.png"));
}

// A file of 8 bits holds the numbers 1 and 2 as they are.
TEST_F(WrittenFiles, OfFramesHoldNumbersInTheBitsOfTheirFormat)
{
    importScene();
    const Outcome outcome = quarvel("render two.scene --resolution 72x72 --numbers ids.#.bmp");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    const QImage numbers(path("ids.1.bmp"));
    EXPECT_EQ(numbers.pixelColor(20, 20).red(), 1);
    EXPECT_EQ(numbers.pixelColor(36, 36).red(), 2);
    EXPECT_EQ(numbers.pixelColor(2, 2).red(), 0);
}

TEST_F(WrittenFiles, HoldNumbersExactlyOrNotAtAll)
{
    importScene();
    const QStringList before = files();
    expectRefused(quarvel("render two.scene --numbers ids.#.jpg"), ".jpg files do not keep numbers exactly", before);
    expectRefused(quarvel("normalmap two.svg -o n.png --numbers ids.jpg"), ".jpg files do not keep numbers exactly",
                  before);
}

TEST_F(WrittenFiles, OfAnEarlierRunAreNoDrawings)
{
    QDir().mkdir(path("art"));
    write("art/two.svg", kTwo);
    const QString words = QStringLiteral("normalmap art --size 36 --gloss all=1 --flips --numbers art --height art "
                                         "--occlusion art --elevation art");
    ASSERT_EQ(quarvel(words).exitCode, 0);
    const QStringList first = QDir(path("art")).entryList(QDir::Files);
    EXPECT_EQ(first.size(), 9);
    ASSERT_EQ(quarvel(words).exitCode, 0);
    EXPECT_EQ(QDir(path("art")).entryList(QDir::Files), first);
    ASSERT_EQ(quarvel("normalmap art --size 36").exitCode, 0);
    EXPECT_EQ(QDir(path("art")).entryList(QDir::Files), first);
}

// What looks like a place for another text in a name is part of the name.
TEST_F(WrittenFiles, KeepPercentSignsInNames)
{
    ASSERT_TRUE(QFile::copy(path("two.svg"), path("he%2ro.svg")));
    const Outcome outcome = quarvel("normalmap he%2ro.svg --for godot --canvas");
    ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    const QByteArray canvas = bytes("he%2ro_canvas.tres");
    EXPECT_THAT(canvas.toStdString(), HasSubstr("path=\"he%2ro.svg\" id=\"1\""));
    EXPECT_THAT(canvas.toStdString(), HasSubstr("path=\"he%2ro_n.png\" id=\"2\""));
}

TEST_F(WrittenFiles, HaveSidesThatNoOptionMakesTooLong)
{
    QImage page(64, 32, QImage::Format_ARGB32);
    page.fill(Qt::red);
    ASSERT_TRUE(page.save(path("page.png")));
    const QStringList before = files();
    expectRefused(quarvel("normalmap page.png --cells 2147483647 --margin 10"), "at most 32767 pixels", before);
    expectRefused(quarvel("normalmap two.svg --tile x --size 1000000000x100"), "at most 32767 pixels", before);
    write("wide.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="1000000000" height="1" viewBox="0 0 9 9">
<path d="M0 0h9v9h-9z"/></svg>)");
    const QStringList with = files();
    const Outcome wide = quarvel("normalmap wide.svg --tile x");
    EXPECT_NE(wide.exitCode, 0);
    EXPECT_EQ(files(), with);
}

TEST_F(WrittenFiles, ShowAnObjectOfElevationZeroAsFlat)
{
    // The disc lies across the base's left slope; the sample of a vector that faces the viewer is the middle.
    write("slope.svg", QByteArray(kTwo).replace("cx=\"36\"", "cx=\"18\""));
    ASSERT_EQ(quarvel("normalmap slope.svg -o n.png --size 72 --object 2:elevation=0").exitCode, 0);
    EXPECT_NEAR(read("n.png").row<std::uint16_t>(36)[std::size_t{18} * 4], 32768, 200);
}
