// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of the drawings of an element.
#pragma once

#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

/// Gives an element these drawings and no others, by their names. @return null when it has them
QUARVELSCENECORE_EXPORT MO_EditCommand MO_drawingsCmd(MO_ElementModule& element,
                                                      const std::map<QString, UT_SharedPtr<CELVEC_Kvd>>& drawings);

/// Notes where the drawings of an element were read from. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_originCmd(MO_ElementModule& element, const MO_DrawingOrigin& origin);
