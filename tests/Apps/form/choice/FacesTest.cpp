// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "../FormDrawings.h"

using namespace form_drawings;
using enum ObjectRole;

namespace {

const QByteArray kEyes = circle(42, 46, 2.5, "#201008") + circle(58, 46, 2.5, "#201008");

// Hair with a face on it, which reaches the hair's outline at the chin.
QByteArray head(const char* hair, const char* face, const QByteArray& eyes)
{
    return circle(50, 50, 40, hair) + "<ellipse cx='50' cy='58' rx='26' ry='32' fill='" + face + "'/>" + eyes;
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
    const auto eye = [](double x, double y) { return circle(x, y, 2.5, "#201008"); };
    EXPECT_TRUE(isFace(kEyes));
    EXPECT_FALSE(isFace(eye(50, 46)));
    EXPECT_FALSE(isFace(eye(50, 36) + eye(50, 56)));
    EXPECT_FALSE(isFace(kEyes + eye(50, 58)));
    EXPECT_FALSE(isFace(eye(42, 84) + eye(58, 84)));
}
