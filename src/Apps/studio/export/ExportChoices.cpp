// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A name is divided into its stem, the place of the frame's number with the sign before it, and the extension.
#include "studio/export/ExportChoices.h"

#include "jobs/targets/Targets.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

// The longest first, so that "_normal" is not taken for another suffix with something before it.
QStringList knownSuffixes(ExportPicture picture)
{
    if (picture != ExportPicture::MAP)
        return {exportSuffix(picture, {})};
    QStringList suffixes{QString::fromLatin1(kSuffixForMost)};
    for (const Target& target : targets())
        if (!suffixes.contains(target.suffixText()))
            suffixes << target.suffixText();
    std::ranges::sort(suffixes, std::greater(), &QString::size);
    return suffixes;
}

// The folder with its slash, and the name.
std::pair<QString, QString> split(const QString& file)
{
    const qsizetype slash = file.lastIndexOf(QLatin1Char('/')) + 1;
    return {file.left(slash), file.mid(slash)};
}

QString asPng(const QString& file)
{
    const auto [folder, name] = split(file);
    return folder + QFileInfo(name).completeBaseName() + QStringLiteral(".png");
}

} // namespace

QString exportSuffix(ExportPicture picture, const QString& mapSuffix)
{
    switch (picture) {
    case ExportPicture::ELEVATION:
        return QStringLiteral("_e");
    case ExportPicture::LIT:
        return QStringLiteral("_lit");
    case ExportPicture::DRAWING:
        return QStringLiteral("_drawing");
    case ExportPicture::MAP:
        break;
    }
    return mapSuffix;
}

QString withExportSuffix(const QString& file, ExportPicture picture, const QString& suffix)
{
    static const QRegularExpression form(
        QStringLiteral("^(.*?)([._-]?(?:#+|%0?[0-9]*d|\\$F[0-9]*|<frame[0-9]*>))?(\\.[^.]*)?$"));
    const auto [folder, name] = split(file);
    const QRegularExpressionMatch match = form.match(name);
    QString stem = match.captured(1);
    for (const QString& known : knownSuffixes(picture))
        if (stem.size() > known.size() && stem.endsWith(known)) {
            stem.chop(known.size());
            break;
        }
    return folder + stem + suffix + match.captured(2) + match.captured(3);
}

QString ExportChoices::fileOf(ExportPicture picture) const
{
    const bool isFirst = pictures.isEmpty() || picture == pictures.first();
    const QString named = isFirst ? file : withExportSuffix(file, pictures.first(), exportSuffix(picture, {}));
    return picture == ExportPicture::LIT ? asPng(named) : named;
}

QStringList ExportChoices::files() const
{
    QStringList all;
    for (const ExportPicture picture : pictures)
        all << fileOf(picture);
    return all;
}
