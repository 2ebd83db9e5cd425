// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The colours whose gloss can be set, and how their gloss is kept from one drawing to the next.
#include "studio/export/GlossColours.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <gtest/gtest.h>

namespace {

const QColor kRed(200, 0, 0);
const QColor kGreen(0, 200, 0);
const QColor kBlue(0, 0, 200);

std::vector<std::pair<QString, double>> listed(const GlossSettings& gloss)
{
    std::vector<std::pair<QString, double>> all;
    for (const ColourGloss& one : gloss.colours)
        all.emplace_back(one.colour.name(), one.gloss);
    return all;
}

} // namespace

TEST(GlossColours, OfASpriteAreItsMostFrequentOnesFirst)
{
    QImage sprite(3, 2, QImage::Format_ARGB32);
    sprite.fill(kGreen);
    sprite.setPixelColor(0, 0, kRed);
    sprite.setPixelColor(1, 0, kRed);
    sprite.setPixelColor(2, 0, Qt::transparent);
    auto drawing = UT_makeShared<CELVEC_Kvd>();
    QPainterPath square;
    square.addRect(0, 0, 3, 2);
    drawing->addShape(GR_Art::COLOUR, {.path = square, .color = {}, .picture = sprite});
    MO_Scene scene;
    scene.root().emplace<MO_ElementModule>().setDrawing(QStringLiteral("1"), drawing);
    const std::vector<DrawnColour> colours = drawnColours(scene);
    ASSERT_EQ(colours.size(), 2U) << "no colour of pixels that nothing covers";
    EXPECT_EQ(colours[0].name, "#00C800");
    EXPECT_EQ(colours[1].colour, kRed);
}

TEST(GlossColours, ThatADrawingLacksAreKeptForTheNextOne)
{
    const GlossSettings known{.colours = {{kRed, 0.25}, {kGreen, 0.5}}, .others = 0.125};
    const std::vector<DrawnColour> drawn{{kGreen, {}}, {kBlue, {}}};
    const GlossSettings own = glossOf(drawn, known);
    EXPECT_EQ(listed(own), (std::vector<std::pair<QString, double>>{{"#00c800", 0.5}}));
    EXPECT_EQ(own.others, 0.125);
    // Green lost its gloss, blue got one.
    const GlossSettings set{.colours = {{kBlue, 1.0}}, .others = 0.0};
    EXPECT_EQ(listed(withGloss(known, drawn, set)),
              (std::vector<std::pair<QString, double>>{{"#0000c8", 1.0}, {"#c80000", 0.25}}));
}

TEST(GlossColours, AreTheSameAfterTheyWereStored)
{
    const GlossSettings gloss{.colours = {{kRed, 0.1}, {kBlue, 1.0}}, .others = 0.35};
    const GlossSettings read = glossOfTexts(glossTexts(gloss));
    EXPECT_EQ(listed(read), listed(gloss));
    EXPECT_EQ(read.others, 0.35);
    EXPECT_FALSE(glossOfTexts({"red", "#zzz=1", "#fff=2", "#fff=nan", "all=-1"}).isAny());
}
