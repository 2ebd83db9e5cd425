// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SVG sequences: layers through time, shared drawings, one palette, and the resulting scene.
#include "Files.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"

using namespace files;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

TEST(SvgSequence, LayersOfTheSameNameAreOneThroughAllFrames)
{
    const Folder folder;
    const QString one = folder.write("walk_1.svg", svg(svgLayer("Body", 0) + svgLayer("Arm", 20)));
    const QString two = folder.write("walk_2.svg", svg(svgLayer("Body", 5) + svgLayer("Arm", 30)));
    const DrawingSequence sequence = sequenceOf({one, two});
    EXPECT_EQ(sequence.name, "walk");
    EXPECT_EQ(layerNames(sequence), QStringList({"Body", "Arm"}));
    EXPECT_EQ(shapeOf(sequence.layers[0], 1).path.boundingRect(), QRectF(0, 0, 10, 10));
    EXPECT_EQ(shapeOf(sequence.layers[0], 2).path.boundingRect(), QRectF(5, 0, 10, 10));
    EXPECT_EQ(shapeOf(sequence.layers[1], 2).path.boundingRect(), QRectF(30, 0, 10, 10));
    EXPECT_THAT(sequence.layers[1].exposures, ElementsAre(Pair(1, 1), Pair(2, 2)));
}

TEST(SvgSequence, IsTheSameInWhateverOrderTheFilesCome)
{
    const Folder folder;
    QStringList paths;
    for (int i = 0; i < 5; ++i)
        paths.append(folder.write(QStringLiteral("walk_%1.svg").arg(i * 3),
                                  svg(svgLayer("Body", i) + svgLayer("Part " + QByteArray::number(i), 20, "#00ff00"))));
    const auto first = importDrawings(paths, {});
    ASSERT_TRUE(first) << first.error().text.toStdString();
    std::ranges::reverse(paths);
    std::swap(paths[0], paths[3]);
    const auto second = importDrawings(paths, {});
    ASSERT_TRUE(second);
    EXPECT_EQ(textOf(*first->scene), textOf(*second->scene));
    EXPECT_EQ(first->warnings, second->warnings);
}

TEST(SvgSequence, SharesEqualDrawings)
{
    const Folder folder;
    const QStringList paths = {
        folder.write("a1.svg", svg(svgLayer("Body", 0))), folder.write("a2.svg", svg(svgLayer("Body", 0))),
        folder.write("a3.svg", svg(svgLayer("Body", 9))), folder.write("a4.svg", svg(svgLayer("Body", 0)))};
    const SequenceLayer body = sequenceOf(paths).layers.at(0);
    EXPECT_EQ(body.drawings.size(), 2U);
    EXPECT_THAT(body.exposures, ElementsAre(Pair(1, 1), Pair(3, 3), Pair(4, 1)));
}

TEST(SvgSequence, DrawingsThatDifferInColourAloneAreNotEqual)
{
    const Folder folder;
    const QStringList paths = {folder.write("a1.svg", svg(svgLayer("Body", 0, "#ff0000"))),
                               folder.write("a2.svg", svg(svgLayer("Body", 0, "#ff0001")))};
    EXPECT_EQ(sequenceOf(paths).layers.at(0).drawings.size(), 2U);
}

TEST(SvgSequence, MergesPalettesByColour)
{
    const Folder folder;
    const QStringList paths = {folder.write("a1.svg", svg(svgLayer("Body", 0, "#ff0000"))),
                               folder.write("a2.svg", svg(svgLayer("Body", 1, "red") + svgLayer("Hat", 2, "#0000ff")))};
    const DrawingSequence sequence = sequenceOf(paths);
    EXPECT_EQ(colourNames(*sequence.palette), QStringList({"#ff0000", "#0000ff"}));
    const CM_ColorId_t red = shapeOf(sequence.layers[0], 1).color;
    EXPECT_EQ(shapeOf(sequence.layers[0], 2).color, red);
    EXPECT_EQ(colourName(*sequence.palette->findColor(red)), "#ff0000");
}

