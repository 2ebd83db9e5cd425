// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_Representation: one way in which a cel holds its picture, as pixels (CEL_PixmapArea) or as shapes (CELVEC_Kvd).
#pragma once

#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelCelCore/QuarvelCelCoreExport.h"

/// A picture in one form.
class QUARVELCELCORE_EXPORT CEL_Representation : public UT_ShareBaseSafe
{
public:
    ~CEL_Representation() override;
};
