// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The identifier of a palette colour, and the shared pointer that colours and palettes are held by.
#pragma once

#include "QuarvelBaseCore/UT_Id.h"
#include "QuarvelBaseCore/UT_SharedPtr.h"

/// Names a palette colour for good: drawings refer to colours by it.
using CM_ColorId_t = UT_Id;

/// Holds a colour or a palette.
template<typename T>
using CM_SharedPtr = UT_SharedPtr<T>;
