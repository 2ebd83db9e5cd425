// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NodeView: shows the graph of one group, and lets people edit it with mouse and keyboard. The view follows the
// document and changes it through commands (the menus' commands are in NodeActions.h).
//
//   click, rubber band     select            drag from port to port    connect
//   drag a node            move it           drag an input's link away cut it, or lead it to another input
//   double click a group   look inside       wheel                     zoom
//   middle button          pan               arrow keys                go to the next node in that direction
//   Escape                 cancels a drag
#pragma once

#include "studio/docks/graph/GraphLayout.h"
#include "studio/docks/graph/NodeItem.h"
#include "studio/document/StudioDocument.h"

#include <QGraphicsView>

class LinkItem;
class QLineEdit;

/// The view of a graph. Lives on the window's thread; must not outlive the document.
class NodeView : public QGraphicsView
{
    Q_OBJECT

public:
    explicit NodeView(StudioDocument& document, QWidget* parent = nullptr);
    ~NodeView() override;

    StudioDocument& document() const { return _document; }

    /// The group that is shown; the scene's outermost one at first.
    XUGroup& group() const { return *_group; }
    /// Shows the inside of a group of the scene, and selects nothing.
    void enter(XUGroup& group);
    /// Shows the enclosing group and selects the one that was shown. Does nothing in the outermost group.
    void leave();

    /// The item of a module of the group; null when there is none.
    NodeItem* item(const MO_Module& module) const;
    /// Where a port is, in the pixels of the viewport.
    QPoint portPosition(const MO_Module& module, bool isInput, unsigned index) const;

    /// Links an output to an input; if that is refused, tells the person why.
    void connectPorts(const NodePort& source, const NodePort& target);
    /// Cuts the link of an input.
    void cutLink(const NodePort& input);
    /// Gives nodes back to the automatic layout.
    void arrange(const std::vector<MO_Module*>& modules);
    /// Lets the person type a new name in the place of the old one.
    void editName(MO_Module& module);
    /// The middle of the visible part, or the next place without a node; new nodes that are added by key go there.
    QPointF freePlace() const;
    /// Shows the whole graph, at most at its actual size.
    void fitAll() { fit(0.0); }
    void zoomBy(double factor);
    /// Selects modules of the group that is shown, without panning to them.
    void selectHere(const QList<MO_Module*>& modules);
    /// From now on, changes of the graph do not scroll the view.
    void keepView() { _fitsAll = false; }
    /// Tells the person why something was not done: at the mouse and in the status bar.
    void refuse(const QString& why);
    /// The module that a context menu is about; null for the group itself.
    MO_Module* moduleAt(const QPoint& position) const;
    /// The input port whose link passes a place; none when there is no link.
    NodePort linkAt(const QPoint& position) const;

Q_SIGNALS:
    /// Another group is shown, or the names on the way to it changed.
    void groupChanged();
    /// An action was refused; the text says why.
    void refused(const QString& why);
    /// A context menu is wanted.
    void menuWanted(const QPoint& globalPosition, MO_Module* module, const NodePort& link);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void drawForeground(QPainter* painter, const QRectF& rect) override;

private:
    /// Where the layout put a node.
    struct StandingNode
    {
        UT_WeakPtr<MO_Module> node; ///< null after its end, when another one may have its address
        QPointF place;
    };

    void forgetScene();
    void refresh();
    void rebuild();
    void fit(double leastScale);
    void addNode(MO_Module& module);
    void addLinks(MO_Module& module);
    void layOut();
    bool isInScene(const XUGroup& group) const;
    QString describeGraph() const;
    void showSelection();
    void takeSelection();
    void followSelection();
    NodePort portAt(const QPoint& position) const;
    NodePort dropTarget(const QPoint& position) const;
    void beginLink(const NodePort& port, const QPoint& position);
    void moveLink(const QPoint& position);
    void endLink(const QPoint& position);
    void dropLink();
    void beginMove(const QPoint& position);
    void moveNodes(const QPoint& position);
    void endMove(bool keep);
    void placeLinks();
    QString portText(const NodePort& port) const;
    void setHotPort(const NodePort& port);
    void goTo(int key);
    void finishName(bool keep);

    StudioDocument& _document;
    XUGroup* _group;
    QString _shown; // describes what the items show
    GraphLayout _layout;
    QHash<const MO_Module*, StandingNode> _standing; ///< of all groups that were looked at
    QHash<const MO_Module*, NodeItem*> _items;
    bool _synchronizing = false;
    bool _taking = false; // the selection was made here
    bool _fitsAll = true; // until the person zooms, pans, or works with the mouse in the graph
    std::unique_ptr<LinkItem> _drawnLink;
    NodePort _fixedEnd;  // of the link that is being drawn
    NodePort _takenFrom; // the input that the link was taken from
    NodePort _hot;
    std::vector<NodeItem*> _moved; // the nodes that the mouse holds, and where they were
    std::vector<QPointF> _movedFrom;
    QPoint _grabbed;
    bool _moving = false; // far enough to be no click
    QPoint _panFrom;
    bool _panning = false;
    QLineEdit* _nameField = nullptr;
    UT_WeakPtr<MO_Module> _renamed;
};
