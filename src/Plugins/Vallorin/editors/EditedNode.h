// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// EditedNode: how an editor gets at the node that it edits: it asks its owner once and remembers the answer.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "node/Vallorin.h"

class MO_NodeEditorComponentInterfaceOwner;

/// The owner of an editor and its node. The node is observed only: it may be deleted while the editor is open.
class EditedNode
{
public:
    MO_NodeEditorComponentInterfaceOwner* owner = nullptr;

    /// The node that was found before, or else the one that the owner names; null without an owner, and when what the
    /// owner edits is no Vallorin node.
    Vallorin* find();
    /// Asks the owner, whatever was found before; null in the same cases.
    Vallorin* askOwner();

private:
    UT_WeakPtr<Vallorin> _node;
};
