// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What links between attributes promise.
#include "Host/QuarvelSceneCore/attributes/AttrTesting.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include <QByteArray>

#include <map>
#include <thread>
#include <vector>

using namespace AttrTesting;

namespace {

/// Attributes by path.
class Scope : public AT_LinkScope
{
public:
    AT_Attr* findAttr(const QString& path) const override
    {
        const auto it = _attrs.find(path);
        return it == _attrs.end() ? nullptr : it->second;
    }

    QString pathOf(const AT_Attr& attr) const override
    {
        for (const auto& [path, known] : _attrs)
            if (known == &attr)
                return path;
        return QString();
    }

    void add(const char* path, AT_Attr& attr) { _attrs[latin(path)] = &attr; }
    void rename(const char* from, const char* to) { add(to, *_attrs.extract(latin(from)).mapped()); }

private:
    std::map<QString, AT_Attr*> _attrs;
};

class AttrLink : public testing::Test
{
protected:
    AttrLink()
    {
        scope.add("A.Scale", *a);
        scope.add("B.Scale", *b);
        scope.add("C.Scale", *c);
    }

    bool link(AT_SimpleAttr& attr, const char* path)
    {
        attr.setSurrogate(UT_makeShared<AT_AttrLink>(latin(path)));
        return attr.link()->resolve(scope);
    }

    std::unique_ptr<AT_DoubleAttr> a = makeScale(1.0);
    std::unique_ptr<AT_DoubleAttr> b = makeScale(2.0);
    std::unique_ptr<AT_DoubleAttr> c = makeScale(3.0);
    Scope scope;
};

} // namespace

TEST_F(AttrLink, GivesTheValueOfAnotherAttribute)
{
    EXPECT_TRUE(link(*a, "B.Scale"));
    EXPECT_EQ(a->value(0.0), 2.0);
    b->setLocalValue(7.0);
    EXPECT_EQ(a->value(0.0), 7.0);
    EXPECT_EQ(a->localValue(), 1.0);
}

