// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectsModel: the objects of the scene as a table, the topmost first, with thumbnails.
#pragma once

#include "studio/objects/DocumentObjects.h"

#include <QAbstractTableModel>
#include <QPixmap>

#include <map>

/// A table of the document's objects. An entered value applies to the row's object, or to all selected objects if it is
/// one of them.
class ObjectsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column
    {
        NAME, ///< with a thumbnail and a box that shows and hides the object
        NUMBER,
        BEVEL, ///< the values in the order of ObjectValue
        ELEVATION,
        SMOOTHNESS,
        RIM,
        TILT_RIGHT,
        TILT_UP,
        COLUMN_COUNT
    };
    static constexpr int kThumbnail = 28;

    explicit ObjectsModel(DocumentObjects& objects, QObject* parent = nullptr);
    ~ObjectsModel() override;

    /// The object of a row; null if there is no such row.
    const SceneObject* object(int row) const;
    static bool isValue(int column) { return column >= BEVEL && column <= TILT_UP; }
    static ObjectValue valueOf(int column) { return kObjectValues[column - BEVEL]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Thumbnail
    {
        UT_SharedPtr<CELVEC_Kvd> drawing; ///< kept alive, so that no other drawing can get the same address
        QPixmap picture;
    };

    void follow();
    std::vector<SceneObject> changedBy(int row) const;
    QPixmap thumbnail(const SceneObject& object) const;

    DocumentObjects& _objects;
    std::vector<const ObjectDefinition*> _rows; // the rows that the view knows; never dereferenced
    mutable std::map<const CELVEC_Kvd*, Thumbnail> _thumbnails;
};
