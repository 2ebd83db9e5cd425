// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What numeric attributes promise.
#include "Host/QuarvelPersistentObj/AnyValues.h"
#include "Host/QuarvelSceneCore/attributes/AttrTesting.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include <rapidcheck/gtest.h>

#include <bit>

using namespace AttrTesting;
using enum AT_Curve::Interpolation;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNan = std::numeric_limits<double>::quiet_NaN();

AT_Curve ramp()
{
    AT_Curve curve;
    curve.setKey({1.0, 2.0, LINEAR, {}, {}, {}});
    curve.setKey({5.0, 4.0, LINEAR, {}, {}, {}});
    return curve;
}

class DoubleAttr : public testing::Test
{
protected:
    std::unique_ptr<AT_DoubleAttr> owner = makeScale();
    AT_DoubleAttr& scale = *owner;
};

class IntAttr : public testing::Test
{
protected:
    AT_AttrMeta meta{latin("Number"), latin("Number")};
    AT_IntAttr number{meta, nullptr, AT_IntAttr::LINKABLE, 1, 0, 100};
};

} // namespace

TEST(DoubleAttrMeta, KeepsItsFiveNumbersApart)
{
    const AT_DoubleAttrMeta meta(latin("K"), latin("L"), latin("S"), 1.0, 2.0, 3.0, 4.0, 5.0);
    EXPECT_EQ(meta.key(), latin("K"));
    EXPECT_EQ(meta.label(), latin("L"));
    EXPECT_EQ(meta.stepName(), latin("S"));
    EXPECT_EQ(meta.container().lower, 1.0);
    EXPECT_EQ(meta.container().upper, 2.0);
    EXPECT_EQ(meta.container().sliderLower, 3.0);
    EXPECT_EQ(meta.container().sliderUpper, 4.0);
    EXPECT_EQ(meta.container().step, 5.0);
    EXPECT_EQ(scaleMeta().container().step, AT_DoubleAttrMetaContainer::kDefaultValueStep);
}

TEST_F(DoubleAttr, HasTheDefaultWithinItsLimits)
{
    EXPECT_EQ(scale.localValue(), 1.0);
    EXPECT_EQ(makeScale(99.0)->localValue(), 10.0);
}

TEST_F(DoubleAttr, IsHeldToItsLimitsAndNotToItsSlider)
{
    EXPECT_TRUE(scale.setLocalValue(7.0));
    EXPECT_EQ(scale.localValue(), 7.0);
    scale.setLocalValue(12.0);
    EXPECT_EQ(scale.localValue(), 10.0);
    scale.setLocalValue(-1.0);
    EXPECT_EQ(scale.localValue(), 0.0);
}

TEST_F(DoubleAttr, TakesNothingThatIsNoFiniteNumber)
{
    for (const double value : {kNan, kInfinity, -kInfinity}) {
        EXPECT_FALSE(scale.setLocalValue(value));
        EXPECT_FALSE(isCommand(scale.setValueCmd(0.0, value)));
        EXPECT_EQ(scale.localValue(), 1.0);
    }
}

TEST_F(DoubleAttr, TellsOnlyOfRealChanges)
{
    scale.setLocalValue(10.0);
    Counter counter(scale);
    EXPECT_FALSE(scale.setLocalValue(10.0));
    EXPECT_FALSE(scale.setLocalValue(20.0));
    EXPECT_FALSE(scale.setCurve(AT_Curve()));
    EXPECT_EQ(counter.count, 0);
    EXPECT_TRUE(scale.setLocalValue(3.0));
    EXPECT_TRUE(scale.setCurve(ramp()));
    EXPECT_EQ(counter.count, 2);
}

TEST_F(DoubleAttr, HasItsCurvesValueWhenAnimated)
{
    scale.setCurve(ramp());
    EXPECT_EQ(scale.value(3.0), 3.0);
    EXPECT_EQ(scale.localValue(), 1.0);
}

