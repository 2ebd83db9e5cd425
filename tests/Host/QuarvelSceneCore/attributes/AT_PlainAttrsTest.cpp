// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What texts, truth values, references to drawings and visitors promise.
#include "Host/QuarvelPersistentObj/AnyValues.h"
#include "Host/QuarvelSceneCore/attributes/AttrTesting.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include <rapidcheck/gtest.h>

using namespace AttrTesting;

namespace {

const AT_AttrMeta& plainMeta()
{
    static const AT_AttrMeta meta(latin("Plain"), latin("Plain"));
    return meta;
}

class StringAttr : public testing::Test
{
protected:
    AT_StringAttr text{plainMeta(), latin("start"), true, false};
};

class BoolAttr : public testing::Test
{
protected:
    AT_BoolAttr flag{plainMeta(), false};
};

class DrawingAttr : public testing::Test
{
protected:
    AT_DrawingAttr drawing{plainMeta()};
};

// Records the classes that it visits.
class Namer : public AT_AttrVisitor
{
public:
    void visitBool(AT_BoolAttr&) override { names += latin("bool "); }
    void visitString(AT_StringAttr&) override { names += latin("string "); }
    void visitDouble(AT_DoubleAttr&) override { names += latin("double "); }
    void visitInt(AT_IntAttr&) override { names += latin("int "); }
    void visitEnum(AT_EnumAttrBase&) override { names += latin("enum "); }
    void visitDrawing(AT_DrawingAttr&) override { names += latin("drawing "); }
    QString names;
};

class CatchAll : public AT_AttrVisitor
{
public:
    void visitAttr(AT_Attr&) override { ++count; }
    int count = 0;
};

void visitOneOfEach(AT_AttrVisitor& visitor)
{
    AT_BoolAttr(plainMeta(), false).accept(visitor);
    AT_StringAttr(plainMeta(), QString(), false, false).accept(visitor);
    makeScale()->accept(visitor);
    AT_IntAttr(plainMeta(), nullptr, AT_IntAttr::LINKABLE, 0).accept(visitor);
    SpeedAttr(speedMeta()).accept(visitor);
    AT_DrawingAttr(plainMeta()).accept(visitor);
}

} // namespace

TEST(AttrVisitor, IsCalledByClass)
{
    Namer namer;
    visitOneOfEach(namer);
    EXPECT_EQ(namer.names, latin("bool string double int enum drawing "));
}

TEST(AttrVisitor, CatchesEveryClassInOnePlace)
{
    CatchAll all;
    visitOneOfEach(all);
    EXPECT_EQ(all.count, 6);
}

TEST(Attr, KnowsItsNamesAndItsParent)
{
    AT_BoolAttr parent(plainMeta(), false);
    AT_BoolAttr child(speedMeta(), false, &parent);
    EXPECT_EQ(child.keyword(), latin("Speed"));
    EXPECT_EQ(child.label(), latin("Speed of it"));
    EXPECT_EQ(child.parent(), &parent);
    EXPECT_EQ(parent.parent(), nullptr);
    EXPECT_EQ(parent.node(), nullptr);
}

TEST_F(StringAttr, HasItsDefaultAndItsFlags)
{
    EXPECT_EQ(text.localValue(), latin("start"));
    EXPECT_TRUE(text.isMultiline());
    EXPECT_FALSE(text.isFilePath());
}

TEST_F(StringAttr, TellsOnlyOfRealChanges)
{
    Counter counter(text);
    EXPECT_FALSE(text.setLocalValue(latin("start")));
    EXPECT_TRUE(text.setLocalValue(latin("end")));
    EXPECT_EQ(counter.count, 1);
}

TEST_F(StringAttr, AcceptsAnyTextAsItStands)
{
    EXPECT_TRUE(text.parseText(latin(" two words "), true));
    EXPECT_EQ(text.localValue(), latin(" two words "));
    EXPECT_EQ(text.displayText(0.0), latin(" two words "));
}

RC_GTEST_PROP(StringAttrProperty, KeepsAnyTextInFiles, ())
{
    const QString value = *AnyValues::text();
    AT_StringAttr attr(plainMeta(), value, false, false);
    AT_StringAttr other(plainMeta(), value + latin("?"), false, false);
    RC_ASSERT(load(other, saved(attr)));
    RC_ASSERT(other.localValue() == value);
    RC_ASSERT(saved(other) == saved(attr));
}

RC_GTEST_PROP(StringAttrProperty, ComesBackByUndoWhateverTheText, ())
{
    const QString value = *AnyValues::text();
    AT_StringAttr attr(plainMeta(), value + latin("!"), false, false);
    EXPECT_FALSE(isCommand(attr.setValueCmd(0.0, attr.localValue())));
    checkCommand(attr, attr.setValueCmd(0.0, value));
    RC_ASSERT(attr.localValue() == value);
}

