// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/choice/Faces.h"

#include "../FormDrawings.h"
#include "form/choice/ShapeFacts.h"

using namespace form_drawings;
using enum ObjectRole;

namespace {

const QByteArray kEyes = circle(42, 46, 2.5, "#201008") + circle(58, 46, 2.5, "#201008");

// Hair with a face on it, which reaches the hair's outline at the chin.
QByteArray head(const char* hair, const char* face, const QByteArray& eyes)
{
    return circle(50, 50, 40, hair) + "<ellipse cx='50' cy='58' rx='26' ry='32' fill='" + face + "'/>" + eyes;
}

QByteArray eye(double x, double y, double radius = 3, const char* fill = "#201008")
{
    return circle(x, y, radius, fill);
}

// Whether shapes are the eyes of a face, a disc 80 wide whose middle is the picture's.
bool areEyes(const QByteArray& shapes)
{
    const DIO_Drawing drawing = read(circle(50, 50, 40, "#af7e57") + shapes);
    const std::vector<ShapeFacts> facts = collectFacts(drawing, gridFor(drawing));
    std::vector<const ShapeFacts*> inside;
    for (std::size_t i = 1; i < facts.size(); ++i)
        inside.push_back(&facts[i]);
    return holdsEyes(facts.front(), inside);
}

ObjectRole roleOfSecond(const QByteArray& drawing)
{
    const std::vector<ObjectRole> roles = rolesOf(drawing);
    return roles.size() > 1 ? roles[1] : FLAT;
}

} // namespace

TEST(Faces, AreBodiesWhateverTheirColour)
{
    for (const char* hair : {"#292f33", "#ffe51e", "#963b22", "#60352a", "#0b0200"})
        for (const char* face : {"#f7dece", "#f3d2a2", "#d5ab88", "#af7e57", "#7c533e"}) {
            const QByteArray drawing = head(hair, face, kEyes);
            EXPECT_EQ(countOf(drawing), 4U) << hair << " " << face;
            EXPECT_EQ(roleOfSecond(drawing), BODY) << hair << " " << face;
        }
}

TEST(Faces, HaveTwoEyesSideBySide)
{
    const auto isFace = [](const QByteArray& eyes) {
        const ChosenObjects found = chosen(head("#60352a", "#af7e57", eyes));
        return std::ranges::any_of(found.objects, [](const ChosenObject& object) {
            return object.reason == QLatin1String("a face: it has eyes");
        });
    };
    const auto small = [](double x, double y) { return eye(x, y, 2.5); };
    EXPECT_TRUE(isFace(kEyes));
    EXPECT_FALSE(isFace(small(50, 46)));
    EXPECT_FALSE(isFace(small(50, 36) + small(50, 56)));
    EXPECT_FALSE(isFace(kEyes + small(50, 58)));
    EXPECT_FALSE(isFace(small(42, 84) + small(58, 84)));
}

TEST(Faces, HaveEyesThatAreSmallDarkAndAlike)
{
    EXPECT_TRUE(areEyes(eye(38, 45) + eye(62, 45)));
    EXPECT_FALSE(areEyes(eye(38, 45, 3, "#ffffff") + eye(62, 45, 3, "#ffffff")));
    EXPECT_TRUE(areEyes(eye(38, 45, 9) + eye(62, 45, 9)));
    EXPECT_FALSE(areEyes(eye(38, 45, 11) + eye(62, 45, 11))) << "0.076 of the face";
    EXPECT_FALSE(areEyes(eye(38, 45) + eye(62, 45, 3, "#102020")));
    EXPECT_TRUE(areEyes(eye(38, 45) + eye(62, 45, 3.5)));
    EXPECT_FALSE(areEyes(eye(38, 45) + eye(62, 45, 4.2)));
    EXPECT_FALSE(areEyes(eye(38, 45, 4.2) + eye(62, 45)));
}