TEST(SvgSequence, ALayerThatIsMissingShowsNothing)
{
    const Folder folder;
    const QStringList paths = {folder.write("a1.svg", svg(svgLayer("Body", 0))),
                               folder.write("a2.svg", svg(svgLayer("Body", 0) + svgLayer("Flash", 0))),
                               folder.write("a3.svg", svg(svgLayer("Body", 0)))};
    const DrawingSequence sequence = sequenceOf(paths);
    ASSERT_EQ(layerNames(sequence), QStringList({"Body", "Flash"}));
    EXPECT_THAT(sequence.layers[1].exposures, ElementsAre(Pair(2, 2), Pair(3, kNothing)));
}

TEST(SvgSequence, ABlankDrawingIsAFrameInWhichNothingShows)
{
    const Folder folder;
    const QStringList paths = {folder.write("a1.svg", svg("")), folder.write("a2.svg", svg(svgLayer("Body", 0))),
                               folder.write("a3.svg", svg(""))};
    const DrawingSequence sequence = sequenceOf(paths);
    EXPECT_EQ(sequence.frame, QRectF(0, 0, 100, 100));
    EXPECT_EQ(sequence.lastFrame, 3);
    ASSERT_EQ(layerNames(sequence), QStringList("Body"));
    const auto& exposures = sequence.layers[0].exposures;
    EXPECT_EQ(exposures.at(2), 2);
    EXPECT_EQ(exposures.at(3), kNothing);
    EXPECT_TRUE(!exposures.contains(1) || exposures.at(1) == kNothing);
}

TEST(SvgSequence, BlankDrawingsAloneAreNoSequence)
{
    const Folder folder;
    EXPECT_THAT(refusal({folder.write("a1.svg", svg("")), folder.write("a2.svg", svg(""))}),
                AllOf(HasSubstr("a1.svg"), HasSubstr("nothing is filled or stroked")));
}

TEST(SvgSequence, GapsBetweenNumbersHoldTheDrawingBefore)
{
    const Folder folder;
    const QString one = folder.write("a_10.svg", svg(svgLayer("Body", 0)));
    const QString two = folder.write("a_14.svg", svg(svgLayer("Body", 9)));
    const auto imported = importDrawings({one, two}, {});
    ASSERT_TRUE(imported) << imported.error().text.toStdString();
    EXPECT_EQ(imported->scene->firstFrame(), 10);
    EXPECT_EQ(imported->scene->lastFrame(), 14);
    const auto* body = dynamic_cast<const MO_ElementModule*>(imported->scene->findModule("Body"));
    ASSERT_TRUE(body);
    EXPECT_EQ(body->drawingAt(13), body->drawings().at("10"));
    EXPECT_EQ(body->drawingAt(14), body->drawings().at("14"));
    EXPECT_EQ(body->drawings().size(), 2U);
}

TEST(SvgSequence, ANewLayerFindsItsPlaceAmongTheOthers)
{
    const Folder folder;
    const QStringList paths = {
        folder.write("a1.svg", svg(svgLayer("Leg", 0) + svgLayer("Head", 0))),
        folder.write("a2.svg", svg(svgLayer("Leg", 0) + svgLayer("Body", 0) + svgLayer("Head", 0)))};
    const DrawingSequence sequence = sequenceOf(paths);
    EXPECT_EQ(layerNames(sequence), QStringList({"Leg", "Body", "Head"}));
    EXPECT_TRUE(sequence.warnings.isEmpty());
}

TEST(SvgSequence, AnOrderThatChangesIsSaid)
{
    const Folder folder;
    const QStringList paths = {folder.write("a1.svg", svg(svgLayer("Leg", 0) + svgLayer("Head", 0))),
                               folder.write("a2.svg", svg(svgLayer("Head", 0) + svgLayer("Leg", 0)))};
    const DrawingSequence sequence = sequenceOf(paths);
    EXPECT_EQ(layerNames(sequence), QStringList({"Leg", "Head"}));
    EXPECT_THAT(sequence.warnings.join(u' ').toStdString(), HasSubstr("order of the layers"));
}

