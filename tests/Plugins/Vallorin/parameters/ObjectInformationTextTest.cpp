// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The text of the object table: its exact form, how leniently it is read, and that written text reads back with six
// digits after the point.
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "parameters/VallorinAttributes.h"

#include <QLocale>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using VallorinAttributes::encodeObjectInformation;
using VallorinAttributes::getObjectInformation;
using VallorinAttributes::ObjectInformation;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::vector<ObjectInformation> decode(const QString& text)
{
    std::vector<ObjectInformation> objects;
    getObjectInformation(text, objects);
    return objects;
}

std::vector<ObjectInformation> decode(const char* text)
{
    return decode(QString::fromUtf8(text));
}

/// The bevel in the text of a record with object number 1.
QString bevelAsText(double bevel)
{
    const QString text = encodeObjectInformation({{1, ObjectInformation{1, bevel, 1.0, 1.0}}});
    return text.section(u':', 1, 1);
}

TEST(ObjectInformationText, ARecordStartsAsTheDefaults)
{
    const ObjectInformation object;
    EXPECT_EQ(object.objectId, 0);
    EXPECT_EQ(object.bevelSize, 5.0);
    EXPECT_EQ(object.elevation, 1.0);
    EXPECT_EQ(object.elevationSmoothness, 1.0);
}

TEST(ObjectInformationText, TheEmptyTextIsTheEmptyTable)
{
    EXPECT_THAT(decode(""), IsEmpty());
    EXPECT_EQ(encodeObjectInformation({}), QString());
}

TEST(ObjectInformationText, ReadingClearsTheListFirst)
{
    std::vector<ObjectInformation> objects(2);
    getObjectInformation(QString(), objects);
    EXPECT_THAT(objects, IsEmpty());
}