TEST_F(StringAttr, CannotBeDriven)
{
    EXPECT_FALSE(text.setSurrogate(UT_makeShared<FixedSurrogate>(1.0)));
    EXPECT_EQ(text.scalarValue(0.0), std::nullopt);
}

TEST_F(StringAttr, KeepsALinkItCannotUse)
{
    const QString linked = latin("<Plain link=\"A.B\" val=\"x\"/>");
    EXPECT_FALSE(load(text, linked));
    EXPECT_EQ(text.link(), nullptr);
    EXPECT_EQ(saved(text), linked);
}

TEST_F(StringAttr, CopiesAndComparesItsText)
{
    AT_StringAttr other(plainMeta(), latin("end"), false, false);
    EXPECT_FALSE(text.equals(other));
    checkCommand(text, text.createCopyCmd(other));
    EXPECT_TRUE(text.equals(other));
    EXPECT_FALSE(isCommand(text.createCopyCmd(AT_BoolAttr(plainMeta(), true))));
}

TEST_F(BoolAttr, WritesAndReadsWords)
{
    EXPECT_EQ(saved(flag), latin("<Plain val=\"false\"/>"));
    EXPECT_TRUE(load(flag, "<Plain val=\"true\"/>"));
    EXPECT_TRUE(flag.localValue());
    EXPECT_FALSE(load(flag, "<Plain val=\"perhaps\"/>"));
    EXPECT_TRUE(flag.localValue());
    EXPECT_TRUE(load(flag, "<Plain val=\"0\"/>"));
    EXPECT_FALSE(flag.localValue());
}

TEST_F(BoolAttr, AcceptsWhatPeopleWrite)
{
    for (const char* yes : {"true", "On", " YES ", "1"}) {
        flag.setLocalValue(false);
        EXPECT_TRUE(flag.parseText(latin(yes), true)) << yes;
        EXPECT_TRUE(flag.localValue());
    }
    for (const char* no : {"false", "Off", "no", "0"})
        EXPECT_TRUE(flag.parseText(latin(no), false)) << no;
    EXPECT_FALSE(flag.parseText(latin("maybe"), false));
    EXPECT_FALSE(flag.parseText(latin("on"), true));
    EXPECT_EQ(flag.displayText(0.0), latin("On"));
}

TEST_F(BoolAttr, IsDrivenByWhatIsNotZero)
{
    flag.setSurrogate(UT_makeShared<FixedSurrogate>(-0.25));
    EXPECT_TRUE(flag.value());
    EXPECT_FALSE(flag.localValue());
    EXPECT_EQ(flag.scalarValue(0.0), 1.0);
    EXPECT_EQ(flag.displayText(0.0), latin("On"));
    EXPECT_TRUE(flag.equals(AT_BoolAttr(plainMeta(), true)));
}

TEST_F(BoolAttr, TellsOnlyOfRealChanges)
{
    Counter counter(flag);
    EXPECT_FALSE(flag.setLocalValue(false));
    EXPECT_TRUE(flag.setLocalValue(true));
    EXPECT_EQ(counter.count, 1);
}

TEST_F(BoolAttr, IsSetAndCopiedByCommands)
{
    EXPECT_FALSE(isCommand(flag.setValueCmd(0.0, false)));
    checkCommand(flag, flag.setValueCmd(0.0, true));
    AT_BoolAttr other(plainMeta(), false);
    checkCommand(other, other.createCopyCmd(flag));
    EXPECT_TRUE(other.equals(flag));
}

TEST(ExposureSheet, ShowsADrawingUntilTheNextOneBegins)
{
    AT_ExposureSheet sheet;
    sheet.setExposure(1, latin("a"));
    sheet.setExposure(5, latin("b"));
    sheet.setExposure(8, QString());
    EXPECT_EQ(sheet.drawing(0.999), QString());
    EXPECT_EQ(sheet.drawing(1.0), latin("a"));
    EXPECT_EQ(sheet.drawing(4.999), latin("a"));
    EXPECT_EQ(sheet.drawing(5.0), latin("b"));
    EXPECT_EQ(sheet.drawing(8.0), QString());
    EXPECT_EQ(sheet.drawing(1e300), QString());
}

TEST(ExposureSheet, TakesAnyFrame)
{
    constexpr int kFirst = std::numeric_limits<int>::min();
    AT_ExposureSheet sheet;
    sheet.setExposure(kFirst, latin("a"));
    EXPECT_EQ(sheet.drawing(kFirst), latin("a"));
    EXPECT_EQ(sheet.drawing(-1e300), QString());
    EXPECT_EQ(sheet.drawing(1e300), latin("a"));
    EXPECT_EQ(sheet.drawing(std::numeric_limits<double>::quiet_NaN()), QString());
}

