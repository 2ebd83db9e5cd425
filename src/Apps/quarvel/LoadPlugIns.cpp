// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "LoadPlugIns.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "jobs/shown/NormalMapNode.h"

UT_Result<void> loadPlugIns()
{
    const QString folder = PLUG_Manager::defaultFolder();
    if (const UT_Result<QStringList> loaded = PLUG_Manager::loadAll(folder); !loaded)
        return loaded.error();
    if (!NormalMapNode::make())
        return UT_Error{QStringLiteral("the plug-in %1 is not in %2; install the program again")
                            .arg(NormalMapNode::keyword(), folder)};
    return {};
}
