// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NodeActions: the actions of the node view's menus and keys: adding nodes of every kind, deleting, duplicating,
// switching, renaming, linking without a mouse, and the ports of groups.
#pragma once

#include "studio/docks/graph/NodeView.h"

#include <QObject>

class QAction;
class QMenu;

/// The actions of one node view; its child.
class NodeActions : public QObject
{
    Q_OBJECT

public:
    /// @param owner the widget in which the actions' keys work
    NodeActions(NodeView& view, QWidget& owner);

    QAction* remove() const { return _remove; }
    QAction* duplicate() const { return _duplicate; }
    QAction* toggle() const { return _toggle; }
    QAction* rename() const { return _rename; }
    QAction* enterGroup() const { return _enter; }
    QAction* leaveGroup() const { return _leave; }
    QAction* selectAll() const { return _selectAll; }
    QAction* fit() const { return _fit; }
    QAction* arrange() const { return _arrange; }

    /// Adds a node of a kind that the factory knows, and selects it; true when that worked. A node that takes an input
    /// is linked to the one that is selected, where that is possible.
    ///
    /// @param place where the middle of the new node is put; without one, a node that is linked stands where the graph
    /// puts it, and any other one in the middle of what is seen
    bool addNode(const QString& keyword, std::optional<QPointF> place = std::nullopt);
    /// Fills a menu with all kinds of nodes, by their names for people; they are added at the place.
    void fillAddMenu(QMenu& menu, std::optional<QPointF> place = std::nullopt);
    /// Shows the menu for a node, a link or the group, and returns at once.
    void showMenu(const QPoint& globalPosition, MO_Module* module, const NodePort& link);

private:
    QAction* make(const QString& text, const QKeySequence& key, void (NodeActions::*slot)());
    void removeSelected();
    void duplicateSelected();
    void toggleSelected();
    void renameCurrent();
    void enterCurrent();
    void leaveCurrent();
    void selectEverything();
    void fitEverything();
    void arrangeSelected();
    void update();
    void addLinkMenus(QMenu& menu, MO_Module& module);
    void addGroupMenus(QMenu& menu, XUGroup& group);
    std::vector<MO_Module*> selected() const;

    NodeView& _view;
    QWidget& _owner;
    QAction* _remove;
    QAction* _duplicate;
    QAction* _toggle;
    QAction* _rename;
    QAction* _enter;
    QAction* _leave;
    QAction* _selectAll;
    QAction* _fit;
    QAction* _arrange;
};
