// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A name is divided into its stem, the place of the frame's number with the sign before it, and the extension.
#include "studio/export/ExportChoices.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <array>

namespace {

constexpr std::array kEndings{"png", "exr"};

// The longest first, so that "_normal" is not taken for another suffix with something before it.
QStringList knownSuffixes(ExportPicture picture)
{
    QStringList suffixes{exportSuffix(picture, nullptr)};
    for (const Target& target : targets())
        if (const QString suffix = exportSuffix(picture, &target); !suffixes.contains(suffix))
            suffixes << suffix;
    std::ranges::sort(suffixes, std::greater(), &QString::size);
    return suffixes;
}

// The folder with its slash, and the name.
std::pair<QString, QString> split(const QString& file)
{
    const qsizetype slash = file.lastIndexOf(QLatin1Char('/')) + 1;
    return {file.left(slash), file.mid(slash)};
}

// The stem, the place of the frame's number with the sign before it, and the extension with its dot.
QRegularExpressionMatch partsOf(const QString& name)
{
    static const QRegularExpression form(
        QStringLiteral("^(.*?)([._-]?(?:#+|%0?[0-9]*d|\\$F[0-9]*|<frame[0-9]*>))?(\\.[^.]*)?$"));
    return form.match(name);
}

QString asPng(const QString& file)
{
    const auto [folder, name] = split(file);
    return folder + QFileInfo(name).completeBaseName() + QStringLiteral(".png");
}

} // namespace

QString exportSuffix(ExportPicture picture, const Target* target)
{
    const TargetCompanions beside = target ? target->beside : TargetCompanions();
    switch (picture) {
    case ExportPicture::ELEVATION:
        return QStringLiteral("_e");
    case ExportPicture::LIT:
        return QStringLiteral("_lit");
    case ExportPicture::DRAWING:
        return QStringLiteral("_drawing");
    case ExportPicture::HEIGHT:
        return QString::fromLatin1(beside.height);
    case ExportPicture::OCCLUSION:
        return QString::fromLatin1(beside.occlusion);
    case ExportPicture::NUMBERS:
        return QStringLiteral("_numbers");
    case ExportPicture::GLOSS:
        return QString::fromLatin1(beside.gloss);
    case ExportPicture::MAP:
        break;
    }
    return target ? target->suffixText() : QString::fromLatin1(kSuffixForMost);
}

QString withExportEnding(const QString& file, const QString& ending)
{
    const auto [folder, name] = split(file);
    const QRegularExpressionMatch parts = partsOf(name);
    const QString after = parts.captured(3);
    const bool isEnding = std::ranges::any_of(kEndings, [&](const char* known) {
        return after.mid(1).compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
    });
    return folder + parts.captured(1) + parts.captured(2) + (isEnding ? QString() : after) + QLatin1Char('.') + ending;
}

QString withExportSuffix(const QString& file, ExportPicture picture, const QString& suffix)
{
    const auto [folder, name] = split(file);
    const QRegularExpressionMatch match = partsOf(name);
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
    const QString named = isFirst ? file : withExportSuffix(file, pictures.first(), exportSuffix(picture, target));
    return picture == ExportPicture::LIT ? asPng(named) : named;
}

QStringList ExportChoices::files() const
{
    QStringList all;
    for (const ExportPicture picture : pictures)
        all << fileOf(picture);
    return all;
}