TEST(Faces, HaveEyesOnALevelBetweenHairAndChin)
{
    EXPECT_TRUE(areEyes(eye(38, 43) + eye(62, 47)));
    EXPECT_FALSE(areEyes(eye(38, 40) + eye(62, 50)));
    EXPECT_FALSE(areEyes(eye(38, 18) + eye(62, 18)));
    EXPECT_TRUE(areEyes(eye(38, 66) + eye(62, 66)));
    EXPECT_FALSE(areEyes(eye(38, 75) + eye(62, 75)));
}

TEST(Faces, HaveEyesOnEitherSideOfTheirMiddle)
{
    EXPECT_FALSE(areEyes(eye(46, 45) + eye(54, 45))) << "too near to each other";
    EXPECT_FALSE(areEyes(eye(17, 45) + eye(83, 45))) << "too far from each other";
    EXPECT_TRUE(areEyes(eye(44, 45) + eye(68, 45)));
    EXPECT_FALSE(areEyes(eye(52, 45) + eye(76, 45)));
}

TEST(Faces, HaveNoThirdEye)
{
    EXPECT_FALSE(areEyes(eye(38, 45) + eye(62, 41) + eye(62, 49)));
    // Freckles have another colour.
    QByteArray freckles;
    for (int i = 0; i < 40; ++i)
        freckles += eye(25 + i, 62, 1.2, "#603010");
    EXPECT_TRUE(areEyes(eye(38, 45) + eye(62, 45) + freckles));
    EXPECT_FALSE(areEyes(eye(38, 45) + eye(62, 45) + freckles + freckles)) << "a pattern";
}

namespace {

const QByteArray kRoundFace = circle(50, 50, 40, "#ffcc4d");
const QByteArray kTwoEyes = eye(36, 42, 4) + eye(64, 42, 4);

QByteArray ellipse(double x, double y, double rx, double ry)
{
    return QStringLiteral("<ellipse cx='%1' cy='%2' rx='%3' ry='%4' fill='#201008'/>")
        .arg(x)
        .arg(y)
        .arg(rx)
        .arg(ry)
        .toLatin1();
}

std::ptrdiff_t openingsOf(const QByteArray& onFace)
{
    return std::ranges::count(rolesOf(kRoundFace + onFace), OPENING);
}

} // namespace

TEST(Faces, HaveOpenMouthsThatSink)
{
    const QByteArray mouth = ellipse(50, 70, 6, 7);
    EXPECT_EQ(openingsOf(kTwoEyes + mouth), 1);
    EXPECT_EQ(openingsOf(mouth + kTwoEyes), 1);
    EXPECT_EQ(rolesOf(kRoundFace + kTwoEyes + mouth).size(), 4U) << "the eyes are beads";
    EXPECT_EQ(openingsOf(kTwoEyes + ellipse(50, 70, 14, 6)), 1) << "a wide one";
}

TEST(Faces, HaveOpenMouthsBelowBrows)
{
    const QByteArray brows = ellipse(36, 34, 7, 2.5) + ellipse(64, 34, 7, 2.5);
    EXPECT_EQ(openingsOf(brows + kTwoEyes + ellipse(50, 70, 6, 7)), 1);
}

TEST(Faces, HaveNoMouthElsewhere)
{
    EXPECT_EQ(openingsOf(ellipse(50, 70, 6, 7)), 0) << "without eyes";
    EXPECT_EQ(openingsOf(kTwoEyes + ellipse(62, 70, 6, 7)), 0) << "beside the axis";
    EXPECT_EQ(openingsOf(kTwoEyes + ellipse(50, 52, 6, 7)), 0) << "a nose";
    EXPECT_EQ(openingsOf(kTwoEyes + ellipse(50, 70, 12, 1.5)), 0) << "a closed mouth";
    EXPECT_EQ(openingsOf(kTwoEyes + ellipse(50, 66, 27, 5)), 0) << "a moustache";
}
