// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The first arrangement; from then on people arrange the docks as they like.
#include "studio/window/StudioDocks.h"

#include "studio/docks/graph/NodePanel.h"
#include "studio/docks/scene/ColourDepthView.h"
#include "studio/docks/scene/ElementsView.h"
#include "studio/docks/scene/PaletteView.h"
#include "studio/docks/scene/PropertiesView.h"
#include "studio/docks/timeline/TimelineView.h"
#include "studio/document/DocumentFrames.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QStatusBar>

namespace {

constexpr int kRefusalMilliseconds = 8000;

QDockWidget* addDock(QMainWindow& window, const char* name, const char* title, Qt::DockWidgetArea area,
                     QWidget* content)
{
    auto* dock = new QDockWidget(QCoreApplication::translate("StudioDocks", title), &window);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(content);
    window.addDockWidget(area, dock);
    return dock;
}

} // namespace

void addStudioDocks(QMainWindow& window, StudioDocument& document)
{
    new DocumentFrames(document, &window);
    auto* nodePanel = new NodePanel(document);
    auto* properties = new PropertiesView(document);
    auto* palette = new PaletteView(document);

    window.setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    window.setDockNestingEnabled(true);
    QDockWidget* const nodeDock =
        addDock(window, "NodesDock", QT_TRANSLATE_NOOP("StudioDocks", "Nodes"), Qt::BottomDockWidgetArea, nodePanel);
    auto* const timeline = new TimelineView(document);
    QDockWidget* const timelineDock = addDock(window, "TimelineDock", QT_TRANSLATE_NOOP("StudioDocks", "Timeline"),
                                              Qt::BottomDockWidgetArea, timeline);
    // The space bar plays wherever the focus is.
    window.addAction(&timeline->playAction());
    QDockWidget* const propertiesDock = addDock(
        window, "PropertiesDock", QT_TRANSLATE_NOOP("StudioDocks", "Properties"), Qt::RightDockWidgetArea, properties);
    QDockWidget* const paletteDock =
        addDock(window, "PaletteDock", QT_TRANSLATE_NOOP("StudioDocks", "Palette"), Qt::RightDockWidgetArea, palette);
    QDockWidget* const elementsDock = addDock(window, "ElementsDock", QT_TRANSLATE_NOOP("StudioDocks", "Elements"),
                                              Qt::RightDockWidgetArea, new ElementsView(document));
    QDockWidget* const depthDock =
        addDock(window, "ColourDepthDock", QT_TRANSLATE_NOOP("StudioDocks", "Depth by Colour"), Qt::RightDockWidgetArea,
                new ColourDepthView(document));
    window.splitDockWidget(nodeDock, timelineDock, Qt::Horizontal);
    window.tabifyDockWidget(paletteDock, elementsDock);
    window.tabifyDockWidget(paletteDock, depthDock);
    paletteDock->raise();
    window.resizeDocks({nodeDock, timelineDock}, {500, 460}, Qt::Horizontal);
    window.resizeDocks({nodeDock}, {270}, Qt::Vertical);
    window.resizeDocks({propertiesDock}, {360}, Qt::Horizontal);
    window.resizeDocks({propertiesDock, paletteDock}, {520, 280}, Qt::Vertical);

    const auto tell = [&window](const QString& why) { window.statusBar()->showMessage(why, kRefusalMilliseconds); };
    QObject::connect(&nodePanel->view(), &NodeView::refused, &window, tell);
    QObject::connect(palette, &PaletteView::refused, &window, tell);
    QObject::connect(properties, &PropertiesView::commandFailed, &window, tell);
}
