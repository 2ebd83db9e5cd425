// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "../FormDrawings.h"

using namespace form_drawings;
using enum ObjectRole;

namespace {

const QByteArray kDisc = circle(50, 50, 40, "#d22f27");

QByteArray white(const char* path)
{
    return line(path, "#ffffff", 4);
}

ObjectRole roleOfDisc(const QByteArray& marks, const QByteArray& before = {})
{
    const std::size_t place = before.isEmpty() ? 0 : countOf(before);
    const std::vector<ObjectRole> roles = rolesOf(before + kDisc + marks);
    return roles.size() > place ? roles[place] : RELIEF;
}

} // namespace

TEST(Signs, HaveABarOrHandsAcrossTheMiddle)
{
    EXPECT_EQ(roleOfDisc(rect(25, 43, 50, 14, "#ffffff")), SLAB);
    EXPECT_EQ(roleOfDisc(white("M50 25V50H30")), SLAB) << "nine o'clock";
    EXPECT_EQ(roleOfDisc({}), BODY);
    EXPECT_EQ(roleOfDisc(rect(30, 62, 40, 8, "#ffffff")), BODY) << "a mouth";
}

TEST(Signs, HaveOneLetter)
{
    const QByteArray letter = white("M40 32V68H60");
    EXPECT_EQ(roleOfDisc(letter), SLAB);
    EXPECT_EQ(roleOfDisc(letter + white("M56 26V40H70")), BODY) << "several marks beside the middle";
    EXPECT_EQ(roleOfDisc(white("M40 44V56H60")), BODY) << "small";
    EXPECT_EQ(roleOfDisc(white("M34 28V56H46")), BODY) << "a highlight";
}

TEST(Signs, AreNoBallsWithLinesToTheirOutlines)
{
    EXPECT_EQ(roleOfDisc(line("M50 10V90", "#300000", 3)), BODY);
    EXPECT_EQ(roleOfDisc(line("M50 20V80", "#300000", 3)), SLAB);
}

TEST(Signs, AreNoFaces)
{
    // The lids of closed eyes, which nearly meet in the middle.
    const QByteArray one = rect(21.5, 47, 28, 6, "#ffffff");
    EXPECT_EQ(roleOfDisc(one), SLAB);
    EXPECT_EQ(roleOfDisc(one + rect(50.5, 47, 28, 6, "#ffffff")), BODY);
}

TEST(Signs, AreNoEyeballs)
{
    EXPECT_EQ(roleOfDisc(circle(50, 50, 8, "#100505")), BODY);
}

TEST(Signs, AreNotToldByMarksThatAreNoFeatures)
{
    const QByteArray bar = rect(25, 43, 50, 14, "#ffffff");
    const auto dash = [](double x, double y) { return rect(x, y, 12, 5, "#ffe040"); };
    EXPECT_EQ(roleOfDisc(bar + dash(30, 25) + dash(58, 25)), BODY) << "brows";
    EXPECT_EQ(roleOfDisc(bar + dash(30, 25) + dash(58, 34)), SLAB) << "not on a level";
    EXPECT_EQ(roleOfDisc(bar + dash(30, 66) + dash(58, 66)), SLAB) << "below the middle";
}

TEST(Signs, AreNotCutByThePicture)
{
    const QByteArray bar = rect(35, 60, 30, 10, "#ffffff");
    EXPECT_EQ(rolesOf("<path d='M15 100V65a35 35 0 0 1 70 0V100z' fill='#d22f27'/>" + bar).front(), BODY);
}

TEST(Signs, HoldNoEyes)
{
    const QByteArray eye = circle(50, 38, 12, "#ffffff") + line("M62 38A12 12 0 1 0 62 38.01", "#111111", 3);
    EXPECT_EQ(roleOfDisc(eye), BODY);
    EXPECT_EQ(roleOfDisc("<path d='M47 44h6l2 26h-10z' fill='#ffffff'/>" + circle(50, 34, 6, "#ffffff")), SLAB)
        << "the letter i";
}

TEST(Signs, AreCircles)
{
    const QByteArray bar = rect(30, 43, 40, 14, "#ffffff");
    const auto oval = [](const char* radius) {
        return QByteArray("<ellipse cx='50' cy='50' rx='40' ry='") + radius + "' fill='#d22f27'/>";
    };
    EXPECT_EQ(rolesOf(oval("36") + bar).front(), BODY);
    EXPECT_EQ(rolesOf(oval("39.5") + bar).front(), SLAB);
}

TEST(Signs, DifferInColour)
{
    EXPECT_EQ(roleOfDisc(rect(25, 43, 50, 14, "#b82a22")), BODY) << "a shade";
}

TEST(Signs, AreMostOfTheDrawing)
{
    const auto wheel = [](double radius) {
        return circle(80, 80, radius, "#f0f0f0") +
               rect(80 - 0.6 * radius, 80 - 0.15 * radius, 1.2 * radius, 0.3 * radius, "#c02020");
    };
    const std::vector<ObjectRole> roles = rolesOf("<path d='M5 60L60 5L80 40L20 80z' fill='#77b255'/>" + wheel(15));
    ASSERT_GE(roles.size(), 2U);
    EXPECT_EQ(roles[1], BODY);
}

TEST(Signs, AreNotSquare)
{
    EXPECT_EQ(rolesOf("<path d='M15 50L50 15L85 50L50 85z' fill='#d22f27'/>" + rect(35, 45, 30, 10, "#ffffff")).front(),
              BODY);
}

// The ring and the bar are one path: a disc with two segments of a smaller disc cut out.
TEST(Signs, AreFlatInARingWithABarAcrossThem)
{
    const QByteArray disc = circle(50, 50, 36, "#ffffff");
    const QByteArray ring = "<path fill='#d22f27' fill-rule='evenodd' d='M10 50a40 40 0 1 1 80 0a40 40 0 1 1 -80 0z";
    const QByteArray upper = "M20.4 45a30 30 0 0 1 59.2 0z";
    const QByteArray lower = "M20.4 55a30 30 0 0 0 59.2 0z";
    EXPECT_EQ(rolesOf(disc + ring + upper + lower + "'/>").front(), FLAT);
    EXPECT_EQ(rolesOf(disc + ring + "M20 50a30 30 0 1 0 60 0a30 30 0 1 0 -60 0z'/>").front(), BODY) << "a ring alone";
    EXPECT_EQ(rolesOf(disc + ring + "M80 50a30 30 0 1 0 0 5H48V48H80z'/>").front(), BODY) << "a bar up to the middle";
    EXPECT_EQ(rolesOf(disc + rect(8, 45, 84, 10, "#d22f27")).front(), BODY) << "a bar alone";
}
