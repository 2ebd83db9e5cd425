// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Layers whose strokes bend the surface: creases and ridges.
#include "ProgramFixture.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <zip.h>

#include <gmock/gmock.h>

#include <cmath>

using testing::HasSubstr;

namespace {

const char* const kHead = R"(<svg xmlns="http://www.w3.org/2000/svg"
  xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape" viewBox="0 0 144 144" width="144" height="144">
)";
const char* const kCloth = R"(<rect x="24" y="24" width="96" height="96" fill="#338833"/>)";
// A stroke 12 wide from above the cloth to its middle.
const char* const kStroke = R"(<path d="M72 8V80" stroke="#cc0000" stroke-width="12" fill="none"/>)";

QByteArray layer(const char* attributes, const char* content)
{
    return QByteArray(R"(<g inkscape:groupmode="layer" inkscape:label=)") + attributes + ">" + content + "</g>\n";
}

QByteArray drawing(const QByteArray& layers)
{
    return kHead + layers + "</svg>";
}

class Relief : public Program
{
protected:
    void SetUp() override
    {
        write("plain.svg", drawing(layer("\"Cloth\"", kCloth)));
        write("crease.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"Crease\"", kStroke)));
    }

    void make(const QByteArray& words) const
    {
        const Outcome outcome = quarvel(QLatin1String("normalmap -q --pad 0 --objects layers ") + QLatin1String(words));
        ASSERT_EQ(outcome.exitCode, 0) << outcome.messages;
    }

    QImage map(const QByteArray& words) const
    {
        make("-o map.png " + words);
        return QImage(path("map.png"));
    }

    void writeArchive(const char* name, const std::vector<std::pair<QByteArray, QByteArray>>& files) const
    {
        zip* const archive = zip_open(QFile::encodeName(path(name)).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        ASSERT_NE(archive, nullptr);
        for (const auto& [inside, bytes] : files) {
            zip_source_t* const source =
                zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
            ASSERT_GE(zip_file_add(archive, inside.constData(), source, ZIP_FL_ENC_UTF_8), 0);
        }
        ASSERT_EQ(zip_close(archive), 0);
    }

    void renameLayer(const char* name, const QByteArray& from, const QByteArray& to) const
    {
        zip* const archive = zip_open(QFile::encodeName(path(name)).constData(), 0, nullptr);
        ASSERT_NE(archive, nullptr);
        const zip_int64_t index = zip_name_locate(archive, "maindoc.xml", 0);
        ASSERT_GE(index, 0);
        zip_file_t* const file = zip_fopen_index(archive, static_cast<zip_uint64_t>(index), 0);
        QByteArray text(1 << 16, '\0');
        text.truncate(zip_fread(file, text.data(), static_cast<zip_uint64_t>(text.size())));
        zip_fclose(file);
        ASSERT_EQ(text.count("name=\"" + from + '"'), 1);
        text.replace("name=\"" + from + '"', "name=\"" + to + '"');
        zip_source_t* const source =
            zip_source_buffer(archive, text.constData(), static_cast<zip_uint64_t>(text.size()), 0);
        ASSERT_EQ(zip_file_replace(archive, static_cast<zip_uint64_t>(index), source, 0), 0);
        ASSERT_EQ(zip_close(archive), 0);
    }

    // How far the normal leans to the right: -255 to 255; what faces the viewer has -1, since 8 bits have no middle.
    static int leanAt(const QImage& map, int x, int y) { return 2 * qRed(map.pixel(x, y)) - 255; }
};

} // namespace

TEST_F(Relief, IsAGrooveOrARidgeAlongTheStroke)
{
    const QImage groove = map("crease.svg --shape off");
    // The sides of a groove face each other, its middle and the cloth beside it face the viewer.
    EXPECT_GT(leanAt(groove, 69, 50), 40);
    EXPECT_LT(leanAt(groove, 75, 50), -40);
    EXPECT_NEAR(leanAt(groove, 50, 50), 0, 1);
    EXPECT_NEAR(leanAt(groove, 69, 110), 0, 1);
    write("ridge.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"RIDGES 2\"", kStroke)));
    const QImage ridge = map("ridge.svg --shape off");
    for (int x = 60; x < 84; ++x)
        EXPECT_NEAR(leanAt(ridge, x, 50), -leanAt(groove, x, 50), 3) << x;
}

