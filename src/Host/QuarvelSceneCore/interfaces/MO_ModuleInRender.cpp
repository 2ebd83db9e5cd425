// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a module does in a render by default: it asks the modules upstream for their requests and passes on its first
// input. These operations of MO_Module are defined here because only they need the types of a render; the other sources
// of graph/ do not.
#include "QuarvelSceneCore/graph/MO_Module.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestHandler.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderInterface.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"

UT_SharedPtr<MO_SoftRenderInterface>
MO_Module::createSoftRenderInterface(const RD_ScriptContext&, const std::vector<node_render::PortRenderInfo>&)
{
    return nullptr;
}

void MO_Module::insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port)
{
    const MO_Port* const input = port >= 0 ? inPort(static_cast<unsigned>(port)) : nullptr;
    const MO_Port* const source = input ? input->realSrcPort() : nullptr;
    if (source && source->module())
        context.scriptPorts(*source->module());
}

std::unique_ptr<MO_RenderingRequestHandler> MO_Module::createRequestHandler()
{
    return nullptr;
}
