// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A scene is a folder; a picture that was rendered of a scene says so; anything else is taken for a drawing.
#include "InspectCommand.h"

#include "ExitCodes.h"
#include "FormOptions.h"
#include "InputAdvice.h"
#include "OpenScene.h"
#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "Report.h"
#include "StandInFiles.h"
#include "StandardInput.h"
#include "StopSignal.h"
#include "TakenFiles.h"
#include "jobs/drawing/DescribeObjects.h"
#include "jobs/frames/DescribeFrame.h"
#include "jobs/scene/DescribeScene.h"

#include <QBuffer>
#include <QFileInfo>

namespace {

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
    const auto takeExplain = [](InspectOptions& options, const QString& option, const QString& value) -> Taken {
        if (UT_fileSuffix(value) != QLatin1String("png"))
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
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        return UT_noMemory(QStringLiteral("the picture of the objects"), QStringLiteral("leave --explain out"))
            .at(file);
    return IIO_writeFile(file, bytes);
}

// What is known of a place: for scripts, and for people.
struct Description
{
    QJsonObject fields;
    QString text;
};

UT_Result<Description> describeDrawing(const QString& path, const InspectOptions& options, Report& report)
{
    if (const UT_Result<void> readable = checkIsDrawing(path); !readable)
        return readable.error();
    if (!options.explain.isEmpty() && followedPath(options.explain) == followedPath(path))
        return UT_Error{QStringLiteral("%1 is the drawing, and would be lost; name another file").arg(options.explain)};
    FormSettings form = options.form;
    form.listed = true;
    const UT_Result<ReadDrawing> read = readDrawing(path, form);
    if (!read)
        return read.error();
    for (const QString& warning : read->warnings)
        report.warning(path, warning);
    if (!options.explain.isEmpty())
        if (const auto saved = savePicture(paintObjects(read->drawing, kExplainedWidth), options.explain); !saved)
            return saved.error();
    return Description{{{QStringLiteral("drawing"), path}, {QStringLiteral("objects"), objectFields(*read)}},
                       describeObjects(*read)};
}

UT_Error noDrawing(const QString& place, const QString& what)
{
    return {QStringLiteral("%1 is a %2; --explain paints the objects of a drawing").arg(place, what)};
}

UT_Result<Description> describe(const QString& place, const InspectOptions& options, Report& report)
{
    const QFileInfo info(place);
    if (!info.exists() && !info.isSymLink())
        return UT_Error{QStringLiteral("there is no such file or folder")}.at(place);
    if (!info.isDir()) {
        const auto frame = readFrame(place);
        if (!frame)
            return frame.error();
        if (!*frame)
            return describeDrawing(place, options, report);
        if (!options.explain.isEmpty())
            return noDrawing(place, QStringLiteral("rendered frame"));
        QJsonObject fields = frameFields(**frame);
        fields.insert(QStringLiteral("frame"), place);
        return Description{fields, describeFrame(**frame)};
    }
    if (info.isDir() && !SIO_holdsScene(place))
        return checkIsDrawing(place).error();
    const auto opened = openScene(place, report);
    if (!opened)
        return opened.error();
    if (!options.explain.isEmpty())
        return noDrawing(place, QStringLiteral("scene"));
    const auto attributes = options.all ? DescribedAttributes::ALL : DescribedAttributes::CHANGED;
    QJsonObject fields = sceneFields(*opened->scene, attributes);
    fields.insert(QStringLiteral("scene"), place);
    return Description{fields, describeScene(*opened->scene, attributes)};
}

int inspectAll(const InspectOptions& options, Report& report)
{
    int exitCode = 0;
    int done = 0;
    for (const QString& place : options.places) {
        if (StopSignal::came())
            break;
        const UT_Result<Description> found = describe(place, options, report);
        if (!found && found.error().kind == UT_ErrorKind::STOPPED)
            break;
        if (found)
            report.result(found->fields, place + u'\n' + found->text);
        else
            report.error(found.error(), place);
        if (!found)
            exitCode = kFailed;
        ++done;
    }
    if (!StopSignal::came())
        return exitCode;
    report.error(QStringLiteral("stopped; %1 of %2 are inspected").arg(done).arg(options.places.size()));
    return StopSignal::exitCode();
}

} // namespace

int runInspectCommand(const QStringList& words, Report& report)
{
    UT_Result<InspectOptions> options = parseOptions(words);
    if (!options) {
        report.error(options.error());
        return kWrongUsage;
    }
    if (options->help) {
        report.help(inspectHelp());
        return 0;
    }
    StandardInput input;
    StandInFiles standIns;
    UT_Result<void> read = standIns.putInto(options->places, report);
    if (read)
        read = input.putInto(options->places, report);
    if (!read) {
        report.error(read.error());
        return kFailed;
    }
    return inspectAll(*options, report);
}

QString inspectHelp()
{
    return QStringLiteral(R"(quarvel inspect - says what is in a scene, a drawing or a frame

  quarvel inspect SCENE... [--all]
  quarvel inspect DRAWING... [options]
  quarvel inspect FRAME...

Of a scene: its frames, the lights, the nodes with what flows into them, the attributes that were changed (--all: every
attribute), the elements with their drawings, the objects with their shares of the picture, values, colours and why each is
an object, and the palettes. Values are written as "quarvel set" takes them.

Of a drawing: the objects that "quarvel normalmap" and "quarvel import" choose in it, with their numbers, names, shares of
the picture, values, colours, and why each is an object. A number or a name goes into --object.

Of a frame that "quarvel render" wrote: its scene, node, number and settings, and the digest of what it was made of. Frames
of equal digests have equal pixels; "quarvel render --resume" leaves them alone.

      --explain FILE.png  also paints the objects, each in a colour of its own and with its number
      --objects, --shape, --volume
                          as for quarvel normalmap
      --json              what is found, warnings and errors as JSON on standard output
  -h, --help              this text

Examples
  quarvel inspect walk.scene
  quarvel inspect hero.svg --explain hero_objects.png

Exit code: 0 when everything could be read, 1 when something could not (the rest is told), 2 when the command line made no
sense.
)");
}