TEST_F(Relief, IsAsWideAsTheStroke)
{
    const QImage wide = map("crease.svg --shape off");
    QByteArray narrow = kStroke;
    narrow.replace("\"12\"", "\"4\"");
    write("narrow.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"crease\"", narrow.constData())));
    const QImage thin = map("narrow.svg --shape off --size 432");
    // Three times as large, the narrow stroke is as wide as the other one was, and has the same slopes.
    for (int step = 1; step < 6; ++step)
        EXPECT_NEAR(leanAt(thin, 216 - step, 150), leanAt(wide, 72 - step, 50), 8) << step;
    EXPECT_NEAR(leanAt(thin, 216 - 8, 150), 0, 1);
}

TEST_F(Relief, IsNotSeenAndLeavesWhatItDoesNotTouchAsItWas)
{
    make("plain.svg -o map.png --drawing plain.png");
    const QImage plain(path("map.png"));
    make("crease.svg -o map.png --drawing creased.png");
    const QImage creased(path("map.png"));
    EXPECT_EQ(QImage(path("creased.png")), QImage(path("plain.png"))) << "the drawing";
    const QRect cloth(24, 24, 96, 96);
    const QRect stroke(64, 8, 16, 74);
    int changed = 0;
    for (int y = 0; y < plain.height(); ++y)
        for (int x = 0; x < plain.width(); ++x) {
            if (!cloth.contains(x, y) || !stroke.contains(x, y)) {
                EXPECT_EQ(plain.pixel(x, y), creased.pixel(x, y)) << x << ' ' << y;
            }
            changed += plain.pixel(x, y) != creased.pixel(x, y) ? 1 : 0;
        }
    EXPECT_GT(changed, 400);
}

TEST_F(Relief, GoesOnBeyondTheFrame)
{
    const char* const everywhere = R"(<rect x="-40" y="-40" width="224" height="224" fill="#338833"/>)";
    const char* const slanted = R"(<path d="M-40 32L100 172" stroke="#cc0000" stroke-width="12" fill="none"/>)";
    write("cut.svg", drawing(layer("\"Cloth\"", everywhere) + layer("\"Crease\"", slanted)));
    const QImage cut = map("cut.svg --shape off");
    // Along the stroke nothing changes, up to the last pixel.
    for (int step = 0; step < 10; ++step)
        EXPECT_NEAR(leanAt(cut, step, 69 + step), leanAt(cut, 20, 89), 4) << step;
    EXPECT_GT(std::abs(leanAt(cut, 20, 89)), 40);
}

TEST_F(Relief, BendsOnlyWhatLiesBelow)
{
    const QByteArray badge = layer("\"Badge\"", R"(<rect x="60" y="40" width="24" height="24" fill="#eeee00"/>)");
    write("over.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"Crease\"", kStroke) + badge));
    write("none.svg", drawing(layer("\"Cloth\"", kCloth) + badge));
    const QImage over = map("over.svg");
    const QImage none = map("none.svg");
    for (int y = 42; y < 62; ++y)
        for (int x = 62; x < 82; ++x)
            EXPECT_EQ(over.pixel(x, y), none.pixel(x, y)) << x << ' ' << y;
    EXPECT_NE(over.pixel(69, 74), none.pixel(69, 74));
}

