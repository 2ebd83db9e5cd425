// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColumnScene: a drawing of four layers in columns, so that one pixel tells whether an object is visible. The first
// three layers are bars in columns of their own; the last one is on top, a bar in the fourth column that also covers
// the lower half of the others.
//
//     a   b   c   d
//     a   b   c   d
//     d   d   d   d
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "TestFolder.h"
#include "jobs/drawing/DrawingScene.h"
#include "jobs/drawing/ReadDrawing.h"

#include <gtest/gtest.h>

/// The scene, with frames 1 to 3. Objects have the numbers 1 to 4, all of them in the node's table.
class ColumnScene : public testing::Test, protected TestFolder
{
protected:
    static constexpr int kColumns = 4;
    static constexpr int kWidth = 128;
    static constexpr int kHeight = 48;

    static QByteArray svg()
    {
        return R"(<svg xmlns="http://www.w3.org/2000/svg" width="128" height="48"
     xmlns:inkscape="http://www.inkscape.org/namespaces/inkscape">
  <g inkscape:groupmode="layer" inkscape:label="a"><rect x="2" y="0" width="28" height="48" fill="#e03020"/></g>
  <g inkscape:groupmode="layer" inkscape:label="b"><rect x="34" y="0" width="28" height="48" fill="#30c020"/></g>
  <g inkscape:groupmode="layer" inkscape:label="c"><rect x="66" y="0" width="28" height="48" fill="#2030f0"/></g>
  <g inkscape:groupmode="layer" inkscape:label="d"><path d="M98 0h28v48H2V24h96z" fill="#c0c040"/></g>
</svg>)";
    }

    void SetUp() override
    {
        file = write("columns.svg", svg());
        build(NormalMapSettings());
    }

    void build(NormalMapSettings settings)
    {
        // Narrow, so that the middles of the columns face the viewer.
        settings.allObjects.bevel = 5.0;
        UT_Result<ReadDrawing> read = readDrawing(file, {.objects = ObjectChoice::LAYERS, .shape = FormShape::RIM});
        ASSERT_TRUE(read) << read.error().text.toStdString();
        ASSERT_EQ(read->drawing.layers.size(), std::size_t{kColumns});
        drawing = read->drawing;
        UT_Result<DrawingScene> made = DrawingScene::build(drawing, settings);
        ASSERT_TRUE(made) << made.error().text.toStdString();
        _built.emplace(std::move(*made));
        _built->scene().setFrameRange(1, 3);
    }

    MO_Scene& scene() const { return _built->scene(); }
    MO_Module& node() const { return _built->normalMap(); }
    MO_ElementModule& element(int column) const { return *_built->elements()[static_cast<std::size_t>(column)]; }
    /// The object definition of a column.
    ObjectDefinition& definition(int column) const
    {
        return dynamic_cast<ObjectDefinition&>(*node().inPort(static_cast<unsigned>(column))->srcPort()->module());
    }

    /// Inserts a module between a column and the node.
    template<typename Module>
    Module& appendDownstream(int column)
    {
        const auto port = static_cast<unsigned>(column);
        MO_Module& before = *node().inPort(port)->srcPort()->module();
        auto& added = scene().root().emplace<Module>();
        EXPECT_TRUE(MO_Scene::connect(before, added));
        EXPECT_TRUE(MO_Scene::connect(added, node(), port));
        return added;
    }

    QString file;
    LayeredDrawing drawing;

private:
    std::optional<DrawingScene> _built;
};
