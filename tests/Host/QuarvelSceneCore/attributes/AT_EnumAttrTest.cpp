// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What an enumerated attribute promises to the class that derives from it.
#include "Host/QuarvelSceneCore/attributes/AttrTesting.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>
#include <vector>

using namespace AttrTesting;

namespace {

class EnumAttr : public testing::Test
{
protected:
    void drive(std::optional<double> value) { speed.setSurrogate(UT_makeShared<FixedSurrogate>(value)); }

    SpeedAttr speed{speedMeta()};
};

const AT_AttrMeta& otherMeta()
{
    static const AT_AttrMeta meta(latin("Other"), latin("Other"));
    return meta;
}

/// The same enumeration under another class.
class OtherSpeedAttr : public SpeedAttr
{
public:
    using SpeedAttr::SpeedAttr;
};

class Visitor : public AT_AttrVisitor
{
public:
    explicit Visitor(const UT_DynKey* known) : _known(known) {}
    void visitEnum(AT_EnumAttrBase&) override { enums += 1; }
    bool visitDynamic(const UT_DynKey& key, AT_Attr&) override
    {
        dynamics += 1;
        return _known && key == *_known;
    }

    int enums = 0;
    int dynamics = 0;

private:
    const UT_DynKey* _known;
};

// An enumeration whose table no other test uses.
enum eFresh
{
    FRESH_ONE = 1
};

class FreshAttr : public AT_EnumAttr<eFresh>
{
public:
    using AT_EnumAttr<eFresh>::AT_EnumAttr;
    static inline std::atomic<int> fillings = 0;

protected:
    void fillValueTable(ValueTable& table) const override
    {
        ++fillings;
        addValue(table, FRESH_ONE, latin("FRESH_ONE"), latin("One"), false);
    }
};

} // namespace

TEST_F(EnumAttr, StartsAtZeroInVersionOne)
{
    EXPECT_EQ(speed.localValue(), SLOW_SPEED);
    EXPECT_EQ(speed.formatVersion(), 1);
    EXPECT_EQ(speed.displayText(0.0), latin("Slow"));
}

TEST_F(EnumAttr, TellsOnlyOfRealChanges)
{
    Counter counter(speed);
    EXPECT_FALSE(speed.setLocalValue(SLOW_SPEED));
    EXPECT_EQ(counter.count, 0);
    EXPECT_TRUE(speed.setLocalValue(FAST_SPEED));
    EXPECT_EQ(counter.count, 1);
}

TEST_F(EnumAttr, ShowsNothingForAValueOutsideOfTheTable)
{
    speed.setLocalInt(3);
    EXPECT_EQ(speed.displayText(0.0), QString());
}

TEST_F(EnumAttr, WalksTheTableInAscendingOrder)
{
    std::vector<int> values;
    const auto [begin, end] = speed.values();
    for (auto it = begin; it != end; ++it)
        values.push_back(it->first);
    EXPECT_THAT(values, testing::ElementsAre(0, 1, 5));
    EXPECT_FALSE(begin->second.flag);
    EXPECT_TRUE(std::prev(end)->second.flag);
}

TEST_F(EnumAttr, FindsRowsByExactLabelOrKeyword)
{
    ASSERT_NE(speed.findRow(latin("Fast")), nullptr);
    EXPECT_EQ(speed.findRow(latin("Fast"))->first, 1);
    EXPECT_EQ(speed.findRow(latin("WARP_SPEED"))->first, 5);
    EXPECT_EQ(speed.findRow(latin("fast")), nullptr);
    EXPECT_EQ(speed.findRow(latin("Fast ")), nullptr);
}

TEST_F(EnumAttr, IsSetByExactKeywordAlone)
{
    EXPECT_TRUE(speed.setByKeyword(latin("FAST_SPEED")));
    EXPECT_EQ(speed.localValue(), FAST_SPEED);
    EXPECT_FALSE(speed.setByKeyword(latin("Slow")));
    EXPECT_FALSE(speed.setByKeyword(latin("slow_speed")));
    EXPECT_EQ(speed.localValue(), FAST_SPEED);
}

