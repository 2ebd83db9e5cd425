// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the tests of the editors share: a scene with a node, the panel that shows the node's editor, and simulated input
// of a person.
#pragma once

#include "ObjectDefinition/ObjectDefinition.h"
#include "Plugins/Vallorin/parameters/TextPrinting.h"
#include "QuarvelBaseCore/UT_DPI.h"
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelPlugInManager/PLUG_EditorPanel.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/graph/MO_NodeEditorComponentInterface.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <QAbstractButton>
#include <QDoubleSpinBox>
#include <QEventLoop>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// A timeline.
class Timeline : public PLUG_CurrentFrameInterface
{
public:
    int currentFrame(const MO_SceneCommon*) const override { return _frame; }
    void go(int frame)
    {
        _frame = frame;
        tell();
    }

private:
    int _frame = 1;
};

/// A scene with a node and its panel, 700 pixels wide, on the display.
class EditorTest : public testing::Test
{
protected:
    EditorTest() : node(scene.root().add(MO_ModuleFactorySingleton().create(QStringLiteral("Vallorin"))))
    {
        PLUG_Services::setCurrentFrameInterface(&timeline);
        panel = std::make_unique<PLUG_EditorPanel>(&stack);
        panel->resize(700, 1000);
    }
    ~EditorTest() override
    {
        panel.reset();
        // Menus that a test left open are deleted with the editor, on the next turn of the event loop.
        settle();
        PLUG_Services::setCurrentFrameInterface(nullptr);
        UT_DPI_setFactor(1.0);
    }

    /// Opens the editor and runs all pending events.
    void open()
    {
        panel->setModule(&node);
        panel->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
        settle();
    }

    /// Runs everything that is delayed: the panel delays nothing for longer than 120 milliseconds, and an event loop
    /// runs timers in the order in which they are due, however late.
    static void settle()
    {
        QEventLoop loop;
        QTimer::singleShot(200, &loop, &QEventLoop::quit);
        loop.exec();
    }

    QString text(const char* key) const { return attr(key)->localValue(); }
    AT_StringAttr* attr(const char* key) const
    {
        return dynamic_cast<AT_StringAttr*>(node.findAttr(QString::fromLatin1(key)));
    }

    /// The scene as its file would be.
    QString saved() const
    {
        QString xml;
        PO_XmlWriter writer(xml);
        scene.writeXml(writer);
        return xml;
    }

    CM_SharedPtr<CM_Palette> addPalette(const char* name)
    {
        const auto palette = UT_makeShared<CM_Palette>(UT_String(name));
        scene.addPalette(palette);
        return palette;
    }
    static void addColour(CM_Palette& palette, const char* name, std::uint64_t id, CM_Rgba nominal = {})
    {
        const auto colour = UT_makeShared<CM_Color>(UT_String(name), CM_Color::NORMAL_COLOR, CM_ColorId_t(id));
        colour->SetNominalColor(nominal);
        ASSERT_TRUE(palette.addColor(colour));
    }
    static void addTexture(CM_Palette& palette, const char* name, std::uint64_t id)
    {
        ASSERT_TRUE(palette.addColor(
            UT_makeShared<CM_TextureColor>(UT_String(name), CM_TextureColor::GRADIENT_TEXTURE, CM_ColorId_t(id))));
    }

    /// A definition of an object upstream of the node, at its next input.
    ObjectDefinition& define(int number, const char* name = "")
    {
        auto& definition = scene.root().emplace<ObjectDefinition>();
        if (*name)
            definition.setInstanceName(QString::fromLatin1(name));
        definition.objectNumber()->setLocalValue(number);
        EXPECT_TRUE(MO_Scene::connect(definition, node, nextInput++).ok());
        return definition;
    }

    MO_NodeEditorComponentInterface* component(const char* name) const
    {
        return panel->findChild<MO_NodeEditorComponentInterface*>(QString::fromLatin1(name));
    }
    QTableWidget* colours() const { return panel->findChild<QTableWidget*>(QStringLiteral("colorList")); }
    QTableView* objects() const { return panel->findChild<QTableView*>(QStringLiteral("objectList")); }
    QPushButton* button(const char* name) const { return panel->findChild<QPushButton*>(QString::fromLatin1(name)); }

