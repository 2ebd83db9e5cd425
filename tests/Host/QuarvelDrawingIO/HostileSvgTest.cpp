// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files that are damaged or mean harm: a message or a drawing, always soon, and nothing from outside of the file.
#include "Drawings.h"

#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "TestFolder.h"

#include <QElapsedTimer>

#include <cmath>

using namespace drawings;
using testing::HasSubstr;

namespace {

// Far beyond what any of these files takes, on a slow machine under a sanitizer too: only what hangs takes this long.
constexpr qint64 kHang = 120'000; // milliseconds

constexpr const char* kSquare = "<rect x='60' width='10' height='10'/>";

std::string refusalOf(const QByteArray& data)
{
    return refusal(data).toStdString();
}

QByteArray withDoctype(const QByteArray& declarations, const QByteArray& content)
{
    return "<!DOCTYPE svg [" + declarations + "]>" + document(content);
}

} // namespace

TEST(HostileSvg, notXmlNamesTheLine)
{
    EXPECT_THAT(refusalOf("<svg xmlns='http://www.w3.org/2000/svg'>\n<g>\n</svg>"),
                testing::AllOf(HasSubstr("test.svg, line 3"), HasSubstr("not well-formed")));
    EXPECT_THAT(refusalOf(document(kSquare) + "rubbish"), HasSubstr("not well-formed"));
}

TEST(HostileSvg, otherContentsAreRefusedByName)
{
    EXPECT_THAT(refusalOf("<html><body/></html>"), HasSubstr("<html>"));
    EXPECT_THAT(refusalOf(""), HasSubstr("empty"));
    EXPECT_THAT(refusalOf("\x1f\x8b\x08"), HasSubstr("damaged or incomplete"));
    EXPECT_THAT(refusalOf(document("<g/>")), HasSubstr("nothing in it is filled or stroked"));
    EXPECT_THAT(refusalOf(QByteArray(64 * 1024 * 1024 + 1, ' ')), HasSubstr("64 MiB"));
}

TEST(HostileSvg, nothingIsReadFromOtherFiles)
{
    const TestFolder folder;
    const QByteArray name = folder
                                .write("red.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='100' height='100'>"
                                                  "<rect id='all' width='100' height='100' fill='#ff0000'/></svg>")
                                .toUtf8();
    const DIO_Drawing drawing = readDocument(
        "<?xml-stylesheet href='" + name + "'?><!DOCTYPE svg SYSTEM '" + name + "' [<!ENTITY red SYSTEM '" + name +
        "'>]>" +
        document("<style>@import url(" + name + ");</style><image width='100' height='100' href='" + name +
                 "'/><image width='100' height='100' href='file://" + name + "'/><use href='" + name +
                 "#all'/><rect width='50' height='50' fill='url(" + name + "#all)'/><foreignObject/>" + kSquare));
    ASSERT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_EQ(paintAt(drawing, 65, 5), "#000000");
    EXPECT_EQ(drawing.warnings.join(u' ').toStdString(),
              "left out: copy from another file (1), foreignObject (1), picture in a file of its own (2)");
}