TEST_F(DoubleAttr, HoldsCurvesAndSurrogatesToItsLimits)
{
    AT_Curve high;
    high.setKey({0.0, 50.0, HOLD, {}, {}, {}});
    scale.setCurve(high);
    EXPECT_EQ(scale.value(0.0), 10.0);
    scale.setSurrogate(UT_makeShared<FixedSurrogate>(-kInfinity));
    EXPECT_EQ(scale.value(0.0), 0.0);
}

TEST_F(DoubleAttr, HasItsSurrogatesValueBeforeItsCurves)
{
    scale.setCurve(ramp());
    scale.setSurrogate(UT_makeShared<FixedSurrogate>(6.0));
    EXPECT_EQ(scale.value(3.0), 6.0);
    scale.setSurrogate(UT_makeShared<FixedSurrogate>(std::nullopt));
    EXPECT_EQ(scale.value(3.0), 3.0);
}

TEST_F(DoubleAttr, CannotBeDrivenWhenNotLinkable)
{
    AT_DoubleAttr fixed(scaleMeta(), nullptr, AT_DoubleAttr::NOT_LINKABLE, 1.0, QString());
    const UT_SharedPtr<AT_AttrSurrogate> surrogate = UT_makeShared<FixedSurrogate>(6.0);
    EXPECT_FALSE(fixed.setSurrogate(surrogate));
    EXPECT_FALSE(isCommand(MO_driveCmd(fixed, surrogate)));
    EXPECT_EQ(fixed.value(0.0), 1.0);
}

TEST_F(DoubleAttr, ShowsItsUnit)
{
    AT_DoubleAttr size(scaleMeta(), nullptr, AT_DoubleAttr::LINKABLE, 2.5, latin("px"));
    EXPECT_EQ(size.displayText(0.0), latin("2.5 px"));
    EXPECT_EQ(scale.displayText(0.0), latin("1"));
}

TEST_F(DoubleAttr, AcceptsWhatPeopleWriteWithinTheLimits)
{
    AT_DoubleAttr size(scaleMeta(), nullptr, AT_DoubleAttr::LINKABLE, 2.5, latin("px"));
    EXPECT_TRUE(size.parseText(latin(" 3.5 px "), false));
    EXPECT_EQ(size.localValue(), 2.5);
    EXPECT_TRUE(size.parseText(latin("3.5px"), true));
    EXPECT_EQ(size.localValue(), 3.5);
    EXPECT_FALSE(size.parseText(latin("3.5"), true));
    for (const char* text : {"", "px", "11", "-1", "nan", "two", "1 2"})
        EXPECT_FALSE(size.parseText(latin(text), false)) << text;
}

TEST_F(DoubleAttr, WritesItsLocalValueAndItsCurve)
{
    EXPECT_EQ(saved(scale), latin("<Scale val=\"1\"/>"));
    scale.setCurve(ramp());
    EXPECT_EQ(saved(scale), latin("<Scale val=\"1\">\n"
                                  "  <curve>\n"
                                  "    <key frame=\"1\" type=\"linear\" val=\"2\"/>\n"
                                  "    <key frame=\"5\" type=\"linear\" val=\"4\"/>\n"
                                  "  </curve>\n"
                                  "</Scale>"));
}

TEST_F(DoubleAttr, ReadsWhatItWrites)
{
    scale.setCurve(ramp());
    scale.setLocalValue(3.25);
    const auto other = makeScale();
    EXPECT_TRUE(load(*other, saved(scale)));
    EXPECT_EQ(other->localValue(), 3.25);
    EXPECT_EQ(other->curve(), ramp());
    EXPECT_TRUE(other->equals(scale));
}

TEST_F(DoubleAttr, LosesWhatItsElementDoesNotHave)
{
    scale.setCurve(ramp());
    scale.setSurrogate(UT_makeShared<AT_AttrLink>(latin("A.B")));
    EXPECT_TRUE(load(scale, "<Scale val=\"2\"/>"));
    EXPECT_FALSE(scale.isAnimated());
    EXPECT_FALSE(scale.surrogate());
    EXPECT_EQ(scale.localValue(), 2.0);
}

