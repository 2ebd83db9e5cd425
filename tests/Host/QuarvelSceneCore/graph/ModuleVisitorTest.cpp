// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which operation of a visitor a module calls.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelSceneCore/graph/MO_OpaqueModule.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"
#include "QuarvelSceneCore/kinds/MO_ModuleVisitor.h"

#include <gtest/gtest.h>

using namespace test_modules;

// Uses the overload that is reserved for a plug-in's node, as the plug-in does.
class Vallorin : public MO_Module
{
public:
    QString keyword() const override { return QStringLiteral("PLUGGED"); }
    QString baseDisplayName() const override { return QStringLiteral("Plugged"); }
    void accept(MO_AbstractModuleVisitor& visitor) override { visitor.visit(*this, *this); }
};

namespace {

// Overrides the same operations as a walk up the graph.
class Walk : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;
    void visit(MO_Module& module) override { seen.push_back("module " + module.keyword().toStdString()); }
    void visit(MO_ElementModule&) override { seen.emplace_back("element"); }
    void visit(Vallorin& node, MO_Module& asModule) override
    {
        EXPECT_EQ(&node, &asModule);
        seen.emplace_back("plugged");
    }
    Log seen;
};

Log walk(MO_Module& module)
{
    Walk visitor;
    module.accept(visitor);
    return visitor.seen;
}

TEST(ModuleVisitor, ElementsGoToTheElementVisit)
{
    MO_ElementModule module;
    EXPECT_EQ(walk(module), Log{"element"});
}

TEST(ModuleVisitor, ThePluggedNodeGoesToItsOwnVisit)
{
    Vallorin module;
    EXPECT_EQ(walk(module), Log{"plugged"});
}

TEST(ModuleVisitor, EveryOtherKindFallsBackToThePlainVisit)
{
    PassModule pass;
    MO_GlueModule glue;
    MO_CompositeModule composite;
    MO_DisplayModule display;
    MO_OpaqueModule opaque(QStringLiteral("STRANGE"));
    EXPECT_EQ(walk(pass), Log{"module PASS"});
    EXPECT_EQ(walk(glue), Log{"module GLUE"});
    EXPECT_EQ(walk(composite), Log{"module COMPOSITE"});
    EXPECT_EQ(walk(display), Log{"module DISPLAY"});
    EXPECT_EQ(walk(opaque), Log{"module STRANGE"});
}

TEST(ModuleVisitor, WithoutOverridesElementAndPluggedNodeFallBackToo)
{
    class Plain : public MO_AbstractModuleVisitorWithModuleFallback
    {
    public:
        using MO_AbstractModuleVisitorWithModuleFallback::visit;
        void visit(MO_Module&) override { ++count; }
        int count = 0;
    } visitor;
    MO_ElementModule element;
    Vallorin plugged;
    XUGroup group;
    element.accept(visitor);
    plugged.accept(visitor);
    group.accept(visitor);
    EXPECT_EQ(visitor.count, 3);
    EXPECT_EQ(visitor.key(), nullptr);
}

TEST(ModuleVisitor, AGroupLeadsToTheModuleBehindItsOutput)
{
    XUGroup group;
    EXPECT_EQ(walk(group), Log{});
    group.addOutPort();
    EXPECT_EQ(walk(group), Log{});
    auto& inner = group.emplace<MO_ElementModule>();
    ASSERT_TRUE(MO_Scene::connect(inner, group.exit()).ok());
    EXPECT_EQ(walk(group), Log{"element"});
    inner.setEnabled(false);
    EXPECT_EQ(walk(group), Log{});
}

} // namespace
