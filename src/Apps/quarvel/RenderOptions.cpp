// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the options of "quarvel render" take.
#include "RenderOptions.h"

#include "GlossOption.h"
#include "MapFormRows.h"
#include "OptionTable.h"
#include "OptionValues.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "jobs/frames/UsualWidth.h"
#include "jobs/text/WrongValue.h"

#include <QRegularExpression>

#include <cmath>

namespace {

using Row = OptionRow<RenderOptions>;

Take<RenderOptions> text(QString RenderOptions::*member)
{
    return [member](RenderOptions& options, const QString& option, const QString& value) -> Taken {
        if (value.isEmpty())
            return UT_Error{QStringLiteral("%1 takes a word, and it is empty").arg(option)};
        options.*member = value;
        return {};
    };
}

Take<RenderOptions> wholeNumber(int RenderOptions::*member, int low, int high)
{
    return [=](RenderOptions& options, const QString& option, const QString& value) {
        return keep(parseWholeNumber(option, value, low, high), [&](int number) { options.*member = number; });
    };
}

// "2/8": two whole numbers with a stroke between them.
UT_Result<std::pair<int, int>> parsePair(const QString& option, const QString& value, const QString& example)
{
    const QStringList numbers = value.split(QLatin1Char('/'));
    bool firstOk = false;
    bool secondOk = false;
    const std::pair<int, int> pair{numbers.first().toInt(&firstOk), numbers.last().toInt(&secondOk)};
    if (numbers.size() != 2 || !firstOk || !secondOk)
        return wrongValue(option, example, value);
    return pair;
}

Taken takeProxy(RenderOptions& options, const QString& option, const QString& value)
{
    const auto pair = parsePair(option, value, QStringLiteral("a fraction such as 1/2"));
    if (!pair)
        return pair.error();
    if (pair->first != 1 || pair->second < 1)
        return UT_Error{QStringLiteral("%1 takes 1/1, 1/2, 1/3 and so on, not \"%2\"").arg(option, value)};
    options.proxy = pair->second;
    return {};
}

// The pieces that Slurm numbers from the first task of an array on.
UT_Result<std::pair<int, int>> shardOfArrayTask(const QString& option)
{
    bool known[3] = {};
    const int task = qEnvironmentVariableIntValue("SLURM_ARRAY_TASK_ID", &known[0]);
    const int first = qEnvironmentVariableIntValue("SLURM_ARRAY_TASK_MIN", &known[1]);
    const int count = qEnvironmentVariableIntValue("SLURM_ARRAY_TASK_COUNT", &known[2]);
    const int index = task - (known[1] ? first : 0) + 1;
    if (!known[0] || !known[2] || index < 1 || index > count)
        return UT_Error{QStringLiteral("%1 auto: this is not a task of an array without gaps (SLURM_ARRAY_TASK_ID and "
                                       "SLURM_ARRAY_TASK_COUNT say which of how many); write %1 1/4")
                            .arg(option)};
    return std::pair{index, count};
}

Taken takeShard(RenderOptions& options, const QString& option, const QString& value)
{
    if (value == QLatin1String("auto"))
        return keep(shardOfArrayTask(option), [&](const std::pair<int, int>& shard) { options.shard = shard; });
    const auto pair = parsePair(option, value, QStringLiteral("which piece of how many, such as 1/4"));
    if (!pair)
        return pair.error();
    if (pair->first < 0 || pair->second < 1 || pair->first > pair->second)
        return UT_Error{QStringLiteral("%1 %2: the pieces are numbered from 1, or from 0, up to the number behind the "
                                       "stroke")
                            .arg(option, value)};
    // Counted from 0, the pieces are 0/8 to 7/8; counted from 1, 1/8 to 8/8. Either way each is rendered once.
    options.shard = {pair->first == 0 ? pair->second : pair->first, pair->second};
    return {};
}

Taken takeMemory(RenderOptions& options, const QString& option, const QString& value)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]+(?:\\.[0-9]+)?)([KMGT]?)B?$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(value);
    const QString unit = match.captured(2).toUpper();
    const int power = unit.isEmpty() ? 0 : static_cast<int>(QStringLiteral("KMGT").indexOf(unit)) + 1;
    const double bytes = match.captured(1).toDouble() * std::pow(1024.0, power);
    if (!match.hasMatch() || !(bytes >= 1.0))
        return UT_Error{QStringLiteral("%1 takes an amount such as 512M or 4G, not \"%2\"").arg(option, value)};
    options.memory = bytes;
    return {};
}

Taken takeFramesPerSecond(RenderOptions& options, const QString& option, const QString& value)
{
    return keep(parseNumber(option, value, 1.0, 240.0), [&](double number) { options.framesPerSecond = number; });
}

