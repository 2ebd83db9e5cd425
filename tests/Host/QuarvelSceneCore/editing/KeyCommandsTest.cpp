// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Undoable changes of numbers and their keys.
#include "Host/QuarvelSceneCore/editing/EditCommandsTesting.h"

#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "QuarvelSceneCore/editing/MO_KeyCommands.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include <QDomDocument>

using namespace test_modules;

using KeyCommands = EditCommands;

TEST_F(KeyCommands, TheLastKeyLeavesItsValue)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 3.0));
    execute(MO_EditCommand(x.setValueCmd(3.0, 7.0)));
    execute(MO_removeKeyCmd(x, 3.0));
    EXPECT_FALSE(x.isAnimated());
    EXPECT_EQ(x.localValue(), 7.0);
}

TEST_F(KeyCommands, AKeyInASmoothStretchLeavesItsForm)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 1.0));
    execute(MO_EditCommand(x.setValueCmd(13.0, 7.0)));
    execute(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER));
    const AT_Curve before = x.curve();
    EXPECT_GT(before.value(2.0), 0.0);
    EXPECT_LT(before.value(2.0), 7.0 / 12.0) << "it leaves smoothly";
    execute(MO_addKeyCmd(x, 5.0));
    execute(MO_addKeyCmd(x, 10.0));
    ASSERT_EQ(x.curve().keys().size(), 4U);
    for (double frame = 1.0; frame <= 13.0; frame += 0.25)
        EXPECT_NEAR(x.value(frame), before.value(frame), 1e-9) << frame;
    // Another value at a key moves its handles along.
    execute(MO_EditCommand(x.setValueCmd(7.0, 20.0)));
    EXPECT_EQ(x.value(7.0), 20.0);
    EXPECT_NE(x.curve().keyAt(7.0)->out, AT_Curve::Handle());
}

TEST_F(KeyCommands, AKeyBehindASmoothLastOneIsReachedSmoothly)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 1.0));
    execute(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER));
    execute(MO_EditCommand(x.setValueCmd(13.0, 12.0)));
    EXPECT_NEAR(x.value(7.0), 6.0, 1e-9);
    EXPECT_LT(x.value(2.0), 0.5) << "in a straight line it would be 1";
    EXPECT_GT(x.value(12.0), 11.5);
}

TEST_F(KeyCommands, ASmoothKeyWithoutHandlesCanBeMadeSmooth)
{
    AT_DoubleAttr& x = *hero.positionX();
    AT_Curve curve;
    curve.setKey({1.0, 0.0, AT_Curve::Interpolation::BEZIER, {}, {}, {}});
    curve.setKey({13.0, 12.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    x.setCurve(curve);
    EXPECT_NEAR(x.value(2.0), 1.0, 1e-9);
    execute(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER));
    EXPECT_LT(x.value(2.0), 0.5);
    EXPECT_FALSE(MO_interpolationCmd(x, 1.0, AT_Curve::Interpolation::BEZIER)) << "it is smooth now";
}

TEST_F(KeyCommands, AnInterpolationReplacesOneThatThisVersionDoesNotKnow)
{
    const auto curveOf = [](const QString& type) {
        QDomDocument document;
        document.setContent(
            QStringLiteral("<curve><key frame=\"1\" type=\"%1\" val=\"2\" mood=\"3\"/></curve>").arg(type));
        AT_Curve curve;
        (void)curve.parseXml(document.documentElement(), nullptr);
        return curve;
    };
    AT_DoubleAttr& x = *hero.positionX();
    for (const auto& [chosen, name] : {std::pair(AT_Curve::Interpolation::HOLD, QStringLiteral("hold")),
                                       std::pair(AT_Curve::Interpolation::LINEAR, QStringLiteral("linear"))}) {
        x.setCurve(curveOf(QStringLiteral("spring")));
        execute(MO_interpolationCmd(x, 1.0, chosen));
        EXPECT_EQ(x.curve(), curveOf(name));
        EXPECT_FALSE(MO_interpolationCmd(x, 1.0, chosen));
    }
}

TEST_F(KeyCommands, SeveralNumbersChangeInOneStepHoweverADragReachesThem)
{
    AT_DoubleAttr& x = *hero.positionX();
    AT_DoubleAttr& y = *hero.positionY();
    const QString name = QStringLiteral("Move Hero");
    const QString before = savedText(scene);
    // Across first, then up as well; single commands for each number would not merge.
    ASSERT_TRUE(stack.execute(MO_numbersCmd(name, 1.0, {{&x, 5.0}, {&y, 0.0}})));
    ASSERT_TRUE(stack.execute(MO_numbersCmd(name, 1.0, {{&x, 5.0}, {&y, 7.0}})));
    EXPECT_EQ(MO_numbersCmd(name, 1.0, {{&x, 5.0}, {&y, 7.0}}), nullptr);
    EXPECT_EQ(stack.undoNames(), QStringList{name});
    stack.undo();
    EXPECT_EQ(savedText(scene), before);
    stack.redo();
    EXPECT_EQ(x.localValue(), 5.0);
    EXPECT_EQ(y.localValue(), 7.0);
}

TEST_F(KeyCommands, NumbersThatAreAnimatedGetAKey)
{
    AT_DoubleAttr& x = *hero.positionX();
    execute(MO_addKeyCmd(x, 1.0));
    execute(MO_numbersCmd(QStringLiteral("Move Hero"), 9.0, {{&x, 4.0}, {hero.positionY(), 3.0}}));
    EXPECT_EQ(x.value(1.0), 0.0);
    EXPECT_EQ(x.value(9.0), 4.0);
    EXPECT_EQ(hero.positionY()->value(1.0), 3.0);
}
