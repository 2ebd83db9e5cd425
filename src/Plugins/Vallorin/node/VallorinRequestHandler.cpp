// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Wraps the drawings on their way to the node.
#include "node/VallorinRequestHandler.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionEntry.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "node/ObjectAlgoRenderStage.h"

namespace {

/// The entry of the definition that applies to the drawing; a cut-out at full level when there is none.
UT_SharedPtr<ObjectDefinitionEntry> definitionOf(const MO_RenderingRequestHandler::BaseContext& context)
{
    const auto entry = context.findObject(ObjectDefinition::objectDefinitionMessageId());
    const auto definition = entry.dynamicCast<ObjectDefinitionEntry>();
    return definition ? definition : UT_makeShared<ObjectDefinitionEntry>(0, 1.0, false);
}

} // namespace

VallorinRequestHandler::VallorinRequestHandler(const QString& colorInformation)
    : VallorinRequestHandler(std::make_shared<ObjectColours>(colorInformation))
{}

VallorinRequestHandler::VallorinRequestHandler(std::shared_ptr<const ObjectColours> colours)
    : _colours(std::move(colours))
{}

VallorinRequestHandler::~VallorinRequestHandler() = default;

void VallorinRequestHandler::processDrawing(BaseContext& context)
{
    if (!context.drawing())
        return;
    const UT_SharedPtr<CELVEC_Kvd> vectors = context.drawing()->findBestVectorRepresentation();
    if (context.findObject(ObjectDefinition::objectDisableMessageId())) {
        context.drawing() = UT_makeShared<CEL_Cel>();
        return;
    }
    if (!vectors)
        return;

    const auto definition = definitionOf(context);
    const int identifier = std::max(0, definition->identifier());

    const auto staged = MultiStageKvd::embed(vectors);
    staged->addStage(UT_makeShared<ObjectAlgoRenderStage>(
        context.frameKey().frame, identifier, definition->scaleByCoverage(), definition->objectLevel(), _colours));
    const auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(staged);
    cel->addMessage(ObjectDefinition::objectDefinitionMessageId(),
                    UT_makeShared<ObjectDefinitionMessage>(identifier, 0.0, 0.0));
    context.drawing() = cel;
}