std::vector<Row> rows()
{
    using Options = RenderOptions;
    const auto s = [](const char* name) { return QString::fromLatin1(name); };
    std::vector<Row> all{
        {{s("o"), s("output")}, true, text(&Options::output)},
        {{s("preview")}, true, text(&Options::preview)},
        {{s("lit")}, true, text(&Options::lit)},
        {{s("drawing")}, true, text(&Options::drawing)},
        {{s("html")}, true, text(&Options::page)},
        {{s("height")}, true, text(&Options::height)},
        {{s("height-range")}, true, stored<Options>(parseHeightRange, &Options::heightRange)},
        {{s("occlusion")}, true, text(&Options::occlusion)},
        {{s("numbers")}, true, text(&Options::numbers)},
        {{s("gloss-file")}, true, text(&Options::glossFile)},
        {{s("gloss")},
         true,
         [](Options& o, const QString& option, const QString& value) { return addGloss(o.gloss, option, value); }},
        {{s("light")}, true, stored<Options>(parseLight, &Options::light)},
        {{s("fps")}, true, takeFramesPerSecond},
        {{s("frames")}, true, text(&Options::frames)},
        {{s("node")}, true, text(&Options::node)},
        {{s("resolution")}, true, stored<Options>(parseSize, &Options::resolution)},
        {{s("proxy")}, true, takeProxy},
        {{s("float")}, false, flag(&Options::renderInFloat)},
        {{s("as")},
         true,
         choice<Options>({s("normals"), s("elevation"), s("colours")},
                         [](Options& o, int i) { o.shown = static_cast<RenderedKind>(i); })},
        {{s("layout")},
         true,
         choice<Options>({s("tangent"), s("node")}, [](Options& o, int i) { o.layout = static_cast<NM_Layout>(i); })},
        {{s("jobs")}, true, wholeNumber(&Options::jobs, 1, 1024)},
        {{s("memory")}, true, takeMemory},
        {{s("resume")}, false, flag(&Options::resume)},
        {{s("shard")}, true, takeShard},
        {{s("progress")},
         true,
         choice<Options>({s("auto"), s("bar"), s("lines"), s("json"), s("none"), s("percent"), s("openjd")},
                         [](Options& o, int i) { o.progress = static_cast<RenderProgressStyle>(i); })},
        {{s("q"), s("quiet")}, false, flag(&Options::quiet)},
        {{s("h"), s("help")}, false, flag(&Options::help)},
    };
    const auto map = mapFormRows<Options>([](Options& o) -> MapFormOptions& { return o.form; });
    all.insert(all.end(), map.begin(), map.end());
    // After --exr, whose values are taken first: --half holds whatever that says.
    all.push_back({{s("half")}, false, [](Options& o, const QString&, const QString&) -> Taken {
                       o.form.half = true;
                       return {};
                   }});
    return all;
}

UT_Error missing(const char* what)
{
    return {QString::fromLatin1(what) + QStringLiteral(" For instance: quarvel render walk.scene -o out/n.####.exr")};
}

} // namespace

UT_Result<RenderOptions> parseRenderOptions(const QStringList& words)
{
    RenderOptions options;
    const auto others = takeOptions(QStringLiteral("render"), words, rows(), options);
    if (!others)
        return others.error();
    if (options.help)
        return options;
    const QStringList& scenes = *others;
    if (scenes.size() != 1)
        return missing(scenes.isEmpty() ? "which scene?" : "one scene at a time is rendered.");
    options.scene = scenes.first();
    const QStringList outputs{options.output, options.preview,   options.lit,     options.drawing,  options.page,
                              options.height, options.occlusion, options.numbers, options.glossFile};
    if (outputs.join(QString()).isEmpty())
        return missing("where do the frames go?");
    if (const UT_Result<void> fits = checkExr(options.form); !fits)
        return fits.error();
    if (options.gloss.isAny() == options.glossFile.isEmpty())
        return UT_Error{
            QStringLiteral("--gloss says what is glossy and --gloss-file where the masks go; give both, such "
                           "as --gloss '#9aa=0.8' --gloss-file out/gloss.####.png")};
    return options;
}

std::pair<int, int> renderResolution(const RenderOptions& options, double frameHeight)
{
    const QSize size = options.resolution.value_or(QSize(kUsualWidth, 0));
    const double width = size.width();
    const double height = size.height() > 0 ? size.height() : width * frameHeight / MO_SceneCommon::kFrameWidth;
    return {MO_SceneCommon::wholePixels(width / options.proxy), MO_SceneCommon::wholePixels(height / options.proxy)};
}
