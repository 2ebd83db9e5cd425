// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words of "quarvel import", and what its help says.
#include "ImportCommand.h"
#include "OptionValues.h"
#include "jobs/import/FrameNumbers.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

namespace {

const QString kOutput = QStringLiteral("output");
const QString kObjects = QStringLiteral("objects");
const QString kForce = QStringLiteral("force");
const QString kQuiet = QStringLiteral("quiet");
const QString kHelp = QStringLiteral("help");

// Beside the first file, under its name without the frame number.
QString defaultOutput(const QStringList& files)
{
    QStringList sorted = files;
    sortNaturally(sorted);
    const QFileInfo first(sorted.first());
    const QString name = files.size() == 1 ? first.completeBaseName() : sequenceName(files);
    return QDir::cleanPath(first.dir().filePath(name + QStringLiteral(".scene")));
}

} // namespace

UT_Result<ImportOptions> parseImportOptions(const QStringList& words)
{
    QCommandLineParser parser;
    const QString value = QStringLiteral("value");
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("o"), kOutput}, QString(), value));
    parser.addOption(QCommandLineOption(kObjects, QString(), value));
    parser.addOption(QCommandLineOption(kForce));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("q"), kQuiet}));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), kHelp}));
    // The parser takes the first word for the program's name.
    if (!parser.parse(QStringList{QStringLiteral("import")} + words))
        return UT_Error{parser.errorText().chopped(1) + QStringLiteral("; quarvel help import lists what there is")};

    ImportOptions options;
    options.help = parser.isSet(kHelp);
    options.force = parser.isSet(kForce);
    options.quiet = parser.isSet(kQuiet);
    options.files = parser.positionalArguments();
    if (parser.isSet(kObjects)) {
        const UT_Result<int> choice =
            parseChoice(QStringLiteral("--objects"), parser.value(kObjects),
                        {QStringLiteral("auto"), QStringLiteral("groups"), QStringLiteral("one")});
        if (!choice)
            return choice.error();
        constexpr ObjectChoice kChoices[] = {ObjectChoice::AUTO, ObjectChoice::GROUPS, ObjectChoice::ONE};
        options.objects = kChoices[*choice];
    }
    if (options.help)
        return options;
    if (options.files.isEmpty())
        return UT_Error{QStringLiteral("which drawings? quarvel import takes SVG drawings or bitmaps, a frame each, or "
                                       "an animation, such as walk_*.svg or bounce.json")};
    options.output = parser.isSet(kOutput) ? parser.value(kOutput) : defaultOutput(options.files);
    if (options.output.isEmpty())
        return UT_Error{QStringLiteral("--output takes the name of a scene, such as walk.scene")};
    return options;
}

QString importHelp()
{
    return QStringLiteral(R"(quarvel import - makes a scene of drawings

  quarvel import FILE... [-o NAME.scene] [options]

Files of one kind become one scene, in which every layer is an element with an Object Definition behind it, and all of them go
into a node "Normal-Map".

  SVG drawings   one drawing a frame. Layers of the same name are one element through all frames; drawings that are equal are
                 kept once; colours that are equal are one colour
  bitmaps        sprites with alpha, a layer each, named after the file; files that differ in the frame number alone are one
                 layer. Files without a number are shown all the time. The first name is the lowest layer
  an animation   in the Lottie format (.json). Its layers become elements, its frames count from 1. What cannot be kept, such
                 as images, texts and effects, is said once

The frame number is the last run of digits in a file's name: walk_0012.svg is frame 12. A single file, and files without any
number, count from 1. Where numbers are left out, the drawing before holds.

  -o, --output NAME       the scene, a folder. Default: the first file's name without the number, and .scene
      --objects auto      each layer that a drawing declares is an object; without layers the whole drawing is one (default)
      --objects groups    each top-level group is an object
      --objects one       the whole drawing is one object
      --force             writes over a scene that is there already
  -q, --quiet             nothing on standard output
  -h, --help              this text

Examples
  quarvel import walk_*.svg -o walk.scene
  quarvel import bounce.json
  quarvel import body.png arm_*.png -o hero.scene

Exit code: 0 when the scene was made, 1 when it was not, 2 when the command line made no sense.
)");
}
