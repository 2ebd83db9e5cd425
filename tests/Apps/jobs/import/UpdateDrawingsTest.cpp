// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings that are read again: the scene has the shapes of the files as they are now and everything that was set
// before; undo restores the scene to the last byte.
#include "Files.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "jobs/import/SceneElements.h"
#include "jobs/import/UpdateDrawings.h"
#include "jobs/shown/DrawingExtent.h"
#include "jobs/shown/NormalMapNode.h"

using namespace files;

namespace {

// A layer with a square of 10 at x, away from the border: what touches it is continued beyond the frame.
QByteArray part(const QByteArray& name, int x, const QByteArray& colour = "#ff0000")
{
    return svgLayer(name, x, colour).replace("<rect ", "<rect y=\"40\" ");
}

class UpdateDrawingsTest : public testing::Test
{
protected:
    void import(const QByteArray& content)
    {
        file = folder.write(QStringLiteral("hero.svg"), svg(content));
        auto imported = importDrawings({file}, {});
        ASSERT_TRUE(imported) << imported.error().text.toStdString();
        scene = std::move(imported->scene);
    }

    // The file changes, and the scene follows.
    void update(const QByteArray& content)
    {
        folder.write(QStringLiteral("hero.svg"), svg(content));
        const auto fresh = importDrawings({file}, {});
        ASSERT_TRUE(fresh) << fresh.error().text.toStdString();
        made = updateDrawings(*scene, elementsFrom(*scene, {file}), *fresh->scene, QStringLiteral("Reload hero.svg"));
        if (made.command)
            made.command->execute();
    }

    MO_ElementModule& element(const char* name) const
    {
        return dynamic_cast<MO_ElementModule&>(*scene->findModule(QString::fromUtf8(name)));
    }
    QRectF placeOf(const char* name) const { return extentOf(*element(name).drawingAt(1.0)); }
    ObjectDefinition& definitionOf(const char* name) const
    {
        return dynamic_cast<ObjectDefinition&>(*element(name).outPort(0)->sinks().front()->module());
    }
    MO_Module& node() const { return *scene->findModule(QStringLiteral("Normal-Map")); }
    NormalMapObject valuesOf(const char* name) const
    {
        const int number = definitionOf(name).objectNumber()->localValue();
        for (const NormalMapObject& row : NormalMapNode(node()).objects())
            if (row.number == number)
                return row;
        return {.number = 0};
    }
    void setBevel(const char* name, double bevel) const
    {
        auto rows = NormalMapNode(node()).objects();
        for (NormalMapObject& row : rows)
            if (row.number == definitionOf(name).objectNumber()->localValue())
                row.bevel = bevel;
        NormalMapNode(node()).objectsCmd(rows)->execute();
    }
    QStringList listedColours() const
    {
        QStringList names;
        for (const NormalMapColour& row : NormalMapNode(node()).colours())
            names << row.name;
        return names;
    }
    // The elements behind the node's inputs, bottom up.
    QStringList stack() const
    {
        QStringList names;
        for (unsigned i = 0; i < node().nInPorts(); ++i)
            for (const MO_ElementModule* const one : elementsBehind(*node().inPort(i)))
                names << one->instanceName();
        return names;
    }