TEST(ExposureSheet, LetsTheOneBeforeHoldOnWhenOneIsRemoved)
{
    AT_ExposureSheet sheet;
    sheet.setExposure(1, latin("a"));
    sheet.setExposure(5, latin("b"));
    EXPECT_FALSE(sheet.removeExposure(4));
    EXPECT_TRUE(sheet.removeExposure(5));
    EXPECT_EQ(sheet.drawing(6.0), latin("a"));
}

TEST_F(DrawingAttr, WritesElementAndExposures)
{
    drawing.setElementName(latin("Hero"));
    AT_ExposureSheet sheet;
    sheet.setExposure(12, latin("b"));
    sheet.setExposure(-3, latin("a"));
    drawing.setExposures(sheet);
    EXPECT_EQ(saved(drawing), latin("<Plain val=\"Hero\">\n"
                                    "  <exposure drawing=\"a\" frame=\"-3\"/>\n"
                                    "  <exposure drawing=\"b\" frame=\"12\"/>\n"
                                    "</Plain>"));
    EXPECT_EQ(drawing.displayText(0.0), latin("Hero: a"));
    EXPECT_EQ(drawing.displayText(-4.0), latin("Hero"));
}

RC_GTEST_PROP(DrawingAttrProperty, ReadsWhatItWrote, ())
{
    AT_DrawingAttr attr(plainMeta());
    attr.setElementName(*AnyValues::text());
    AT_ExposureSheet sheet;
    for (const int frame : *rc::gen::arbitrary<std::vector<int>>())
        sheet.setExposure(frame, *AnyValues::text());
    attr.setExposures(sheet);
    AT_DrawingAttr other(plainMeta());
    other.setElementName(latin("old"));
    RC_ASSERT(load(other, saved(attr)));
    RC_ASSERT(other.getElementName() == attr.getElementName());
    RC_ASSERT(other.exposures() == attr.exposures());
    RC_ASSERT(saved(other) == saved(attr));
}

TEST_F(DrawingAttr, KeepsWhatANewerVersionWrote)
{
    const QString newer = latin("<Plain val=\"Hero\">\n"
                                "  <exposure drawing=\"a\" frame=\"1\" label=\"walk\"/>\n"
                                "  <timing mode=\"x\"/>\n"
                                "</Plain>");
    QStringList warnings;
    EXPECT_FALSE(load(drawing, newer, &warnings));
    EXPECT_EQ(drawing.drawing(2.0), latin("a"));
    EXPECT_EQ(saved(drawing), newer);
    EXPECT_EQ(warnings.size(), 2);
}

TEST_F(DrawingAttr, LeavesOutExposuresThatCannotBeRead)
{
    QStringList warnings;
    EXPECT_FALSE(load(drawing,
                      "<Plain val=\"H\"><exposure drawing=\"a\"/><exposure frame=\"1\"/>"
                      "<exposure drawing=\"a\" frame=\"1.5\"/><exposure drawing=\"b\" frame=\"2\"/></Plain>",
                      &warnings));
    EXPECT_EQ(saved(drawing), latin("<Plain val=\"H\">\n"
                                    "  <exposure drawing=\"b\" frame=\"2\"/>\n"
                                    "</Plain>"));
    EXPECT_EQ(warnings.size(), 3);
}

TEST_F(DrawingAttr, TellsOnlyOfRealChanges)
{
    Counter counter(drawing);
    EXPECT_FALSE(drawing.setElementName(QString()));
    EXPECT_FALSE(drawing.setExposures(AT_ExposureSheet()));
    EXPECT_EQ(counter.count, 0);
    EXPECT_TRUE(load(drawing, "<Plain val=\"H\"><exposure drawing=\"b\" frame=\"2\"/></Plain>"));
    EXPECT_EQ(counter.count, 1);
}

TEST_F(DrawingAttr, IsChangedByCommands)
{
    drawing.setElementName(latin("Hero"));
    checkCommand(drawing, MO_exposeCmd(drawing, 3.9, latin("a")));
    EXPECT_EQ(drawing.drawing(3.0), latin("a"));
    EXPECT_FALSE(isCommand(MO_exposeCmd(drawing, 4.0, latin("a"))));
    EXPECT_FALSE(isCommand(MO_exposeCmd(drawing, std::numeric_limits<double>::infinity(), latin("b"))));
    checkCommand(drawing, MO_exposuresCmd(drawing, AT_ExposureSheet()));
    AT_DrawingAttr other(plainMeta());
    checkCommand(other, other.createCopyCmd(drawing));
    EXPECT_TRUE(other.equals(drawing));
}
