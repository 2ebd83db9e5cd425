// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_ModuleVisitor: the visitor to derive from for walks up the graph. A visit of a group goes on to the module that
// delivers its first output.
#pragma once

#include "QuarvelSceneCore/kinds/MO_AbstractModuleVisitorWithModuleFallback.h"

/// A visitor that enters groups. Does nothing with other modules unless overridden.
class QUARVELSCENECORE_EXPORT MO_ModuleVisitor : public MO_AbstractModuleVisitorWithModuleFallback
{
public:
    ~MO_ModuleVisitor() override;

    using MO_AbstractModuleVisitorWithModuleFallback::visit;
    void visit(MO_Module& module) override;
    /// Visits the module that delivers the group's first output (disabled modules are looked through), if there is one.
    void visit(XUGroup& group) override;
};
