// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a scene keeps of the form that an object got when its drawing came in.
#include "jobs/drawing/ChosenForm.h"

#include <gtest/gtest.h>

namespace {

ObjectSettings form()
{
    ObjectSettings settings;
    settings.bevel = 24.5;
    settings.elevation = -0.1;
    settings.smoothness = 1.8;
    return settings;
}

TEST(ChosenForm, HasTheShortTextWithoutTiltAndRim)
{
    EXPECT_EQ(chosenFormText(form()), QStringLiteral("24.5:-0.1:1.8"));
    ObjectSettings plain = form();
    plain.tilt = ObjectTilt();
    plain.rim = ObjectRim{0.0, 1.0};
    EXPECT_EQ(chosenFormText(plain), QStringLiteral("24.5:-0.1:1.8"));
}

TEST(ChosenForm, OfTheShortTextFacesTheViewerAndHasNoRim)
{
    const auto read = chosenFormOf(QStringLiteral("24.5:-0.1:1.8"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->bevel, 24.5);
    EXPECT_EQ(read->elevation, -0.1);
    EXPECT_EQ(read->smoothness, 1.8);
    EXPECT_EQ(read->tilt, ObjectTilt());
    EXPECT_EQ(read->rim, (ObjectRim{0.0, 1.0}));
}

TEST(ChosenForm, KeepsTiltAndRim)
{
    ObjectSettings tilted = form();
    tilted.tilt = ObjectTilt{30.0, -10.0};
    EXPECT_EQ(chosenFormText(tilted), QStringLiteral("24.5:-0.1:1.8:30:-10:0:1"));
    EXPECT_EQ(chosenFormOf(chosenFormText(tilted))->tilt, tilted.tilt);
    ObjectSettings rimmed = form();
    rimmed.rim = ObjectRim{4.0, 0.5};
    EXPECT_EQ(chosenFormText(rimmed), QStringLiteral("24.5:-0.1:1.8:0:0:4:0.5"));
    EXPECT_EQ(chosenFormOf(chosenFormText(rimmed))->rim, rimmed.rim);
}

TEST(ChosenForm, IsNothingElse)
{
    for (const char* const text : {"", "24:1", "24:1:1:2", "24:1:1:30:-10:4", "24:1:1:30:-10:4:1:0", "24:one:1",
                                   "24:1:nan", "24:1:1:inf:0:0:1", "24:1:"})
        EXPECT_FALSE(chosenFormOf(QString::fromLatin1(text))) << text;
}

} // namespace
