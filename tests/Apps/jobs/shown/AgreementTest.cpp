// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A frame of a film, the picture in the window and the picture that "--lit" writes show the same objects, which are the
// objects that the node used: its coverage is that of the drawing.
#include "Apps/jobs/shown/ColumnScene.h"
#include "OutputFiles.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"
#include "WritePictures.h"
#include "jobs/shown/LitFrames.h"
#include "jobs/shown/NormalMapNode.h"
#include "studio/preview/SceneSnapshot.h"

#include <QImage>

#include <rapidcheck/gtest.h>

namespace {

class Agreement : public ColumnScene
{
protected:
    /// What is visible at eight places: the upper halves of the columns, then the lower ones. A letter for the visible
    /// bar, or a dot for none.
    using Seen = std::string;

    template<typename LetterAt>
    static Seen look(const LetterAt& letterAt)
    {
        Seen seen;
        for (const int y : {12, 36})
            for (int column = 0; column < kColumns; ++column)
                seen += letterAt(32 * column + 16, y);
        return seen;
    }

    static char letterOf(const QColor& colour)
    {
        if (colour.alpha() == 0)
            return '.';
        const bool red = colour.red() > 128;
        const bool green = colour.green() > 128;
        return red && green ? 'd' : red ? 'a' : green ? 'b' : 'c';
    }

    static Seen lookAt(const QImage& image)
    {
        return look([&](int x, int y) { return letterOf(image.pixelColor(x, y)); });
    }

    static RD_RenderParameters parameters() { return {RD_RenderParameters::IMAGE_PROCESSING_16BIT, {kWidth, kHeight}}; }

    Seen film(int frame, MO_Module* module = nullptr) const
    {
        const ShownModule shown(module ? *module : node());
        const LitFrames lit(shown, RenderedKind::NORMALS, parameters());
        const auto bytes = lit.render(frame);
        EXPECT_TRUE(bytes) << bytes.error().text.toStdString();
        return lookAt(QImage(bytes->data(), kWidth, kHeight, QImage::Format_RGBA8888).copy());
    }

    Seen studio(int frame, const MO_Module* module = nullptr) const
    {
        SceneSnapshot snapshot(scene(), (module ? *module : node()).instanceName());
        const auto made = snapshot.render(frame, {kWidth, kHeight}, {kWidth, kHeight}, {});
        EXPECT_TRUE(made) << made.error().text.toStdString();
        return lookAt((*made)->drawing);
    }

    /// The same with an x for every bar.
    Seen nodeSaw(int frame) const
    {
        const auto cel = RD_SoftRenderer::render(node(), frame, parameters());
        EXPECT_TRUE(cel) << cel.error().text.toStdString();
        const auto pixmap = (*cel)->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>();
        return look([&](int x, int y) {
            const CEL_PixelRGBA16* const pixel = pixmap->find(x, y);
            return pixel && pixel->a > 0 ? 'x' : '.';
        });
    }

    static Seen outlineOf(Seen seen)
    {
        for (char& letter : seen)
            letter = letter == '.' ? '.' : 'x';
        return seen;
    }

    void expectAgreement(int frame, const Seen& expected) const
    {
        EXPECT_EQ(film(frame), expected) << "film, frame " << frame;
        EXPECT_EQ(studio(frame), expected) << "studio, frame " << frame;
        EXPECT_EQ(nodeSaw(frame), outlineOf(expected)) << "node, frame " << frame;
    }

    static void animate(AT_IntAttr& number, const std::map<int, int>& values)
    {
        AT_Curve curve;
        for (const auto& [frame, value] : values)
            curve.setKey({.frame = static_cast<double>(frame),
                          .value = static_cast<double>(value),
                          .interpolation = AT_Curve::Interpolation::HOLD,
                          .in = {},
                          .out = {},
                          .unknown = {}});
        ASSERT_TRUE(number.setCurve(curve));
    }

