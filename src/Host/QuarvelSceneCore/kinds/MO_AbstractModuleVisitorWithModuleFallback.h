// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_AbstractModuleVisitorWithModuleFallback: the visitor to derive from when most kinds of modules are treated alike:
// kinds without an override are visited as plain modules.
#pragma once

#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"

/// A visitor whose operations fall back to visit(MO_Module&). A class that overrides some of the overloads brings in
/// the others with a using declaration.
class QUARVELSCENECORE_EXPORT MO_AbstractModuleVisitorWithModuleFallback : public MO_AbstractModuleVisitor
{
public:
    ~MO_AbstractModuleVisitorWithModuleFallback() override;

    using MO_AbstractModuleVisitor::visit;
    void visit(MO_ElementModule& module) override;
    void visit(XUGroup& group) override;
    void visit(MO_GlueModule& module) override;
    void visit(MO_CompositeModule& module) override;
    void visit(Vallorin& node, MO_Module& asModule) override;

    /// Null.
    const UT_DynKey* key() const override;
};
