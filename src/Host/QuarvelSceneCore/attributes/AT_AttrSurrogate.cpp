// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Defines the destructors of surrogates, so that their type information exists in one library only.
#include "QuarvelSceneCore/attributes/AT_AttrSurrogate.h"

AT_AttrSurrogate::~AT_AttrSurrogate() = default;

AT_ScalarSimpleAttrSurrogate::~AT_ScalarSimpleAttrSurrogate() = default;
