// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_ColorTransform: a way of repainting a vector drawing, given to the drawing and used whenever it is rasterised.
#pragma once

#include "QuarvelCelCore/QuarvelCelCoreExport.h"
#include "QuarvelGraphicCore/GR_GraphicOpsColorTransform.h"

class CELVEC_Kvd;

/// Makes the colour transform of each rasterisation of the drawings that hold it. Drawings on several threads may share
/// one.
class QUARVELCELCORE_EXPORT CEL_ColorTransform : public UT_ShareBaseSafe
{
public:
    ~CEL_ColorTransform() override;

    /// The transform for one rasterisation. It may refer to this object, which must outlive it.
    virtual std::unique_ptr<GR_GraphicOpsColorTransform> createGraphicOpsTransform() = 0;

    /// Called when the transform is given to a drawing, for transforms that prepare themselves from its palette. Does
    /// nothing unless overridden.
    virtual void attachedTo(const CELVEC_Kvd& drawing);
};
