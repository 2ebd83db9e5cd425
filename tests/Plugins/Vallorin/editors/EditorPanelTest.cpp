// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The panel: standard widgets, commands, and nodes that change or are deleted while they are shown.
#include "Plugins/Vallorin/editors/EditorTesting.h"

#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QToolButton>

#include <random>

namespace {

using testing::ElementsAre;

class EditorPanel : public EditorTest
{
protected:
    AT_DoubleAttr& number(const char* key) const
    {
        return *dynamic_cast<AT_DoubleAttr*>(node.findAttr(QString::fromLatin1(key)));
    }
    template<typename Widget>
    Widget* field(const char* key) const
    {
        return panel->findChild<QWidget*>(QString::fromLatin1(key))->findChild<Widget*>();
    }
    QToolButton* keyButton(const char* key) const { return field<QToolButton>(key); }

    static void type(QDoubleSpinBox* into, double value)
    {
        into->setFocus();
        into->selectAll();
        QTest::keyClicks(into, QLocale().toString(value));
        QTest::keyClick(into, Qt::Key_Return);
    }
    static void toggle(QCheckBox* box)
    {
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    }
};

TEST_F(EditorPanel, SetsANumberThatIsTypedAndShowsItsUndo)
{
    open();
    auto* const spin = field<QDoubleSpinBox>("BlurScale");
    EXPECT_EQ(spin->value(), 1.0);
    const QString before = saved();
    type(spin, 2.5);
    EXPECT_EQ(number("BlurScale").localValue(), 2.5);
    EXPECT_EQ(stack.undoNames(), QStringList(QStringLiteral("Change Bevel Multiplier")));
    const QString after = saved();
    stack.undo();
    settle();
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(spin->value(), 1.0);
    EXPECT_EQ(field<QSlider>("BlurScale")->value(), 10);
    stack.redo();
    settle();
    EXPECT_EQ(saved(), after);
    EXPECT_EQ(spin->value(), 2.5);
}

TEST_F(EditorPanel, MakesADragOfASliderOneStep)
{
    open();
    auto* const slider = field<QSlider>("ElevationScale");
    EXPECT_EQ(slider->maximum(), 100) << "0 to 10 in steps of 0.1";
    slider->setSliderDown(true);
    for (const int position : {11, 12, 13, 3})
        slider->setSliderPosition(position);
    slider->setSliderDown(false);
    EXPECT_EQ(number("ElevationScale").localValue(), 0.3);
    EXPECT_EQ(field<QDoubleSpinBox>("ElevationScale")->value(), 0.3);
    QTest::keyClick(slider, Qt::Key_Right);
    EXPECT_EQ(number("ElevationScale").localValue(), 0.4);
    EXPECT_EQ(stack.undoNames().size(), 2);
    stack.undo();
    stack.undo();
    EXPECT_EQ(number("ElevationScale").localValue(), 1.0);
}

TEST_F(EditorPanel, HoldsNumbersToTheirLimits)
{
    open();
    auto* const spin = field<QDoubleSpinBox>("ElevationSmoothness");
    EXPECT_EQ(spin->minimum(), 0.1);
    EXPECT_EQ(spin->maximum(), 128.0);
    EXPECT_EQ(spin->singleStep(), 0.1);
}

TEST_F(EditorPanel, SwitchesATruthValueEachClickAStep)
{
    open();
    auto* const box = field<QCheckBox>("GenerateNormals");
    EXPECT_EQ(box->text(), QStringLiteral("Generate Normals"));
    const auto* const normals = dynamic_cast<AT_BoolAttr*>(node.findAttr(QStringLiteral("GenerateNormals")));
    ASSERT_TRUE(box->isChecked());
    toggle(box);
    EXPECT_FALSE(normals->localValue());
    toggle(box);
    EXPECT_TRUE(normals->localValue());
    EXPECT_EQ(stack.undoNames().size(), 2);
    stack.undo();
    settle();
    EXPECT_FALSE(normals->localValue());
    EXPECT_FALSE(box->isChecked());
}

TEST_F(EditorPanel, ChoosesAValueOfAnEnumeration)
{
    open();
    auto* const list = field<QComboBox>("NormalQuality");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->itemText(0), QStringLiteral("Low"));
    EXPECT_EQ(list->itemText(1), QStringLiteral("Medium"));
    EXPECT_EQ(list->itemText(2), QStringLiteral("High"));
    const auto* const quality = dynamic_cast<AT_EnumAttrBase*>(node.findAttr(QStringLiteral("NormalQuality")));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(quality->localInt(), 2);
    stack.undo();
    settle();
    EXPECT_EQ(quality->localInt(), 1);
    EXPECT_EQ(list->currentText(), QStringLiteral("Medium"));
}