TEST_F(DoubleAttr, KeepsItsValueWhenTheElementHasNone)
{
    scale.setLocalValue(5.0);
    EXPECT_TRUE(load(scale, "<Scale/>"));
    QStringList warnings;
    EXPECT_FALSE(load(scale, "<Scale val=\"five\"/>", &warnings));
    EXPECT_FALSE(load(scale, "<Scale val=\"inf\"/>", &warnings));
    EXPECT_EQ(scale.localValue(), 5.0);
    EXPECT_EQ(warnings.size(), 2);
    EXPECT_TRUE(warnings[0].startsWith(latin("Scale: \"five\"")));
}

TEST_F(DoubleAttr, TakesTheNearestLimitForAValueInAFileBeyondIt)
{
    QStringList warnings;
    load(scale, "<Scale val=\"11\"/>", &warnings);
    EXPECT_EQ(scale.localValue(), 10.0);
    EXPECT_EQ(warnings.size(), 1);
}

TEST_F(DoubleAttr, KeepsWhatANewerVersionWrote)
{
    const QString newer = latin("<Scale easing=\"soft\" val=\"2\">\n"
                                "  <expression code=\"a &lt; b\">\n"
                                "    <x/>\n"
                                "  </expression>\n"
                                "</Scale>");
    QStringList warnings;
    EXPECT_FALSE(load(scale, newer, &warnings));
    EXPECT_EQ(saved(scale), newer);
    EXPECT_EQ(warnings.size(), 2);
}

RC_GTEST_PROP(DoubleAttrProperty, KeepsEveryBitOfItsValue, ())
{
    const double value = *AnyValues::number();
    const auto attr = makeWide(value);
    const auto other = makeWide(value == 1.0 ? 2.0 : 1.0);
    RC_ASSERT(load(*other, saved(*attr)));
    RC_ASSERT(std::bit_cast<std::uint64_t>(other->localValue()) == std::bit_cast<std::uint64_t>(value));
    RC_ASSERT(saved(*other) == saved(*attr));
}

TEST_F(DoubleAttr, IsSetByACommandWhateverTheFrameWhenNotAnimated)
{
    EXPECT_FALSE(isCommand(scale.setValueCmd(5.0, 1.0)));
    EXPECT_EQ(checkCommand(scale, scale.setValueCmd(5.0, 3.0)), latin("<Scale val=\"3\"/>"));
}

TEST_F(DoubleAttr, MakesNoCommandForAValueThatTheLimitsUndo)
{
    scale.setLocalValue(10.0);
    EXPECT_FALSE(isCommand(scale.setValueCmd(0.0, 11.0)));
}

TEST_F(DoubleAttr, GetsAKeyAtTheFrameWhenAnimated)
{
    scale.setCurve(ramp());
    checkCommand(scale, scale.setValueCmd(3.0, 9.0));
    EXPECT_EQ(scale.curve().keys().size(), 3U);
    EXPECT_EQ(scale.value(3.0), 9.0);
    EXPECT_EQ(scale.localValue(), 1.0);
}

TEST_F(DoubleAttr, KeepsTheWayOfTheKeyThatIsSet)
{
    AT_Curve curve = ramp();
    AT_Curve::Key first = curve.keys()[0];
    first.interpolation = BEZIER;
    first.out = {1.0, 1.0};
    curve.setKey(first);
    scale.setCurve(curve);
    checkCommand(scale, scale.setValueCmd(1.0, 5.0));
    first.value = 5.0;
    EXPECT_EQ(scale.curve().keys()[0], first);
    checkCommand(scale, scale.setValueCmd(2.0, 6.0));
    EXPECT_EQ(scale.curve().keys()[1].interpolation, BEZIER);
    EXPECT_FALSE(isCommand(scale.setValueCmd(2.0, 6.0)));
    EXPECT_FALSE(isCommand(scale.setValueCmd(kNan, 6.0)));
}

