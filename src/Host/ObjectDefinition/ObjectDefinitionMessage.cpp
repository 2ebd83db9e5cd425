// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is told about an object: to other requests, and along with a cel.
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
