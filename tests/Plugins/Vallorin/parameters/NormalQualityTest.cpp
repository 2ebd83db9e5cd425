// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The quality of normals as an attribute: its values, how it is read and written, whom it notifies.
#include "parameters/NormalQuality.h"

#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelCommand/CO_Command.h"
#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "parameters/VallorinImpl.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

const AT_AttrMeta kMeta(QStringLiteral("NormalQuality"), QStringLiteral("Normal Map Quality"));

/// Has the same value at every frame.
class Constant : public AT_ScalarSimpleAttrSurrogate
{
public:
    explicit Constant(double constant) : _constant(constant) {}
    std::optional<double> value(double) const override { return _constant; }

private:
    double _constant;
};

class CountingListener : public XUListener
{
public:
    void told(XUTeller&) override { ++count; }
    int count = 0;
};

/// Records which of its operations an attribute calls.
class NotingVisitor : public AT_AttrVisitor
{
public:
    explicit NotingVisitor(bool takesDynamic) : _takesDynamic(takesDynamic) {}

    bool visitDynamic(const UT_DynKey& key, AT_Attr& attr) override
    {
        dynamicKey = &key;
        dynamicAttr = &attr;
        return _takesDynamic;
    }
    void visitEnum(AT_EnumAttrBase& attr) override { enumAttr = &attr; }

    const UT_DynKey* dynamicKey = nullptr;
    const AT_Attr* dynamicAttr = nullptr;
    const AT_Attr* enumAttr = nullptr;

private:
    bool _takesDynamic;
};

class NormalQuality : public testing::Test
{
protected:
    static bool load(Vallorin::NormalQuality& attr, const char* xml)
    {
        const UT_Result<QDomDocument> document = PO_parseDocument(QByteArray(xml), QStringLiteral("test"));
        return document.ok() && attr.parseXml(document->documentElement(), nullptr);
    }

    QString saved() const { return quality.toXml().trimmed(); }

    Vallorin::NormalQuality quality{kMeta};
};

TEST_F(NormalQuality, StartsLow)
{
    EXPECT_EQ(quality.localValue(), LOW_NORMAL_QUALITY);
    EXPECT_EQ(quality.localInt(), 0);
    EXPECT_EQ(quality.displayText(1.0), QStringLiteral("Low"));
    EXPECT_EQ(quality.formatVersion(), 1);
}

TEST_F(NormalQuality, HasThreeValuesInAscendingOrder)
{
    const auto [first, last] = quality.values();
    ASSERT_EQ(std::distance(first, last), 3);
    const char* const keywords[] = {"LOW_NORMAL_QUALITY", "MEDIUM_NORMAL_QUALITY", "HIGH_NORMAL_QUALITY"};
    const char* const labels[] = {"Low", "Medium", "High"};
    int i = 0;
    for (auto row = first; row != last; ++row, ++i) {
        EXPECT_EQ(row->first, i);
        EXPECT_EQ(row->second.keyword, QString::fromLatin1(keywords[i]));
        EXPECT_EQ(row->second.label, QString::fromLatin1(labels[i]));
        EXPECT_FALSE(row->second.flag);
    }
}

TEST_F(NormalQuality, IsWrittenAsItsKeywordWithoutVersion)
{
    quality.setLocalValue(HIGH_NORMAL_QUALITY);
    EXPECT_EQ(saved(), QStringLiteral("<NormalQuality val=\"HIGH_NORMAL_QUALITY\"/>"));
}

TEST_F(NormalQuality, AValueThatIsNotInTheTableIsWrittenAsAnEmptyText)
{
    quality.setLocalInt(7);
    EXPECT_EQ(saved(), QStringLiteral("<NormalQuality val=\"\"/>"));
    EXPECT_EQ(quality.displayText(1.0), QString());
}

TEST_F(NormalQuality, AnElementWithoutVersionIsOfVersionOne)
{
    ASSERT_TRUE(load(quality, "<NormalQuality version=\"3\" val=\"LOW_NORMAL_QUALITY\"/>"));
    ASSERT_TRUE(load(quality, "<NormalQuality val=\"MEDIUM_NORMAL_QUALITY\"/>"));
    EXPECT_EQ(quality.formatVersion(), 1);
    EXPECT_EQ(quality.localValue(), MEDIUM_NORMAL_QUALITY);
}

TEST_F(NormalQuality, AVersionIsReadAndWrittenBack)
{
    ASSERT_TRUE(load(quality, "<NormalQuality version=\"2\" val=\"HIGH_NORMAL_QUALITY\"/>"));
    EXPECT_EQ(quality.formatVersion(), 2);
    EXPECT_EQ(quality.localValue(), HIGH_NORMAL_QUALITY);
    EXPECT_EQ(quality.displayText(1.0), QStringLiteral("High")) << "all versions know the same values";
    EXPECT_EQ(saved(), QStringLiteral("<NormalQuality val=\"HIGH_NORMAL_QUALITY\" version=\"2\"/>"));
}

TEST_F(NormalQuality, AVersionThatIsNoIntegerIsIgnored)
{
    for (const char* xml : {"<NormalQuality version=\"two\" val=\"HIGH_NORMAL_QUALITY\"/>",
                            "<NormalQuality version=\"2.5\" val=\"HIGH_NORMAL_QUALITY\"/>",
                            "<NormalQuality version=\"\" val=\"HIGH_NORMAL_QUALITY\"/>"}) {
        load(quality, xml);
        EXPECT_EQ(quality.formatVersion(), 1) << xml;
        EXPECT_EQ(quality.localValue(), HIGH_NORMAL_QUALITY) << xml;
    }
}

