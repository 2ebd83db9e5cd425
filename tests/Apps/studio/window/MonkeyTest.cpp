// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ten thousand random steps through all docks, always the same ones: nodes come and go while their editors are open,
// panels close, undo and redo run in between, and other scenes are opened. Nothing crashes, and undoing everything
// brings back the first bytes of the last scene.
#include "Apps/studio/docks/DocksTesting.h"

#include "QuarvelPlugInManager/PLUG_EditorPanel.h"
#include "QuarvelSceneCore/editing/MO_SceneCommands.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QTreeWidget>

#include <array>
#include <random>

namespace {

constexpr int kSteps = 10000;
constexpr unsigned kSeed = 20261121;
constexpr std::size_t kManyModules = 24;

class MonkeyTest : public docks::DocksTest
{
protected:
    using Step = void (MonkeyTest::*)();

    int upTo(int last) { return std::uniform_int_distribution(0, last)(_random); }
    bool chance(int percent) { return upTo(99) < percent; }
    template<typename List>
    auto any(const List& list)
    {
        return list[static_cast<decltype(list.size())>(upTo(static_cast<int>(list.size()) - 1))];
    }

    std::vector<MO_Module*> modules() const
    {
        std::vector<MO_Module*> all;
        document.scene().root().forEachModule([&](MO_Module& each) { all.push_back(&each); });
        return all;
    }
    std::vector<MO_Module*> modulesShown() const
    {
        std::vector<MO_Module*> shown;
        for (const auto& each : nodes().group().modules())
            shown.push_back(each.get());
        return shown;
    }
    bool isFull() const { return modules().size() >= kManyModules; }

    void select()
    {
        const auto all = chance(50) ? modules() : modulesShown();
        if (all.empty())
            return document.setSelection({});
        if (chance(30))
            return QTest::mouseClick(nodes().viewport(), Qt::LeftButton,
                                     chance(40) ? Qt::ControlModifier : Qt::NoModifier, anyPlace(*nodes().viewport()));
        document.setSelection({any(all)});
    }
    void addNode()
    {
        if (!isFull())
            view<NodePanel>().actions().addNode(any(MO_ModuleFactorySingleton().keys()));
    }
    void removeNodes() { view<NodePanel>().actions().remove()->trigger(); }
    void duplicate()
    {
        if (!isFull())
            view<NodePanel>().actions().duplicate()->trigger();
    }
    void toggle() { view<NodePanel>().actions().toggle()->trigger(); }
    void dragLink()
    {
        const auto shown = modulesShown();
        if (shown.size() < 2)
            return;
        MO_Module& source = *any(shown);
        MO_Module& target = *any(shown);
        const bool fromInput = chance(30);
        const auto place = [&](MO_Module& each, bool isInput) {
            const unsigned ports = isInput ? each.nInPorts() : each.nOutPorts();
            return ports == 0 ? middleOf(each)
                              : nodes().portPosition(each, isInput, static_cast<unsigned>(upTo(9)) % ports);
        };
        drag(*nodes().viewport(), place(source, fromInput), chance(85) ? place(target, chance(85)) : QPoint(2, 2));
    }
    void rename()
    {
        view<NodePanel>().actions().rename()->trigger();
        auto* field = nodes().findChild<QLineEdit*>(QStringLiteral("NodeName"));
        if (!field || chance(10))
            return; // what comes next finds the field open
        field->setText(any(QStringList{"A", "B", "Hero", "<&\u00e9\">", " "}));
        QTest::keyClick(field, chance(80) ? Qt::Key_Return : Qt::Key_Escape);
    }
    void enterGroup()
    {
        std::vector<XUGroup*> groups;
        for (MO_Module* each : modules())
            if (auto* group = dynamic_cast<XUGroup*>(each))
                groups.push_back(group);
        if (!groups.empty())
            nodes().enter(*any(groups));
    }
    void leaveGroup() { nodes().leave(); }
    void togglePanel()
    {
        auto* dock = any(window.findChildren<QDockWidget*>());
        dock->setVisible(chance(60));
        if (chance(50))
            dock->raise();
    }
    void editWidget()
    {
        QWidget* const content = view<PropertiesView>().panel().content();
        const auto widgets = content ? content->findChildren<QWidget*>() : QList<QWidget*>();
        if (widgets.isEmpty())
            return;
        for (int i = 0; i < 8; ++i)
            if (editOne(*any(widgets)))
                return;
    }
    bool editOne(QWidget& widget)
    {
        if (!widget.isEnabled())
            return false;
        if (auto* spin = qobject_cast<QAbstractSpinBox*>(&widget)) {
            spin->stepBy(chance(50) ? 1 : -3);
        } else if (auto* box = qobject_cast<QCheckBox*>(&widget)) {
            box->click();
        } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
            QTest::keyClick(combo, chance(50) ? Qt::Key_Down : Qt::Key_Up);
        } else if (auto* slider = qobject_cast<QSlider*>(&widget)) {
            QTest::keyClick(slider, chance(50) ? Qt::Key_Right : Qt::Key_Left);
        } else if (auto* field = qobject_cast<QLineEdit*>(&widget)) {
            QTest::keyClick(field, Qt::Key_1);
            QTest::keyClick(field, Qt::Key_Return);
        } else if (auto* table = qobject_cast<QAbstractItemView*>(&widget)) {
            QTest::keyClick(table, any(std::array{Qt::Key_Down, Qt::Key_Right, Qt::Key_F2, Qt::Key_Return}));
        } else {
            return false;
        }
        return true;
    }
    void editAttribute()
    {
        const auto all = modules();
        if (all.empty())
            return;
        for (AT_Attr* attr : any(all)->attrs())
            if (auto* number = dynamic_cast<AT_DoubleAttr*>(attr); number && chance(40)) {
                document.execute(std::unique_ptr<CO_Command>(
                    number->setValueCmd(document.currentFrame(), number->lower() / 2 + upTo(100) / 10.0)));
                return;
            }
    }
    void undo()
    {
        for (int i = upTo(chance(10) ? 30 : 3); i >= 0; --i)
            document.undo();
    }
    void redo()
    {
        for (int i = upTo(4); i >= 0; --i)
            document.redo();
    }
    void useTimeline()
    {
        TimelineCanvas& canvas = view<TimelineView>().canvas();
        canvas.setCurrentRow(upTo(10));
        document.setCurrentFrame(upTo(30));
        const int way = upTo(3);
        if (way == 0)
            drag(*canvas.viewport(), anyPlace(*canvas.viewport()), anyPlace(*canvas.viewport()));
        else if (way == 1)
            QTest::mousePress(canvas.viewport(), Qt::LeftButton, Qt::NoModifier, anyPlace(*canvas.viewport()));
        else
            QTest::keyClick(&canvas, any(std::array{Qt::Key_K, Qt::Key_K, Qt::Key_Delete, Qt::Key_Up, Qt::Key_End}));
        std::unique_ptr<QMenu> menu(canvas.makeMenu(canvas.currentRow(), document.currentFrame()));
        if (menu && chance(40) && !menu->actions().isEmpty())
            any(menu->actions())->trigger();
    }
    void changeFrames() { document.execute(MO_frameRangeCmd(document.scene(), 1 + upTo(3), 8 + upTo(40))); }
    void usePalette()
    {
        const auto& palettes = document.scene().palettes();
        if (palettes.empty())
            return;
        view<PaletteView>().recolor(palettes.front(), chance(50) ? docks::kSkin : docks::kCloth,
                                    QColor(upTo(255), upTo(255), upTo(255)));
    }
    void useElements()
    {
        QTreeWidget& tree = view<ElementsView>().tree();
        QTest::keyClick(&tree, any(std::array{Qt::Key_Down, Qt::Key_Up, Qt::Key_Home}));
        if (chance(50))
            view<ElementsView>().exposeCurrent();
        else if (chance(20))
            view<ElementsView>().exposeNothing();
    }
    void useMenu()
    {
        const auto shown = modulesShown();
        MO_Module* const about = shown.empty() || chance(30) ? nullptr : any(shown);
        Q_EMIT nodes().menuWanted(QPoint(10, 10), about, {});
        auto* menu = nodes().findChild<QMenu*>(QStringLiteral("NodeMenu"));
        if (!menu)
            return;
        QMenu* from = menu;
        if (const auto inner = menu->findChildren<QMenu*>(); !inner.isEmpty() && chance(60))
            from = any(inner);
        const auto entries = from->actions();
        if (!entries.isEmpty() && !(isFull() && chance(90)))
            if (QAction* entry = any(entries); !entry->menu() && entry->isEnabled())
                entry->trigger();
        menu->close();
        delete menu;
    }
    void openAnotherScene()
    {
        if (chance(90))
            return;
        _changes += document.commands().undoNames().size();
        document.replaceScene(docks::smallScene(), QString(), false);
        before = state();
    }
    void lookAtEverything() { window.grab(); }

