// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finding the node of an editor.
#include "editors/EditedNode.h"

#include "QuarvelSceneCore/MO_NodeEditorComponentInterface.h"

Vallorin* EditedNode::find()
{
    if (Vallorin* const known = _node.get())
        return known;
    return askOwner();
}

Vallorin* EditedNode::askOwner()
{
    auto* const node = owner ? dynamic_cast<Vallorin*>(owner->module()) : nullptr;
    _node = UT_WeakPtr<Vallorin>(node);
    return node;
}
