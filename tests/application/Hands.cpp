// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is under the place is asked before each press, so that a widget that is covered is a failure with a reason.
#include "application/Hands.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QScrollArea>
#include <QTimer>
#include <QWindow>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

constexpr int kPatience = 60000;

// The same place in the window's coordinates; fails where something else is in front.
QPoint placeInWindow(QWidget& widget, const QPoint& place)
{
    // Window managers bring the window forward that is clicked; a menu is in front as it is.
    if (widget.window()->windowType() != Qt::Popup) {
        EXPECT_TRUE(hands::waitForWindow(*widget.window()));
    }
    const QPoint inWindow = widget.mapTo(widget.window(), place);
    const QWidget* const there = widget.window()->childAt(inWindow);
    const bool isThere = there ? there == &widget || widget.isAncestorOf(there)
                               : &widget == widget.window() && widget.rect().contains(place);
    EXPECT_TRUE(isThere) << widget.metaObject()->className() << " " << qPrintable(widget.objectName())
                         << " is not to be seen at " << inWindow.x() << ", " << inWindow.y();
    return inWindow;
}

void clickThere(QWidget& widget, const QPoint& place)
{
    const QPoint there = placeInWindow(widget, place);
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, there);
}

} // namespace

bool hands::waitForWindow(QWidget& window)
{
    if (!QTest::qWaitForWindowExposed(&window, kPatience))
        return false;
    // A display without a window manager gives the keys to nobody who does not ask.
    if (!window.isActiveWindow())
        window.activateWindow();
    return QTest::qWaitForWindowActive(&window, kPatience);
}

void hands::reach(QWidget& widget, const QPoint& place)
{
    for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget())
        if (auto* const dock = qobject_cast<QDockWidget*>(around))
            dock->raise();
    QCoreApplication::processEvents();
    constexpr int kMargin = 20;
    for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget())
        if (auto* const area = qobject_cast<QScrollArea*>(around)) {
            const QPoint inside = widget.mapTo(area->widget(), place);
            area->ensureVisible(inside.x(), inside.y(), kMargin, kMargin);
        }
    QCoreApplication::processEvents();
}

void hands::reach(QWidget& widget)
{
    reach(widget, widget.rect().center());
}

void hands::click(QWidget& widget, const QPoint& place)
{
    reach(widget, place);
    clickThere(widget, place);
}

void hands::click(QWidget& widget)
{
    click(widget, widget.rect().center());
}

void hands::doubleClick(QWidget& widget, const QPoint& place)
{
    reach(widget, place);
    const QPoint there = placeInWindow(widget, place);
    QTest::mouseDClick(widget.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, there);
}

void hands::drag(QWidget& widget, const QPoint& from, const QPoint& to)
{
    QWindow* const window = widget.window()->windowHandle();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, placeInWindow(widget, from));
    constexpr int kSteps = 4;
    for (int step = 1; step <= kSteps; ++step)
        QTest::mouseMove(window, placeInWindow(widget, from + (to - from) * step / kSteps));
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, placeInWindow(widget, to));
}

void hands::press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    ASSERT_TRUE(waitForWindow(*widget.window()));
    QTest::keyClick(widget.window()->windowHandle(), key, modifiers);
}

void hands::type(QWidget& widget, const QString& text)
{
    ASSERT_TRUE(waitForWindow(*widget.window()));
    for (const QChar character : text)
        QTest::keyClick(widget.window()->windowHandle(), character.toLatin1());
}

void hands::onceInFront(const std::function<void(QWidget&)>& act)
{
    auto* const timer = new QTimer(qApp);
    QElapsedTimer since;
    since.start();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, since, act] {
        QWidget* const popup = QApplication::activePopupWidget();
        QWidget* const front = popup ? popup : QApplication::activeModalWidget();
        const bool isThere = front && front->isVisible();
        if (!isThere && since.elapsed() < kPatience)
            return;
        timer->stop();
        timer->deleteLater();
        if (isThere)
            act(*front);
        else
            ADD_FAILURE() << "neither a menu nor a dialog came to the front";
    });
    timer->start(10);
}

void hands::choose(QMenu& menu, const QString& text)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu, kPatience));
    for (QAction* const entry : menu.actions())
        if (entry->text() == text && entry->isEnabled()) {
            clickThere(menu, menu.actionGeometry(entry).center());
            return;
        }
    ADD_FAILURE() << "the menu has no entry \"" << qPrintable(text) << "\" to choose";
    menu.close();
}
