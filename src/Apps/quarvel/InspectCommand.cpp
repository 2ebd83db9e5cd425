// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A scene is a folder; a picture that was rendered of a scene says so; anything else is taken for a drawing.
#include "InspectCommand.h"

#include "FormOptions.h"
#include "OpenScene.h"
#include "Say.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/frames/DescribeFrame.h"
#include "jobs/scene/DescribeScene.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr int kExplainedWidth = 1024;

struct InspectOptions
{
    QStringList places;
    FormSettings form;
    QString explain; ///< empty: no picture
    bool all = false;
    bool help = false;
};

std::vector<OptionRow<InspectOptions>> rows()
{
    const auto flag = [](bool InspectOptions::*member) {
        return [member](InspectOptions& options, const QString&, const QString&) -> Taken {
            options.*member = true;
            return {};
        };
    };
    const auto takeExplain = [](InspectOptions& options, const QString& option, const QString& value) -> Taken {
        if (QFileInfo(value).suffix().compare(QLatin1String("png"), Qt::CaseInsensitive) != 0)
            return UT_Error{QStringLiteral("%1 takes the name of a .png file, not \"%2\"").arg(option, value)};
        options.explain = value;
        return {};
    };
    auto all = formOptionRows<InspectOptions>([](InspectOptions& options) -> FormSettings& { return options.form; });
    all.push_back({{QStringLiteral("explain")}, true, takeExplain});
    all.push_back({{QStringLiteral("all")}, false, flag(&InspectOptions::all)});
    all.push_back({{QStringLiteral("h"), QStringLiteral("help")}, false, flag(&InspectOptions::help)});
    return all;
}

UT_Result<InspectOptions> parseOptions(const QStringList& words)
{
    InspectOptions options;
    const auto places = takeOptions(QStringLiteral("inspect"), words, rows(), options);
    if (!places)
        return places.error();
    options.places = *places;
    if (options.help)
        return options;
    if (options.places.isEmpty())
        return UT_Error{QStringLiteral("inspect wants a scene or a drawing, as in: quarvel inspect walk.scene")};
    if (!options.explain.isEmpty() && options.places.size() > 1)
        return UT_Error{QStringLiteral("--explain paints one drawing; name one")};
    return options;
}

UT_Result<void> savePicture(const QImage& image, const QString& file)
{
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || !image.save(&target, "PNG") || !target.commit())
        return UT_Error{QStringLiteral("%1 cannot be written: %2").arg(file, target.errorString())};
    return {};
}

UT_Result<QString> describeDrawing(const QString& path, const InspectOptions& options)
{
    const UT_Result<ReadDrawing> read = readDrawing(path, options.form);
    if (!read)
        return UT_Error{path + QStringLiteral(": ") + read.error().sentence()};
    for (const QString& warning : read->warnings)
        say(QStringLiteral("%1: warning: %2").arg(path, warning));
    if (!options.explain.isEmpty())
        if (const auto saved = savePicture(paintObjects(read->drawing, kExplainedWidth), options.explain); !saved)
            return saved.error();
    return describeObjects(*read);
}

UT_Result<QString> describe(const QString& place, const InspectOptions& options)
{
    const QFileInfo info(place);
    if (info.exists() && !info.isDir()) {
        const auto frame = readFrame(place);
        if (!frame)
            return UT_Error{place + QStringLiteral(": ") + frame.error().sentence()};
        return *frame ? describeFrame(**frame) : describeDrawing(place, options);
    }
    const auto opened = openScene(place);
    if (!opened)
        return opened.error();
    if (!options.explain.isEmpty())
        return UT_Error{QStringLiteral("%1 is a scene; --explain paints the objects of a drawing").arg(place)};
    return describeScene(*opened->scene, options.all ? DescribedAttributes::ALL : DescribedAttributes::CHANGED);
}

} // namespace

int runInspectCommand(const QStringList& words)
{
    const UT_Result<InspectOptions> options = parseOptions(words);
    if (!options) {
        say(options.error().sentence());
        return kWrongUsage;
    }
    if (options->help) {
        std::fputs(qPrintable(inspectHelp()), stdout);
        return 0;
    }
    int exitCode = 0;
    for (const QString& place : options->places) {
        const UT_Result<QString> text = describe(place, *options);
        if (!text) {
            say(text.error().sentence());
            exitCode = kFailed;
            continue;
        }
        writeText(stdout, place + u'\n' + *text);
    }
    return exitCode;
}

QString inspectHelp()
{
    return QStringLiteral(R"(quarvel inspect - says what is in a scene, a drawing or a frame

  quarvel inspect SCENE... [--all]
  quarvel inspect DRAWING... [options]
  quarvel inspect FRAME...

Of a scene: its frames, the lights, the modules with what flows into them, the attributes that were changed (--all: every attribute), the
elements with their drawings, the objects and the palettes. Values are written as "quarvel set" takes them.

Of a drawing: the objects that "quarvel normalmap" and "quarvel import" choose in it, with their numbers, names, shares of the
picture, values, colours, and why each is an object. A number or a name goes into --object.

Of a frame that "quarvel render" wrote: its scene, node, number and settings, and the digest of what it was made of. Frames of equal
digests have equal pixels; "quarvel render --resume" leaves them alone.

      --explain FILE.png  also paints the objects, each in a colour of its own and with its number
      --objects, --shape, --volume
                          as for quarvel normalmap

Examples
  quarvel inspect walk.scene
  quarvel inspect hero.svg --explain hero_objects.png
)");
}
