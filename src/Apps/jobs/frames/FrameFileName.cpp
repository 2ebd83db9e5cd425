// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The place of the number is found once, in parse().
#include "jobs/frames/FrameFileName.h"

#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <cstdlib>

namespace {

constexpr int kMaxDigits = 20;

int digitsOf(const QRegularExpressionMatch& match)
{
    if (match.captured(0).startsWith(QLatin1Char('#')))
        return std::min(static_cast<int>(match.capturedLength(0)), kMaxDigits);
    return std::min(match.captured(match.lastCapturedIndex()).toInt(), kMaxDigits);
}

} // namespace

UT_Result<FrameFileName> FrameFileName::parse(const QString& pattern)
{
    if (const auto format = IIO_pictureFormatOf(pattern); !format)
        return format.error();
    static const QRegularExpression place(QStringLiteral("#+|%(0?[0-9]{0,2})d|\\$F([0-9]{0,2})|<frame([0-9]{0,2})>"));
    FrameFileName name;
    const qsizetype ownName = pattern.lastIndexOf(QLatin1Char('/')) + 1;
    QRegularExpressionMatch last;
    for (auto match = place.globalMatch(pattern, ownName); match.hasNext();)
        last = match.next();
    if (!last.hasMatch()) {
        name._before = pattern;
        return name;
    }
    name._before = pattern.left(last.capturedStart(0));
    name._after = pattern.mid(last.capturedEnd(0));
    name._digits = digitsOf(last);
    return name;
}

QString FrameFileName::of(int frame) const
{
    if (!hasNumber())
        return _before;
    const QString sign = frame < 0 ? QStringLiteral("-") : QString();
    const QString digits = QString::number(std::llabs(frame)).rightJustified(_digits, QLatin1Char('0'));
    return _before + sign + digits + _after;
}

QString FrameFileName::proposal(const QString& name)
{
    const QString suffix = QFileInfo(name).suffix();
    return name.chopped(suffix.size()) + QStringLiteral("####.") + suffix;
}
