// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A part is its length (four bytes, the highest first), four letters, the content, and the checksum of letters and
// content. A capital first letter marks what no reader may leave out.
#include "QuarvelDrawingIO/private/DIO_PngParts.h"

#include <QIODevice>
#include <QtEndian>

#include <zlib.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>

namespace {

constexpr char kSignature[] = "\x89PNG\r\n\x1a\n";
constexpr qint64 kSignatureSize = 8;

UT_Error endsEarly(qint64 size)
{
    return {
        QStringLiteral("the picture is cut short: it ends after %1 bytes, in the middle of its content; copy or save "
                       "it again")
            .arg(size)};
}

UT_Error isChanged(qint64 at)
{
    return {
        QStringLiteral("the picture is damaged: its content from byte %1 on is not what was written; copy or save it "
                       "again")
            .arg(at)};
}

std::uint32_t numberAt(const QByteArray& bytes, qsizetype at)
{
    return qFromBigEndian<std::uint32_t>(bytes.constData() + at);
}

// The checksum of a part's letters and of its content, which is read; nothing where the file ends before.
std::optional<uLong> checksum(QIODevice& file, const QByteArray& letters, qint64 length)
{
    constexpr qint64 kAtOnce = 1 << 16;
    const auto add = [](uLong sum, const QByteArray& bytes) {
        return crc32(sum, reinterpret_cast<const Bytef*>(bytes.constData()), static_cast<uInt>(bytes.size()));
    };
    uLong sum = add(crc32(0, nullptr, 0), letters);
    for (qint64 left = length; left > 0;) {
        const QByteArray bytes = file.read(std::min(left, kAtOnce));
        if (bytes.isEmpty())
            return std::nullopt;
        sum = add(sum, bytes);
        left -= bytes.size();
    }
    return sum;
}

UT_Result<void> checkParts(QIODevice& file)
{
    constexpr std::uint32_t kLongest = 0x7fffffff;
    const qint64 size = file.size();
    for (;;) {
        const qint64 start = file.pos();
        const QByteArray head = file.read(8);
        if (head.size() < 8)
            return endsEarly(size);
        const QByteArray letters = head.mid(4);
        const std::uint32_t length = numberAt(head, 0);
        if (length > kLongest || !std::ranges::all_of(letters, [](char c) { return std::isalpha(uchar(c)) != 0; }))
            return isChanged(start);
        const std::optional<uLong> sum = checksum(file, letters, length);
        const QByteArray stored = file.read(4);
        if (!sum || stored.size() < 4)
            return endsEarly(size);
        if (std::isupper(uchar(letters[0])) && numberAt(stored, 0) != *sum)
            return isChanged(start);
        if (letters == "IEND")
            return {};
    }
}

} // namespace

UT_Result<void> DIO_checkPngParts(QIODevice& file)
{
    const qint64 start = file.pos();
    const bool isPng = file.read(kSignatureSize) == QByteArray(kSignature, kSignatureSize);
    UT_Result<void> whole = isPng ? checkParts(file) : UT_Result<void>();
    if (!file.seek(start))
        return UT_Error{QStringLiteral("cannot be read a second time; copy it to a disk")};
    return whole;
}
