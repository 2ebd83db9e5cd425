// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From words to settings: every option is one row of a table, with the function that takes its value.
#include "NormalMapOptions.h"

#include "FormOptions.h"
#include "GlossOption.h"
#include "MapFormRows.h"
#include "OptionTable.h"
#include "OptionValues.h"
#include "QuarvelImageIO/IIO_PictureFile.h"
#include "StandardInput.h"
#include "jobs/drawing/ObjectLimits.h"

#include <algorithm>
#include <string_view>

namespace {

using Row = OptionRow<NormalMapOptions>;

template<typename Member>
Take<NormalMapOptions> text(Member member)
{
    return [member](NormalMapOptions& options, const QString& option, const QString& value) -> Taken {
        if (value.isEmpty())
            return UT_Error{QStringLiteral("%1 takes the name of a file or a folder, and it is empty").arg(option)};
        options.*member = value;
        return {};
    };
}

template<typename Member>
Take<NormalMapOptions> number(Member member, double low, double high)
{
    return [=](NormalMapOptions& options, const QString& option, const QString& value) {
        return keep(parseNumber(option, value, low, high), [&](double parsed) { options.settings.*member = parsed; });
    };
}

Take<NormalMapOptions> setting(bool NormalMapSettings::*member, bool value)
{
    return [=](NormalMapOptions& options, const QString&, const QString&) -> Taken {
        options.settings.*member = value;
        return {};
    };
}

Taken takeBevel(NormalMapOptions& options, const QString& option, const QString& value)
{
    return keep(parseNumber(option, value, ObjectLimits::kBevel.least, ObjectLimits::kBevel.most),
                [&](double bevel) { options.settings.allObjects.bevel = bevel; });
}

Taken takeLevel(NormalMapOptions& options, const QString& option, const QString& value)
{
    const auto words = splitColourValue(option, value, QStringLiteral("a colour and its level, such as '#1b1b1b=0'"));
    if (!words)
        return words.error();
    const auto level = parseWholeNumber(option + QStringLiteral(" (the level)"), words->second, 0, 255);
    if (!level)
        return level.error();
    return keep(parseColourOrAll(option, words->first), [&](const std::optional<QColor>& colour) {
        if (colour)
            options.settings.levels.push_back({*colour, *level});
        else
            options.settings.levelOfAllColours = *level;
    });
}

Taken takeGloss(NormalMapOptions& options, const QString& option, const QString& value)
{
    return addGloss(options.gloss, option, value);
}

Taken takeSuffix(NormalMapOptions& options, const QString& option, const QString& value)
{
    if (value.contains(QLatin1Char('/')))
        return UT_Error{QStringLiteral("%1 takes what is added to the drawing's name, such as _normal, and no folders, "
                                       "not \"%2\"")
                            .arg(option, value)};
    options.suffix = value;
    return {};
}

Taken takeCells(NormalMapOptions& options, const QString& option, const QString& value)
{
    const UT_Result<QSize> cell = parseSize(option, value);
    if (!cell)
        return cell.error();
    options.cells = CellGrid{.cell = {cell->width(), cell->height() > 0 ? cell->height() : cell->width()}};
    return {};
}

Take<NormalMapOptions> wholePixels(int& (*member)(NormalMapOptions&))
{
    return [member](NormalMapOptions& options, const QString& option, const QString& value) {
        return keep(parseWholeNumber(option, value, 0, 65535), [&](int pixels) { member(options) = pixels; });
    };
}

UT_Result<void> checkSheet(NormalMapOptions& options)
{
    const bool atlas = !options.atlas.isEmpty();
    if ((options.margin > 0 || options.spacing > 0 || options.animation || options.connected) && !options.cells)
        return UT_Error{QStringLiteral("--margin, --spacing, --animation and --connected go with --cells")};
    if (atlas && (options.cells || !options.drawings.isEmpty()))
        return UT_Error{QStringLiteral("--atlas names its pages itself; give neither drawings nor --cells with it")};
    if ((atlas || options.cells) && options.tiling.isAny())
        return UT_Error{QStringLiteral("--tile repeats a whole picture and does not go with --cells or --atlas")};
    if (options.cells) {
        options.cells->margin = options.margin;
        options.cells->spacing = options.spacing;
    }
    return {};
}

UT_Result<void> checkGloss(const NormalMapOptions& options)
{
    if (options.glossFile.isEmpty() && !options.gloss.isAny())
        return {};
    if (!options.gloss.isAny())
        return UT_Error{QStringLiteral("--gloss-file goes with --gloss, which says what is glossy, such as "
                                       "--gloss '#9aa=0.8'")};
    if (options.glossFile.isEmpty() &&
        (options.output == kStandardStream || options.drawings.contains(kStandardStream)))
        return UT_Error{QStringLiteral("say with --gloss-file where the mask of --gloss goes; - is for the map")};
    return {};
}

// A drawing that comes through standard input has neither a folder nor a name for what lies beside it.
UT_Result<void> checkStreams(const NormalMapOptions& options)
{
    if (!options.drawings.contains(kStandardStream))
        return {};
    if (options.drawings.size() > 1 && options.output.isEmpty())
        return UT_Error{QStringLiteral("standard input has no folder that its map could lie in; name a folder for all "
                                       "maps with -o")};
    if (options.canvas && options.drawingPicture.isEmpty())
        return UT_Error{QStringLiteral("--canvas names the drawing's file, and standard input has none; write the "
                                       "drawing as a picture, too, with --drawing")};
    return {};
}

// What is asked of a map's form and cannot be had.
UT_Result<void> checkForm(const NormalMapOptions& options)
{
    const MapFormOptions& form = options.form;
    if (!options.page.isEmpty() && !options.settings.generateNormals)
        return UT_Error{QStringLiteral("--html lights normals; leave out --no-normals")};
    const Target* const target = form.target;
    if (options.canvas && !(target && target->name == std::string_view("godot")))
        return UT_Error{QStringLiteral("--canvas writes a resource of Godot 4; say --for godot with it")};
    if (options.canvas && options.settings.size && options.drawingPicture.isEmpty())
        return UT_Error{
            QStringLiteral("--canvas joins drawing and map, which need one size; write the drawing in the size "
                           "of --size, too, with --drawing")};
    if (options.nodeLayout && options.flips)
        return UT_Error{QStringLiteral("--flips goes with --layout tangent")};
    if (options.nodeLayout && (form.target || form.alpha))
        return UT_Error{
            QStringLiteral("--layout node writes the node's channels as they are; --for and --alpha go with "
                           "--layout tangent")};
    if (options.nodeLayout && form.yAxis == NM_YAxis::UP)
        return UT_Error{QStringLiteral("--layout node writes the node's channels as they are, with y down; --y up goes "
                                       "with --layout tangent")};
    return {};
}

const QStringList kQualities = {QStringLiteral("low"), QStringLiteral("medium"), QStringLiteral("high")};

// The options that do not change what a picture holds.
bool isOfRun(const Row& row)
{
    static const QStringList names{
        QStringLiteral("output"),    QStringLiteral("elevation"), QStringLiteral("lit"),
        QStringLiteral("drawing"),   QStringLiteral("html"),      QStringLiteral("height"),
        QStringLiteral("occlusion"), QStringLiteral("numbers"),   QStringLiteral("gloss-file"),
        QStringLiteral("atlas"),     QStringLiteral("resume"),    QStringLiteral("jobs"),
        QStringLiteral("progress"),  QStringLiteral("quiet"),     QStringLiteral("help")};
    return names.contains(row.names.last());
}

// Notes the words of options that change it.
void noteWords(Row& row)
{
    if (isOfRun(row))
        return;
    row.take = [take = row.take](NormalMapOptions& options, const QString& option, const QString& value) {
        options.pictureWords << option << value;
        return take(options, option, value);
    };
}

std::vector<Row> rows()
{
    using Settings = NormalMapSettings;
    using Options = NormalMapOptions;
    const auto s = [](const char* name) { return QString::fromLatin1(name); };
    std::vector<Row> all{
        {{s("o"), s("output")}, true, text(&Options::output)},
        {{s("elevation")}, true, text(&Options::elevation)},
        {{s("lit")}, true, text(&Options::lit)},
        {{s("drawing")}, true, text(&Options::drawingPicture)},
        {{s("html")}, true, text(&Options::page)},
        {{s("height")}, true, text(&Options::height)},
        {{s("height-range")}, true, stored<Options>(parseHeightRange, &Options::heightRange)},
        {{s("occlusion")}, true, text(&Options::occlusion)},
        {{s("numbers")}, true, text(&Options::numbers)},
        {{s("gloss")}, true, takeGloss},
        {{s("gloss-file")}, true, text(&Options::glossFile)},
        {{s("layout")},
         true,
         choice<Options>({s("tangent"), s("node")}, [](Options& o, int i) { o.nodeLayout = i == 1; })},
        {{s("suffix")}, true, takeSuffix},
        {{s("cells")}, true, takeCells},
        {{s("margin")}, true, wholePixels([](Options& o) -> int& { return o.margin; })},
        {{s("spacing")}, true, wholePixels([](Options& o) -> int& { return o.spacing; })},
        {{s("atlas")}, true, text(&Options::atlas)},
        {{s("animation")}, false, flag(&Options::animation)},
        {{s("connected")}, false, flag(&Options::connected)},
        {{s("tile")},
         true,
         choice<Options>({s("x"), s("y"), s("both")},
                         [](Options& o, int i) { o.tiling = {.x = i != 1, .y = i != 0}; })},
        {{s("canvas")}, false, flag(&Options::canvas)},
        {{s("flips")}, false, flag(&Options::flips)},
        {{s("light")}, true, stored<Options>(parseLight, &Options::light)},
        {{s("size")},
         true,
         [](Options& o, const QString& option, const QString& value) {
             return keep(parseSize(option, value), [&](QSize size) { o.settings.size = size; });
         }},
        {{s("float")}, false, setting(&Settings::renderInFloat, true)},
        {{s("truck")}, true, number(&Settings::truck, 0.001, 1000.0)},
        objectOptionRow<Options>([](Options& o) -> ObjectWishes& { return o.settings; }),
        {{s("bevel")}, true, takeBevel},
        {{s("level")}, true, takeLevel},
        {{s("bevel-multiplier")}, true, number(&Settings::blurScale, 0.0, 10.0)},
        {{s("elevation-multiplier")}, true, number(&Settings::elevationScale, 0.0, 10.0)},
        {{s("smoothness-multiplier")}, true, number(&Settings::elevationSmoothness, 0.1, 128.0)},
        {{s("quality")},
         true,
         choice<Options>(kQualities,
                         [](Options& o, int i) {
                             o.settings.normalQuality = kQualities[i].toUpper() + QStringLiteral("_NORMAL_QUALITY");
                         })},
        {{s("no-normals")}, false, setting(&Settings::generateNormals, false)},
        {{s("depth-in-blue")}, false, setting(&Settings::depthInBlue, true)},
        {{s("no-clip")}, false, setting(&Settings::clipBlurredWithGeometry, false)},
        {{s("use-truck-factor")}, false, setting(&Settings::useTruckFactor, true)},
        {{s("resume")}, false, flag(&Options::resume)},
        {{s("jobs")},
         true,
         [](Options& o, const QString& option, const QString& value) {
             return keep(parseWholeNumber(option, value, 1, 1024), [&](int number) { o.jobs = number; });
         }},
        {{s("progress")},
         false,
         [](Options& o, const QString&, const QString&) -> Taken {
             o.progress = ProgressStyle::LINES;
             return {};
         }},
        {{s("q"), s("quiet")}, false, flag(&Options::quiet)},
        {{s("h"), s("help")}, false, flag(&Options::help)},
    };
    const auto form = formOptionRows<Options>([](Options& o) -> FormSettings& { return o.settings.form; });
    all.insert(all.end(), form.begin(), form.end());
    const auto map = mapFormRows<Options>([](Options& o) -> MapFormOptions& { return o.form; });
    all.insert(all.end(), map.begin(), map.end());
    std::ranges::for_each(all, noteWords);
    return all;
}

} // namespace

