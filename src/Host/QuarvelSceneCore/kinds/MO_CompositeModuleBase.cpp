// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The base of compositing modules.
#include "QuarvelSceneCore/kinds/MO_CompositeModuleBase.h"

MO_CompositeModuleBase::MO_CompositeModuleBase() = default;

MO_CompositeModuleBase::~MO_CompositeModuleBase() = default;
