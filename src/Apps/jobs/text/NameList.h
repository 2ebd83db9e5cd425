// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// NameList: the names that a message lists, "the objects are 1 body, 2 head".
#pragma once

#include <QStringList>

/// The names in their order, joined by commas. Of more than 30 the first 30 and three dots: a scene may have hundreds,
/// and nobody reads them all.
QString namesForPeople(const QStringList& names);
