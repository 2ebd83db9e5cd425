// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The module factory.
#include "Host/QuarvelSceneCore/TestModules.h"

#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <gtest/gtest.h>

using namespace test_modules;

namespace {

const QString kKey = QStringLiteral("PASS");

TEST(ModuleFactory, MakesWhatIsRegistered)
{
    MO_ModuleFactory factory;
    EXPECT_EQ(factory.create(kKey), nullptr);
    EXPECT_TRUE(factory.registerCreator(kKey, [] { return std::make_unique<PassModule>(); }));
    const auto module = factory.create(kKey);
    ASSERT_NE(module, nullptr);
    EXPECT_NE(dynamic_cast<PassModule*>(module.get()), nullptr);
}

TEST(ModuleFactory, KeepsAnEntryThatIsThere)
{
    MO_ModuleFactory factory;
    factory.registerCreator(kKey, [] { return std::make_unique<PassModule>(); });
    EXPECT_FALSE(factory.registerCreator(kKey, [] { return std::make_unique<MO_ElementModule>(); }));
    EXPECT_EQ(factory.create(kKey)->keyword(), kKey);
}

TEST(ModuleFactory, ForgetsWhatIsUnregistered)
{
    MO_ModuleFactory factory;
    factory.registerCreator(kKey, [] { return std::make_unique<PassModule>(); });
    EXPECT_TRUE(factory.contains(kKey));
    EXPECT_TRUE(factory.unregisterCreator(kKey));
    EXPECT_FALSE(factory.unregisterCreator(kKey));
    EXPECT_FALSE(factory.contains(kKey));
}

class RegisteredModule : public PassModule
{
public:
    static QString Keyword() { return QStringLiteral("REGISTERED"); }
    QString keyword() const override { return Keyword(); }
};

TEST(ModuleFactory, OfTheProcessKnowsAKindAsLongAsItsRegistrationLives)
{
    const MO_ModuleFactory& factory = MO_ModuleFactorySingleton();
    {
        const MO_ModuleRegistration<RegisteredModule> registration;
        const auto module = factory.create(RegisteredModule::Keyword());
        ASSERT_NE(module, nullptr);
        EXPECT_EQ(module->keyword(), RegisteredModule::Keyword());
    }
    EXPECT_FALSE(factory.contains(RegisteredModule::Keyword()));
}

TEST(ModuleFactory, ARegistrationLeavesAKindAloneThatWasThereBefore)
{
    MO_ModuleFactory& factory = MO_ModuleFactorySingleton();
    ASSERT_TRUE(factory.registerCreator(RegisteredModule::Keyword(), [] { return std::make_unique<PassModule>(); }));
    {
        const MO_ModuleRegistration<RegisteredModule> registration;
        EXPECT_EQ(factory.create(RegisteredModule::Keyword())->keyword(), kKey);
    }
    EXPECT_TRUE(factory.unregisterCreator(RegisteredModule::Keyword()));
}

TEST(ModuleFactory, OfTheProcessKnowsTheHostsModules)
{
    for (const char* key : {"COMPOSITE", "DISPLAY", "GLUE", "GROUP", "READ"}) {
        const auto module = MO_ModuleFactorySingleton().create(QString::fromLatin1(key));
        ASSERT_NE(module, nullptr) << key;
        EXPECT_EQ(module->keyword(), QString::fromLatin1(key));
        EXPECT_TRUE(MO_ModuleFactorySingleton().keys().contains(QString::fromLatin1(key)));
    }
}

} // namespace
