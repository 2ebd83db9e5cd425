// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// TimelinePlace: where the timeline is. Beside the nodes for scenes that move; a tab behind the nodes for those of a
// single frame without keys, for which it has nothing to show. Panels that a person has moved or sized stay as they
// are.
#pragma once

#include <QMainWindow>

class MO_Scene;

/// Must not outlive the window.
class TimelinePlace : public QObject
{
    Q_OBJECT

public:
    TimelinePlace(QMainWindow& window, QDockWidget& nodes, QDockWidget& timeline);

    /// Puts the timeline where this scene wants it, unless a person has moved or sized the panels.
    void follow(MO_Scene& scene);

    /// Whether a person has moved or sized the panels.
    bool isByHand() const { return _isByHand; }
    void setByHand(bool byHand) { _isByHand = byHand; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isWhereItWas() const;
    void putBehindNodes();
    void putBesideNodes();

    QMainWindow& _window;
    QDockWidget& _nodes;
    QDockWidget& _timeline;
    QRect _pressedAt[2]; // where nodes and timeline were when the mouse was pressed
    bool _isByHand = false;
};

/// Whether a scene has a single frame and no keys.
bool holdsStill(MO_Scene& scene);
