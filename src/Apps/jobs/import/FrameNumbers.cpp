// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds numbers in names.
#include "jobs/import/FrameNumbers.h"

#include "QuarvelDrawingIO/DIO_BitmapReader.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr qsizetype kMaxDigits = 9;

// The run of digits, or of other characters, that begins here.
QString partAt(const QString& text, qsizetype at)
{
    qsizetype end = at;
    const bool digits = text[at].isDigit();
    while (end < text.size() && text[end].isDigit() == digits)
        ++end;
    return text.mid(at, end - at);
}

QString withoutLeadingZeros(const QString& digits)
{
    qsizetype zeros = 0;
    while (zeros + 1 < digits.size() && digits[zeros] == u'0')
        ++zeros;
    return digits.mid(zeros);
}

int compareParts(const QString& a, const QString& b)
{
    if (!a[0].isDigit() || !b[0].isDigit())
        return a.compare(b);
    const QString left = withoutLeadingZeros(a);
    const QString right = withoutLeadingZeros(b);
    return left.size() != right.size() ? (left.size() < right.size() ? -1 : 1) : left.compare(right);
}

bool comesBefore(const QString& a, const QString& b)
{
    qsizetype i = 0;
    qsizetype k = 0;
    while (i < a.size() && k < b.size()) {
        const QString left = partAt(a, i);
        const QString right = partAt(b, k);
        if (const int order = compareParts(left, right))
            return order < 0;
        i += left.size();
        k += right.size();
    }
    if (i < a.size() || k < b.size())
        return k < b.size();
    return a < b;
}

UT_Result<std::vector<NumberedFile>> inTurn(const QStringList& paths)
{
    std::vector<NumberedFile> files;
    for (const QString& path : paths)
        files.push_back({path, static_cast<int>(files.size()) + 1});
    return files;
}

// What a file's name says of its frame.
struct NamedFile
{
    QString path;
    std::optional<int> frame;
};

// @param files by their numbers, those without one first
UT_Result<void> checkNumbers(const std::vector<NamedFile>& files)
{
    for (std::size_t i = 1; i < files.size(); ++i) {
        if (!files[0].frame)
            return UT_Error{QStringLiteral("%1 has no frame number in its name and %2 has; number all of them or none")
                                .arg(files[0].path, files.back().path)};
        if (files[i].frame == files[i - 1].frame)
            return UT_Error{QStringLiteral("%1 and %2 have the same frame number, %3; rename one, or leave it out")
                                .arg(files[i - 1].path, files[i].path, QString::number(*files[i].frame))};
    }
    return {};
}

} // namespace

void sortNaturally(QStringList& paths)
{
    std::ranges::sort(paths, comesBefore);
}

UT_Result<std::optional<int>> frameNumberOf(const QString& path)
{
    static const QRegularExpression lastDigits(QStringLiteral("([0-9]+)[^0-9]*$"));
    const QRegularExpressionMatch match = lastDigits.match(QFileInfo(path).completeBaseName());
    if (!match.hasMatch())
        return std::optional<int>();
    const QString digits = withoutLeadingZeros(match.captured(1));
    if (digits.size() > kMaxDigits)
        return UT_Error{QStringLiteral("%1: %2 is too large for a frame number").arg(path, digits)};
    return std::optional(digits.toInt());
}

UT_Result<std::vector<NumberedFile>> numberFrames(QStringList paths)
{
    sortNaturally(paths);
    std::vector<NamedFile> files;
    for (const QString& path : std::as_const(paths)) {
        const UT_Result<std::optional<int>> frame = frameNumberOf(path);
        if (!frame)
            return frame.error();
        files.push_back({path, *frame});
    }
    const auto hasNone = [](const NamedFile& file) { return !file.frame; };
    if (files.size() == 1 || std::ranges::all_of(files, hasNone))
        return inTurn(paths);
    std::ranges::stable_sort(files, {}, &NamedFile::frame);
    if (UT_Result<void> checked = checkNumbers(files); !checked)
        return checked.error();
    std::vector<NumberedFile> numbered;
    numbered.reserve(files.size());
    for (const NamedFile& file : files)
        numbered.push_back({file.path, *file.frame});
    return numbered;
}

QString sequenceName(QStringList paths)
{
    if (paths.size() == 1)
        return QFileInfo(paths.first()).completeBaseName();
    sortNaturally(paths);
    return paths.isEmpty() ? QString() : DIO_nameWithoutNumber(paths.first());
}
