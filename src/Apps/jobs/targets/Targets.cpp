// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of programs and the look-ups in it.
#include "jobs/targets/Targets.h"

#include "QuarvelImageIO/IIO_PictureFile.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr auto UP = NM_YAxis::UP;
constexpr auto DOWN = NM_YAxis::DOWN;
constexpr auto FULL = NM_Alpha::FULL;
constexpr auto COVERAGE = NM_Alpha::COVERAGE;

// Padding: engines that make mipmaps, or draw sprites reduced in size, mix pixels from farther away.
constexpr Target kTargets[] = {
    {"blender", "Blender", {UP, FULL, 16, 4}, "_n", "png", true, {"_height", "_ao", "_roughness", true}},
    {"compositor", "compositors", {UP, COVERAGE, 16, 0}, "_n", "exr", true, {}},
    {"gamemaker", "GameMaker", {UP, FULL, 8, 4}, "_n", "png", false, {"_height", "_ao", "_specular"}},
    {"gltf", "glTF", {UP, FULL, 8, 8}, "_normal", "png", true, {"_height", "_occlusion", "_roughness", true}},
    {"godot", "Godot 4", {UP, FULL, 8, 8}, "_n", "png", true, {"_height", "_ao", "_specular"}},
    {"godot3", "Godot 3", {DOWN, FULL, 8, 8}, "_n", "png", true, {"_height", "_ao", "_specular"}},
    {"melonjs", "melonJS", {UP, FULL, 8, 4}, "_n", "png", false, {"_height", "_ao", "_specular"}, true},
    {"phaser", "Phaser", {UP, FULL, 8, 4}, "_n", "png", false, {"_height", "_ao", "_specular"}},
    {"pixi", "PixiJS", {UP, FULL, 8, 4}, "_n", "png", false, {"_height", "_ao", "_specular"}},
    {"three", "three.js", {UP, FULL, 8, 8}, "_normal", "png", true, {"_height", "_ao", "_roughness", true}},
    {"unity", "Unity", {UP, FULL, 8, 8}, "_n", "png", true, {"_height", "_ao", "_mask"}},
    {"unreal", "Unreal Engine", {DOWN, FULL, 8, 8}, "_N", "png", true, {"_H", "_AO", "_R", true}},
};

QString pixels(int count)
{
    return count == 1 ? QStringLiteral("1 pixel") : QStringLiteral("%1 pixels").arg(count);
}

} // namespace

NM_MapForm formInFile(NM_MapForm form, const QString& file)
{
    if (const UT_Result<IIO_PictureFormat> format = IIO_pictureFormatOf(file))
        form.bits = std::min(form.bits, format->bitsPerChannel);
    return form;
}

std::span<const Target> targets()
{
    return kTargets;
}

UT_Result<const Target*> targetNamed(const QString& name)
{
    QStringList names;
    for (const Target& target : kTargets) {
        if (name.compare(QLatin1String(target.name), Qt::CaseInsensitive) == 0)
            return &target;
        names << QLatin1String(target.name);
    }
    return UT_Error{
        QStringLiteral("\"%1\" is none of the programs that are known here; take one of %2, or say --y, --alpha, "
                       "--bits and --pad yourself")
            .arg(name, names.join(QStringLiteral(", ")))};
}

bool lights(const Target& target, const NM_MapForm& form)
{
    const bool alphaFits = form.alpha == NM_Alpha::FULL || target.takesCoverage;
    return target.form.yAxis == form.yAxis && alphaFits;
}

QString wordsOf(const NM_MapForm& form)
{
    QStringList words{form.yAxis == NM_YAxis::UP ? QStringLiteral("y up") : QStringLiteral("y down"),
                      form.alpha == NM_Alpha::FULL ? QStringLiteral("opaque")
                                                   : QStringLiteral("alpha %1").arg(NM_nameOf(form.alpha)),
                      QStringLiteral("%1 bits").arg(form.bits)};
    if (form.pad > 0)
        words << QStringLiteral("%1 of padding").arg(pixels(form.pad));
    return words.join(QStringLiteral(", "));
}

QString fitsLine(const NM_MapForm& form, const Target* named)
{
    if (named && lights(*named, form))
        return QStringLiteral("%1: right for %2").arg(wordsOf(form), named->titleText());
    QStringList right;
    QStringList others;
    for (const Target& target : kTargets) {
        if (lights(target, form))
            right << target.titleText();
        else
            others << QLatin1String(target.name);
    }
    QString line = QStringLiteral("%1: right for %2").arg(wordsOf(form), right.join(QStringLiteral(", ")));
    if (!others.isEmpty())
        line += QStringLiteral("; --for %1 for others").arg(others.join(QLatin1Char('|')));
    return line;
}