TEST_F(EditorPanel, SetsAndRemovesAKeyAtTheFrame)
{
    open();
    const QString before = saved();
    timeline.go(5);
    QTest::mouseClick(keyButton("BlurScale"), Qt::LeftButton);
    ASSERT_NE(number("BlurScale").curve().keyAt(5.0), nullptr);
    timeline.go(9);
    type(field<QDoubleSpinBox>("BlurScale"), 3.0);
    EXPECT_EQ(number("BlurScale").curve().keys().size(), 2U) << "an animated number gets a key where it is changed";
    timeline.go(7);
    EXPECT_EQ(field<QDoubleSpinBox>("BlurScale")->value(), 2.0) << "half-way from 1 to 3";
    timeline.go(5);
    QTest::mouseClick(keyButton("BlurScale"), Qt::LeftButton);
    timeline.go(9);
    QTest::mouseClick(keyButton("BlurScale"), Qt::LeftButton);
    EXPECT_FALSE(number("BlurScale").isAnimated());
    EXPECT_EQ(number("BlurScale").localValue(), 3.0) << "what was seen stays when the last key goes";
    while (stack.undo())
        continue;
    EXPECT_EQ(saved(), before);
}

TEST_F(EditorPanel, ListsTheAttributesOfANodeWithoutALayout)
{
    ObjectDefinition& definition = define(4);
    panel->setModule(&definition);
    panel->show();
    settle();
    auto* const spin = field<QDoubleSpinBox>("ObjectNumber");
    ASSERT_NE(spin, nullptr);
    EXPECT_EQ(spin->value(), 4.0);
    EXPECT_EQ(spin->decimals(), 0);
    type(spin, 6);
    EXPECT_EQ(definition.objectId(1.0), 6);
    EXPECT_NE(field<QCheckBox>("ObjectEnabled"), nullptr);
    EXPECT_TRUE(panel->findChildren<QGroupBox*>().isEmpty());
}

TEST_F(EditorPanel, TellsWhatOfALayoutItDoesNotUnderstandAndShowsTheRest)
{
    class Odd : public ObjectDefinition
    {
    public:
        QDomElement obtainEditorLayout() override
        {
            QDomDocument document;
            document.setContent(QStringLiteral("<layout version=\"1\"><row><attr name=\"ObjectNumber\"/><attr "
                                               "name=\"Nothing\"/></row><custom type=\"Nobodys\"/><knob/>"
                                               "<text>A remark</text></layout>"));
            return document.documentElement();
        }
    };
    panel->setModule(&scene.root().emplace<Odd>());
    EXPECT_EQ(panel->warnings().size(), 3);
    EXPECT_NE(field<QDoubleSpinBox>("ObjectNumber"), nullptr);
    QStringList labels;
    for (const QLabel* const label : panel->content()->findChildren<QLabel*>())
        labels.append(label->text());
    EXPECT_TRUE(labels.contains(QStringLiteral("A remark")));
}

TEST_F(EditorPanel, FollowsAnotherPanel)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1"));
    open();
    PLUG_EditorPanel other(&stack);
    other.setModule(&node);
    auto* const table = other.findChild<QTableView*>(QStringLiteral("objectList"));
    typeIntoCell(0, 1, QStringLiteral("8"));
    EXPECT_EQ(table->model()->index(0, 1).data().toDouble(), 8.0);
}

TEST_F(EditorPanel, ReachesAllFieldsWithTheTabKeyFromTheTopDown)
{
    open();
    objects()->setFocus();
    std::vector<std::string> visited;
    for (int i = 0; i < 40; ++i) {
        const QWidget* const focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        QString name = focus->objectName();
        for (const QWidget* widget = focus; name.isEmpty() || name.startsWith(QStringLiteral("qt_"));
             widget = widget->parentWidget())
            name = widget->parentWidget()->objectName();
        if (visited.empty() || visited.back() != name.toStdString())
            visited.push_back(name.toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        if (QApplication::focusWidget() == objects())
            break;
    }
    EXPECT_THAT(visited, ElementsAre("objectList", "addObjectButton", "colorList", "addColorButton", "BlurScale", "key",
                                     "ElevationScale", "key", "ElevationSmoothness", "key", "ClipBlurredWithGeometry",
                                     "UseTruckFactor", "GenerateNormals", "NormalQuality", "DepthInBlue"));
}

TEST_F(EditorPanel, SwitchesOffWhatIsLinked)
{
    open();
    ASSERT_TRUE(field<QDoubleSpinBox>("BlurScale")->isEnabled());
    number("BlurScale").setSurrogate(UT_makeShared<AT_AttrLink>(QStringLiteral("Nowhere.Number")));
    settle();
    EXPECT_FALSE(field<QDoubleSpinBox>("BlurScale")->isEnabled());
    EXPECT_TRUE(field<QDoubleSpinBox>("ElevationScale")->isEnabled());
}

TEST_F(EditorPanel, OutlivesItsNode)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1;2"));
    open();
    QMenu* const menu = openMenu("addObjectButton");
    MO_NodeEditorComponentInterface* const editor = component("ObjectListEditor");
    scene.root().take(node).reset();
    // Input that is still pending in the editors is dropped.
    menu->close();
    toggle(field<QCheckBox>("GenerateNormals"));
    type(field<QDoubleSpinBox>("BlurScale"), 4.0);
    editor->synchronize();
    EXPECT_EQ(objects()->model()->rowCount(), 0);
    settle();
    EXPECT_EQ(panel->module(), nullptr);
    EXPECT_EQ(panel->content(), nullptr);
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(EditorPanel, OutlivesItsScene)
{
    auto own = std::make_unique<MO_Scene>();
    MO_Module& inIt = own->root().add(MO_ModuleFactorySingleton().create(QStringLiteral("Vallorin")));
    panel->setModule(&inIt);
    panel->show();
    settle();
    own.reset();
    toggle(field<QCheckBox>("GenerateNormals"));
    panel->update();
    settle();
    EXPECT_EQ(panel->content(), nullptr);
}

TEST_F(EditorPanel, WaitsForANodeThatUndoMayBringBack)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1"));
    open();
    ASSERT_TRUE(stack.execute(MO_removeModulesCmd({&node})));
    settle();
    EXPECT_EQ(panel->module(), &node);
    EXPECT_FALSE(panel->content()->isEnabled());
    stack.undo();
    settle();
    EXPECT_TRUE(panel->content()->isEnabled());
    typeIntoCell(0, 1, QStringLiteral("8"));
    EXPECT_EQ(text("ObjectList"), QStringLiteral("1:8.000000:1.000000:1.000000"));
}

