// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Defines the destructor of shared objects, so that their type information exists in one library only.
#include "QuarvelBaseCore/UT_SharedPtr.h"

UT_ShareBaseSafe::~UT_ShareBaseSafe() = default;
