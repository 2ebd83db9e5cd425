// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_AbstractModuleVisitor: does something with a module according to its kind. MO_Module::accept() calls the operation
// for the module's kind.
//
// One operation is reserved for a node that a plug-in defines: the host knows only the name of its class, so the node
// passes itself twice, as its own class for visitors that know it and as a module for the others.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

class MO_CompositeModule;
class MO_ElementModule;
class MO_GlueModule;
class MO_Module;
class UT_DynKey;
class Vallorin;
class XUGroup;

/// One operation per kind of module.
class QUARVELSCENECORE_EXPORT MO_AbstractModuleVisitor
{
public:
    MO_AbstractModuleVisitor() = default;
    MO_AbstractModuleVisitor(const MO_AbstractModuleVisitor&) = default;
    MO_AbstractModuleVisitor& operator=(const MO_AbstractModuleVisitor&) = default;
    virtual ~MO_AbstractModuleVisitor();

    /// A module of a kind that has no operation of its own.
    virtual void visit(MO_Module& module) = 0;
    virtual void visit(MO_ElementModule& module) = 0;
    virtual void visit(XUGroup& group) = 0;
    virtual void visit(MO_GlueModule& module) = 0;
    virtual void visit(MO_CompositeModule& module) = 0;
    /// @param node     the plug-in's node
    /// @param asModule the same object
    virtual void visit(Vallorin& node, MO_Module& asModule) = 0;

    /// Identifies the visitor to modules that treat some visitors specially; null for a visitor without a key.
    virtual const UT_DynKey* key() const = 0;
};
