// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SIO_Scene: a loaded scene, with the parts of its main file that this program does not understand and the drawings of
// modules of unknown kinds, so that saving does not lose anything.
#pragma once

#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneIO/private/SIO_Drawing.h"
#include "QuarvelSceneIO/private/SIO_Index.h"
#include "QuarvelSceneIO/private/SIO_Palette.h"

#include <map>

/// A loaded scene.
class SIO_Scene : public MO_Scene
{
public:
    /// The drawings of a module of an unknown kind, as the unchanged bytes of their files.
    struct Kept
    {
        SIO_Index::Element entry;
        std::vector<QByteArray> files; ///< one for each drawing of the entry
    };

    ~SIO_Scene() override;

    /// The index as it was read; its unknown parts are written back.
    SIO_Index index;
    /// Indexed by the modules' names.
    std::map<QString, Kept> kept;
    /// Palettes that drawings use but the scene does not list.
    std::vector<UT_SharedPtr<SIO_Palette>> otherPalettes;
};
