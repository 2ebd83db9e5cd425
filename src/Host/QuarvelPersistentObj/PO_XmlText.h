// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Text and numbers as files hold them. All functions work in the C locale and give the same characters on every
// machine: a number is written with the fewest digits that read back as the same bits, and characters that XML 1.0
// cannot hold are escaped.
//
// The escape is _xHHHH_, one UTF-16 code unit in four upper-case hexadecimal digits. It stands for control characters,
// carriage returns (which a reader would turn into line feeds), U+FFFE, U+FFFF and unpaired surrogates. An underscore
// that begins something that looks like an escape is itself written as _x005F_, so that every text reads back
// unchanged.
#pragma once

#include "QuarvelPersistentObj/QuarvelPersistentObjExport.h"

#include <QString>

#include <optional>

/// The text with every character that XML 1.0 cannot hold escaped.
QUARVELPERSISTENTOBJ_EXPORT QString PO_escape(const QString& text);

/// The inverse of PO_escape(). Anything else than an escape stays unchanged.
QUARVELPERSISTENTOBJ_EXPORT QString PO_unescape(const QString& text);

/// A number with the fewest digits that PO_parseDouble() turns back into the same bits. Plain decimals between 1e-5 and
/// 1e15, exponents outside; "inf", "-inf" and "nan" for infinite values and NaN.
QUARVELPERSISTENTOBJ_EXPORT QString PO_formatDouble(double value);

/// Appends what PO_formatDouble() gives to a text.
QUARVELPERSISTENTOBJ_EXPORT void PO_appendDouble(QString& text, double value);

/// Reads a decimal number, with a point and perhaps an exponent; also "inf", "-inf" and "nan". Nothing for any other
/// text: white space, a comma, a plus sign, hexadecimal, a number too large for a double.
QUARVELPERSISTENTOBJ_EXPORT std::optional<double> PO_parseDouble(const QString& text);

/// Reads a decimal integer that fits an int; nothing for any other text.
QUARVELPERSISTENTOBJ_EXPORT std::optional<int> PO_parseInt(const QString& text);

/// "true" or "false".
QUARVELPERSISTENTOBJ_EXPORT QString PO_formatBool(bool value);

/// Reads "true", "false", "1" or "0"; nothing for any other text.
QUARVELPERSISTENTOBJ_EXPORT std::optional<bool> PO_parseBool(const QString& text);