TEST_F(EnumAttr, AcceptsWhatPeopleWrite)
{
    EXPECT_TRUE(speed.parseText(latin(" fast "), false));
    EXPECT_EQ(speed.localValue(), SLOW_SPEED);
    EXPECT_TRUE(speed.parseText(latin("fast"), true));
    EXPECT_EQ(speed.localValue(), FAST_SPEED);
    EXPECT_TRUE(speed.parseText(latin("beyond LIGHT"), true));
    EXPECT_EQ(speed.localValue(), WARP_SPEED);
}

TEST_F(EnumAttr, SaysNoChangeWhenTheTextMeansWhatItIs)
{
    EXPECT_TRUE(speed.parseText(latin("Slow"), false));
    EXPECT_FALSE(speed.parseText(latin("Slow"), true));
}

TEST_F(EnumAttr, RefusesTextsThatNoRowAccepts)
{
    Counter counter(speed);
    EXPECT_FALSE(speed.parseText(latin("medium"), false));
    EXPECT_FALSE(speed.parseText(latin("medium"), true));
    EXPECT_FALSE(speed.parseText(QString(), true));
    EXPECT_EQ(counter.count, 0);
}

TEST_F(EnumAttr, WritesTheKeyword)
{
    speed.setLocalValue(FAST_SPEED);
    EXPECT_EQ(saved(speed), latin("<Speed val=\"FAST_SPEED\"/>"));
    speed.setLocalInt(3);
    EXPECT_EQ(saved(speed), latin("<Speed val=\"\"/>"));
}

TEST_F(EnumAttr, ReadsTheKeywordAndNotTheLabel)
{
    EXPECT_TRUE(load(speed, "<Speed val=\"FAST_SPEED\"/>"));
    EXPECT_EQ(speed.localValue(), FAST_SPEED);
    EXPECT_FALSE(load(speed, "<Speed val=\"Slow\"/>"));
    EXPECT_EQ(speed.localValue(), FAST_SPEED);
}

TEST_F(EnumAttr, KeepsItsValueWhenTheKeywordIsUnknown)
{
    speed.setLocalValue(WARP_SPEED);
    QStringList warnings;
    EXPECT_FALSE(load(speed, "<Speed val=\"WALKING\"/>", &warnings));
    EXPECT_EQ(speed.localValue(), WARP_SPEED);
    EXPECT_EQ(warnings.size(), 1);
}

TEST_F(EnumAttr, IsReadAsVersionOneWithoutAVersion)
{
    load(speed, "<Speed val=\"SLOW_SPEED\" version=\"2\"/>");
    EXPECT_EQ(speed.formatVersion(), 2);
    load(speed, "<Speed val=\"SLOW_SPEED\"/>");
    EXPECT_EQ(speed.formatVersion(), 1);
    load(speed, "<Speed val=\"SLOW_SPEED\" version=\"two\"/>");
    EXPECT_EQ(speed.formatVersion(), 1);
}

TEST_F(EnumAttr, HasATableForEveryVersion)
{
    const QString second = latin("<Speed val=\"LUDICROUS_SPEED\" version=\"2\"/>");
    QStringList warnings;
    EXPECT_TRUE(load(speed, second, &warnings));
    EXPECT_TRUE(warnings.isEmpty());
    EXPECT_EQ(speed.localValue(), WARP_SPEED);
    EXPECT_EQ(saved(speed), second);

    SpeedAttr first(speedMeta());
    EXPECT_FALSE(first.setByKeyword(latin("LUDICROUS_SPEED")));
    EXPECT_TRUE(first.setByKeyword(latin("WARP_SPEED")));
}

TEST_F(EnumAttr, ShowsAndComparesTheSurrogatesValueButSavesItsOwn)
{
    SpeedAttr fast(speedMeta());
    fast.setLocalValue(FAST_SPEED);
    drive(1.0);
    EXPECT_EQ(speed.value(), FAST_SPEED);
    EXPECT_EQ(speed.localValue(), SLOW_SPEED);
    EXPECT_EQ(speed.displayText(0.0), latin("Fast"));
    EXPECT_TRUE(speed.equals(fast));
    EXPECT_EQ(saved(speed), latin("<Speed val=\"SLOW_SPEED\"/>"));
}

