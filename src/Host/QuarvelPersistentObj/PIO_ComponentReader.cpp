// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The destructor of readers stands here, so that their type information has one home.
#include "QuarvelPersistentObj/PIO_ComponentReader.h"

PIO_ComponentReader::~PIO_ComponentReader() = default;
