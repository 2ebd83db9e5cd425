// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The destructor of shared objects stands here, so that their type information has one home.
#include "QuarvelBaseCore/UT_SharedPtr.h"

UT_ShareBaseSafe::~UT_ShareBaseSafe() = default;
