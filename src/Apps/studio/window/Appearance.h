// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The window's colours: light, dark, or as the desktop.
#pragma once

#include <QPalette>

enum class Appearance
{
    SYSTEM,
    LIGHT,
    DARK
};

/// Gives the whole application this appearance.
void applyAppearance(Appearance appearance);

/// The stored choice, from the application's settings.
Appearance storedAppearance();
void storeAppearance(Appearance appearance);
