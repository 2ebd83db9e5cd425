// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node's identity, how it is made, and which visits it calls.
#include "node/Vallorin.h"

#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_PortContext.h"
#include "QuarvelSceneCore/kinds/MO_ModuleVisitor.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

/// Records which visit a module calls.
class NotingVisitor : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;
    void visit(MO_Module& module) override { plain = &module; }
    void visit(Vallorin& node, MO_Module& asModule) override
    {
        vallorin = &node;
        same = &asModule;
    }

    const MO_Module* plain = nullptr;
    const Vallorin* vallorin = nullptr;
    const MO_Module* same = nullptr;
};

/// Does not know the node's class.
class PlainVisitor : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;
    void visit(MO_Module& module) override { plain = &module; }

    const MO_Module* plain = nullptr;
};

/// Prefixes every text with its context.
class ContextTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QString::fromLatin1(context) + u'/' + QString::fromLatin1(text);
    }
    bool isEmpty() const override { return false; }
};

TEST(VallorinNode, ItsKindIsVallorin)
{
    const Vallorin node;
    EXPECT_EQ(node.keyword(), QStringLiteral("Vallorin"));
    EXPECT_EQ(Vallorin::Keyword(), QStringLiteral("Vallorin"));
    EXPECT_EQ(&Vallorin::Keyword(), &Vallorin::Keyword()) << "the text is made once";
}

TEST(VallorinNode, PeopleReadNormalMap)
{
    EXPECT_EQ(Vallorin().baseDisplayName(), QStringLiteral("Normal-Map"));
}

TEST(VallorinNode, TextsAreTranslatedInTheClassesContext)
{
    int argc = 1;
    char name[] = "test";
    char* argv[] = {name, nullptr};
    QCoreApplication application(argc, argv);
    ContextTranslator translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    EXPECT_EQ(Vallorin::tr("Text"), QStringLiteral("Vallorin/Text"));
    EXPECT_EQ(Vallorin::trUtf8("Text"), QStringLiteral("Vallorin/Text"));
    EXPECT_EQ(Vallorin().baseDisplayName(), QStringLiteral("Vallorin/Normal-Map"));
}

TEST(VallorinNode, ANewNodeHasOneImageInputAndTenAttributes)
{
    const Vallorin node;
    EXPECT_EQ(node.nInPorts(), 1U);
    EXPECT_EQ(node.nOutPorts(), 1U);
    EXPECT_EQ(node.attrs().size(), 10U);
    EXPECT_EQ(node.mode(), 0);
    EXPECT_TRUE(node.enabled());
}

TEST(VallorinNode, ItTakesAVisitorToTheVisitReservedForIt)
{
    Vallorin node;
    NotingVisitor visitor;
    node.accept(visitor);
    EXPECT_EQ(visitor.vallorin, &node);
    EXPECT_EQ(visitor.same, &node);
    EXPECT_EQ(visitor.plain, nullptr);
}

TEST(VallorinNode, ToOtherVisitorsItIsAPlainModule)
{
    Vallorin node;
    PlainVisitor visitor;
    node.accept(visitor);
    EXPECT_EQ(visitor.plain, &node);
}

TEST(VallorinNode, ItsCompositeOrderIsOneInEveryContext)
{
    Vallorin node;
    for (const double frame : {-1.0, 1.0, 24.5})
        for (const std::pair<int, int>& resolution : {std::pair(0, 0), std::pair(1920, 1080)})
            EXPECT_EQ(static_cast<int>(node.compositeOrder(MO_BaseContext({frame}, resolution))), 1);
}

TEST(VallorinNode, TheHostsFactoryMakesIt)
{
    MO_ModuleFactory& factory = MO_ModuleFactorySingleton();
    ASSERT_TRUE(factory.contains(QStringLiteral("Vallorin")));
    const std::unique_ptr<MO_Module> first = factory.create(QStringLiteral("Vallorin"));
    const std::unique_ptr<MO_Module> second = factory.create(QStringLiteral("Vallorin"));
    EXPECT_NE(dynamic_cast<Vallorin*>(first.get()), nullptr);
    EXPECT_NE(first, second);
}

} // namespace
