// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColourDepthModel: the colours of the scene with their depths, as a table.
#pragma once

#include "studio/docks/scene/ColourDepths.h"
#include "studio/docks/scene/DepthHint.h"

#include <QAbstractTableModel>

#include <functional>

/// A table on the document's colours. Must not outlive the document.
class ColourDepthModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NAME, ///< with a swatch, and a box that is ticked while the colour has a depth
        DEPTH,
        COLUMN_COUNT
    };

    explicit ColourDepthModel(StudioDocument& document, QObject* parent = nullptr);

    /// The node that is edited; null when there is none, and then there are no rows.
    MO_Module* node() const { return nodeWithDepths(_document); }
    /// The colour of a row; null when there is no such row.
    const ColourDepth* colour(int row) const;
    /// The row whose colour is nearest to one that was seen; -1 when there is none.
    int nearestRow(const QColor& seen) const;
    /// Why the depth of a row cannot be seen in the picture; empty where it can.
    DepthHint whyUnseen(int row) const;
    /// Gives the object that is too round for the depth of a row the bevel that shows it, as one step.
    void makeSeen(int row);
    /// Which rows change together with a row; itself alone to begin with.
    void setTogether(std::function<QList<int>(int row)> together) { _together = std::move(together); }

    /// Gives a row and those that change with it a depth, as one of many changes that follow each other;
    /// finishChange() ends the step.
    void changeOn(int row, std::optional<int> depth);
    void finishChange() { _document.commands().endMerging(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void reread();
    QVariant nameData(const ColourDepth& colour, int role) const;
    static QVariant depthData(const ColourDepth& colour, int role);

    StudioDocument& _document;
    std::vector<ColourDepth> _colours;
    std::function<QList<int>(int row)> _together;
};
