// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_LottieKeys: an easing says how a value goes on to the next keyframe. Some programs write one for the last
// keyframe too, and the library that paints animations then finds no value for any frame but the first.
#pragma once

#include <QByteArray>

/// A document without the easings of last keyframes; the rest of its text stays as it is. Takes time in proportion to
/// the text's length, whatever is nested in it.
///
/// @param document JSON without errors
QByteArray DIO_withoutLastEasings(const QByteArray& document);
