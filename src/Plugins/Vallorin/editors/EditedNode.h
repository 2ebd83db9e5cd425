// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// EditedNode: the node that an editor edits. It asks the editor's owner once and keeps the answer.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "node/Vallorin.h"

class MO_NodeEditorComponentInterfaceOwner;

/// The owner of an editor and its node. The node is only observed: it may be deleted while the editor is open.
class EditedNode
{
public:
    MO_NodeEditorComponentInterfaceOwner* owner = nullptr;

    /// The node found earlier, or else the one that the owner names; null without an owner, and when the owner's module
    /// is not a Vallorin node.
    Vallorin* find();
    /// Asks the owner even if a node was found earlier; null in the same cases.
    Vallorin* askOwner();

private:
    UT_WeakPtr<Vallorin> _node;
};
