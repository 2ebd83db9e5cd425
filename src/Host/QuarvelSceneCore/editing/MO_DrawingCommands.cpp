// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Drawings are shared objects: both states are lists of pointers.
#include "QuarvelSceneCore/editing/MO_DrawingCommands.h"

#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"

namespace {

using Drawings = std::map<QString, UT_SharedPtr<CELVEC_Kvd>>;

void setDrawings(MO_ElementModule& element, const Drawings& drawings)
{
    const Drawings before = element.drawings();
    for (const auto& [name, drawing] : before)
        if (!drawings.contains(name))
            element.setDrawing(name, nullptr);
    for (const auto& [name, drawing] : drawings)
        element.setDrawing(name, drawing);
}

} // namespace

MO_EditCommand MO_drawingsCmd(MO_ElementModule& element, const Drawings& drawings)
{
    if (element.drawings() == drawings)
        return nullptr;
    return MO_makeStateCmd(MO_CommandTexts::tr("Replace Drawings"), element.drawings(), drawings,
                           [&element](const Drawings& wanted) { setDrawings(element, wanted); });
}

MO_EditCommand MO_originCmd(MO_ElementModule& element, const MO_DrawingOrigin& origin)
{
    if (element.origin() == origin)
        return nullptr;
    return MO_makeStateCmd(MO_CommandTexts::tr("Change Origin"), element.origin(), origin,
                           [&element](const MO_DrawingOrigin& wanted) { element.setOrigin(wanted); });
}
