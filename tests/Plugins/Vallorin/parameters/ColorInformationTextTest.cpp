// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The text of the colour table: its exact form, how leniently it is read, and that written text reads back.
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "parameters/VallorinAttributes.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using VallorinAttributes::ColorInformation;
using VallorinAttributes::encodeColorInformation;
using VallorinAttributes::getColorInformation;

const QString kId = QStringLiteral("00000000000000c1");
const CM_ColorId_t kColour(0xC1);

std::vector<ColorInformation> decode(const QString& text)
{
    std::vector<ColorInformation> colours;
    getColorInformation(text, colours);
    return colours;
}

/// Decodes an entry as the third part of a text and returns its record.
ColorInformation decodeThird(const QString& entry)
{
    const std::vector<ColorInformation> colours = decode(QStringLiteral("A:1:a;B:2:b;") + entry);
    return colours.size() == 3 ? colours[2] : ColorInformation{CM_ColorId_t(), -1, QStringLiteral("no third record")};
}

ColorInformation record(const CM_ColorId_t& id, int value, const QString& name)
{
    return ColorInformation{id, value, name};
}

TEST(ColorInformationText, ARecordStartsAsNullIdFullAddingAndNoName)
{
    EXPECT_EQ(ColorInformation(), record(UT_Id(), 255, QString()));
}

TEST(ColorInformationText, TheEmptyTextIsTheEmptyList)
{
    EXPECT_TRUE(decode(QString()).empty());
    EXPECT_EQ(encodeColorInformation({}), QString());
}

TEST(ColorInformationText, ReadingClearsTheListFirst)
{
    std::vector<ColorInformation> colours = {record(kColour, 1, QStringLiteral("old"))};
    getColorInformation(QString(), colours);
    EXPECT_TRUE(colours.empty());
}

TEST(ColorInformationText, AnEntryIsIdLevelAndNameInListOrder)
{
    EXPECT_EQ(encodeColorInformation({record(CM_ColorId_t(0xFEDCBA9876543210), -7, QStringLiteral("Größe")),
                                      record(kColour, 255, QStringLiteral("Red"))}),
              QStringLiteral("fedcba9876543210:-7:Größe;00000000000000c1:255:Red"));
}

TEST(ColorInformationText, EmptyPartsAreNotCounted)
{
    const std::vector<ColorInformation> colours = decode(QStringLiteral(";;A:10;;B:20;;"));
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[0], record(CM_ColorId_t(), 10, QStringLiteral("Colour 0")));
    EXPECT_EQ(colours[1], record(CM_ColorId_t(), 20, QStringLiteral("Colour 1")));
}

TEST(ColorInformationText, AnIdAloneReadsFullAddingAndANumberedName)
{
    EXPECT_EQ(decodeThird(kId), record(kColour, 255, QStringLiteral("Colour 2")));
}

TEST(ColorInformationText, AnIdAndALevelReadANumberedName)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":7")), record(kColour, 7, QStringLiteral("Colour 2")));
}

TEST(ColorInformationText, AnEmptyMiddleFieldMakesTheNameTheLevel)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral("::Blue")), record(kColour, 0, QStringLiteral("Colour 2")));
}

TEST(ColorInformationText, ALevelThatIsNoNumberReadsZero)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":abc:Blue")), record(kColour, 0, QStringLiteral("Blue")));
}

TEST(ColorInformationText, LevelsAreNotClamped)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":300:X")), record(kColour, 300, QStringLiteral("X")));
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":-2147483648:X")).value, std::numeric_limits<int>::min());
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":2147483647:X")).value, std::numeric_limits<int>::max());
}

TEST(ColorInformationText, FieldsAfterTheThirdAreIgnored)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":7:Red:extra")), record(kColour, 7, QStringLiteral("Red")));
}

TEST(ColorInformationText, APartOfColonsAloneYieldsNothingButIsCounted)
{
    const std::vector<ColorInformation> colours = decode(QStringLiteral("A:1;:;::;B:2"));
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[0].name, QStringLiteral("Colour 0"));
    EXPECT_EQ(colours[1].name, QStringLiteral("Colour 3"));
}

TEST(ColorInformationText, AColourListedTwiceStaysTwice)
{
    const std::vector<ColorInformation> colours = decode(kId + QStringLiteral(":1:a;") + kId + QStringLiteral(":2:b"));
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[0], record(kColour, 1, QStringLiteral("a")));
    EXPECT_EQ(colours[1], record(kColour, 2, QStringLiteral("b")));
}

TEST(ColorInformationText, AnUnreadableIdRepeatsTheOneBefore)
{
    const std::vector<ColorInformation> colours = decode(QStringLiteral("zz:1;") + kId + QStringLiteral(":2;zz:3"));
    ASSERT_EQ(colours.size(), 3U);
    EXPECT_EQ(colours[0].colorId, CM_ColorId_t());
    EXPECT_EQ(colours[1].colorId, kColour);
    EXPECT_EQ(colours[2].colorId, kColour);
}

TEST(ColorInformationText, APartOfColonsAloneDoesNotResetTheId)
{
    const std::vector<ColorInformation> colours = decode(kId + QStringLiteral(";:;zz"));
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[1].colorId, kColour);
}

