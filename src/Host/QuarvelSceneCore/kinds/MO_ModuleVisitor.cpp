// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The visitors that know the kinds: the fallbacks, and how a visit passes through a group.
#include "QuarvelSceneCore/kinds/MO_ModuleVisitor.h"

#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

MO_AbstractModuleVisitorWithModuleFallback::~MO_AbstractModuleVisitorWithModuleFallback() = default;

void MO_AbstractModuleVisitorWithModuleFallback::visit(MO_ElementModule& module)
{
    visit(static_cast<MO_Module&>(module));
}

void MO_AbstractModuleVisitorWithModuleFallback::visit(XUGroup& group)
{
    visit(static_cast<MO_Module&>(group));
}

void MO_AbstractModuleVisitorWithModuleFallback::visit(MO_GlueModule& module)
{
    visit(static_cast<MO_Module&>(module));
}

void MO_AbstractModuleVisitorWithModuleFallback::visit(MO_CompositeModule& module)
{
    visit(static_cast<MO_Module&>(module));
}

void MO_AbstractModuleVisitorWithModuleFallback::visit(Vallorin&, MO_Module& asModule)
{
    visit(asModule);
}

const UT_DynKey* MO_AbstractModuleVisitorWithModuleFallback::key() const
{
    return nullptr;
}

MO_ModuleVisitor::~MO_ModuleVisitor() = default;

void MO_ModuleVisitor::visit(MO_Module&) {}

void MO_ModuleVisitor::visit(XUGroup& group)
{
    const MO_Port* const exit = group.exit().inPort(0);
    const MO_Port* const source = exit ? exit->realSrcPort() : nullptr;
    if (source && source->module())
        source->module()->accept(*this);
}