    /// Opens a button's menu, as a click on the button does.
    QMenu* openMenu(const char* name) const
    {
        QMenu* const menu = button(name)->menu();
        menu->popup(QPoint(0, 0));
        return menu;
    }
    static QAction* action(const QMenu* menu, const QString& text)
    {
        for (QAction* const entry : menu->actions())
            if (entry->text() == text)
                return entry;
        return nullptr;
    }
    static void click(QMenu* menu, QAction* entry)
    {
        ASSERT_NE(entry, nullptr);
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(entry).center());
    }
    /// Chooses an entry of the menu of a button; with a second text, that entry of the submenu of the first.
    void choose(const char* buttonName, const char* entry, const char* subentry = nullptr)
    {
        QMenu* const menu = openMenu(buttonName);
        QAction* const chosen = action(menu, QString::fromUtf8(entry));
        ASSERT_NE(chosen, nullptr) << "there is no entry " << entry;
        if (!subentry) {
            click(menu, chosen);
        } else {
            menu->setActiveAction(chosen);
            QTest::keyClick(menu, Qt::Key_Right);
            click(chosen->menu(), action(chosen->menu(), QString::fromUtf8(subentry)));
        }
        settle();
    }
    /// The texts of a menu; "-" for a separator; disabled entries are in brackets.
    static std::vector<std::string> entries(const QMenu* menu)
    {
        std::vector<std::string> texts;
        for (const QAction* const entry : menu->actions()) {
            const std::string shown = entry->isSeparator() ? "-" : entry->text().toStdString();
            texts.push_back(entry->isSeparator() || entry->isEnabled() ? shown : '[' + shown + ']');
        }
        return texts;
    }

    /// Clicks on a row's header, which selects the row; adds it to the selection with Control.
    static void selectRow(QTableView* table, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QHeaderView* const header = table->verticalHeader();
        const QPoint middle(header->width() / 2, header->sectionViewportPosition(row) + header->sectionSize(row) / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, modifiers, middle);
    }

    /// The slider of a row of the colour table.
    QSlider* slider(int row) const { return colours()->cellWidget(row, 0)->findChild<QSlider*>(); }
    QSpinBox* spinBox(int row) const { return colours()->cellWidget(row, 0)->findChild<QSpinBox*>(); }

    static QString corner(const QTableView* table)
    {
        const auto* const shown = cornerLabel(table);
        return shown ? shown->text() : QString();
    }
    static int cornerMargin(const QTableView* table)
    {
        return cornerLabel(table)->parentWidget()->layout()->contentsMargins().left();
    }

    /// The value shown in a cell of the object table.
    double cell(int row, int column) const
    {
        return objects()->model()->index(row, column).data(Qt::DisplayRole).toDouble();
    }
    QString rowHeader(int row, int role = Qt::DisplayRole) const
    {
        return objects()->model()->headerData(row, Qt::Vertical, role).toString();
    }

    /// Types a text into a cell, as after a double click, and presses Return.
    void typeIntoCell(int row, int column, const QString& typed)
    {
        const QModelIndex index = objects()->model()->index(row, column);
        const QPoint middle = objects()->visualRect(index).center();
        QTest::mouseClick(objects()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseDClick(objects()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        // The test library's double click leaves the button pressed.
        QTest::mouseRelease(objects()->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        auto* const editor = objects()->viewport()->findChild<QDoubleSpinBox*>();
        ASSERT_NE(editor, nullptr) << "a double click opens no spin box";
        editor->selectAll();
        QTest::keyClicks(editor, typed);
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
    }

    Timeline timeline;
    MO_Scene scene;
    CO_CommandStack stack;
    MO_Module& node;
    unsigned nextInput = 0;
    std::unique_ptr<PLUG_EditorPanel> panel;

private:
    static QLabel* cornerLabel(const QTableView* table)
    {
        for (const QAbstractButton* const button : table->findChildren<QAbstractButton*>())
            if (button->inherits("QTableCornerButton"))
                return button->findChild<QLabel*>();
        return nullptr;
    }
};
