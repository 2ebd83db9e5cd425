// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the tests of the walks share: a scene, and short functions for building its graph.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"
#include "node/Vallorin.h"
#include "objects/ObjectDefinitionDiscovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// A scene whose modules are made and linked with one call each.
class GraphTest : public testing::Test
{
protected:
    template<typename Module>
    Module& make()
    {
        return scene.root().emplace<Module>();
    }

    /// An enabled object definition of a number.
    ObjectDefinition& define(int number, const char* name = "Definition")
    {
        auto& definition = make<ObjectDefinition>();
        definition.setInstanceName(QString::fromLatin1(name));
        EXPECT_EQ(definition.instanceName(), QString::fromLatin1(name)) << "names of one test differ";
        definition.objectNumber()->setLocalValue(number);
        return definition;
    }

    /// An enabled definition whose number is one value up to a frame and another from it on.
    ObjectDefinition& defineAnimated(int before, int from, double frame)
    {
        auto& definition = make<ObjectDefinition>();
        AT_Curve curve;
        curve.setKey({1.0, static_cast<double>(before), AT_Curve::Interpolation::HOLD, {}, {}, {}});
        curve.setKey({frame, static_cast<double>(from), AT_Curve::Interpolation::HOLD, {}, {}, {}});
        definition.objectNumber()->setCurve(curve);
        return definition;
    }

    /// A leaf with drawings of an element.
    MO_ElementModule& element(const char* name, const char* extension = "KVR")
    {
        auto& leaf = make<MO_ElementModule>();
        leaf.drawingAttr()->setElementName(QString::fromLatin1(name));
        leaf.setDrawingFileExt(QString::fromLatin1(extension));
        return leaf;
    }

    /// Links modules in a row: chain(a, b, c) lets a take b, and b take c, at their first inputs.
    static void chain(MO_Module& first) { static_cast<void>(first); }
    template<typename... More>
    static void chain(MO_Module& first, MO_Module& second, More&... more)
    {
        link(second, first, 0);
        chain(second, more...);
    }

    static void link(MO_Module& source, MO_Module& target, unsigned port)
    {
        const UT_Result<void> linked = MO_Scene::connect(source, target, port);
        ASSERT_TRUE(linked.ok()) << linked.error().text.toStdString();
    }

    static std::set<int> ids(MO_Module* start, double frame = 1.0)
    {
        std::set<int> found;
        ObjectDefinitionDiscovery::collectObjectIds(start, frame, found);
        return found;
    }

    static std::set<std::string> names(MO_Module* start, int id, const char* suffix = "", double frame = 1.0)
    {
        std::set<QString> found;
        ObjectDefinitionDiscovery::collectObjectDefinitionNames(start, id, frame, found, QString::fromLatin1(suffix));
        return asStdStrings(found);
    }

    static std::set<std::string> elements(MO_Module* start, int id, double frame = 1.0)
    {
        std::set<QString> found;
        ObjectDefinitionDiscovery::findConnectedElements(start, id, frame, found);
        return asStdStrings(found);
    }

    MO_Scene scene;

private:
    static std::set<std::string> asStdStrings(const std::set<QString>& texts)
    {
        std::set<std::string> strings;
        for (const QString& text : texts)
            strings.insert(text.toStdString());
        return strings;
    }
};
