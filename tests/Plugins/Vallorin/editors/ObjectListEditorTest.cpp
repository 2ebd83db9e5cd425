// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The object table in the panel.
#include "Plugins/Vallorin/editors/EditorTesting.h"

namespace {

using testing::ElementsAre;

class ObjectListEditor : public EditorTest
{};

TEST_F(ObjectListEditor, IsAnObjectOfItsOwnWithTwoSlotsAndNoSignals)
{
    open();
    const QMetaObject* const meta = component("ObjectListEditor")->metaObject();
    EXPECT_STREQ(meta->className(), "VolumetricObjectListEditor");
    ASSERT_EQ(meta->methodCount() - meta->methodOffset(), 2);
    EXPECT_EQ(meta->method(meta->methodOffset()).methodSignature(), "refreshMenu()");
    EXPECT_EQ(meta->method(meta->methodOffset() + 1).methodSignature(), "addObjectTriggered(QAction*)");
}

TEST_F(ObjectListEditor, WithoutDefinitionsOffersNothing)
{
    open();
    EXPECT_THAT(entries(openMenu("addObjectButton")),
                ElementsAre("[Add all Defined Objects]", "-", "-", "[Remove Selected Objects]"));
}

TEST_F(ObjectListEditor, OffersTheDefinedObjectsThatAreNotInTheTable)
{
    define(3);
    define(1);
    define(7);
    define(0);
    attr("ObjectList")->setLocalValue(QStringLiteral("3"));
    open();
    EXPECT_THAT(entries(openMenu("addObjectButton")),
                ElementsAre("Add all Defined Objects", "-", "Object 1", "Object 7", "-", "[Remove Selected Objects]"));
}

TEST_F(ObjectListEditor, AddsAnObjectWithTheDefaultsAmongThoseSortedByNumber)
{
    define(4);
    define(2);
    attr("ObjectList")->setLocalValue(QStringLiteral("3:9.000000:8.000000:7.000000"));
    open();
    const QString before = saved();
    choose("addObjectButton", "Object 4");
    EXPECT_EQ(text("ObjectList"), QStringLiteral("3:9.000000:8.000000:7.000000;4:5.000000:1.000000:1.000000"));
    ASSERT_EQ(objects()->model()->rowCount(), 2);
    EXPECT_EQ(cell(1, 0), 4);
    EXPECT_EQ(cell(1, 1), 5.0);
    EXPECT_EQ(cell(1, 2), 1.0);
    EXPECT_EQ(cell(1, 3), 1.0);
    choose("addObjectButton", "Object 2");
    EXPECT_EQ(cell(0, 0), 2);
    EXPECT_EQ(cell(1, 0), 3);
    EXPECT_EQ(cell(2, 0), 4);
    const QString after = saved();
    EXPECT_EQ(stack.undoNames().size(), 2) << "two changes, undone one by one";
    stack.undo();
    stack.undo();
    settle();
    EXPECT_EQ(saved(), before);
    ASSERT_EQ(objects()->model()->rowCount(), 1);
    EXPECT_EQ(objects()->verticalHeader()->count(), 1);
    stack.redo();
    stack.redo();
    settle();
    EXPECT_EQ(saved(), after);
    EXPECT_EQ(objects()->verticalHeader()->count(), 3);
}

TEST_F(ObjectListEditor, AddsAllThatAreDefinedEvenCutOuts)
{
    define(2);
    define(0);
    open();
    choose("addObjectButton", "Add all Defined Objects");
    EXPECT_EQ(text("ObjectList"), QStringLiteral("0:5.000000:1.000000:1.000000;2:5.000000:1.000000:1.000000"));
}

TEST_F(ObjectListEditor, RemovesTheSelectedObjects)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1;2;3"));
    open();
    selectRow(objects(), 0);
    selectRow(objects(), 2, Qt::ControlModifier);
    choose("addObjectButton", "Remove Selected Objects");
    EXPECT_EQ(text("ObjectList"), QStringLiteral("2:5.000000:1.000000:1.000000"));
}