TEST(ObjectInformationText, ANumberAloneReadsTheDefaults)
{
    EXPECT_THAT(decode("7"), ElementsAre(ObjectInformation{7, 5.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, AColonWithOneFieldDropsTheEntry)
{
    EXPECT_THAT(decode("7:"), IsEmpty());
    EXPECT_THAT(decode(":7"), IsEmpty());
    EXPECT_THAT(decode(":"), IsEmpty());
}

TEST(ObjectInformationText, ABevelAloneLeavesTheRestAtTheDefaults)
{
    EXPECT_THAT(decode("7:2.5"), ElementsAre(ObjectInformation{7, 2.5, 1.0, 1.0}));
}

TEST(ObjectInformationText, AFieldThatIsNoNumberTakesItsDefault)
{
    EXPECT_THAT(decode("7:x:3"), ElementsAre(ObjectInformation{7, 5.0, 3.0, 1.0}));
    EXPECT_THAT(decode("7:2:x:4"), ElementsAre(ObjectInformation{7, 2.0, 1.0, 4.0}));
    EXPECT_THAT(decode("7:2:3:x"), ElementsAre(ObjectInformation{7, 2.0, 3.0, 1.0}));
}

TEST(ObjectInformationText, NumbersBelowOneAreDropped)
{
    EXPECT_THAT(decode("0:1:1:1"), IsEmpty());
    EXPECT_THAT(decode("-2:1:1:1"), IsEmpty());
    EXPECT_THAT(decode("0"), IsEmpty());
}

TEST(ObjectInformationText, FieldsAfterTheFourthAreIgnored)
{
    EXPECT_THAT(decode("7:2:3:4:5:6"), ElementsAre(ObjectInformation{7, 2.0, 3.0, 4.0}));
}

TEST(ObjectInformationText, EmptyPartsAndFieldsAreSkipped)
{
    EXPECT_THAT(decode(";;7::2.5;;8;"),
                ElementsAre(ObjectInformation{7, 2.5, 1.0, 1.0}, ObjectInformation{8, 5.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, AnObjectListedTwiceStaysTwice)
{
    EXPECT_THAT(decode("7:1;7:2"),
                ElementsAre(ObjectInformation{7, 1.0, 1.0, 1.0}, ObjectInformation{7, 2.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, NumbersAreWrittenWithSixDigitsAfterThePoint)
{
    EXPECT_EQ(encodeObjectInformation({{3, ObjectInformation{3, 2.5, 1.0, 0.25}}}),
              QStringLiteral("3:2.500000:1.000000:0.250000"));
    EXPECT_EQ(encodeObjectInformation({{3, ObjectInformation{3, 5.0, 1.0, 1.0}}}),
              QStringLiteral("3:5.000000:1.000000:1.000000"));
}

TEST(ObjectInformationText, EntriesFollowTheKeysAndCarryTheRecordsOwnNumber)
{
    EXPECT_EQ(encodeObjectInformation({{9, ObjectInformation{2, 1.0, 1.0, 1.0}}, {-4, ObjectInformation{-1, 0, 0, 0}}}),
              QStringLiteral("-1:0.000000:0.000000:0.000000;2:1.000000:1.000000:1.000000"));
}

TEST(ObjectInformationText, ExactTiesAreRoundedAwayFromZero)
{
    EXPECT_EQ(bevelAsText(0.0078125), QStringLiteral("0.007813"));
    EXPECT_EQ(bevelAsText(-0.0078125), QStringLiteral("-0.007813"));
}

TEST(ObjectInformationText, NegativeZeroLosesItsSignAndATinyNegativeNumberKeepsIt)
{
    EXPECT_EQ(bevelAsText(-0.0), QStringLiteral("0.000000"));
    EXPECT_EQ(bevelAsText(-1e-9), QStringLiteral("-0.000000"));
}

TEST(ObjectInformationText, InfinitiesAndNaNHaveWords)
{
    EXPECT_EQ(bevelAsText(kInfinity), QStringLiteral("inf"));
    EXPECT_EQ(bevelAsText(-kInfinity), QStringLiteral("-inf"));
    EXPECT_EQ(bevelAsText(std::numeric_limits<double>::quiet_NaN()), QStringLiteral("nan"));
}

TEST(ObjectInformationText, InfinitiesAndNaNAreReadInAnyCase)
{
    EXPECT_THAT(decode("1:inf:+INF:-Inf"), ElementsAre(ObjectInformation{1, kInfinity, kInfinity, -kInfinity}));
    for (const char* text : {"1:nan", "1:NaN", "1:NAN"})
        EXPECT_TRUE(std::isnan(decode(text).at(0).bevelSize)) << text;
}

TEST(ObjectInformationText, OtherWordsForThemTakeTheDefault)
{
    EXPECT_THAT(decode("1:-nan:infinity:1,5"), ElementsAre(ObjectInformation{1, 5.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, NumbersThatDoNotFitADoubleTakeTheDefault)
{
    EXPECT_THAT(decode("1:1e400:-1e400:1e-400"), ElementsAre(ObjectInformation{1, 5.0, 1.0, 1.0}));
    EXPECT_THAT(decode("1:1e300:0e-999"), ElementsAre(ObjectInformation{1, 1e300, 0.0, 1.0}));
}

TEST(ObjectInformationText, AnObjectNumberBeyondTheRangeOfIntIsDropped)
{
    EXPECT_THAT(decode("2147483648:1"), IsEmpty());
    EXPECT_THAT(decode("2147483647:1"), ElementsAre(ObjectInformation{2147483647, 1.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, AnObjectNumberIsADecimalInteger)
{
    for (const char* id : {"5.0", "1e3", "0x10", "seven", "\u0667"})
        EXPECT_THAT(decode(QString::fromUtf8(id) + QStringLiteral(":1")), IsEmpty()) << id;
}

TEST(ObjectInformationText, AsciiWhiteSpaceAndAPlusAreFineInAnObjectNumber)
{
    EXPECT_THAT(decode(" \t+5\n:1"), ElementsAre(ObjectInformation{5, 1.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, ANoBreakSpaceSpoilsAnObjectNumberButNotABevel)
{
    EXPECT_THAT(decode("\u00a05:1"), IsEmpty());
    EXPECT_THAT(decode("5:\u00a01"), ElementsAre(ObjectInformation{5, 1.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, AMinusSignProperIsAMinusInABevel)
{
    EXPECT_THAT(decode("5:\u22122"), ElementsAre(ObjectInformation{5, -2.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, DigitsOfOtherScriptsAreNoNumbers)
{
    EXPECT_THAT(decode("5:\u0662"), ElementsAre(ObjectInformation{5, 5.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, ANulEndsAnObjectNumberAndSpoilsABevel)
{
    const QString nul(QChar(u'\0'));
    EXPECT_THAT(decode(QStringLiteral("5") + nul + QStringLiteral("x:1")),
                ElementsAre(ObjectInformation{5, 1.0, 1.0, 1.0}));
    EXPECT_THAT(decode(QStringLiteral("5:2") + nul + QStringLiteral("x")),
                ElementsAre(ObjectInformation{5, 5.0, 1.0, 1.0}));
}

TEST(ObjectInformationText, WhiteSpaceIsAFieldThatIsNoNumber)
{
    EXPECT_THAT(decode("7: :3; "), ElementsAre(ObjectInformation{7, 5.0, 3.0, 1.0}));
}

TEST(ObjectInformationText, TheUsersLocaleChangesNothing)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    const QString text = encodeObjectInformation({{1234, ObjectInformation{1234, 1234.5, 1.0, 1.0}}});
    const std::vector<ObjectInformation> objects = decode(text);
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(before);

    EXPECT_EQ(text, QStringLiteral("1234:1234.500000:1.000000:1.000000"));
    EXPECT_THAT(objects, ElementsAre(ObjectInformation{1234, 1234.5, 1.0, 1.0}));
}

/// A number with at most six digits after the point.
rc::Gen<double> anyMillionths()
{
    return rc::gen::map(rc::gen::inRange<std::int64_t>(-1'000'000'000'000, 1'000'000'000'000),
                        [](std::int64_t millionths) { return static_cast<double>(millionths) / 1e6; });
}

RC_GTEST_PROP(ObjectInformationTextLaws, MillionthsReadBackExactly, ())
{
    std::map<int, ObjectInformation> objects;
    for (const int id : *rc::gen::container<std::vector<int>>(rc::gen::positive<int>()))
        objects[id] = ObjectInformation{id, *anyMillionths(), *anyMillionths(), *anyMillionths()};

    std::vector<ObjectInformation> expected;
    for (const auto& [id, object] : objects)
        expected.push_back(object);
    RC_ASSERT(decode(encodeObjectInformation(objects)) == expected);
}

RC_GTEST_PROP(ObjectInformationTextLaws, OtherNumbersReadBackToHalfAMillionth, ())
{
    const auto numerator = *rc::gen::inRange<std::int64_t>(-1'000'000'000'000'000, 1'000'000'000'000'000);
    const double number = std::ldexp(static_cast<double>(numerator), -30);
    const std::vector<ObjectInformation> objects = decode(QStringLiteral("1:") + bevelAsText(number));
    RC_ASSERT(objects.size() == 1U);
    RC_ASSERT(std::abs(objects[0].bevelSize - number) <= 0.5000001e-6 + 1e-15 * std::abs(number));
}

RC_GTEST_PROP(ObjectInformationTextLaws, AnyTextIsReadAndOnceReadIsStable, ())
{
    const auto pieces = *rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>(";", ":", " ", "7", "-", "0.125", "1e9", "inf", "x", "2147483648", "\xc2\xa0"));
    QString text;
    for (const std::string& piece : pieces)
        text += QString::fromStdString(piece);

    // Writing by key drops earlier records of a repeated number; after that nothing changes.
    std::map<int, ObjectInformation> objects;
    for (const ObjectInformation& object : decode(text))
        objects[object.objectId] = object;
    const QString written = encodeObjectInformation(objects);
    std::map<int, ObjectInformation> again;
    for (const ObjectInformation& object : decode(written))
        again[object.objectId] = object;
    RC_ASSERT(encodeObjectInformation(again) == written);
}

} // namespace
