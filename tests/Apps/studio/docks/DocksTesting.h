// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A window with the docks around a document with a small scene, and short ways to look at both:
//
//     Hero (drawings 1, 2)   Hat (drawing 1)      Arm (a group with an input, an output and a composite inside)
//            \                    /
//             Composite
//                 |
//             Display
#pragma once

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "studio/docks/graph/NodePanel.h"
#include "studio/docks/scene/ElementsView.h"
#include "studio/docks/scene/PaletteView.h"
#include "studio/docks/scene/PropertiesView.h"
#include "studio/docks/timeline/TimelineView.h"
#include "studio/window/StudioDocks.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace docks {

inline const CM_ColorId_t kSkin(0x51);
inline const CM_ColorId_t kCloth(0x52);

inline CELVEC_Shape rectangle(const QRectF& box, const CM_ColorId_t& color)
{
    CELVEC_Shape shape;
    shape.path.addRect(box);
    shape.color = color;
    return shape;
}

inline CM_SharedPtr<CM_BaseColorObj> color(const char* name, CM_ColorId_t id, const CM_Rgba& value)
{
    auto made = UT_makeShared<CM_Color>(UT_String(name), CM_Color::NORMAL_COLOR, id);
    made->SetNominalColor(value);
    return made;
}

inline std::unique_ptr<MO_Scene> smallScene()
{
    auto scene = std::make_unique<MO_Scene>();
    scene->setFrameRange(1, 24);
    auto palette = UT_makeShared<CM_Palette>(UT_String("Hero"), UT_Id(0x50));
    palette->addColor(color("Skin", kSkin, {230, 180, 150, 255}));
    palette->addColor(color("Cloth", kCloth, {40, 80, 200, 255}));
    scene->addPalette(palette);
    XUGroup& root = scene->root();
    const auto addElement = [&](const char* name, int drawings) -> MO_ElementModule& {
        auto& element = root.emplace<MO_ElementModule>();
        element.setInstanceName(QLatin1String(name));
        element.drawingAttr()->setElementName(QLatin1String(name));
        AT_ExposureSheet sheet;
        for (int i = 1; i <= drawings; ++i) {
            auto drawing = UT_makeShared<CELVEC_Kvd>(palette);
            drawing->addShape(GR_Art::COLOUR, rectangle(QRectF(-40, -60, 80, 120), kCloth));
            drawing->addShape(GR_Art::COLOUR, rectangle(QRectF(-20.0 * i, -110, 40.0 * i, 50), kSkin));
            element.setDrawing(QString::number(i), drawing);
            sheet.setExposure(1 + (i - 1) * 8, QString::number(i));
        }
        element.drawingAttr()->setExposures(sheet);
        return element;
    };
    MO_ElementModule& hero = addElement("Hero", 2);
    MO_ElementModule& hat = addElement("Hat", 1);
    auto& composite = root.emplace<MO_CompositeModule>();
    auto& display = root.emplace<MO_DisplayModule>();
    auto& arm = root.emplace<XUGroup>();
    arm.setInstanceName(QStringLiteral("Arm"));
    arm.addInPort();
    arm.addOutPort();
    arm.emplace<MO_CompositeModule>();
    EXPECT_TRUE(MO_Scene::connect(hero, composite, 0).ok());
    EXPECT_TRUE(MO_Scene::connect(hat, composite, 1).ok());
    EXPECT_TRUE(MO_Scene::connect(composite, display).ok());
    return scene;
}

/// Lets queued signals arrive and deferred deletions happen.
inline void settle()
{
    // Twice, for what the signals post in their turn.
    for (int round = 0; round < 2; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

class DocksTest : public testing::Test
{
protected:
    DocksTest()
    {
        document.replaceScene(smallScene(), QString(), false);
        addStudioDocks(window, document);
        window.resize(1500, 950);
        window.show();
        QApplication::setActiveWindow(&window);
        settle();
        before = state();
    }

    template<typename View>
    View& view() const
    {
        auto* found = window.findChild<View*>();
        EXPECT_NE(found, nullptr);
        return *found;
    }

    NodeView& nodes() const { return view<NodePanel>().view(); }
    MO_Module& module(const char* name) const
    {
        MO_Module* const found = document.scene().findModule(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    MO_ElementModule& element(const char* name) const { return dynamic_cast<MO_ElementModule&>(module(name)); }

    /// The scene as it would be saved, palettes included.
    QString state() const
    {
        QString text = document.scene().toXml();
        for (const auto& palette : document.scene().palettes()) {
            text += palette->GetName().ToQString() + QLatin1Char('\n');
            for (const auto& each : palette->colors())
                text += each->GetColorName().ToQString() + PaletteView::colorText(each->GetNominalColor()) +
                        QLatin1Char('\n');
        }
        return text;
    }

    /// That one command of this name was executed, and undo and redo restore the exact bytes.
    void expectOneChange(const QString& name)
    {
        settle();
        ASSERT_EQ(document.commands().undoNames().size(), 1);
        EXPECT_EQ(document.commands().undoName(), name);
        const QString after = state();
        EXPECT_NE(after, before);
        document.undo();
        settle();
        EXPECT_EQ(state(), before);
        document.redo();
        settle();
        EXPECT_EQ(state(), after);
    }
    void expectNoChange()
    {
        settle();
        EXPECT_FALSE(document.commands().canUndo());
        EXPECT_EQ(state(), before);
    }

    void drag(QWidget& widget, const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(&widget, (from + to) / 2);
        QTest::mouseMove(&widget, to);
        QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, to);
    }
    QPoint middleOf(const MO_Module& module) const
    {
        return nodes().mapFromScene(nodes().item(module)->box().center());
    }
    /// Chooses an entry of a menu by its text.
    static bool choose(const QMenu& menu, const QString& text)
    {
        for (QAction* action : menu.actions()) {
            if (action->text() == text && action->isEnabled()) {
                action->trigger();
                return true;
            }
            if (action->menu() && choose(*action->menu(), text))
                return true;
        }
        return false;
    }

    StudioDocument document;
    QMainWindow window;
    QString before;
};

} // namespace docks
