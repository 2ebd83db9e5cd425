// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The icons of actions: line drawings that take the colour of the text around them, so that they are legible on light
// and on dark, at any density.
#pragma once

#include <QIcon>
#include <QPalette>

/// The icon of a name ("open", "zoom-in"), in the palette's text colour.
QIcon studioIcon(const QString& name, const QPalette& palette);

/// The application's own icon.
QIcon applicationIcon();
