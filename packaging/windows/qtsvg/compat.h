// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Included before every source of Qt 5's SVG module, so that it compiles with Qt 6: a reference to a part of a string
// has become a view of it.
#pragma once

#ifdef __cplusplus
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringView>
using QStringRef = QStringView;
#endif
