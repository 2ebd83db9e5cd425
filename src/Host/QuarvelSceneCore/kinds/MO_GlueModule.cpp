// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The glue.
#include "QuarvelSceneCore/kinds/MO_GlueModule.h"

#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/kinds/private/MO_OverHandler.h"

#include <QCoreApplication>

namespace {

const MO_ModuleRegistration<MO_GlueModule> kRegistration;

} // namespace

MO_GlueModule::MO_GlueModule()
{
    addInImagePort();
    addInImagePort();
}

MO_GlueModule::~MO_GlueModule() = default;

QString MO_GlueModule::Keyword()
{
    return QStringLiteral("GLUE");
}

QString MO_GlueModule::keyword() const
{
    return Keyword();
}

QString MO_GlueModule::baseDisplayName() const
{
    return QCoreApplication::translate("MO_GlueModule", "Glue");
}

void MO_GlueModule::accept(MO_AbstractModuleVisitor& visitor)
{
    visitor.visit(*this);
}

UT_SharedPtr<MO_SoftRenderInterface>
MO_GlueModule::createSoftRenderInterface(const RD_ScriptContext& context,
                                         const std::vector<node_render::PortRenderInfo>& ports)
{
    return UT_makeShared<MO_OverHandler>(this, context.renderJob().parameters().celFormat(),
                                         MO_CompositeType::LAST_PORT_FIRST, ports);
}
