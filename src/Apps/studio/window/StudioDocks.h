// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The docks around the viewer: nodes and timeline below, properties, palette and elements to the right.
#pragma once

class QMainWindow;
class StudioDocument;

/// Makes the docks and arranges them; their object names ("NodesDock", "TimelineDock", "PropertiesDock", "PaletteDock",
/// "ElementsDock") are those that QMainWindow::saveState() keeps. Their views are children of the window: NodePanel,
/// TimelineView, PropertiesView, PaletteView and ElementsView. What the views refuse is told in the window's status
/// bar. The document must outlive the window.
void addStudioDocks(QMainWindow& window, StudioDocument& document);
