// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Defines the destructor of readers, so that their type information exists in one library only.
#include "QuarvelPersistentObj/PIO_ComponentReader.h"

PIO_ComponentReader::~PIO_ComponentReader() = default;
