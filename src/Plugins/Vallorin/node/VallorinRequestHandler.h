// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VallorinRequestHandler: what the node wants done with every drawing upstream of it before anybody renders it. The
// drawing is wrapped in a multi-stage drawing with an ObjectAlgoRenderStage, so that when it becomes pixels these say
// what belongs to the object and at which level; the cel gets a message with the object's number. A drawing whose
// object is switched off is emptied.
#pragma once

#include "QuarvelSceneCore/MO_RenderingRequestHandler.h"
#include "VallorinExport.h"

#include <QString>

/// Handles the drawings of one request. It keeps the colour table that it was made with: a later edit of the node
/// reaches only handlers made after it. Holds nothing that changes, so several threads may use one.
class VALLORIN_EXPORT VallorinRequestHandler : public MO_RenderingRequestHandler
{
public:
    class ObjectAlgoRenderStage;

    /// @param colorInformation the text of the node's colour table
    explicit VallorinRequestHandler(const QString& colorInformation);
    ~VallorinRequestHandler() override;

    /// Wraps or empties the drawing, following the ObjectDefinitionEntry in the context; without one the drawing is a
    /// cut-out (number 0) at full level. An entry of another class, which a host may leave under the same key, cannot
    /// be read and counts as none; the entry that switches an object off may be of any class. A context without
    /// drawing, or with one that is no vector drawing, stays as it is.
    void processDrawing(BaseContext& context) override;

private:
    QString _colorInformation;
};