    QPoint anyPlace(const QWidget& widget)
    {
        return {upTo(std::max(1, widget.width() - 1)), upTo(std::max(1, widget.height() - 1))};
    }

    void step()
    {
        // The steps that change something stand there more than once.
        static constexpr std::array kAll{
            &MonkeyTest::select,        &MonkeyTest::select,          &MonkeyTest::select,
            &MonkeyTest::select,        &MonkeyTest::addNode,         &MonkeyTest::addNode,
            &MonkeyTest::removeNodes,   &MonkeyTest::duplicate,       &MonkeyTest::toggle,
            &MonkeyTest::dragLink,      &MonkeyTest::dragLink,        &MonkeyTest::dragLink,
            &MonkeyTest::rename,        &MonkeyTest::enterGroup,      &MonkeyTest::leaveGroup,
            &MonkeyTest::leaveGroup,    &MonkeyTest::togglePanel,     &MonkeyTest::togglePanel,
            &MonkeyTest::editWidget,    &MonkeyTest::editWidget,      &MonkeyTest::editWidget,
            &MonkeyTest::editAttribute, &MonkeyTest::editAttribute,   &MonkeyTest::undo,
            &MonkeyTest::redo,          &MonkeyTest::useTimeline,     &MonkeyTest::useTimeline,
            &MonkeyTest::changeFrames,  &MonkeyTest::usePalette,      &MonkeyTest::useElements,
            &MonkeyTest::useMenu,       &MonkeyTest::openAnotherScene};
        (this->*any(kAll))();
        if (chance(25))
            docks::settle();
        if (chance(1))
            lookAtEverything();
    }

    qsizetype changes() { return _changes + document.commands().undoNames().size(); }

private:
    std::mt19937 _random{kSeed};
    qsizetype _changes = 0; ///< in the scenes before this one
};

TEST_F(MonkeyTest, TenThousandRandomStepsAreUndoneToTheFirstByte)
{
    for (int i = 0; i < kSteps; ++i)
        step();
    // Something was done at all, and kept.
    EXPECT_GT(changes(), 500);
    docks::settle();
    const QString after = state();
    // The last of the steps may have been undo: there can be more to redo than was undone here.
    int undone = 0;
    for (; document.commands().canUndo(); ++undone)
        document.undo();
    docks::settle();
    EXPECT_EQ(state(), before);
    for (; undone > 0; --undone)
        document.redo();
    docks::settle();
    EXPECT_EQ(state(), after);
}

} // namespace
