// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two editors with an owner that only counts reports, and on incomplete widgets.
#include "ObjectDefinition/ObjectDefinition.h"
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "editors/CornerLabel.h"
#include "editors/SliderSpinBoxCombo.h"
#include "editors/VolumetricColorEditor.h"
#include "editors/VolumetricObjectListEditor.h"
#include "node/Vallorin.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

/// Names the node and counts the reports.
class Owner : public MO_NodeEditorComponentInterfaceOwner
{
public:
    MO_Module* module() override { return node; }
    void componentChanged() override { ++reports; }

    Vallorin* node = nullptr;
    int reports = 0;
};

/// Records how many rows a model has when the view receives it.
class NotingView : public QTableView
{
public:
    using QTableView::QTableView;
    void setModel(QAbstractItemModel* model) override
    {
        rowsWhenGiven = model ? model->rowCount() : -1;
        QTableView::setModel(model);
    }

    int rowsWhenGiven = -1;
};

class Components : public testing::Test
{
protected:
    Components()
        : colorList(new QTableWidget(&colorWidget))
        , addColor(new QPushButton(&colorWidget))
        , objectList(new NotingView(&objectWidget))
        , addObject(new QPushButton(&objectWidget))
        , colors(new VolumetricColorEditor(&colorWidget))
        , objects(new VolumetricObjectListEditor(&objectWidget))
    {
        colorList->setObjectName(QStringLiteral("colorList"));
        addColor->setObjectName(QStringLiteral("addColorButton"));
        objectList->setObjectName(QStringLiteral("objectList"));
        addObject->setObjectName(QStringLiteral("addObjectButton"));
        owner.node = &node;
    }
    ~Components() override
    {
        delete addColor->menu();
        delete addObject->menu();
    }

    void start()
    {
        colors->setOwner(&owner);
        objects->setOwner(&owner);
        colors->synchronize();
        objects->synchronize();
    }
    QAbstractItemModel* model() const { return objectList->model(); }

    Vallorin node;
    Owner owner;
    QWidget colorWidget;
    QWidget objectWidget;
    QTableWidget* colorList;
    QPushButton* addColor;
    NotingView* objectList;
    QPushButton* addObject;
    VolumetricColorEditor* colors;
    VolumetricObjectListEditor* objects;
};

TEST_F(Components, DoNothingToTheirWidgetsBeforeTheyAreSynchronised)
{
    colors->setOwner(&owner);
    objects->setOwner(&owner);
    EXPECT_EQ(addColor->menu(), nullptr);
    EXPECT_EQ(addObject->menu(), nullptr);
    EXPECT_EQ(colorList->columnCount(), 0);
    EXPECT_EQ(model(), nullptr);
}

TEST_F(Components, ObjectEditorFillsItselfWithoutAnOwner)
{
    QCoreApplication::processEvents();
    ASSERT_NE(model(), nullptr);
    EXPECT_EQ(model()->rowCount(), 0);
    EXPECT_EQ(model()->columnCount(), 4);
    addObject->menu()->popup(QPoint());
    EXPECT_TRUE(addObject->menu()->isEmpty()) << "without an owner the menu stays as it is";
    addObject->menu()->close();
}

TEST_F(Components, KeepTheirMenusAndLookForTheirWidgetsOnce)
{
    start();
    const QMenu* const colorMenu = addColor->menu();
    const QMenu* const objectMenu = addObject->menu();
    ASSERT_NE(colorMenu, nullptr);
    ASSERT_NE(objectMenu, nullptr);
    EXPECT_EQ(colorMenu->parent(), nullptr);
    start();
    EXPECT_EQ(addColor->menu(), colorMenu);
    EXPECT_EQ(addObject->menu(), objectMenu);
}

TEST_F(Components, EverySynchronisationMakesANewModelOfTheView)
{
    start();
    const QAbstractItemModel* const first = model();
    start();
    EXPECT_NE(model(), first);
    EXPECT_EQ(model()->parent(), objectList);
    EXPECT_EQ(first->parent(), objectList) << "the old one stays";
}

