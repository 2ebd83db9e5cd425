// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectsView: the table of all objects, with a search field. It is an alternative to the picture for selecting and
// changing objects; both share the selection.
#pragma once

#include "studio/objects/DocumentObjects.h"

#include <QWidget>

class ObjectActions;
class ObjectsModel;
class QLineEdit;
class QSortFilterProxyModel;
class QTableView;

/// The contents of the dock "Objects".
class ObjectsView : public QWidget
{
    Q_OBJECT

public:
    ObjectsView(DocumentObjects& objects, ObjectActions& actions, QWidget* parent = nullptr);
    ~ObjectsView() override;

    QTableView& table() const { return *_table; }
    QLineEdit& search() const { return *_search; }
    /// The row that shows an object; invalid if the search hides it.
    QModelIndex indexOf(const SceneObject& object) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeTable();
    void takeSelection();
    void showSelection();
    void showHovered(const QModelIndex& index);
    void showMenu(const QPoint& place);

    DocumentObjects& _objects;
    ObjectActions& _actions;
    ObjectsModel* _model;
    QSortFilterProxyModel* _found;
    QLineEdit* _search;
    QTableView* _table;
    bool _synchronizing = false;
};
