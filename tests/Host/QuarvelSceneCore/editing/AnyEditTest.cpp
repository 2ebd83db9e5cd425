// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Random sequences of undoable changes.
#include "Host/QuarvelSceneCore/editing/EditCommandsTesting.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "QuarvelSceneCore/editing/MO_GroupCommands.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"
#include "QuarvelSceneCore/editing/MO_LinkCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include <rapidcheck/gtest.h>

using namespace test_modules;

namespace {

unsigned anyPort()
{
    return static_cast<unsigned>(*rc::gen::inRange(0, 4));
}

MO_EditCommand commandOr(UT_Result<MO_EditCommand> command)
{
    return command ? std::move(*command) : nullptr;
}

MO_EditCommand anyChangeOfElement(MO_ElementModule& element)
{
    AT_DoubleAttr& x = *element.positionX();
    const int frame = *rc::gen::inRange(0, 3);
    switch (*rc::gen::inRange(0, 7)) {
    case 0:
        return MO_addKeyCmd(x, frame);
    case 1:
        return MO_removeKeyCmd(x, frame);
    case 2:
        return MO_moveKeyCmd(x, frame, *rc::gen::inRange(0, 3));
    case 3:
        return MO_interpolationCmd(x, frame, AT_Curve::Interpolation::BEZIER);
    case 4:
        return MO_constantCmd(x, *rc::gen::inRange(-3, 3));
    case 5:
        return MO_driveCmd(x, UT_makeShared<AT_AttrLink>(QStringLiteral("A.PositionY")));
    default:
        return MO_exposeCmd(*element.drawingAttr(), frame, *rc::gen::element(QStringLiteral("1"), QStringLiteral("2")));
    }
}

MO_EditCommand anyChangeOfScene(MO_Scene& scene)
{
    switch (*rc::gen::inRange(0, 3)) {
    case 0:
        return MO_frameRangeCmd(scene, *rc::gen::inRange(-3, 3), *rc::gen::inRange(0, 9));
    case 1:
        return MO_frameHeightCmd(scene, *rc::gen::inRange(0, 3) * 100.0);
    default:
        return MO_renamePaletteCmd(scene, scene.palettes().front(),
                                   *rc::gen::element(QStringLiteral("Skin"), QStringLiteral("Cloth")));
    }
}

// A random change; null when the drawn one is not possible.
MO_EditCommand anyChange(MO_Scene& scene)
{
    std::vector<XUGroup*> groups{&scene.root()};
    scene.root().forEachModule([&](MO_Module& module) {
        if (auto* group = dynamic_cast<XUGroup*>(&module))
            groups.push_back(group);
    });
    XUGroup& group = *groups[static_cast<std::size_t>(*rc::gen::inRange(0, static_cast<int>(groups.size())))];
    const auto pick = [&]() -> MO_Module* {
        const auto count = static_cast<int>(group.modules().size());
        return count == 0 ? nullptr : group.modules()[static_cast<std::size_t>(*rc::gen::inRange(0, count))].get();
    };
    MO_Module* const one = pick();
    MO_Module* const two = pick();
    const int kind = *rc::gen::inRange(0, 14);
    if (kind < 3 || !one) {
        const QStringList kinds{XUGroup::Keyword(), MO_ElementModule::Keyword(), MO_GlueModule::Keyword(),
                                MO_CompositeModule::Keyword()};
        return MO_addModuleCmd(group, MO_ModuleFactorySingleton().create(kinds[*rc::gen::inRange(0, 4)]),
                               *rc::gen::arbitrary<bool>() ? one : nullptr);
    }
    switch (kind) {
    case 3:
        return MO_removeModulesCmd(one == two ? std::vector{one} : std::vector{one, two});
    case 4:
        return std::move(*MO_duplicateModulesCmd({one}));
    case 5:
        return MO_disconnectCmd(*two, anyPort());
    case 6:
        return MO_renameCmd(*one, *rc::gen::element(QStringLiteral("A"), QStringLiteral("A_1"), QStringLiteral("")));
    case 7:
        return MO_enableCmd({one, two}, *rc::gen::arbitrary<bool>());
    case 8:
        return commandOr(MO_moveLinkCmd(*one, anyPort(), *two, anyPort()));
    case 9:
        return *rc::gen::arbitrary<bool>() ? MO_addGroupPortCmd(group, *rc::gen::arbitrary<bool>())
                                           : commandOr(MO_removeGroupPortCmd(group, *rc::gen::arbitrary<bool>()));
    case 10:
        return anyChangeOfScene(scene);
    case 11: {
        auto* const element = dynamic_cast<MO_ElementModule*>(one);
        return element ? anyChangeOfElement(*element) : nullptr;
    }
    default:
        return commandOr(MO_connectCmd(*one, *two, anyPort()));
    }
}

RC_GTEST_PROP(EditCommandsOfAnyKind, UndoAndRedoBringBackTheBytes, ())
{
    MO_Scene scene;
    scene.addPalette(palette());
    CO_CommandStack stack;
    std::vector<QString> texts{savedText(scene)};
    for (int i = 0; i < 25; ++i) {
        if (!stack.execute(anyChange(scene)))
            continue;
        texts.push_back(savedText(scene));
    }
    for (std::size_t i = texts.size() - 1; i > 0; --i) {
        RC_ASSERT(savedText(scene) == texts[i]);
        stack.undo();
    }
    for (const QString& text : texts) {
        RC_ASSERT(savedText(scene) == text);
        stack.redo();
    }
}

// Counts the scene's notifications.
class Notifications : public XUListener
{
public:
    void told(XUTeller&) override { ++count; }
    int count = 0;
};

RC_GTEST_PROP(EditCommandsOfAnyKind, AreMadeWithoutChangingTheSceneOrTellingAnybody, ())
{
    MO_Scene scene;
    scene.addPalette(palette());
    Notifications notifications;
    scene.addListener(notifications);
    CO_CommandStack stack;
    for (int i = 0; i < 25; ++i) {
        const QString text = savedText(scene);
        const int count = notifications.count;
        MO_EditCommand command = anyChange(scene);
        RC_ASSERT(savedText(scene) == text);
        RC_ASSERT(notifications.count == count);
        stack.execute(std::move(command));
    }
}

RC_GTEST_PROP(ModulesOfAnyKind, AreLinkedExactlyWhenTheyMayBe, ())
{
    MO_Scene scene;
    scene.addPalette(palette());
    CO_CommandStack stack;
    for (int i = 0; i < 25; ++i) {
        stack.execute(anyChange(scene));
        std::vector<MO_Module*> modules;
        scene.root().forEachModule([&](MO_Module& module) { modules.push_back(&module); });
        if (modules.empty())
            continue;
        MO_Module& source = **rc::gen::elementOf(modules);
        MO_Module& target = **rc::gen::elementOf(modules);
        const unsigned port = anyPort();
        const QString text = savedText(scene);
        const auto possible = MO_Scene::mayConnect(source, target, port);
        RC_ASSERT(savedText(scene) == text);
        const auto linked = MO_Scene::connect(source, target, port);
        RC_ASSERT(linked.ok() == possible.ok());
        if (!possible)
            RC_ASSERT(savedText(scene) == text);
        else
            RC_ASSERT(target.inPort(port)->srcPort() == source.outPort(0));
    }
}

} // namespace
