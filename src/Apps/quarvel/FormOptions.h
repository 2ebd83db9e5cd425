// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The words that say where objects and their form come from. Every command that makes objects of drawings takes them;
// those of --object are also taken by the command that changes scenes.
#pragma once

#include "OptionTable.h"
#include "form/FormSettings.h"
#include "jobs/drawing/NormalMapSettings.h"

/// The options --objects, --shape and --volume, each with the function that puts its value into the settings.
std::vector<OptionRow<FormSettings>> formOptionRows();

/// The same for a command's options that hold such settings.
///
/// @param settings finds them in the options
template<typename Options, typename Settings>
std::vector<OptionRow<Options>> formOptionRows(Settings settings)
{
    std::vector<OptionRow<Options>> rows;
    for (const OptionRow<FormSettings>& row : formOptionRows())
        rows.push_back({row.names, row.takesValue, [=](Options& options, const QString& option, const QString& value) {
                            return row.take(settings(options), option, value);
                        }});
    return rows;
}

/// Adds what a value of the option --object says (ObjectWords.h).
Taken takeObjectOption(ObjectWishes& wishes, const QString& option, const QString& value);

/// The option --object for a command's options that hold wishes.
///
/// @param wishes finds them in the options
template<typename Options, typename Wishes>
OptionRow<Options> objectOptionRow(Wishes wishes)
{
    return {{QStringLiteral("object")}, true, [=](Options& options, const QString& option, const QString& value) {
                return takeObjectOption(wishes(options), option, value);
            }};
}
