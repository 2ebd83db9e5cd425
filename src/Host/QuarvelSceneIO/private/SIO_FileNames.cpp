// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes file names from any text.
#include "QuarvelSceneIO/private/SIO_FileNames.h"

#include "QuarvelBaseCore/UT_Id.h"

#include <QRegularExpression>

namespace {

constexpr qsizetype kLongest = 80;
constexpr qsizetype kShortened = 60;

bool isPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

QString escaped(char c)
{
    return u'%' + QString::number(static_cast<unsigned char>(c), 16).rightJustified(2, u'0').toUpper();
}

// Some systems treat these names as devices, with any extension.
bool isDevice(const QString& name)
{
    static const QRegularExpression devices(QStringLiteral("^(con|prn|aux|nul|com[0-9]|lpt[0-9])$"),
                                            QRegularExpression::CaseInsensitiveOption);
    return devices.match(name).hasMatch();
}

QString fileNameOf(const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral("%");
    if (isDevice(name))
        return escaped(name.front().toLatin1()) + name.mid(1);
    QString result;
    for (const char c : name.toUtf8())
        result += isPlain(c) ? QString(QLatin1Char(c)) : escaped(c);
    return result;
}

QString digitsOf(const QString& name)
{
    return QString::fromLatin1(UT_Id::fromName(name).AsString().c_str());
}

} // namespace

QString SIO_FileNames::add(const QString& name)
{
    const QString whole = fileNameOf(name);
    const QString ending = u'~' + digitsOf(name);
    QString candidate = whole.size() > kLongest ? whole.left(kShortened) + ending : whole;
    for (int attempt = 1; _taken.contains(candidate.toLower()); ++attempt)
        candidate =
            whole.left(kShortened) + ending.left(9) + (attempt > 1 ? u'~' + QString::number(attempt) : QString());
    _taken.insert(candidate.toLower());
    return candidate;
}