TEST_F(Components, ReportEveryRoleAndTheFirstColumnToo)
{
    node.objectInformation()->setLocalValue(QStringLiteral("1"));
    start();
    QSignalSpy changes(model(), &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model()->setData(model()->index(0, 0), 5, Qt::EditRole));
    EXPECT_EQ(owner.reports, 1);
    EXPECT_EQ(model()->index(0, 0).data().toInt(), 1) << "the number stays";
    EXPECT_TRUE(model()->setData(model()->index(0, 1), 9.0, Qt::CheckStateRole));
    EXPECT_EQ(owner.reports, 2);
    EXPECT_EQ(model()->index(0, 1).data().toDouble(), 5.0);
    EXPECT_TRUE(model()->setData(model()->index(0, 1), 9.0, Qt::EditRole));
    EXPECT_EQ(owner.reports, 3);
    EXPECT_FALSE(model()->setData(model()->index(0, 1), QStringLiteral("x"), Qt::EditRole));
    EXPECT_EQ(owner.reports, 3);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(Components, ApplyOnlyWhatIsDifferent)
{
    node.objectInformation()->setLocalValue(QStringLiteral("1:5.000000:1.000000:1.000000"));
    node.colorInformation()->setLocalValue(QStringLiteral("00000000000000a1:10:A"));
    start();
    CO_OrCommand nothing;
    colors->apply(&nothing);
    objects->apply(&nothing);
    EXPECT_TRUE(nothing.isEmpty());
    model()->setData(model()->index(0, 2), 3.0);
    CO_OrCommand change;
    colors->apply(&change);
    objects->apply(&change);
    EXPECT_EQ(change.size(), 1U);
    EXPECT_EQ(node.objectInformation()->localValue(), QStringLiteral("1:5.000000:1.000000:1.000000"))
        << "the editor itself changes nothing";
    change.execute();
    EXPECT_EQ(node.objectInformation()->localValue(), QStringLiteral("1:5.000000:3.000000:1.000000"));
    change.undo();
    EXPECT_EQ(node.objectInformation()->localValue(), QStringLiteral("1:5.000000:1.000000:1.000000"));
}

TEST_F(Components, ApplyNothingWithoutANode)
{
    owner.node = nullptr;
    start();
    CO_OrCommand command;
    colors->apply(&command);
    objects->apply(&command);
    EXPECT_TRUE(command.isEmpty());
    EXPECT_EQ(colorList->rowCount(), 0);
}

TEST_F(Components, RunWithoutTheWidgetsTheyLookFor)
{
    QWidget bare;
    VolumetricColorEditor colorEditor(&bare);
    VolumetricObjectListEditor objectEditor(&bare);
    colorEditor.setOwner(&owner);
    objectEditor.setOwner(&owner);
    colorEditor.synchronize();
    objectEditor.synchronize();
    EXPECT_TRUE(bare.findChildren<QWidget*>().isEmpty());
}

TEST_F(Components, TheirSlotsDoNothingWithoutAMenuAWidgetOrAnOwner)
{
    QWidget bare;
    VolumetricColorEditor colorEditor(&bare);
    VolumetricObjectListEditor objectEditor(&bare);
    QAction removal;
    removal.setData(-3);
    const auto callAll = [&] {
        colorEditor.refreshMenu();
        objectEditor.refreshMenu();
        colorEditor.addColorTriggered(nullptr);
        objectEditor.addObjectTriggered(nullptr);
        objectEditor.addObjectTriggered(&removal);
    };
    callAll();
    colorEditor.setOwner(&owner);
    objectEditor.setOwner(&owner);
    callAll();
    EXPECT_EQ(owner.reports, 1) << "an action that stands for no colour removes the selected rows, none here";
}

TEST_F(Components, WorkWithoutAnOwner)
{
    colors->synchronize();
    objects->synchronize();
    EXPECT_EQ(colorList->rowCount(), 0);
    colors->addColorTriggered(nullptr);
    QAction five;
    five.setData(5);
    objects->addObjectTriggered(&five);
    EXPECT_EQ(model()->rowCount(), 0) << "there is no node to take it";
    EXPECT_TRUE(model()->setData(model()->index(0, 0), 1, Qt::CheckStateRole));
}

TEST_F(Components, GiveTheViewItsModelBeforeTheyFillIt)
{
    node.objectInformation()->setLocalValue(QStringLiteral("1;2"));
    start();
    EXPECT_EQ(objectList->rowsWhenGiven, 0);
    node.objectInformation()->setLocalValue(QStringLiteral("1;2;3"));
    start();
    EXPECT_EQ(objectList->rowsWhenGiven, 2) << "the rows of before";
    EXPECT_EQ(model()->rowCount(), 3);
    EXPECT_EQ(objectList->verticalHeader()->count(), 3) << "the view counts them once more";
}

TEST_F(Components, AskForTheFrameOfANodeOutsideOfAScene)
{
    class Frames : public PLUG_CurrentFrameInterface
    {
    public:
        int currentFrame(const MO_SceneCommon* scene) const override { return scene ? 1 : 7; }
    };
    Frames frames;
    PLUG_Services::setCurrentFrameInterface(&frames);
    AT_Curve curve;
    curve.setKey({1.0, 1.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    curve.setKey({7.0, 2.0, AT_Curve::Interpolation::HOLD, {}, {}, {}});
    ObjectDefinition definition;
    definition.objectNumber()->setCurve(curve);
    ASSERT_EQ(node.sceneCommon(), nullptr);
    ASSERT_TRUE(MO_Scene::connect(definition, node).ok());
    start();
    objects->refreshMenu();
    PLUG_Services::setCurrentFrameInterface(nullptr);
    ASSERT_EQ(addObject->menu()->actions().size(), 5);
    EXPECT_EQ(addObject->menu()->actions().at(2)->text(), QStringLiteral("Object 2"));
}

TEST_F(Components, HavePublicSlots)
{
    const auto slotsOf = [](const QMetaObject& meta) {
        std::vector<std::string> names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            EXPECT_EQ(meta.method(i).methodType(), QMetaMethod::Slot);
            EXPECT_EQ(meta.method(i).access(), QMetaMethod::Public) << meta.method(i).name().toStdString();
            names.push_back(meta.method(i).methodSignature().toStdString());
        }
        return names;
    };
    EXPECT_THAT(slotsOf(VolumetricColorEditor::staticMetaObject),
                ElementsAre("refreshMenu()", "addColorTriggered(QAction*)"));
    EXPECT_THAT(slotsOf(VolumetricObjectListEditor::staticMetaObject),
                ElementsAre("refreshMenu()", "addObjectTriggered(QAction*)"));
    EXPECT_THAT(slotsOf(SliderSpinBoxCombo::staticMetaObject),
                ElementsAre("onSliderMoved(int)", "onSliderReleased()", "onSpinBoxChanged(int)"));
}

TEST_F(Components, MenuWithoutPalettesHasTheRemovalOnly)
{
    start();
    QMetaObject::invokeMethod(colors, "refreshMenu");
    EXPECT_EQ(addColor->menu()->actions().size(), 2) << "no palettes: a separator and the removal";
    QAction* const removal = addColor->menu()->actions().last();
    EXPECT_EQ(removal->text(), QStringLiteral("Remove Selected Colours"));
    EXPECT_FALSE(removal->isEnabled());
}

TEST_F(Components, HaveTheirTexts)
{
    using Editor = VolumetricObjectListEditor;
    EXPECT_EQ(VolumetricColorEditor::getHeaderTitles(), QList<QString>{QStringLiteral("Carving <------> Adding")});
    EXPECT_EQ(Editor::getHeaderTitle(0), QStringLiteral("ID"));
    EXPECT_EQ(Editor::getHeaderTitle(1), QStringLiteral("Bevel Size"));
    EXPECT_EQ(Editor::getHeaderTitle(2), QStringLiteral("Elevation"));
    EXPECT_EQ(Editor::getHeaderTitle(3), QStringLiteral("Elevation Smoothness"));
    EXPECT_EQ(Editor::getHeaderTitle(-1), QStringLiteral("Elevation Smoothness"));
    const char* const texts[] = {"Connected to elements: ",
                                 "< Not Found >",
                                 "This object is not defined by any\nObject Definition module.\nIt might have been "
                                 "deleted or is disabled.",
                                 "-Definition",
                                 "The object is defined by the following node",
                                 "The object is defined by the following nodes",
                                 ""};
    for (int id = 0; id < 7; ++id)
        EXPECT_EQ(Editor::getString(static_cast<Editor::eStringId>(id)), QString::fromLatin1(texts[id])) << id;
}

TEST(CornerLabel, StandsInPlaceOfTheOneBefore)
{
    QTableView table;
    setCornerLabel(nullptr, QStringLiteral("Nowhere"), 1);
    setCornerLabel(&table, QStringLiteral("First"), 8);
    setCornerLabel(&table, QStringLiteral("Second"), 16);
    const auto labels = table.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0]->text(), QStringLiteral("Second"));
    EXPECT_EQ(labels[0]->sizePolicy(),
              QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding, QSizePolicy::DefaultType));
    EXPECT_EQ(labels[0]->parentWidget()->layout()->contentsMargins(), QMargins(16, 0, 0, 0));
}

} // namespace
