// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The hands of the person in front of the display. Unlike events that are sent to a widget, these go to the window, and
// Qt finds the widget that is under the mouse or has the focus, as it does for those of the display. So nothing can be
// clicked that a person would not reach.
#pragma once

#include <QMenu>
#include <QWidget>

#include <functional>

namespace hands {

/// Waits until a window shows on the display and gets the keys.
bool waitForWindow(QWidget& window);

/// Brings a place of a widget to light: its dock to the front, and the panels around it scrolled.
void reach(QWidget& widget, const QPoint& place);
void reach(QWidget& widget);

/// The left mouse button at a place of a widget.
void click(QWidget& widget, const QPoint& place);
void click(QWidget& widget);
void doubleClick(QWidget& widget, const QPoint& place);
/// Presses at one place, goes to another in several steps, and lets go there.
void drag(QWidget& widget, const QPoint& from, const QPoint& to);

/// Keys for the window of a widget.
void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Types a text of ASCII characters.
void type(QWidget& widget, const QString& text);

/// Does something with the menu or the dialog that comes to the front next. To be called before it is asked for: those
/// return only when they are closed.
void onceInFront(const std::function<void(QWidget& front)>& act);

/// Chooses an entry of a menu that is open.
void choose(QMenu& menu, const QString& text);

} // namespace hands