TEST_F(DoubleAttr, GetsItsCurveAndItsSurrogateByCommands)
{
    checkCommand(scale, MO_curveCmd(scale, ramp()));
    EXPECT_FALSE(isCommand(MO_curveCmd(scale, ramp())));
    checkCommand(scale, MO_curveCmd(scale, AT_Curve()));
    checkCommand(scale, MO_driveCmd(scale, UT_makeShared<AT_AttrLink>(latin("A.B"))));
    EXPECT_FALSE(isCommand(MO_driveCmd(scale, scale.surrogate())));
    checkCommand(scale, MO_driveCmd(scale, nullptr));
}

TEST_F(DoubleAttr, CopiesValueAndCurve)
{
    const auto other = makeScale(4.0);
    other->setCurve(ramp());
    checkCommand(scale, scale.createCopyCmd(*other));
    EXPECT_TRUE(scale.equals(*other));
    EXPECT_FALSE(isCommand(scale.createCopyCmd(*other)));
    EXPECT_FALSE(isCommand(scale.createCopyCmd(SpeedAttr(speedMeta()))));
}

TEST_F(DoubleAttr, HoldsWhatItCopiesToItsOwnLimits)
{
    checkCommand(scale, scale.createCopyCmd(*makeWide(1e9)));
    EXPECT_EQ(scale.localValue(), 10.0);
}

TEST_F(DoubleAttr, EqualsByWhatItGives)
{
    const auto other = makeScale(4.0);
    EXPECT_FALSE(scale.equals(*other));
    scale.setSurrogate(UT_makeShared<FixedSurrogate>(4.0));
    EXPECT_TRUE(scale.equals(*other));
    EXPECT_FALSE(scale.equals(SpeedAttr(speedMeta())));
}

TEST_F(DoubleAttr, MergesCommandsForTheSameValue)
{
    CO_CommandStack stack;
    for (const double value : {2.0, 3.0, 4.0})
        stack.execute(std::unique_ptr<CO_Command>(scale.setValueCmd(0.0, value)));
    EXPECT_EQ(stack.undoNames(), QStringList(latin("Change Scale of it")));
    stack.undo();
    EXPECT_EQ(scale.localValue(), 1.0);
    stack.redo();
    EXPECT_EQ(scale.localValue(), 4.0);
}

TEST_F(DoubleAttr, DoesNotMergeCommandsForDifferentKeysOrAttributes)
{
    CO_CommandStack stack;
    const auto other = makeScale();
    stack.execute(std::unique_ptr<CO_Command>(scale.setValueCmd(0.0, 2.0)));
    stack.execute(std::unique_ptr<CO_Command>(other->setValueCmd(0.0, 2.0)));
    EXPECT_EQ(stack.undoNames().size(), 2);
    scale.setCurve(ramp());
    stack.execute(std::unique_ptr<CO_Command>(scale.setValueCmd(1.0, 6.0)));
    stack.execute(std::unique_ptr<CO_Command>(scale.setValueCmd(2.0, 6.0)));
    EXPECT_EQ(stack.undoNames().size(), 4);
    stack.execute(std::unique_ptr<CO_Command>(scale.setValueCmd(2.0, 7.0)));
    EXPECT_EQ(stack.undoNames().size(), 4);
}

TEST_F(DoubleAttr, LeavesCommandsWithoutEffectWhenItIsGone)
{
    const std::unique_ptr<CO_Command> command(scale.setValueCmd(0.0, 2.0));
    command->execute();
    const std::unique_ptr<CO_Command> later(scale.setValueCmd(0.0, 3.0));
    EXPECT_TRUE(command->canMergeWith(*later));
    owner.reset();
    command->undo();
    command->redo();
    EXPECT_FALSE(command->canMergeWith(*later)) << "no attribute is left that both change";
}

