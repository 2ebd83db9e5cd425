// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The destructors of surrogates stand here, so that their type information has one home.
#include "QuarvelSceneCore/attributes/AT_AttrSurrogate.h"

AT_AttrSurrogate::~AT_AttrSurrogate() = default;

AT_ScalarSimpleAttrSurrogate::~AT_ScalarSimpleAttrSurrogate() = default;