TEST_F(EditorPanel, UndoWhileACellIsEditedTakesTheFieldAway)
{
    attr("ObjectList")->setLocalValue(QStringLiteral("1"));
    open();
    typeIntoCell(0, 1, QStringLiteral("8"));
    const QPoint middle = objects()->visualRect(objects()->model()->index(0, 1)).center();
    QTest::mouseDClick(objects()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    QTest::mouseRelease(objects()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    auto* const editor = objects()->viewport()->findChild<QDoubleSpinBox*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("9"));
    stack.undo();
    settle();
    EXPECT_EQ(text("ObjectList"), QStringLiteral("1"));
    EXPECT_EQ(cell(0, 1), 5.0);
    EXPECT_TRUE(stack.canRedo()) << "what was half typed is no change";
}

TEST_F(EditorPanel, ShowsAnotherNodeInPlaceOfTheFirst)
{
    ObjectDefinition& definition = define(1);
    open();
    panel->setModule(&definition);
    settle();
    EXPECT_EQ(colours(), nullptr);
    panel->setModule(nullptr);
    settle();
    EXPECT_EQ(panel->content(), nullptr);
}

TEST_F(EditorPanel, CanBeClosedWhileItsMenuIsOpen)
{
    define(1);
    open();
    openMenu("addObjectButton");
    panel.reset();
    settle();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// The panel in the hands of somebody who tries everything.
class EditorPanelOfAnybody : public EditorPanel
{
protected:
    int upTo(unsigned end) { return static_cast<int>(_random() % end); }

    void chooseFromAMenu()
    {
        const char* const name = upTo(2) == 0 ? "addObjectButton" : "addColorButton";
        if (!button(name))
            return;
        QMenu* const menu = openMenu(name);
        QAction* chosen = menu->actions().at(upTo(static_cast<unsigned>(menu->actions().size())));
        menu->close();
        if (QMenu* const submenu = chosen->menu())
            chosen = submenu->actions().first();
        if (chosen->isEnabled())
            Q_EMIT menu->triggered(chosen);
    }

    void changeAnObject()
    {
        if (!objects() || objects()->model()->rowCount() == 0)
            return;
        objects()->selectRow(0);
        objects()->model()->setData(objects()->model()->index(0, 1 + upTo(3)), upTo(20));
    }

    void changeAColour()
    {
        if (!colours() || colours()->rowCount() == 0)
            return;
        colours()->selectRow(0);
        spinBox(0)->setValue(upTo(101));
    }

    void doSomething()
    {
        switch (upTo(9)) {
        case 0:
            stack.undo();
            break;
        case 1:
            stack.redo();
            break;
        case 2:
            chooseFromAMenu();
            break;
        case 3:
            changeAnObject();
            break;
        case 4:
            changeAColour();
            break;
        case 5:
            panel->setModule(upTo(3) == 0 ? nullptr : &node);
            break;
        case 6:
            if (node.sceneCommon())
                stack.execute(MO_removeModulesCmd({&node}));
            break;
        case 7:
            timeline.go(upTo(30));
            break;
        default:
            QCoreApplication::processEvents();
            break;
        }
    }

private:
    std::mt19937 _random{20260321};
};

TEST_F(EditorPanelOfAnybody, LeavesEverythingToBeUndone)
{
    addColour(*addPalette("Body"), "Skin", 0xa1);
    define(1);
    define(2);
    open();
    const QString before = saved();
    for (int step = 0; step < 10000; ++step)
        doSomething();
    panel->setModule(&node);
    while (stack.undo())
        continue;
    settle();
    EXPECT_EQ(saved(), before);
}

} // namespace