RC_GTEST_PROP(DoubleAttrProperty, ComesBackToEverySavedState, ())
{
    const auto attr = makeScale();
    CO_CommandStack stack;
    QStringList states(saved(*attr));
    const int steps = *rc::gen::inRange(1, 20);
    for (int i = 0; i < steps; ++i) {
        const double frame = *rc::gen::inRange(0, 4);
        const double value = *rc::gen::inRange(0, 100) / 10.0;
        AT_Curve curve = attr->curve();
        curve.setKey({frame, value, BEZIER, {-1.0, value}, {frame, 0.5}, {}});
        const int kind = *rc::gen::inRange(0, 4);
        MO_EditCommand command = kind == 0   ? MO_curveCmd(*attr, curve)
                                 : kind == 1 ? MO_constantCmd(*attr, value)
                                             : MO_EditCommand(attr->setValueCmd(frame, value));
        const bool merges = *rc::gen::arbitrary<bool>();
        if (!merges)
            stack.endMerging();
        const qsizetype before = stack.undoNames().size();
        if (!stack.execute(std::move(command)))
            continue;
        if (stack.undoNames().size() == before)
            states.removeLast();
        states.append(saved(*attr));
    }
    for (qsizetype i = states.size() - 1; i > 0; --i) {
        RC_ASSERT(saved(*attr) == states[i]);
        RC_ASSERT(stack.undo());
    }
    RC_ASSERT(saved(*attr) == states[0]);
    for (qsizetype i = 1; i < states.size(); ++i) {
        RC_ASSERT(stack.redo());
        RC_ASSERT(saved(*attr) == states[i]);
    }
}

TEST_F(IntAttr, GivesTheNearestIntegerBetweenKeys)
{
    AT_Curve curve;
    curve.setKey({0.0, 1.0, LINEAR, {}, {}, {}});
    curve.setKey({10.0, 3.0, LINEAR, {}, {}, {}});
    number.setCurve(curve);
    EXPECT_EQ(number.value(2.0), 1); // 1.4
    EXPECT_EQ(number.value(2.5), 2); // 1.5
    EXPECT_EQ(number.value(7.0), 2); // 2.4
    EXPECT_EQ(number.scalarValue(2.0), 1.0);
}

TEST_F(IntAttr, IsHeldToItsLimits)
{
    number.setLocalValue(1000);
    EXPECT_EQ(number.localValue(), 100);
    number.setSurrogate(UT_makeShared<FixedSurrogate>(-5.0));
    EXPECT_EQ(number.value(0.0), 0);
}

TEST_F(IntAttr, HoldsTheWholeRangeOfInt)
{
    AT_IntAttr wide(meta, nullptr, AT_IntAttr::LINKABLE, 0);
    wide.setSurrogate(UT_makeShared<FixedSurrogate>(1e300));
    EXPECT_EQ(wide.value(0.0), std::numeric_limits<int>::max());
    wide.setSurrogate(UT_makeShared<FixedSurrogate>(-1e300));
    EXPECT_EQ(wide.value(0.0), std::numeric_limits<int>::min());
    wide.setSurrogate(nullptr);
    wide.setLocalValue(std::numeric_limits<int>::min());
    EXPECT_EQ(saved(wide), latin("<Number val=\"-2147483648\"/>"));
}

TEST_F(IntAttr, ReadsIntegersAlone)
{
    EXPECT_TRUE(load(number, "<Number val=\"42\"/>"));
    EXPECT_FALSE(load(number, "<Number val=\"4.5\"/>"));
    EXPECT_EQ(number.localValue(), 42);
    EXPECT_TRUE(number.parseText(latin(" 7 "), true));
    EXPECT_FALSE(number.parseText(latin("101"), false));
    EXPECT_FALSE(number.parseText(latin("seven"), false));
    EXPECT_EQ(number.displayText(0.0), latin("7"));
}

TEST_F(IntAttr, IsSetByCommands)
{
    EXPECT_FALSE(isCommand(number.setValueCmd(0.0, 1)));
    EXPECT_EQ(checkCommand(number, number.setValueCmd(0.0, 8)), latin("<Number val=\"8\"/>"));
}
