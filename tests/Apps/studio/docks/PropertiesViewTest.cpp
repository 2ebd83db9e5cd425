// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The properties: header and editor of the selected node.
#include "Apps/studio/docks/DocksTesting.h"

#include "QuarvelPlugInManager/PLUG_EditorPanel.h"
#include "QuarvelSceneCore/editing/MO_ModuleCommands.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {

class PropertiesViewTest : public docks::DocksTest
{
protected:
    PropertiesView& properties() const { return view<PropertiesView>(); }
};

TEST_F(PropertiesViewTest, FollowsTheSelection)
{
    EXPECT_FALSE(properties().nameField().isVisible());
    document.setSelection({&module("Hero")});
    EXPECT_TRUE(properties().nameField().isVisible());
    EXPECT_EQ(properties().nameField().text(), QStringLiteral("Hero"));
    EXPECT_EQ(properties().panel().module(), &module("Hero"));
    document.setSelection({&module("Hero"), &module("Display")});
    EXPECT_EQ(properties().panel().module(), &module("Display"));
    expectNoChange();
}

TEST_F(PropertiesViewTest, TheNameIsTyped)
{
    document.setSelection({&module("Hat")});
    QLineEdit& name = properties().nameField();
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, QStringLiteral("Cap"));
    EXPECT_EQ(state(), before);
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_NE(document.scene().findModule(QStringLiteral("Cap")), nullptr);
    expectOneChange(QStringLiteral("Rename \"Hat\""));
}

TEST_F(PropertiesViewTest, ANameThatIsTakenGetsANumberAndTheFieldShowsIt)
{
    document.setSelection({&module("Hat")});
    QLineEdit& name = properties().nameField();
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, QStringLiteral("Hero"));
    QTest::keyClick(&name, Qt::Key_Return);
    docks::settle();
    EXPECT_EQ(name.text(), QStringLiteral("Hero_1"));
}

TEST_F(PropertiesViewTest, TheBoxSwitchesTheNodeAndFollowsUndo)
{
    document.setSelection({&module("Hat")});
    QCheckBox& box = properties().enabledBox();
    EXPECT_TRUE(box.isChecked());
    // As one who came there by the keyboard; for all others the space bar plays.
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_FALSE(module("Hat").enabled());
    expectOneChange(QStringLiteral("Disable \"Hat\""));
    document.undo();
    EXPECT_TRUE(box.isChecked());
}

TEST_F(PropertiesViewTest, ADeletedNodeIsShownNoMore)
{
    document.setSelection({&module("Hat")});
    document.execute(MO_removeModulesCmd({&module("Hat")}));
    docks::settle();
    EXPECT_EQ(properties().panel().module(), nullptr);
    EXPECT_FALSE(properties().nameField().isVisible());
}

} // namespace
