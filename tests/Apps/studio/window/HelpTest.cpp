// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The help: it opens by its key, and knows every key of the window.
#include "Apps/studio/window/WindowTesting.h"

#include "studio/window/HelpDialog.h"
#include "studio/window/Shortcuts.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include <algorithm>

namespace {

class HelpTest : public studio_testing::WindowTest
{
protected:
    HelpDialog* help() const { return window->findChild<HelpDialog*>(); }
    QTreeWidget& keys() const { return *help()->findChild<QTreeWidget*>(QStringLiteral("helpKeys")); }
    QString keysOf(const QString& text) const
    {
        const auto found = keys().findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QString() : found.front()->text(1);
    }
};

TEST_F(HelpTest, OpensByItsKeyAndCloses)
{
    QApplication::setActiveWindow(window.get());
    QTest::keyClick(window.get(), Qt::Key_F1);
    ASSERT_NE(help(), nullptr);
    EXPECT_TRUE(help()->isVisible());
    QTest::keyClick(help(), Qt::Key_Escape);
    EXPECT_FALSE(help()->isVisible());
}

TEST_F(HelpTest, ListsEveryActionThatHasKeys)
{
    openDisc();
    const std::vector<Shortcut> listed = shortcutsOf(*window);
    for (const QAction* const action : window->findChildren<QAction*>())
        for (const QKeySequence& sequence : action->shortcuts()) {
            if (sequence.isEmpty() || action->associatedObjects().isEmpty())
                continue;
            const QString keys = sequence.toString(QKeySequence::NativeText);
            EXPECT_TRUE(std::ranges::any_of(listed, [&](const Shortcut& each) { return each.keys.contains(keys); }))
                << qPrintable(action->text());
        }
    for (const Shortcut& each : listed) {
        EXPECT_FALSE(each.place.isEmpty()) << qPrintable(each.text);
        EXPECT_FALSE(each.text.isEmpty()) << qPrintable(each.keys);
        EXPECT_FALSE(each.text.contains(QLatin1Char('&'))) << qPrintable(each.text);
    }
}

TEST_F(HelpTest, FollowsTheActions)
{
    window->findChild<QAction*>(QStringLiteral("showHelp"))->trigger();
    EXPECT_EQ(keysOf(QStringLiteral("Carve")), QStringLiteral("V"));
    EXPECT_EQ(keysOf(QStringLiteral("Save")), QStringLiteral("Ctrl+S"));
    for (QAction* const action : window->findChildren<QAction*>())
        if (action->text() == QStringLiteral("Carve"))
            action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_J));
    window->findChild<QAction*>(QStringLiteral("showHelp"))->trigger();
    EXPECT_EQ(keysOf(QStringLiteral("Carve")), QStringLiteral("Ctrl+J"));
}

TEST_F(HelpTest, TheSearchLeavesWhatHasTheWords)
{
    window->findChild<QAction*>(QStringLiteral("showHelp"))->trigger();
    QTest::keyClicks(help()->findChild<QLineEdit*>(QStringLiteral("helpSearch")), QStringLiteral("carve"));
    int seen = 0;
    for (QTreeWidgetItemIterator it(&keys(), QTreeWidgetItemIterator::NotHidden | QTreeWidgetItemIterator::NoChildren);
         *it; ++it)
        if ((*it)->parent() && !(*it)->parent()->isHidden())
            ++seen;
    EXPECT_EQ(seen, 1);
}

TEST_F(HelpTest, TheStartPageTellsTheFirstSteps)
{
    const auto* const steps = window->findChild<QLabel*>(QStringLiteral("firstSteps"));
    ASSERT_NE(steps, nullptr);
    EXPECT_TRUE(steps->isVisible());
    Q_EMIT const_cast<QLabel*>(steps)->linkActivated(QStringLiteral("help"));
    ASSERT_NE(help(), nullptr);
    EXPECT_TRUE(help()->isVisible());
}

} // namespace
