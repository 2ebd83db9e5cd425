// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Line by line: as many parts as fit, at least one.
#include "studio/docks/timeline/WrappingRow.h"

#include <algorithm>

WrappingRow::WrappingRow(int gap, QWidget* parent) : QLayout(parent), _gap(gap) {}

WrappingRow::~WrappingRow() = default;

void WrappingRow::addItem(QLayoutItem* item)
{
    _items.emplace_back(item);
}

QLayoutItem* WrappingRow::itemAt(int index) const
{
    return index >= 0 && index < count() ? _items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingRow::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem* const item = _items[static_cast<std::size_t>(index)].release();
    _items.erase(_items.begin() + index);
    return item;
}

QSize WrappingRow::sizeHint() const
{
    int width = 0;
    int height = 0;
    for (const auto& item : _items) {
        width += item->sizeHint().width() + (width > 0 ? _gap : 0);
        height = std::max(height, item->sizeHint().height());
    }
    return QSize(width, height).grownBy(contentsMargins());
}

QSize WrappingRow::minimumSize() const
{
    QSize size;
    for (const auto& item : _items)
        size = size.expandedTo(item->minimumSize().expandedTo(item->sizeHint()));
    return size.grownBy(contentsMargins());
}

void WrappingRow::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int WrappingRow::arrange(const QRect& rect, bool apply) const
{
    const QRect inside = rect.marginsRemoved(contentsMargins());
    int y = inside.top();
    for (std::size_t first = 0; first < _items.size();) {
        int width = 0;
        int height = 0;
        std::size_t end = first;
        for (; end < _items.size(); ++end) {
            const QSize size = _items[end]->sizeHint();
            const int with = width + (end > first ? _gap : 0) + size.width();
            if (end > first && with > inside.width())
                break;
            width = with;
            height = std::max(height, size.height());
        }
        int x = inside.left();
        for (; first < end; ++first) {
            const QSize size = _items[first]->sizeHint();
            if (apply)
                _items[first]->setGeometry(QRect(QPoint(x, y + (height - size.height()) / 2), size));
            x += size.width() + _gap;
        }
        y += height + (end < _items.size() ? _gap : 0);
    }
    return y - rect.top() + contentsMargins().bottom();
}
