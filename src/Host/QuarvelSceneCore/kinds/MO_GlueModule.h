// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_GlueModule: joins the two halves of something that was drawn in two pieces. It has exactly two inputs; its picture
// is the first one over the second one. Searches for drawings in the graph follow both inputs, since both are parts of
// one thing.
#pragma once

#include "QuarvelSceneCore/graph/MO_Module.h"

/// Joins two pictures.
class QUARVELSCENECORE_EXPORT MO_GlueModule : public MO_Module
{
public:
    MO_GlueModule();
    ~MO_GlueModule() override;

    /// "GLUE".
    static QString Keyword();

    QString keyword() const override;
    QString baseDisplayName() const override;
    void accept(MO_AbstractModuleVisitor& visitor) override;
    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context,
                              const std::vector<node_render::PortRenderInfo>& ports) override;
};