NM_MapForm mapFormFor(const NormalMapOptions& options, const QString& file)
{
    const bool layers = IIO_isFloatFile(file) && options.form.exr == ExrContent::LAYERS;
    const bool plain = options.nodeLayout || layers;
    return formInFile(options.form.resolved(plain ? NM_MapForm{} : kFormForMost), file);
}

UT_Result<NormalMapOptions> parseNormalMapOptions(const QStringList& words)
{
    NormalMapOptions options;
    const auto drawings = takeOptions(QStringLiteral("normalmap"), words, rows(), options);
    if (!drawings)
        return drawings.error();
    options.drawings = *drawings;
    if (const UT_Result<void> fits = checkForm(options); !fits)
        return fits.error();
    if (const UT_Result<void> fits = checkExr(options.form); !fits)
        return fits.error();
    if (UT_Result<void> fits = checkSheet(options); !fits)
        return fits.error();
    if (const UT_Result<void> fits = checkGloss(options); !fits)
        return fits.error();
    if (const UT_Result<void> fits = checkStreams(options); !fits)
        return fits.error();
    if (options.drawings.isEmpty() && options.atlas.isEmpty() && !options.help)
        return UT_Error{QStringLiteral(
            "which drawing? quarvel normalmap takes one or more SVG files or bitmaps, such as hero.svg")};
    return options;
}
