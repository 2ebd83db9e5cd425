// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What texts and numbers of files promise.
#include "QuarvelPersistentObj/PO_XmlText.h"

#include "Host/QuarvelPersistentObj/AnyValues.h"

#include <QLocale>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <clocale>

namespace {

QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

TEST(PO_Escape, LeavesWhatXmlCanHold)
{
    const QString text = QString::fromUtf8("tab\t line\n <&> _x _y0041_ _x41_ _x00g1_ \U0001F600 \u00e9");
    EXPECT_EQ(PO_escape(text), text);
}

TEST(PO_Escape, WritesTheCodeUnitInHexadecimal)
{
    EXPECT_EQ(PO_escape(QString(QChar(0x1b))), latin("_x001B_"));
    EXPECT_EQ(PO_escape(QString(QChar(0))), latin("_x0000_"));
    EXPECT_EQ(PO_escape(latin("a\rb")), latin("a_x000D_b"));
    EXPECT_EQ(PO_escape(QString(QChar(0xffff))), latin("_xFFFF_"));
}

TEST(PO_Escape, TakesSurrogatesWithoutPartner)
{
    EXPECT_EQ(PO_escape(QString(QChar(0xd83d))), latin("_xD83D_"));
    EXPECT_EQ(PO_escape(QString(QChar(0xde00)) + QChar(0xd83d)), latin("_xDE00__xD83D_"));
}

TEST(PO_Escape, TakesTheUnderscoreOfWhatLooksLikeAnEscape)
{
    EXPECT_EQ(PO_escape(latin("_x0041_")), latin("_x005F_x0041_"));
    EXPECT_EQ(PO_unescape(latin("_x005F_x0041_")), latin("_x0041_"));
}

TEST(PO_Escape, IsNotFooledByAnEscapeThatFollows)
{
    const QString text = latin("_x0041") + QChar(1);
    EXPECT_EQ(PO_unescape(PO_escape(text)), text);
}

TEST(PO_Unescape, LeavesWhatIsNoEscape)
{
    for (const char* text : {"_x00_", "_x004_", "_x00ff_", "x0041_", "_X0041_", "_x0041", "__", "_"})
        EXPECT_EQ(PO_unescape(latin(text)), latin(text));
}

RC_GTEST_PROP(PO_Escape, ComesBackAsTheSameText, ())
{
    const QString text = *AnyValues::text();
    RC_ASSERT(PO_unescape(PO_escape(text)) == text);
}

TEST(PO_FormatDouble, WritesTheFewestDigits)
{
    EXPECT_EQ(PO_formatDouble(0.0), latin("0"));
    EXPECT_EQ(PO_formatDouble(-0.0), latin("-0"));
    EXPECT_EQ(PO_formatDouble(1.0), latin("1"));
    EXPECT_EQ(PO_formatDouble(0.1), latin("0.1"));
    EXPECT_EQ(PO_formatDouble(-2.5), latin("-2.5"));
    EXPECT_EQ(PO_formatDouble(100000.0), latin("100000"));
    EXPECT_EQ(PO_formatDouble(0.1 + 0.2), latin("0.30000000000000004"));
}

TEST(PO_FormatDouble, TakesExponentsFarFromOne)
{
    EXPECT_EQ(PO_formatDouble(1e-5), latin("0.00001"));
    EXPECT_EQ(PO_formatDouble(1e-6), latin("1e-06"));
    EXPECT_EQ(PO_formatDouble(1e14), latin("100000000000000"));
    EXPECT_EQ(PO_formatDouble(1e15), latin("1e+15"));
    EXPECT_EQ(PO_formatDouble(5e-324), latin("5e-324"));
    EXPECT_EQ(PO_formatDouble(1.7976931348623157e308), latin("1.7976931348623157e+308"));
}

TEST(PO_FormatDouble, NamesWhatIsNoNumber)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(PO_formatDouble(kInfinity), latin("inf"));
    EXPECT_EQ(PO_formatDouble(-kInfinity), latin("-inf"));
    EXPECT_EQ(PO_formatDouble(std::copysign(nan, -1.0)), latin("nan"));
    EXPECT_EQ(PO_parseDouble(latin("-inf")), -kInfinity);
    EXPECT_TRUE(std::isnan(PO_parseDouble(latin("nan")).value()));
}

RC_GTEST_PROP(PO_FormatDouble, ReadsBackAsTheSameBits, ())
{
    const double value = *AnyValues::number();
    const std::optional<double> back = PO_parseDouble(PO_formatDouble(value));
    RC_ASSERT(back.has_value());
    RC_ASSERT(std::bit_cast<std::uint64_t>(*back) == std::bit_cast<std::uint64_t>(value));
}

TEST(PO_FormatDouble, DoesNotCareForTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const char* german = std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(PO_formatDouble(1234.5), latin("1234.5"));
    EXPECT_EQ(PO_parseDouble(latin("1234.5")), 1234.5);
    EXPECT_FALSE(PO_parseDouble(latin("1234,5")));
    if (german)
        std::setlocale(LC_ALL, "C");
    QLocale::setDefault(before);
}

TEST(PO_ParseDouble, RefusesWhatIsNoDecimalNumber)
{
    for (const char* text : {"", " 1", "1 ", "+1", "0x10", "1e", "e5", ".", "-", "1,5", "infinity", "-nan", "INF",
                             "1e400", "--1", "1.2.3", "12px"})
        EXPECT_FALSE(PO_parseDouble(latin(text))) << text;
    EXPECT_FALSE(PO_parseDouble(QString::fromUtf8("\u0661")));
    EXPECT_FALSE(PO_parseDouble(latin("5") + QChar(0)));
}

TEST(PO_ParseInt, TakesDecimalIntegersThatFit)
{
    EXPECT_EQ(PO_parseInt(latin("2147483647")), 2147483647);
    EXPECT_EQ(PO_parseInt(latin("-2147483648")), std::numeric_limits<int>::min());
    for (const char* text : {"", "2147483648", "-2147483649", "1.0", " 1", "1 ", "+1", "1e3", "-", "0x1"})
        EXPECT_FALSE(PO_parseInt(latin(text))) << text;
}

TEST(PO_ParseBool, TakesWordsAndDigits)
{
    EXPECT_EQ(PO_parseBool(PO_formatBool(true)), true);
    EXPECT_EQ(PO_parseBool(PO_formatBool(false)), false);
    EXPECT_EQ(PO_parseBool(latin("1")), true);
    EXPECT_EQ(PO_parseBool(latin("0")), false);
    EXPECT_FALSE(PO_parseBool(latin("TRUE")));
    EXPECT_FALSE(PO_parseBool(latin("")));
}
