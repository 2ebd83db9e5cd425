// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The class of the colour table.
#include "editors/ColorTableView.h"

ColorTableView::ColorTableView(QWidget* parent) : QTableWidget(parent) {}

ColorTableView::~ColorTableView() = default;
