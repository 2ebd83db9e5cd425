// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What curves promise: their values, worked out by hand, and their form in files.
#include "QuarvelSceneCore/attributes/AT_Curve.h"
#include "Host/QuarvelPersistentObj/AnyValues.h"
#include "Host/QuarvelSceneCore/attributes/AttrTesting.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

using namespace AttrTesting;
using Key = AT_Curve::Key;
using enum AT_Curve::Interpolation;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

Key key(double frame, double value, AT_Curve::Interpolation interpolation)
{
    return Key{frame, value, interpolation, {}, {}, {}};
}

AT_Curve curveOf(std::initializer_list<Key> keys)
{
    AT_Curve curve;
    for (const Key& k : keys)
        EXPECT_TRUE(curve.setKey(k));
    return curve;
}

// From 0 to 1 over 8 frames; both handles are horizontal and half as long as the segment.
AT_Curve easing()
{
    Key first = key(0.0, 0.0, BEZIER);
    first.out = {4.0, 0.0};
    Key last = key(8.0, 1.0, BEZIER);
    last.in = {-4.0, 0.0};
    return curveOf({first, last});
}

QString write(const AT_Curve& curve)
{
    QString text;
    {
        PO_XmlWriter writer(text);
        curve.writeXml(writer);
    }
    return text.trimmed();
}

AT_Curve read(const QString& xml, bool expectUnderstood = true, QStringList* warnings = nullptr)
{
    const UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    AT_Curve curve;
    if (document.ok())
        EXPECT_EQ(curve.parseXml(document->documentElement(), warnings), expectUnderstood);
    else
        ADD_FAILURE() << document.error().text.toStdString();
    return curve;
}

AT_Curve anyCurve()
{
    AT_Curve curve;
    const int keys = *rc::gen::inRange(1, 8);
    for (int i = 0; i < keys; ++i) {
        Key k = key(*AnyValues::number(), *AnyValues::number(), *rc::gen::element(HOLD, LINEAR, BEZIER));
        k.in = {-std::fabs(*AnyValues::number()), *AnyValues::number()};
        k.out = {std::fabs(*AnyValues::number()), *AnyValues::number()};
        curve.setKey(k);
    }
    return curve;
}

} // namespace

TEST(Curve, IsZeroWithoutKeys)
{
    EXPECT_TRUE(AT_Curve().isEmpty());
    EXPECT_EQ(AT_Curve().value(3.0), 0.0);
}

TEST(Curve, HoldsBeforeItsFirstKeyAndBehindItsLast)
{
    const AT_Curve curve = curveOf({key(10.0, 2.0, LINEAR), key(20.0, 4.0, LINEAR)});
    EXPECT_EQ(curve.value(-1000.0), 2.0);
    EXPECT_EQ(curve.value(10.0), 2.0);
    EXPECT_EQ(curve.value(20.0), 4.0);
    EXPECT_EQ(curve.value(kInfinity), 4.0);
}

TEST(Curve, HoldsUpToTheNextKeyWhenToldSo)
{
    const AT_Curve curve = curveOf({key(1.0, 5.0, HOLD), key(3.0, 9.0, HOLD)});
    EXPECT_EQ(curve.value(2.999), 5.0);
    EXPECT_EQ(curve.value(3.0), 9.0);
}

TEST(Curve, GoesStraight)
{
    const AT_Curve curve = curveOf({key(0.0, 10.0, LINEAR), key(8.0, 20.0, LINEAR)});
    EXPECT_EQ(curve.value(2.0), 12.5);
    EXPECT_EQ(curve.value(4.0), 15.0);
}

TEST(Curve, TakesTheWayOfTheEarlierKey)
{
    const AT_Curve curve = curveOf({key(0.0, 0.0, LINEAR), key(2.0, 4.0, HOLD), key(4.0, 8.0, LINEAR)});
    EXPECT_EQ(curve.value(1.0), 2.0);
    EXPECT_EQ(curve.value(3.0), 4.0);
}

TEST(Curve, LeavesHandlesAsideUnlessTheEarlierKeyIsABezierKey)
{
    Key first = key(0.0, 0.0, LINEAR);
    first.out = {4.0, 100.0};
    Key last = key(8.0, 8.0, BEZIER);
    last.in = {-4.0, 100.0};
    EXPECT_EQ(curveOf({first, last}).value(4.0), 4.0);
}

