// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectValueDelegate: what people edit the object table's numbers with: the spin box that views use for numbers.
#pragma once

#include <QStyledItemDelegate>

/// Chooses and fills the editor of a cell by what the cell shows. (The model has nothing but what it shows.)
class ObjectValueDelegate : public QStyledItemDelegate
{
public:
    explicit ObjectValueDelegate(QObject* parent);
    ~ObjectValueDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
};
