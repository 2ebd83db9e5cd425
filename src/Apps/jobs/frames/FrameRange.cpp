// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Parts are clipped to the scene by arithmetic before any frame is listed.
#include "jobs/frames/FrameRange.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <unordered_set>

namespace {

UT_Error notUnderstood(const QString& part, const QString& why)
{
    return {
        QStringLiteral("\"%1\" is not a range of frames%2; write 5, 1-10, 1-10x2 or several of these joined by commas")
            .arg(part, why)};
}

// The parts of a range. Blanks around the signs inside a part do not end it.
QStringList partsOf(const QString& text)
{
    static const QRegularExpression aroundSigns(QStringLiteral("(?<=[0-9])\\s*(-|\\.\\.|x|:)\\s*(?=-?[0-9])"));
    static const QRegularExpression between(QStringLiteral("\\s*[,;]\\s*|\\s+"));
    return QString(text).replace(aroundSigns, QStringLiteral("\\1")).trimmed().split(between);
}

UT_Error tooMany()
{
    return {QStringLiteral("one run renders at most %1 frames; choose fewer").arg(FrameRange::kMaxFrames),
            UT_ErrorKind::REFUSED};
}

} // namespace

UT_Result<FrameRange> FrameRange::parse(const QString& text)
{
    // Nine digits always fit in an int.
    static const QRegularExpression form(
        QStringLiteral("^(-?[0-9]{1,9})(?:(?:-|\\.\\.)(-?[0-9]{1,9})(?:[x:]([0-9]{1,9}))?)?$"));
    FrameRange range;
    for (const QString& word : partsOf(text)) {
        const QRegularExpressionMatch match = form.match(word);
        if (!match.hasMatch())
            return notUnderstood(word, QString());
        const std::int64_t first = match.captured(1).toLongLong();
        const bool single = match.captured(2).isEmpty();
        const Part part{first, single ? first : match.captured(2).toLongLong(),
                        match.captured(3).isEmpty() ? 1 : match.captured(3).toLongLong()};
        if (part.last < part.first)
            return notUnderstood(word, QStringLiteral(", it runs backwards"));
        if (part.step < 1)
            return notUnderstood(word, QStringLiteral(", its step is 0"));
        range._parts.push_back(part);
    }
    return range;
}

FrameRange FrameRange::all(int first, int last)
{
    FrameRange range;
    range._parts.push_back({first, last, 1});
    return range;
}

UT_Result<FrameList> FrameRange::within(int first, int last) const
{
    FrameList list;
    std::unordered_set<int> listed;
    for (const Part& part : _parts) {
        const std::int64_t written = (part.last - part.first) / part.step + 1;
        const std::int64_t skipped = std::max<std::int64_t>(0, (first - part.first + part.step - 1) / part.step);
        const std::int64_t start = part.first + skipped * part.step;
        const std::int64_t end = std::min<std::int64_t>(part.last, last);
        const std::int64_t inside = start > end ? 0 : (end - start) / part.step + 1;
        list.outside += written - inside;
        if (inside > kMaxFrames)
            return tooMany();
        for (std::int64_t i = 0; i < inside; ++i)
            if (const auto frame = static_cast<int>(start + i * part.step); listed.insert(frame).second)
                list.frames.push_back(frame);
        if (static_cast<std::int64_t>(list.frames.size()) > kMaxFrames)
            return tooMany();
    }
    return list;
}

std::vector<int> shardOf(const std::vector<int>& frames, int index, int count)
{
    std::vector<int> shard;
    for (auto i = static_cast<std::size_t>(index - 1); i < frames.size(); i += static_cast<std::size_t>(count))
        shard.push_back(frames[i]);
    return shard;
}
