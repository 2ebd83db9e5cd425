// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "NameEncoding.h"

#include <QByteArrayView>
#include <QFile>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <filesystem>
#include <system_error>
#endif

namespace {

constexpr char16_t kFirstByte = 0xDC00; // stands for byte 0, which no name has

bool isByte(QChar c)
{
    return c.unicode() >= kFirstByte + 0x80 && c.unicode() <= kFirstByte + 0xFF;
}

// How many bytes at the beginning are one character of UTF-8; 0: none.
qsizetype lengthOfCharacter(QByteArrayView bytes)
{
    constexpr qsizetype kLongest = 4;
    for (qsizetype length = 1; length <= std::min(kLongest, bytes.size()); ++length)
        if (bytes.first(length).isValidUtf8())
            return length;
    return 0;
}

// Calls text(from, to) and byte(value) for the parts of a name in their order.
template<typename Text, typename Byte>
void forParts(const QString& name, const Text& text, const Byte& byte)
{
    qsizetype begin = 0;
    for (qsizetype i = 0; i <= name.size(); ++i) {
        const bool isEnd = i == name.size();
        // The second half of a pair follows its first one and is text.
        if (!isEnd && (!isByte(name[i]) || (i > begin && name[i - 1].isHighSurrogate())))
            continue;
        if (i > begin)
            text(QStringView(name).sliced(begin, i - begin));
        if (!isEnd)
            byte(static_cast<unsigned char>(name[i].unicode() - kFirstByte));
        begin = i + 1;
    }
}

QString escaped(const QString& name)
{
    QString all;
    forParts(
        name, [&](QStringView text) { all += text.toString().replace(u'%', QStringLiteral("%25")); },
        [&](unsigned char byte) { all += u'%' + QString::number(byte, 16).toUpper(); });
    return all;
}

} // namespace

QString nameOf(QByteArrayView bytes)
{
    QString name;
    while (!bytes.isEmpty()) {
        const qsizetype length = lengthOfCharacter(bytes);
        if (length > 0)
            name += QString::fromUtf8(bytes.first(length));
        else
            name += QChar(static_cast<char16_t>(kFirstByte + static_cast<unsigned char>(bytes.front())));
        bytes = bytes.sliced(std::max<qsizetype>(length, 1));
    }
    return name;
}

QByteArray bytesOf(const QString& name)
{
    QByteArray bytes;
    forParts(
        name, [&](QStringView text) { bytes += text.toUtf8(); },
        [&](unsigned char byte) { bytes += static_cast<char>(byte); });
    return bytes;
}

bool isText(const QString& name)
{
    bool all = true;
    forParts(
        name, [](QStringView) {}, [&](unsigned char) { all = false; });
    return all;
}

QString escapedName(const QString& path)
{
    QStringList names = path.split(u'/');
    for (QString& name : names)
        if (!isText(name))
            name = escaped(name);
    return names.join(u'/');
}

#ifdef Q_OS_UNIX

QStringList namesThatAreNoText(const QString& folder)
{
    std::vector<std::string> found;
    std::error_code failed;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), failed);
    for (; !failed && entry != std::filesystem::directory_iterator(); entry.increment(failed))
        if (const std::string name = entry->path().filename().native(); !QByteArrayView(name).isValidUtf8())
            found.push_back(name);
    std::ranges::sort(found);
    QStringList names;
    for (const std::string& name : found)
        names << nameOf(name);
    return names;
}

#else

// Names are texts on Windows.
QStringList namesThatAreNoText(const QString&)
{
    return {};
}

#endif
