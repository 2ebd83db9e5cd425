// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is measured in parts of the picture's width has to be a part of three widths where a drawing lies beside itself.
#include "jobs/drawing/TileDrawing.h"

#include <gtest/gtest.h>

namespace {

NormalMapSettings withObjects()
{
    NormalMapSettings settings;
    settings.size = QSize(100, 50);
    ObjectSettings& object = settings.objects[1];
    object.bevel = 30.0;
    object.elevation = 6.0;
    object.smoothness = 2.0;
    object.rim = ObjectRim{3.0, 0.5};
    return settings;
}

TEST(TileDrawing, KeepsValuesOfTheWidthTheSameInPixels)
{
    const NormalMapSettings tiles = settingsForTiles(withObjects(), {300.0, 50.0}, {.x = true});
    EXPECT_EQ(tiles.size, QSize(300, 50));
    const ObjectSettings& object = tiles.objects.at(1);
    EXPECT_EQ(object.bevel, 10.0);
    EXPECT_EQ(object.elevation, 2.0);
    EXPECT_EQ(object.smoothness, 2.0);
    // The height is measured in bevels.
    EXPECT_EQ(object.rim, (ObjectRim{1.0, 0.5}));
}

TEST(TileDrawing, KeepsAllValuesWhereTheWidthStays)
{
    const NormalMapSettings tiles = settingsForTiles(withObjects(), {100.0, 150.0}, {.y = true});
    EXPECT_EQ(tiles.size, QSize(100, 150));
    EXPECT_EQ(tiles.objects.at(1).rim, (ObjectRim{3.0, 0.5}));
    EXPECT_EQ(tiles.objects.at(1).bevel, 30.0);
}

} // namespace
