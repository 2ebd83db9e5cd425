// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Whoever cannot see the window hears what each of its controls is.
#include "Apps/studio/objects/ObjectsTesting.h"

#include "studio/export/ExportDialog.h"
#include "studio/window/HelpDialog.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>

namespace {

class AccessibilityTest : public studio_testing::ObjectsTest
{
protected:
    static bool isInteractive(const QWidget& widget)
    {
        // Parts of other controls that Qt makes and names itself.
        if (qobject_cast<const QScrollBar*>(&widget) || widget.objectName().startsWith(QLatin1String("qt_")) ||
            widget.objectName().startsWith(QLatin1String("ScrollLeft")) ||
            widget.objectName().startsWith(QLatin1String("ScrollRight")) ||
            qobject_cast<const QAbstractSpinBox*>(widget.parentWidget()) ||
            qobject_cast<const QComboBox*>(widget.parentWidget()) ||
            qobject_cast<const QLineEdit*>(widget.parentWidget()) || widget.inherits("QComboBoxPrivateContainer") ||
            (widget.parentWidget() && widget.parentWidget()->inherits("QComboBoxPrivateContainer")) ||
            widget.inherits("QHeaderView") || widget.inherits("QTableCornerButton"))
            return false;
        return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget) ||
               qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
               qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractItemView*>(&widget) ||
               qobject_cast<const QGraphicsView*>(&widget) ||
               (widget.focusPolicy() != Qt::NoFocus && widget.inherits("QAbstractScrollArea"));
    }
    static QString pathOf(const QWidget& widget)
    {
        QStringList path;
        for (const QWidget* each = &widget; each; each = each->parentWidget())
            path.prepend(
                QStringLiteral("%1 %2").arg(QLatin1String(each->metaObject()->className()), each->objectName()));
        return path.join(QStringLiteral(" > "));
    }
    static bool isInOrder(const QRect& first, const QRect& second)
    {
        if (second.bottom() < first.top())
            return false;
        const bool isSameRow = second.top() <= first.bottom() && first.top() <= second.bottom();
        return !isSameRow || second.right() > first.left();
    }

    // Tab goes on to the right, and down: no control comes after one that lies below it, or right of it in its row.
    static void expectTabOrder(QWidget& root)
    {
        std::vector<const QWidget*> reached;
        for (QWidget* each = root.window()->nextInFocusChain(); each != root.window(); each = each->nextInFocusChain())
            if (root.isAncestorOf(each) && each->isVisible() && each->isEnabled() && !each->focusProxy() &&
                (each->focusPolicy() & Qt::TabFocus))
                reached.push_back(each);
        const auto placeOf = [&](const QWidget* widget) {
            return QRect(widget->mapTo(&root, QPoint()), widget->size());
        };
        EXPECT_GE(reached.size(), 1U) << qPrintable(pathOf(root));
        for (std::size_t i = 1; i < reached.size(); ++i)
            EXPECT_TRUE(isInOrder(placeOf(reached[i - 1]), placeOf(reached[i])))
                << qPrintable(pathOf(*reached[i - 1])) << "\n   is followed by " << qPrintable(pathOf(*reached[i]));
    }

    // Lists, graph and timeline have tool tips of their own for each of their parts.
    static void expectToolTips(const QWidget& root)
    {
        for (const QWidget* const widget : root.findChildren<QWidget*>()) {
            if (!isInteractive(*widget) || qobject_cast<const QAbstractScrollArea*>(widget))
                continue;
            const QWidget* told = widget;
            while (told->toolTip().isEmpty() && told != &root)
                told = told->parentWidget();
            EXPECT_FALSE(told->toolTip().isEmpty()) << qPrintable(pathOf(*widget));
        }
    }

    static void expectNames(const QWidget& root)
    {
        int looked = 0;
        for (QWidget* const widget : root.findChildren<QWidget*>()) {
            if (!isInteractive(*widget))
                continue;
            ++looked;
            QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(interface, nullptr) << qPrintable(pathOf(*widget));
            EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty()) << qPrintable(pathOf(*widget));
        }
        EXPECT_GT(looked, 3);
    }
};

TEST_F(AccessibilityTest, EveryControlOfTheWindowHasAName)
{
    openParts();
    // With the node's editor and an object's bar open.
    document().setSelection({object("Head").node});
    QCoreApplication::processEvents();
    expectNames(*window);
    document().setSelection({object("Head").definitions.front()});
    QCoreApplication::processEvents();
    expectNames(*window);
    click(kHead);
    expectNames(*window);
}

TEST_F(AccessibilityTest, EveryControlOfTheHelpHasAName)
{
    window->findChild<QAction*>(QStringLiteral("showHelp"))->trigger();
    expectNames(*window->findChild<HelpDialog*>());
}

TEST_F(AccessibilityTest, TabFollowsTheEyeInEveryPanelAndDialog)
{
    openParts();
    document().setSelection({object("Head").node});
    QCoreApplication::processEvents();
    for (QDockWidget* const dock : window->findChildren<QDockWidget*>()) {
        dock->raise();
        QCoreApplication::processEvents();
        expectTabOrder(*dock->widget());
    }
    ExportDialog exporting(document().scene(), {QStringLiteral("parts"), folder.path(), QStringLiteral("parts")});
    exporting.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&exporting));
    expectTabOrder(exporting);
    window->findChild<QAction*>(QStringLiteral("showHelp"))->trigger();
    expectTabOrder(*window->findChild<HelpDialog*>());
}

TEST_F(AccessibilityTest, EveryControlSaysWhatItDoes)
{
    openParts();
    document().setSelection({object("Head").node});
    QCoreApplication::processEvents();
    for (const QDockWidget* const dock : window->findChildren<QDockWidget*>())
        expectToolTips(*dock->widget());
    const ExportDialog exporting(document().scene(), {QStringLiteral("parts"), folder.path(), QStringLiteral("parts")});
    expectToolTips(exporting);
}

TEST_F(AccessibilityTest, EveryMenuAndItsEntriesHaveMnemonicsOfTheirOwn)
{
    openParts();
    const auto mnemonicOf = [](const QString& text) {
        const qsizetype at =
            QString(text).replace(QStringLiteral("&&"), QStringLiteral("__")).indexOf(QLatin1Char('&'));
        return at < 0 ? QString() : QString(text.at(at + 1)).toLower();
    };
    const auto expectOwn = [&](const QList<QAction*>& actions, const QString& where) {
        QStringList known;
        for (const QAction* const action : actions) {
            if (action->isSeparator())
                continue;
            const QString mnemonic = mnemonicOf(action->text());
            EXPECT_FALSE(mnemonic.isEmpty()) << qPrintable(where + QStringLiteral(": ") + action->text());
            EXPECT_FALSE(known.contains(mnemonic)) << qPrintable(where + QStringLiteral(": ") + action->text());
            known << mnemonic;
        }
    };
    expectOwn(window->menuBar()->actions(), QStringLiteral("the menu bar"));
    for (const QAction* const top : window->menuBar()->actions())
        expectOwn(top->menu()->actions(), top->text());
}

} // namespace
