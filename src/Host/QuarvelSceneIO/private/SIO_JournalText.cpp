// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writes and parses the text of journals.
#include "QuarvelSceneIO/private/SIO_JournalText.h"

#include "QuarvelSceneIO/private/SIO_ForEach.h"
#include "QuarvelSceneIO/private/SIO_Index.h"
#include "QuarvelSceneIO/private/SIO_PathInside.h"

#include <QCryptographicHash>

#include <algorithm>

const QString kSIO_journalFile = QStringLiteral(".journal");
const QString kSIO_stagingFolder = QStringLiteral(".save");

namespace {

const QByteArray kFirstLine = "quarvel-journal 2";
const QByteArray kWrite = "write ";
const QByteArray kDelete = "delete ";
constexpr qsizetype kDigestLength = 64;

bool isNumber(const QString& text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// "write NAME DIGEST TARGET", where only the target may hold spaces.
bool parseWrite(const QByteArray& line, SIO_Journal& journal)
{
    const auto afterName = line.indexOf(' ', kWrite.size());
    const auto afterDigest = afterName + 1 + kDigestLength;
    if (afterName < 0 || line.size() <= afterDigest || line.at(afterDigest) != ' ')
        return false;
    const QByteArray name = line.mid(kWrite.size(), afterName - kWrite.size());
    journal.writes.push_back(
        {SIO_stagedPath(name), QString::fromUtf8(line.mid(afterDigest + 1)), line.mid(afterName + 1, kDigestLength)});
    return isNumber(QString::fromLatin1(name)) && SIO_isScenePath(journal.writes.back().target);
}

bool parseLine(const QByteArray& line, SIO_Journal& journal)
{
    if (line.startsWith(kWrite))
        return parseWrite(line, journal);
    if (!line.startsWith(kDelete))
        return false;
    journal.deletes << QString::fromUtf8(line.mid(kDelete.size()));
    return SIO_isScenePath(journal.deletes.back());
}

} // namespace

QString SIO_stagedPath(const QByteArray& name)
{
    return kSIO_stagingFolder + u'/' + QString::fromLatin1(name);
}

bool SIO_isStagedName(const QString& name)
{
    return isNumber(name) || name == QLatin1String("journal");
}

bool SIO_isScenePath(const QString& relative)
{
    if (relative == kSIO_mainFile)
        return true;
    if (!SIO_pathInside(QString(), relative))
        return false;
    const QStringList parts = relative.split(u'/');
    const auto endsIn = [&](const char* extension) {
        return parts.back().endsWith(QLatin1String(extension), Qt::CaseInsensitive);
    };
    return (parts.size() == 2 && parts.front() == QLatin1String("palettes") && endsIn(".xml")) ||
           (parts.size() == 3 && parts.front() == QLatin1String("elements") && endsIn(".kvr"));
}

QByteArray SIO_digest(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

QMap<QString, QByteArray> SIO_digests(const QMap<QString, QByteArray>& files)
{
    const QList<QByteArray> contents = files.values();
    std::vector<QByteArray> found(static_cast<std::size_t>(contents.size()));
    SIO_forEach(found.size(), [&](std::size_t i) { found[i] = SIO_digest(contents[static_cast<qsizetype>(i)]); });
    QMap<QString, QByteArray> digests;
    for (std::size_t i = 0; const QString& path : files.keys())
        digests.insert(path, found[i++]);
    return digests;
}

QByteArray SIO_journalText(const SIO_Journal& journal)
{
    QByteArray text = kFirstLine + '\n';
    for (const SIO_Journal::Write& write : journal.writes)
        text += kWrite + write.staged.mid(kSIO_stagingFolder.size() + 1).toLatin1() + ' ' + write.digest + ' ' +
                write.target.toUtf8() + '\n';
    for (const QString& path : journal.deletes)
        text += kDelete + path.toUtf8() + '\n';
    return text;
}

std::optional<SIO_Journal> SIO_parseJournal(const QByteArray& text)
{
    if (!text.endsWith('\n'))
        return std::nullopt;
    QList<QByteArray> lines = text.chopped(1).split('\n');
    if (lines.takeFirst() != kFirstLine)
        return std::nullopt;
    SIO_Journal journal;
    for (const QByteArray& line : std::as_const(lines))
        if (!parseLine(line, journal))
            return std::nullopt;
    return journal;
}