TEST_F(NormalQuality, AnUnknownKeywordLeavesTheValue)
{
    quality.setLocalValue(MEDIUM_NORMAL_QUALITY);
    EXPECT_FALSE(load(quality, "<NormalQuality val=\"ULTRA\"/>"));
    EXPECT_EQ(quality.localValue(), MEDIUM_NORMAL_QUALITY);
}

TEST_F(NormalQuality, SettingTheCurrentValueTellsNobody)
{
    CountingListener listener;
    quality.addListener(listener);
    EXPECT_FALSE(quality.setLocalValue(LOW_NORMAL_QUALITY));
    EXPECT_EQ(listener.count, 0);
    EXPECT_TRUE(quality.setLocalValue(HIGH_NORMAL_QUALITY));
    EXPECT_EQ(listener.count, 1);
}

TEST_F(NormalQuality, ASurrogateDrivesWhatIsShownButNotWhatIsWritten)
{
    quality.setSurrogate(UT_makeShared<Constant>(2.0));
    EXPECT_EQ(quality.value(), HIGH_NORMAL_QUALITY);
    EXPECT_EQ(quality.displayText(1.0), QStringLiteral("High"));
    EXPECT_EQ(saved(), QStringLiteral("<NormalQuality val=\"LOW_NORMAL_QUALITY\"/>"));
}

TEST_F(NormalQuality, EqualityComparesTheEffectiveValues)
{
    Vallorin::NormalQuality other(kMeta);
    other.setLocalValue(HIGH_NORMAL_QUALITY);
    EXPECT_FALSE(quality.equals(other));
    quality.setSurrogate(UT_makeShared<Constant>(2.0));
    EXPECT_TRUE(quality.equals(other));
}

TEST_F(NormalQuality, ARowIsFoundByItsExactLabelOrKeyword)
{
    ASSERT_NE(quality.findRow(QStringLiteral("Medium")), nullptr);
    EXPECT_EQ(quality.findRow(QStringLiteral("Medium"))->first, 1);
    ASSERT_NE(quality.findRow(QStringLiteral("HIGH_NORMAL_QUALITY")), nullptr);
    EXPECT_EQ(quality.findRow(QStringLiteral("HIGH_NORMAL_QUALITY"))->first, 2);
    EXPECT_EQ(quality.findRow(QStringLiteral("medium")), nullptr);
    EXPECT_EQ(quality.findRow(QString()), nullptr);
}

TEST_F(NormalQuality, AKeywordSetsTheValueAndALabelDoesNot)
{
    EXPECT_TRUE(quality.setByKeyword(QStringLiteral("HIGH_NORMAL_QUALITY")));
    EXPECT_EQ(quality.localValue(), HIGH_NORMAL_QUALITY);
    EXPECT_FALSE(quality.setByKeyword(QStringLiteral("Low")));
    EXPECT_FALSE(quality.setByKeyword(QStringLiteral("low_normal_quality")));
    EXPECT_EQ(quality.localValue(), HIGH_NORMAL_QUALITY);
}

TEST_F(NormalQuality, ATextIsAcceptedFirstAndAppliedOnlyOnRequest)
{
    EXPECT_TRUE(quality.parseText(QStringLiteral("high"), false));
    EXPECT_EQ(quality.localValue(), LOW_NORMAL_QUALITY);
    EXPECT_TRUE(quality.parseText(QStringLiteral("high"), true));
    EXPECT_EQ(quality.localValue(), HIGH_NORMAL_QUALITY);
    EXPECT_FALSE(quality.parseText(QStringLiteral("High"), true)) << "it is no change";
    EXPECT_FALSE(quality.parseText(QStringLiteral("higher"), false));
    EXPECT_FALSE(quality.parseText(QStringLiteral("higher"), true));
    EXPECT_EQ(quality.localValue(), HIGH_NORMAL_QUALITY);
}

TEST_F(NormalQuality, ACopyCommandTakesAnotherAttributesValue)
{
    Vallorin::NormalQuality other(kMeta);
    EXPECT_EQ(quality.createCopyCmd(other), nullptr) << "the values are equal";
    other.setLocalValue(MEDIUM_NORMAL_QUALITY);
    const std::unique_ptr<CO_Command> command(quality.createCopyCmd(other));
    ASSERT_NE(command, nullptr);
    EXPECT_NE(dynamic_cast<AT_EnumAttrBase::SetLocalValueCmd*>(command.get()), nullptr);
    command->execute();
    EXPECT_EQ(quality.localValue(), MEDIUM_NORMAL_QUALITY);
    command->undo();
    EXPECT_EQ(quality.localValue(), LOW_NORMAL_QUALITY);
}

TEST_F(NormalQuality, ACopyNeedsTheSameMetadata)
{
    const AT_AttrMeta otherMeta(QStringLiteral("NormalQuality"), QStringLiteral("Normal Map Quality"));
    Vallorin::NormalQuality other(otherMeta);
    other.setLocalValue(MEDIUM_NORMAL_QUALITY);
    EXPECT_EQ(quality.createCopyCmd(other), nullptr);
}

TEST_F(NormalQuality, AVisitorIsOfferedTheDynamicOperationFirst)
{
    NotingVisitor willing(true);
    quality.accept(willing);
    EXPECT_EQ(willing.dynamicKey, &Vallorin::NormalQuality::dynKey());
    EXPECT_EQ(willing.dynamicAttr, &quality);
    EXPECT_EQ(willing.enumAttr, nullptr);

    NotingVisitor unwilling(false);
    quality.accept(unwilling);
    EXPECT_EQ(unwilling.dynamicAttr, &quality);
    EXPECT_EQ(unwilling.enumAttr, &quality);
}

} // namespace
