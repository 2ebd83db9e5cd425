// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words of "quarvel import", and what its help says.
#include "FormOptions.h"
#include "ImportCommand.h"
#include "jobs/import/FrameNumbers.h"

#include <QDir>
#include <QFileInfo>

namespace {

using Row = OptionRow<ImportOptions>;

// Beside the first file, under its name without the frame number.
QString defaultOutput(const QStringList& files)
{
    QStringList sorted = files;
    sortNaturally(sorted);
    const QFileInfo first(sorted.first());
    return QDir::cleanPath(first.dir().filePath(sequenceName(files) + QStringLiteral(".scene")));
}

Taken takeOutput(ImportOptions& options, const QString& option, const QString& value)
{
    if (value.isEmpty())
        return UT_Error{QStringLiteral("%1 takes the name of a scene, such as walk.scene").arg(option)};
    options.output = value;
    return {};
}

std::vector<Row> rows()
{
    std::vector<Row> all{{{QStringLiteral("o"), QStringLiteral("output")}, true, takeOutput},
                         {{QStringLiteral("force")}, false, flag(&ImportOptions::force)},
                         {{QStringLiteral("q"), QStringLiteral("quiet")}, false, flag(&ImportOptions::quiet)},
                         {{QStringLiteral("h"), QStringLiteral("help")}, false, flag(&ImportOptions::help)}};
    const auto form = formOptionRows<ImportOptions>([](ImportOptions& o) -> FormSettings& { return o.form; });
    all.insert(all.end(), form.begin(), form.end());
    all.push_back(objectOptionRow<ImportOptions>([](ImportOptions& o) -> ObjectWishes& { return o.wishes; }));
    return all;
}

} // namespace

UT_Result<ImportOptions> parseImportOptions(const QStringList& words)
{
    ImportOptions options;
    const auto files = takeOptions(QStringLiteral("import"), words, rows(), options);
    if (!files)
        return files.error();
    options.files = *files;
    if (options.help)
        return options;
    if (options.files.isEmpty())
        return UT_Error{QStringLiteral("which drawings? quarvel import takes SVG drawings or bitmaps, a frame each, or "
                                       "an animation, such as walk_*.svg or bounce.json")};
    if (options.output.isEmpty() && options.files.contains(QStringLiteral("-")))
        return UT_Error{QStringLiteral("a drawing from standard input has no name; name the scene with -o, such as "
                                       "walk.scene")};
    if (options.output.isEmpty())
        options.output = defaultOutput(options.files);
    if (!isText(options.output))
        return UT_Error{QStringLiteral("%1: the name is not UTF-8, and files are read but not made under such names; "
                                       "name the scene with -o, such as walk.scene")
                            .arg(escapedName(options.files.first()))};
    return options;
}

QString importHelp()
{
    return QStringLiteral(R"(quarvel import - makes a scene of drawings

  quarvel import FILE... [-o NAME.scene] [options]

Files of one kind become one scene, in which every layer is an element with an Object Definition behind it, and all of them
go into a node "Normal-Map".

  SVG drawings   one drawing a frame. Layers of the same name are one element through all frames; drawings that are
                 equal are kept once; colours that are equal are one colour
  bitmaps        sprites with alpha, a layer each, named after the file; files that differ in the frame number alone are one
                 layer. Files without a number are shown all the time. Layers lie in the order of their names, from the
                 lowest up
  layered files  OpenRaster (.ora), PSD, Krita (.kra) and Aseprite (.aseprite, .ase), as SVG drawings: each visible layer is
                 an element, named with its groups. Blend modes are not kept, which is said once
  a film         one file of several frames: GIF, WebP, animated PNG or Aseprite. It keeps its frame rate
  an animation   in the Lottie format (.json, and .lottie, of which the first animation is read). Its layers become
                 elements, its frames count from 1. What cannot be kept, such as images, texts and effects, is said once

A single drawing or animation may come through standard input: write - for it.

The frame number is the last run of digits in a file's name: walk_0012.svg is frame 12. A single file, and files without any
number, count from 1. Where numbers are left out, the drawing before holds.

  -o, --output NAME       the scene, a folder. Default: the name of the first file, by name, without the number, and .scene
      --objects auto      what the drawing suggests (default): the layers that it declares; in a single drawing without
                          layers its parts, found by how shapes, colours and lines lie on each other; in several
                          drawings without layers the whole drawing is one object
      --objects layers|groups|shapes|one
                          each layer that a drawing declares is an object, each top-level group, each painted area of a
                          single drawing, or the whole drawing is one
      --shape auto|rim|pillow|off
                          each object is rounded as far as its own breadth suggests (default), a narrow rim, rounded over
                          all of its breadth, or flat. One set of values holds for all frames: those that fit the
                          object where it is largest
      --volume V          how strong the form is, 0 to 2 (1): 0.5 for a flatter look
      --object N:...      sets one object's values, as in quarvel normalmap: head:bevel=60:elevation=0.5,
                          'eye*:cutout', 2:hidden
      --force             writes over a scene that is there already
      --json              the result, warnings and errors as JSON on standard output
  -q, --quiet             nothing on standard output
  -h, --help              this text

Examples
  quarvel import walk_*.svg -o walk.scene
  quarvel import bounce.json
  quarvel import hero.aseprite
  quarvel import body.png arm_*.png -o hero.scene

Exit code: 0 when the scene was made, 1 when it was not, 2 when the command line made no sense, 130 or 143 when a
signal stopped it (Ctrl-C, SIGTERM): then the scene is as it was, or complete, as the last line says.
)");
}
