// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Connects the objects with the picture, their table and their menu.
#include "studio/window/MainWindow.h"

#include "jobs/shown/RenderedKind.h"
#include "studio/docks/scene/ColourDepthView.h"
#include "studio/objects/ObjectActions.h"
#include "studio/objects/ObjectBar.h"
#include "studio/objects/ObjectHands.h"
#include "studio/objects/ObjectsView.h"
#include "studio/preview/ColourPicker.h"
#include "studio/preview/SceneSnapshot.h"
#include "studio/preview/Viewer.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QStatusBar>

void MainWindow::makeObjects()
{
    _objectActions = new ObjectActions(_objects, *this);
    _hands = new ObjectHands(_objects, *_viewer, this);
    _objectActions->setBreadth([this](const SceneObject& object) { return _hands->breadthOf(object); });
    _objectActions->addKeysTo(*_viewer);
    new ObjectBar(_objects, *_objectActions, *_hands, *_viewer);
    connect(_viewer, &Viewer::menuWanted, this, [this](const QPoint& place) {
        auto* const menu = new QMenu(this);
        menu->setObjectName(QStringLiteral("objectMenu"));
        menu->setAttribute(Qt::WA_DeleteOnClose);
        _objectActions->fillMenu(*menu);
        menu->popup(_viewer->mapToGlobal(place));
    });
}

void MainWindow::makeObjectsDock()
{
    auto* const dock = new QDockWidget(tr("Objects"), this);
    dock->setObjectName(QStringLiteral("ObjectsDock"));
    dock->setWidget(new ObjectsView(_objects, *_objectActions));
    auto* const properties = findChild<QDockWidget*>(QStringLiteral("PropertiesDock"));
    addDockWidget(Qt::RightDockWidgetArea, dock);
    tabifyDockWidget(properties, dock);
    dock->raise();
}

void MainWindow::makeColourPicker()
{
    auto* const depths = findChild<ColourDepthView*>();
    _colourPicker = new ColourPicker(*_viewer, this);
    connect(depths, &ColourDepthView::pickWanted, this, [this](bool wanted) {
        _viewer->setTool(wanted ? static_cast<ViewerTool*>(_colourPicker) : _hands);
        if (wanted)
            statusBar()->showMessage(tr("Click the colour in the picture; Escape gives up"));
        else
            statusBar()->clearMessage();
        if (wanted)
            _viewer->setFocus();
    });
    connect(_colourPicker, &ColourPicker::picked, depths, &ColourDepthView::takePicked);
}

void MainWindow::followSelection()
{
    // Selecting an object in the picture must not change which picture is shown.
    if (_objects.isSelecting())
        return;
    const MO_Module* const module = _followSelection->isChecked() ? _document.currentModule() : nullptr;
    _renders.setNode(module ? module->instanceName() : QString());
}

void MainWindow::selectWhatMatters()
{
    MO_Module* const shown = shownModule(_document.scene());
    const PictureSource source = shown ? pictureSourceOf(*shown) : PictureSource();
    if (!source.nodes.empty())
        _document.setSelection({source.nodes.front()});
}