TEST(SvgSequence, LayersOfOneNameInOneFrameStayApart)
{
    const Folder folder;
    const QStringList paths = {folder.write("a1.svg", svg(svgLayer("Arm", 0) + svgLayer("Arm", 50))),
                               folder.write("a2.svg", svg(svgLayer("Arm", 1) + svgLayer("Arm", 51)))};
    const DrawingSequence sequence = sequenceOf(paths);
    ASSERT_EQ(layerNames(sequence), QStringList({"Arm", "Arm 2"}));
    EXPECT_EQ(shapeOf(sequence.layers[1], 2).path.boundingRect().left(), 51);
}

TEST(SvgSequence, DrawingsWithoutLayersAreOneNamedAfterTheSequence)
{
    const Folder folder;
    const QStringList paths = {folder.write("ball_1.svg", svg("<circle r='5'/>")),
                               folder.write("ball_2.svg", svg("<circle r='6'/>"))};
    EXPECT_EQ(layerNames(sequenceOf(paths)), QStringList{"ball"});
}

TEST(SvgSequence, ObjectsAreWhatIsAskedFor)
{
    const Folder folder;
    const QString path = folder.write("a.svg", svg("<g id='x'><rect width='9' height='9'/></g><g id='y'><rect x='20' "
                                                   "width='9' height='9'/></g>"));
    EXPECT_EQ(sequenceOf({path}, {.form = {.objects = ObjectChoice::ONE}, .lottie = {}}).layers.size(), 1U);
    EXPECT_EQ(sequenceOf({path}, {.form = {.objects = ObjectChoice::GROUPS}, .lottie = {}}).layers.size(), 2U);
}

TEST(SvgSequence, SaysThatShapesAreNotChosenInSeveralDrawings)
{
    const Folder folder;
    const QStringList paths = {folder.write("ball_1.svg", svg("<circle r='5'/>")),
                               folder.write("ball_2.svg", svg("<circle r='6'/>"))};
    const ImportSettings shapes{.form = {.objects = ObjectChoice::SHAPES}, .lottie = {}};
    const QStringList several = sequenceOf(paths, shapes).warnings;
    ASSERT_EQ(several.size(), 1);
    EXPECT_THAT(several.first().toStdString(), testing::HasSubstr("shapes are chosen in single drawings alone"));
    EXPECT_EQ(sequenceOf({paths.first()}, shapes).warnings, QStringList());
}

TEST(SvgSequence, ASingleDrawingIsImportedInTheObjectsThatItSuggests)
{
    const Folder folder;
    const QString path = folder.write("a.svg", svg("<circle cx='30' cy='40' r='25' fill='#cc8844'/>"
                                                   "<circle cx='70' cy='40' r='20' fill='#4466cc'/>"));
    EXPECT_EQ(sequenceOf({path}).layers.size(), 2U);
}

TEST(SvgSequence, OneSetOfValuesHoldsForAllFramesFromWhereTheObjectIsLargest)
{
    const Folder folder;
    const auto circle = [](int radius) {
        return svg("<circle cx='50' cy='50' r='" + QByteArray::number(radius) + "'/>");
    };
    const auto bevelOf = [](const QStringList& paths) {
        const auto imported = importDrawings(paths, {});
        EXPECT_TRUE(imported) << imported.error().text.toStdString();
        const QString values = imported->scene->findModule("Normal-Map")->findAttr("ObjectList")->displayText(1);
        return values.section(u':', 1, 1).toDouble();
    };
    const QString small = folder.write("ball_1.svg", circle(10));
    const QString large = folder.write("ball_2.svg", circle(30));
    const QString middle = folder.write("ball_3.svg", circle(20));
    // A drawing by itself is measured on the cells that its objects were chosen on, one of several on others.
    const double largest = bevelOf({large});
    EXPECT_NEAR(bevelOf({small, large, middle}), largest, 0.005 * largest);
    EXPECT_NEAR(bevelOf({small, middle}), largest * 20.0 / 30.0, 0.01 * largest);
}

