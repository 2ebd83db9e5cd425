// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The parts of a JSON text, as text: for changes that keep the order of an object's members, which a parsed document
// forgets.
#pragma once

#include <QByteArrayView>

#include <utility>
#include <vector>

/// The members of an object in their order, keys without quotation marks and not unescaped.
///
/// @param object the text of an object that is free of errors
std::vector<std::pair<QByteArrayView, QByteArrayView>> DIO_jsonMembers(QByteArrayView object);

/// The elements of an array in their order.
///
/// @param array the text of an array that is free of errors
std::vector<QByteArrayView> DIO_jsonElements(QByteArrayView array);
