// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "InspectCommand.h"

#include "OpenScene.h"
#include "Say.h"
#include "jobs/scene/DescribeScene.h"

#include <cstdio>

namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

} // namespace

int runInspectCommand(const QStringList& words)
{
    QStringList scenes;
    auto attributes = DescribedAttributes::CHANGED;
    for (const QString& word : words) {
        if (word == QLatin1String("--help")) {
            std::fputs(qPrintable(inspectHelp()), stdout);
            return 0;
        }
        if (word == QLatin1String("--all")) {
            attributes = DescribedAttributes::ALL;
        } else if (word.startsWith(u'-')) {
            say(QStringLiteral("there is no option \"%1\"; inspect knows --all").arg(word));
            return kWrongUsage;
        } else {
            scenes << word;
        }
    }
    if (scenes.isEmpty()) {
        say(QStringLiteral("inspect wants a scene, as in: quarvel inspect walk.scene"));
        return kWrongUsage;
    }
    int exitCode = 0;
    for (const QString& folder : scenes) {
        const auto opened = openScene(folder);
        if (!opened) {
            say(opened.error().text);
            exitCode = kFailed;
            continue;
        }
        std::printf("%s\n%s", qPrintable(folder), qPrintable(describeScene(*opened->scene, attributes)));
    }
    return exitCode;
}

QString inspectHelp()
{
    return QStringLiteral("quarvel inspect SCENE... [--all]\n"
                          "\n"
                          "Says what is in a scene: its frames, the modules with what flows into them, the attributes\n"
                          "that were changed (--all: every attribute), the elements with their drawings, the objects\n"
                          "and the palettes. Values are written as \"quarvel set\" takes them.\n");
}