TEST_F(Relief, ChangesTheHeightsAsItChangesTheSlopes)
{
    make("crease.svg --float -o map.exr --height height.exr --object cloth:bevel=100:elevation=2:smoothness=2");
    const IIO_Picture normals = read("map.exr");
    const IIO_Picture heights = read("height.exr");
    const auto channel = [&](const char* name) { return normals.channels().indexOf(QLatin1String(name)); };
    const auto count = static_cast<std::size_t>(normals.channels().size());
    int compared = 0;
    for (const int y : {50, 60, 70})
        for (int x = 67; x < 78; ++x) {
            const float* const pixel =
                normals.row<float>(y).data() + static_cast<std::size_t>(x - normals.dataWindow().x1) * count;
            const auto component = [&](const char* name) { return static_cast<double>(pixel[channel(name)]); };
            const auto heightAt = [&](int column) {
                return static_cast<double>(heights.row<float>(y)[static_cast<std::size_t>(column)]);
            };
            const double slope = (heightAt(x + 1) - heightAt(x - 1)) / 2.0;
            EXPECT_NEAR(-component("N.X") / component("N.Z"), slope, 0.02) << x << ' ' << y;
            compared += std::abs(slope) > 0.3 ? 1 : 0;
        }
    EXPECT_GT(compared, 10);
}

TEST_F(Relief, IsToldByValuesToo)
{
    const QImage said = map("crease.svg");
    const auto withLayer = [&](const char* attributes) {
        write("other.svg", drawing(layer("\"Cloth\"", kCloth) + layer(attributes, kStroke)));
        return map("other.svg");
    };
    EXPECT_EQ(withLayer(R"("Fold" data-vallorin-role="crease")"), said);
    EXPECT_EQ(withLayer(R"("Fold role=crease")"), said);
    EXPECT_EQ(withLayer(R"("Fold relief=-0.5")"), said);
    EXPECT_NE(withLayer(R"("Crease relief=-1")"), said);
    EXPECT_NE(withLayer(R"("Crease role=object")"), said);
    EXPECT_EQ(map("crease.svg --object crease:relief=-0.5"), said);
    EXPECT_EQ(map("crease.svg --object crease:hidden"), map("plain.svg"));
    EXPECT_THAT(quarvel("inspect crease.svg").output, HasSubstr("bends the surface below it, relief=-0.5"));
}

TEST_F(Relief, TakesNoPartInTheChoiceOfObjects)
{
    const QByteArray figure =
        R"(<circle cx="50" cy="60" r="40" fill="#338833"/><rect x="90" y="90" width="40" height="40"
      fill="#cc8800"/>)";
    write("figure.svg", drawing(figure));
    write("creased.svg", drawing(figure + layer("\"crease\"", kStroke)));
    const auto objects = [&](const char* file) {
        return quarvel(QStringLiteral("inspect %1").arg(QLatin1String(file)))
            .text()
            .split(u'\n')
            .filter(QStringLiteral("a part"));
    };
    EXPECT_EQ(objects("creased.svg"), objects("figure.svg"));
    EXPECT_EQ(objects("creased.svg").size(), 2);
}

TEST_F(Relief, IsNotToldByTheNameOfAFileOrOfTheOnlyLayer)
{
    write("ridge.svg", drawing(kCloth));
    write("cloth.svg", drawing(kCloth));
    EXPECT_EQ(map("ridge.svg"), map("cloth.svg"));
    write("alone.svg", drawing(layer("\"Ridge\"", kCloth)));
    EXPECT_EQ(map("alone.svg"), map("cloth.svg"));
}

