// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "FormOptions.h"

#include "jobs/drawing/ObjectWords.h"

std::vector<OptionRow<FormSettings>> formOptionRows()
{
    const auto s = [](const char* name) { return QString::fromLatin1(name); };
    const auto takeObjects = choice<FormSettings>(
        objectChoiceWords(), [](FormSettings& form, int index) { form.objects = static_cast<ObjectChoice>(index); });
    const auto takeShape = choice<FormSettings>(
        formShapeWords(), [](FormSettings& form, int index) { form.shape = static_cast<FormShape>(index); });
    const auto takeVolume = [](FormSettings& form, const QString& option, const QString& value) {
        return keep(parseNumber(option, value, 0.0, FormSettings::kMaxVolume),
                    [&](double volume) { form.volume = volume; });
    };
    return {{{s("objects")}, true, takeObjects}, {{s("shape")}, true, takeShape}, {{s("volume")}, true, takeVolume}};
}

Taken takeObjectOption(ObjectWishes& wishes, const QString& option, const QString& value)
{
    const Taken taken = takeObjectWords(wishes, value);
    return taken ? taken : Taken(UT_Error{QStringLiteral("%1: %2").arg(option, taken.error().text)});
}
