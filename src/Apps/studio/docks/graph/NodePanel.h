// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NodePanel: the node view with its bar: the way from the scene to the group that is shown, and the Add button.
#pragma once

#include "studio/docks/graph/NodeActions.h"

#include <QWidget>

class QHBoxLayout;
class QToolButton;

/// The contents of the dock "Nodes".
class NodePanel : public QWidget
{
    Q_OBJECT

public:
    explicit NodePanel(StudioDocument& document, QWidget* parent = nullptr);

    NodeView& view() const { return *_view; }
    NodeActions& actions() const { return *_actions; }

private:
    void showWay();
    QToolButton* barButton(QAction* action, const QString& text);

    NodeView* _view;
    NodeActions* _actions;
    QWidget* _add = nullptr; ///< the first of the bar
    QWidget* _way;
    QHBoxLayout* _wayLayout;
};
