// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Collects warnings and counts repeated ones.
#include "QuarvelSceneIO/private/SIO_Warnings.h"

#include <QCoreApplication>

namespace {

constexpr qsizetype kLongest = 500;

QString counted(const char* text, qint64 count)
{
    return QCoreApplication::translate("SIO_Warnings", text).arg(count);
}

} // namespace

void SIO_Warnings::add(const QString& place, const QString& what)
{
    const QString reason = what.size() <= kLongest ? what : what.left(kLongest) + QChar(0x2026);
    if (const auto known = _byReason.constFind(reason); known != _byReason.constEnd()) {
        ++_warnings[*known].count;
    } else if (_warnings.size() < kMost) {
        _byReason.insert(reason, _warnings.size());
        _warnings.push_back({place, reason});
    } else {
        ++_others;
    }
}

QStringList SIO_Warnings::lines() const
{
    QStringList result;
    for (const Warning& warning : _warnings) {
        QString line = warning.place.isEmpty() ? warning.what : warning.place + QStringLiteral(": ") + warning.what;
        if (warning.count > 1)
            line += counted(QT_TRANSLATE_NOOP("SIO_Warnings", " (and %1 times more)"), warning.count - 1);
        result << line;
    }
    if (_others > 0)
        result << counted(QT_TRANSLATE_NOOP("SIO_Warnings", "and %1 warnings of other kinds"), _others);
    return result;
}
