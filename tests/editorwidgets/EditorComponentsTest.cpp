// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two editors with an owner that does nothing but count, and on widgets that lack what they look for.
#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelCommand/CO_OrCommand.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "editors/CornerLabel.h"
#include "editors/VolumetricColorEditor.h"
#include "editors/VolumetricObjectListEditor.h"
#include "node/Vallorin.h"
#include "parameters/TextPrinting.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Names the node and counts the reports.
class Owner : public MO_NodeEditorComponentInterfaceOwner
{
public:
    MO_Module* module() override { return node; }
    void componentChanged() override { ++reports; }

    Vallorin* node = nullptr;
    int reports = 0;
};

class Components : public testing::Test
{
protected:
    Components()
        : colorList(new QTableWidget(&colorWidget))
        , addColor(new QPushButton(&colorWidget))
        , objectList(new QTableView(&objectWidget))
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
    QTableView* objectList;
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
