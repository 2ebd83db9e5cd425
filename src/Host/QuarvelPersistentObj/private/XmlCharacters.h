// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which characters XML 1.0 can hold, and the escape for those that it cannot (see PO_XmlText.h).
#pragma once

#include <QString>

namespace XmlCharacters {

/// What happens to an underscore that looks like the beginning of an escape.
enum class Underscores
{
    ESCAPED, ///< it is escaped: for texts that are not escaped yet
    KEPT     ///< it is kept: for texts that are escaped already
};

/// The escape of one code unit, whether it needs one or not.
QString escapeOf(QChar c);
QString escape(const QString& text, Underscores underscores);
QString unescape(const QString& text);

} // namespace XmlCharacters
