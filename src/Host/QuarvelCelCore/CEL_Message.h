// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CEL_Message: information that travels with a cel, from the module that made it to those that take it.
#pragma once

#include "QuarvelBaseCore/UT_DynKey.h"
#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelCelCore/QuarvelCelCoreExport.h"

/// Base of messages. Immutable once attached to a cel.
class QUARVELCELCORE_EXPORT CEL_Message : public UT_ShareBaseSafe
{
public:
    ~CEL_Message() override;
};
