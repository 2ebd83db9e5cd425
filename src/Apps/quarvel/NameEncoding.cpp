// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Qt lists and opens only files whose names it can decode, so that the bytes are looked at before Qt sees them.
#include "NameEncoding.h"

#include <QByteArrayView>
#include <QFile>

#ifdef Q_OS_UNIX

#include <filesystem>
#include <system_error>

namespace {

// The bytes that are no ASCII as \xe9, which shells understand within $'...'.
QString written(QByteArrayView name)
{
    QString text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        text += byte < 0x80 ? QString(QChar(byte)) : QStringLiteral("\\x%1").arg(byte, 2, 16, QLatin1Char('0'));
    }
    return text;
}

} // namespace

UT_Result<void> checkNamesAreText(std::span<char* const> words)
{
    for (const QByteArrayView word : words)
        if (!word.isValidUtf8())
            return UT_Error{
                QStringLiteral("%1: the name is not UTF-8, so that the file cannot be opened; rename it, or pass "
                               "a drawing through standard input: quarvel normalmap - -o MAP.png < FILE")
                    .arg(written(word))};
    return {};
}

int namesThatAreNoText(const QString& folder)
{
    int count = 0;
    std::error_code failed;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed))
        if (!QByteArrayView(entry->path().filename().native()).isValidUtf8())
            ++count;
    return count;
}

#else

// Names are texts on Windows.
UT_Result<void> checkNamesAreText(std::span<char* const>)
{
    return {};
}

int namesThatAreNoText(const QString&)
{
    return 0;
}

#endif
