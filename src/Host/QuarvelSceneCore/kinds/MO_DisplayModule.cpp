// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The output of a scene.
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"

#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"

#include <QCoreApplication>

namespace {

const MO_ModuleRegistration<MO_DisplayModule> kRegistration;

} // namespace

MO_DisplayModule::MO_DisplayModule() : MO_Module(0)
{
    addInImagePort();
}

MO_DisplayModule::~MO_DisplayModule() = default;

QString MO_DisplayModule::Keyword()
{
    return QStringLiteral("DISPLAY");
}

QString MO_DisplayModule::keyword() const
{
    return Keyword();
}

QString MO_DisplayModule::baseDisplayName() const
{
    return QCoreApplication::translate("MO_DisplayModule", "Display");
}

bool MO_DisplayModule::isSceneOutput() const
{
    return true;
}
