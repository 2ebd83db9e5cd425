// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What becomes a layer of a drawing.
#include "Drawings.h"

using namespace drawings;
using testing::ElementsAre;

namespace {

constexpr const char* kSquare = "<rect width='10' height='10'/>";

QByteArray group(const char* attributes, const QByteArray& content = kSquare)
{
    return QByteArray("<g ") + attributes + ">" + content + "</g>";
}

QStringList layersOf(const QByteArray& content, DIO_Grouping grouping = DIO_Grouping::AUTO)
{
    return layerNames(read(content, grouping));
}

} // namespace

TEST(SvgLayers, inkscapeLayersAreLayersBottomUp)
{
    const DIO_Drawing drawing = read(group("inkscape:groupmode='layer' inkscape:label='Body' id='layer7'") +
                                     group("inkscape:groupmode='layer' inkscape:label='Head'"));
    EXPECT_THAT(layerNames(drawing), ElementsAre("Body", "Head"));
    EXPECT_TRUE(drawing.layers[0].declared);
}

TEST(SvgLayers, otherEditorsMarksCountAsWell)
{
    EXPECT_THAT(layersOf(group("i:layer='yes' id='Far_x0020_arm'") + group("i:layer='yes' id='Body'")),
                ElementsAre("Far arm", "Body"));
    EXPECT_THAT(layersOf(group("id='Layer_1'") + group("id='Layer_2' data-name='Top'")), ElementsAre("Layer_1", "Top"));
    EXPECT_THAT(layersOf(group("class='layer'", QByteArray("<title>Paper</title>") + kSquare) +
                         group("class='layer'", QByteArray("<title>Ink</title>") + kSquare)),
                ElementsAre("Paper", "Ink"));
    EXPECT_THAT(
        layersOf(group("id='Warstwa_x0020_1'", QByteArray("<metadata id='CorelCorpID_0Corel-Layer'/>") + kSquare)),
        ElementsAre("Warstwa 1"));
    EXPECT_THAT(layersOf("<g xmlns:sketch='http://www.bohemiancoding.com/sketch/ns' sketch:type='MSLayerGroup' "
                         "id='Page'><rect width='10' height='10'/></g>"),
                ElementsAre("Page"));
}

TEST(SvgLayers, layersInsideOfASwitchAreFound)
{
    EXPECT_THAT(layersOf("<switch><foreignObject requiredExtensions='x'/><g>" + group("i:layer='yes' id='A'") +
                         group("i:layer='yes' id='B'") + "</g></switch>"),
                ElementsAre("A", "B"));
}

TEST(SvgLayers, groupsAloneAreNoLayers)
{
    const DIO_Drawing drawing = read(group("id='arm'") + group("id='leg'"));
    EXPECT_THAT(layerNames(drawing), ElementsAre("test"));
    EXPECT_FALSE(drawing.layers[0].declared);
    EXPECT_EQ(drawing.layers[0].shapes.size(), 2U);
}

TEST(SvgLayers, aLayerWithinALayerIsPartOfIt)
{
    const QByteArray inner = group("inkscape:groupmode='layer' inkscape:label='Inner'");
    EXPECT_THAT(layersOf(group("inkscape:groupmode='layer' inkscape:label='Outer'", inner + kSquare)),
                ElementsAre("Outer"));
}

TEST(SvgLayers, looseShapesFormLayersInTheirPlace)
{
    const DIO_Drawing drawing = read(kSquare + group("inkscape:groupmode='layer' inkscape:label='A'") + kSquare +
                                     kSquare + group("inkscape:groupmode='layer' inkscape:label='B'"));
    EXPECT_THAT(layerNames(drawing), ElementsAre("Loose shapes", "A", "Loose shapes", "B"));
    EXPECT_EQ(drawing.layers[2].shapes.size(), 2U);
    EXPECT_FALSE(drawing.layers[2].declared);
}

TEST(SvgLayers, hiddenAndEmptyLayersAreLeftOutWithAWarning)
{
    const DIO_Drawing drawing = read("<style>.off { display: none }</style>" +
                                     group("inkscape:groupmode='layer' inkscape:label='Sketch' style='display:none'") +
                                     group("inkscape:groupmode='layer' inkscape:label='Guides' class='off'") +
                                     group("inkscape:groupmode='layer' inkscape:label='Blank'", "") +
                                     group("inkscape:groupmode='layer' inkscape:label='Ink'"));
    EXPECT_THAT(layerNames(drawing), ElementsAre("Ink"));
    EXPECT_THAT(drawing.warnings, ElementsAre("hidden layers are left out: Sketch, Guides",
                                              "layers that paint nothing are left out: Blank"));
}

TEST(SvgLayers, groupingByGroupsTakesTopLevelGroups)
{
    EXPECT_THAT(layersOf(group("id='arm'", group("id='hand'")) + kSquare + group("id='leg'"), DIO_Grouping::GROUPS),
                ElementsAre("arm", "Loose shapes", "leg"));
}

TEST(SvgLayers, groupingAsOneIgnoresLayers)
{
    EXPECT_THAT(layersOf(group("i:layer='yes' id='A'") + group("i:layer='yes' id='B'"), DIO_Grouping::ONE),
                ElementsAre("test"));
}

TEST(SvgLayers, theTransformAndStyleAroundALayerReachIntoIt)
{
    const DIO_Drawing drawing = read("<g transform='translate(50 50)' fill='#ff0000' opacity='0.5'>" +
                                     group("inkscape:groupmode='layer' inkscape:label='A'") + "</g>");
    EXPECT_THAT(layerNames(drawing), ElementsAre("A"));
    EXPECT_EQ(paintAt(drawing, 55, 55), "#ff0000");
    EXPECT_NEAR(drawing.layers[0].shapes[0].opacity, 0.5, 1e-6);
}

TEST(SvgLayers, aCopyOfALayerIsNoLayer)
{
    EXPECT_THAT(layersOf(group("i:layer='yes' id='A'") + "<use href='#A' x='20'/>"), ElementsAre("A", "Loose shapes"));
}

TEST(SvgLayers, aThousandLayersAreOnePainting)
{
    QByteArray content;
    for (int i = 0; i < 1000; ++i)
        content += group(("inkscape:groupmode='layer' inkscape:label='L" + QByteArray::number(i) + "'").constData());
    const DIO_Drawing drawing = read(content);
    ASSERT_EQ(drawing.layers.size(), 1000U);
    EXPECT_EQ(drawing.layers[999].name, "L999");
    EXPECT_EQ(drawing.layers[999].shapes.size(), 1U);
}