TEST_F(AttrLink, FollowsAnimation)
{
    AT_Curve curve;
    curve.setKey({0.0, 0.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    curve.setKey({10.0, 10.0, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
    b->setCurve(curve);
    link(*a, "B.Scale");
    EXPECT_EQ(a->value(4.0), 4.0);
}

TEST_F(AttrLink, MayCrossKindsOfAttributes)
{
    SpeedAttr speed(speedMeta());
    speed.setLocalValue(WARP_SPEED);
    AT_BoolAttr flag(scaleMeta(), false);
    scope.add("D.Speed", speed);
    scope.add("D.Flag", flag);
    EXPECT_TRUE(link(*a, "D.Speed"));
    EXPECT_EQ(a->value(0.0), 5.0);
    EXPECT_TRUE(link(flag, "A.Scale"));
    EXPECT_TRUE(flag.value());
    EXPECT_TRUE(link(speed, "D.Flag"));
}

TEST_F(AttrLink, HasNoEffectUntilItIsResolved)
{
    a->setSurrogate(UT_makeShared<AT_AttrLink>(latin("B.Scale")));
    EXPECT_EQ(a->value(0.0), 1.0);
    EXPECT_FALSE(link(*a, "Nowhere.Scale"));
    EXPECT_EQ(a->value(0.0), 1.0);
}

TEST_F(AttrLink, DoesNotReadTexts)
{
    AT_StringAttr text(scaleMeta(), latin("5"), false, false);
    scope.add("D.Text", text);
    EXPECT_FALSE(link(*a, "D.Text"));
    EXPECT_EQ(a->link()->target(), nullptr);
}

TEST_F(AttrLink, LeavesTheLocalValueWhenItsTargetIsGone)
{
    link(*a, "B.Scale");
    b.reset();
    EXPECT_EQ(a->link()->target(), nullptr);
    EXPECT_EQ(a->value(0.0), 1.0);
}

TEST_F(AttrLink, PassesOnThatItsTargetChanged)
{
    link(*a, "B.Scale");
    link(*b, "C.Scale");
    Counter counter(*a);
    c->setLocalValue(9.0);
    EXPECT_EQ(counter.count, 1);
    EXPECT_EQ(a->value(0.0), 9.0);
    a->setSurrogate(nullptr);
    counter.count = 0;
    c->setLocalValue(8.0);
    EXPECT_EQ(counter.count, 0);
}

TEST_F(AttrLink, ToItselfGivesTheLocalValue)
{
    link(*a, "A.Scale");
    EXPECT_EQ(a->value(0.0), 1.0);
    a->setLocalValue(4.0);
    EXPECT_EQ(a->value(0.0), 4.0);
}

TEST_F(AttrLink, InACircleGivesEachItsLocalValue)
{
    link(*a, "B.Scale");
    link(*b, "C.Scale");
    link(*c, "A.Scale");
    EXPECT_EQ(a->value(0.0), 1.0);
    EXPECT_EQ(b->value(0.0), 2.0);
    EXPECT_EQ(c->value(0.0), 3.0);
}

TEST_F(AttrLink, IntoACircleGivesTheValueOfItsTarget)
{
    const auto d = makeScale(9.0);
    link(*a, "B.Scale");
    link(*b, "A.Scale");
    link(*d, "B.Scale");
    EXPECT_EQ(d->value(0.0), 2.0);
}

TEST_F(AttrLink, InACircleStillTellsAndEnds)
{
    link(*a, "B.Scale");
    link(*b, "A.Scale");
    Counter counter(*a);
    b->setLocalValue(5.0);
    EXPECT_EQ(counter.count, 1);
    EXPECT_EQ(b->value(0.0), 5.0);
}

TEST_F(AttrLink, EndsInTheLocalValueWhenTheChainIsTooLong)
{
    constexpr int kLength = 10000;
    const auto name = [](int i) {
        return QByteArrayLiteral("N") + QByteArray::number(i) + QByteArrayLiteral(".Scale");
    };
    std::vector<std::unique_ptr<AT_DoubleAttr>> chain;
    for (int i = 0; i < kLength; ++i) {
        chain.push_back(makeScale(i == 0 ? 8.0 : 1.0));
        scope.add(name(i).constData(), *chain.back());
        if (i > 0)
            link(*chain.back(), name(i - 1).constData());
    }
    EXPECT_EQ(chain[256]->value(0.0), 8.0);
    EXPECT_EQ(chain[257]->value(0.0), 1.0);
    EXPECT_EQ(chain.back()->value(0.0), 1.0);
    Counter near(*chain[256]);
    chain[0]->setLocalValue(7.0);
    EXPECT_EQ(near.count, 1);
    EXPECT_EQ(chain[256]->value(0.0), 7.0);
}

TEST_F(AttrLink, IsWrittenAsAPathAndReadUnresolved)
{
    link(*a, "B.Scale");
    const QString linked = latin("<Scale link=\"B.Scale\" val=\"1\"/>");
    EXPECT_EQ(saved(*a), linked);
    const auto other = makeScale(5.0);
    EXPECT_TRUE(load(*other, linked));
    ASSERT_NE(other->link(), nullptr);
    EXPECT_EQ(other->value(0.0), 1.0);
    EXPECT_TRUE(other->link()->resolve(scope));
    EXPECT_EQ(other->value(0.0), 2.0);
}

TEST_F(AttrLink, TakesThePathThatItsTargetHasToday)
{
    link(*a, "B.Scale");
    scope.rename("B.Scale", "Hero & Co.Scale");
    a->link()->refreshPath(scope);
    EXPECT_EQ(saved(*a), latin("<Scale link=\"Hero &amp; Co.Scale\" val=\"1\"/>"));
    EXPECT_EQ(a->value(0.0), 2.0);
}

TEST_F(AttrLink, KeepsItsPathWhenItCannotBeResolved)
{
    link(*a, "Nowhere.Scale");
    a->link()->refreshPath(scope);
    EXPECT_EQ(saved(*a), latin("<Scale link=\"Nowhere.Scale\" val=\"1\"/>"));
}

TEST_F(AttrLink, ComesAndGoesByCommands)
{
    const auto surrogate = UT_makeShared<AT_AttrLink>(latin("B.Scale"));
    surrogate->resolve(scope);
    checkCommand(*a, MO_driveCmd(*a, surrogate));
    EXPECT_EQ(a->value(0.0), 2.0);
    checkCommand(*a, MO_driveCmd(*a, nullptr));
    EXPECT_EQ(a->value(0.0), 1.0);
}

TEST_F(AttrLink, MayBeFollowedOnSeveralThreads)
{
    link(*a, "B.Scale");
    link(*b, "C.Scale");
    link(*c, "A.Scale");
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([this] {
            for (int n = 0; n < 1000; ++n)
                EXPECT_EQ(a->value(n) + b->value(n) + c->value(n), 6.0);
        });
}

TEST(AttrPath, IsSplitAtItsLastDot)
{
    const QString path = AT_AttrLink::makePath(latin("Dr. No"), latin("Scale"));
    EXPECT_EQ(path, latin("Dr. No.Scale"));
    EXPECT_EQ(AT_AttrLink::nodeOf(path), latin("Dr. No"));
    EXPECT_EQ(AT_AttrLink::keyOf(path), latin("Scale"));
    EXPECT_EQ(AT_AttrLink::nodeOf(latin("Scale")), QString());
    EXPECT_EQ(AT_AttrLink::keyOf(latin("Scale")), latin("Scale"));
}
