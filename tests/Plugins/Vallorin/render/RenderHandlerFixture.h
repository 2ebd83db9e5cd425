// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The render handler, driven as a host drives it.
#pragma once

#include "SmallPixmaps.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "render/VallorinRenderHandler.h"

#include <gmock/gmock.h>

// A module that gives the context a scene with a camera.
class VallorinTestModule : public MO_Module
{
public:
    VallorinTestModule() { addInImagePort(); }
    QString keyword() const override { return QStringLiteral("TEST"); }
    QString baseDisplayName() const override { return QStringLiteral("Test"); }
};

inline CA_CelRef celOf(const UT_SharedPtr<CEL_PixmapArea>& pixmap)
{
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(pixmap);
    return cel;
}

inline CA_CelRef tagged(const UT_SharedPtr<CEL_PixmapArea>& pixmap, int objectId)
{
    CA_CelRef cel = celOf(pixmap);
    cel->addMessage(ObjectDefinition::objectDefinitionMessageId(),
                    UT_makeShared<ObjectDefinitionMessage>(objectId, 0.0, 0.0));
    return cel;
}

// Renders inputs of 8 x 8, without a bevel unless the object list says so.
template<typename Pixel>
class RenderHandlerOf : public testing::Test
{
protected:
    static constexpr int kSide = 8;

    UT_SharedPtr<VallorinRenderHandler> make(std::size_t ports, const char* objectList)
    {
        return make(std::vector<node_render::PortRenderInfo>(ports), objectList);
    }

    UT_SharedPtr<VallorinRenderHandler> make(const std::vector<node_render::PortRenderInfo>& ports,
                                             const char* objectList)
    {
        // The host passes on both formats unchanged.
        MO_CompositeModuleBitmapHandler::CompositeModuleInterface module;
        module.acceptsFloatCels = true;
        module.accepts16BitCels = true;
        UT_SharedPtr<VallorinRenderHandler> handler(new VallorinRenderHandler(1.0, module, ports));
        handler->objectInformation = QString::fromLatin1(objectList);
        return handler;
    }

    void deliver(VallorinRenderHandler& handler, const CA_CelRef& cel)
    {
        _context.setInputCel(_port, cel);
        handler.softRender(_context, _port);
        _context.setInputCel(_port, nullptr);
        ++_port;
    }

    UT_SharedPtr<CEL_PixmapOf<Pixel>> finish(VallorinRenderHandler& handler)
    {
        handler.finish(_context);
        const CA_CelRef output = _context.outputCel();
        return output ? output->pixmap().template dynamicCast<CEL_PixmapOf<Pixel>>() : nullptr;
    }

    // An input whose pixels are all the same, as the object stage makes it.
    static UT_SharedPtr<CEL_PixmapOf<Pixel>> covering(decltype(Pixel::a) coverage,
                                                      decltype(Pixel::r) value = CEL_PixelTraits<Pixel>::kFull)
    {
        return filled<Pixel>(kSide, kSide, {value, 0, 0, coverage});
    }

    // The output for one object of number 1 whose input pixels are all the same.
    Pixel shown(decltype(Pixel::a) coverage)
    {
        const auto handler = make(1, "1:0");
        deliver(*handler, tagged(covering(coverage), 1));
        return finish(*handler)->at(3, 3);
    }

    MO_Scene _scene;
    MO_Module& _module = _scene.root().emplace<VallorinTestModule>();

private:
    static constexpr int kFormat = CEL_PixelTraits<Pixel>::kFormat == CEL_FORMAT_RGBA16
                                       ? RD_RenderParameters::IMAGE_PROCESSING_16BIT
                                       : RD_RenderParameters::IMAGE_PROCESSING_FLOAT;

    RD_RenderJob _job{RD_RenderParameters{kFormat, {kSide, kSide}}};
    MO_SoftContext _context{_job, MO_FrameKey{1.0}, &_module, _job.canvas()};
    int _port = 0;
};

using RenderHandler = RenderHandlerOf<Pixel16>;
using RenderHandlerFloat = RenderHandlerOf<PixelFloat>;
