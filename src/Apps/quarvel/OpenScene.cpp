// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "OpenScene.h"

#include "InputAdvice.h"
#include "LoadPlugIns.h"
#include "StopSignal.h"

UT_Result<SIO_LoadedScene> openScene(const QString& folder, Report& report)
{
    if (const UT_Result<void> possible = checkIsScene(folder); !possible)
        return possible.error();
    if (const UT_Result<void> loaded = loadPlugIns(); !loaded)
        return loaded.error();
    UT_Result<SIO_LoadedScene> scene = SIO_loadScene(folder, [](double) { return !StopSignal::came(); });
    if (!scene)
        return scene.error();
    for (const QString& warning : scene->warnings)
        report.warning(folder, warning);
    return scene;
}
