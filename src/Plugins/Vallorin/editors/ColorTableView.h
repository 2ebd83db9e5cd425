// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ColorTableView: the class of the colour table, so that layout files can name it. It behaves like any table.
#pragma once

#include <QTableWidget>

/// A table of colours.
class ColorTableView : public QTableWidget
{
public:
    explicit ColorTableView(QWidget* parent = nullptr);
    ~ColorTableView() override;
};
