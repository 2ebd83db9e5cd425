// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The tables of a node as lists and as maps.
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "node/Vallorin.h"
#include "parameters/VallorinAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using VallorinAttributes::ColorInformation;
using VallorinAttributes::getColorInformation;
using VallorinAttributes::getObjectInformation;
using VallorinAttributes::ObjectInformation;

const CM_ColorId_t kRed(0xA);
const CM_ColorId_t kBlue(0xB);

class VallorinTables : public testing::Test
{
protected:
    void setColours(const char* text) { node.colorInformation()->setLocalValue(QString::fromLatin1(text)); }
    void setObjects(const char* text) { node.objectInformation()->setLocalValue(QString::fromLatin1(text)); }

    Vallorin node;
    std::vector<ColorInformation> colours = {ColorInformation{kRed, 1, QString()}};
    std::map<CM_ColorId_t, int> levels = {{kRed, 1}};
    std::vector<ObjectInformation> objects = {ObjectInformation{9, 9.0, 9.0, 9.0}};
    std::map<int, ObjectInformation> objectsById = {{9, ObjectInformation{9, 9.0, 9.0, 9.0}}};
};

TEST_F(VallorinTables, ANullNodeGivesEmptyTables)
{
    getColorInformation(nullptr, colours);
    getColorInformation(nullptr, levels);
    getObjectInformation(nullptr, objects);
    getObjectInformation(nullptr, objectsById);
    EXPECT_THAT(colours, IsEmpty());
    EXPECT_THAT(levels, IsEmpty());
    EXPECT_THAT(objects, IsEmpty());
    EXPECT_THAT(objectsById, IsEmpty());
}

TEST_F(VallorinTables, ANewNodesTablesAreEmpty)
{
    getColorInformation(&node, colours);
    getColorInformation(&node, levels);
    getObjectInformation(&node, objects);
    getObjectInformation(&node, objectsById);
    EXPECT_THAT(colours, IsEmpty());
    EXPECT_THAT(levels, IsEmpty());
    EXPECT_THAT(objects, IsEmpty());
    EXPECT_THAT(objectsById, IsEmpty());
}

TEST_F(VallorinTables, ListsKeepOrderAndDuplicates)
{
    setColours("000000000000000b:7:Blue;000000000000000a:8:Red;000000000000000b:9:Navy");
    getColorInformation(&node, colours);
    EXPECT_THAT(colours, ElementsAre(ColorInformation{kBlue, 7, QStringLiteral("Blue")},
                                     ColorInformation{kRed, 8, QStringLiteral("Red")},
                                     ColorInformation{kBlue, 9, QStringLiteral("Navy")}));
    setObjects("4:1;2:2;4:3");
    getObjectInformation(&node, objects);
    EXPECT_THAT(objects, ElementsAre(ObjectInformation{4, 1.0, 1.0, 1.0}, ObjectInformation{2, 2.0, 1.0, 1.0},
                                     ObjectInformation{4, 3.0, 1.0, 1.0}));
}

TEST_F(VallorinTables, InTheMapOfColoursTheLaterRecordWins)
{
    setColours("000000000000000b:7:Blue;000000000000000a:8:Red;000000000000000b:9:Navy");
    getColorInformation(&node, levels);
    EXPECT_THAT(levels, ElementsAre(Pair(kRed, 8), Pair(kBlue, 9)));
}

TEST_F(VallorinTables, InTheMapOfObjectsTheLaterRecordWinsWhole)
{
    setObjects("4:1:2:3;2:2;4:9");
    getObjectInformation(&node, objectsById);
    EXPECT_THAT(objectsById, ElementsAre(Pair(2, ObjectInformation{2, 2.0, 1.0, 1.0}),
                                         Pair(4, ObjectInformation{4, 9.0, 1.0, 1.0})));
}

} // namespace
