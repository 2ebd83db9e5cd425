// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "OpenScene.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "Say.h"

UT_Result<SIO_LoadedScene> openScene(const QString& folder)
{
    if (const UT_Result<QStringList> loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder()); !loaded)
        return loaded.error();
    UT_Result<SIO_LoadedScene> scene = SIO_loadScene(folder);
    if (!scene)
        return UT_Error{QStringLiteral("%1: %2").arg(folder, scene.error().sentence())};
    for (const QString& warning : scene->warnings)
        say(QStringLiteral("%1: warning: %2").arg(folder, warning));
    return scene;
}
