// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What reading promises, whatever the bytes are.
#include "QuarvelPersistentObj/PO_XmlReading.h"

#include <QByteArrayList>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

UT_Result<QDomDocument> parse(const QByteArray& bytes)
{
    return PO_parseDocument(bytes, QStringLiteral("my.scene"));
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

const QByteArray kGood = "<scene version=\"1\">\n  <node name=\"A &amp; B\"><x val=\"1.5\"/></node>\n</scene>\n";

} // namespace

TEST(PO_ParseDocument, GivesTheTree)
{
    const UT_Result<QDomDocument> document = parse(kGood);
    ASSERT_TRUE(document.ok());
    const QDomElement node = document->documentElement().firstChildElement();
    EXPECT_EQ(PO_attribute(node, QStringLiteral("name")), QStringLiteral("A & B"));
    EXPECT_EQ(PO_doubleAttribute(node.firstChildElement(), QStringLiteral("val")), 1.5);
}

TEST(PO_ParseDocument, SaysFileLineAndReason)
{
    const UT_Result<QDomDocument> document = parse("<a>\n<b>\n</a>\n");
    ASSERT_FALSE(document.ok());
    EXPECT_TRUE(document.error().text.startsWith(QStringLiteral("my.scene, line 3: ")))
        << document.error().text.toStdString();
}

TEST(PO_ParseDocument, RefusesEveryTruncation)
{
    for (qsizetype length = 0; length < kGood.size() - 1; ++length)
        EXPECT_FALSE(parse(kGood.left(length)).ok()) << length;
}

TEST(PO_ParseDocument, RefusesDocumentTypesAndTheirEntities)
{
    const QByteArray bomb =
        "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]><x>&b;</x>";
    EXPECT_FALSE(parse(bomb).ok());
    EXPECT_FALSE(parse("<!DOCTYPE x SYSTEM \"file:///etc/passwd\"><x/>").ok());
    EXPECT_FALSE(parse("<x>&undeclared;</x>").ok());
}

TEST(PO_ParseDocument, RefusesElementsNestedTooDeeply)
{
    EXPECT_TRUE(parse(nested(200)).ok());
    EXPECT_FALSE(parse(nested(201)).ok());
    EXPECT_FALSE(parse(nested(1000000)).ok());
}

TEST(PO_ParseDocument, RefusesWhatIsNoUtf8)
{
    EXPECT_FALSE(parse("<a n=\"\xff\xfe\x80\"/>").ok());
}

TEST(PO_ParseDocument, RefusesElementsWithTooManyAttributesWhateverStandsBefore)
{
    const auto with = [](int count) {
        QByteArray attributes;
        for (int i = 0; i < count; ++i)
            attributes += " a" + QByteArray::number(i) + "='>'";
        return attributes;
    };
    EXPECT_TRUE(parse("<a" + with(1000) + "><b" + with(1000) + "/></a>").ok());
    for (const QByteArray& before : QByteArrayList{"<a>", "<!-- don't --><a>", "<?x ' ?><a>", "<a><![CDATA[ ' < ]]>",
                                                   "<a b=\"'\">", "<a><!----><b/>it's \""}) {
        const auto document = parse("\n" + before + "\n<c" + with(200000) + "/></a>");
        ASSERT_FALSE(document.ok());
        EXPECT_TRUE(document.error().text.contains(QStringLiteral("line 3: an element has more than 1000 attributes")))
            << qPrintable(document.error().text);
    }
    EXPECT_TRUE(parse("<a><!-- " + QByteArray(5000, '=') + " -->" + QByteArray(5000, '=') + "</a>").ok());
}

TEST(PO_ParseDocument, RefusesMoreElementsAndAttributesThanItIsTold)
{
    const QByteArray bytes = "<a><b c='' d=''/><b/></a>";
    EXPECT_TRUE(PO_parseDocument(bytes, QString(), 5).ok());
    EXPECT_FALSE(PO_parseDocument(bytes, QString(), 4).ok());
}

TEST(PO_ParseDocument, RefusesOtherEncodings)
{
    // UTF-16 would hide brackets and quotes from searches for bytes.
    EXPECT_FALSE(parse(QByteArray::fromHex("fffe3c0061002f003e00")).ok());
}

RC_GTEST_PROP(PO_ParseDocument, SurvivesFlippedBytes, ())
{
    QByteArray bytes = kGood;
    const int flips = *rc::gen::inRange(1, 5);
    for (int i = 0; i < flips; ++i)
        bytes[*rc::gen::inRange<qsizetype>(0, bytes.size())] = *rc::gen::arbitrary<char>();
    const UT_Result<QDomDocument> document = parse(bytes);
    if (!document.ok())
        RC_ASSERT(!document.error().text.isEmpty());
}

TEST(PO_Attribute, GivesTheFallbackWhenMissing)
{
    const UT_Result<QDomDocument> document = parse("<a n=\"\" i=\"7\" b=\"true\" bad=\"x\"/>");
    const QDomElement element = document->documentElement();
    EXPECT_EQ(PO_attribute(element, QStringLiteral("missing"), QStringLiteral("fallback")), QStringLiteral("fallback"));
    EXPECT_EQ(PO_attribute(element, QStringLiteral("n"), QStringLiteral("fallback")), QString());
    EXPECT_EQ(PO_intAttribute(element, QStringLiteral("i")), 7);
    EXPECT_EQ(PO_boolAttribute(element, QStringLiteral("b")), true);
    EXPECT_FALSE(PO_intAttribute(element, QStringLiteral("bad")));
    EXPECT_FALSE(PO_doubleAttribute(element, QStringLiteral("missing")));
}
