// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectValueDelegate: the editor of the object table's numbers: the spin box that views use for numbers.
#pragma once

#include <QStyledItemDelegate>

/// Chooses and fills a cell's editor by the displayed value, because the model has no other.
class ObjectValueDelegate : public QStyledItemDelegate
{
public:
    explicit ObjectValueDelegate(QObject* parent);
    ~ObjectValueDelegate() override;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
};
