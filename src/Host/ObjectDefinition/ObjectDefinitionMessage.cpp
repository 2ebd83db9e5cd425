// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The constructors and destructors of the entry and the message of an Object Definition.
#include "ObjectDefinition/ObjectDefinitionMessage.h"

#include "ObjectDefinition/ObjectDefinitionEntry.h"

ObjectDefinitionMessage::ObjectDefinitionMessage(int objectId, double low, double high)
    : _objectId(objectId), _low(low), _high(high)
{}

ObjectDefinitionMessage::~ObjectDefinitionMessage() = default;

ObjectDefinitionEntry::ObjectDefinitionEntry(int identifier, double objectLevel, bool scaleByCoverage)
    : _identifier(identifier), _objectLevel(objectLevel), _scaleByCoverage(scaleByCoverage)
{}

ObjectDefinitionEntry::~ObjectDefinitionEntry() = default;
