// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Single values of the command line: numbers, sizes, choices, colours. Each reader takes the option's name for its
// message, which says what was expected.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QColor>
#include <QSize>
#include <QStringList>

#include <optional>
#include <utility>

/// A finite number, with a point as the decimal separator.
UT_Result<double> parseNumber(const QString& option, const QString& text);
/// A finite number from low to high.
UT_Result<double> parseNumber(const QString& option, const QString& text, double low, double high);
/// A whole number from low to high.
UT_Result<int> parseWholeNumber(const QString& option, const QString& text, int low, int high);
/// How many pixels of height are white, for --height-range.
UT_Result<double> parseHeightRange(const QString& option, const QString& text);
/// "1920x1080", or "1920" alone, whose height comes out as 0.
UT_Result<QSize> parseSize(const QString& option, const QString& text);
/// "#rrggbb", "#rgb" or a colour's name; opaque.
UT_Result<QColor> parseColour(const QString& option, const QString& text);
/// The two sides of a value that gives something to a colour, such as "#1b1b1b=0": the colour, and what it gets.
///
/// @param what is expected, with an example: "a colour and its level, such as '#1b1b1b=0'"
UT_Result<std::pair<QString, QString>> splitColourValue(const QString& option, const QString& text,
                                                        const QString& what);
/// A colour, or nothing for the word "all", which means all colours.
UT_Result<std::optional<QColor>> parseColourOrAll(const QString& option, const QString& text);
/// The index of the word among the choices, in any case.
UT_Result<int> parseChoice(const QString& option, const QString& text, const QStringList& choices);
