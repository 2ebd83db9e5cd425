// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lists the keys of a window from its actions, so that the list always agrees with what the keys do.
#pragma once

#include <QString>

#include <vector>

class QMainWindow;

/// An action with keys.
struct Shortcut
{
    QString place; ///< where the keys work: the title of a menu or of a panel
    QString text;  ///< what the action does, as menus call it
    QString keys;  ///< for people, in their language
};

/// All actions of the window and of what is in it that have keys: those of the menus first, in their order, then those
/// of the picture and of the panels.
std::vector<Shortcut> shortcutsOf(const QMainWindow& window);
