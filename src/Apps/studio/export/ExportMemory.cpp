// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Another version of the program may have written the settings, so every value is checked.
#include "studio/export/ExportMemory.h"

#include "jobs/targets/Targets.h"

#include <QSettings>

#include <algorithm>

namespace {

const QString kGroup = QStringLiteral("export");
const QString kPictures = QStringLiteral("pictures");
const QString kTarget = QStringLiteral("target");
const QString kAsSet = QStringLiteral("asSet");
const QString kYAxis = QStringLiteral("yAxis");
const QString kAlpha = QStringLiteral("alpha");
const QString kBits = QStringLiteral("bits");
const QString kPad = QStringLiteral("pad");
const QString kLayout = QStringLiteral("layout");
const QString kEnding = QStringLiteral("ending");
const QString kHalf = QStringLiteral("half");
const QString kFloat = QStringLiteral("float");
const QString kGloss = QStringLiteral("gloss");
const QString kFolders = QStringLiteral("export/folders");

template<typename Enum>
Enum enumIn(const QSettings& settings, const QString& key, Enum otherwise, Enum last)
{
    const int value = settings.value(key, static_cast<int>(otherwise)).toInt();
    return value >= 0 && value <= static_cast<int>(last) ? static_cast<Enum>(value) : otherwise;
}

} // namespace

ExportMemory ExportMemory::load()
{
    QSettings settings;
    settings.beginGroup(kGroup);
    ExportMemory memory;
    if (settings.contains(kPictures)) {
        const int bits = settings.value(kPictures).toInt();
        memory.pictures.clear();
        for (const ExportPicture picture : kExportPictures)
            if (bits & (1 << static_cast<int>(picture)))
                memory.pictures << picture;
    }
    memory.target = settings.value(kTarget).toString();
    if (!memory.target.isEmpty() && !targetNamed(memory.target))
        memory.target.clear();
    memory.asSet = settings.value(kAsSet, false).toBool();
    memory.form.yAxis = enumIn(settings, kYAxis, kFormForMost.yAxis, NM_YAxis::DOWN);
    memory.form.alpha = enumIn(settings, kAlpha, kFormForMost.alpha, NM_Alpha::HARD);
    memory.form.bits = settings.value(kBits, kFormForMost.bits).toInt() == 8 ? 8 : 16;
    memory.form.pad = std::clamp(settings.value(kPad, kFormForMost.pad).toInt(), 0, 256);
    memory.layout = enumIn(settings, kLayout, NM_Layout::TANGENT, NM_Layout::NODE);
    memory.ending = settings.value(kEnding).toString() == QLatin1String("exr") ? QStringLiteral("exr") : memory.ending;
    memory.half = settings.value(kHalf, false).toBool();
    memory.floatRender = settings.value(kFloat, false).toBool();
    memory.gloss = glossOfTexts(settings.value(kGloss).toStringList());
    return memory;
}

void ExportMemory::store() const
{
    QSettings settings;
    settings.beginGroup(kGroup);
    int bits = 0;
    for (const ExportPicture picture : pictures)
        bits |= 1 << static_cast<int>(picture);
    settings.setValue(kPictures, bits);
    settings.setValue(kTarget, target);
    settings.setValue(kAsSet, asSet);
    settings.setValue(kYAxis, static_cast<int>(form.yAxis));
    settings.setValue(kAlpha, static_cast<int>(form.alpha));
    settings.setValue(kBits, form.bits);
    settings.setValue(kPad, form.pad);
    settings.setValue(kLayout, static_cast<int>(layout));
    settings.setValue(kEnding, ending);
    settings.setValue(kHalf, half);
    settings.setValue(kFloat, floatRender);
    settings.setValue(kGloss, glossTexts(gloss));
}

// A list of pairs, the latest first: the folder of drawings, then the folder of their pictures.
QString ExportMemory::folderFor(const QString& drawings)
{
    const QStringList known = QSettings().value(kFolders).toStringList();
    for (qsizetype i = 0; i + 1 < known.size(); i += 2)
        if (known[i] == drawings)
            return known[i + 1];
    return drawings;
}

void ExportMemory::rememberFolder(const QString& drawings, const QString& pictures)
{
    constexpr qsizetype kMost = 50;
    const QStringList known = QSettings().value(kFolders).toStringList();
    QStringList kept;
    if (pictures != drawings)
        kept << drawings << pictures;
    for (qsizetype i = 0; i + 1 < known.size() && kept.size() < 2 * kMost; i += 2)
        if (known[i] != drawings)
            kept << known[i] << known[i + 1];
    QSettings().setValue(kFolders, kept);
}
