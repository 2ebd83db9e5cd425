// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The same drawing has the same objects as a vector drawing and as a bitmap of any size.
#include "../FormDrawings.h"
#include "Bitmaps.h"

#include <gtest/gtest.h>

namespace {

using form_drawings::circle;
using form_drawings::line;
using form_drawings::rect;

struct Seen
{
    std::vector<std::pair<ObjectRole, double>> objects; // role and share of the picture, by role and size

    explicit Seen(const ChosenObjects& chosen)
    {
        for (const ChosenObject& object : chosen.objects)
            objects.emplace_back(object.role, object.share);
        std::ranges::sort(objects);
    }
};

void expectSame(const QByteArray& content, int pixels)
{
    const DIO_Drawing drawing = form_drawings::read(content);
    const Seen vector(chooseObjects(drawing, ObjectChoice::AUTO));
    const QImage picture = form_drawings::painted(drawing, pixels).convertToFormat(QImage::Format_ARGB32);
    const Seen bitmap(objectsOf(picture));
    ASSERT_EQ(bitmap.objects.size(), vector.objects.size()) << pixels << " pixels";
    for (std::size_t i = 0; i < vector.objects.size(); ++i) {
        EXPECT_EQ(bitmap.objects[i].first, vector.objects[i].first) << "object " << i << ", " << pixels << " pixels";
        EXPECT_NEAR(bitmap.objects[i].second, vector.objects[i].second, 0.01)
            << "object " << i << ", " << pixels << " pixels";
    }
}

} // namespace

TEST(BitmapAgainstVector, aSkullAndItsSockets)
{
    const QByteArray skull =
        circle(50, 50, 42, "#ece4d2") + circle(34, 48, 11, "#3b3230") + circle(66, 48, 11, "#3b3230");
    for (const int pixels : {300, 3840})
        expectSame(skull, pixels);
}

TEST(BitmapAgainstVector, aHouseWithWindows)
{
    const QByteArray house = rect(15, 40, 70, 50, "#f1deb8") + "<path d='M8 44h84l-42 -36z' fill='#c4503c'/>" +
                             rect(22, 50, 16, 18, "#a9d4ea") + rect(62, 50, 16, 18, "#a9d4ea");
    for (const int pixels : {300, 3840})
        expectSame(house, pixels);
}

TEST(BitmapAgainstVector, aFaceOverAScarf)
{
    const QByteArray face =
        rect(20, 60, 60, 32, "#3f7d63") + circle(50, 42, 30, "#ffcc4d") + circle(50, 50, 6, "#d9534f");
    for (const int pixels : {300, 3840})
        expectSame(face, pixels);
}

TEST(BitmapAgainstVector, aBallInALine)
{
    const QByteArray ball = circle(50, 50, 40, "#3c88b0") + line("M10 50a40 40 0 1 0 80 0a40 40 0 1 0 -80 0z");
    for (const int pixels : {300, 3840})
        expectSame(ball, pixels);
}
