// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Masks and mattes of animations, from the file to the frame: which share of the page is painted. A red square of 80 on
// a page of 100 x 100 paints 0.64; the cutting square lies in its middle.
#include "Animations.h"
#include "ProgramFixture.h"

using namespace animations;

namespace {

struct Case
{
    const char* name;
    QByteArray layers;
    double share;
};

void PrintTo(const Case& tried, std::ostream* out)
{
    *out << tried.name;
}

QByteArray red(const QByteArray& more)
{
    return layer("Red", group(square(80), fill("1,0,0")), kStill, more);
}

// Cut by the coverage or the brightness of a square.
QByteArray redUnder(int side, const QByteArray& colour, int matte)
{
    return layer("Matte", group(square(side), fill(colour)), kStill, R"(,"td":1)") + "," +
           red(R"(,"tt":)" + QByteArray::number(matte));
}

std::vector<Case> cases()
{
    return {
        {"ASubtractingMask", red(masked(mask(40, "s"))), 0.64 - 0.16},
        {"AnInvertedAddingMask", red(masked(mask(40, "a", true))), 0.64 - 0.16},
        {"AnAddingMask", red(masked(mask(40, "a"))), 0.16},
        {"AMaskThatIsSwitchedOff", red(masked(mask(40, "n"))), 0.64},
        {"AMaskThatIsHalfThere", red(masked(mask(40, "s", false, 50))), 0.64 - 0.5 * 0.16},
        {"AnIntersectingMask", red(masked(mask(40, "a") + "," + mask(20, "i"))), 0.04},
        {"ADifference", red(masked(mask(40, "a") + "," + mask(20, "f"))), 0.16 - 0.04},
        {"AMatteOfCoverage", redUnder(30, "0,0,0", 1), 0.09},
        {"AnInvertedMatteOfCoverage", redUnder(30, "1,1,1", 2), 0.64 - 0.09},
        {"AWhiteMatteOfBrightness", redUnder(30, "1,1,1", 3), 0.09},
        {"ABlackMatteOfBrightness", redUnder(30, "0,0,0", 3) + "," + layer("Blue", group(square(20), fill("0,0,1"))),
         0.04},
        {"AnInvertedMatteOfBrightness", redUnder(30, "1,1,1", 4), 0.64 - 0.09},
        {"AMatteThatIsHidden",
         layer("Matte", group(square(30), fill("1,1,1")), kStill, R"(,"td":1,"hd":true)") + "," + red(R"(,"tt":1)"),
         0.09},
        {"AMatteThatStandsElsewhere",
         layer("Matte", group(square(30), fill("1,1,1")), kStill, R"(,"td":1,"ind":7)") + "," +
             layer("Blue", group(square(20), fill("0,0,1"))) + "," + red(R"(,"tt":1,"tp":7,"ind":9)"),
         0.09},
    };
}

class CutAnimation : public Program, public testing::WithParamInterface<Case>
{};

double paintedShare(const IIO_Picture& picture)
{
    double sum = 0.0;
    const auto channels = static_cast<std::size_t>(picture.channelCount());
    const Math::Box2di& rect = picture.dataWindow();
    for (int y = rect.y1; y < rect.y2; ++y) {
        const auto row = picture.row<std::uint16_t>(y);
        for (std::size_t i = channels - 1; i < row.size(); i += channels)
            sum += row[i] / 65535.0;
    }
    return sum / (rect.width() * rect.height());
}

} // namespace

TEST_P(CutAnimation, PaintsItsShare)
{
    write("a.json", document(GetParam().layers));
    const Outcome imported = quarvel("import a.json -o a.scene");
    ASSERT_EQ(imported.exitCode, 0) << imported.messages;
    EXPECT_EQ(imported.messages.find("left out"), std::string::npos) << imported.messages;
    const Outcome rendered =
        quarvel("render a.scene -o n.####.png --frames 1 --node Drawing --as colours --resolution 100x100");
    ASSERT_EQ(rendered.exitCode, 0) << rendered.messages;
    EXPECT_NEAR(paintedShare(read("n.0001.png")), GetParam().share, 0.002);
}

INSTANTIATE_TEST_SUITE_P(All, CutAnimation, testing::ValuesIn(cases()),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(Program, ALayerUnderATextIsLeftOutAndNamed)
{
    const QByteArray text = R"({"ty":5,"nm":"Title","ks":{},"td":1,"ip":0,"op":4,"st":0,"t":{}})";
    write("a.json", document(text + "," + layer("Slab", group(square(80), fill("1,0,0")), kStill, R"(,"tt":1)") + "," +
                             layer("Hero", group(square(20), fill("0,0,1")))));
    const Outcome imported = quarvel("import a.json -o a.scene");
    ASSERT_EQ(imported.exitCode, 0) << imported.messages;
    EXPECT_NE(imported.messages.find("is a text, a picture or missing: Slab"), std::string::npos) << imported.messages;
    ASSERT_EQ(
        quarvel("render a.scene -o n.####.png --frames 1 --node Drawing --as colours --resolution 100x100").exitCode,
        0);
    EXPECT_NEAR(paintedShare(read("n.0001.png")), 0.04, 0.002);
}
