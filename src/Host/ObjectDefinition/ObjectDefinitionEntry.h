// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectDefinitionEntry: what an Object Definition leaves for the requests downstream of it.
#pragma once

#include "ObjectDefinition/ObjectDefinitionExport.h"
#include "QuarvelCelCore/CEL_Message.h"

/// The definition that counts for a drawing. In the context of a request under
/// ObjectDefinition::objectDefinitionMessageId().
class OBJECTDEFINITION_EXPORT ObjectDefinitionEntry : public CEL_Message
{
public:
    /// @param identifier      the object's number
    /// @param objectLevel     the level of what the drawing covers, 0 to 1
    /// @param scaleByCoverage whether the drawing's greys count in proportion to its coverage
    ObjectDefinitionEntry(int identifier, double objectLevel, bool scaleByCoverage);
    ~ObjectDefinitionEntry() override;

    int identifier() const { return _identifier; }
    double objectLevel() const { return _objectLevel; }
    bool scaleByCoverage() const { return _scaleByCoverage; }

private:
    int _identifier;
    double _objectLevel;
    bool _scaleByCoverage;
};