TEST(Curve, FollowsItsBezierHandles)
{
    // At t = 1/4 the polygon 0, 4, 4, 8 gives frame 2.375 and the polygon 0, 0, 1, 1 gives 10/64.
    const AT_Curve curve = easing();
    EXPECT_NEAR(curve.value(2.375), 0.15625, 1e-12);
    EXPECT_NEAR(curve.value(4.0), 0.5, 1e-12);
    EXPECT_NEAR(curve.value(5.625), 0.84375, 1e-12);
}

TEST(Curve, OfBezierKeysWithoutHandlesIsStraight)
{
    const AT_Curve curve = curveOf({key(0.0, 0.0, BEZIER), key(10.0, 5.0, BEZIER)});
    EXPECT_NEAR(curve.value(3.0), 1.5, 1e-12);
    EXPECT_NEAR(curve.value(7.0), 3.5, 1e-12);
}

TEST(Curve, MayOvershootBetweenBezierKeys)
{
    // In the middle, 3/8 of each handle's value, -8 and -8, is added to the keys' zeros.
    Key first = key(0.0, 0.0, BEZIER);
    first.out = {4.0, -8.0};
    Key last = key(8.0, 0.0, BEZIER);
    last.in = {-4.0, -8.0};
    EXPECT_NEAR(curveOf({first, last}).value(4.0), -6.0, 1e-12);
}

TEST(Curve, ShortensHandlesToTheSegment)
{
    Key first = key(0.0, 0.0, BEZIER);
    Key last = key(8.0, 1.0, BEZIER);
    first.out = {8.0, 0.0};
    last.in = {-8.0, 0.0};
    const AT_Curve asLong = curveOf({first, last});
    first.out = {100.0, 0.0};
    last.in = {-100.0, 0.0};
    const AT_Curve longer = curveOf({first, last});
    for (const double frame : {0.5, 2.0, 4.0, 6.5})
        EXPECT_EQ(longer.value(frame), asLong.value(frame));
}

RC_GTEST_PROP(Curve, GivesTheKeysTheirValues, ())
{
    const AT_Curve curve = anyCurve();
    for (const Key& k : curve.keys())
        RC_ASSERT(curve.value(k.frame) == k.value);
}

RC_GTEST_PROP(Curve, StaysBetweenTwoLinearKeys, ())
{
    const double a = *AnyValues::number();
    const double b = *AnyValues::number();
    const double frame = *rc::gen::inRange(0, 1000) / 10.0;
    const double value = curveOf({key(0.0, a, LINEAR), key(100.0, b, LINEAR)}).value(frame);
    RC_ASSERT(value >= std::min(a, b));
    RC_ASSERT(value <= std::max(a, b));
}

RC_GTEST_PROP(Curve, NeverGoesBackInTime, ())
{
    // The values are those of the frames, so a curve that went back in time would fall.
    Key first = key(0.0, 0.0, BEZIER);
    Key last = key(10.0, 10.0, BEZIER);
    first.out = {*rc::gen::inRange(0, 300) / 10.0, 0.0};
    last.in = {-*rc::gen::inRange(0, 300) / 10.0, 0.0};
    const AT_Curve curve = curveOf({first, last});
    double before = 0.0;
    for (int i = 1; i <= 200; ++i) {
        const double value = curve.value(i / 20.0);
        RC_ASSERT(value >= before - 1e-9);
        before = value;
    }
}

TEST(Curve, KeepsKeysInTheOrderOfTheirFrames)
{
    const AT_Curve curve = curveOf({key(5.0, 1.0, HOLD), key(-2.0, 2.0, HOLD), key(3.5, 3.0, HOLD)});
    std::vector<double> frames;
    for (const Key& k : curve.keys())
        frames.push_back(k.frame);
    EXPECT_THAT(frames, testing::ElementsAre(-2.0, 3.5, 5.0));
}

TEST(Curve, ReplacesTheKeyAtTheSameFrame)
{
    AT_Curve curve = curveOf({key(1.0, 1.0, HOLD), key(2.0, 2.0, HOLD)});
    curve.setKey(key(1.0, 7.0, LINEAR));
    EXPECT_EQ(curve.keys().size(), 2U);
    EXPECT_EQ(*curve.keyAt(1.0), key(1.0, 7.0, LINEAR));
}