    Folder folder;
    QString file;
    std::unique_ptr<MO_Scene> scene;
    DrawingUpdate made;
};

TEST_F(UpdateDrawingsTest, FollowsTheFileAndKeepsWhatWasSet)
{
    import(part("Body", 10) + part("Arm", 20));
    setBevel("Arm", 33.0);
    element("Arm").rotation()->setLocalValue(12.0);
    const QString before = textOf(*scene);
    update(part("Body", 10) + part("Arm", 60));
    EXPECT_EQ(placeOf("Arm"), QRectF(60, 40, 10, 10));
    EXPECT_EQ(placeOf("Body"), QRectF(10, 40, 10, 10));
    EXPECT_EQ(valuesOf("Arm").bevel, 33.0);
    EXPECT_EQ(element("Arm").rotation()->localValue(), 12.0);
    EXPECT_EQ(made.command->name(), "Reload hero.svg");
    EXPECT_TRUE(made.added.isEmpty());
    EXPECT_TRUE(made.vanished.isEmpty());

    const QString after = textOf(*scene);
    made.command->undo();
    EXPECT_EQ(textOf(*scene), before);
    made.command->redo();
    EXPECT_EQ(textOf(*scene), after);
}

TEST_F(UpdateDrawingsTest, ChangesNothingWhereTheFileSaysTheSame)
{
    import(part("Body", 10) + part("Arm", 20));
    update(part("Body", 10) + part("Arm", 20));
    EXPECT_EQ(made.command, nullptr);
}

TEST_F(UpdateDrawingsTest, PutsANewLayerWhereItLies)
{
    import(part("Body", 10) + part("Head", 20));
    setBevel("Head", 33.0);
    const QString before = textOf(*scene);
    update(part("Ground", 80, "#00ff00") + part("Body", 10) + part("Arm", 60, "#0000ff") + part("Head", 20));
    EXPECT_EQ(stack(), (QStringList{"Ground", "Body", "Arm", "Head"}));
    EXPECT_EQ(made.added, (QStringList{"Ground", "Arm"}));
    EXPECT_EQ(valuesOf("Head").bevel, 33.0);
    // A new object has a number and a form of its own.
    EXPECT_NE(valuesOf("Arm").number, 0);
    EXPECT_NE(valuesOf("Arm").number, valuesOf("Ground").number);
    ASSERT_EQ(scene->palettes().size(), 1U);
    EXPECT_EQ(element("Arm").drawingAt(1.0)->palette(), scene->palettes().front());
    EXPECT_EQ(element("Body").drawingAt(1.0)->palette(), scene->palettes().front());
    EXPECT_EQ(colourNames(*scene->palettes().front()), (QStringList{"#ff0000", "#00ff00", "#0000ff"}));
    const QString after = textOf(*scene);
    made.command->undo();
    EXPECT_EQ(textOf(*scene), before);
    made.command->redo();
    EXPECT_EQ(textOf(*scene), after);
}

TEST_F(UpdateDrawingsTest, KeepsWhatWasSetOfALayerThatIsGoneUntilItIsBack)
{
    import(part("Body", 10) + part("Arm", 20));
    setBevel("Arm", 33.0);
    update(part("Body", 10) + part("Hat", 70));
    EXPECT_EQ(made.vanished, QStringList{"Arm"});
    EXPECT_TRUE(placeOf("Arm").isNull());
    update(part("Body", 10) + part("Hat", 70));
    EXPECT_EQ(made.command, nullptr) << "it is told once";
    update(part("Body", 10) + part("Arm", 22) + part("Hat", 70));
    EXPECT_EQ(placeOf("Arm"), QRectF(22, 40, 10, 10));
    EXPECT_EQ(valuesOf("Arm").bevel, 33.0);
    EXPECT_TRUE(made.added.isEmpty());
}

TEST_F(UpdateDrawingsTest, KnowsALayerThatWasRenamedByItsPlace)
{
    import(part("Body", 10) + part("Arm", 20));
    setBevel("Arm", 33.0);
    update(part("Body", 10) + part("Left arm", 20));
    EXPECT_TRUE(made.added.isEmpty());
    EXPECT_TRUE(made.vanished.isEmpty());
    EXPECT_EQ(valuesOf("Left arm").bevel, 33.0);
    EXPECT_EQ(definitionOf("Left arm").instanceName(), "Left arm-Definition");
    // From now on it is called so in the file.
    update(part("Body", 10) + part("Left arm", 70));
    EXPECT_EQ(placeOf("Left arm"), QRectF(70, 40, 10, 10));
}

TEST_F(UpdateDrawingsTest, ExchangesTheNamesOfLayersThatExchangedThem)
{
    import(part("Body", 10) + part("Arm", 40));
    const QString before = textOf(*scene);
    update(part("Arm", 10) + part("Body", 40) + part("Hat", 80));
    EXPECT_EQ(placeOf("Arm"), QRectF(10, 40, 10, 10));
    EXPECT_EQ(placeOf("Body"), QRectF(40, 40, 10, 10));
    EXPECT_EQ(stack(), (QStringList{"Arm", "Body", "Hat"}));
    made.command->undo();
    EXPECT_EQ(textOf(*scene), before);
}

TEST_F(UpdateDrawingsTest, KeepsANameThatPeopleGave)
{
    import(part("Body", 10) + part("Arm", 20));
    element("Arm").setInstanceName(QStringLiteral("Wing"));
    update(part("Body", 10) + part("Left arm", 20));
    EXPECT_EQ(placeOf("Wing"), QRectF(20, 40, 10, 10));
}

TEST_F(UpdateDrawingsTest, FollowsElementsThatPeopleRenamedOrDuplicated)
{
    import(part("Body", 10) + part("Arm", 20));
    std::vector<MO_Module*> copies;
    (*MO_duplicateModulesCmd({&element("Arm")}, &copies))->execute();
    ASSERT_EQ(copies.size(), 1U);
    element("Arm").setInstanceName(QStringLiteral("Wing"));
    update(part("Body", 10) + part("Arm", 60));
    EXPECT_EQ(placeOf("Wing"), QRectF(60, 40, 10, 10));
    EXPECT_EQ(extentOf(*dynamic_cast<MO_ElementModule&>(*copies.front()).drawingAt(1.0)), QRectF(60, 40, 10, 10));
}

TEST_F(UpdateDrawingsTest, KeepsColoursThatWereChangedByHand)
{
    import(part("Body", 10) + part("Arm", 20));
    const CM_SharedPtr<CM_Palette> palette = scene->palettes().front();
    MO_recolorCmd(*scene, palette, palette->colors().front()->GetColorId(), {1, 2, 3, 255})->execute();
    update(part("Body", 10) + part("Arm", 60) + part("Hat", 80, "#00ff00"));
    EXPECT_EQ(colourNames(*scene->palettes().front()), (QStringList{"#010203", "#00ff00"}));
    EXPECT_EQ(element("Arm").drawingAt(1.0)->palette(), scene->palettes().front());
}

TEST_F(UpdateDrawingsTest, HasTheColoursThatTheFileHas)
{
    import(part("Body", 10) + part("Arm", 20, "#0000ff"));
    const QString before = textOf(*scene);
    update(part("Body", 10) + part("Arm", 20, "#00ff00"));
    EXPECT_EQ(colourNames(*scene->palettes().front()), (QStringList{"#ff0000", "#00ff00"}));
    EXPECT_EQ(listedColours(), (QStringList{"#ff0000", "#00ff00"})) << "as after an import";
    made.command->undo();
    EXPECT_EQ(textOf(*scene), before);
    made.command->redo();
    EXPECT_EQ(colourNames(*scene->palettes().front()), (QStringList{"#ff0000", "#00ff00"}));
}

TEST_F(UpdateDrawingsTest, KeepsAColourThatPeopleSetUntilItIsBack)
{
    import(part("Body", 10, "#ff0000") + part("Arm", 20, "#0000ff") + part("Hat", 30, "#00ff00"));
    const CM_SharedPtr<CM_Palette> palette = scene->palettes().front();
    const auto rows = NormalMapNode(node()).colours();
    ASSERT_EQ(rows.size(), 3U);
    auto carved = rows;
    carved[1].level = 0;
    NormalMapNode(node()).coloursCmd(carved)->execute();
    MO_renameColorCmd(*scene, palette, rows[2].id, QStringLiteral("Grass"))->execute();
    update(part("Body", 10, "#111111") + part("Arm", 20, "#111111") + part("Hat", 30, "#111111"));
    EXPECT_EQ(colourNames(*scene->palettes().front()), (QStringList{"#0000ff", "#00ff00", "#111111"}));
    EXPECT_EQ(NormalMapNode(node()).colours()[0].level, 0);
}

TEST_F(UpdateDrawingsTest, LeavesAColourWithoutALevelAsItIs)
{
    import(part("Body", 10) + part("Arm", 20, "#0000ff"));
    auto rows = NormalMapNode(node()).colours();
    rows.erase(rows.begin());
    NormalMapNode(node()).coloursCmd(rows)->execute();
    update(part("Body", 10) + part("Arm", 20, "#00ff00"));
    EXPECT_EQ(listedColours(), (QStringList{"#00ff00"}));
}

TEST_F(UpdateDrawingsTest, KnowsNamelessShapesByWhereTheyLie)
{
    const auto disc = [](int x) {
        return "<circle cx=\"" + QByteArray::number(x) + "\" cy=\"50\" r=\"12\" fill=\"#c02020\"/>";
    };
    import(disc(20) + disc(80));
    std::vector<NormalMapObject> rows = NormalMapNode(node()).objects();
    ASSERT_EQ(rows.size(), 2U) << "two discs are two objects";
    rows[1].bevel = 41.0;
    NormalMapNode(node()).objectsCmd(rows)->execute();
    const auto bevelAt = [&](double x) {
        double bevel = -1.0;
        scene->root().forEachModule([&](const MO_Module& module) {
            const auto* const one = dynamic_cast<const MO_ElementModule*>(&module);
            if (one && extentOf(*one->drawingAt(1.0)).contains(QPointF(x, 50)))
                bevel = valuesOf(one->instanceName().toUtf8()).bevel;
        });
        return bevel;
    };
    const double first = bevelAt(20);
    const double second = bevelAt(80);
    update(disc(50) + disc(20) + disc(80));
    EXPECT_EQ(made.added.size(), 1);
    EXPECT_EQ(bevelAt(20), first);
    EXPECT_EQ(bevelAt(80), second);
}

TEST_F(UpdateDrawingsTest, FollowsTheFrameOfTheDrawing)
{
    import(part("Body", 10) + part("Arm", 20));
    element("Arm").positionX()->setLocalValue(7.0);
    QByteArray tall = svg(part("Body", 10) + part("Arm", 20));
    tall.replace("0 0 100 100", "0 0 100 200");
    folder.write(QStringLiteral("hero.svg"), tall);
    const auto fresh = importDrawings({file}, {});
    ASSERT_TRUE(fresh);
    made = updateDrawings(*scene, elementsFrom(*scene, {file}), *fresh->scene, QStringLiteral("Reload"));
    made.command->execute();
    EXPECT_EQ(scene->frameHeight(), 1440.0);
    // The drawing of 100 x 200 is centred in the frame of 720 x 1440.
    EXPECT_EQ(element("Body").positionY()->localValue(), -720.0);
    EXPECT_EQ(element("Arm").positionX()->localValue(), 7.0) << "it was moved by hand";
}

TEST_F(UpdateDrawingsTest, AddsDrawingsOfOtherFiles)
{
    import(part("Body", 10));
    const QString other = folder.write(QStringLiteral("sword.svg"), svg(part("Blade", 40, "#0000ff")));
    const auto fresh = importDrawings({other}, {});
    ASSERT_TRUE(fresh);
    made = updateDrawings(*scene, {}, *fresh->scene, QStringLiteral("Add sword.svg"));
    ASSERT_TRUE(made.command);
    made.command->execute();
    EXPECT_EQ(stack(), (QStringList{element("hero").instanceName(), "sword"}));
    EXPECT_EQ(originsOf(*scene).size(), 2U);
    EXPECT_EQ(elementsFrom(*scene, {other}).size(), 1U);
}

} // namespace