TEST_F(EnumAttr, HasItsOwnValueWhenTheSurrogateHasNone)
{
    drive(std::nullopt);
    EXPECT_EQ(speed.value(), SLOW_SPEED);
    drive(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(speed.value(), SLOW_SPEED);
}

TEST_F(EnumAttr, RoundsAndBoundsWhatTheSurrogateGives)
{
    drive(4.6);
    EXPECT_EQ(speed.effectiveInt(0.0), 5);
    drive(1e300);
    EXPECT_EQ(speed.effectiveInt(0.0), std::numeric_limits<int>::max());
}

TEST_F(EnumAttr, EqualsOnlyItsOwnClass)
{
    EXPECT_TRUE(speed.equals(SpeedAttr(otherMeta())));
    EXPECT_FALSE(speed.equals(OtherSpeedAttr(speedMeta())));
}

TEST_F(EnumAttr, IsSetAndSetBackByCommands)
{
    EXPECT_FALSE(isCommand(speed.setValueCmd(0.0, SLOW_SPEED)));
    EXPECT_EQ(checkCommand(speed, speed.setValueCmd(0.0, FAST_SPEED)), latin("<Speed val=\"FAST_SPEED\"/>"));
}

TEST_F(EnumAttr, CopiesFromItsLikeWithTheSameMetadata)
{
    SpeedAttr fast(speedMeta());
    fast.setLocalValue(FAST_SPEED);
    checkCommand(speed, speed.createCopyCmd(fast));
    EXPECT_EQ(speed.localValue(), FAST_SPEED);
    EXPECT_FALSE(isCommand(speed.createCopyCmd(fast)));
}

TEST_F(EnumAttr, DoesNotCopyFromAnotherKind)
{
    SpeedAttr otherKind(otherMeta());
    otherKind.setLocalValue(FAST_SPEED);
    OtherSpeedAttr otherClass(speedMeta());
    otherClass.setLocalValue(FAST_SPEED);
    EXPECT_FALSE(isCommand(speed.createCopyCmd(otherKind)));
    EXPECT_FALSE(isCommand(speed.createCopyCmd(otherClass)));
    EXPECT_FALSE(isCommand(speed.createCopyCmd(*makeScale())));
}

TEST_F(EnumAttr, MakesTheCommandThatSetsItsValue)
{
    const std::unique_ptr<CO_Command> command(speed.setValueCmd(0.0, FAST_SPEED));
    EXPECT_NE(dynamic_cast<AT_EnumAttrBase::SetLocalValueCmd*>(command.get()), nullptr);
    EXPECT_EQ(command->name(), latin("Change Speed of it"));
}

TEST_F(EnumAttr, GoesToTheVisitorsOwnOperationFirst)
{
    Visitor knows(&SpeedAttr::dynKey());
    speed.accept(knows);
    EXPECT_EQ(knows.dynamics, 1);
    EXPECT_EQ(knows.enums, 0);

    Visitor ignorant(nullptr);
    speed.accept(ignorant);
    EXPECT_EQ(ignorant.dynamics, 1);
    EXPECT_EQ(ignorant.enums, 1);
}

TEST_F(EnumAttr, HasAKeyForEveryEnumeration)
{
    EXPECT_TRUE(SpeedAttr::dynKey() == SpeedAttr::dynKey());
    EXPECT_FALSE(SpeedAttr::dynKey() == FreshAttr::dynKey());
}

TEST_F(EnumAttr, SaysItsClass)
{
    AT_TypeDescriptor mine;
    AT_TypeDescriptor other;
    speed.copyTypeDescriptor(mine);
    OtherSpeedAttr(speedMeta()).copyTypeDescriptor(other);
    EXPECT_FALSE(mine == other);
    SpeedAttr(otherMeta()).copyTypeDescriptor(other);
    EXPECT_TRUE(mine == other);
}

TEST(EnumAttrTable, IsFilledOnceHoweverManyThreadsAskFirst)
{
    std::vector<std::unique_ptr<FreshAttr>> attrs;
    for (int i = 0; i < 8; ++i)
        attrs.push_back(std::make_unique<FreshAttr>(speedMeta()));
    {
        std::vector<std::jthread> threads;
        for (const auto& attr : attrs)
            threads.emplace_back([&attr = *attr] { EXPECT_NE(attr.findRow(latin("One")), nullptr); });
    }
    EXPECT_EQ(FreshAttr::fillings, 1);
}
