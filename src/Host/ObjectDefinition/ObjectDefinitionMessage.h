// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectDefinitionMessage: travels with a cel and says which object it shows.
#pragma once

#include "ObjectDefinition/ObjectDefinitionExport.h"
#include "QuarvelCelCore/CEL_Message.h"

/// The object that a cel shows. Attached under ObjectDefinition::objectDefinitionMessageId().
class OBJECTDEFINITION_EXPORT ObjectDefinitionMessage : public CEL_Message
{
public:
    /// @param low,high the depths between which the object lies; 0 and 0 when it has none
    ObjectDefinitionMessage(int objectId, double low, double high);
    ~ObjectDefinitionMessage() override;

    int objectId() const { return _objectId; }
    double low() const { return _low; }
    double high() const { return _high; }

private:
    int _objectId;
    double _low;
    double _high;
};
