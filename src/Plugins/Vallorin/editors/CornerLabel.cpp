// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The corner of a table is a button that the table makes itself; the label is laid out inside it.
#include "editors/CornerLabel.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLabel>
#include <QTableView>

namespace {

QAbstractButton* cornerOf(const QTableView& table)
{
    for (QAbstractButton* button : table.findChildren<QAbstractButton*>())
        if (button->inherits("QTableCornerButton"))
            return button;
    return nullptr;
}

/// Deletes the layout, because a widget keeps its first one, and the earlier label.
void clear(QWidget& corner)
{
    delete corner.layout();
    qDeleteAll(corner.findChildren<QLabel*>(Qt::FindDirectChildrenOnly));
}

} // namespace

void setCornerLabel(QTableView* table, const QString& text, int margin)
{
    if (!table)
        return;
    QAbstractButton* const corner = cornerOf(*table);
    if (!corner) {
        table->setCornerButtonEnabled(true);
        return;
    }
    clear(*corner);
    auto* label = new QLabel(text);
    label->setSizePolicy(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding, QSizePolicy::DefaultType));
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(margin, 0, 0, 0);
    layout->addWidget(label);
    corner->setLayout(layout);
}