TEST(Curve, FindsAndRemovesKeys)
{
    AT_Curve curve = curveOf({key(1.0, 1.0, HOLD), key(2.0, 2.0, HOLD)});
    EXPECT_EQ(curve.keyAt(1.5), nullptr);
    EXPECT_EQ(curve.keyBefore(2.0)->frame, 1.0);
    EXPECT_EQ(curve.keyBefore(9.0)->frame, 2.0);
    EXPECT_EQ(curve.keyBefore(1.0), nullptr);
    EXPECT_FALSE(curve.removeKey(1.5));
    EXPECT_TRUE(curve.removeKey(1.0));
    EXPECT_EQ(curve.keys().size(), 1U);
}

TEST(Curve, RefusesKeysThatAreNoUse)
{
    AT_Curve curve;
    EXPECT_FALSE(curve.setKey(key(kInfinity, 0.0, HOLD)));
    EXPECT_FALSE(curve.setKey(key(0.0, std::numeric_limits<double>::quiet_NaN(), HOLD)));
    Key backwards = key(0.0, 0.0, BEZIER);
    backwards.out.frame = -1.0;
    EXPECT_FALSE(curve.setKey(backwards));
    Key forwards = key(0.0, 0.0, BEZIER);
    forwards.in.frame = 1.0;
    EXPECT_FALSE(curve.setKey(forwards));
    EXPECT_TRUE(curve.isEmpty());
}

TEST(Curve, WritesWhatItsFormSays)
{
    Key second = key(12.0, 1.0, BEZIER);
    second.out = {4.0, 0.0};
    Key third = key(24.5, 2.0, LINEAR);
    third.in = {-4.0, -0.5};
    EXPECT_EQ(write(curveOf({key(1.0, 0.0, HOLD), second, third})),
              latin("<curve>\n"
                    "  <key frame=\"1\" type=\"hold\" val=\"0\"/>\n"
                    "  <key frame=\"12\" outFrame=\"4\" outVal=\"0\" type=\"bezier\" val=\"1\"/>\n"
                    "  <key frame=\"24.5\" inFrame=\"-4\" inVal=\"-0.5\" type=\"linear\" val=\"2\"/>\n"
                    "</curve>"));
}

TEST(Curve, WritesNothingWithoutKeys)
{
    EXPECT_EQ(write(AT_Curve()), QString());
}

RC_GTEST_PROP(Curve, ReadsWhatItWroteAndWritesItAgain, ())
{
    const AT_Curve curve = anyCurve();
    const QString text = write(curve);
    const AT_Curve back = read(text);
    RC_ASSERT(back == curve);
    RC_ASSERT(write(back) == text);
}

TEST(Curve, LeavesOutKeysThatCannotBeRead)
{
    QStringList warnings;
    const AT_Curve curve = read(latin("<curve><key frame=\"1\"/><key val=\"2\"/><key frame=\"x\" val=\"2\"/>"
                                      "<key frame=\"nan\" val=\"2\"/><key frame=\"5\" val=\"2\" outFrame=\"-1\"/>"
                                      "<key frame=\"6\" val=\"2\" inVal=\"?\"/>"
                                      "<key frame=\"3\" type=\"hold\" val=\"2\"/></curve>"),
                                false, &warnings);
    ASSERT_EQ(curve.keys().size(), 1U);
    EXPECT_EQ(curve.keys()[0], key(3.0, 2.0, HOLD));
    EXPECT_EQ(warnings.size(), 6);
}

TEST(Curve, KeepsWhatANewerVersionWrote)
{
    const QString newer = latin("<curve smooth=\"yes\">\n"
                                "  <key frame=\"1\" tension=\"0.5\" type=\"spring\" val=\"0\">\n"
                                "    <note who=\"me\"/>\n"
                                "  </key>\n"
                                "  <key frame=\"3\" type=\"hold\" val=\"4\"/>\n"
                                "  <extrapolation type=\"loop\"/>\n"
                                "</curve>");
    QStringList warnings;
    const AT_Curve curve = read(newer, false, &warnings);
    EXPECT_EQ(curve.value(2.0), 2.0);
    EXPECT_EQ(write(curve), newer);
    EXPECT_EQ(warnings.size(), 2);
}
