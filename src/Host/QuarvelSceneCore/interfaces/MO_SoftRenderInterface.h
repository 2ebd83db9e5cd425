// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_SoftRenderInterface: makes the picture of one module for one frame. The renderer calls softRender() once for each
// input port that takes part, in port order, each time with the input's cel in the context, and then finish() once.
#pragma once

#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

class MO_SoftContext;

/// Makes one picture. Used by one thread at a time.
class QUARVELSCENECORE_EXPORT MO_SoftRenderInterface : public UT_ShareBaseSafe
{
public:
    ~MO_SoftRenderInterface() override;

    /// An input port's turn; context.inputCel(port) is what it delivers, or null.
    virtual void softRender(MO_SoftContext& context, int port) = 0;
    /// All input ports had their turn: deliver the picture now (MO_SoftContext::setOutputCel).
    virtual void finish(MO_SoftContext& context) = 0;
};