// A layer of pixels bends the surface as a layer of shapes does.
TEST_F(Relief, IsALayerOfAnOpenRasterFileToo)
{
    const auto pixels = [](const QRect& painted, Qt::GlobalColor colour) {
        QImage image(144, 144, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter(&image).fillRect(painted, colour);
        QBuffer file;
        EXPECT_TRUE(image.save(&file, "png"));
        return file.data();
    };
    writeArchive("cloth.ora", {{"mimetype", "image/openraster"},
                               {"data/0.png", pixels({24, 24, 96, 96}, Qt::green)},
                               {"data/1.png", pixels({66, 8, 12, 72}, Qt::red)},
                               {"stack.xml", R"(<image w="144" h="144"><stack>
  <layer name="Crease" src="data/1.png"/><layer name="Cloth" src="data/0.png"/></stack></image>)"}});
    const QImage groove = map("cloth.ora --shape off");
    const QImage drawn = map("crease.svg --shape off");
    for (int x = 60; x < 84; ++x)
        EXPECT_NEAR(leanAt(groove, x, 50), leanAt(drawn, x, 50), 3) << x;
    EXPECT_GT(leanAt(groove, 69, 50), 40);
}

TEST_F(Relief, IsALayerOfAKritaFileToo)
{
    const QString file = path("painted.kra");
    ASSERT_TRUE(QFile::copy(QStringLiteral(LAYERED_FILES "/krita.kra"), file));
    const QImage without = map("painted.kra --object shade:hidden");
    ASSERT_NO_FATAL_FAILURE(renameLayer("painted.kra", "shade", "crease"));
    EXPECT_THAT(quarvel("inspect painted.kra").output, HasSubstr("bends the surface below it, relief=-0.5"));
    const QImage groove = map("painted.kra");
    EXPECT_EQ(groove.size(), without.size());
    EXPECT_NE(groove, without);
    EXPECT_EQ(map("painted.kra --object crease:hidden"), without);
}

// Rims, tilts and grooves are added in passes of their own over the rendered map.
TEST_F(Relief, RimsAndTiltsGiveTheSameBytesWithAnyNumberOfThreads)
{
    write("all.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"Crease\"", kStroke) +
                             layer("\"Badge\"", R"(<circle cx="96" cy="96" r="30" fill="#eeee00"/>)")));
    const auto bytes = [&](const QString& processors) {
        const Outcome outcome =
            run("/bin/sh", {"-c", "taskset -c " + processors +
                                      " " QUARVEL_PROGRAM " normalmap all.svg --size 700 -o all.png"
                                      " --object cloth:tilt=20,10 --object badge:rim=12,2:tilt=-15,0"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.messages;
        QFile file(path("all.png"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray one = bytes("0");
    EXPECT_FALSE(one.isEmpty());
    EXPECT_EQ(one, bytes("0-1"));
}

TEST_F(Relief, BelongsToEveryFrameOfASequence)
{
    QByteArray moved = kStroke;
    moved.replace("M72 8V80", "M48 8V80");
    write("a_1.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"Crease\"", kStroke)));
    write("a_2.svg", drawing(layer("\"Cloth\"", kCloth) + layer("\"Crease\"", moved.constData())));
    ASSERT_EQ(quarvel("import a_1.svg a_2.svg -o a.scene").exitCode, 0);
    ASSERT_EQ(quarvel("render a.scene -o n.####.png --resolution 144 --pad 0").exitCode, 0);
    const QImage first(path("n.0001.png"));
    const QImage second(path("n.0002.png"));
    EXPECT_GT(leanAt(first, 69, 70), leanAt(first, 75, 70) + 60);
    EXPECT_GT(leanAt(second, 45, 70), leanAt(second, 51, 70) + 60);
}

TEST_F(Relief, IsKeptByScenes)
{
    ASSERT_EQ(quarvel("import crease.svg").exitCode, 0);
    const auto render = [&] {
        EXPECT_EQ(quarvel("render crease.scene -o n.png --resolution 144 --pad 0").exitCode, 0);
        return QImage(path("n.png"));
    };
    EXPECT_THAT(quarvel("inspect crease.scene").output, HasSubstr("relief=-0.5"));
    const QImage kept = render();
    ASSERT_FALSE(kept.isNull());
    EXPECT_GT(leanAt(kept, 69, 70), leanAt(kept, 75, 70) + 60);
    ASSERT_EQ(quarvel("set crease.scene --object crease:relief=0.5").exitCode, 0);
    const QImage ridge = render();
    EXPECT_LT(leanAt(ridge, 69, 70), leanAt(ridge, 75, 70) - 60);
    ASSERT_EQ(quarvel("set crease.scene --object crease:hidden").exitCode, 0);
    const QImage hidden = render();
    EXPECT_NEAR(leanAt(hidden, 69, 70), leanAt(hidden, 75, 70), 30);
    ASSERT_EQ(quarvel("set crease.scene --object crease:role=crease").exitCode, 0);
    EXPECT_EQ(render(), kept);
}
