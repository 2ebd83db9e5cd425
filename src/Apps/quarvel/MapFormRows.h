// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The options that say for whom a map is made, as rows for the table of every command that writes maps.
#pragma once

#include "MapFormOptions.h"
#include "OptionTable.h"
#include "OptionValues.h"

/// "half", "map,half" and so on: how many bits a number has, what the default layer is, and whether there are object
/// numbers.
inline Taken takeExr(MapFormOptions& form, const QString& option, const QString& value)
{
    static const QStringList words{QStringLiteral("float"), QStringLiteral("half"),   QStringLiteral("layers"),
                                   QStringLiteral("map"),   QStringLiteral("signed"), QStringLiteral("numbers")};
    constexpr int kContents = 2;
    constexpr int kNumbers = 5;
    for (const QString& word : value.split(QLatin1Char(','))) {
        const auto index = parseChoice(option, word, words);
        if (!index)
            return index.error();
        if (*index < kContents)
            form.half = *index == 1;
        else if (*index == kNumbers)
            form.objectNumbers = true;
        else
            form.exr = static_cast<ExrContent>(*index - kContents);
    }
    return {};
}

/// Whether the words of --exr go together, wherever they were said.
inline UT_Result<void> checkExr(const MapFormOptions& form)
{
    if (!form.objectNumbers || form.exr == ExrContent::LAYERS)
        return {};
    return UT_Error{
        QStringLiteral("--exr numbers adds a layer to --exr layers, and --exr %1 writes none; --numbers FILE "
                       "writes a file of its own")
            .arg(form.exr == ExrContent::SIGNED ? QStringLiteral("signed") : QStringLiteral("map"))};
}

/// The rows --for, --y, --alpha, --bits, --pad and --exr.
///
/// @param formOf the MapFormOptions of a command's options
template<typename Options, typename FormOf>
std::vector<OptionRow<Options>> mapFormRows(FormOf formOf)
{
    const auto s = [](const char* name) { return QString::fromLatin1(name); };
    return {
        {{s("for")},
         true,
         [=](Options& options, const QString&, const QString& value) {
             return keep(targetNamed(value), [&](const Target* target) { formOf(options).target = target; });
         }},
        {{s("y")},
         true,
         choice<Options>({s("up"), s("down")},
                         [=](Options& options, int i) { formOf(options).yAxis = static_cast<NM_YAxis>(i); })},
        {{s("alpha")},
         true,
         choice<Options>({NM_nameOf(NM_Alpha::FULL), NM_nameOf(NM_Alpha::COVERAGE), NM_nameOf(NM_Alpha::HARD)},
                         [=](Options& options, int i) { formOf(options).alpha = static_cast<NM_Alpha>(i); })},
        {{s("bits")},
         true,
         choice<Options>({s("8"), s("16")}, [=](Options& options, int i) { formOf(options).bits = i == 0 ? 8 : 16; })},
        {{s("exr")},
         true,
         [=](Options& options, const QString& option, const QString& value) {
             return takeExr(formOf(options), option, value);
         }},
        {{s("pad")},
         true,
         [=](Options& options, const QString& option, const QString& value) {
             return keep(parseWholeNumber(option, value, 0, 65535), [&](int pad) { formOf(options).pad = pad; });
         }},
    };
}
