// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_OverHandler: paints cels one over the other; what the host's composite and glue modules render with.
#pragma once

#include "QuarvelSceneCore/graph/MO_CompositeType.h"
#include "QuarvelSceneCore/interfaces/MO_CompositeModuleBitmapHandler.h"

/// Paints the input cels one over the other, in the given order. A single cel is passed on unchanged; without cels
/// there is no picture.
class MO_OverHandler final : public MO_CompositeModuleBitmapHandler
{
public:
    MO_OverHandler(MO_Module* node, int celFormat, MO_CompositeType::CompositeOrder order,
                   const std::vector<node_render::PortRenderInfo>& ports);
    ~MO_OverHandler() override;

protected:
    void acceptInputCel(const MO_SoftContext& context, CA_CelRef cel) override;
    void finishRender(const MO_SoftContext& context, CA_CelRef delivered) override;

private:
    MO_CompositeType::CompositeOrder _order;
    std::vector<CA_CelRef> _cels;
};
