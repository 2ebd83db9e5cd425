// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animations: the results of layers, fills and strokes, and of features that cannot be imported.
#include "Animations.h"
#include "Files.h"

#include <QProcess>

#include <cmath>

using namespace files;
using namespace animations;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

namespace {

DrawingSequence imported(const QByteArray& json, ObjectChoice objects = ObjectChoice::AUTO)
{
    const Folder folder;
    return sequenceOf({folder.write("bounce.json", json)}, {.form = {.objects = objects}, .lottie = {}});
}

std::string warningsOf(const DrawingSequence& sequence)
{
    return sequence.warnings.join(u'\n').toStdString();
}

const QByteArray kRedSquare = group(square(20), fill("1,0,0"));

} // namespace

TEST(LottieImport, TakesSizeAndFrames)
{
    const DrawingSequence sequence = imported(document(layer("Box", kRedSquare)));
    EXPECT_EQ(sequence.name, "bounce");
    EXPECT_EQ(sequence.frame, QRectF(0, 0, 100, 100));
    EXPECT_EQ(sequence.firstFrame, 1);
    EXPECT_EQ(sequence.lastFrame, 4);
    EXPECT_TRUE(sequence.warnings.isEmpty()) << warningsOf(sequence);
}

TEST(LottieImport, TheSceneHasTheFilesFrameRate)
{
    const Folder folder;
    QByteArray json = document(layer("Box", kRedSquare));
    ASSERT_TRUE(json.contains("\"fr\":"));
    json.replace(json.indexOf("\"fr\":"), json.indexOf(',', json.indexOf("\"fr\":")) - json.indexOf("\"fr\":"),
                 "\"fr\":12.5");
    const auto made = importDrawings({folder.write("bounce.json", json)}, {});
    ASSERT_TRUE(made.ok());
    EXPECT_EQ(made->scene->frameRate(), 12.5);
}

TEST(LottieImport, AnEasingOfTheLastKeyframeChangesNothing)
{
    QByteArray eased = moving();
    eased.replace(R"({"t":4,)", R"({"i":{"x":1,"y":1},"o":{"x":0,"y":0},"t":4,)");
    ASSERT_NE(eased, moving());
    // Two such layers, whose names look like keyframes.
    const QByteArray name = R"(\"k\":[{\"t\":1,\"i\":2}]\\)";
    const DrawingSequence sequence =
        imported(document(layer(name, kRedSquare, eased) + "," + layer("Box", kRedSquare, eased)));
    ASSERT_EQ(sequence.layers.size(), 2U);
    EXPECT_EQ(sequence.layers[1].name, R"("k":[{"t":1,"i":2}]\)");
    for (const SequenceLayer& box : sequence.layers)
        for (const int frame : {1, 2, 3, 4})
            EXPECT_NEAR(shapeOf(box, frame).path.boundingRect().left(), 10.0 * frame, 0.1) << frame;
}