TEST_F(ObjectListEditor, NamesTheNodesThatDefineAnObject)
{
    define(1, "Hat-Definition");
    define(1, "Arm-Definition");
    define(2, "Leg-Definition");
    attr("ObjectList")->setLocalValue(QStringLiteral("1;2;3"));
    open();
    EXPECT_EQ(rowHeader(0), QStringLiteral("Arm*"));
    EXPECT_EQ(rowHeader(0, Qt::ToolTipRole),
              QStringLiteral("The object is defined by the following nodes :\nArm-Definition\nHat-Definition"));
    EXPECT_EQ(rowHeader(1), QStringLiteral("Leg"));
    EXPECT_EQ(rowHeader(1, Qt::ToolTipRole),
              QStringLiteral("The object is defined by the following node : Leg-Definition"));
    EXPECT_EQ(rowHeader(2), QStringLiteral("< Not Found >"));
    EXPECT_EQ(rowHeader(2, Qt::ToolTipRole),
              QStringLiteral("This object is not defined by any\nObject Definition module.\nIt might have been deleted "
                             "or is disabled."));
    EXPECT_EQ(rowHeader(7), QStringLiteral("< Not Found >")) << "there is no such row";
}

TEST_F(ObjectListEditor, LeavesTheRowHeadersToQtWhileTheTableIsHidden)
{
    define(1, "Hat-Definition");
    attr("ObjectList")->setLocalValue(QStringLiteral("1"));
    open();
    panel->hide();
    EXPECT_EQ(rowHeader(0), QStringLiteral("1"));
}

TEST_F(ObjectListEditor, PickingAnObjectThatIsThereAlreadyChangesAndReportsNothing)
{
    define(5);
    open();
    QMenu* const menu = openMenu("addObjectButton");
    QAction* const five = action(menu, QStringLiteral("Object 5"));
    attr("ObjectList")->setLocalValue(QStringLiteral("5"));
    QSignalSpy chosen(menu, &QMenu::triggered);
    click(menu, five);
    settle();
    EXPECT_EQ(chosen.count(), 1);
    EXPECT_EQ(text("ObjectList"), QStringLiteral("5")) << "not even written anew";
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(ObjectListEditor, FollowsTheDisplaysDensityOnlyFromTheSecondBuildOn)
{
    UT_DPI_setFactor(2.0);
    panel->setModule(&node);
    EXPECT_EQ(objects()->horizontalHeader()->defaultSectionSize(), 70);
    EXPECT_EQ(objects()->horizontalHeader()->height(), 40);
    EXPECT_EQ(objects()->minimumHeight(), 350);
    EXPECT_EQ(corner(objects()), QStringLiteral("Name"));
    EXPECT_EQ(cornerMargin(objects()), 8);
    component("ObjectListEditor")->synchronize();
    EXPECT_EQ(objects()->horizontalHeader()->defaultSectionSize(), 140);
    EXPECT_EQ(cornerMargin(objects()), 8) << "never scaled";
}

TEST_F(ObjectListEditor, EditsNumbersInSpinBoxes)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1:2.125000:1.000000:1.000000"));
    open();
    const QString before = saved();
    typeIntoCell(0, 1, QLocale().toString(12.5));
    EXPECT_EQ(text("ObjectList"), QStringLiteral("1:12.500000:1.000000:1.000000"));
    const QString after = saved();
    EXPECT_EQ(stack.undoName(), QStringLiteral("Change Volume Creation"));
    stack.undo();
    settle();
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(cell(0, 1), 2.125);
    stack.redo();
    settle();
    EXPECT_EQ(saved(), after);
}

TEST_F(ObjectListEditor, LookingAtANumberDoesNotRoundIt)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1:2.125000:1.000000:1.000000"));
    open();
    typeIntoCell(0, 1, QString());
    EXPECT_EQ(text("ObjectList"), QStringLiteral("1:2.125000:1.000000:1.000000"));
}

TEST_F(ObjectListEditor, RefusesWhatIsNoNumber)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1:2.000000:3.000000:4.000000"));
    open();
    QAbstractItemModel* const model = objects()->model();
    EXPECT_FALSE(model->setData(model->index(0, 1), QStringLiteral("wide")));
    EXPECT_FALSE(model->setData(model->index(5, 1), 3.0)) << "there is no such row";
    EXPECT_EQ(text("ObjectList"), QStringLiteral("1:2.000000:3.000000:4.000000"));
    EXPECT_TRUE(model->setData(model->index(0, 3), QStringLiteral("-1e3"))) << "no range is imposed";
    EXPECT_EQ(text("ObjectList"), QStringLiteral("1:2.000000:3.000000:-1000.000000"));
}

TEST_F(ObjectListEditor, HasOneColumnThatCannotBeEdited)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1"));
    open();
    const QAbstractItemModel* const model = objects()->model();
    EXPECT_EQ(model->flags(model->index(0, 0)), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    for (int column = 1; column < 4; ++column)
        EXPECT_EQ(model->flags(model->index(0, column)), Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable);
    EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("ID"));
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Bevel Size"));
    EXPECT_EQ(model->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Elevation"));
    EXPECT_EQ(model->headerData(3, Qt::Horizontal).toString(), QStringLiteral("Elevation Smoothness"));
    EXPECT_EQ(model->index(0, 1).data(Qt::SizeHintRole).toSize(), QSize(10, 36));
    EXPECT_FALSE(model->index(0, 1).data(Qt::EditRole).isValid());
}