TEST(SvgSequence, ADifferentSizeIsSaidOnce)
{
    const Folder folder;
    QStringList paths = {folder.write("a1.svg", svg(svgLayer("Body", 0)))};
    for (const char* name : {"a2.svg", "a3.svg"})
        paths.append(folder.write(name, "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 50 80'><rect width='9' "
                                        "height='9'/></svg>"));
    const DrawingSequence sequence = sequenceOf(paths);
    EXPECT_EQ(sequence.frame, QRectF(0, 0, 100, 100));
    ASSERT_EQ(sequence.warnings.size(), 1);
    EXPECT_THAT(sequence.warnings[0].toStdString(),
                AllOf(HasSubstr("a2.svg and 1 more"), HasSubstr("differs from that of"), HasSubstr("a1.svg")));
}

// A scene is rendered in any size, so its frame is not rounded to the drawing's pixels.
TEST(SvgSequence, TheFrameHasTheDrawingsOwnProportions)
{
    const Folder folder;
    const QString path = folder.write("small.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='12.5' height='7.5'>"
                                                   "<rect width='9' height='9'/></svg>");
    const auto imported = importDrawings({path}, {.form = {.shape = FormShape::RIM}, .lottie = {}});
    ASSERT_TRUE(imported) << imported.error().text.toStdString();
    EXPECT_DOUBLE_EQ(imported->scene->frameHeight(), 720.0 * 7.5 / 12.5);
}

TEST(SvgSequence, BecomesAGraphWithNumberedObjects)
{
    const Folder folder;
    const QString path = folder.write("hero.svg", svg(svgLayer("Body", 0) + svgLayer("Display", 20, "#00ff00")));
    const auto imported = importDrawings({path}, {.form = {.shape = FormShape::RIM}, .lottie = {}});
    ASSERT_TRUE(imported) << imported.error().text.toStdString();
    const MO_Scene& scene = *imported->scene;
    const MO_Module* node = scene.findModule("Normal-Map");
    ASSERT_TRUE(node);
    EXPECT_EQ(node->keyword(), "Vallorin");
    ASSERT_TRUE(scene.findModule("Drawing"));
    EXPECT_EQ(scene.findModule("Drawing")->keyword(), "COMPOSITE");
    ASSERT_TRUE(scene.outputModule());
    EXPECT_EQ(scene.outputModule()->instanceName(), "Display");
    EXPECT_EQ(scene.frameHeight(), 720.0);

    std::vector<int> numbers;
    std::vector<QString> elements;
    scene.root().forEachModule([&](MO_Module& module) {
        if (auto* definition = dynamic_cast<ObjectDefinition*>(&module))
            numbers.push_back(definition->objectNumber()->localValue());
        if (auto* element = dynamic_cast<MO_ElementModule*>(&module))
            elements.push_back(element->drawingAttr()->getElementName());
    });
    EXPECT_THAT(numbers, ElementsAre(1, 2));
    EXPECT_THAT(elements, ElementsAre("Body", "Display"));
    EXPECT_EQ(node->findAttr("ObjectList")->displayText(1), "1:24:1:1;2:24:1:1");
}

TEST(Import, RefusesWhatDoesNotGoTogether)
{
    const Folder folder;
    const QString drawing = folder.write("a.svg", svg(svgLayer("Body", 0)));
    const QString text = folder.write("b.txt", QByteArray("text"));
    const QString sprite = folder.write("c.png", QImage(4, 4, QImage::Format_ARGB32));
    EXPECT_THAT(refusal({drawing, sprite}),
                AllOf(HasSubstr("a.svg"), HasSubstr("c.png"), HasSubstr("different kinds")));
    EXPECT_THAT(refusal({text}), AllOf(HasSubstr("b.txt"), HasSubstr("cannot be imported")));
    EXPECT_THAT(refusal({folder.path("none.svg")}), HasSubstr("none.svg"));
    EXPECT_THAT(refusal({}), HasSubstr("no file"));
}
