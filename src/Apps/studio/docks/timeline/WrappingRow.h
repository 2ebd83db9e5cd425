// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// WrappingRow: a layout that puts its parts side by side, and into another line what finds no room, so that a bar of
// many parts does not decide how narrow a window can be.
#pragma once

#include <QLayout>

#include <memory>
#include <vector>

/// The layout. Parts have the sizes that they ask for, and stand in the middle of their line's height.
class WrappingRow : public QLayout
{
    Q_OBJECT

public:
    /// @param gap between two parts, and between two lines
    explicit WrappingRow(int gap, QWidget* parent = nullptr);
    ~WrappingRow() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    int arrange(const QRect& rect, bool apply) const;

    int _gap;
    std::vector<std::unique_ptr<QLayoutItem>> _items;
};
