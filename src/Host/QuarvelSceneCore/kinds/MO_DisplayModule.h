// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_DisplayModule: the node whose input is the scene's picture. A render that names no node starts here.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

/// The output of a scene: one input, no output.
class QUARVELSCENECORE_EXPORT MO_DisplayModule : public MO_Module
{
public:
    MO_DisplayModule();
    ~MO_DisplayModule() override;

    /// "DISPLAY".
    static QString Keyword();

    QString keyword() const override;
    QString baseDisplayName() const override;
    /// True.
    bool isSceneOutput() const override;
};
