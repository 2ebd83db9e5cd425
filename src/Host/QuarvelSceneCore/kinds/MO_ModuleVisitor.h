// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_ModuleVisitor: the visitor to derive from for walks up the graph. A group is no station of such a walk: it leads
// on to the module behind its first output.
#pragma once

#include "QuarvelSceneCore/kinds/MO_AbstractModuleVisitorWithModuleFallback.h"

/// A visitor that enters groups. Does nothing with other modules unless overridden.
class QUARVELSCENECORE_EXPORT MO_ModuleVisitor : public MO_AbstractModuleVisitorWithModuleFallback
{
public:
    ~MO_ModuleVisitor() override;

    using MO_AbstractModuleVisitorWithModuleFallback::visit;
    void visit(MO_Module& module) override;
    /// Visits what really delivers the group's first output (disabled modules are looked through); nothing when
    /// nothing does.
    void visit(XUGroup& group) override;
};
