// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Light or dark: as the desktop has it, or as the person wants it here.
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

/// What was chosen lately, from the application's settings.
Appearance storedAppearance();
void storeAppearance(Appearance appearance);
