// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectTableModel: the object table of an editor as a model: number, bevel, elevation, smoothness; the row headers
// name the nodes that define the objects.
#pragma once

#include "editors/VolumetricObjectListEditor.h"

#include <QAbstractTableModel>

class QTableView;

/// The model. It reads the editor's own table, so it must not be used after the editor is deleted.
class ObjectTableModel : public QAbstractTableModel
{
public:
    /// @param view the model's parent
    ObjectTableModel(QTableView* view, VolumetricObjectListEditor::Impl& editor);
    ~ObjectTableModel() override;

    /// Fills the editor's table from its node and resets the views.
    void reload();

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Stores a number of any size and reports to the editor's owner; for a value that is not a number it returns false
    /// and does nothing. Roles other than Qt::EditRole, and the first column, store nothing but still report.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QVariant definingNodes(int objectId, int role) const;

    VolumetricObjectListEditor::Impl& _editor;
};
