// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The base of all visitors of modules.
#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"

MO_AbstractModuleVisitor::~MO_AbstractModuleVisitor() = default;
