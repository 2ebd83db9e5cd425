// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The border between two panels belongs to the window itself. A press there after which the panels have other sizes was
// a person's.
#include "studio/window/TimelinePlace.h"

#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QDockWidget>
#include <QEvent>
#include <QTimer>

#include <algorithm>

namespace {

bool hasKeys(const std::vector<AT_Attr*>& attrs)
{
    return std::ranges::any_of(attrs, [](const AT_Attr* attr) {
        const auto* const number = dynamic_cast<const AT_AnimatableAttr*>(attr);
        return number && number->isAnimated();
    });
}

} // namespace

bool holdsStill(MO_Scene& scene)
{
    if (scene.firstFrame() != scene.lastFrame() || scene.truckFactorAttr().isAnimated())
        return false;
    bool moves = false;
    scene.root().forEachModule([&](const MO_Module& module) { moves = moves || hasKeys(module.attrs()); });
    MO_Lighting& lighting = scene.lighting();
    for (const AT_DoubleAttr& number : lighting.numbers())
        moves = moves || number.isAnimated();
    for (const auto& light : lighting.lights())
        moves = moves || hasKeys(light->attrs());
    return !moves;
}

TimelinePlace::TimelinePlace(QMainWindow& window, QDockWidget& nodes, QDockWidget& timeline)
    : QObject(&window), _window(window), _nodes(nodes), _timeline(timeline)
{
    window.installEventFilter(this);
    for (QDockWidget* const dock : {&nodes, &timeline})
        connect(dock, &QDockWidget::topLevelChanged, this, [this] { _isByHand = true; });
}

void TimelinePlace::follow(MO_Scene& scene)
{
    if (_isByHand || !isWhereItWas())
        return;
    const bool isBehind = _window.tabifiedDockWidgets(&_nodes).contains(&_timeline);
    const bool isStill = holdsStill(scene);
    if (isStill && !isBehind)
        putBehindNodes();
    if (!isStill && isBehind)
        putBesideNodes();
}

bool TimelinePlace::isWhereItWas() const
{
    return std::ranges::all_of(std::initializer_list<QDockWidget*>{&_nodes, &_timeline}, [this](QDockWidget* dock) {
        return !dock->isHidden() && !dock->isFloating() && _window.dockWidgetArea(dock) == Qt::BottomDockWidgetArea;
    });
}

void TimelinePlace::putBehindNodes()
{
    _window.tabifyDockWidget(&_nodes, &_timeline);
    _window.resizeDocks({&_nodes}, {_window.height() * 24 / 100}, Qt::Vertical);
    // The order of tabs is known only after the docks were laid out.
    QTimer::singleShot(0, &_nodes, [this] { _nodes.raise(); });
}

void TimelinePlace::putBesideNodes()
{
    // Beside a dock in tabs, a dock would become another tab. A dock that is put elsewhere leaves its tab.
    _window.addDockWidget(Qt::TopDockWidgetArea, &_timeline);
    _window.splitDockWidget(&_nodes, &_timeline, Qt::Horizontal);
    _timeline.show();
    // On a screen 1440 wide, the timeline's bar is one line.
    _window.resizeDocks({&_nodes, &_timeline}, {330, 630}, Qt::Horizontal);
    _window.resizeDocks({&_nodes}, {_window.height() * 3 / 10}, Qt::Vertical);
}

bool TimelinePlace::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        _pressedAt[0] = _nodes.geometry();
        _pressedAt[1] = _timeline.geometry();
    }
    if (event->type() == QEvent::MouseButtonRelease)
        // The window lays its panels out later.
        QTimer::singleShot(0, this, [this] {
            _isByHand = _isByHand || _pressedAt[0] != _nodes.geometry() || _pressedAt[1] != _timeline.geometry();
        });
    return QObject::eventFilter(watched, event);
}
