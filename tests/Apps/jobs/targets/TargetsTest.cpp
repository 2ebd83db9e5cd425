// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The table of programs for which maps are made, and the table in docs/targets.md.
#include "jobs/targets/Targets.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;
using testing::Not;

namespace {

const Target& named(const char* name)
{
    return *targetNamed(QString::fromLatin1(name)).value();
}

// The cells of a row in docs/targets.md that begins with the target's name: the first such row says what a map is like,
// the second what goes beside it.
QStringList documentedRow(const Target& target, int which = 0)
{
    QFile file(QStringLiteral(DOCS "/targets.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString begin = QStringLiteral("| `%1` |").arg(QLatin1String(target.name));
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')))
        if (line.startsWith(begin) && which-- == 0) {
            QStringList cells = line.split(QLatin1Char('|')).sliced(1);
            for (QString& cell : cells)
                cell = cell.trimmed().remove(QLatin1Char('`'));
            return cells;
        }
    return {};
}

} // namespace

TEST(Targets, AreFoundByNameInAnyCase)
{
    EXPECT_STREQ(named("phaser").name, "phaser");
    EXPECT_STREQ(named("Phaser").name, "phaser");
    const auto unknown = targetNamed("paper");
    ASSERT_FALSE(unknown);
    EXPECT_THAT(unknown.error().text.toStdString(), HasSubstr("phaser"));
}

TEST(Targets, AreLitRightlyByWhatIsWrittenForThem)
{
    for (const Target& target : targets())
        EXPECT_TRUE(lights(target, target.form)) << target.name;
}

TEST(Targets, DifferInYAndInWhetherTheyTakeCoverage)
{
    const NM_MapForm up{.yAxis = NM_YAxis::UP, .alpha = NM_Alpha::FULL};
    const NM_MapForm covered{.yAxis = NM_YAxis::UP, .alpha = NM_Alpha::COVERAGE};
    EXPECT_TRUE(lights(named("phaser"), up));
    EXPECT_FALSE(lights(named("phaser"), covered)) << "it multiplies by alpha";
    EXPECT_TRUE(lights(named("three"), covered));
    EXPECT_FALSE(lights(named("godot3"), up)) << "its y points down";
}

TEST(Targets, WhatIsWrittenForMostSaysWhomItFits)
{
    const std::string line = fitsLine(kFormForMost).toStdString();
    EXPECT_THAT(line, HasSubstr("y up, opaque, 16 bits, 4 pixels of padding: right for Blender"));
    EXPECT_THAT(line, HasSubstr("PixiJS"));
    EXPECT_THAT(line, HasSubstr("--for godot3|unreal for others"));
    EXPECT_THAT(fitsLine({.alpha = NM_Alpha::COVERAGE}).toStdString(),
                HasSubstr("--for gamemaker|godot3|melonjs|phaser|pixi"));
}

TEST(Targets, WhatIsWrittenForANamedProgramNamesNoOther)
{
    const Target& godot3 = named("godot3");
    EXPECT_EQ(fitsLine(godot3.form, &godot3), "y down, opaque, 8 bits, 8 pixels of padding: right for Godot 3");
    EXPECT_THAT(fitsLine(kFormForMost, &godot3).toStdString(), HasSubstr("--for godot3|unreal for others"))
        << "options that were said beside --for make it wrong there";
}

TEST(Targets, StandInTheDocumentsAsInTheTable)
{
    for (const Target& target : targets()) {
        const QStringList row = documentedRow(target);
        ASSERT_GE(row.size(), 9) << target.name;
        EXPECT_EQ(row[2], target.form.yAxis == NM_YAxis::UP ? "up" : "down") << target.name;
        EXPECT_EQ(row[3], NM_nameOf(target.form.alpha)) << target.name;
        EXPECT_EQ(row[4], QString::number(target.form.bits)) << target.name;
        EXPECT_EQ(row[5], QString::number(target.form.pad)) << target.name;
        EXPECT_EQ(row[6], "NAME" + target.suffixText() + "." + target.endingText()) << target.name;
        EXPECT_FALSE(row[7].isEmpty()) << target.name << ": how it was verified";
    }
}

TEST(Targets, NamesOfWhatGoesBesideTheMapAreDocumented)
{
    for (const Target& target : targets()) {
        const QStringList row = documentedRow(target, 1);
        ASSERT_GE(row.size(), 5) << target.name;
        EXPECT_EQ(row[1], QStringLiteral("NAME") + QLatin1String(target.beside.height)) << target.name;
        EXPECT_EQ(row[2], QStringLiteral("NAME") + QLatin1String(target.beside.occlusion)) << target.name;
        EXPECT_EQ(row[3], QStringLiteral("NAME") + QLatin1String(target.beside.gloss)) << target.name;
        EXPECT_EQ(row[4], target.beside.roughness ? QStringLiteral("roughness") : QStringLiteral("gloss"))
            << target.name;
    }
}
