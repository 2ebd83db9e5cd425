// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColourDepthDelegate: paints a depth as a slider with its number, and lets the number be typed.
#pragma once

#include <QStyledItemDelegate>

/// The delegate of the column of depths.
class ColourDepthDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The part of a cell that the slider occupies; the number is to its right.
    static QRect sliderRect(const QRect& cell);
    /// Where the handle of a depth is, as x in the cell's coordinates; depths outside the slider stand at its ends.
    static double handlePlace(const QRect& cell, int depth);
    /// The depth at x; at the ends of the slider and outside it, the least and the largest one.
    static int depthAt(const QRect& cell, double x);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};
