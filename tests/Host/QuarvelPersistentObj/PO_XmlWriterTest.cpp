// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The form of written XML, and that it reads back.
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"

#include "Host/QuarvelPersistentObj/AnyValues.h"

#include <QBuffer>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

class Sample : public PIO_XmlWritable
{
public:
    QString getXmlElementName() const override { return QStringLiteral("sample"); }
    void writeXmlAttributes(PO_XmlWriter& writer) const override
    {
        writer.attribute(kPIO_attributeValue, "text");
        writer.attribute(QStringLiteral("flag"), true);
        writer.attribute(QStringLiteral("count"), 3);
        writer.attribute(QStringLiteral("size"), 0.5);
        writer.attribute(QStringLiteral("big"), std::int64_t{1} << 40);
    }
    void writeXmlSubnodes(PO_XmlWriter& writer) const override
    {
        writer.startElement(QStringLiteral("inner"));
        writer.endElement();
    }
};

class Bare : public PIO_XmlWritable
{
public:
    QString getXmlElementName() const override { return QStringLiteral("bare"); }
};

QString readBack(const QString& xml, const QString& attribute)
{
    UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    return document ? PO_attribute(document->documentElement(), attribute) : QString();
}

class FullDisk : public QIODevice
{
protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override { return -1; }
};

} // namespace

TEST(PIO_XmlWritable, WritesStartAttributesSubnodesAndEnd)
{
    EXPECT_EQ(Sample().toXml().trimmed(),
              QStringLiteral("<sample big=\"1099511627776\" count=\"3\" flag=\"true\" size=\"0.5\" val=\"text\">\n"
                             "  <inner/>\n"
                             "</sample>"));
}

TEST(PIO_XmlWritable, WritesAnElementByItselfUnlessToldMore)
{
    EXPECT_EQ(Bare().toXml().trimmed(), QStringLiteral("<bare/>"));
}

TEST(PO_XmlWriter, WritesADocumentInUtf8)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    PO_XmlWriter writer(buffer);
    writer.startDocument();
    writer.startElement(QStringLiteral("a"));
    writer.attribute(QStringLiteral("n"), QString::fromUtf8("\u00e9"));
    writer.endDocument();
    EXPECT_EQ(buffer.data(), QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a n=\"\xc3\xa9\"/>\n"));
    EXPECT_FALSE(writer.hasError());
}

TEST(PO_XmlWriter, KeepsTheLaterOfTwoAttributesOfOneName)
{
    QString text;
    PO_XmlWriter writer(text);
    writer.startElement(QStringLiteral("a"));
    writer.attribute(QStringLiteral("n"), 1);
    writer.attribute(QStringLiteral("n"), 2);
    writer.endElement();
    EXPECT_EQ(text.trimmed(), QStringLiteral("<a n=\"2\"/>"));
}

TEST(PO_XmlWriter, SaysWhenTheDeviceRefuses)
{
    FullDisk disk;
    disk.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    PO_XmlWriter writer(disk);
    writer.startElement(QStringLiteral("a"));
    writer.endElement();
    EXPECT_TRUE(writer.hasError());
}

RC_GTEST_PROP(PO_XmlWriter, KeepsAnyTextInAnAttribute, ())
{
    const QString value = *AnyValues::text();
    QString xml;
    PO_XmlWriter writer(xml);
    writer.startElement(QStringLiteral("a"));
    writer.attribute(QStringLiteral("n"), value);
    writer.endElement();
    RC_ASSERT(readBack(xml, QStringLiteral("n")) == value);
}

RC_GTEST_PROP(PO_XmlWriter, KeepsAnyTextInsideOfAnElement, ())
{
    const QString value = *AnyValues::text();
    QString xml;
    PO_XmlWriter writer(xml);
    writer.startElement(QStringLiteral("a"));
    writer.text(value);
    writer.endElement();
    UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    RC_ASSERT(document.ok());
    RC_ASSERT(PO_text(document->documentElement()) == value);
}

TEST(PO_XmlWriter, KeepsATextOfWhiteSpaceAlone)
{
    for (const char* blank : {" ", "\n", "\t \n", "   ", "\r", "\r\n", "\u00a0", "\u2028"}) {
        QString xml;
        PO_XmlWriter writer(xml);
        writer.startElement(QStringLiteral("a"));
        writer.text(QString::fromUtf8(blank));
        writer.endElement();
        UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
        ASSERT_TRUE(document.ok());
        EXPECT_EQ(PO_text(document->documentElement()), QString::fromUtf8(blank));
    }
}

TEST(PO_UnknownXml, ComesBackByteForByte)
{
    const QString xml = QStringLiteral("<new a=\"_x0041_\" b=\"x &amp; y\" c=\"1&#10;2\">\n"
                                       "  <inner z=\"1\"/>\n"
                                       "  <text>some _x000D_ &lt;text&gt;</text>\n"
                                       "</new>");
    UT_Result<QDomDocument> document = PO_parseDocument(xml.toUtf8(), QStringLiteral("test"));
    ASSERT_TRUE(document.ok());
    PO_UnknownXml unknown;
    unknown.addElement(document->documentElement());
    QString back;
    {
        PO_XmlWriter writer(back);
        unknown.writeElements(writer);
    }
    EXPECT_EQ(back.trimmed(), xml);
}

TEST(PO_UnknownXml, KeepsAttributesAndIsEqualOnlyToTheSame)
{
    PO_UnknownXml one;
    PO_UnknownXml other;
    EXPECT_TRUE(one.isEmpty());
    one.addAttribute(QStringLiteral("a"), QStringLiteral("1"));
    EXPECT_FALSE(one.isEmpty());
    EXPECT_FALSE(one == other);
    other.addAttribute(QStringLiteral("a"), QStringLiteral("1"));
    EXPECT_TRUE(one == other);
    QString xml;
    PO_XmlWriter writer(xml);
    writer.startElement(QStringLiteral("e"));
    one.writeAttributes(writer);
    writer.endElement();
    EXPECT_EQ(xml.trimmed(), QStringLiteral("<e a=\"1\"/>"));
    one.clear();
    EXPECT_TRUE(one.isEmpty());
}