TEST_F(ObjectListEditor, TellsWhichDrawingsBelongToAnObject)
{
    for (const char* const name : {"Wing", "Beak"}) {
        auto& leaf = scene.root().emplace<MO_ElementModule>();
        leaf.drawingAttr()->setElementName(QString::fromLatin1(name));
        leaf.setDrawingFileExt(QStringLiteral("kvr"));
        ASSERT_TRUE(MO_Scene::connect(leaf, define(1), 0).ok());
    }
    attr("ObjectList")->setLocalValue(QStringLiteral("1"));
    open();
    const QAbstractItemModel* const model = objects()->model();
    EXPECT_EQ(model->index(0, 0).data(Qt::ToolTipRole).toString(),
              QStringLiteral("Connected to elements: Beak,\nWing"));
    EXPECT_FALSE(model->index(0, 1).data(Qt::ToolTipRole).isValid());
}

TEST_F(ObjectListEditor, LooksAtTheCurrentFrame)
{
    AT_Curve curve;
    curve.setKey({1.0, 1.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    curve.setKey({10.0, 2.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    define(1, "Hat-Definition").objectNumber()->setCurve(curve);
    attr("ObjectList")->setLocalValue(QStringLiteral("1;2"));
    open();
    EXPECT_EQ(rowHeader(0), QStringLiteral("Hat"));
    EXPECT_EQ(rowHeader(1), QStringLiteral("< Not Found >"));
    const QAbstractItemModel* const before = objects()->model();
    timeline.go(10);
    settle();
    EXPECT_NE(objects()->model(), before) << "the editor is synchronised when the frame changes";
    EXPECT_EQ(rowHeader(0), QStringLiteral("< Not Found >"));
    EXPECT_EQ(rowHeader(1), QStringLiteral("Hat"));
}

TEST_F(ObjectListEditor, OffersAddsAndExplainsWhatIsDefinedAtTheCurrentFrame)
{
    AT_Curve curve;
    curve.setKey({1.0, 1.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    curve.setKey({10.0, 2.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    ObjectDefinition& definition = define(1, "Hat-Definition");
    definition.objectNumber()->setCurve(curve);
    auto& leaf = scene.root().emplace<MO_ElementModule>();
    leaf.drawingAttr()->setElementName(QStringLiteral("Brim"));
    leaf.setDrawingFileExt(QStringLiteral("KVR"));
    ASSERT_TRUE(MO_Scene::connect(leaf, definition, 0).ok());
    open();
    timeline.go(10);
    settle();
    EXPECT_THAT(entries(openMenu("addObjectButton")),
                ElementsAre("Add all Defined Objects", "-", "Object 2", "-", "[Remove Selected Objects]"));
    button("addObjectButton")->menu()->close();
    choose("addObjectButton", "Add all Defined Objects");
    EXPECT_EQ(text("ObjectList"), QStringLiteral("2:5.000000:1.000000:1.000000"));
    const auto toolTip = [&] { return objects()->model()->index(0, 0).data(Qt::ToolTipRole).toString(); };
    EXPECT_EQ(toolTip(), QStringLiteral("Connected to elements: Brim"));
    timeline.go(1);
    settle();
    EXPECT_EQ(toolTip(), QStringLiteral("Connected to elements: ")) << "the element belongs to object 1 there";
}

TEST_F(ObjectListEditor, CannotAddAllWhereTheMenuOffersNoObject)
{
    define(3);
    define(0);
    attr("ObjectList")->setLocalValue(QStringLiteral("3"));
    open();
    EXPECT_THAT(entries(openMenu("addObjectButton")),
                ElementsAre("[Add all Defined Objects]", "-", "-", "[Remove Selected Objects]"));
}

TEST_F(ObjectListEditor, FillsItselfOnTheFirstTurnOfTheEventLoop)
{
    panel->setModule(&node);
    const QAbstractItemModel* const asked = objects()->model();
    QCoreApplication::sendPostedEvents(component("ObjectListEditor"), QEvent::Timer);
    const QAbstractItemModel* const started = objects()->model();
    EXPECT_NE(started, asked);
    settle();
    EXPECT_EQ(objects()->model(), started) << "once, and no more";
}

} // namespace
