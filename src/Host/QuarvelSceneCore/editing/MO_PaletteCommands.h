// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The undoable changes of palettes. Background renders read the same palette objects, so a palette is never changed in
// place: a changed copy replaces it in the scene and in its drawings.
#pragma once

#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

/// Puts a palette in the place of another one, in the scene and in its drawings. @return null when they are the same
QUARVELSCENECORE_EXPORT MO_EditCommand MO_replacePaletteCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette,
                                                            const CM_SharedPtr<CM_Palette>& replacement);

/// Adds a palette to the scene. @return null when it has it
QUARVELSCENECORE_EXPORT MO_EditCommand MO_addPaletteCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette);

/// Renames a palette of the scene. @return null when nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_renamePaletteCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette,
                                                           const QString& name);

/// Renames a colour of a palette of the scene. @return null when there is no such colour or nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_renameColorCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette,
                                                         const CM_ColorId_t& id, const QString& name);

/// Changes the nominal colour of a colour of a palette of the scene.
///
/// @return null when there is no such colour or nothing would change
QUARVELSCENECORE_EXPORT MO_EditCommand MO_recolorCmd(MO_Scene& scene, const CM_SharedPtr<CM_Palette>& palette,
                                                     const CM_ColorId_t& id, const CM_Rgba& color);
