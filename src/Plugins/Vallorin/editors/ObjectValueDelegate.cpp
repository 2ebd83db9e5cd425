// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The spin boxes of the object table.
#include "editors/ObjectValueDelegate.h"

#include <QDoubleSpinBox>
#include <QItemEditorFactory>

#include <algorithm>
#include <cmath>

namespace {

/// The number of decimals in the table's text.
constexpr int kMostDecimals = 6;

/// How many decimals a number needs, up to those that the text keeps.
int decimalsOf(double value)
{
    const QString text = QString::number(value, 'f', kMostDecimals);
    int decimals = kMostDecimals;
    while (decimals > 0 && text[text.size() - 1 - (kMostDecimals - decimals)] == QLatin1Char('0'))
        --decimals;
    return decimals;
}

} // namespace

ObjectValueDelegate::ObjectValueDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

ObjectValueDelegate::~ObjectValueDelegate() = default;

QWidget* ObjectValueDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const QItemEditorFactory* factory = itemEditorFactory();
    if (!factory)
        factory = QItemEditorFactory::defaultFactory();
    QWidget* const editor = factory->createEditor(index.data(Qt::DisplayRole).userType(), parent);
    // Opening the editor must not round the number.
    const double value = index.data(Qt::DisplayRole).toDouble();
    if (auto* const spinBox = qobject_cast<QDoubleSpinBox*>(editor); spinBox && std::isfinite(value))
        spinBox->setDecimals(std::max(spinBox->decimals(), decimalsOf(value)));
    return editor;
}

void ObjectValueDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    if (auto* const spinBox = qobject_cast<QDoubleSpinBox*>(editor))
        spinBox->setValue(index.data(Qt::DisplayRole).toDouble());
}