// The outline of a stroke between two frames has coordinates of 16 digits, all of which a scene would keep as text.
TEST(LottieImport, CoordinatesHaveTheDigitsThatAPictureShows)
{
    const DrawingSequence sequence = imported(document(layer("Line", group(line(), stroke("0,1,0")), moving())));
    ASSERT_EQ(sequence.layers.size(), 1U);
    int points = 0;
    for (const DIO_Shape& shape : sequence.layers.front().measured)
        for (int i = 0; i < shape.path.elementCount(); ++i, ++points) {
            const QPainterPath::Element& point = shape.path.elementAt(i);
            EXPECT_EQ(point.x, std::round(point.x * 10'000.0) / 10'000.0);
            EXPECT_EQ(point.y, std::round(point.y * 10'000.0) / 10'000.0);
        }
    EXPECT_GT(points, 3);
}

TEST(LottieImport, SaysHowFarItIsAndStops)
{
    const Folder folder;
    const QStringList file{folder.write("bounce.json", document(layer("Box", kRedSquare, moving())))};
    std::vector<double> told;
    ImportSettings settings;
    settings.goOn = [&](double done) {
        told.push_back(done);
        return true;
    };
    ASSERT_TRUE(readSequence(file, settings).ok());
    EXPECT_TRUE(std::ranges::is_sorted(told));
    EXPECT_EQ(told.back(), 1.0);
    settings.goOn = [](double) { return false; };
    const auto atOnce = readSequence(file, settings);
    ASSERT_FALSE(atOnce.ok());
    EXPECT_EQ(atOnce.error().kind, UT_ErrorKind::STOPPED);
    settings.goOn = [](double done) { return done < 0.5; };
    const auto later = readSequence(file, settings);
    ASSERT_FALSE(later.ok());
    EXPECT_EQ(later.error().kind, UT_ErrorKind::STOPPED);
}

// A reader that holds its last bytes back until progress has been told: without progress it would wait for ever.
TEST(LottieImport, SaysHowFarItIsWhileTheReaderStillWrites)
{
    const Folder folder;
    const QByteArray json = document(layer("Box", kRedSquare, moving()));
    QProcess reader;
    reader.start(QStringLiteral(LOTTIE_READER), QStringList());
    reader.write(json);
    reader.closeWriteChannel();
    ASSERT_TRUE(reader.waitForFinished());
    const QByteArray stream = reader.readAllStandardOutput();
    ASSERT_GT(stream.size(), 200);
    const QString told = folder.path("told");
    const QString begin = folder.write("begin", stream.chopped(10));
    const QString end = folder.write("end", stream.last(10));
    const QString program =
        folder.write("reader", QStringLiteral("#!/bin/sh\ncat > /dev/null\ncat '%1'\n"
                                              "while [ ! -e '%3' ]; do sleep 0.01; done\ncat '%2'\n")
                                   .arg(begin, end, told)
                                   .toUtf8());
    ASSERT_TRUE(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    ImportSettings settings;
    settings.lottie.program = program;
    double atEnd = 0.0;
    settings.goOn = [&](double done) {
        if (done >= 0.5 && !QFile::exists(told))
            folder.write("told", QByteArray("x"));
        atEnd = done;
        return true;
    };
    EXPECT_TRUE(readSequence({folder.write("bounce.json", json)}, settings).ok());
    EXPECT_EQ(atEnd, 1.0);
}

TEST(LottieImport, LayersBecomeElementsFromTheBottomUp)
{
    EXPECT_EQ(layerNames(imported(document(layer("Top", kRedSquare) + "," + layer("Bottom", kRedSquare)))),
              QStringList({"Bottom", "Top"}));
}

TEST(LottieImport, WhatMovesHasADrawingForEachFrame)
{
    const SequenceLayer box = imported(document(layer("Box", kRedSquare, moving()))).layers.at(0);
    EXPECT_THAT(box.exposures, ElementsAre(Pair(1, 1), Pair(2, 2), Pair(3, 3), Pair(4, 4)));
    for (int frame = 1; frame <= 4; ++frame) {
        const QRectF bounds = shapeOf(box, frame).path.boundingRect();
        EXPECT_NEAR(bounds.left(), 10.0 * frame, 0.1);
        EXPECT_NEAR(bounds.right(), 10.0 * frame + 20.0, 0.1);
        EXPECT_NEAR(bounds.top(), 40.0, 1e-4);
    }
}

TEST(LottieImport, EqualFramesShareADrawing)
{
    const SequenceLayer box = imported(document(layer("Box", kRedSquare, jumping()))).layers.at(0);
    EXPECT_THAT(box.exposures, ElementsAre(Pair(1, 1), Pair(3, 3)));
    EXPECT_EQ(box.drawings.size(), 2U);
}

TEST(LottieImport, SolidColoursBecomePaletteColours)
{
    const DrawingSequence sequence = imported(document(layer("A", group(square(20), fill("0,0,1"))) + "," +
                                                       layer("B", kRedSquare) + "," + layer("C", kRedSquare)));
    EXPECT_EQ(colourNames(*sequence.palette), QStringList({"#ff0000", "#0000ff"}));
    EXPECT_EQ(shapeOf(sequence.layers[0], 1).color, shapeOf(sequence.layers[1], 1).color);
}

TEST(LottieImport, AFillKeepsItsOpacity)
{
    const DrawingSequence sequence = imported(document(layer("A", group(square(20), fill("0,0,1", 50)))));
    EXPECT_NEAR(shapeOf(sequence.layers.at(0), 1).opacity, 0.5, 0.005);
}

TEST(LottieImport, StrokesBecomeTheirOutlines)
{
    const DrawingSequence sequence = imported(document(layer("Line", group(line(), stroke("0,1,0")))));
    const QRectF bounds = shapeOf(sequence.layers.at(0), 1).path.boundingRect();
    EXPECT_NEAR(bounds.left(), 10.0, 1e-3);
    EXPECT_NEAR(bounds.width(), 80.0, 1e-3);
    EXPECT_NEAR(bounds.top(), 48.0, 1e-3);
    EXPECT_NEAR(bounds.height(), 4.0, 1e-3);
}

TEST(LottieImport, DashesAreKept)
{
    const QByteArray dashes =
        R"(,"d":[{"n":"d","v":{"a":0,"k":10}},{"n":"g","v":{"a":0,"k":10}},{"n":"o","v":{"a":0,"k":0}}])";
    const DrawingSequence sequence = imported(document(layer("Line", group(line(), stroke("0,1,0", dashes)))));
    const QPainterPath path = shapeOf(sequence.layers.at(0), 1).path;
    EXPECT_TRUE(path.contains(QPointF(15, 50)));
    EXPECT_FALSE(path.contains(QPointF(25, 50)));
    EXPECT_TRUE(path.contains(QPointF(35, 50)));
}

TEST(LottieImport, GradientsBecomeTheirAverageAndAreSaid)
{
    const QByteArray gradient = R"({"ty":"gf","o":{"a":0,"k":100},"r":1,"g":{"p":2,"k":{"a":0,"k":[0,1,0,0,1,0,0,1]}},)"
                                R"("s":{"a":0,"k":[-10,0]},"e":{"a":0,"k":[10,0]},"t":1})";
    const DrawingSequence sequence = imported(document(layer("A", group(square(20), gradient))));
    EXPECT_EQ(colourNames(*sequence.palette), QStringList{"#800080"});
    EXPECT_THAT(warningsOf(sequence), HasSubstr("gradients, painted in their average colour (1)"));
}

TEST(LottieImport, AMatteOfAlphaCutsAndIsNotPainted)
{
    const DrawingSequence sequence =
        imported(document(layer("Matte", group(square(10), fill("0,1,0")), kStill, R"(,"td":1)") + "," +
                          layer("Cut", kRedSquare, kStill, R"(,"tt":1)")));
    ASSERT_EQ(layerNames(sequence), QStringList{"Cut"});
    const CELVEC_Shape shape = shapeOf(sequence.layers[0], 1);
    ASSERT_TRUE(shape.clip);
    EXPECT_EQ(shape.clip->boundingRect(), QRectF(45, 45, 10, 10));
    EXPECT_EQ(colourNames(*sequence.palette), QStringList{"#ff0000"});
}

TEST(LottieImport, AnAddingMaskCuts)
{
    const QByteArray mask =
        R"(,"hasMask":true,"masksProperties":[{"inv":false,"mode":"a","pt":{"a":0,"k":{"i":[[0,0],[0,0],[0,0],[0,0]],)"
        R"("o":[[0,0],[0,0],[0,0],[0,0]],"v":[[0,0],[30,0],[30,30],[0,30]],"c":true}},"o":{"a":0,"k":100},)"
        R"("x":{"a":0,"k":0}}])";
    const DrawingSequence sequence = imported(document(layer("Cut", kRedSquare, kStill, mask)));
    const CELVEC_Shape shape = shapeOf(sequence.layers.at(0), 1);
    ASSERT_TRUE(shape.clip);
    EXPECT_EQ(shape.clip->boundingRect(), QRectF(50, 50, 30, 30));
    EXPECT_TRUE(sequence.warnings.isEmpty()) << warningsOf(sequence);
}

TEST(LottieImport, WhatCannotBeKeptIsListedInOneLine)
{
    const QByteArray text = R"({"ty":5,"nm":"Title","ks":{},"ip":0,"op":4,"st":0,"t":{}})";
    const QByteArray effect = R"(,"ef":[{"ty":5,"nm":"Glow","ef":[]}])";
    const DrawingSequence sequence = imported(
        document(layer("A", kRedSquare, kStill, effect) + "," + layer("B", kRedSquare, kStill, effect) + "," + text));
    ASSERT_EQ(sequence.warnings.size(), 1);
    EXPECT_THAT(warningsOf(sequence), HasSubstr("left out or simplified: effects (2), texts (1)"));
}

TEST(LottieImport, ALayerOutsideOfItsTimeShowsNothing)
{
    QByteArray late = layer("Late", kRedSquare);
    late.replace(R"("ip":0,"op":4)", R"("ip":2,"op":3)");
    const DrawingSequence sequence = imported(document(late));
    EXPECT_THAT(sequence.layers.at(0).exposures, ElementsAre(Pair(3, 3), Pair(4, kNothing)));
}

TEST(LottieImport, OneObjectHoldsAllLayers)
{
    const DrawingSequence sequence =
        imported(document(layer("A", kRedSquare, jumping()) + "," + layer("B", kRedSquare)), ObjectChoice::ONE);
    ASSERT_EQ(layerNames(sequence), QStringList{"bounce"});
    EXPECT_THAT(sequence.layers[0].exposures, ElementsAre(Pair(1, 1), Pair(3, 3)));
    EXPECT_EQ(sequence.layers[0].drawings.at(1)->shapes(GR_Art::COLOUR).size(), 2U);
}

TEST(LottieImport, SaysThatGroupsAndShapesAreNotChosen)
{
    const QByteArray json = document(layer("Box", kRedSquare));
    for (const ObjectChoice objects : {ObjectChoice::GROUPS, ObjectChoice::SHAPES})
        EXPECT_THAT(warningsOf(imported(json, objects)), HasSubstr("bounce.json: its layers are its objects"));
    for (const ObjectChoice objects : {ObjectChoice::LAYERS, ObjectChoice::ONE})
        EXPECT_EQ(warningsOf(imported(json, objects)), "");
}

TEST(LottieImport, OneAnimationAtATime)
{
    const Folder folder;
    const QByteArray json = document(layer("A", kRedSquare));
    EXPECT_THAT(refusal({folder.write("a.json", json), folder.write("b.json", json)}), HasSubstr("one animation"));
}