TEST(ColorInformationText, IdsAreSixteenLowerCaseHexadecimalDigits)
{
    for (const char* other : {"00000000000000C1", "0000000000000c1", "000000000000000c1", " 00000000000000c1", "0xc1"})
        EXPECT_EQ(decode(QString::fromLatin1(other)).at(0).colorId, CM_ColorId_t()) << other;
}

TEST(ColorInformationText, ALevelBeyondTheRangeOfIntReadsZero)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":2147483648:X")).value, 0);
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":-2147483649:X")).value, 0);
}

TEST(ColorInformationText, OnlyDecimalIntegersAreLevels)
{
    for (const char* level : {"5.0", "1e3", "0x10", "5 5", "five"})
        EXPECT_EQ(decodeThird(kId + u':' + QString::fromLatin1(level) + QStringLiteral(":X")).value, 0) << level;
}

TEST(ColorInformationText, LevelsMayCarryAsciiWhiteSpaceAndASign)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(": \t+5\n:X")).value, 5);
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":-5:X")).value, -5);
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":\u00a05:X")).value, 0) << "a no-break space is not trimmed";
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":\u0665:X")).value, 0) << "digits are ASCII";
}

TEST(ColorInformationText, ALevelEndsAtANulCharacter)
{
    EXPECT_EQ(decodeThird(kId + QStringLiteral(":5") + QChar(u'\0') + QStringLiteral("x:X")).value, 5);
}

TEST(ColorInformationText, WhiteSpaceIsAPartAndAField)
{
    const std::vector<ColorInformation> colours = decode(QStringLiteral(" ;A: : "));
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[0], record(CM_ColorId_t(), 255, QStringLiteral("Colour 0")));
    EXPECT_EQ(colours[1], record(CM_ColorId_t(), 0, QStringLiteral(" ")));
}

TEST(ColorInformationText, AnEmptyNameReadsBackAsANumberedOne)
{
    const QString text = encodeColorInformation({record(kColour, 7, QString())});
    EXPECT_EQ(text, kId + QStringLiteral(":7:"));
    EXPECT_EQ(decode(text).at(0), record(kColour, 7, QStringLiteral("Colour 0")));
}

TEST(ColorInformationText, SeparatorsInANameAreNotEscaped)
{
    const QString text = encodeColorInformation({record(kColour, 7, QStringLiteral("a:b;c"))});
    EXPECT_EQ(text, kId + QStringLiteral(":7:a:b;c"));
    const std::vector<ColorInformation> colours = decode(text);
    ASSERT_EQ(colours.size(), 2U);
    EXPECT_EQ(colours[0].name, QStringLiteral("a"));
    EXPECT_EQ(colours[1].name, QStringLiteral("Colour 1"));
}

TEST(ColorInformationText, ANameIsWrittenUpToItsFirstNul)
{
    const QString name = QStringLiteral("Re") + QChar(u'\0') + QStringLiteral("d");
    EXPECT_EQ(encodeColorInformation({record(kColour, 7, name)}), kId + QStringLiteral(":7:Re"));
}

TEST(ColorInformationText, ANameLosesALeadingByteOrderMark)
{
    EXPECT_EQ(encodeColorInformation({record(kColour, 7, QStringLiteral("\ufeffRed"))}),
              kId + QStringLiteral(":7:Red"));
}

TEST(ColorInformationText, AnUnpairedSurrogateInANameBecomesAQuestionMark)
{
    const QString name = QStringLiteral("a") + QChar(0xD800) + QStringLiteral("b");
    EXPECT_EQ(encodeColorInformation({record(kColour, 7, name)}), kId + QStringLiteral(":7:a?b"));
}

/// Names that survive: any characters except the two separators, NUL and surrogates.
rc::Gen<QString> anyName()
{
    const auto character = rc::gen::suchThat(rc::gen::inRange<char32_t>(1, 0x10FFFF), [](char32_t c) {
        return c != U':' && c != U';' && c != 0xFEFF && (c < 0xD800 || c > 0xDFFF);
    });
    return rc::gen::map(rc::gen::nonEmpty(rc::gen::container<std::u32string>(character)),
                        [](const std::u32string& characters) { return QString::fromStdU32String(characters); });
}

RC_GTEST_PROP(ColorInformationTextLaws, WhatIsWrittenReadsBack,
              (const std::vector<std::pair<std::uint64_t, std::int32_t>>& rows))
{
    std::vector<ColorInformation> colours;
    for (const auto& [id, value] : rows)
        colours.push_back(record(CM_ColorId_t(id), value, *anyName()));
    RC_ASSERT(decode(encodeColorInformation(colours)) == colours);
}

RC_GTEST_PROP(ColorInformationTextLaws, AnyTextIsReadAndOnceReadIsStable, ())
{
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        ";", ":", " ", "7", "-", "x", "00000000000000c1", "2147483648", "Red", "\xc2\xa0"));
    QString text;
    for (const std::string& piece : pieces)
        text += QString::fromStdString(piece);
    const std::vector<ColorInformation> once = decode(text);
    RC_ASSERT(once.size() <= static_cast<std::size_t>(text.split(u';', Qt::SkipEmptyParts).size()));
    RC_ASSERT(decode(encodeColorInformation(once)) == once);
}

} // namespace