    /// What "quarvel normalmap --lit" shows of the drawing.
    Seen litFile(const NormalMapSettings& settings) const
    {
        NormalMapOptions options;
        options.settings = settings;
        options.settings.allObjects.bevel = 5.0;
        OutputFiles files;
        files.normalMap = file + QStringLiteral("_n.png");
        files.lit = file + QStringLiteral("_lit.png");
        const auto rendered = renderDrawing(drawing, options.settings, options, files);
        EXPECT_TRUE(rendered) << rendered.error().text.toStdString();
        const auto written = writePictures(*rendered, options, files, {.drawing = file, .digest = {}}, {});
        EXPECT_TRUE(written) << written.error().text.toStdString();
        return lookAt(QImage(files.lit));
    }
};

TEST_F(Agreement, OnADrawingOfFourObjects)
{
    expectAgreement(1, "abcddddd");
    EXPECT_EQ(litFile({}), "abcddddd");
}

TEST_F(Agreement, OnANumberThatIsACutOutAtFirst)
{
    animate(*definition(2).objectNumber(), {{1, 0}, {2, 3}});
    definition(3).objectEnabled()->setLocalValue(false);
    expectAgreement(1, "ab..ab..");
    expectAgreement(2, "abc.abc.");
}

// The attribute's local value differs from its curve's.
TEST_F(Agreement, OnAnAnimatedNumberWhateverItsLocalValue)
{
    definition(2).objectNumber()->setLocalValue(0);
    animate(*definition(2).objectNumber(), {{1, 3}});
    expectAgreement(1, "abcddddd");
}

TEST_F(Agreement, OnCutOuts)
{
    definition(3).objectNumber()->setLocalValue(0);
    expectAgreement(1, "abc.....");
    NormalMapSettings settings;
    settings.objects[4].cutOut = true;
    EXPECT_EQ(litFile(settings), "abc.....");
}

TEST_F(Agreement, OnACutOutThatLiesBelowWhatItMeets)
{
    definition(0).objectNumber()->setLocalValue(0);
    expectAgreement(1, ".bcddddd");
    NormalMapSettings settings;
    settings.objects[1].cutOut = true;
    EXPECT_EQ(litFile(settings), ".bcddddd");
}

TEST_F(Agreement, OnHiddenObjects)
{
    definition(3).objectEnabled()->setLocalValue(false);
    expectAgreement(1, "abc.abc.");
    NormalMapSettings settings;
    settings.objects[4].hidden = true;
    EXPECT_EQ(litFile(settings), "abc.abc.");
}

TEST_F(Agreement, OnTheNearestDefinitionToTheDrawing)
{
    appendDownstream<ObjectDefinition>(1).objectNumber()->setLocalValue(0);
    definition(1).objectNumber()->setLocalValue(2);
    expectAgreement(1, "abcddddd");
}

TEST_F(Agreement, OnACutOutUpstreamOfAnotherDefinition)
{
    definition(3).objectNumber()->setLocalValue(0);
    appendDownstream<ObjectDefinition>(3).objectNumber()->setLocalValue(4);
    expectAgreement(1, "abc.....");
}

TEST_F(Agreement, OnAnObjectThatAFurtherDefinitionHides)
{
    appendDownstream<ObjectDefinition>(3).objectEnabled()->setLocalValue(false);
    expectAgreement(1, "abc.abc.");
}

TEST_F(Agreement, OnADefinitionThatIsSwitchedOff)
{
    ObjectDefinition& first = definition(1);
    first.objectNumber()->setLocalValue(0);
    first.setEnabled(false);
    appendDownstream<ObjectDefinition>(1).objectNumber()->setLocalValue(2);
    expectAgreement(1, "abcddddd");
}

// The node treats a drawing without a definition as a cut-out.
TEST_F(Agreement, OnADrawingWithoutDefinition)
{
    definition(3).setEnabled(false);
    expectAgreement(1, "abc.....");
}

TEST_F(Agreement, OnObjectsThatAreJoinedBeforeTheNode)
{
    // b and c are joined at one port, so they are one object: that of the first of them.
    auto& join = scene().root().emplace<MO_CompositeModule>();
    ASSERT_TRUE(MO_Scene::connect(definition(1), join, 0));
    ASSERT_TRUE(MO_Scene::connect(definition(2), join, 1));
    definition(2).objectNumber()->setLocalValue(0);
    MO_Scene::disconnect(node(), 2);
    ASSERT_TRUE(MO_Scene::connect(join, node(), 1));
    expectAgreement(1, "abcddddd");
}

TEST_F(Agreement, OnAJoinThatCuts)
{
    auto& join = scene().root().emplace<MO_CompositeModule>();
    ASSERT_TRUE(MO_Scene::connect(definition(3), join, 0));
    ASSERT_TRUE(MO_Scene::connect(element(0), join, 1));
    definition(3).objectNumber()->setLocalValue(0);
    ASSERT_TRUE(MO_Scene::connect(join, node(), 3));
    expectAgreement(1, ".bc.....");
}

// Joined drawings have no number, and without a definition in between the node ignores the input.
TEST_F(Agreement, OnAJoinWithoutDefinitions)
{
    auto& join = scene().root().emplace<MO_CompositeModule>();
    ASSERT_TRUE(MO_Scene::connect(element(2), join, 0));
    ASSERT_TRUE(MO_Scene::connect(element(3), join, 1));
    ASSERT_TRUE(MO_Scene::connect(join, node(), 3));
    MO_Scene::disconnect(node(), 2);
    expectAgreement(1, "ab..ab..");
}

TEST_F(Agreement, OnADefinitionInAGroup)
{
    auto& group = scene().root().emplace<XUGroup>();
    group.addInPort();
    group.addOutPort();
    auto& inner = group.emplace<ObjectDefinition>();
    inner.objectNumber()->setLocalValue(0);
    ASSERT_TRUE(MO_Scene::connect(group.entry(), inner));
    ASSERT_TRUE(MO_Scene::connect(inner, group.exit()));
    ASSERT_TRUE(MO_Scene::connect(element(3), group));
    ASSERT_TRUE(MO_Scene::connect(group, node(), 3));
    expectAgreement(1, "abc.....");
}

// A module that joins the pictures of nodes joins their drawings in the same order: here the first input is on top.
TEST_F(Agreement, OnSeveralNodes)
{
    MO_Module& second = scene().root().add(NormalMapNode::make());
    ASSERT_TRUE(MO_Scene::connect(definition(3), second));
    MO_Scene::disconnect(node(), 3);
    auto& join = scene().root().emplace<MO_CompositeModule>();
    ASSERT_TRUE(MO_Scene::connect(second, join, 0));
    ASSERT_TRUE(MO_Scene::connect(node(), join, 1));
    EXPECT_EQ(film(1, &join), "abcddddd");
    EXPECT_EQ(studio(1, &join), "abcddddd");
    join.setCompositeOrder(MO_CompositeType::PORT_ORDER);
    EXPECT_EQ(film(1, &join), "abcdabcd");
    EXPECT_EQ(studio(1, &join), "abcdabcd");
}

/// The modules between a drawing and the node, starting at the drawing.
struct Link
{
    int number;
    bool enabled;
    bool objectEnabled;
    bool joined; ///< a composite after the definition
};

using Chain = std::vector<Link>;

RC_GTEST_FIXTURE_PROP(Agreement, OnAnyChainsOfDefinitions, ())
{
    SetUp();
    const auto link = rc::gen::apply(
        [](int number, bool enabled, bool objectEnabled, bool joined) {
            return Link{number, enabled, objectEnabled, joined};
        },
        rc::gen::element(0, 1, 2, 3, 4), rc::gen::weightedElement<bool>({{3, true}, {1, false}}),
        rc::gen::weightedElement<bool>({{4, true}, {1, false}}),
        rc::gen::weightedElement<bool>({{4, false}, {1, true}}));
    const auto chains =
        *rc::gen::container<std::vector<Chain>>(kColumns, rc::gen::resize(3, rc::gen::container<Chain>(link)));
    for (int column = 0; column < kColumns; ++column) {
        ASSERT_TRUE(MO_Scene::connect(element(column), node(), static_cast<unsigned>(column)));
        for (const Link& one : chains[static_cast<std::size_t>(column)]) {
            auto& added = appendDownstream<ObjectDefinition>(column);
            added.objectNumber()->setLocalValue(one.number);
            added.objectEnabled()->setLocalValue(one.objectEnabled);
            added.setEnabled(one.enabled);
            if (one.joined) {
                auto& join = appendDownstream<MO_CompositeModule>(column);
                // A composite with one picture passes it on unchanged.
                ASSERT_TRUE(MO_Scene::connect(element(column), join, 1));
            }
        }
    }
    const Seen seen = film(1);
    RC_ASSERT(studio(1) == seen);
    RC_ASSERT(nodeSaw(1) == outlineOf(seen));
}

} // namespace
