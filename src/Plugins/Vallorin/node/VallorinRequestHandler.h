// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VallorinRequestHandler: what the node does with every drawing upstream of it before it is rendered. The drawing is
// wrapped in a multi-stage drawing with an ObjectAlgoRenderStage, so that its pixels say what belongs to the object and
// at which level; the cel gets a message with the object's number. A drawing whose object is switched off is emptied.
#pragma once

#include "QuarvelSceneCore/MO_RenderingRequestHandler.h"
#include "VallorinExport.h"

#include <QString>

#include <memory>

class ObjectColours;

/// Handles the drawings of one request. It keeps the colour table that it was made with: a later edit of the node only
/// reaches handlers made after it. Immutable, so several threads may use one.
class VALLORIN_EXPORT VallorinRequestHandler : public MO_RenderingRequestHandler
{
public:
    class ObjectAlgoRenderStage;

    /// @param colorInformation the text of the node's colour table
    explicit VallorinRequestHandler(const QString& colorInformation);
    /// @param colours the node's colour table, which many handlers may share
    explicit VallorinRequestHandler(std::shared_ptr<const ObjectColours> colours);
    ~VallorinRequestHandler() override;

    /// Wraps or empties the drawing, following the ObjectDefinitionEntry in the context; without one, the drawing is a
    /// cut-out (number 0) at full level. An entry of another class, which a host may leave under the same key, is
    /// unreadable and ignored; the entry that switches an object off may be of any class. A context without a drawing,
    /// or with one that is not a vector drawing, stays unchanged.
    void processDrawing(BaseContext& context) override;

private:
    std::shared_ptr<const ObjectColours> _colours;
};