TEST(HostileSvg, scriptsAndAnimationsDoNothing)
{
    const DIO_Drawing drawing = read("<script>document.documentElement.remove()</script>"
                                     "<rect width='10' height='10' fill='#ff0000' onload='alert(1)'>"
                                     "<animate attributeName='fill' to='#0000ff' dur='1s'/><set/></rect>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
}

TEST(HostileSvg, entitiesOfEditorsAreExpanded)
{
    const DIO_Drawing drawing =
        readDocument(withDoctype("<!ENTITY st0 'fill:#ff0000'><!ENTITY both '&st0;;stroke:none'>",
                                 "<rect width='10' height='10' style='&both;'/>"));
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
}

TEST(HostileSvg, aNamespaceMayBeAnEntity)
{
    const DIO_Drawing drawing =
        readDocument("<!DOCTYPE svg [<!ENTITY ns_svg 'http://www.w3.org/2000/svg'><!ENTITY ns_ai "
                     "'http://ns.adobe.com/AdobeIllustrator/10.0/'>]><svg xmlns='&ns_svg;' xmlns:x='&ns_ai;'>"
                     "<g x:layer='yes' id='One'><rect width='9' height='9'/></g></svg>");
    EXPECT_EQ(layerNames(drawing), QStringList{"One"});
}

TEST(HostileSvg, entityBombsAreRefusedAtOnce)
{
    QByteArray laughs = "<!ENTITY e0 'ha'>";
    for (int i = 1; i < 30; ++i) {
        const QByteArray before = "&e" + QByteArray::number(i - 1) + ";";
        laughs += "<!ENTITY e" + QByteArray::number(i) + " '" + before.repeated(10) + "'>";
    }
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(refusalOf(withDoctype(laughs, "<text>&e29;</text>")), HasSubstr("test.svg"));
    EXPECT_THAT(refusalOf(withDoctype(laughs, "<rect class='&e29;'/>")), HasSubstr("test.svg"));
    EXPECT_LT(timer.elapsed(), kHang);
}

TEST(HostileSvg, manyReferencesToOneLongEntityAreRefused)
{
    const QByteArray entity = "<!ENTITY a '" + QByteArray(60000, 'a') + "'>";
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(refusalOf(withDoctype(entity, "<text>" + QByteArray("&a;").repeated(100000) + "</text>")),
                HasSubstr("test.svg"));
    EXPECT_THAT(refusalOf(withDoctype(entity, "<rect class='" + QByteArray("&a;").repeated(100000) + "'/>")),
                HasSubstr("test.svg"));
    EXPECT_LT(timer.elapsed(), kHang);
}

TEST(HostileSvg, styleSheetsThatWantTooMuchAreRefused)
{
    const auto refusalOfStyle = [](const QByteArray& style, const QByteArray& content) {
        return refusalOf(document("<style>" + style + "</style>" + content));
    };
    const char* const words = "style sheets that take too long to apply";
    EXPECT_THAT(refusalOfStyle(QByteArray("a{}").repeated(300'000), kSquare), HasSubstr(words)) << "rules";
    EXPECT_THAT(refusalOfStyle(QByteArray("a,").repeated(300'000) + "a{}", kSquare), HasSubstr(words)) << "selectors";
    EXPECT_THAT(refusalOfStyle("rect{" + QByteArray("x:y;").repeated(50'000) + "}", QByteArray(kSquare).repeated(1000)),
                HasSubstr(words))
        << "declarations";
    const QByteArray worn = "<rect class='" + QByteArray("b ").repeated(500'000) + "' width='9' height='9'/>";
    EXPECT_THAT(refusalOfStyle(QByteArray(".b.c{}").repeated(1000), worn.repeated(3)), HasSubstr(words)) << "classes";
}

TEST(HostileSvg, atRulesHideNoRuleBesideThem)
{
    const DIO_Drawing drawing = read("<style>@import url(a.css);@media print{rect{fill:#0000ff}}rect{fill:#ff0000}"
                                     "@charset 'x';</style><rect width='10' height='10'/>");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
}

TEST(HostileSvg, copiesOfCopiesAreCounted)
{
    QByteArray bomb = "<defs><rect id='u0' width='1' height='1'/>";
    for (int i = 1; i < 40; ++i) {
        const QByteArray use = "<use href='#u" + QByteArray::number(i - 1) + "'/>";
        bomb += "<g id='u" + QByteArray::number(i) + "'>" + use.repeated(10) + "</g>";
    }
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(refusalOf(document(bomb + "</defs><use href='#u39'/>")), HasSubstr("copies"));
    EXPECT_LT(timer.elapsed(), kHang);
}

// Each group fades what all groups within it left of each other: without a limit for the whole drawing, this takes
// hours.
TEST(HostileSvg, deepFadesAreSimplified)
{
    constexpr int kDepth = 200;
    QByteArray content;
    for (int i = 0; i < kDepth; ++i)
        content += "<g opacity='0.9'><circle cx='" + QByteArray::number(10 + i * 37 % 80) + "' cy='" +
                   QByteArray::number(10 + i * 53 % 80) + "' r='20'/>";
    QElapsedTimer timer;
    timer.start();
    const DIO_Drawing drawing = read(content + QByteArray("</g>").repeated(kDepth));
    EXPECT_LT(timer.elapsed(), kHang);
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("too detailed"));
    EXPECT_NE(paintAt(drawing, 10, 10), "");
}

// Each clip within the other takes a twentieth of a second.
TEST(HostileSvg, clipsWhoseOutlinesCrossOftenAreSimplified)
{
    QByteArray upright;
    QByteArray level;
    for (int i = 0; i < 40; ++i) {
        upright += "M" + QByteArray::number(2 * i) + " 0h1v100h-1z";
        level += "M0 " + QByteArray::number(2 * i) + "h100v1h-100z";
    }
    const QByteArray content = "<clipPath id='u'><path d='" + upright + "'/></clipPath><clipPath id='l'><path d='" +
                               level + "'/></clipPath>" +
                               QByteArray("<g clip-path='url(#u)'><g clip-path='url(#l)'>"
                                          "<rect width='100' height='100'/></g></g>")
                                   .repeated(500);
    const DIO_Drawing drawing = read(content);
    EXPECT_EQ(shapesOf(drawing).size(), 500U);
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("clips within clips that are too detailed"));
}

// 300 clips within each other cut 1,000 squares: the file is small, what it asks for is not.
TEST(HostileSvg, whatClipsWithinClipsRepeatIsCounted)
{
    const auto number = [](int value) { return QByteArray::number(value); };
    QByteArray clips = "<clipPath id='c0'><rect width='50' height='50'/></clipPath>";
    for (int i = 1; i < 300; ++i)
        clips += "<clipPath id='c" + number(i) + "' clip-path='url(#c" + number(i - 1) +
                 ")'><rect width='50' height='50'/></clipPath>";
    const QByteArray clipped = "<rect width='9' height='9' clip-path='url(#c299)'/>";
    EXPECT_THAT(refusalOf(document(clips + clipped.repeated(1000))), HasSubstr("more than 250000 elements"));
    EXPECT_EQ(shapesOf(read(clips + clipped.repeated(20))).size(), 20U);
}

// Each group compares its 3,000 shapes in pairs to see which overlap. Those that are not compared any more fade as
// shapes that stand alone, which these do.
TEST(HostileSvg, groupsThatCompareTooManyShapesAreSimplified)
{
    constexpr int kDepth = 100;
    QByteArray squares;
    for (int i = 0; i < 3000; ++i)
        squares += "<rect x='" + QByteArray::number(i % 60) + "' y='" + QByteArray::number(i / 60) +
                   "' width='.5' height='.5'/>";
    const DIO_Drawing drawing =
        read(QByteArray("<g opacity='0.99'>").repeated(kDepth) + squares + QByteArray("</g>").repeated(kDepth));
    ASSERT_EQ(shapesOf(drawing).size(), 3000U);
    EXPECT_NEAR(shapesOf(drawing).front().opacity, std::pow(0.99, kDepth), 0.001);
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("too detailed"));
}

// There, the number of a tile plus 1 is the same number.
TEST(HostileSvg, aPatternFarFromTheOriginEnds)
{
    const DIO_Drawing drawing = read("<pattern id='p' patternUnits='userSpaceOnUse' width='1' height='1'>"
                                     "<rect width='1' height='.5' fill='red'/></pattern>"
                                     "<rect x='1e17' y='1e17' width='40' height='40' fill='url(#p)'/>"
                                     "<rect width='10' height='10'/>");
    EXPECT_GE(shapesOf(drawing).size(), 1U);
}

TEST(HostileSvg, copiesThatContainThemselvesAreLeftOut)
{
    const DIO_Drawing drawing = read("<g id='a'><rect width='10' height='10'/><use href='#a' x='20'/></g>"
                                     "<g id='b'><use href='#c'/></g><g id='c'><use href='#b'/></g>");
    EXPECT_EQ(shapesOf(drawing).size(), 1U);
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("copy of what contains the copy"));
}

TEST(HostileSvg, endlessClipsAreLeftOut)
{
    const DIO_Drawing drawing =
        read("<clipPath id='a' clip-path='url(#b)'><rect width='50' height='50' clip-path='url(#a)'/></clipPath>"
             "<clipPath id='b' clip-path='url(#a)'><rect width='50' height='50'/></clipPath>"
             "<rect width='100' height='100' clip-path='url(#a)'/>");
    EXPECT_EQ(paintAt(drawing, 25, 25), "#000000");
    EXPECT_EQ(paintAt(drawing, 75, 25), "");
}

TEST(HostileSvg, deepNestingIsRefusedOrRead)
{
    const auto nested = [](int depth) {
        return document(QByteArray("<g>").repeated(depth) + kSquare + QByteArray("</g>").repeated(depth));
    };
    EXPECT_EQ(refusal(nested(500)), "");
    EXPECT_THAT(refusalOf(nested(600)), HasSubstr("512 deep"));
    EXPECT_THAT(refusalOf(nested(1'000'000)), HasSubstr("512 deep"));
}

TEST(HostileSvg, copiesCannotNestDeeperThanTheStackBears)
{
    QByteArray chain = "<rect id='u0' width='1' height='1'/>";
    for (int i = 1; i < 5000; ++i)
        chain += "<g id='u" + QByteArray::number(i) + "'><use href='#u" + QByteArray::number(i - 1) + "'/></g>";
    EXPECT_THAT(refusalOf(document("<defs>" + chain + "</defs><use href='#u4999'/>")), HasSubstr("deep"));
}

TEST(HostileSvg, dashesNobodyCanSeeAreDrawnSolid)
{
    QElapsedTimer timer;
    timer.start();
    const DIO_Drawing drawing = read("<path d='M0 50h100' stroke='#000' stroke-width='2' stroke-dasharray='0.00001'/>");
    EXPECT_LT(timer.elapsed(), kHang);
    EXPECT_EQ(shapesOf(drawing).at(0).path.boundingRect(), QRectF(0, 49, 100, 2));
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("too finely dashed"));
}

TEST(HostileSvg, aPathThatIsCutShortIsSaid)
{
    const DIO_Drawing drawing = read("<path d='M0 0" + QByteArray("L9 0 9 9").repeated(20000) + "'/>");
    EXPECT_THAT(drawing.warnings.join(u' ').toStdString(), HasSubstr("cut short"));
    EXPECT_TRUE(read("<path d='M0 0" + QByteArray("L9 0 9 9").repeated(10000) + "'/>").warnings.empty());
}

TEST(HostileSvg, impossibleNumbersAreLeftOut)
{
    const DIO_Drawing drawing =
        read("<rect width='1e999' height='10'/><rect x='nan' width='10' height='10' fill='#f00'/>"
             "<path d='M0 0L1e308 1e308L0 1e308z'/><path d='M0 0L1e999 0L0 nan'/>"
             "<g transform='scale(1e300)'><g transform='scale(1e300)'>"
             "<rect width='1' height='1'/></g></g>"
             "<path d='M0 50h100' stroke='#000' stroke-width='1e300'/>" +
             QByteArray(kSquare));
    EXPECT_EQ(paintAt(drawing, 65, 5), "#000000");
    EXPECT_EQ(paintAt(drawing, 5, 5), "#ff0000");
    EXPECT_EQ(shapesOf(drawing).size(), 2U);
}

TEST(HostileSvg, greedyStyleSheetsAreRefused)
{
    QByteArray sheet;
    QByteArray shapes;
    for (int i = 0; i < 20000; ++i) {
        sheet += "g g rect.x{fill:red}";
        shapes += "<rect class='x' width='1' height='1'/>";
    }
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(refusalOf(document("<style>" + sheet + "</style>" + shapes)), HasSubstr("style sheets"));
    EXPECT_LT(timer.elapsed(), kHang);
}

TEST(HostileSvg, aTruncatedFileIsAlwaysRefused)
{
    const QByteArray whole = withDoctype(
        "<!ENTITY c 'fill:#ff0000'>",
        "<style>.a { fill: #00ff00 } g > .b { stroke: url(#g) }</style><defs><linearGradient id='g'><stop offset='50%' "
        "stop-color='rgb(1,2,3)'/></linearGradient><clipPath id='k'><circle r='9'/></clipPath></defs>"
        "<g inkscape:groupmode='layer' clip-path='url(#k)'><path class='a' d='M0,0 C10 20 30 40 50 60 A5 5 0 1 0 9 9z' "
        "transform='rotate(45 10 10) matrix(1 0 0 1 2 3)'/><use href='#g'/><text x='1' y='2' style='&c;'>Text "
        "<tspan>here</tspan></text><image href='data:image/png;base64,iVBORw0KGgo=' width='5' height='5'/></g>");
    ASSERT_EQ(refusal(whole), "");
    for (qsizetype size = 0; size < whole.size(); size += 10)
        ASSERT_NE(refusal(whole.left(size)), "") << size;
}

TEST(HostileSvg, aDrawingWithFlippedBytesIsReadOrRefused)
{
    const QByteArray whole =
        document("<style>.a{fill:#0f0;stroke:red}</style><g transform='scale(2) rotate(30)'>"
                 "<path class='a' d='M0,0 C10 20 30 40 50 60 A5 5 0 1 0 9 9z' stroke-dasharray='3 1'/>"
                 "</g><polygon points='1,2 3,4 5,60' stroke-width='2'/>");
    for (qsizetype i = 0; i < whole.size(); ++i) {
        for (const int flip : {1, 2, 4, 16}) {
            QByteArray damaged = whole;
            damaged[i] = static_cast<char>(damaged[i] ^ flip);
            const UT_Result<DIO_Drawing> drawing = DIO_readSvgData(damaged, QStringLiteral("test.svg"));
            ASSERT_TRUE(drawing ? !drawing->layers.empty() : !drawing.error().text.isEmpty());
        }
    }
}
