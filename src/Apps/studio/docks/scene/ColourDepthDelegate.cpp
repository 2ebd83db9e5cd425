// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The slider is painted by hand: a widget for each row would cost a second for a drawing of a thousand colours.
#include "studio/docks/scene/ColourDepthDelegate.h"

#include "studio/docks/graph/NodeColors.h"
#include "studio/docks/scene/ColourDepthModel.h"

#include <QApplication>
#include <QPainter>
#include <QSpinBox>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kNumberWidth = 52;
constexpr int kMargin = 12;
constexpr double kGroove = 4.0;
constexpr double kHandle = 6.5;

} // namespace

QRect ColourDepthDelegate::sliderRect(const QRect& cell)
{
    return cell.adjusted(0, 0, -kNumberWidth, 0);
}

double ColourDepthDelegate::handlePlace(const QRect& cell, int depth)
{
    const QRect slider = sliderRect(cell).adjusted(kMargin, 0, -kMargin, 0);
    const double share = std::clamp(depth, kCarvedDepth, kAddedDepth) / static_cast<double>(kAddedDepth);
    return slider.left() + share * slider.width();
}

int ColourDepthDelegate::depthAt(const QRect& cell, double x)
{
    const QRect slider = sliderRect(cell).adjusted(kMargin, 0, -kMargin, 0);
    const double share = (x - slider.left()) / std::max(1, slider.width());
    return static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kAddedDepth));
}

void ColourDepthDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString number = std::exchange(cell.text, QString());
    const QStyle* const style = cell.widget ? cell.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    const bool isSelected = cell.state.testFlag(QStyle::State_Selected);
    const QColor ground = cell.palette.color(isSelected ? QPalette::Highlight : QPalette::Base);
    const QColor ink = cell.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const QModelIndex name = index.siblingAtColumn(ColourDepthModel::NAME);
    const bool hasDepth = name.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    const QRectF slider = QRectF(sliderRect(cell.rect)).adjusted(kMargin, 0, -kMargin, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    QRectF groove(slider.left(), slider.center().y() - kGroove / 2, slider.width(), kGroove);
    painter->setBrush(blended(ink, ground, hasDepth ? 0.6 : 0.8));
    painter->drawRoundedRect(groove, kGroove / 2, kGroove / 2);
    if (hasDepth) {
        const double x = handlePlace(cell.rect, index.data(Qt::EditRole).toInt());
        groove.setRight(x);
        painter->setBrush(isSelected ? ink : cell.palette.color(QPalette::Highlight));
        painter->drawRoundedRect(groove, kGroove / 2, kGroove / 2);
        painter->setBrush(ink);
        painter->setPen(QPen(ground, 1.5));
        painter->drawEllipse(QPointF(x, slider.center().y()), kHandle, kHandle);
    }
    painter->setPen(ink);
    const QRect text = cell.rect.adjusted(cell.rect.width() - kNumberWidth, 0, -8, 0);
    painter->drawText(text, Qt::AlignRight | Qt::AlignVCenter, number);
    painter->restore();
}

QSize ColourDepthDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {kNumberWidth + 2 * kMargin + 64, QStyledItemDelegate::sizeHint(option, index).height()};
}

QWidget* ColourDepthDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex&) const
{
    auto* const field = new QSpinBox(parent);
    field->setRange(kCarvedDepth, kAddedDepth);
    field->setFrame(false);
    field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    field->setAccessibleName(tr("Depth"));
    return field;
}

void ColourDepthDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                               const QModelIndex&) const
{
    editor->setGeometry(option.rect.adjusted(option.rect.width() - kNumberWidth, 0, 0, 0));
}
